// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "floatwidgetwidthbutton.h"

#include "consolefloatwidget.h"
#include "panelsupport.h"
#include "support.h"

#include <ovo/widgets/iplineedit.h>

#include <QButtonGroup>
#include <QLabel>
#include <QMutex>
#include <QPushButton>
#include <QThread>
#include <QToolButton>

using namespace Korvo;
using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Internal::FloatWidgetWidthButton;

/// The settings panel with the button that shows and hides it.
class tst_FloatWidgetWidthButton : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void thePanelIsOpenAtFirst();
    void clicksOpenAndClose();
    void clicksWorkWhileTheStripIsHidden();
    void theButtonStaysOnTop();
    void theButtonsLookFollows();
    void thePanelOpensAtANetworkPort_data();
    void thePanelOpensAtANetworkPort();
    void openingAtThePortsSelectsManual();

    void everySignalIsRelayed_data();
    void everySignalIsRelayed();
    void theNetworkModeStaysInside();
    void allSignalsAreRelayedOnes();
    void signalsOfOtherThreadsReachTheGuiThread();

    void loadingReachesThePanel();
    void enteringChangesNothing();
    void recordsShowAndHideTheScreens_data();
    void recordsShowAndHideTheScreens();
    void addressesReachThePanel();
    void aNullAddressIsLogged();
    void anotherLanguageReachesThePanel();
    void otherChangesOfStateLeaveTheTexts();

private:
    bool show();
    ConsoleFloatWidget *panel() const { return m_container->findChild<ConsoleFloatWidget *>(); }
    QToolButton *button() const
    {
        return m_container->findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QVariant look() const { return button()->property("floatButton_hide"); }

    std::unique_ptr<SettingsFolder> m_folder;
    std::unique_ptr<FloatWidgetWidthButton> m_container;
};

void tst_FloatWidgetWidthButton::initTestCase()
{
    // Before anything else here could have made the type known.
    const SettingsFolder folder;
    QCOMPARE(QMetaType::type("QVector<quint16>"), int(QMetaType::UnknownType));
    const FloatWidgetWidthButton container(nullptr);
    QCOMPARE(QMetaType::type("QVector<quint16>"), qMetaTypeId<QVector<quint16>>());
}

void tst_FloatWidgetWidthButton::init()
{
    m_folder = std::make_unique<SettingsFolder>();
    m_container = std::make_unique<FloatWidgetWidthButton>(nullptr);
    QVERIFY(panel());
    QVERIFY(button());
}

void tst_FloatWidgetWidthButton::cleanup()
{
    m_container.reset();
    m_folder.reset();
}

bool tst_FloatWidgetWidthButton::show()
{
    m_container->show();
    m_container->activateWindow();
    return QTest::qWaitForWindowActive(m_container.get());
}

void tst_FloatWidgetWidthButton::thePanelIsOpenAtFirst()
{
    QCOMPARE(m_container->minimumSize(), QSize(580, 1075));
    QCOMPARE(m_container->maximumSize(), QSize(580, 1075));
    QCOMPARE(panel()->parentWidget(), m_container.get());
    QCOMPARE(panel()->geometry(), QRect(44, 0, 535, 1075));
    QVERIFY(!panel()->isHidden());
    QCOMPARE(button()->pos(), QPoint(-2, 477));
    QCOMPARE(look(), QVariant(true));
    QVERIFY(show());
    QVERIFY(panel()->isVisible());
    QVERIFY(button()->isVisible());
    QCOMPARE(button()->pos(), QPoint(-2, 477));
}

void tst_FloatWidgetWidthButton::clicksOpenAndClose()
{
    QVERIFY(show());
    for (int round = 0; round < 3; ++round) {
        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(button()->pos(), QPoint(509, 477));
        QVERIFY(!panel()->isVisible());
        QCOMPARE(look(), QVariant(false));

        QTest::mouseClick(button(), Qt::LeftButton);
        QCOMPARE(button()->pos(), QPoint(-2, 477));
        QVERIFY(panel()->isVisible());
        QCOMPARE(panel()->geometry(), QRect(44, 0, 535, 1075));
        QCOMPARE(look(), QVariant(true));
    }
    QVERIFY(QMetaObject::invokeMethod(m_container.get(), "slot_setFloatWidgetVisible"));
    QVERIFY(!panel()->isVisible());
}

void tst_FloatWidgetWidthButton::clicksWorkWhileTheStripIsHidden()
{
    button()->click();
    QVERIFY(panel()->isHidden());
    QCOMPARE(button()->pos(), QPoint(509, 477));
    QCOMPARE(look(), QVariant(false));
    QVERIFY(show());
    QVERIFY(!panel()->isVisible());
}

void tst_FloatWidgetWidthButton::theButtonStaysOnTop()
{
    const QWidget *other = new QWidget(m_container.get());
    Q_UNUSED(other)
    const QObjectList &children = m_container->children();
    QVERIFY(children.indexOf(button()) > children.indexOf(panel()));
    QVERIFY(show());
    // What is seen where the two overlap.
    QCOMPARE(m_container->childAt(button()->geometry().center()), button());
    const QRect shared = button()->geometry() & panel()->geometry();
    if (!shared.isEmpty())
        QCOMPARE(m_container->childAt(shared.center()), button());
    QTest::mouseClick(button(), Qt::LeftButton);
    QTest::mouseClick(button(), Qt::LeftButton);
    QVERIFY(children.indexOf(button()) > children.indexOf(panel()));
}

void tst_FloatWidgetWidthButton::theButtonsLookFollows()
{
    m_container->setStyleSheet(
        QStringLiteral("QToolButton[floatButton_hide=\"true\"] { border: 0; background: #ff0000; }"
                       "QToolButton[floatButton_hide=\"false\"] { border: 0; background: #0000ff; }"));
    QVERIFY(show());
    const auto color = [this] { return button()->grab().toImage().pixelColor(10, 10).name(); };
    QCOMPARE(color(), QStringLiteral("#ff0000"));
    QTest::mouseClick(button(), Qt::LeftButton);
    QCOMPARE(color(), QStringLiteral("#0000ff"));
    m_container->setNetInfo(-1);
    QCOMPARE(color(), QStringLiteral("#ff0000"));
}

void tst_FloatWidgetWidthButton::thePanelOpensAtANetworkPort_data()
{
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<int>("selected"); // before; -1 is none
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("expected"); // -1 is none
    for (const bool isOpen : {true, false}) {
        for (const int selected : {-1, 0, 1}) {
            for (const int port : {-1, 0, 1, 2}) {
                const bool isPort = port == 0 || port == 1;
                QTest::newRow(qPrintable(QStringLiteral("%1, port %2 selected, port %3")
                                             .arg(isOpen ? QStringLiteral("open") : QStringLiteral("closed"))
                                             .arg(selected)
                                             .arg(port)))
                    << isOpen << selected << port << (isPort ? port : selected);
            }
        }
    }
}

void tst_FloatWidgetWidthButton::thePanelOpensAtANetworkPort()
{
    QFETCH(bool, isOpen);
    QFETCH(int, selected);
    QFETCH(int, port);
    QFETCH(int, expected);
    QVERIFY(show());
    const QButtonGroup *ports = find<QPushButton>(panel(), "pushButton_hundred")->group();
    if (selected >= 0)
        ports->button(selected)->click();
    QCOMPARE(ports->checkedId(), selected);
    if (!isOpen)
        QTest::mouseClick(button(), Qt::LeftButton);

    m_container->setNetInfo(port);
    QVERIFY(panel()->isVisible());
    QCOMPARE(button()->pos(), QPoint(-2, 477));
    QCOMPARE(look(), QVariant(true));
    QCOMPARE(ports->checkedId(), expected);
    QVERIFY(find<QPushButton>(panel(), "pushButton_Manual")->isChecked());
    const QWidget *focused = QApplication::focusWidget();
    QVERIFY(focused);
    QVERIFY(find(panel(), "lineEdit_IP")->isAncestorOf(focused));
}

void tst_FloatWidgetWidthButton::openingAtThePortsSelectsManual()
{
    QVERIFY(show());
    find<QPushButton>(panel(), "pushButton_DHCP")->click();
    QVERIFY(find<QPushButton>(panel(), "pushButton_DHCP")->isChecked());
    QVERIFY(!find(panel(), "lineEdit_IP")->isEnabled());
    m_container->setNetInfo(-1);
    QVERIFY(find<QPushButton>(panel(), "pushButton_Manual")->isChecked());
    QVERIFY(find(panel(), "lineEdit_IP")->isEnabled());
    QVERIFY(find(panel(), "lineEdit_IP")->isAncestorOf(QApplication::focusWidget()));
}

void tst_FloatWidgetWidthButton::everySignalIsRelayed_data()
{
    QTest::addColumn<QByteArray>("ofPanel");
    QTest::addColumn<QByteArray>("expected");
    for (const char *name :
         {"signalGrooseneckLightStatusChanged", "signalFrontLightStatusChanged",
          "signalSideLightStatusChanged", "signalLogoLightStatusChanged", "signalSetPeripheralDataChange",
          "signalTimeChanged", "signalTimeTypeChanged", "signalUpdateSystemTime", "signalUpdateSystemIP",
          "signalReqECDeviceIP", "signalRestartControlEvent", "signalIPModeChanged"})
        QTest::newRow(name) << QByteArray(name) << QByteArray(name);
    QTest::newRow("signalUpdateIPText") << QByteArray("signalUpdateIPText") << QByteArray("signal_ipChanged");
    QTest::newRow("signalIPStatusChanged")
        << QByteArray("signalIPStatusChanged") << QByteArray("signal_netStatusChanged");
}

void tst_FloatWidgetWidthButton::everySignalIsRelayed()
{
    QFETCH(QByteArray, ofPanel);
    QFETCH(QByteArray, expected);
    const QMetaMethod signal = signalsOf(ConsoleFloatWidget::staticMetaObject).value(ofPanel);
    QVERIFY(signal.isValid());
    SignalNotes told(m_container.get());
    const QString arguments = emitSample(panel(), signal);
    QCOMPARE(told.take(), QStringList{QLatin1String(expected) + arguments});
}

void tst_FloatWidgetWidthButton::theNetworkModeStaysInside()
{
    SignalNotes told(m_container.get());
    emitSample(panel(), signalsOf(ConsoleFloatWidget::staticMetaObject).value("signalNetModeChanged"));
    QCOMPARE(told.take(), QStringList());
}

void tst_FloatWidgetWidthButton::allSignalsAreRelayedOnes()
{
    // The table above misses none, on either side.
    QCOMPARE(signalsOf(ConsoleFloatWidget::staticMetaObject).size(), 15);
    QCOMPARE(signalsOf(FloatWidgetWidthButton::staticMetaObject).size(), 14);
}

void tst_FloatWidgetWidthButton::signalsOfOtherThreadsReachTheGuiThread()
{
    QVector<quint16> sizes;
    QStringList modes;
    QVector<QThread *> threads;
    QObject host;
    const auto note = [told = &threads] { *told << QThread::currentThread(); };
    connect(m_container.get(), &FloatWidgetWidthButton::signalSetPeripheralDataChange, &host,
            [told = &sizes, note](int, int, const QVector<quint16> &resolutions) {
                *told = resolutions;
                note();
            });
    connect(m_container.get(), &FloatWidgetWidthButton::signalIPModeChanged, &host,
            [told = &modes, note](quint8 port, quint8 mode) {
                *told << QStringLiteral("%1 %2").arg(port).arg(mode);
                note();
            });
    runElsewhere([this] {
        Q_EMIT panel()->signalSetPeripheralDataChange(2, 1, {3840, 2160, 1920, 1080});
        panel()->setETHMode(QStringLiteral("eth0"), 1);
        panel()->setETHMode(QStringLiteral("eth2"), 1);
    });
    QCOMPARE(threads.size(), 0);
    QTRY_COMPARE(threads.size(), 3);
    QCOMPARE(threads, QVector<QThread *>(3, QThread::currentThread()));
    QCOMPARE(sizes, (QVector<quint16>{3840, 2160, 1920, 1080}));
    QCOMPARE(modes, (QStringList{QStringLiteral("1 1"), QStringLiteral("0 1")}));
}

void tst_FloatWidgetWidthButton::loadingReachesThePanel()
{
    m_folder->write(QByteArray("[General]\nscreenValue=6\n"));
    m_container = std::make_unique<FloatWidgetWidthButton>(nullptr);
    SignalNotes told(m_container.get());
    m_container->initParm();
    QCOMPARE(told.only({QStringLiteral("signalSideLightStatusChanged")}),
             QStringList{QStringLiteral("signalSideLightStatusChanged(true, 6)")});
}

void tst_FloatWidgetWidthButton::enteringChangesNothing()
{
    QVERIFY(show());
    SignalNotes told(m_container.get());
    const QPoint place = button()->pos();
    m_container->enterWindow();
    QCOMPARE(told.lines, QStringList());
    QCOMPARE(button()->pos(), place);
    QVERIFY(panel()->isVisible());
    QTest::mouseClick(button(), Qt::LeftButton);
    m_container->enterWindow();
    QVERIFY(!panel()->isVisible());
}

void tst_FloatWidgetWidthButton::recordsShowAndHideTheScreens_data()
{
    QTest::addColumn<int>("visible");
    QTest::addColumn<bool>("expected");
    QTest::newRow("hide") << 0 << false;
    QTest::newRow("show") << 1 << true;
    QTest::newRow("show by any number") << 2 << true;
    QTest::newRow("show by the largest number") << 255 << true;
}

void tst_FloatWidgetWidthButton::recordsShowAndHideTheScreens()
{
    QFETCH(int, visible);
    QFETCH(bool, expected);
    const auto record = [](int value) {
        auto state = std::make_shared<PeripheralControlVisibleState>();
        state->visible = static_cast<quint8>(value);
        return state;
    };
    for (const int before : {0, 1}) {
        m_container->updatePeripheralVisibleState(record(before));
        m_container->updatePeripheralVisibleState(nullptr); // changes nothing
        QCOMPARE(find(panel(), "peripheralApply")->isHidden(), before == 0);
        m_container->updatePeripheralVisibleState(record(visible));
        for (const char *name : {"label_peripheral", "screenScrollArea", "peripheralApply"})
            QCOMPARE(find(panel(), name)->isHidden(), !expected);
    }
}

void tst_FloatWidgetWidthButton::addressesReachThePanel()
{
    auto record = std::make_shared<ECDeviceIPData>();
    record->Index = 1;
    record->Status = 1;
    record->IP = 0x0d01a8c0;
    SignalNotes told(m_container.get());
    panel()->slotRefreshNetStatus();
    told.take();
    m_container->updateECDeviceIP(record);
    QCOMPARE(told.take(), (QStringList{QStringLiteral("signal_netStatusChanged(eth0, 1)"),
                                       QStringLiteral("signal_ipChanged(1, 192.168.1.13)")}));

    record->IP = 0x0e01a8c0;
    runElsewhere([this, record] { m_container->updateECDeviceIP(record); });
    QCOMPARE(told.take(), QStringList());
    QTRY_COMPARE(told.lines.size(), 2);
    QCOMPARE(told.lines.constLast(), QStringLiteral("signal_ipChanged(1, 192.168.1.14)"));
}

void tst_FloatWidgetWidthButton::aNullAddressIsLogged()
{
    const LogKeeper log;
    m_container->updateECDeviceIP(nullptr);
    QCOMPARE(log.lines(), QStringList{QStringLiteral(" ECDevice IP data error .")});
}

void tst_FloatWidgetWidthButton::anotherLanguageReachesThePanel()
{
    auto *mask = find<QLabel>(panel(), "label_mask");
    const auto *hours = find<QPushButton>(panel(), "pushButton_24");
    {
        const CrossSpeaking language;
        QCOMPARE(mask->text(), QStringLiteral("xSubnet mask"));
        QCOMPARE(hours->text(), QStringLiteral("x24Hours"));
        QCOMPARE(find<QLabel>(panel(), "label_peripheral")->text(),
                 QStringLiteral("xPeripheral screen parameter setting"));
    }
    QCOMPARE(mask->text(), QStringLiteral("Subnet mask"));
    QCOMPARE(hours->text(), QStringLiteral("24Hours"));

    mask->setText(QStringLiteral("?"));
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_container.get(), &change);
    QCOMPARE(mask->text(), QStringLiteral("Subnet mask"));

    mask->setText(QStringLiteral("?"));
    m_container->retranslateUi();
    QCOMPARE(mask->text(), QStringLiteral("Subnet mask"));
}

void tst_FloatWidgetWidthButton::otherChangesOfStateLeaveTheTexts()
{
    auto *mask = find<QLabel>(panel(), "label_mask");
    mask->setText(QStringLiteral("?"));
    for (const QEvent::Type type : {QEvent::FontChange, QEvent::PaletteChange, QEvent::StyleChange}) {
        QEvent change(type);
        QCoreApplication::sendEvent(m_container.get(), &change);
    }
    QCOMPARE(mask->text(), QStringLiteral("?"));
}

QTEST_MAIN(tst_FloatWidgetWidthButton)

#include "tst_floatwidgetwidthbutton.moc"
