// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/k7dropbutton.h>
#include <korvo/widgets/waitingdialog.h>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMetaEnum>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>
#include <QWheelEvent>
#include <QWindow>

#include <functional>
#include <memory>

using Korvo::EC::K7DropButton;
using Korvo::Widgets::WaitingDialog;

namespace {

const QString aText = QStringLiteral("loading , please wait.");
const QString aLongText =
    QStringLiteral("Setting the addresses of the network ports takes a while. ").repeated(4);

// Counts input that reaches a widget.
class InputCounter : public QObject
{
public:
    explicit InputCounter(QWidget *watched) { watched->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::TouchBegin:
        case QEvent::Shortcut:
            ++count;
            break;
        case QEvent::Paint:
            ++paints;
            break;
        default:
            break;
        }
        return false;
    }

    int count = 0;
    int paints = 0;
};

// A panel with two keys and a field, beside another field, in an active window.
class Desk
{
public:
    Desk()
    {
        window.resize(500, 300);
        panel->setGeometry(0, 0, 400, 300);
        first->setGeometry(20, 20, 80, 60);
        second->setGeometry(300, 200, 80, 60);
        field->setGeometry(20, 120, 100, 30);
        outside->setGeometry(410, 20, 80, 30);
        window.show();
        window.activateWindow();
        isReady = QTest::qWaitForWindowActive(&window);
        field->setFocus();
    }

    QWindow *handle() const { return window.windowHandle(); }
    QPoint middleOf(const QWidget *part) const { return part->mapTo(&window, part->rect().center()); }
    void click(const QWidget *part) const
    {
        QTest::mouseClick(handle(), Qt::LeftButton, Qt::NoModifier, middleOf(part));
    }
    QTest::QTouchEventSequence touch() const
    {
        static QTouchDevice *const screen = QTest::createTouchDevice();
        return QTest::touchEvent(handle(), screen, false);
    }

    QWidget window;
    QWidget *const panel = new QWidget(&window);
    K7DropButton *const first = new K7DropButton(panel);
    K7DropButton *const second = new K7DropButton(panel);
    QLineEdit *const field = new QLineEdit(panel);
    QLineEdit *const outside = new QLineEdit(&window);
    bool isReady = false;
};

QImage pictureOf(WaitingDialog *dialog)
{
    return dialog->grab().toImage();
}

struct Seen
{
    QRect panel;
    QRect letters;
};

// What can be seen of a text over a parent of that size.
Seen seenOf(const QSize &size, const QString &text)
{
    QWidget parent;
    parent.resize(size);
    WaitingDialog dialog(&parent);
    dialog.resize(size);
    dialog.setDimColor(Qt::blue);
    dialog.setPanelColor(Qt::black);
    dialog.setBorderColor(Qt::red);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::white);
    dialog.setPalette(palette);
    dialog.showWaitingDialog(text);

    Seen seen;
    const QImage image = pictureOf(&dialog).convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel != QColor(Qt::blue))
                seen.panel |= QRect(x, y, 1, 1);
            if (pixel.green() > 200 && pixel.red() > 200)
                seen.letters |= QRect(x, y, 1, 1);
        }
    }
    return seen;
}

} // namespace

using Act = std::function<void(Desk &)>;
Q_DECLARE_METATYPE(Act)

class tst_WaitingDialog : public QObject
{
    Q_OBJECT

private slots:
    void levelsHaveTheirNumbers();
    void itIsHiddenAtFirst();
    void textAndLevelAreAsGiven_data();
    void textAndLevelAreAsGiven();
    void itCoversItsParent();
    void itStaysOnTop_data();
    void itStaysOnTop();
    void inputStopsAtIt_data();
    void inputStopsAtIt();
    void whatIsBesideItGoesOn();
    void aFingerHeldBelowIsReleasedThere();
    void aMouseHeldBelowIsReleasedThere();
    void aNewFingerReachesNoKey();
    void popupsFromBelowClose();
    void theFocusReturns();
    void theFocusThatWasNowhereStaysNowhere();
    void aDeletedWidgetGetsNoFocus();
    void theFocusCannotBeTakenBelow();
    void escapeLeavesIt_data();
    void escapeLeavesIt();
    void theSpinnerTurnsWhileItIsSeen_data();
    void theSpinnerTurnsWhileItIsSeen();
    void aTurnPaintsNothingElse();
    void aSecondShowChangesTextAndLevelOnly();
    void picturesDiffer();
    void longTextsAreNotClipped_data();
    void longTextsAreNotClipped();
    void thePanelWidensBeforeTheTextShrinks();
    void withoutAParentItIsAModalWindow();
    void aStyleSheetSetsColors();
    void itCanBeDeletedWhileShown_data();
    void itCanBeDeletedWhileShown();
};

void tst_WaitingDialog::levelsHaveTheirNumbers()
{
    const QMetaEnum levels = QMetaEnum::fromType<WaitingDialog::TooltipLevel>();
    QCOMPARE(levels.keyCount(), 3);
    QCOMPARE(levels.keyToValue("Normal"), 0);
    QCOMPARE(levels.keyToValue("Warning"), 1);
    QCOMPARE(levels.keyToValue("Error"), 2);
}

void tst_WaitingDialog::itIsHiddenAtFirst()
{
    QWidget parent;
    const WaitingDialog dialog(&parent);
    parent.show();
    QVERIFY(dialog.isHidden());
    QVERIFY(!dialog.isSpinning());
    QVERIFY(!dialog.isWindow());
    QCOMPARE(dialog.text(), QString());
    QCOMPARE(dialog.level(), WaitingDialog::Normal);
}

void tst_WaitingDialog::textAndLevelAreAsGiven_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("level");
    QTest::newRow("usual") << aText << 0;
    QTest::newRow("spaces") << QStringLiteral("  two  and \n three ") << 1;
    QTest::newRow("no markup") << QStringLiteral("<b>&amp; &x</b>") << 2;
    QTest::newRow("empty") << QString() << 0;
}

void tst_WaitingDialog::textAndLevelAreAsGiven()
{
    QFETCH(QString, text);
    QFETCH(int, level);
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(text, WaitingDialog::TooltipLevel(level));
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.text(), text);
    QCOMPARE(int(dialog.level()), level);
    dialog.hideWaitingDialog();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.text(), text);
}

void tst_WaitingDialog::itCoversItsParent()
{
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    desk.panel->resize(380, 290);
    dialog.showWaitingDialog(aText);
    QCOMPARE(dialog.geometry(), QRect(0, 0, 380, 290));
    desk.panel->resize(300, 150);
    QCOMPARE(dialog.geometry(), QRect(0, 0, 300, 150));
    dialog.hideWaitingDialog();
    desk.panel->resize(400, 300);
    dialog.showWaitingDialog(aText);
    QCOMPARE(dialog.geometry(), QRect(0, 0, 400, 300));
}

void tst_WaitingDialog::itStaysOnTop_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("a sibling is raised") << Act([](Desk &desk) { desk.first->raise(); });
    QTest::newRow("a sibling is added") << Act([](Desk &desk) {
        auto *added = new QPushButton(desk.panel);
        added->setGeometry(desk.first->geometry());
        added->show();
    });
}

void tst_WaitingDialog::itStaysOnTop()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    act(desk);
    QCOMPARE(desk.panel->childAt(desk.first->geometry().center()), &dialog);
}

void tst_WaitingDialog::inputStopsAtIt_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("click") << Act([](Desk &desk) { desk.click(desk.first); });
    QTest::newRow("right click") << Act([](Desk &desk) {
        QTest::mouseClick(desk.handle(), Qt::RightButton, Qt::NoModifier, desk.middleOf(desk.first));
    });
    QTest::newRow("wheel") << Act([](Desk &desk) {
        const QPoint position = desk.middleOf(desk.first);
        QWheelEvent event(position, desk.window.mapToGlobal(position), QPoint(), QPoint(0, 120), 120,
                          Qt::Vertical, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(desk.handle(), &event);
    });
    QTest::newRow("touch") << Act([](Desk &desk) {
        QTest::QTouchEventSequence touch = desk.touch();
        touch.press(0, desk.middleOf(desk.first), desk.handle()).commit();
        touch.release(0, desk.middleOf(desk.first), desk.handle()).commit();
    });
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,
                              Qt::Key_Backtab, Qt::Key_Down}) {
        QTest::newRow(qPrintable(QVariant::fromValue(key).toString() + QString::number(key)))
            << Act([key](Desk &desk) {
                   QTest::keyClick(desk.handle(), key);
                   QTest::keyClick(desk.handle(), Qt::Key_Space); // wherever the first has led to
               });
    }
    QTest::newRow("shortcut") << Act(
        [](Desk &desk) { QTest::keyClick(desk.handle(), Qt::Key_F5, Qt::ControlModifier); });
}

void tst_WaitingDialog::inputStopsAtIt()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.isReady);
    desk.panel->setAttribute(Qt::WA_AcceptTouchEvents);
    desk.first->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_F5));
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    const InputCounter panel(desk.panel);
    const InputCounter first(desk.first);
    const InputCounter field(desk.field);
    act(desk);
    QCOMPARE(panel.count, 0);
    QCOMPARE(first.count, 0);
    QCOMPARE(field.count, 0);
    QVERIFY(dialog.hasFocus());

    dialog.hideWaitingDialog();
    act(desk);
    QVERIFY(panel.count + first.count + field.count > 0);
}

void tst_WaitingDialog::whatIsBesideItGoesOn()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QShortcut shortcut(QKeySequence(Qt::CTRL + Qt::Key_F6), &desk.window);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    QTest::keyClick(desk.handle(), Qt::Key_F6, Qt::ControlModifier);
    QCOMPARE(activated.count(), 1);

    desk.click(desk.outside);
    QVERIFY(desk.outside->hasFocus());
    QTest::keyClick(desk.handle(), Qt::Key_A);
    QCOMPARE(desk.outside->text(), QStringLiteral("a"));
    dialog.hideWaitingDialog();
    QVERIFY(desk.outside->hasFocus());
}

void tst_WaitingDialog::aFingerHeldBelowIsReleasedThere()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy released(desk.first, &K7DropButton::released);
    const QSignalSpy clicked(desk.first, &K7DropButton::clicked);
    WaitingDialog dialog(desk.panel);
    QTest::QTouchEventSequence touch = desk.touch();
    touch.press(0, desk.middleOf(desk.first), desk.handle()).commit();
    QVERIFY(desk.first->isDown());

    dialog.showWaitingDialog(aText);
    touch.stationary(0).press(1, desk.middleOf(desk.second), desk.handle()).commit();
    touch.stationary(0).release(1, desk.middleOf(desk.second), desk.handle()).commit();
    QVERIFY(desk.first->isDown());
    QCOMPARE(released.count(), 0);
    touch.release(0, desk.middleOf(desk.first), desk.handle()).commit();
    QVERIFY(!desk.first->isDown());
    QCOMPARE(released.count(), 1);
    QCOMPARE(clicked.count(), 1);
}

void tst_WaitingDialog::aMouseHeldBelowIsReleasedThere()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy clicked(desk.first, &K7DropButton::clicked);
    WaitingDialog dialog(desk.panel);
    QTest::mousePress(desk.handle(), Qt::LeftButton, Qt::NoModifier, desk.middleOf(desk.first));
    dialog.showWaitingDialog(aText);
    QVERIFY(desk.first->isDown());
    QTest::mouseRelease(desk.handle(), Qt::LeftButton, Qt::NoModifier, desk.middleOf(desk.first));
    QCOMPARE(clicked.count(), 1);
}

void tst_WaitingDialog::aNewFingerReachesNoKey()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy pressed(desk.second, &K7DropButton::pressed);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    QTest::QTouchEventSequence touch = desk.touch();
    touch.press(0, desk.middleOf(desk.first), desk.handle()).commit();
    touch.stationary(0).press(1, desk.middleOf(desk.second), desk.handle()).commit();
    QCOMPARE(pressed.count(), 0);

    // It stays the dialog's; one that comes down later is the key's.
    dialog.hideWaitingDialog();
    touch.stationary(0).release(1, desk.middleOf(desk.second), desk.handle()).commit();
    QCOMPARE(pressed.count(), 0);
    touch.stationary(0).press(2, desk.middleOf(desk.second), desk.handle()).commit();
    QCOMPARE(pressed.count(), 1);
    touch.release(0, desk.middleOf(desk.first), desk.handle())
        .release(2, desk.middleOf(desk.second), desk.handle())
        .commit();
}

void tst_WaitingDialog::popupsFromBelowClose()
{
    Desk desk;
    QVERIFY(desk.isReady);
    QMenu below(desk.first);
    below.addAction(QStringLiteral("x"));
    below.popup(QPoint(100, 100));
    QVERIFY(below.isVisible());
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    QVERIFY(!below.isVisible());
    dialog.hideWaitingDialog();

    QMenu beside(desk.outside);
    beside.addAction(QStringLiteral("x"));
    beside.popup(QPoint(100, 100));
    dialog.showWaitingDialog(aText);
    QVERIFY(beside.isVisible());
}

void tst_WaitingDialog::theFocusReturns()
{
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    QVERIFY(dialog.hasFocus());
    dialog.showWaitingDialog(aLongText);
    dialog.hideWaitingDialog();
    QVERIFY(desk.field->hasFocus());
    dialog.hideWaitingDialog();
    QVERIFY(desk.field->hasFocus());

    dialog.showWaitingDialog(aText);
    desk.panel->hide();
    QVERIFY(!dialog.hasFocus());
    desk.panel->show();
    QVERIFY(dialog.hasFocus());
    dialog.hideWaitingDialog();
    QVERIFY(desk.field->hasFocus());

    dialog.showWaitingDialog(aText);
    desk.field->hide();
    dialog.hideWaitingDialog();
    QVERIFY(!desk.window.focusWidget());
}

void tst_WaitingDialog::theFocusThatWasNowhereStaysNowhere()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.field->clearFocus();
    QVERIFY(!desk.window.focusWidget());
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    QVERIFY(dialog.hasFocus());
    dialog.hideWaitingDialog();
    QVERIFY(!desk.window.focusWidget());
}

void tst_WaitingDialog::aDeletedWidgetGetsNoFocus()
{
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    delete desk.field;
    dialog.hideWaitingDialog();
    QVERIFY(!desk.window.focusWidget());
}

void tst_WaitingDialog::theFocusCannotBeTakenBelow()
{
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    desk.first->setFocus();
    QVERIFY(dialog.hasFocus());
    desk.outside->setFocus();
    QVERIFY(desk.outside->hasFocus());
    desk.second->setFocus();
    QVERIFY(dialog.hasFocus());
    dialog.hideWaitingDialog();
    QVERIFY(desk.second->hasFocus());
}

void tst_WaitingDialog::escapeLeavesIt_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::newRow("overlay") << true;
    QTest::newRow("window") << false;
}

void tst_WaitingDialog::escapeLeavesIt()
{
    QFETCH(bool, hasParent);
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(hasParent ? desk.panel : nullptr);
    dialog.showWaitingDialog(aText);
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.window()->windowHandle(), Qt::Key_Escape);
    QVERIFY(dialog.isVisible());
}

void tst_WaitingDialog::theSpinnerTurnsWhileItIsSeen_data()
{
    QTest::addColumn<Act>("hide");
    QTest::addColumn<Act>("show");
    QTest::newRow("itself") << Act([](Desk &desk) {
        desk.panel->findChild<WaitingDialog *>()->hideWaitingDialog();
    }) << Act([](Desk &desk) { desk.panel->findChild<WaitingDialog *>()->showWaitingDialog(aText); });
    QTest::newRow("its parent") << Act([](Desk &desk) { desk.panel->hide(); })
                                << Act([](Desk &desk) { desk.panel->show(); });
    QTest::newRow("its window") << Act([](Desk &desk) { desk.window.hide(); })
                                << Act([](Desk &desk) { desk.window.show(); });
    QTest::newRow("minimized") << Act([](Desk &desk) { desk.window.showMinimized(); })
                               << Act([](Desk &desk) { desk.window.showNormal(); });
}

void tst_WaitingDialog::theSpinnerTurnsWhileItIsSeen()
{
    QFETCH(Act, hide);
    QFETCH(Act, show);
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    QTRY_VERIFY(dialog.isSpinning());
    const QImage before = pictureOf(&dialog);
    QTRY_VERIFY(pictureOf(&dialog) != before);

    hide(desk);
    QTRY_VERIFY(!dialog.isSpinning());
    pictureOf(&dialog); // rendered, though not seen
    QVERIFY(!dialog.isSpinning());
    show(desk);
    QTRY_VERIFY(dialog.isSpinning());
}

void tst_WaitingDialog::aTurnPaintsNothingElse()
{
    Desk desk;
    QVERIFY(desk.isReady);
    auto *background = new QWidget(desk.panel);
    background->setGeometry(0, 0, 400, 300);
    background->show();
    WaitingDialog dialog(desk.panel);
    auto *spinner = dialog.findChild<QWidget *>();
    QVERIFY(spinner);
    dialog.showWaitingDialog(aText);
    const InputCounter turns(spinner);
    QTRY_VERIFY(turns.paints > 2);
    const InputCounter below(background);
    const InputCounter around(&dialog);
    const int before = turns.paints;
    QTRY_VERIFY(turns.paints > before + 3);
    QCOMPARE(below.paints, 0);
    QCOMPARE(around.paints, 0);
}

void tst_WaitingDialog::aSecondShowChangesTextAndLevelOnly()
{
    Desk desk;
    QVERIFY(desk.isReady);
    WaitingDialog dialog(desk.panel);
    dialog.showWaitingDialog(aText);
    const QRect geometry = dialog.geometry();
    const QObjectList children = dialog.children();
    dialog.showWaitingDialog(aLongText, WaitingDialog::Error);
    QCOMPARE(dialog.text(), aLongText);
    QCOMPARE(dialog.level(), WaitingDialog::Error);
    QCOMPARE(dialog.geometry(), geometry);
    QCOMPARE(dialog.children(), children);
    dialog.hideWaitingDialog();
    QVERIFY(!dialog.isVisible());
}

void tst_WaitingDialog::picturesDiffer()
{
    QWidget parent;
    parent.resize(400, 300);
    WaitingDialog dialog(&parent);
    QList<QImage> pictures;
    for (const auto level : {WaitingDialog::Normal, WaitingDialog::Warning, WaitingDialog::Error}) {
        dialog.showWaitingDialog(aText, level);
        pictures << pictureOf(&dialog);
    }
    dialog.showWaitingDialog(aLongText);
    pictures << pictureOf(&dialog);
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY(pictures.at(i) != pictures.at(j));
    }
}

void tst_WaitingDialog::longTextsAreNotClipped_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("text");
    const QString word(150, QLatin1Char('w'));
    for (const QSize size : {QSize(950, 1026), QSize(300, 150)}) {
        const QByteArray name = QByteArray::number(size.width());
        QTest::newRow(name + ", short") << size << aText;
        QTest::newRow(name + ", long") << size << aLongText;
        QTest::newRow(name + ", a long word") << size << word;
    }
}

void tst_WaitingDialog::longTextsAreNotClipped()
{
    QFETCH(QSize, size);
    QFETCH(QString, text);
    const Seen seen = seenOf(size, text);
    QVERIFY(QRect(QPoint(), size).adjusted(4, 4, -4, -4).contains(seen.panel));
    QVERIFY(!seen.letters.isEmpty());
    QVERIFY(seen.panel.adjusted(4, 4, -4, -4).contains(seen.letters));
}

void tst_WaitingDialog::thePanelWidensBeforeTheTextShrinks()
{
    const Seen high = seenOf(QSize(950, 600), aLongText);
    const Seen flat = seenOf(QSize(950, 160), aLongText);
    QVERIFY(flat.letters.width() > high.letters.width());
    QVERIFY(flat.letters.width() * flat.letters.height() > high.letters.width() * high.letters.height() / 2);
}

void tst_WaitingDialog::withoutAParentItIsAModalWindow()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy pressed(desk.first, &K7DropButton::pressed);
    WaitingDialog alone;
    WaitingDialog owned(desk.panel, Qt::Dialog);
    for (WaitingDialog *dialog : {&alone, &owned}) {
        QVERIFY(dialog->isWindow());
        QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
        dialog->showWaitingDialog(aText);
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        QCOMPARE(QApplication::activeModalWidget(), dialog);
        QCOMPARE(dialog->size(), dialog->sizeHint());
        QVERIFY((dialog->geometry().center() - desk.window.geometry().center()).manhattanLength() <= 2);
        desk.click(desk.first);
        QCOMPARE(pressed.count(), 0);
        dialog->hideWaitingDialog();
        QVERIFY(!QApplication::activeModalWidget());
    }
}

void tst_WaitingDialog::aStyleSheetSetsColors()
{
    QWidget parent;
    parent.resize(400, 300);
    WaitingDialog dialog(&parent);
    dialog.resize(400, 300);
    const QSignalSpy changed(&dialog, &WaitingDialog::colorsChanged);
    dialog.setStyleSheet(QStringLiteral(
        "Korvo--Widgets--WaitingDialog { color: #ffffff; qproperty-dimColor: #010203;"
        " qproperty-panelColor: #040506; qproperty-borderColor: #070809; qproperty-warningColor: #0a0b0c;"
        " qproperty-errorColor: #0d0e0f; }"));
    dialog.showWaitingDialog(aText, WaitingDialog::Error);
    const QImage image = pictureOf(&dialog);
    QCOMPARE(dialog.dimColor(), QColor(1, 2, 3));
    QCOMPARE(dialog.panelColor(), QColor(4, 5, 6));
    QCOMPARE(dialog.borderColor(), QColor(7, 8, 9));
    QCOMPARE(dialog.warningColor(), QColor(10, 11, 12));
    QCOMPARE(dialog.errorColor(), QColor(13, 14, 15));
    QCOMPARE(changed.count(), 5);
    QCOMPARE(image.pixelColor(2, 2), QColor(1, 2, 3));
}

void tst_WaitingDialog::itCanBeDeletedWhileShown_data()
{
    QTest::addColumn<bool>("isParentDeleted");
    QTest::newRow("itself") << false;
    QTest::newRow("its parent") << true;
}

void tst_WaitingDialog::itCanBeDeletedWhileShown()
{
    QFETCH(bool, isParentDeleted);
    Desk desk;
    QVERIFY(desk.isReady);
    const QPointer<WaitingDialog> dialog(new WaitingDialog(desk.panel));
    dialog->showWaitingDialog(aText);
    if (isParentDeleted) {
        delete desk.panel;
        QVERIFY(!dialog);
        desk.click(desk.outside);
        QVERIFY(desk.outside->hasFocus());
    } else {
        delete dialog;
        QVERIFY(desk.field->hasFocus());
    }
}

QTEST_MAIN(tst_WaitingDialog)

#include "tst_waitingdialog.moc"
