// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <ovo/widgets/framelessmessagebox.h>

#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTouchDevice>
#include <QWindow>

#include <functional>
#include <memory>

using Ovo::Widgets::FramelessMessageBox;

using Button = QMessageBox::StandardButton;
using Buttons = QMessageBox::StandardButtons;
using Act = std::function<void(FramelessMessageBox *)>;
using Ask = std::function<Button(QWidget *)>;

Q_DECLARE_METATYPE(Act)
Q_DECLARE_METATYPE(Ask)

namespace {

const QString aTitle = QStringLiteral("Remind");
const QString aText = QStringLiteral("Are you sure to restart console?");

// Does something with the box that opens next, once it is active.
class Answer : public QObject
{
public:
    explicit Answer(Act act)
        : m_act(std::move(act))
    {
        m_timer.setInterval(1);
        connect(&m_timer, &QTimer::timeout, this, &Answer::look);
        m_timer.start();
    }

    bool isDone() const { return m_isDone; }

private:
    void look()
    {
        auto *box = qobject_cast<FramelessMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isActiveWindow())
            return;
        m_timer.stop();
        m_isDone = true;
        const QPointer<FramelessMessageBox> guard(box);
        m_act(box);
        if (guard)
            box->hide(); // also after a failure
    }

    const Act m_act;
    QTimer m_timer;
    bool m_isDone = false;
};

Act key(Qt::Key key)
{
    return [key](FramelessMessageBox *box) { QTest::keyClick(box->windowHandle(), key); };
}

Act click(Button button)
{
    return [button](FramelessMessageBox *box) {
        const QWidget *target = box->button(button);
        QTest::mouseClick(box->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          target->mapTo(box, target->rect().center()));
    };
}

QLabel *titleOf(const QWidget *box)
{
    return box->findChild<QLabel *>(QStringLiteral("messagebox_title"));
}

QLabel *textOf(const QWidget *box)
{
    return box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
}

QPoint middleOf(const QWidget *part)
{
    return part->mapTo(part->window(), part->rect().center());
}

QTouchDevice *touchScreen()
{
    static QTouchDevice *const screen = QTest::createTouchDevice();
    return screen;
}

// Two buttons and an icon, in the middle of the screen.
std::unique_ptr<FramelessMessageBox> shownBox()
{
    auto box = std::make_unique<FramelessMessageBox>(QMessageBox::Question, aTitle, aText,
                                                     QMessageBox::Yes | QMessageBox::No);
    box->setInformativeText(QStringLiteral("All layers go dark."));
    box->show();
    if (!QTest::qWaitForWindowActive(box.get()))
        return nullptr;
    box->move(200, 200);
    return box;
}

} // namespace

class tst_FramelessMessageBox : public QObject
{
    Q_OBJECT

private slots:
    void eachStaticShowsItsBox_data();
    void eachStaticShowsItsBox();
    void theButtonPressedIsTheAnswer_data();
    void theButtonPressedIsTheAnswer();
    void keysAnswer_data();
    void keysAnswer();
    void aCustomButtonCanBeAsked();
    void itIsFramelessAndModal();
    void theTitleIsSeenInside();
    void aLongTitleIsNotClipped();
    void withoutATitleThereIsNoBar();
    void textsAreNotClipped_data();
    void textsAreNotClipped();
    void buttonsAreLargeEnoughForFingers();
    void itOpensOverItsParentsWindow();
    void itStaysWhereItWasPut();
    void draggingMovesIt_data();
    void draggingMovesIt();
    void draggingMovesItNot_data();
    void draggingMovesItNot();
    void aFingerDragsIt();
    void aFingerPressesButtons();
    void itStaysOnTheScreen_data();
    void itStaysOnTheScreen();
    void itSurvivesTheEnd_data();
    void itSurvivesTheEnd();
    void nestedBoxesAnswerEach();
    void anEmbeddedParentGetsAModalWindow();
};

void tst_FramelessMessageBox::eachStaticShowsItsBox_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("defaultButton");

    const auto row = [](const char *name, const Ask &ask, QMessageBox::Icon icon, Buttons buttons,
                        Button defaultButton) {
        QTest::newRow(name) << ask << int(icon) << int(buttons) << int(defaultButton);
    };
    using Box = FramelessMessageBox;
    const Buttons yesNo = Box::Yes | Box::No;
    const auto warning = [](QWidget *parent) { return Box::warning(parent, aTitle, aText); };
    const auto question = [](QWidget *parent) { return Box::question(parent, aTitle, aText); };
    const auto information = [](QWidget *parent) { return Box::information(parent, aTitle, aText); };
    row("warning", warning, Box::Warning, Box::Ok, Box::Ok);
    row("question", question, Box::Question, yesNo, Box::Yes);
    row("information", information, Box::Information, Box::Ok, Box::Ok);
    const auto warningNo = [yesNo](QWidget *parent) {
        return Box::warning(parent, aTitle, aText, yesNo, Box::No);
    };
    const auto questionNo = [yesNo](QWidget *parent) {
        return Box::question(parent, aTitle, aText, yesNo, Box::No);
    };
    const auto informationNo = [yesNo](QWidget *parent) {
        return Box::information(parent, aTitle, aText, yesNo, Box::No);
    };
    row("warning, No", warningNo, Box::Warning, yesNo, Box::No);
    row("question, No", questionNo, Box::Question, yesNo, Box::No);
    row("information, No", informationNo, Box::Information, yesNo, Box::No);
}

void tst_FramelessMessageBox::eachStaticShowsItsBox()
{
    QFETCH(Ask, ask);
    QFETCH(int, icon);
    QFETCH(int, buttons);
    QFETCH(int, defaultButton);
    QWidget parent;
    const Answer answer([&](FramelessMessageBox *box) {
        QCOMPARE(int(box->icon()), icon);
        QCOMPARE(box->windowTitle(), aTitle);
        QCOMPARE(box->text(), aText);
        QCOMPARE(box->informativeText(), QString());
        QCOMPARE(int(box->standardButtons()), buttons);
        QCOMPARE(box->parentWidget(), &parent);
        const auto *button = qobject_cast<QPushButton *>(box->button(Button(defaultButton)));
        QVERIFY(button && button->isDefault() && button->hasFocus());
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    });
    QCOMPARE(int(ask(&parent)), defaultButton);
    QVERIFY(answer.isDone());
    QVERIFY(parent.findChildren<QMessageBox *>().isEmpty());
}

void tst_FramelessMessageBox::theButtonPressedIsTheAnswer_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("Yes") << int(QMessageBox::Yes);
    QTest::newRow("No") << int(QMessageBox::No);
    QTest::newRow("Cancel") << int(QMessageBox::Cancel);
}

void tst_FramelessMessageBox::theButtonPressedIsTheAnswer()
{
    QFETCH(int, button);
    const Answer answer(click(Button(button)));
    QCOMPARE(int(FramelessMessageBox::question(nullptr, aTitle, aText,
                                               QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel)),
             button);
}

void tst_FramelessMessageBox::keysAnswer_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("defaultButton");
    QTest::addColumn<Act>("act");
    QTest::addColumn<int>("expected");
    const int yesNo = QMessageBox::Yes | QMessageBox::No;
    const int all = yesNo | QMessageBox::Cancel;
    QTest::newRow("Return") << yesNo << int(QMessageBox::No) << key(Qt::Key_Return) << int(QMessageBox::No);
    QTest::newRow("Enter") << yesNo << int(QMessageBox::No) << key(Qt::Key_Enter) << int(QMessageBox::No);
    QTest::newRow("Return, no default")
        << yesNo << int(QMessageBox::NoButton) << key(Qt::Key_Return) << int(QMessageBox::Yes);
    QTest::newRow("Return on the focused one")
        << yesNo << int(QMessageBox::Yes) << Act([](FramelessMessageBox *box) {
               box->button(QMessageBox::No)->setFocus();
               QTest::keyClick(box->windowHandle(), Qt::Key_Return);
           })
        << int(QMessageBox::No);
    QTest::newRow("Tab moves the focus")
        << yesNo << int(QMessageBox::Yes) << Act([](FramelessMessageBox *box) {
               QTest::keyClick(box->windowHandle(), Qt::Key_Tab);
               QTest::keyClick(box->windowHandle(), Qt::Key_Space);
           })
        << int(QMessageBox::No);
    QTest::newRow("Escape is Cancel")
        << all << int(QMessageBox::Yes) << key(Qt::Key_Escape) << int(QMessageBox::Cancel);
    QTest::newRow("Escape is No") << yesNo << int(QMessageBox::Yes) << key(Qt::Key_Escape)
                                  << int(QMessageBox::No);
    QTest::newRow("Escape is the only one")
        << int(QMessageBox::Ok) << int(QMessageBox::NoButton) << key(Qt::Key_Escape) << int(QMessageBox::Ok);
    QTest::newRow("Escape where none can be meant")
        << int(QMessageBox::Save | QMessageBox::Yes) << int(QMessageBox::NoButton)
        << Act([](FramelessMessageBox *box) {
               QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
               QVERIFY(box->isVisible());
               click(QMessageBox::Save)(box);
           })
        << int(QMessageBox::Save);
}

void tst_FramelessMessageBox::keysAnswer()
{
    QFETCH(int, buttons);
    QFETCH(int, defaultButton);
    QFETCH(Act, act);
    QFETCH(int, expected);
    const Answer answer(act);
    QCOMPARE(
        int(FramelessMessageBox::warning(nullptr, aTitle, aText, Buttons(buttons), Button(defaultButton))),
        expected);
    QVERIFY(answer.isDone());
}

void tst_FramelessMessageBox::aCustomButtonCanBeAsked()
{
    FramelessMessageBox box;
    box.setText(aText);
    QPushButton *sure = box.addButton(QStringLiteral("sure"), QMessageBox::AcceptRole);
    const Answer answer([sure](FramelessMessageBox *shown) {
        QTest::mouseClick(shown->windowHandle(), Qt::LeftButton, Qt::NoModifier, middleOf(sure));
    });
    box.exec();
    QCOMPARE(box.clickedButton(), sure);
}

void tst_FramelessMessageBox::itIsFramelessAndModal()
{
    QWidget parent;
    const FramelessMessageBox withParent(&parent);
    const FramelessMessageBox alone(QMessageBox::Warning, aTitle, aText);
    for (const FramelessMessageBox *box : {&withParent, &alone}) {
        QVERIFY(box->isWindow());
        QVERIFY(box->windowFlags().testFlag(Qt::FramelessWindowHint));
        QCOMPARE(box->windowModality(), Qt::ApplicationModal);
    }
    QCOMPARE(withParent.parentWidget(), &parent);
}

void tst_FramelessMessageBox::theTitleIsSeenInside()
{
    const auto box = shownBox();
    QVERIFY(box);
    const QLabel *title = titleOf(box.get());
    QVERIFY(title && title->isVisible());
    QCOMPARE(title->text(), aTitle);
    QCOMPARE(title->geometry().topLeft(), QPoint(0, 0));
    QCOMPARE(title->width(), box->width());
    QVERIFY(textOf(box.get())->mapTo(box.get(), QPoint()).y() >= title->height());

    box->setWindowTitle(QStringLiteral("<b>Tip</b>"));
    QCOMPARE(title->text(), QStringLiteral("<b>Tip</b>"));
    QCOMPARE(title->textFormat(), Qt::PlainText);
}

void tst_FramelessMessageBox::aLongTitleIsNotClipped()
{
    FramelessMessageBox box(QMessageBox::Warning, aTitle + QLatin1Char(' '), aText, QMessageBox::Ok);
    box.setStyleSheet(QStringLiteral("QLabel#messagebox_title { font: bold 24px; }"));
    box.setWindowTitle(box.windowTitle().repeated(30));
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    const QLabel *title = titleOf(&box);
    QVERIFY(title->height() > 2 * QFontMetrics(title->font()).lineSpacing());
    QVERIFY(title->height() >= title->heightForWidth(title->width()));
    QVERIFY(textOf(&box)->mapTo(&box, QPoint()).y() >= title->height());
    QVERIFY(box.childrenRect().bottom() < box.height());
}

void tst_FramelessMessageBox::withoutATitleThereIsNoBar()
{
    const auto box = shownBox();
    QVERIFY(box);
    const int height = box->height();
    const int bar = titleOf(box.get())->height();
    box->setWindowTitle(QString());
    QVERIFY(!titleOf(box.get())->isVisible());
    QCOMPARE(bar, titleOf(box.get())->heightForWidth(box->width()));
    QTRY_COMPARE(box->height(), height - bar);
}

void tst_FramelessMessageBox::textsAreNotClipped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("informative");
    const QString sentence =
        QStringLiteral("The default gateway is not on the same network segment (subnet) defined by IP "
                       "address and subnet mask. ");
    QTest::newRow("short") << QStringLiteral("Done.") << QString();
    QTest::newRow("tip") << QStringLiteral("Fail to set network information.") << sentence;
    QTest::newRow("long") << sentence.repeated(4) << QString();
    QTest::newRow("both long") << sentence.repeated(3) << sentence.repeated(3);
    QTest::newRow("lines") << QStringLiteral("1\n2\n3") << QStringLiteral("4\n5\n6");
}

void tst_FramelessMessageBox::textsAreNotClipped()
{
    QFETCH(QString, text);
    QFETCH(QString, informative);
    FramelessMessageBox box(QMessageBox::Warning, QStringLiteral("Tip"), text, QMessageBox::Ok);
    box.setStyleSheet(QStringLiteral("QLabel { font-size: 18px; }"));
    box.setInformativeText(informative);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QCOMPARE(box.text(), text);
    QCOMPARE(box.informativeText(), informative);

    const QLabel *informativeLabel = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"));
    QCOMPARE(!informative.isEmpty(), informativeLabel != nullptr);
    for (const QLabel *label : {const_cast<const QLabel *>(textOf(&box)), informativeLabel}) {
        if (!label)
            continue;
        const QRect needed =
            label->fontMetrics().boundingRect(label->contentsRect(), Qt::TextWordWrap, label->text());
        QVERIFY(needed.width() <= label->contentsRect().width());
        QVERIFY(needed.height() <= label->contentsRect().height());
        QVERIFY(box.rect().contains(QRect(label->mapTo(&box, QPoint()), label->size())));
    }
}

void tst_FramelessMessageBox::buttonsAreLargeEnoughForFingers()
{
    const auto box = shownBox();
    QVERIFY(box);
    const QPushButton *late = box->addButton(QStringLiteral("x"), QMessageBox::ResetRole);
    QTRY_VERIFY(late->width() >= 88);
    QCOMPARE(box->buttons().size(), 3);
    const auto buttons = box->buttons();
    for (const QAbstractButton *button : buttons) {
        QVERIFY(button->width() >= 88);
        QVERIFY(button->height() >= 40);
        QVERIFY(box->rect().contains(QRect(button->mapTo(box.get(), QPoint()), button->size())));
    }
}

void tst_FramelessMessageBox::itOpensOverItsParentsWindow()
{
    QWidget window;
    window.setGeometry(60, 50, 600, 500);
    QWidget corner(&window);
    corner.setGeometry(550, 450, 50, 50);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    FramelessMessageBox box(QMessageBox::Question, aTitle, aText, QMessageBox::Ok, &corner);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    const QPoint apart = box.geometry().center() - window.geometry().center();
    QVERIFY(apart.manhattanLength() <= 2);
}

void tst_FramelessMessageBox::itStaysWhereItWasPut()
{
    QWidget window;
    window.setGeometry(60, 50, 600, 500);
    window.show();
    FramelessMessageBox box(QMessageBox::Question, aTitle, aText, QMessageBox::Ok, &window);
    box.move(7, 9);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QCOMPARE(box.pos(), QPoint(7, 9));
}

void tst_FramelessMessageBox::draggingMovesIt_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("title") << QStringLiteral("messagebox_title");
    QTest::newRow("icon") << QStringLiteral("qt_msgboxex_icon_label");
    QTest::newRow("text") << QStringLiteral("qt_msgbox_label");
    QTest::newRow("informative text") << QStringLiteral("qt_msgbox_informativelabel");
    QTest::newRow("edge") << QString();
}

void tst_FramelessMessageBox::draggingMovesIt()
{
    QFETCH(QString, part);
    const auto box = shownBox();
    QVERIFY(box);
    const auto *label = box->findChild<QLabel *>(part);
    QVERIFY(label);
    const QPoint grab = part.isEmpty() ? QPoint(2, box->height() - 3) : middleOf(label);
    const QPoint start = box->pos();

    QWindow *window = box->windowHandle();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, grab);
    QTest::mouseMove(window, grab + QPoint(15, -20));
    QCOMPARE(box->pos(), start + QPoint(15, -20));
    QTest::mouseMove(window, grab + QPoint(-40, 5)); // from where the box is now
    QCOMPARE(box->pos(), start + QPoint(-25, -15));
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, grab);
    QTest::mouseMove(window, grab + QPoint(30, 30));
    QCOMPARE(box->pos(), start + QPoint(-25, -15));
    QVERIFY(box->isVisible());
}

void tst_FramelessMessageBox::draggingMovesItNot_data()
{
    QTest::addColumn<bool>("isOnButton");
    QTest::addColumn<int>("mouseButton");
    QTest::newRow("on a button") << true << int(Qt::LeftButton);
    QTest::newRow("on selectable text") << false << int(Qt::LeftButton);
    QTest::newRow("with the right button") << true << int(Qt::RightButton);
}

void tst_FramelessMessageBox::draggingMovesItNot()
{
    QFETCH(bool, isOnButton);
    QFETCH(int, mouseButton);
    const auto box = shownBox();
    QVERIFY(box);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const QWidget *part =
        isOnButton ? static_cast<QWidget *>(box->button(QMessageBox::No)) : textOf(box.get());
    const QPoint grab = mouseButton == Qt::LeftButton ? middleOf(part) : middleOf(titleOf(box.get()));
    const QPoint start = box->pos();
    QTest::mousePress(box->windowHandle(), Qt::MouseButton(mouseButton), Qt::NoModifier, grab);
    QTest::mouseMove(box->windowHandle(), grab + QPoint(60, -60));
    QCOMPARE(box->pos(), start);
    QTest::mouseRelease(box->windowHandle(), Qt::MouseButton(mouseButton), Qt::NoModifier,
                        grab + QPoint(60, -60));
    QCOMPARE(box->pos(), start);
    QVERIFY(box->isVisible());
}

void tst_FramelessMessageBox::aFingerDragsIt()
{
    const auto box = shownBox();
    QVERIFY(box);
    QWindow *window = box->windowHandle();
    const QPoint grab = middleOf(titleOf(box.get()));
    const QPoint start = box->pos();
    QTest::QTouchEventSequence touch = QTest::touchEvent(window, touchScreen(), false);
    touch.press(0, grab, window).commit();
    touch.move(0, grab + QPoint(30, 20), window).commit();
    QCOMPARE(box->pos(), start + QPoint(30, 20));
    touch.release(0, grab, window).commit();
    QVERIFY(box->isVisible());
}

void tst_FramelessMessageBox::aFingerPressesButtons()
{
    const Answer answer([](FramelessMessageBox *box) {
        QWindow *window = box->windowHandle();
        const QPoint position = middleOf(box->button(QMessageBox::No));
        QTest::touchEvent(window, touchScreen()).press(0, position, window);
        QTest::touchEvent(window, touchScreen()).release(0, position, window);
    });
    QCOMPARE(FramelessMessageBox::question(nullptr, aTitle, aText), QMessageBox::No);
}

void tst_FramelessMessageBox::itStaysOnTheScreen_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::newRow("left") << QPoint(-5000, 0);
    QTest::newRow("right") << QPoint(5000, 0);
    QTest::newRow("up") << QPoint(0, -5000);
    QTest::newRow("down") << QPoint(0, 5000);
    QTest::newRow("corner") << QPoint(5000, 5000);
}

void tst_FramelessMessageBox::itStaysOnTheScreen()
{
    QFETCH(QPoint, way);
    const auto box = shownBox();
    QVERIFY(box);
    const QPoint grab = middleOf(titleOf(box.get()));
    const QPoint start = box->pos();
    QTest::mousePress(box->windowHandle(), Qt::LeftButton, Qt::NoModifier, grab);
    QTest::mouseMove(box->windowHandle(), grab + way);
    QTest::mouseRelease(box->windowHandle(), Qt::LeftButton, Qt::NoModifier, grab + way);
    QVERIFY(box->pos() != start);
    QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().contains(box->geometry()));
}

void tst_FramelessMessageBox::itSurvivesTheEnd_data()
{
    QTest::addColumn<bool>("isQuitting");
    QTest::newRow("its parent is deleted") << false;
    QTest::newRow("the application quits") << true;
}

void tst_FramelessMessageBox::itSurvivesTheEnd()
{
    QFETCH(bool, isQuitting);
    QPointer<QWidget> parent(new QWidget);
    QPointer<FramelessMessageBox> shown;
    const Answer answer([&](FramelessMessageBox *box) {
        shown = box;
        if (isQuitting)
            QCoreApplication::quit();
        else
            delete parent;
    });
    Button given = QMessageBox::Yes;
    QTimer::singleShot(0, this, [&] {
        given = FramelessMessageBox::question(parent, aTitle, aText);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    QCOMPARE(given, QMessageBox::NoButton);
    QVERIFY(answer.isDone());
    QVERIFY(!shown);
    QVERIFY(!QApplication::activeModalWidget());
    delete parent;
}

void tst_FramelessMessageBox::nestedBoxesAnswerEach()
{
    QWidget parent;
    Button inner = QMessageBox::NoButton;
    const Answer outerAnswer([&inner](FramelessMessageBox *outer) {
        const Answer innerAnswer(click(QMessageBox::Ok));
        inner = FramelessMessageBox::information(outer, QStringLiteral("Tip"), aText);
        QVERIFY(outer->isVisible());
        QCOMPARE(QApplication::activeModalWidget(), outer);
        click(QMessageBox::No)(outer);
    });
    QCOMPARE(FramelessMessageBox::question(&parent, aTitle, aText), QMessageBox::No);
    QCOMPARE(inner, QMessageBox::Ok);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_FramelessMessageBox::anEmbeddedParentGetsAModalWindow()
{
    QGraphicsScene scene;
    auto *content = new QWidget;
    content->resize(800, 600);
    auto *key = new QPushButton(content);
    key->setGeometry(10, 10, 100, 100);
    scene.addWidget(content);
    scene.setSceneRect(0, 0, 800, 600);
    QGraphicsView view(&scene);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.scale(0.5, 0.5);
    view.setGeometry(220, 210, 400, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));

    const QSignalSpy pressed(key, &QPushButton::pressed);
    QWindow *viewWindow = view.windowHandle();
    const Answer answer([&](FramelessMessageBox *box) {
        QVERIFY(!box->graphicsProxyWidget());
        QVERIFY((box->geometry().center() - view.geometry().center()).manhattanLength() <= 4);
        QCOMPARE(box->windowHandle()->transientParent(), viewWindow);
        QTest::mouseClick(viewWindow, Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
        click(QMessageBox::Yes)(box);
    });
    QCOMPARE(FramelessMessageBox::question(key, aTitle, aText), QMessageBox::Yes);
    QVERIFY(answer.isDone());
    QCOMPARE(pressed.count(), 0);
    QTest::mouseClick(viewWindow, Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
    QCOMPARE(pressed.count(), 1);
}

QTEST_MAIN(tst_FramelessMessageBox)

#include "tst_framelessmessagebox.moc"
