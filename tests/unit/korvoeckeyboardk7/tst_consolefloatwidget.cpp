// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "panelsupport.h"
#include "support.h"

#include <theme.h>

#include <korvo/widgets/slidereditframe.h>
#include <korvo/widgets/waitingdialog.h>
#include <ovo/widgets/iplineedit.h>

#include <QButtonGroup>
#include <QDate>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QToolButton>

using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Widgets::SliderEditFrame;
using Korvo::Widgets::WaitingDialog;

namespace {

QList<QByteArray> addressFields()
{
    return {"lineEdit_IP", "lineEdit_mask", "lineEdit_gateWay"};
}

QList<QLineEdit *> octetsOf(const QWidget *field)
{
    QList<QLineEdit *> octets;
    for (int i = 0; i < field->layout()->count(); ++i) {
        if (auto *octet = qobject_cast<QLineEdit *>(field->layout()->itemAt(i)->widget()))
            octets << octet;
    }
    return octets;
}

} // namespace

/// How the settings panel is made, its scrolling, its address fields under the finger, and its power buttons.
class tst_ConsoleFloatWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theSizeIsFixed();
    void widgetsAreMarked_data();
    void widgetsAreMarked();
    void nothingElseIsMarked();
    void noButtonIsTheDefault();
    void editorsAreSetUp_data();
    void editorsAreSetUp();
    void groupsHaveTheirIds_data();
    void groupsHaveTheirIds();
    void portsNameTheirInterfaces();
    void timersRun();
    void someSettingsAreHidden();
    void textsAreTheConsoles_data();
    void textsAreTheConsoles();
    void sectionsStandInOrder();
    void theDateIsTodays();
    void textsComeBack();
    void constructionWritesNothing();

    void draggingScrollsTheForm_data();
    void draggingScrollsTheForm();
    void draggingStopsAtTheEnds();
    void draggingGoesOnFromWhereItBegan();
    void draggingSideways();
    void touchIsTaken();
    void otherEventsPass();

    void theFirstPressSelectsTheOctet_data();
    void theFirstPressSelectsTheOctet();
    void laterPressesPlaceTheCursor();
    void leavingTheFieldSelectsAgain();
    void aDisabledOctetIsNotSelected();

    void powerIsAskedFor_data();
    void powerIsAskedFor();
    void aRefusalDoesNothing_data();
    void aRefusalDoesNothing();
    void oneIndicatorServesAll();
    void theIndicatorIsShownBeforeTheHostHears();
    void theIndicatorCoversTheGrandparent_data();
    void theIndicatorCoversTheGrandparent();
    void aPanelMayGoWhileItAsks();

private:
    bool show();
    void drag(const QPoint &to, Qt::MouseButton held = Qt::LeftButton) const;
    QScrollArea *area() const { return find<QScrollArea>(m_panel.get(), "scrollArea"); }
    QPushButton *button(const QString &text) const;
    QList<QLineEdit *> octets(const char *field) const { return octetsOf(find(m_panel.get(), field)); }
    static QList<WaitingDialog *> indicators();

    std::unique_ptr<SettingsFolder> m_folder;
    std::unique_ptr<ConsoleFloatWidget> m_panel;
};

void tst_ConsoleFloatWidget::init()
{
    m_folder = std::make_unique<SettingsFolder>();
    m_panel = std::make_unique<ConsoleFloatWidget>();
}

void tst_ConsoleFloatWidget::cleanup()
{
    m_panel.reset();
    m_folder.reset();
    QCOMPARE(indicators().size(), 0);
}

bool tst_ConsoleFloatWidget::show()
{
    m_panel->show();
    m_panel->activateWindow();
    return QTest::qWaitForWindowActive(m_panel.get());
}

/// Moves the pointer over the form while \a held is down.
void tst_ConsoleFloatWidget::drag(const QPoint &to, Qt::MouseButton held) const
{
    QWidget *viewport = area()->viewport();
    QMouseEvent move(QEvent::MouseMove, to, viewport->mapToGlobal(to), Qt::NoButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &move);
}

/// The power button with \a text; they are not shown on this console.
QPushButton *tst_ConsoleFloatWidget::button(const QString &text) const
{
    const QList<QPushButton *> buttons = m_panel->findChildren<QPushButton *>();
    for (QPushButton *one : buttons) {
        if (one->text() == text)
            return one;
    }
    qFatal("there is no button %s", qPrintable(text));
}

QList<WaitingDialog *> tst_ConsoleFloatWidget::indicators()
{
    QList<WaitingDialog *> all;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (auto *indicator = qobject_cast<WaitingDialog *>(widget))
            all << indicator;
    }
    return all;
}

void tst_ConsoleFloatWidget::theSizeIsFixed()
{
    QCOMPARE(m_panel->minimumSize(), QSize(535, 1075));
    QCOMPARE(m_panel->maximumSize(), QSize(535, 1075));
    QCOMPARE(m_panel->size(), QSize(535, 1075));
    QCOMPARE(m_panel->windowTitle(), QStringLiteral("Form"));
}

void tst_ConsoleFloatWidget::widgetsAreMarked_data()
{
    QTest::addColumn<QByteArray>("marker");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QList<QByteArray>>("names");
    const auto row = [](const char *marker, const QVariant &value, const QList<QByteArray> &names) {
        QTest::newRow(QByteArray(marker) + ' ' + value.toByteArray()) << QByteArray(marker) << value << names;
    };
    row("isDateButton", true, {"toolButton"});
    row("background", true, {"scrollAreaWidgetContents"});
    row("contentFrame", true, {"frame_2", "frame_3", "screenButtonFrame"});
    row("isScreenFrameSpinbox", true, {"spinBox_height", "spinBox_width"});
    row("apply", true, {"pushButton_apply", "pushButton_restart", "pushButton_time", "ShutDown"});
    row("floatButton", true,
        {"pushButton_12", "pushButton_24", "pushButton_DHCP", "pushButton_Manual", "pushButton_gigabit",
         "pushButton_hundred"});
    row("Brisa_VK", QStringLiteral("Vk_Number"), addressFields());
    row("Brisa_VK", QStringLiteral("Vk_NumberFloat"), {"spinBox_height", "spinBox_width"});
    row("WanType", QStringLiteral("eth2"), {"pushButton_hundred"});
    row("WanType", QStringLiteral("eth0"), {"pushButton_gigabit"});
}

void tst_ConsoleFloatWidget::widgetsAreMarked()
{
    QFETCH(QByteArray, marker);
    QFETCH(QVariant, value);
    QFETCH(QList<QByteArray>, names);
    QSet<QByteArray> marked;
    const QList<QWidget *> widgets = m_panel->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->property(marker.constData()) != value)
            continue;
        QCOMPARE(widget->property(marker.constData()).type(), value.type());
        const auto *unnamed = qobject_cast<const QPushButton *>(widget);
        marked << (widget->objectName().isEmpty() && unnamed ? unnamed->text() : widget->objectName())
                      .toLatin1();
    }
    QCOMPARE(marked, QSet<QByteArray>(names.cbegin(), names.cend()));
}

void tst_ConsoleFloatWidget::nothingElseIsMarked()
{
    int titles = 0;
    int octets = 0;
    const QList<QWidget *> widgets = m_panel->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->property("isTitleBar").toBool()) {
            QVERIFY(qobject_cast<const QLabel *>(widget));
            ++titles;
        }
        if (widget->property("iplineedit").isValid()) {
            QCOMPARE(widget->property("iplineedit"), QVariant(true));
            QVERIFY(addressFields().contains(widget->parentWidget()->objectName().toLatin1()));
            ++octets;
        }
        for (const char *marker :
             {"isDateButton", "background", "contentFrame", "isScreenFrameSpinbox", "apply", "floatButton"}) {
            const QVariant value = widget->property(marker);
            QVERIFY2(!value.isValid() || value == QVariant(true), qPrintable(widget->objectName()));
        }
    }
    QCOMPARE(titles, 8);
    QCOMPARE(octets, 3 * 4);
}

void tst_ConsoleFloatWidget::noButtonIsTheDefault()
{
    m_panel->initParm();
    const QList<QPushButton *> buttons = m_panel->findChildren<QPushButton *>();
    QVERIFY(buttons.size() >= 11);
    for (const QPushButton *one : buttons) {
        QVERIFY2(!one->autoDefault(), qPrintable(one->objectName()));
        QVERIFY2(!one->isDefault(), qPrintable(one->objectName()));
    }
}

void tst_ConsoleFloatWidget::editorsAreSetUp_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("hasSlider");
    QTest::addColumn<int>("gap"); // from the slider to the field
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::newRow("gooseneck") << QByteArray("widget_groosen") << true << 8 << 1 << 15;
    QTest::newRow("front") << QByteArray("widget_front") << true << 8 << 1 << 15;
    QTest::newRow("LCD") << QByteArray("widget_lcd") << true << 8 << 1 << 15;
    QTest::newRow("width") << QByteArray("spinBox_width") << false << 0 << 800 << 8192;
    QTest::newRow("height") << QByteArray("spinBox_height") << false << 0 << 600 << 8192;
}

void tst_ConsoleFloatWidget::editorsAreSetUp()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, hasSlider);
    QFETCH(int, gap);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    const auto *editor = find<SliderEditFrame>(m_panel.get(), name.constData());
    QVERIFY(show());
    QCOMPARE(editor->labelText(), QString());
    QCOMPARE(editor->minimum(), minimum);
    QCOMPARE(editor->maximum(), maximum);
    QCOMPARE(editor->singleStep(), 1);
    if (hasSlider)
        QCOMPARE(editor->pageStep(), 1);
    const QList<QToolButton *> steps = editor->findChildren<QToolButton *>();
    QCOMPARE(steps.size(), 2);
    for (const QToolButton *step : steps)
        QVERIFY(!step->isVisible());

    const auto *slider = editor->findChild<QSlider *>();
    const auto *field = find(editor, "editor");
    QCOMPARE(slider->isVisible(), hasSlider);
    QVERIFY(field->isVisible());
    if (hasSlider) {
        QCOMPARE(slider->x(), 0);
        QCOMPARE(field->x() - (slider->x() + slider->width()), gap);
    } else {
        QCOMPARE(field->x(), 0);
    }
}

void tst_ConsoleFloatWidget::groupsHaveTheirIds_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::newRow("ports") << QByteArray("pushButton_hundred") << QByteArray("pushButton_gigabit");
    QTest::newRow("mode") << QByteArray("pushButton_Manual") << QByteArray("pushButton_DHCP");
    QTest::newRow("time") << QByteArray("pushButton_24") << QByteArray("pushButton_12");
}

void tst_ConsoleFloatWidget::groupsHaveTheirIds()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    auto *zero = find<QPushButton>(m_panel.get(), first.constData());
    auto *one = find<QPushButton>(m_panel.get(), second.constData());
    QVERIFY(zero->isCheckable());
    QVERIFY(one->isCheckable());
    const QButtonGroup *group = zero->group();
    QVERIFY(group);
    QCOMPARE(one->group(), group);
    QCOMPARE(group->buttons().size(), 2);
    QCOMPARE(group->id(zero), 0);
    QCOMPARE(group->id(one), 1);
    QVERIFY(group->exclusive());
    QCOMPARE(int(ConsoleFloatWidget::Manual), 0);
    QCOMPARE(int(ConsoleFloatWidget::DHCP), 1);
}

void tst_ConsoleFloatWidget::portsNameTheirInterfaces()
{
    QCOMPARE(find<QPushButton>(m_panel.get(), "pushButton_hundred")->text(), QStringLiteral("ETH2"));
    QCOMPARE(find<QPushButton>(m_panel.get(), "pushButton_gigabit")->text(), QStringLiteral("ETH1"));
}

void tst_ConsoleFloatWidget::timersRun()
{
    QList<int> intervals;
    const QList<QTimer *> timers = m_panel->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QTimer *timer : timers) {
        QVERIFY(timer->isActive());
        QVERIFY(!timer->isSingleShot());
        intervals << timer->interval();
    }
    QCOMPARE(intervals, (QList<int>{1000, 10000}));

    // Each calls for what it is there for.
    const SignalNotes told(m_panel.get());
    QVERIFY(QMetaObject::invokeMethod(timers.at(0), "timeout", Qt::DirectConnection));
    QCOMPARE(told.lines.size(), 1);
    QVERIFY(told.lines.constFirst().startsWith(QLatin1String("signalTimeChanged(")));
    QVERIFY(QMetaObject::invokeMethod(timers.at(1), "timeout", Qt::DirectConnection));
    QCOMPARE(told.lines.mid(1), (QStringList{QStringLiteral("signalReqECDeviceIP(0)"),
                                             QStringLiteral("signalReqECDeviceIP(1)")}));
}

void tst_ConsoleFloatWidget::someSettingsAreHidden()
{
    QVERIFY(show());
    m_panel->initParm();
    m_panel->initPeripheralModule(true);
    for (const char *name :
         {"label_13", "pushButton_DHCP", "pushButton_Manual", "pushButton_restart", "label_restart"})
        QVERIFY2(!find(m_panel.get(), name)->isVisible(), name);
    QVERIFY(!button(QStringLiteral("ShutDown"))->isVisible());

    // The row of the power buttons.
    const auto *row = m_panel->findChild<QLayout *>(QStringLiteral("restartLayout"));
    QVERIFY(row);
    QCOMPARE(row->count(), 3);
    QCOMPARE(row->itemAt(0)->widget(), find(m_panel.get(), "pushButton_restart"));
    QCOMPARE(row->itemAt(1)->widget(), button(QStringLiteral("ShutDown")));
    QVERIFY(row->itemAt(2)->spacerItem());
    QVERIFY(row->itemAt(2)->expandingDirections() & Qt::Horizontal);

    // All else can be seen.
    for (const char *name :
         {"switch_groosen", "widget_groosen", "switch_front", "widget_front", "switch_logo", "widget_lcd",
          "screenNumberCombox", "pushButton_hundred", "pushButton_gigabit", "lineEdit_IP", "lineEdit_mask",
          "lineEdit_gateWay", "pushButton_apply", "pushButton_24", "pushButton_12", "toolButton",
          "timeWidget", "pushButton_time"})
        QVERIFY2(find(m_panel.get(), name)->isVisible(), name);
}

void tst_ConsoleFloatWidget::textsAreTheConsoles_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expectedCount"); // of labels and buttons
    QTest::addColumn<bool>("isTitle");
    const auto row = [](const char *text, int count, bool isTitle) {
        QTest::newRow(text) << QString::fromLatin1(text) << count << isTitle;
    };
    for (const char *title : {"Gooseneck lamp", "Front panel lamp", "LOGO lamp", "LCD brightness",
                              "Peripheral screen parameter setting", "Dual network settings", "Time setting"})
        row(title, 1, true);
    row("Restart", 2, true); // and the button
    row("Brightness", 2, false);
    for (const char *word : {"Number of screens", "Screen resolution", "Set as K7 Operation Screen", "width",
                             "height", "ETH2", "ETH1", "Setup mode", "DHCP", "Manual", "IP", "Subnet mask",
                             "GateWay", "24Hours", "12Hours", "Date", "Time", "ShutDown"})
        row(word, 1, false);
}

void tst_ConsoleFloatWidget::textsAreTheConsoles()
{
    QFETCH(QString, text);
    QFETCH(int, expectedCount);
    QFETCH(bool, isTitle);
    int count = 0;
    bool hasTitle = false;
    const QList<QLabel *> labels = m_panel->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->text() != text)
            continue;
        ++count;
        hasTitle = hasTitle || label->property("isTitleBar").toBool();
    }
    const QList<QAbstractButton *> buttons = m_panel->findChildren<QAbstractButton *>();
    for (const QAbstractButton *one : buttons)
        count += one->text() == text ? 1 : 0;
    QCOMPARE(count, expectedCount);
    QCOMPARE(hasTitle, isTitle);
    QCOMPARE(find<QPushButton>(m_panel.get(), "pushButton_apply")->text(), QStringLiteral("Apply"));
    QCOMPARE(find<QPushButton>(m_panel.get(), "peripheralApply")->text(), QStringLiteral("Apply"));
}

void tst_ConsoleFloatWidget::sectionsStandInOrder()
{
    QVERIFY(show());
    const QList<QByteArray> names{
        "switch_groosen", "widget_groosen",     "switch_front",     "widget_front",     "switch_logo",
        "widget_lcd",     "screenNumberCombox", "screenScrollArea", "peripheralApply",  "pushButton_hundred",
        "lineEdit_IP",    "lineEdit_mask",      "lineEdit_gateWay", "pushButton_apply", "pushButton_24",
        "toolButton",     "timeWidget",         "pushButton_time"};
    const QWidget *content = find(m_panel.get(), "scrollAreaWidgetContents");
    int above = -1;
    for (const QByteArray &name : names) {
        const QWidget *widget = find(m_panel.get(), name.constData());
        const QRect place(widget->mapTo(content, QPoint()), widget->size());
        QVERIFY2(place.center().y() > above, name.constData());
        QVERIFY2(content->rect().contains(place), name.constData());
        above = place.center().y();
    }
    // In the console's own look nothing is out of sight to the side.
    K7Host::Theme theme;
    QVERIFY(!K7Host::readTheme(QStringLiteral(K7_THEME), &theme));
    m_panel->setStyleSheet(theme.styleSheet);
    QTRY_COMPARE(area()->horizontalScrollBar()->maximum(), 0);
    QVERIFY(content->width() <= area()->viewport()->width());
}

void tst_ConsoleFloatWidget::theDateIsTodays()
{
    const QDate before = QDate::currentDate();
    ConsoleFloatWidget panel;
    const QString text = find<QToolButton>(&panel, "toolButton")->text();
    const QString format = QStringLiteral("dd/MM/yyyy");
    QVERIFY(text == before.toString(format) || text == QDate::currentDate().toString(format));
}

void tst_ConsoleFloatWidget::textsComeBack()
{
    const auto textsOf = [this] {
        QStringList texts;
        const QList<QLabel *> labels = m_panel->findChildren<QLabel *>();
        for (const QLabel *label : labels)
            texts << label->text();
        const QList<QPushButton *> buttons = m_panel->findChildren<QPushButton *>();
        for (const QPushButton *one : buttons)
            texts << one->text();
        return texts;
    };
    const QStringList before = textsOf();
    for (const char *name : {"label_13", "label_mask"})
        find<QLabel>(m_panel.get(), name)->setText(QStringLiteral("?"));
    for (const QString &name :
         {QStringLiteral("Restart"), QStringLiteral("ShutDown"), QStringLiteral("ETH1")})
        button(name)->setText(QStringLiteral("?"));
    QVERIFY(textsOf() != before);
    m_panel->retranslateUi();
    QCOMPARE(textsOf(), before);
}

void tst_ConsoleFloatWidget::constructionWritesNothing()
{
    QCoreApplication::processEvents();
    QVERIFY(!QFileInfo::exists(m_folder->file()));
    m_panel.reset();
    QVERIFY(!QFileInfo::exists(m_folder->file()));
}

void tst_ConsoleFloatWidget::draggingScrollsTheForm_data()
{
    QTest::addColumn<int>("mouseButton");
    QTest::addColumn<int>("from"); // what the scroll bar shows
    QTest::addColumn<int>("way");  // of the pointer, down
    QTest::addColumn<int>("expected");
    QTest::newRow("up") << int(Qt::LeftButton) << 0 << -40 << 40;
    QTest::newRow("down") << int(Qt::LeftButton) << 60 << 40 << 20;
    QTest::newRow("one pixel") << int(Qt::LeftButton) << 10 << -1 << 11;
    QTest::newRow("back to the start") << int(Qt::LeftButton) << 10 << 0 << 10;
    QTest::newRow("with another button") << int(Qt::RightButton) << 0 << -40 << 40;
}

void tst_ConsoleFloatWidget::draggingScrollsTheForm()
{
    QFETCH(int, mouseButton);

    QFETCH(int, from);
    QFETCH(int, way);
    QFETCH(int, expected);
    QVERIFY(show());
    QScrollBar *bar = area()->verticalScrollBar();
    if (bar->maximum() < 100)
        find(m_panel.get(), "scrollAreaWidgetContents")->setMinimumHeight(2000);
    QTRY_VERIFY(bar->maximum() >= 100);
    bar->setValue(from);

    QWidget *viewport = area()->viewport();
    const QPoint start(250, 500);
    const auto held = static_cast<Qt::MouseButton>(mouseButton);
    QTest::mousePress(viewport, held, Qt::NoModifier, start);
    QCOMPARE(bar->value(), from);
    drag(start + QPoint(0, way), held);
    QCOMPARE(bar->value(), expected);
    QTest::mouseRelease(viewport, held, Qt::NoModifier, start + QPoint(0, way));
    QCOMPARE(bar->value(), expected);
}

void tst_ConsoleFloatWidget::draggingStopsAtTheEnds()
{
    QVERIFY(show());
    find(m_panel.get(), "scrollAreaWidgetContents")->setMinimumHeight(1500);
    QScrollBar *bar = area()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 100);
    QWidget *viewport = area()->viewport();
    bar->setValue(50);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(250, 500));
    drag(QPoint(250, 800));
    QCOMPARE(bar->value(), 0);
    drag(QPoint(250, 490)); // from where it began, not from the end
    QCOMPARE(bar->value(), 60);
    drag(QPoint(250, -2000));
    QCOMPARE(bar->value(), bar->maximum());
    drag(QPoint(250, 500));
    QCOMPARE(bar->value(), 50);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(250, 500));
}

void tst_ConsoleFloatWidget::draggingGoesOnFromWhereItBegan()
{
    QVERIFY(show());
    find(m_panel.get(), "scrollAreaWidgetContents")->setMinimumHeight(2000);
    QScrollBar *bar = area()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 300);
    QWidget *viewport = area()->viewport();
    for (int round = 1; round <= 2; ++round) {
        QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(250, 500));
        drag(QPoint(250, 450));
        drag(QPoint(250, 400));
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(250, 400));
        QCOMPARE(bar->value(), round * 100);
    }
}

void tst_ConsoleFloatWidget::draggingSideways()
{
    QVERIFY(show());
    find(m_panel.get(), "scrollAreaWidgetContents")->setMinimumSize(1500, 2000);
    area()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QTRY_VERIFY(area()->horizontalScrollBar()->maximum() > 300);
    QWidget *viewport = area()->viewport();
    area()->horizontalScrollBar()->setValue(100);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(250, 500));
    drag(QPoint(230, 470));
    QCOMPARE(area()->horizontalScrollBar()->value(), 120);
    QCOMPARE(area()->verticalScrollBar()->value(), 30);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(230, 470));
}

void tst_ConsoleFloatWidget::touchIsTaken()
{
    QVERIFY(area()->testAttribute(Qt::WA_AcceptTouchEvents));
}

void tst_ConsoleFloatWidget::otherEventsPass()
{
    QVERIFY(show());
    QWidget *viewport = area()->viewport();
    const auto isConsumed = [this](QObject *watched, QEvent::Type type) {
        const QPoint pos(5, 5);
        QMouseEvent event(type, pos, pos, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        return m_panel->eventFilter(watched, &event);
    };
    QVERIFY(isConsumed(viewport, QEvent::MouseButtonPress));
    QVERIFY(isConsumed(viewport, QEvent::MouseMove));
    QVERIFY(isConsumed(viewport, QEvent::MouseButtonRelease));
    QVERIFY(!isConsumed(viewport, QEvent::MouseButtonDblClick));
    QLineEdit *octet = octets("lineEdit_IP").constFirst();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease,
                                    QEvent::MouseButtonDblClick}) {
        QVERIFY(!isConsumed(octet, type));
        QVERIFY(!isConsumed(m_panel.get(), type));
    }
    QFocusEvent out(QEvent::FocusOut, Qt::OtherFocusReason);
    QVERIFY(!m_panel->eventFilter(octet, &out));
    QEvent leave(QEvent::Leave);
    QVERIFY(!m_panel->eventFilter(viewport, &leave));
}

void tst_ConsoleFloatWidget::theFirstPressSelectsTheOctet_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("index");
    const QList<QByteArray> fields = addressFields();
    for (const QByteArray &field : fields) {
        for (int index = 0; index < 4; ++index)
            QTest::newRow(field + ' ' + QByteArray::number(index)) << field << index;
    }
}

void tst_ConsoleFloatWidget::theFirstPressSelectsTheOctet()
{
    QFETCH(QByteArray, field);
    QFETCH(int, index);
    QVERIFY(show());
    find<Ovo::Widgets::IPLineEdit>(m_panel.get(), field.constData())
        ->setText(QStringLiteral("192.168.101.254"));
    QLineEdit *octet = octets(field.constData()).at(index);
    QTest::mouseClick(octet, Qt::LeftButton, Qt::NoModifier, QPoint(3, octet->height() / 2));
    QTRY_COMPARE(octet->selectedText(), octet->text());
    QVERIFY(octet->hasFocus());
}

void tst_ConsoleFloatWidget::laterPressesPlaceTheCursor()
{
    QVERIFY(show());
    find<Ovo::Widgets::IPLineEdit>(m_panel.get(), "lineEdit_IP")->setText(QStringLiteral("192.168.101.254"));
    QLineEdit *octet = octets("lineEdit_IP").constFirst();
    QTest::mouseClick(octet, Qt::LeftButton);
    QTRY_COMPARE(octet->selectedText(), QStringLiteral("192"));
    for (int press = 0; press < 2; ++press) {
        // Apart from the press before, which it would make a double click with.
        QTest::mouseClick(octet, Qt::LeftButton, Qt::NoModifier, QPoint(1, octet->height() / 2),
                          QApplication::doubleClickInterval() + 1);
        QCoreApplication::processEvents();
        QCOMPARE(octet->selectedText(), QString());
        QCOMPARE(octet->cursorPosition(), octet->cursorPositionAt(QPoint(1, octet->height() / 2)));
    }
}

void tst_ConsoleFloatWidget::leavingTheFieldSelectsAgain()
{
    QVERIFY(show());
    find<Ovo::Widgets::IPLineEdit>(m_panel.get(), "lineEdit_IP")->setText(QStringLiteral("192.168.101.254"));
    const QList<QLineEdit *> fields = octets("lineEdit_IP");
    for (const int index : {0, 1, 0, 3}) {
        QTest::mouseClick(fields.at(index), Qt::LeftButton);
        QTRY_COMPARE(fields.at(index)->selectedText(), fields.at(index)->text());
    }
    // Also when the focus went to something that is no octet.
    fields.at(3)->deselect();
    find(m_panel.get(), "pushButton_apply")->setFocus();
    QTest::mouseClick(fields.at(3), Qt::LeftButton, Qt::NoModifier, QPoint(),
                      QApplication::doubleClickInterval() + 1);
    QTRY_COMPARE(fields.at(3)->selectedText(), QStringLiteral("254"));
}

void tst_ConsoleFloatWidget::aDisabledOctetIsNotSelected()
{
    QVERIFY(show());
    auto *field = find<Ovo::Widgets::IPLineEdit>(m_panel.get(), "lineEdit_mask");
    field->setText(QStringLiteral("255.255.255.0"));
    QLineEdit *octet = octets("lineEdit_mask").constFirst();
    field->setEnabled(false);
    QMouseEvent press(QEvent::MouseButtonPress, QPoint(3, 3), octet->mapToGlobal(QPoint(3, 3)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(!m_panel->eventFilter(octet, &press));
    QCoreApplication::processEvents();
    QCOMPARE(octet->selectedText(), QString());

    // That press counted for nothing: the next one is the first.
    field->setEnabled(true);
    QTest::mouseClick(octet, Qt::LeftButton);
    QTRY_COMPARE(octet->selectedText(), QStringLiteral("255"));
}

void tst_ConsoleFloatWidget::powerIsAskedFor_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("expectedQuestion");
    QTest::addColumn<QString>("expectedWaiting");
    QTest::addColumn<QString>("expectedSignal");
    QTest::newRow("restart") << "Restart"
                             << "Are you sure to restart console?"
                             << "restarting , please wait."
                             << "signalRestartControlEvent(0)";
    QTest::newRow("shutdown") << "ShutDown"
                              << "Are you sure to shutdown console?"
                              << "shutting down , please wait."
                              << "signalRestartControlEvent(1)";
}

void tst_ConsoleFloatWidget::powerIsAskedFor()
{
    QFETCH(QString, button);
    QFETCH(QString, expectedQuestion);
    QFETCH(QString, expectedWaiting);
    QFETCH(QString, expectedSignal);
    QVERIFY(show());
    const SignalNotes told(m_panel.get());
    const BoxAnswers answers(QMessageBox::Yes);
    this->button(button)->click(); // which this console hides
    QCOMPARE(answers.boxes.size(), 1);
    const ShownBox &box = answers.boxes.constFirst();
    QCOMPARE(box.title, QStringLiteral("Remind"));
    QCOMPARE(box.text, expectedQuestion);
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.parent, m_panel.get());
    QCOMPARE(told.only({QStringLiteral("signalRestartControlEvent")}), QStringList{expectedSignal});

    QCOMPARE(indicators().size(), 1);
    const WaitingDialog *indicator = indicators().constFirst();
    QVERIFY(indicator->isVisible());
    QCOMPARE(indicator->text(), expectedWaiting);
    QCOMPARE(int(indicator->level()), 0);
}

void tst_ConsoleFloatWidget::aRefusalDoesNothing_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("answer");
    QTest::newRow("restart, no") << "Restart" << int(QMessageBox::No);
    QTest::newRow("restart, Escape") << "Restart" << int(QMessageBox::NoButton);
    QTest::newRow("shutdown, no") << "ShutDown" << int(QMessageBox::No);
    QTest::newRow("shutdown, Escape") << "ShutDown" << int(QMessageBox::NoButton);
}

void tst_ConsoleFloatWidget::aRefusalDoesNothing()
{
    QFETCH(QString, button);
    QFETCH(int, answer);
    QVERIFY(show());
    const SignalNotes told(m_panel.get());
    const BoxAnswers answers(static_cast<QMessageBox::StandardButton>(answer));
    this->button(button)->click();
    QCOMPARE(answers.boxes.size(), 1);
    QCOMPARE(told.only({QStringLiteral("signalRestartControlEvent")}), QStringList());
    QCOMPARE(indicators().size(), 0);
}

void tst_ConsoleFloatWidget::oneIndicatorServesAll()
{
    QVERIFY(show());
    const SignalNotes told(m_panel.get());
    const BoxAnswers answers(QMessageBox::Yes);
    button(QStringLiteral("Restart"))->click();
    QCOMPARE(indicators().size(), 1);
    WaitingDialog *const first = indicators().constFirst();
    button(QStringLiteral("ShutDown"))->click();
    button(QStringLiteral("Restart"))->click();
    QCOMPARE(answers.boxes.size(), 3);
    QCOMPARE(indicators(), QList<WaitingDialog *>{first});
    QCOMPARE(first->text(), QStringLiteral("restarting , please wait."));
    QCOMPARE(told.only({QStringLiteral("signalRestartControlEvent")}),
             (QStringList{QStringLiteral("signalRestartControlEvent(0)"),
                          QStringLiteral("signalRestartControlEvent(1)"),
                          QStringLiteral("signalRestartControlEvent(0)")}));
}

void tst_ConsoleFloatWidget::theIndicatorIsShownBeforeTheHostHears()
{
    QVERIFY(show());
    bool wasShown = false;
    connect(m_panel.get(), &ConsoleFloatWidget::signalRestartControlEvent, this, [shown = &wasShown] {
        *shown = !indicators().isEmpty() && indicators().constFirst()->isVisible();
    });
    const BoxAnswers answers(QMessageBox::Yes);
    button(QStringLiteral("Restart"))->click();
    QVERIFY(wasShown);
    // Nothing but the console's end hides it.
    m_panel->initParm();
    QCoreApplication::processEvents();
    QVERIFY(indicators().constFirst()->isVisible());
}

void tst_ConsoleFloatWidget::theIndicatorCoversTheGrandparent_data()
{
    QTest::addColumn<int>("ancestors");
    QTest::addColumn<int>("expected"); // which of them; 0 is none, 1 is the panel's own parent
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("a parent") << 1 << 1;
    QTest::newRow("two") << 2 << 0;
    QTest::newRow("three") << 3 << 3;
    QTest::newRow("four") << 4 << 3;
    QTest::newRow("five") << 5 << 3;
}

void tst_ConsoleFloatWidget::theIndicatorCoversTheGrandparent()
{
    QFETCH(int, ancestors);
    QFETCH(int, expected);
    QVector<QWidget *> chain; // from the panel's parent up
    for (int i = 0; i < ancestors; ++i) {
        auto *outer = new QWidget;
        if (!chain.isEmpty())
            chain.constLast()->setParent(outer);
        chain << outer;
    }
    const std::unique_ptr<QWidget> top(chain.isEmpty() ? nullptr : chain.constLast());
    if (!chain.isEmpty())
        m_panel->setParent(chain.constFirst());
    QWidget *const window = top ? top.get() : m_panel.get();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));

    const BoxAnswers answers(QMessageBox::Yes);
    button(QStringLiteral("Restart"))->click();
    QCOMPARE(indicators().size(), 1);
    const WaitingDialog *indicator = indicators().constFirst();
    const QWidget *expectedParent = expected == 0 ? nullptr : chain.at(expected - 1);
    QCOMPARE(indicator->parentWidget(), expectedParent);
    QCOMPARE(indicator->isWindow(), expectedParent == nullptr);
    m_panel.reset();
}

void tst_ConsoleFloatWidget::aPanelMayGoWhileItAsks()
{
    QVERIFY(show());
    int told = 0;
    connect(m_panel.get(), &ConsoleFloatWidget::signalRestartControlEvent, this, [told = &told] { ++*told; });
    QTimer::singleShot(0, this, [this] {
        QVERIFY(QApplication::activeModalWidget());
        m_panel.reset();
    });
    button(QStringLiteral("Restart"))->click();
    QVERIFY(!m_panel);
    QCOMPARE(told, 0);
    QCOMPARE(indicators().size(), 0);
}

QTEST_MAIN(tst_ConsoleFloatWidget)

#include "tst_consolefloatwidget.moc"
