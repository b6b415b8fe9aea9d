// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "consoledesk.h"

#include <hand.h>

#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/slidereditframe.h>
#include <korvo/widgets/switchcontrol.h>
#include <korvo/widgets/tumblertime.h>
#include <ovo/widgets/framelessmessagebox.h>
#include <ovo/widgets/iplineedit.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

using namespace K7Host;
using Korvo::Widgets::DateWidget;
using Korvo::Widgets::SliderEditFrame;
using Korvo::Widgets::SwitchControl;
using Korvo::Widgets::tbar;
using Korvo::Widgets::TumblerTime;
using Ovo::Widgets::IPLineEdit;

class tst_Hand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aKeyGoesDownAndUp_data();
    void aKeyGoesDownAndUp();
    void aKeyThatIsSlidOffComesUp_data();
    void aKeyThatIsSlidOffComesUp();
    void fingersHoldSeveralKeys_data();
    void fingersHoldSeveralKeys();
    void twoClicksAreNoDoubleClick();
    void aFingerDragsTheLever_data();
    void aFingerDragsTheLever();
    void theWheelTurnsTheLever();
    void textIsTypedIntoAField_data();
    void textIsTypedIntoAField();
    void textWithoutAFieldGoesWhereTheFocusIs();
    void spacePressesAKey();

    void whatCannotBeDoneIsTold_data();
    void whatCannotBeDoneIsTold();
    void aDisabledKeyDoesNothing();
    void whatIsScrolledAwayIsBroughtIntoView();
    void aWindowOfTheHostOverAKeyDoesNotMatter();
    void aPressBesideAPopupClosesIt();

    void everyKindIsSetAsByHand_data();
    void everyKindIsSetAsByHand();
    void whatAWidgetDoesNotTakeIsTold_data();
    void whatAWidgetDoesNotTakeIsTold();
    void settingWhatIsSetDoesNothing();

    void aClickWaitsForItsMessageBox();
    void aWidgetMayGoWithItsClick();
    void nothingIsPrinted();

private:
    QString act(const char *json) { return m_hand->act(inputLine(json)).value_or(QString()); }
    void addKinds();
    QString valueOf(const QString &name) const;
    void makeDesk(qreal factor);

    QScopedPointer<ConsoleDesk> m_desk;
    QScopedPointer<Hand> m_hand;
    QScopedPointer<QFrame> m_lid;
};

namespace {

void addFactors()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("window") << 1.0;
    QTest::newRow("reduced") << 0.45;
}

} // namespace

void tst_Hand::init()
{
    makeDesk(1);
}

void tst_Hand::cleanup()
{
    m_hand.reset();
    m_lid.reset();
    m_desk.reset();
}

void tst_Hand::makeDesk(qreal factor)
{
    cleanup();
    m_desk.reset(new ConsoleDesk(factor));
    m_hand.reset(new Hand(m_desk->halves()));
    QVERIFY(m_desk->show());
}

void tst_Hand::aKeyGoesDownAndUp_data()
{
    addFactors();
}

void tst_Hand::aKeyGoesDownAndUp()
{
    QFETCH(qreal, factor);
    makeDesk(factor);
    const QSignalSpy pressed(m_desk->key, &QAbstractButton::pressed);
    const QSignalSpy released(m_desk->key, &QAbstractButton::released);
    const QSignalSpy clicked(m_desk->key, &QAbstractButton::clicked);
    QCOMPARE(act(R"({"op":"press","key":58})"), QString());
    QCOMPARE(pressed.count(), 1);
    QVERIFY(m_desk->key->isDown());
    QCOMPARE(released.count(), 0);
    QCOMPARE(act(R"({"op":"release","key":58})"), QString());
    QCOMPARE(released.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(act(R"({"op":"click","key":"PRESET_05"})"), QString());
    QCOMPARE(clicked.count(), 2);
}

void tst_Hand::aKeyThatIsSlidOffComesUp_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::addColumn<QByteArray>("finger");
    QTest::newRow("mouse") << 1.0 << QByteArray();
    QTest::newRow("finger") << 1.0 << QByteArray(R"(,"finger":2)");
    QTest::newRow("mouse, reduced") << 0.45 << QByteArray();
    QTest::newRow("finger, reduced") << 0.45 << QByteArray(R"(,"finger":2)");
}

void tst_Hand::aKeyThatIsSlidOffComesUp()
{
    QFETCH(qreal, factor);
    QFETCH(QByteArray, finger);
    makeDesk(factor);
    const QSignalSpy released(m_desk->key, &QAbstractButton::released);
    const QSignalSpy clicked(m_desk->key, &QAbstractButton::clicked);
    const QByteArray rest = finger + '}';
    QCOMPARE(act(R"({"op":"press","key":58)" + rest), QString());
    QCOMPARE(act(R"({"op":"move","key":58,"at":[70,70])" + rest), QString());
    QCOMPARE(released.count(), 0);
    QVERIFY(m_desk->key->isDown());
    QCOMPARE(act(R"({"op":"move","key":58,"at":[40,95])" + rest), QString());
    QCOMPARE(released.count(), 1);
    QCOMPARE(act(R"({"op":"release","key":58,"at":[40,95])" + rest), QString());
    QCOMPARE(released.count(), 1);
    QCOMPARE(clicked.count(), 0);
}

void tst_Hand::fingersHoldSeveralKeys_data()
{
    addFactors();
}

void tst_Hand::fingersHoldSeveralKeys()
{
    QFETCH(qreal, factor);
    makeDesk(factor);
    const QSignalSpy clicked(m_desk->key, &QAbstractButton::clicked);
    QCOMPARE(act(R"({"op":"press","key":58,"finger":0})"), QString());
    QCOMPARE(act(R"({"op":"press","key":59,"finger":7})"), QString());
    QVERIFY(m_desk->key->isDown() && m_desk->other->isDown());
    QCOMPARE(act(R"({"op":"release","key":58,"finger":0})"), QString());
    QCOMPARE(clicked.count(), 1);
    QVERIFY(!m_desk->key->isDown() && m_desk->other->isDown());
    QCOMPARE(act(R"({"op":"click","key":58,"finger":1})"), QString());
    QCOMPARE(clicked.count(), 2);
    QVERIFY(m_desk->other->isDown());
    QCOMPARE(act(R"({"op":"release","key":59,"finger":7})"), QString());
    QVERIFY(!m_desk->other->isDown());
    QCOMPARE(act(R"({"op":"release","key":59,"finger":7})"), QStringLiteral("finger 7 is not down"));
}

void tst_Hand::twoClicksAreNoDoubleClick()
{
    m_desk->field->setText(QStringLiteral("one word"));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(act(R"({"op":"click","widget":"field","at":[10,15]})"), QString());
    QVERIFY(m_desk->field->hasFocus());
    QVERIFY(!m_desk->field->hasSelectedText());
    QCOMPARE(act(R"({"op":"press","widget":"field","at":[10,15],"double":true})"), QString());
    QCOMPARE(m_desk->field->selectedText().trimmed(), QStringLiteral("one"));
    QCOMPARE(act(R"({"op":"release","widget":"field","at":[10,15]})"), QString());
}

void tst_Hand::aFingerDragsTheLever_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::addColumn<QByteArray>("finger");
    QTest::newRow("mouse") << 1.0 << QByteArray();
    QTest::newRow("finger") << 1.0 << QByteArray(R"(,"finger":0)");
    QTest::newRow("mouse, reduced") << 0.45 << QByteArray();
    QTest::newRow("finger, reduced") << 0.45 << QByteArray(R"(,"finger":0)");
}

void tst_Hand::aFingerDragsTheLever()
{
    QFETCH(qreal, factor);
    QFETCH(QByteArray, finger);
    makeDesk(factor);
    auto *lever = m_desk->add<tbar>("lever", {300, 100, 152, 380});
    const QSignalSpy moved(lever, &tbar::percentChanged);
    const QByteArray rest = finger + '}';
    QCOMPARE(act(R"({"op":"press","widget":"lever","at":[76,190])" + rest), QString());
    QVERIFY2(lever->curValue() > 35 && lever->curValue() < 65,
             qPrintable(QString::number(lever->curValue())));
    QCOMPARE(act(R"({"op":"move","widget":"lever","at":[76,10])" + rest), QString());
    QCOMPARE(lever->curValue(), 100.0);
    QCOMPARE(act(R"({"op":"release","widget":"lever","at":[76,10])" + rest), QString());
    QCOMPARE(moved.count(), 2);
}

void tst_Hand::theWheelTurnsTheLever()
{
    const auto *lever = m_desk->add<tbar>("lever", {300, 100, 152, 380});
    QCOMPARE(act(R"({"op":"wheel","widget":"lever","delta":[0,360]})"), QString());
    QCOMPARE(lever->curValue(), 3.0);
}

void tst_Hand::textIsTypedIntoAField_data()
{
    addFactors();
}

void tst_Hand::textIsTypedIntoAField()
{
    QFETCH(qreal, factor);
    makeDesk(factor);
    QCOMPARE(act(R"({"op":"type","widget":"field","text":"Cam 1.5!"})"), QString());
    QCOMPARE(m_desk->field->text(), QStringLiteral("Cam 1.5!"));
    QVERIFY(m_desk->field->hasFocus());
    QCOMPARE(act(R"({"op":"type","widget":"field","keys":"Backspace"})"), QString());
    QCOMPARE(m_desk->field->text(), QStringLiteral("Cam 1.5"));
    QCOMPARE(act(R"({"op":"type","widget":"field","keys":"Ctrl+A"})"), QString());
    QCOMPARE(m_desk->field->selectedText(), QStringLiteral("Cam 1.5"));
    QCOMPARE(act(R"({"op":"type","widget":"field","keys":"Shift+B"})"), QString());
    QCOMPARE(m_desk->field->text(), QStringLiteral("B"));

    auto *address = m_desk->add<IPLineEdit>("address", {10, 200, 200, 30});
    QCOMPARE(act(R"({"op":"type","widget":"address","text":"10.200.3.4"})"), QString());
    QCOMPARE(address->text(), QStringLiteral("10.200.3.4"));
}

void tst_Hand::textWithoutAFieldGoesWhereTheFocusIs()
{
    m_desk->field->setFocus();
    QCOMPARE(act(R"({"op":"type","text":"12"})"), QString());
    QCOMPARE(m_desk->field->text(), QStringLiteral("12"));
}

void tst_Hand::spacePressesAKey()
{
    const QSignalSpy pressed(m_desk->key, &QAbstractButton::pressed);
    const QSignalSpy released(m_desk->key, &QAbstractButton::released);
    m_desk->key->setFocusPolicy(Qt::StrongFocus);
    QCOMPARE(act(R"({"op":"type","key":58,"keys":"Space"})"), QString());
    QCOMPARE(act(R"({"op":"type","key":58,"text":" "})"), QString());
    QCOMPARE(pressed.count(), 2);
    QCOMPARE(released.count(), 2);
}

void tst_Hand::whatCannotBeDoneIsTold_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("fault");
    QTest::newRow("unknown") << QByteArray(R"({"op":"click","key":300})")
                             << QStringLiteral("there is no key 300");
    QTest::newRow("hidden") << QByteArray(R"({"op":"click","widget":"hidden"})")
                            << QStringLiteral("\"hidden\" is hidden");
    QTest::newRow("typed into what is hidden") << QByteArray(R"({"op":"type","widget":"hidden","text":"1"})")
                                               << QStringLiteral("\"hidden\" is hidden");
    QTest::newRow("set while hidden") << QByteArray(R"({"op":"set","widget":"hidden","value":true})")
                                      << QStringLiteral("\"hidden\" is hidden");
    QTest::newRow("covered") << QByteArray(R"({"op":"click","widget":"covered"})")
                             << QStringLiteral("\"covered\" is covered by \"cover\"");
    QTest::newRow("no keys taken") << QByteArray(R"({"op":"type","widget":"label","text":"1"})")
                                   << QStringLiteral("\"label\" takes no keys");
    QTest::newRow("a finger that is not there")
        << QByteArray(R"({"op":"move","key":58,"at":[1,1],"finger":3})")
        << QStringLiteral("finger 3 is not down");
    QTest::newRow("no value") << QByteArray(R"({"op":"set","widget":"label","value":"1"})")
                              << QStringLiteral("\"label\" is a QLabel, which has no value to set");
    QTest::newRow("a key has none") << QByteArray(R"({"op":"set","widget":"button","value":true})")
                                    << QStringLiteral(
                                           "\"button\" is a QPushButton, which has no value to set");
}

void tst_Hand::whatCannotBeDoneIsTold()
{
    QFETCH(QByteArray, line);
    m_desk->add<QCheckBox>("hidden", {10, 200, 100, 30})->hide();
    m_desk->add<QPushButton>("covered", {10, 250, 100, 30});
    m_desk->add<QFrame>("cover", {0, 240, 200, 50});
    m_desk->add<QLabel>("label", {10, 300, 100, 30});
    m_desk->add<QPushButton>("button", {10, 350, 100, 30});
    QTEST(act(line), "fault");
}

void tst_Hand::aDisabledKeyDoesNothing()
{
    const QSignalSpy pressed(m_desk->key, &QAbstractButton::pressed);
    m_desk->key->setEnabled(false);
    m_desk->field->setEnabled(false);
    for (const char *line :
         {R"({"op":"click","key":58})", R"({"op":"click","key":58,"finger":1})",
          R"({"op":"type","key":58,"keys":"Space"})", R"({"op":"type","widget":"field","text":"1"})"})
        QCOMPARE(act(line), QString());
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(m_desk->field->text(), QString());
    QCOMPARE(act(R"({"op":"set","widget":"field","value":"1"})"),
             QStringLiteral("\"field\" does not take \"1\": it is disabled"));
}

void tst_Hand::whatIsScrolledAwayIsBroughtIntoView()
{
    auto *area = m_desk->add<QScrollArea>("area", {10, 200, 200, 100});
    auto *page = new QWidget;
    page->setFixedSize(150, 1000);
    area->setWidget(page);
    auto *box = m_desk->add<QCheckBox>("box", {10, 900, 100, 30}, page);
    QVERIFY(!area->viewport()->rect().contains(box->mapTo(area->viewport(), QPoint())));
    QCOMPARE(act(R"({"op":"set","widget":"box","value":true})"), QString());
    QVERIFY(box->isChecked());
    QVERIFY(area->viewport()->rect().contains(box->mapTo(area->viewport(), box->rect().center())));
}

void tst_Hand::aWindowOfTheHostOverAKeyDoesNotMatter()
{
    m_lid.reset(new QFrame(&m_desk->window));
    m_lid->setGeometry(0, 0, 100, 100);
    m_lid->show();
    const QSignalSpy clicked(m_desk->key, &QAbstractButton::clicked);
    QCOMPARE(act(R"({"op":"click","key":58})"), QString());
    QCOMPARE(clicked.count(), 1);
}

void tst_Hand::aPressBesideAPopupClosesIt()
{
    QFrame popup(m_desk->field, Qt::Popup);
    popup.setGeometry({m_desk->window.mapToGlobal({300, 300}), QSize(50, 50)});
    popup.show();
    const QSignalSpy clicked(m_desk->key, &QAbstractButton::clicked);
    QCOMPARE(act(R"({"op":"click","key":58})"), QString());
    QVERIFY(popup.isHidden());
    QCOMPARE(clicked.count(), 1);
}

/// A widget of each kind that has a value, all in their places.
void tst_Hand::addKinds()
{
    m_desk->add<IPLineEdit>("address", {10, 160, 200, 30})->setText(QStringLiteral("192.168.100.200"));
    auto *spin = m_desk->add<QSpinBox>("spin", {10, 200, 200, 30});
    spin->setRange(0, 100000);
    spin->setValue(77);
    m_desk->add<QDoubleSpinBox>("decimal", {10, 240, 200, 30});
    auto *box = m_desk->add<QComboBox>("combo", {10, 280, 200, 30});
    for (int i = 1; i <= 16; ++i)
        box->addItem(QString::number(i));
    box->setCurrentIndex(4);
    m_desk->add<QCheckBox>("check", {10, 320, 200, 30});
    m_desk->add<QPushButton>("push", {10, 360, 200, 30})->setCheckable(true);
    m_desk->add<SwitchControl>("switch", {10, 400, 58, 30});
    m_desk->add<SliderEditFrame>("brightness", {10, 440, 280, 40})->setRange(1, 15);
    m_desk->add<QSlider>("plain", {10, 490, 30, 100})->setRange(0, 1000);
    m_desk->add<tbar>("lever", {300, 100, 152, 380});
    m_desk->add<TumblerTime>("time", {300, 490, 275, 100});
    m_desk->add<DateWidget>("date", {60, 500, 120, 40})->setDateTime({2026, 3, 15});
}

QString tst_Hand::valueOf(const QString &name) const
{
    const auto *widget = m_desk->left->findChild<QWidget *>(name);
    if (const auto *time = qobject_cast<const TumblerTime *>(widget))
        return QTime(time->getHour(), time->getMin(), time->getSec()).toString();
    if (const auto *control = qobject_cast<const SwitchControl *>(widget))
        return QVariant(control->isToggled()).toString();
    if (const auto *lever = qobject_cast<const tbar *>(widget))
        return QString::number(lever->curValue());
    for (const char *property : {"currentText", "value", "checked", "text"}) {
        const QVariant value = widget->property(property);
        if (value.isValid() && (value.type() != QVariant::Bool || widget->property("checkable").toBool()))
            return value.toString();
    }
    return {};
}

void tst_Hand::everyKindIsSetAsByHand_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char *name, const char *value, const char *expected) {
        QTest::addRow("%s %s", name, value)
            << QString::fromLatin1(name) << QByteArray(value) << QString::fromLatin1(expected);
    };
    add("field", R"("Cam 1")", "Cam 1");
    add("field", R"("")", "");
    add("address", R"("10.0.3.255")", "10.0.3.255");
    add("address", R"("192.168.1.13")", "192.168.1.13");
    add("spin", "12345", "12345");
    add("spin", "0", "0");
    add("decimal", "3.25", "3.25");
    add("combo", R"("16")", "16");
    add("combo", "0", "1");
    add("check", "true", "true");
    add("push", "true", "true");
    add("switch", "true", "true");
    add("brightness", "15", "15");
    add("brightness", "7", "7");
    add("plain", "437", "437");
    add("plain", "1000", "1000");
    add("lever", "50", "50");
    add("lever", "100", "100");
    add("time", R"("13:05")", "13:05:00");
    add("time", R"("00:59:08")", "00:59:08");
    add("date", R"("05/11/2027")", "05/11/2027");
    add("date", R"("01/03/2026")", "01/03/2026");
    add("date", R"("16/03/2026")", "16/03/2026");
}

void tst_Hand::everyKindIsSetAsByHand()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, value);
    for (const qreal factor : {1.0, 0.45}) {
        makeDesk(factor);
        addKinds();
        QCoreApplication::processEvents(); // the layouts
        const QByteArray line = R"({"op":"set","widget":")" + name.toLatin1() + R"(","value":)" + value + '}';
        QCOMPARE(act(line), QString());
        QTEST(valueOf(name), "expected");
        QVERIFY(!QApplication::activePopupWidget());
    }
}

void tst_Hand::whatAWidgetDoesNotTakeIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("value");
    const auto add = [](const char *name, const char *value) {
        QTest::addRow("%s %s", name, value) << QString::fromLatin1(name) << QByteArray(value);
    };
    add("address", R"("300.1.1.1")");
    add("address", "5");
    add("spin", "100001");
    add("spin", R"("5")");
    add("combo", R"("17")");
    add("combo", "16");
    add("check", "1");
    add("switch", R"("on")");
    add("brightness", "16");
    add("plain", "1001");
    add("lever", "101");
    add("time", R"("24:00")");
    add("time", R"("1:5")");
    add("date", R"("31/02/2026")");
    add("date", R"("01/01/1999")");
}

void tst_Hand::whatAWidgetDoesNotTakeIsTold()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, value);
    addKinds();
    QCoreApplication::processEvents(); // the layouts
    const QByteArray line = R"({"op":"set","widget":")" + name.toLatin1() + R"(","value":)" + value + '}';
    QCOMPARE(act(line), QStringLiteral("\"%1\" does not take %2").arg(name, QString::fromLatin1(value)));
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_Hand::settingWhatIsSetDoesNothing()
{
    addKinds();
    auto *box = m_desk->left->findChild<QCheckBox *>(QStringLiteral("check"));
    box->setChecked(true);
    const QSignalSpy pressed(box, &QAbstractButton::pressed);
    QCOMPARE(act(R"({"op":"set","widget":"check","value":true})"), QString());
    QCOMPARE(pressed.count(), 0);
}

void tst_Hand::aClickWaitsForItsMessageBox()
{
    auto *button = m_desk->add<QPushButton>("button", {10, 200, 100, 30});
    QStringList journal;
    connect(button, &QPushButton::clicked, button, [&] {
        Ovo::Widgets::FramelessMessageBox::question(m_desk->left.data(), QStringLiteral("Remind"),
                                                    QStringLiteral("Sure?"), QMessageBox::Yes);
        journal << QStringLiteral("answered");
    });
    const QSignalSpy pressed(m_desk->key, &QAbstractButton::pressed);
    QTimer::singleShot(0, button, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        journal << QStringLiteral("acting: %1").arg(m_hand->isActing());
        journal << act(R"({"op":"click","key":58})");
        journal << act(R"({"op":"type","text":"1"})");
        journal << act(R"({"op":"click","key":58,"finger":0})");
        journal << act(R"({"op":"release","key":58})");
        box->button(QMessageBox::Yes)->click();
    });
    QCOMPARE(act(R"({"op":"click","widget":"button"})"), QString());
    const QString blocked = QStringLiteral(" is blocked by \"Remind\"");
    QCOMPARE(journal,
             (QStringList{QStringLiteral("acting: 0"), QStringLiteral("key 58") + blocked,
                          QStringLiteral("the console") + blocked, QStringLiteral("key 58") + blocked,
                          QString(), QStringLiteral("answered")}));
    QCOMPARE(pressed.count(), 0);
    QVERIFY(!m_hand->isActing());
    QCOMPARE(act(R"({"op":"click","key":58})"), QString());
    QCOMPARE(pressed.count(), 1);
}

void tst_Hand::aWidgetMayGoWithItsClick()
{
    for (const char *line :
         {R"({"op":"click","widget":"going"})", R"({"op":"type","widget":"going","text":"  "})",
          R"({"op":"set","widget":"going","value":true})"}) {
        auto *button = m_desk->add<QPushButton>("going", {10, 200, 100, 30});
        button->setCheckable(true);
        const QPointer<QPushButton> guard(button);
        connect(button, &QPushButton::pressed, m_desk->field, [button] { delete button; });
        QCOMPARE(act(line), QString());
        QVERIFY(!guard);
    }
}

void tst_Hand::nothingIsPrinted()
{
    static int messages = 0;
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) { ++messages; });
    act(R"({"op":"type","key":58,"keys":"F12"})"); // nobody takes it
    act(R"({"op":"press","key":58})");
    act(R"({"op":"move","key":58,"at":[-500,-500]})");
    act(R"({"op":"release","key":58,"at":[-500,-500]})");
    act(R"({"op":"press","key":58,"finger":0})");
    act(R"({"op":"release","key":58,"finger":0,"at":[-500,-500]})");
    qInstallMessageHandler(before);
    QCOMPARE(messages, 0);
}

QTEST_MAIN(tst_Hand)

#include "tst_hand.moc"
