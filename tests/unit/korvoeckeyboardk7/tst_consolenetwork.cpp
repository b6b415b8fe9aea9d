// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "consolefloatwidget.h"

#include "consolepanel.h"
#include "floatwidgetwidthbutton.h"
#include "internetthread.h"
#include "support.h"

#include <ovo/widgets/iplineedit.h>

#include <QButtonGroup>
#include <QLineEdit>
#include <QSemaphore>
#include <QTest>

#include <atomic>

using namespace Korvo;
using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Internal::FloatWidgetWidthButton;
using Korvo::Internal::InternetThread;
using Ovo::Widgets::IPLineEdit;

namespace {

const quint32 UsualMask = address(255, 255, 255, 0);

/// The records of the two ports that most tests report.
std::shared_ptr<ECDeviceIPData> eth2Record()
{
    return addressRecord(0, 0, address(10, 20, 30, 40), address(255, 255, 0, 0), address(10, 20, 0, 1));
}
std::shared_ptr<ECDeviceIPData> eth0Record()
{
    return addressRecord(1, 1, address(192, 168, 1, 13), UsualMask, address(192, 168, 1, 1));
}

QStringList eth2Texts()
{
    return {"10.20.30.40"_q, "255.255.0.0"_q, "10.20.0.1"_q};
}
QStringList eth0Texts()
{
    return {"192.168.1.13"_q, "255.255.255.0"_q, "192.168.1.1"_q};
}
QStringList unknownTexts()
{
    return {"0.0.0.0"_q, "255.255.255.0"_q, "0.0.0.0"_q};
}
QStringList newTexts()
{
    return {"172.16.5.6"_q, "255.255.255.0"_q, "172.16.5.1"_q};
}

/// Stops the worker where it tells the host of the new mode, until it is let go.
class HeldWorker : public QObject
{
public:
    explicit HeldWorker(ConsoleFloatWidget *panel)
    {
        connect(
            panel, &ConsoleFloatWidget::signalIPModeChanged, this,
            [gates = m_gates] {
                gates->stopped.release();
                gates->open.acquire();
            },
            Qt::DirectConnection);
    }
    ~HeldWorker() override { letGo(1000); }

    bool hasStopped() { return m_gates->stopped.tryAcquire(1, 5000); }
    void letGo(int times = 1) { m_gates->open.release(times); }

private:
    struct Gates
    {
        QSemaphore stopped;
        QSemaphore open;
    };
    const std::shared_ptr<Gates> m_gates = std::make_shared<Gates>(); // the worker's too
};

} // namespace

class tst_ConsoleNetwork : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The table of addresses.
    void aNullRecordIsLoggedAndIgnored();
    void aReportedAddressCanBeRead_data();
    void aReportedAddressCanBeRead();
    void anUnknownPortLeavesTheArgumentsAlone();
    void aSecondRecordOverwritesTheFirst();
    void aRecordFromAnotherThreadIsInTheTableAtOnce();
    void aRecordOfAnUnknownPortIsKeptButNotShown();

    // Questions and answers.
    void thePeriodsAreTheConsoles();
    void theNetTimerRefreshes();
    void aRefreshAsksForBothPorts();
    void anAnswerToARefreshGoesToTheStrip();
    void aHostMayAnswerARefreshAtOnce();
    void anAnswerToAQuestionGoesToTheFields();
    void aQuestionTakesTheAnswersFromTheStrip();
    void anAnswerAsksForNothing();
    void anAnswerForTheOtherPortIsNotShown();
    void anAnswerWithoutASelectedPortIsNotShown();
    void theStatusOfBothPortsIsTold_data();
    void theStatusOfBothPortsIsTold();

    // Ports and modes.
    void theStoredPortIsSelected_data();
    void theStoredPortIsSelected();
    void loadingAgainAsksAgain();
    void aPortButtonShowsItsPort_data();
    void aPortButtonShowsItsPort();
    void aPortButtonShowsWhatTheHostAnswersAtOnce();
    void anUncheckedOrUnknownPortDoesNothing();
    void aModeButtonSwitchesTheFields_data();
    void aModeButtonSwitchesTheFields();
    void anUncheckedModeButtonOnlyRises();

    // The fields.
    void anAddressIsWrittenIntoTheFields();
    void aKnownAddressIsWrittenAllTheSame();
    void aMaskLikeTheGatewayIsNotWritten();
    void anAnswerDoesNotOverwriteTyping();
    void anAnswerDoesNotOverwriteAFocusedField_data();
    void anAnswerDoesNotOverwriteAFocusedField();
    void anAnswerIsShownWhereTheFocusWasGiven();
    void typedTextEndsWithAnotherPort();
    void theFieldsAreChecked_data();
    void theFieldsAreChecked();

    // Apply.
    void applyWithoutAPortOnlyWarns();
    void aWrongAddressIsRefused_data();
    void aWrongAddressIsRefused();
    void aRefusalMayBeTheLastOfThePanel();
    void aGoodAddressIsSent_data();
    void aGoodAddressIsSent();
    void applyTellsInOrder();
    void anUnchangedAddressIsAppliedAllTheSame();
    void theWorkerIsOneThreadForAll();
    void aKnownInterfaceIsAskedForItsMode_data();
    void aKnownInterfaceIsAskedForItsMode();
    void completionShowsThePort();
    void completionLeavesAnotherPortAlone();
    void applyEndsTyping();

    // Time-out.
    void theDelaysAreTheConsoles();
    void aSilentConsoleTimesOut();
    void completionStopsTheTimeOut();
    void lateCompletionChangesNothing();
    void aSecondApplyWaitsForTheFirst();
    void theFirstOfTwoMayTimeOut();
    void lateCompletionOfTheFirstOfTwoChangesNothing();
    void theSecondOfTwoMayTimeOut();
    void theSecondOfTwoMayTimeOutAfterTheFirstHasEnded();
    void applyAfterATimeOutStartsAnew();

    // The end of the panel.
    void thePanelMayGoWhileTheTimeOutIsShown();
    void thePanelWaitsForItsWorker();
    void thePanelDropsTheApplyThatWaits();
    void nothingIsToldOnceThePanelHasGone();
    void theIndicatorGoesWithThePanel();

private:
    template <typename Widget = QWidget>
    Widget *child(const QString &name) const
    {
        return m_panel->findChild<Widget *>(name);
    }
    QPushButton *portButton(int port) const
    {
        return child<QPushButton>(port == 0 ? "pushButton_hundred"_q : "pushButton_gigabit"_q);
    }
    QPushButton *modeButton(int mode) const
    {
        return child<QPushButton>(mode == 0 ? "pushButton_Manual"_q : "pushButton_DHCP"_q);
    }
    QList<IPLineEdit *> fields() const
    {
        return {child<IPLineEdit>("lineEdit_IP"_q), child<IPLineEdit>("lineEdit_mask"_q),
                child<IPLineEdit>("lineEdit_gateWay"_q)};
    }
    QStringList fieldTexts() const
    {
        QStringList texts;
        const QList<IPLineEdit *> all = fields();
        for (const IPLineEdit *field : all)
            texts << field->text();
        return texts;
    }
    void fill(const QStringList &texts)
    {
        for (int i = 0; i < 3; ++i)
            fields().at(i)->setText(texts.at(i));
    }
    QStringList tableTexts(int port)
    {
        QStringList texts{"-"_q, "-"_q, "-"_q};
        int status = -1;
        m_panel->getECDeviceIP(port, texts[0], texts[1], texts[2], status);
        return texts << QString::number(status);
    }
    void reportBoth()
    {
        m_panel->updateECDeviceIP(eth2Record());
        m_panel->updateECDeviceIP(eth0Record());
    }
    void apply() { QTest::mouseClick(child("pushButton_apply"_q), Qt::LeftButton); }
    /// Applies what is in \a texts for \a port.
    void apply(int port, const QStringList &texts)
    {
        portButton(port)->setChecked(true);
        fill(texts);
        apply();
    }
    bool showActive()
    {
        m_panel->show();
        m_panel->activateWindow();
        return QTest::qWaitForWindowActive(m_panel.get());
    }

    std::unique_ptr<SettingsFolder> m_settings;
    std::unique_ptr<ConsoleFloatWidget> m_panel;
    std::unique_ptr<Journal> m_journal;
};

void tst_ConsoleNetwork::init()
{
    m_settings = std::make_unique<SettingsFolder>();
    m_panel = std::make_unique<ConsoleFloatWidget>();
    m_journal = std::make_unique<Journal>(m_panel.get());
    QVERIFY(portButton(0) && portButton(1) && modeButton(0) && modeButton(1));
    QVERIFY(!fields().contains(nullptr));
}

void tst_ConsoleNetwork::cleanup()
{
    m_panel.reset();
    m_journal.reset();
    QCOMPARE(busyIndicators(), 0);
    QVERIFY(!QApplication::activeModalWidget());
    m_settings.reset();
}

void tst_ConsoleNetwork::aNullRecordIsLoggedAndIgnored()
{
    reportBoth();
    portButton(1)->setChecked(true);
    m_journal->takeLines();
    const LogKeeper log;
    m_panel->updateECDeviceIP(nullptr);
    QCOMPARE(log.lines(), QStringList{" ECDevice IP data error ."_q});
    runElsewhere([this] { m_panel->updateECDeviceIP(nullptr); });
    QCoreApplication::processEvents();
    QCOMPARE(log.lines().size(), 2);

    m_panel->slotRefreshNetStatus();
    m_panel->updateECDeviceIP(nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(m_journal->lines(), (QStringList{"ask 0"_q, "ask 1"_q}));
    QCOMPARE(fieldTexts(), eth0Texts());
    QCOMPARE(tableTexts(0), eth2Texts() + QStringList{"0"_q});
    QCOMPARE(tableTexts(1), eth0Texts() + QStringList{"1"_q});
}

void tst_ConsoleNetwork::aReportedAddressCanBeRead_data()
{
    QTest::addColumn<quint8>("port");
    QTest::addColumn<quint8>("status");
    QTest::addColumn<quint32>("ip");
    QTest::addColumn<quint32>("mask");
    QTest::addColumn<quint32>("gateway");
    QTest::addColumn<QStringList>("expectedTexts");
    QTest::newRow("ETH1") << quint8(1) << quint8(1) << 0x0d01a8c0u << 0x00ffffffu << 0x0101a8c0u
                          << (eth0Texts() + QStringList{"1"_q});
    QTest::newRow("ETH2") << quint8(0) << quint8(0) << 0x281e140au << 0x0000ffffu << 0x0100140au
                          << (eth2Texts() + QStringList{"0"_q});
    QTest::newRow("zeros") << quint8(0) << quint8(0) << 0u << 0u << 0u
                           << QStringList{"0.0.0.0"_q, "0.0.0.0"_q, "0.0.0.0"_q, "0"_q};
    QTest::newRow("the highest") << quint8(255) << quint8(255) << 0xffffffffu << 0xffffffffu << 0xffffffffu
                                 << QStringList{"255.255.255.255"_q, "255.255.255.255"_q, "255.255.255.255"_q,
                                                "255"_q};
}

void tst_ConsoleNetwork::aReportedAddressCanBeRead()
{
    QFETCH(quint8, port);
    QFETCH(quint8, status);
    QFETCH(quint32, ip);
    QFETCH(quint32, mask);
    QFETCH(quint32, gateway);
    QFETCH(QStringList, expectedTexts);
    m_panel->updateECDeviceIP(addressRecord(port, status, ip, mask, gateway));
    QCOMPARE(m_journal->lines(), QStringList());

    QString ipText;
    QString maskText;
    QString gatewayText;
    int statusRead = -1;
    QVERIFY(m_panel->getECDeviceIP(port, ipText, maskText, gatewayText, statusRead));
    QCOMPARE((QStringList{ipText, maskText, gatewayText, QString::number(statusRead)}), expectedTexts);
    QCOMPARE(m_journal->lines(), QStringList{"ask %1"_q.arg(port)});
}

void tst_ConsoleNetwork::anUnknownPortLeavesTheArgumentsAlone()
{
    m_panel->updateECDeviceIP(eth0Record());
    for (const int port : {0, 2, 7}) {
        QString ip = "i"_q;
        QString mask = "m"_q;
        QString gateway = "g"_q;
        int status = 42;
        QVERIFY(!m_panel->getECDeviceIP(port, ip, mask, gateway, status));
        QCOMPARE((QStringList{ip, mask, gateway}), (QStringList{"i"_q, "m"_q, "g"_q}));
        QCOMPARE(status, 42);
    }
    QCOMPARE(m_journal->lines(), (QStringList{"ask 0"_q, "ask 2"_q, "ask 7"_q}));
}

void tst_ConsoleNetwork::aSecondRecordOverwritesTheFirst()
{
    reportBoth();
    m_panel->updateECDeviceIP(
        addressRecord(1, 9, address(1, 2, 3, 4), address(5, 6, 7, 8), address(9, 10, 11, 12)));
    QCOMPARE(tableTexts(1), (QStringList{"1.2.3.4"_q, "5.6.7.8"_q, "9.10.11.12"_q, "9"_q}));
    QCOMPARE(tableTexts(0), eth2Texts() + QStringList{"0"_q});
}

void tst_ConsoleNetwork::aRecordFromAnotherThreadIsInTheTableAtOnce()
{
    portButton(1)->setChecked(true);
    m_journal->takeLines();
    // Meant for the fields.
    runElsewhere([this] { m_panel->updateECDeviceIP(eth0Record()); });
    QCOMPARE(fieldTexts(), unknownTexts()); // widgets are the GUI thread's
    QCoreApplication::processEvents();
    QCOMPARE(fieldTexts(), eth0Texts());

    // Meant for the strip.
    m_panel->slotRefreshNetStatus();
    m_journal->takeLines();
    runElsewhere([this] { m_panel->updateECDeviceIP(eth2Record()); });
    QCOMPARE(m_journal->lines(), QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(m_journal->lines(), (QStringList{"status eth2 0"_q, "text 0 10.20.30.40"_q, "status eth0 1"_q,
                                              "text 1 192.168.1.13"_q}));

    runElsewhere([this] {
        m_panel->updateECDeviceIP(addressRecord(0, 3, address(1, 1, 1, 1), UsualMask, address(1, 1, 1, 2)));
    });
    QCOMPARE(tableTexts(0), (QStringList{"1.1.1.1"_q, "255.255.255.0"_q, "1.1.1.2"_q, "3"_q}));
    QCoreApplication::processEvents();
}

void tst_ConsoleNetwork::aRecordOfAnUnknownPortIsKeptButNotShown()
{
    reportBoth();
    portButton(0)->setChecked(true);
    m_journal->takeLines();
    const auto unknown = addressRecord(7, 1, address(7, 7, 7, 7), UsualMask, address(7, 7, 7, 1));
    m_panel->updateECDeviceIP(unknown);
    QCOMPARE(fieldTexts(), eth2Texts());
    m_panel->slotRefreshNetStatus();
    m_journal->takeLines();
    m_panel->updateECDeviceIP(unknown);
    QCOMPARE(m_journal->takeLines(), (QStringList{"status eth2 0"_q, "text 0 10.20.30.40"_q,
                                                  "status eth0 1"_q, "text 1 192.168.1.13"_q}));
    QCOMPARE(tableTexts(7), (QStringList{"7.7.7.7"_q, "255.255.255.0"_q, "7.7.7.1"_q, "1"_q}));
}

void tst_ConsoleNetwork::thePeriodsAreTheConsoles()
{
    QList<int> periods;
    const QList<QTimer *> timers = m_panel->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QTimer *timer : timers) {
        QVERIFY(timer->isActive());
        QVERIFY(!timer->isSingleShot());
        periods << timer->interval();
    }
    std::sort(periods.begin(), periods.end());
    QCOMPARE(periods, (QList<int>{1000, 10000}));
}

void tst_ConsoleNetwork::theNetTimerRefreshes()
{
    const QList<QTimer *> timers = m_panel->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QSignalSpy clock(m_panel.get(), &ConsoleFloatWidget::signalTimeChanged);
    for (QTimer *timer : timers) {
        QTimerEvent due(timer->timerId());
        QCoreApplication::sendEvent(timer, &due);
        const bool isNet = timer->interval() == 10000;
        QCOMPARE(m_journal->takeLines(), isNet ? (QStringList{"ask 0"_q, "ask 1"_q}) : QStringList());
        QCOMPARE(clock.size(), isNet ? 0 : 1);
        clock.clear();
    }
    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(m_journal->lines(), (QStringList{"status eth0 1"_q, "text 1 192.168.1.13"_q}));
}

void tst_ConsoleNetwork::aRefreshAsksForBothPorts()
{
    QVERIFY(QMetaObject::invokeMethod(m_panel.get(), "slotRefreshNetStatus"));
    QCOMPARE(m_journal->lines(), (QStringList{"ask 0"_q, "ask 1"_q}));
}

void tst_ConsoleNetwork::anAnswerToARefreshGoesToTheStrip()
{
    portButton(1)->setChecked(true);
    m_panel->slotRefreshNetStatus();
    m_journal->takeLines();
    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(m_journal->takeLines(), (QStringList{"status eth0 1"_q, "text 1 192.168.1.13"_q}));
    m_panel->updateECDeviceIP(eth2Record());
    QCOMPARE(m_journal->takeLines(), (QStringList{"status eth2 0"_q, "text 0 10.20.30.40"_q,
                                                  "status eth0 1"_q, "text 1 192.168.1.13"_q}));
    // Further records answer the same refresh until something else is asked.
    m_panel->updateECDeviceIP(eth2Record());
    QCOMPARE(m_journal->takeLines().size(), 4);
    QCOMPARE(fieldTexts(), unknownTexts());
}

void tst_ConsoleNetwork::aHostMayAnswerARefreshAtOnce()
{
    connect(m_panel.get(), &ConsoleFloatWidget::signalReqECDeviceIP, m_journal.get(),
            [this](quint8 port) { m_panel->updateECDeviceIP(port == 0 ? eth2Record() : eth0Record()); });
    m_panel->slotRefreshNetStatus();
    QCOMPARE(m_journal->lines(),
             (QStringList{"ask 0"_q, "status eth2 0"_q, "text 0 10.20.30.40"_q, "ask 1"_q, "status eth2 0"_q,
                          "text 0 10.20.30.40"_q, "status eth0 1"_q, "text 1 192.168.1.13"_q}));
}

void tst_ConsoleNetwork::anAnswerToAQuestionGoesToTheFields()
{
    portButton(0)->setChecked(true); // asks
    QCOMPARE(m_journal->takeLines(), QStringList{"ask 0"_q});
    QCOMPARE(fieldTexts(), unknownTexts());
    m_panel->updateECDeviceIP(eth2Record());
    QCOMPARE(fieldTexts(), eth2Texts());
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleNetwork::aQuestionTakesTheAnswersFromTheStrip()
{
    portButton(0)->setChecked(true);
    m_panel->slotRefreshNetStatus();
    portButton(1)->setChecked(true);
    m_journal->takeLines();
    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(fieldTexts(), eth0Texts());
    QCOMPARE(m_journal->takeLines(), QStringList());

    m_panel->slotRefreshNetStatus();
    m_journal->takeLines();
    m_panel->updateECDeviceIP(addressRecord(1, 0, address(1, 2, 3, 4), UsualMask, address(1, 2, 3, 1)));
    QCOMPARE(fieldTexts(), eth0Texts());
    QCOMPARE(m_journal->takeLines(), (QStringList{"status eth0 0"_q, "text 1 1.2.3.4"_q}));
}

void tst_ConsoleNetwork::anAnswerAsksForNothing()
{
    connect(m_panel.get(), &ConsoleFloatWidget::signalReqECDeviceIP, m_journal.get(),
            [this](quint8 port) { m_panel->updateECDeviceIP(port == 0 ? eth2Record() : eth0Record()); });
    portButton(0)->setChecked(true);
    QCOMPARE(m_journal->takeLines(), QStringList{"ask 0"_q}); // and not for ever
    QCOMPARE(fieldTexts(), eth2Texts());
    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(m_journal->takeLines(), QStringList());
}

void tst_ConsoleNetwork::anAnswerForTheOtherPortIsNotShown()
{
    m_panel->updateECDeviceIP(eth0Record());
    portButton(1)->setChecked(true);
    QCOMPARE(fieldTexts(), eth0Texts());
    m_panel->updateECDeviceIP(eth2Record());
    QCOMPARE(fieldTexts(), eth0Texts());
}

void tst_ConsoleNetwork::anAnswerWithoutASelectedPortIsNotShown()
{
    const QStringList before = fieldTexts();
    reportBoth();
    QCOMPARE(fieldTexts(), before);
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleNetwork::theStatusOfBothPortsIsTold_data()
{
    QTest::addColumn<bool>("isEth2Known");
    QTest::addColumn<bool>("isEth0Known");
    QTest::addColumn<QStringList>("expectedLines");
    QTest::newRow("none") << false << false
                          << QStringList{"status eth0 0"_q, "status eth2 0"_q, "text 0 0.0.0.0"_q,
                                         "text 1 0.0.0.0"_q};
    QTest::newRow("ETH1") << false << true
                          << QStringList{"status eth0 1"_q, "status eth2 0"_q, "text 0 0.0.0.0"_q,
                                         "text 1 192.168.1.13"_q};
    QTest::newRow("ETH2") << true << false
                          << QStringList{"status eth0 0"_q, "status eth2 7"_q, "text 0 10.20.30.40"_q,
                                         "text 1 0.0.0.0"_q};
    QTest::newRow("both") << true << true
                          << QStringList{"status eth0 1"_q, "status eth2 7"_q, "text 0 10.20.30.40"_q,
                                         "text 1 192.168.1.13"_q};
}

void tst_ConsoleNetwork::theStatusOfBothPortsIsTold()
{
    QFETCH(bool, isEth2Known);
    QFETCH(bool, isEth0Known);
    QFETCH(QStringList, expectedLines);
    const auto eth2 = eth2Record();
    eth2->Status = 7;
    if (isEth2Known)
        m_panel->updateECDeviceIP(eth2);
    if (isEth0Known)
        m_panel->updateECDeviceIP(eth0Record());
    m_panel->refreshNetStatus();
    const QStringList lines = m_journal->lines();
    QCOMPARE(lines.size(), 6);
    QCOMPARE(m_journal->linesOf("ask"_q).size(), 2);
    QVERIFY(lines.mid(0, 2).contains("ask 0"_q) && lines.mid(0, 2).contains("ask 1"_q));
    QCOMPARE(lines.mid(2), expectedLines);
}

void tst_ConsoleNetwork::theStoredPortIsSelected_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("isReported");
    QTest::addColumn<int>("expectedPort");
    QTest::addColumn<QString>("expectedNet");
    QTest::addColumn<QString>("expectedStored");
    const QString net0 = "net 1 '192.168.1.13' '255.255.255.0'"_q;
    const QString net2 = "net 1 '10.20.30.40' '255.255.0.0'"_q;
    const QString unknown = "net 1 '0.0.0.0' '255.255.255.0'"_q;
    QTest::newRow("never stored") << QVariant() << true << 1 << net0 << "eth0"_q;
    QTest::newRow("empty") << QVariant(QString()) << true << 1 << net0 << "eth0"_q;
    QTest::newRow("eth0") << QVariant("eth0"_q) << true << 1 << net0 << "eth0"_q;
    QTest::newRow("eth2") << QVariant("eth2"_q) << true << 0 << net2 << "eth2"_q;
    QTest::newRow("eth0, not reported") << QVariant("eth0"_q) << false << 1 << unknown << "eth0"_q;
    QTest::newRow("eth2, not reported") << QVariant("eth2"_q) << false << 0 << unknown << "eth2"_q;
    QTest::newRow("another") << QVariant("eth1"_q) << true << -1 << "net 1 '' ''"_q
                             << "eth1"_q;
    QTest::newRow("upper case") << QVariant("ETH0"_q) << true << -1 << "net 1 '' ''"_q
                                << "ETH0"_q;
    QTest::newRow("a blank") << QVariant(" "_q) << true << -1 << "net 1 '' ''"_q
                             << " "_q;
}

void tst_ConsoleNetwork::theStoredPortIsSelected()
{
    QFETCH(QVariant, stored);
    QFETCH(bool, isReported);
    QFETCH(int, expectedPort);
    QFETCH(QString, expectedNet);
    QFETCH(QString, expectedStored);
    if (stored.isValid())
        m_settings->store("netPort"_q, stored);
    if (isReported)
        reportBoth();
    m_panel->initParm();

    QCOMPARE(portButton(0)->group()->checkedId(), expectedPort);
    QCOMPARE(m_settings->onDisk("netPort"_q).toString(), expectedStored);
    QVERIFY(modeButton(ConsoleFloatWidget::Manual)->isChecked());
    const QStringList lines = m_journal->lines();
    QCOMPARE(lines.mid(0, 2), (QStringList{"ask 1"_q, "ask 0"_q}));
    QCOMPARE(m_journal->linesOf("net"_q), QStringList{expectedNet});
    QCOMPARE(m_journal->linesOf("address"_q) + m_journal->linesOf("mode"_q) + m_journal->linesOf("text"_q),
             QStringList());
    if (expectedPort < 0) {
        QCOMPARE(fieldTexts(), (QStringList{"..."_q, "..."_q, "..."_q}));
        return;
    }
    // What comes after it belongs to the mode button.
    const QString eth = expectedPort == 0 ? "eth2"_q : "eth0"_q;
    const int status = isReported ? expectedPort : 0;
    QCOMPARE(lines.mid(lines.indexOf(expectedNet) + 1, 2),
             (QStringList{"ask %1"_q.arg(expectedPort), "status %1 %2"_q.arg(eth).arg(status)}));
    QCOMPARE(fieldTexts(), !isReported ? unknownTexts() : expectedPort == 0 ? eth2Texts() : eth0Texts());
}

void tst_ConsoleNetwork::loadingAgainAsksAgain()
{
    m_panel->initParm();
    m_journal->takeLines();
    reportBoth();
    m_panel->initParm();
    QCOMPARE(m_journal->lines().mid(0, 3),
             (QStringList{"ask 1"_q, "ask 0"_q, "net 1 '192.168.1.13' '255.255.255.0'"_q}));
    QCOMPARE(fieldTexts(), eth0Texts());
}

void tst_ConsoleNetwork::aPortButtonShowsItsPort_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<bool>("isReported");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<QString>("expectedStored");
    QTest::addColumn<QStringList>("expectedFields");
    QTest::newRow("ETH2") << 0 << true << "ETH2"_q
                          << "eth2"_q << eth2Texts();
    QTest::newRow("ETH1") << 1 << true << "ETH1"_q
                          << "eth0"_q << eth0Texts();
    QTest::newRow("ETH2, not reported") << 0 << false << "ETH2"_q
                                        << "eth2"_q << unknownTexts();
    QTest::newRow("ETH1, not reported") << 1 << false << "ETH1"_q
                                        << "eth0"_q << unknownTexts();
}

void tst_ConsoleNetwork::aPortButtonShowsItsPort()
{
    QFETCH(int, port);
    QFETCH(bool, isReported);
    QFETCH(QString, expectedText);
    QFETCH(QString, expectedStored);
    QFETCH(QStringList, expectedFields);
    if (isReported)
        reportBoth();
    portButton(1 - port)->setChecked(true);
    m_journal->takeLines();

    QPushButton *button = portButton(port);
    QCOMPARE(button->text(), expectedText);
    QCOMPARE(button->property("WanType").toString(), expectedStored);
    QCOMPARE(button->group()->id(button), port);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(button->isChecked());
    QVERIFY(!portButton(1 - port)->isChecked());
    QCOMPARE(m_journal->takeLines(), QStringList{"ask %1"_q.arg(port)});
    QCOMPARE(fieldTexts(), expectedFields);
    QCOMPARE(m_settings->onDisk("netPort"_q).toString(), expectedStored);

    QTest::mouseClick(button, Qt::LeftButton); // it stays
    QVERIFY(button->isChecked());
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleNetwork::aPortButtonShowsWhatTheHostAnswersAtOnce()
{
    connect(m_panel.get(), &ConsoleFloatWidget::signalReqECDeviceIP, m_journal.get(),
            [this](quint8 port) { m_panel->updateECDeviceIP(port == 0 ? eth2Record() : eth0Record()); });
    portButton(1)->setChecked(true);
    QCOMPARE(fieldTexts(), eth0Texts());
    portButton(0)->setChecked(true);
    QCOMPARE(fieldTexts(), eth2Texts());
    QCOMPARE(m_journal->lines(), (QStringList{"ask 1"_q, "ask 0"_q}));
}

void tst_ConsoleNetwork::anUncheckedOrUnknownPortDoesNothing()
{
    reportBoth();
    m_panel->slotWANToggled(0, false);
    m_panel->slotWANToggled(1, false);
    m_panel->slotWANToggled(2, true);
    m_panel->slotWANToggled(-1, true);
    QCOMPARE(m_journal->lines(), QStringList());
    QCOMPARE(fieldTexts(), (QStringList{"..."_q, "..."_q, "..."_q}));
    QVERIFY(!m_settings->onDisk("netPort"_q).isValid());
}

void tst_ConsoleNetwork::aModeButtonSwitchesTheFields_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("expectedLines");
    for (const int mode : {0, 1}) {
        const QString name = mode == 0 ? "Manual"_q : "DHCP"_q;
        QTest::newRow(qPrintable(name + ", ETH2"_q))
            << 0 << mode << QStringList{"ask 0"_q, "status eth2 0"_q};
        QTest::newRow(qPrintable(name + ", ETH1"_q))
            << 1 << mode << QStringList{"ask 1"_q, "status eth0 1"_q};
        QTest::newRow(qPrintable(name + ", no port"_q)) << -1 << mode << QStringList();
    }
}

void tst_ConsoleNetwork::aModeButtonSwitchesTheFields()
{
    QFETCH(int, port);
    QFETCH(int, mode);
    QFETCH(QStringList, expectedLines);
    reportBoth();
    if (port >= 0)
        portButton(port)->setChecked(true);
    modeButton(1 - mode)->setChecked(true);
    const QStringList before{"1.1.1.1"_q, "2.2.2.2"_q, "3.3.3.3"_q};
    fill(before);
    m_journal->takeLines();

    QPushButton *button = modeButton(mode);
    QCOMPARE(button->group()->id(button), mode);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(button->isChecked());
    QVERIFY(button->isFlat());
    QVERIFY(!modeButton(1 - mode)->isFlat());
    const QList<IPLineEdit *> all = fields();
    for (const IPLineEdit *field : all)
        QCOMPARE(field->isEnabled(), mode == ConsoleFloatWidget::Manual);
    QCOMPARE(m_journal->lines(), expectedLines);
    QCOMPARE(fieldTexts(), port < 0 ? before : port == 0 ? eth2Texts() : eth0Texts());
    const QVariant stored = m_settings->onDisk("ethMode"_q);
    QCOMPARE(stored.isValid(), port >= 0);
    QCOMPARE(stored.toInt(), port >= 0 ? mode : 0);
}

void tst_ConsoleNetwork::anUncheckedModeButtonOnlyRises()
{
    reportBoth();
    portButton(1)->setChecked(true);
    m_journal->takeLines();
    for (const int mode : {0, 1}) {
        modeButton(mode)->setFlat(true);
        m_panel->slotInternetGroupToggled(mode, false);
        QVERIFY(!modeButton(mode)->isFlat());
    }
    m_panel->slotInternetGroupToggled(5, false);
    QCOMPARE(m_journal->lines(), QStringList());
    const QList<IPLineEdit *> all = fields();
    for (const IPLineEdit *field : all)
        QVERIFY(field->isEnabled());
    QVERIFY(!m_settings->onDisk("ethMode"_q).isValid());
}

void tst_ConsoleNetwork::anAddressIsWrittenIntoTheFields()
{
    m_panel->setNetParm(newTexts().at(0), newTexts().at(1), newTexts().at(2));
    QCOMPARE(fieldTexts(), newTexts());
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleNetwork::aKnownAddressIsWrittenAllTheSame()
{
    fill({"192.168.1.13"_q, "255.255.0.0"_q, "192.168.1.1"_q});
    m_panel->setNetParm("192.168.1.13"_q, "255.255.255.0"_q, "192.168.1.1"_q);
    QCOMPARE(fieldTexts(), eth0Texts());
    fill({"1.2.3.4"_q, "255.255.255.0"_q, "255.255.255.0"_q});
    m_panel->setNetParm("192.168.1.13"_q, "255.255.255.0"_q, "255.255.255.0"_q);
    QCOMPARE(fieldTexts().constFirst(), "192.168.1.13"_q);
    fill({"1.2.3.4"_q, "9.9.9.9"_q, "5.5.5.5"_q});
    m_panel->setNetParm("1.2.3.4"_q, "255.255.255.0"_q, "255.255.255.0"_q);
    QCOMPARE(fieldTexts(), (QStringList{"1.2.3.4"_q, "255.255.255.0"_q, "255.255.255.0"_q}));
}

// The mask is compared with the gateway's field, which hosts know.
void tst_ConsoleNetwork::aMaskLikeTheGatewayIsNotWritten()
{
    fill({"1.2.3.4"_q, "9.9.9.9"_q, "255.255.255.0"_q});
    QTest::ignoreMessage(QtDebugMsg, "Current ip not change");
    m_panel->setNetParm("1.2.3.4"_q, "255.255.255.0"_q, "255.255.255.0"_q);
    QCOMPARE(fieldTexts(), (QStringList{"1.2.3.4"_q, "9.9.9.9"_q, "255.255.255.0"_q}));
}

void tst_ConsoleNetwork::anAnswerDoesNotOverwriteTyping()
{
    reportBoth();
    portButton(1)->setChecked(true);
    QVERIFY(showActive());
    const QList<QLineEdit *> octets = fields().at(0)->findChildren<QLineEdit *>();
    QCOMPARE(octets.size(), 4);
    QTest::mouseClick(octets.at(3), Qt::LeftButton);
    QTRY_VERIFY(octets.at(3)->hasSelectedText());
    QTest::keyClicks(octets.at(3), "99"_q);
    const QStringList typed{"192.168.1.99"_q, "255.255.255.0"_q, "192.168.1.1"_q};
    QCOMPARE(fieldTexts(), typed);

    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(fieldTexts(), typed);
    portButton(0)->setFocus(); // typing has not ended, only paused
    QVERIFY(!octets.at(3)->hasFocus());
    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(fieldTexts(), typed);
    runElsewhere([this] { m_panel->updateECDeviceIP(eth0Record()); });
    QCoreApplication::processEvents();
    QCOMPARE(fieldTexts(), typed);
    m_panel->slotRefreshNetStatus();
    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(fieldTexts(), typed);
}

void tst_ConsoleNetwork::anAnswerDoesNotOverwriteAFocusedField_data()
{
    QTest::addColumn<int>("field");
    QTest::newRow("address") << 0;
    QTest::newRow("mask") << 1;
    QTest::newRow("gateway") << 2;
}

void tst_ConsoleNetwork::anAnswerDoesNotOverwriteAFocusedField()
{
    QFETCH(int, field);
    reportBoth();
    portButton(1)->setChecked(true);
    QVERIFY(showActive());
    fields().at(field)->setIPFocus();
    QVERIFY(fields().at(field)->isAncestorOf(QApplication::focusWidget()));
    const auto changed = addressRecord(1, 1, address(5, 6, 7, 8), UsualMask, address(5, 6, 7, 1));
    m_panel->updateECDeviceIP(changed);
    QCOMPARE(fieldTexts(), eth0Texts());
    portButton(1)->setFocus();
    m_panel->updateECDeviceIP(changed);
    QCOMPARE(fieldTexts(), (QStringList{"5.6.7.8"_q, "255.255.255.0"_q, "5.6.7.1"_q}));
}

void tst_ConsoleNetwork::anAnswerIsShownWhereTheFocusWasGiven()
{
    QVERIFY(showActive());
    m_panel->setNetInfoFocus(0);
    QVERIFY(fields().at(0)->isAncestorOf(QApplication::focusWidget()));
    m_panel->updateECDeviceIP(addressRecord(0, 1, address(5, 6, 7, 8), UsualMask, address(5, 6, 7, 1)));
    QCOMPARE(fieldTexts(), (QStringList{"5.6.7.8"_q, "255.255.255.0"_q, "5.6.7.1"_q}));

    QTest::keyClicks(QApplication::focusWidget(), "9"_q);
    m_panel->updateECDeviceIP(addressRecord(0, 1, address(1, 2, 3, 4), UsualMask, address(1, 2, 3, 1)));
    QCOMPARE(fieldTexts(), (QStringList{"9.6.7.8"_q, "255.255.255.0"_q, "5.6.7.1"_q}));
}

void tst_ConsoleNetwork::typedTextEndsWithAnotherPort()
{
    reportBoth();
    portButton(1)->setChecked(true);
    QVERIFY(showActive());
    fields().at(2)->setIPFocus();
    QTest::keyClicks(QApplication::focusWidget(), "77"_q);
    QCOMPARE(fieldTexts().at(2), "77.168.1.1"_q);
    QTest::mouseClick(portButton(0), Qt::LeftButton);
    QCOMPARE(fieldTexts(), eth2Texts());
    portButton(0)->setFocus();
    m_panel->updateECDeviceIP(addressRecord(0, 1, address(5, 6, 7, 8), UsualMask, address(5, 6, 7, 1)));
    QCOMPARE(fieldTexts(), (QStringList{"5.6.7.8"_q, "255.255.255.0"_q, "5.6.7.1"_q}));
}

void tst_ConsoleNetwork::theFieldsAreChecked_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<bool>("expected");
    QTest::newRow("the usual") << eth0Texts() << true;
    QTest::newRow("another network") << QStringList{"192.168.1.13"_q, "255.255.255.0"_q, "192.168.0.1"_q}
                                     << false;
    QTest::newRow("a wider mask") << QStringList{"192.168.1.13"_q, "255.255.0.0"_q, "192.168.0.1"_q} << true;
    QTest::newRow("no address") << QStringList{""_q, "255.255.255.0"_q, "192.168.0.1"_q} << false;
    QTest::newRow("no mask") << QStringList{"192.168.1.13"_q, ""_q, "192.168.0.1"_q} << false;
    QTest::newRow("no gateway") << QStringList{"192.168.1.13"_q, "255.255.255.0"_q, ""_q} << false;
}

void tst_ConsoleNetwork::theFieldsAreChecked()
{
    QFETCH(QStringList, texts);
    QFETCH(bool, expected);
    fill(texts);
    QCOMPARE(m_panel->isInternetInfoVaild(), expected);
}

void tst_ConsoleNetwork::applyWithoutAPortOnlyWarns()
{
    fill(newTexts());
    const BoxAnswerer answerer;
    const LogKeeper log;
    apply();
    QCOMPARE(log.lines().size(), 1);
    QVERIFY2(log.lines().constFirst().startsWith("Current selected wan type is error : "_q) &&
                 log.lines().constFirst().endsWith("-1"_q),
             qPrintable(log.lines().constFirst()));
    QCOMPARE(m_journal->lines(), QStringList());
    QVERIFY(answerer.boxes.isEmpty());
    QCOMPARE(busyIndicators(), 0);
    QVERIFY(!m_settings->onDisk("k7ip"_q).isValid());
}

void tst_ConsoleNetwork::aWrongAddressIsRefused_data()
{
    QTest::addColumn<int>("mode"); // -1 is neither button
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<int>("emptyField"); // whose last octet is taken away
    QTest::addColumn<QString>("expectedReason");
    const QString gateway = "The default gateway is not on the same network segment (subnet) defined by IP "
                            "address and subnet mask."_q;
    const QString segment = "Can't set the same segment, please retry."_q;
    const QStringList wrong{"192.168.1.13"_q, "255.255.255.0"_q, "192.168.0.1"_q};
    for (const int mode : {-1, 0}) {
        const QString name = mode < 0 ? "no mode, "_q : "Manual, "_q;
        QTest::newRow(qPrintable(name + "another network"_q)) << mode << wrong << -1 << gateway;
        QTest::newRow(qPrintable(name + "address of three"_q)) << mode << newTexts() << 0 << gateway;
        QTest::newRow(qPrintable(name + "mask of three"_q)) << mode << newTexts() << 1 << gateway;
        QTest::newRow(qPrintable(name + "gateway of three"_q)) << mode << newTexts() << 2 << gateway;
        QTest::newRow(qPrintable(name + "nothing"_q))
            << mode << QStringList{""_q, ""_q, ""_q} << -1 << gateway;
    }
    QTest::newRow("DHCP, address of three") << 1 << newTexts() << 0 << segment;
    QTest::newRow("DHCP, mask of three") << 1 << newTexts() << 1 << segment;
    QTest::newRow("DHCP, nothing") << 1 << QStringList{""_q, ""_q, ""_q} << -1 << segment;
}

void tst_ConsoleNetwork::aWrongAddressIsRefused()
{
    QFETCH(int, mode);
    QFETCH(QStringList, texts);
    QFETCH(int, emptyField);
    QFETCH(QString, expectedReason);
    reportBoth();
    portButton(1)->setChecked(true);
    if (mode >= 0)
        modeButton(mode)->setChecked(true);
    fill(texts);
    if (emptyField >= 0)
        fields().at(emptyField)->findChildren<QLineEdit *>().constLast()->clear();
    const QStringList shown = fieldTexts();
    m_journal->takeLines();

    const BoxAnswerer answerer;
    apply();
    QCOMPARE(answerer.boxes.size(), 1);
    const BoxAnswerer::Seen &box = answerer.boxes.constFirst();
    QCOMPARE(box.title, "Tip"_q);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.text, "Fail to set network information."_q);
    QCOMPARE(box.informativeText, expectedReason);
    QCOMPARE(box.buttons, QStringList{"sure"_q});
    QCOMPARE(box.defaultButton, "sure"_q);
    QVERIFY(box.hasDefaultOk);
    QCOMPARE(box.parent, nullptr);

    QCOMPARE(m_journal->lines(), QStringList());
    QCOMPARE(fieldTexts(), shown);
    QCOMPARE(busyIndicators(), 0);
    for (const QString &key : {"k7ip"_q, "k7mask"_q, "k7gateway"_q})
        QVERIFY(!m_settings->onDisk(key).isValid());
    QCOMPARE(tableTexts(1), eth0Texts() + QStringList{"1"_q});
}

void tst_ConsoleNetwork::aRefusalMayBeTheLastOfThePanel()
{
    const BoxAnswerer answerer([this] { m_panel.reset(); });
    apply(1, {""_q, ""_q, ""_q});
    QCOMPARE(answerer.boxes.size(), 1);
    QVERIFY(!m_panel);
}

void tst_ConsoleNetwork::aGoodAddressIsSent_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("isReported");
    QTest::addColumn<QStringList>("texts");
    const QStringList otherNetwork{"192.168.1.13"_q, "255.255.255.0"_q, "192.168.0.1"_q};
    const QStringList noGateway{"192.168.1.13"_q, "255.255.255.0"_q, "..."_q};
    QTest::newRow("ETH2") << 0 << 0 << true << newTexts();
    QTest::newRow("ETH1") << 1 << 0 << true << newTexts();
    QTest::newRow("ETH2, no mode") << 0 << -1 << true << newTexts();
    QTest::newRow("ETH2, never reported") << 0 << 0 << false << newTexts();
    QTest::newRow("ETH1, never reported") << 1 << 0 << false << newTexts();
    QTest::newRow("ETH1 on the other's network") << 1 << 0 << true << eth2Texts();
    QTest::newRow("ETH2 on the other's network") << 0 << 0 << true << eth0Texts();
    QTest::newRow("DHCP, ETH2") << 0 << 1 << true << newTexts();
    QTest::newRow("DHCP, ETH1") << 1 << 1 << true << newTexts();
    QTest::newRow("DHCP, gateway elsewhere") << 1 << 1 << true << otherNetwork;
    QTest::newRow("DHCP, no gateway") << 1 << 1 << true << noGateway;
}

void tst_ConsoleNetwork::aGoodAddressIsSent()
{
    QFETCH(int, port);
    QFETCH(int, mode);
    QFETCH(bool, isReported);
    QFETCH(QStringList, texts);
    if (isReported)
        reportBoth();
    portButton(port)->setChecked(true);
    if (mode >= 0)
        modeButton(mode)->setChecked(true);
    fill(texts);
    m_journal->takeLines();
    HeldWorker worker(m_panel.get());
    const BoxAnswerer answerer;
    apply();

    const QString eth = port == 0 ? "eth2"_q : "eth0"_q;
    QCOMPARE(busyText(), "loading , please wait."_q);
    QCOMPARE(m_journal->lines().mid(0, 2),
             (QStringList{"address %1 %2"_q.arg(eth, texts.join(QLatin1Char(' '))),
                          "text %1 %2"_q.arg(port).arg(texts.at(0))}));
    QCOMPARE(m_settings->onDisk("k7ip"_q).toString(), texts.at(0));
    QCOMPARE(m_settings->onDisk("k7mask"_q).toString(), texts.at(1));
    QCOMPARE(m_settings->onDisk("k7gateway"_q).toString(), texts.at(2));
    QVERIFY(worker.hasStopped());
    // DHCP whatever the buttons show.
    QCOMPARE(m_journal->lines().mid(2), QStringList{"mode %1 1 elsewhere"_q.arg(port)});
    QCOMPARE(m_journal->linesOf("ask"_q), QStringList());

    worker.letGo();
    QTRY_COMPARE(busyText(), QString());
    QCOMPARE(m_journal->lines().mid(3), QStringList{"ask %1"_q.arg(port)});
    QStringList kept = texts;
    kept.replaceInStrings("..."_q, "0.0.0.0"_q);
    QCOMPARE(fieldTexts(), kept);
    QCOMPARE(tableTexts(port), kept + QStringList{QString::number(isReported && port == 1)});
    QCOMPARE(tableTexts(1 - port), !isReported ? (QStringList{"-"_q, "-"_q, "-"_q, "-1"_q})
                                   : port == 0 ? eth0Texts() + QStringList{"1"_q}
                                               : eth2Texts() + QStringList{"0"_q});
    QVERIFY(answerer.boxes.isEmpty());
    // A port that only Apply knew goes to the strip like any other.
    m_panel->slotRefreshNetStatus();
    m_journal->takeLines();
    m_panel->updateECDeviceIP(addressRecord(7, 0, 0, 0, 0));
    QVERIFY(m_journal->lines().contains("text %1 %2"_q.arg(port).arg(texts.at(0))));
}

void tst_ConsoleNetwork::applyTellsInOrder()
{
    reportBoth();
    portButton(1)->setChecked(true);
    fill(newTexts());
    QStringList tableAtAddress;
    QStringList tableAtText;
    QVariant diskAtText;
    QString busyAtText = "?"_q;
    const QObject scope; // of what the connections capture
    connect(m_panel.get(), &ConsoleFloatWidget::signalUpdateSystemIP, &scope,
            [&, this] { tableAtAddress = tableTexts(1); });
    connect(m_panel.get(), &ConsoleFloatWidget::signalUpdateIPText, &scope, [&, this] {
        tableAtText = tableTexts(1);
        diskAtText = m_settings->onDisk("k7ip"_q);
        busyAtText = busyText();
    });
    apply();
    QCOMPARE(tableAtAddress, eth0Texts() + QStringList{"1"_q});
    QCOMPARE(tableAtText, newTexts() + QStringList{"1"_q});
    QVERIFY(!diskAtText.isValid());
    QCOMPARE(busyAtText, QString());
    QTRY_COMPARE(busyText(), QString());
}

void tst_ConsoleNetwork::anUnchangedAddressIsAppliedAllTheSame()
{
    reportBoth();
    portButton(1)->setChecked(true);
    QCOMPARE(fieldTexts(), eth0Texts());
    m_journal->takeLines();
    QTest::ignoreMessage(QtDebugMsg, "Current ip not change");
    apply();
    QTRY_COMPARE(m_journal->lines(),
                 (QStringList{"address eth0 192.168.1.13 255.255.255.0 192.168.1.1"_q,
                              "text 1 192.168.1.13"_q, "mode 1 1 elsewhere"_q, "ask 1"_q}));
    QCOMPARE(busyText(), QString());
}

void tst_ConsoleNetwork::theWorkerIsOneThreadForAll()
{
    QMutex mutex;
    QList<QThread *> threads;
    const QObject scope; // of what the connections capture
    connect(
        m_panel.get(), &ConsoleFloatWidget::signalIPModeChanged, &scope,
        [&] {
            const QMutexLocker locker(&mutex);
            threads << QThread::currentThread();
        },
        Qt::DirectConnection);
    const int children = m_panel->children().size();
    for (int i = 0; i < 3; ++i) {
        apply(i % 2, newTexts());
        QTRY_COMPARE(busyText(), QString());
    }
    QCOMPARE(threads.size(), 3);
    QCOMPARE(threads.at(1), threads.at(0));
    QCOMPARE(threads.at(2), threads.at(0));
    const auto *worker = qobject_cast<InternetThread *>(threads.at(0));
    QVERIFY(worker);
    QCOMPARE(worker->thread(), m_panel->thread());
    QCOMPARE(worker->parent(), nullptr);
    QCOMPARE(m_panel->children().size(), children);
    QCOMPARE(busyIndicators(), 1);
    QCOMPARE(m_journal->linesOf("mode"_q),
             (QStringList{"mode 0 1 elsewhere"_q, "mode 1 1 elsewhere"_q, "mode 0 1 elsewhere"_q}));
}

void tst_ConsoleNetwork::aKnownInterfaceIsAskedForItsMode_data()
{
    QTest::addColumn<QString>("eth");
    QTest::addColumn<int>("style");
    QTest::addColumn<QStringList>("expectedLines");
    QTest::newRow("eth0, Manual") << "eth0"_q << 0 << QStringList{"mode 1 0"_q};
    QTest::newRow("eth0, DHCP") << "eth0"_q << 1 << QStringList{"mode 1 1"_q};
    QTest::newRow("eth2, Manual") << "eth2"_q << 0 << QStringList{"mode 0 0"_q};
    QTest::newRow("eth2, DHCP") << "eth2"_q << 1 << QStringList{"mode 0 1"_q};
    QTest::newRow("cut to 8 bits") << "eth2"_q << 0x1ff << QStringList{"mode 0 255"_q};
    QTest::newRow("eth1") << "eth1"_q << 1 << QStringList();
    QTest::newRow("upper case") << "ETH0"_q << 1 << QStringList();
    QTest::newRow("more") << "eth00"_q << 1 << QStringList();
    QTest::newRow("no name") << QString() << 1 << QStringList();
}

void tst_ConsoleNetwork::aKnownInterfaceIsAskedForItsMode()
{
    QFETCH(QString, eth);
    QFETCH(int, style);
    QFETCH(QStringList, expectedLines);
    QCOMPARE(m_panel->setETHMode(eth, style), 1);
    QCOMPARE(m_journal->takeLines(), expectedLines);
    runElsewhere([&] { QCOMPARE(m_panel->setETHMode(eth, style), 1); });
    for (QString &line : expectedLines)
        line += " elsewhere"_q;
    QCOMPARE(m_journal->lines(), expectedLines);
}

void tst_ConsoleNetwork::completionShowsThePort()
{
    reportBoth();
    HeldWorker worker(m_panel.get());
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    // Meanwhile the console has taken another address than it was told.
    m_panel->slotRefreshNetStatus();
    m_panel->updateECDeviceIP(addressRecord(0, 1, address(5, 6, 7, 8), UsualMask, address(5, 6, 7, 1)));
    QCOMPARE(fieldTexts(), newTexts());
    worker.letGo();
    QTRY_COMPARE(fieldTexts(), (QStringList{"5.6.7.8"_q, "255.255.255.0"_q, "5.6.7.1"_q}));
    QCOMPARE(busyText(), QString());
    // What was asked then is meant for the fields again.
    m_panel->updateECDeviceIP(eth2Record());
    QCOMPARE(fieldTexts(), eth2Texts());
}

void tst_ConsoleNetwork::completionLeavesAnotherPortAlone()
{
    reportBoth();
    HeldWorker worker(m_panel.get());
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    portButton(1)->setChecked(true);
    m_journal->takeLines();
    fill({"9.9.9.9"_q, "9.9.9.9"_q, "9.9.9.9"_q});
    worker.letGo();
    QTRY_COMPARE(busyText(), QString());
    QCOMPARE(m_journal->lines(), QStringList{"ask 0"_q});
    QCOMPARE(fieldTexts(), (QStringList{"9.9.9.9"_q, "9.9.9.9"_q, "9.9.9.9"_q}));
}

void tst_ConsoleNetwork::applyEndsTyping()
{
    reportBoth();
    portButton(1)->setChecked(true);
    QVERIFY(showActive());
    fields().at(0)->findChildren<QLineEdit *>().constLast()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    QTest::keyClicks(QApplication::focusWidget(), "7"_q);
    QCOMPARE(fieldTexts().at(0), "192.168.1.137"_q);
    child("pushButton_apply"_q)->setFocus();
    apply();
    QTRY_COMPARE(busyText(), QString());
    m_panel->updateECDeviceIP(eth0Record());
    QCOMPARE(fieldTexts(), eth0Texts());
}

void tst_ConsoleNetwork::theDelaysAreTheConsoles()
{
    const ConsoleFloatWidget::Delays delays;
    QCOMPARE(delays.networkTimeout, 90000);
    QCOMPARE(delays.timeSetting, 3000);
}

void tst_ConsoleNetwork::aSilentConsoleTimesOut()
{
    m_panel->setDelays({30, 0});
    HeldWorker worker(m_panel.get());
    modeButton(ConsoleFloatWidget::DHCP)->setChecked(true);
    bool isManualMeanwhile = true;
    QString busyMeanwhile = "?"_q;
    const BoxAnswerer answerer([&, this] {
        isManualMeanwhile = modeButton(ConsoleFloatWidget::Manual)->isChecked();
        busyMeanwhile = busyText();
    });
    apply(0, newTexts());
    QCOMPARE(busyText(), "loading , please wait."_q);
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_VERIFY(modeButton(ConsoleFloatWidget::Manual)->isChecked());
    const BoxAnswerer::Seen &box = answerer.boxes.constFirst();
    QCOMPARE(box.title, "Remind"_q);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.text, "Getting network configuration timeout."_q);
    QCOMPARE(box.informativeText, QString());
    QCOMPARE(box.buttons, QStringList{"OK"_q});
    QVERIFY(!isManualMeanwhile);
    QCOMPARE(busyMeanwhile, QString());
    QCOMPARE(busyText(), QString());
}

void tst_ConsoleNetwork::completionStopsTheTimeOut()
{
    m_panel->setDelays({100, 0});
    modeButton(ConsoleFloatWidget::DHCP)->setChecked(true);
    const BoxAnswerer answerer;
    apply(1, newTexts());
    QTRY_COMPARE(busyText(), QString());
    QCOMPARE(m_journal->linesOf("mode"_q).size(), 1);
    m_journal->takeLines();
    QVERIFY(letPass(200));
    QVERIFY(answerer.boxes.isEmpty());
    QVERIFY(modeButton(ConsoleFloatWidget::DHCP)->isChecked());
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleNetwork::lateCompletionChangesNothing()
{
    reportBoth();
    m_panel->setDelays({30, 0});
    modeButton(ConsoleFloatWidget::Manual)->setChecked(true);
    const BoxAnswerer answerer;
    HeldWorker worker(m_panel.get());
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    m_panel->slotRefreshNetStatus();
    m_panel->updateECDeviceIP(eth2Record());
    const QStringList other{"9.9.9.9"_q, "9.9.9.9"_q, "9.9.9.9"_q};
    fill(other);
    m_journal->takeLines();
    worker.letGo();
    QVERIFY(letPass(100));
    QCOMPARE(m_journal->lines(), QStringList());
    QCOMPARE(fieldTexts(), other);
    QCOMPARE(answerer.boxes.size(), 1);
    QCOMPARE(busyText(), QString());

    // By name and too late, as by the worker.
    m_panel->slotSetEthModeFinished("eth2"_q, 1);
    QCOMPARE(fieldTexts(), other);
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleNetwork::aSecondApplyWaitsForTheFirst()
{
    HeldWorker worker(m_panel.get());
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    m_journal->takeLines();
    portButton(1)->setChecked(true);
    fill(eth0Texts());
    m_panel->slotInternetInfoChanged();
    QCOMPARE(m_journal->linesOf("address"_q),
             QStringList{"address eth0 192.168.1.13 255.255.255.0 192.168.1.1"_q});
    QVERIFY(letPass(20));
    QCOMPARE(m_journal->linesOf("mode"_q), QStringList());
    m_journal->takeLines();

    worker.letGo();
    QVERIFY(worker.hasStopped());
    QTRY_COMPARE(m_journal->linesOf("ask"_q), QStringList{"ask 0"_q}); // the first has ended
    QCOMPARE(m_journal->linesOf("mode"_q), QStringList{"mode 1 1 elsewhere"_q});
    QCOMPARE(busyText(), "loading , please wait."_q);
    QCOMPARE(busyIndicators(), 1);
    worker.letGo();
    QTRY_COMPARE(busyText(), QString());
    QCOMPARE(m_journal->linesOf("ask"_q), (QStringList{"ask 0"_q, "ask 1"_q}));
    QCOMPARE(m_journal->linesOf("mode"_q).size(), 1);
    QCOMPARE(fieldTexts(), eth0Texts());
}

void tst_ConsoleNetwork::theFirstOfTwoMayTimeOut()
{
    HeldWorker worker(m_panel.get());
    QString busyMeanwhile;
    const BoxAnswerer answerer([&] { busyMeanwhile = busyText(); });
    m_panel->setDelays({150, 0});
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    m_panel->setDelays({60000, 0});
    m_panel->slotInternetInfoChanged();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_VERIFY(!qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
    QCOMPARE(busyMeanwhile, "loading , please wait."_q);
    QCOMPARE(busyText(), "loading , please wait."_q);

    worker.letGo(2);
    QTRY_COMPARE(busyText(), QString());
    QCOMPARE(m_journal->linesOf("mode"_q), (QStringList{"mode 0 1 elsewhere"_q, "mode 0 1 elsewhere"_q}));
    QCOMPARE(answerer.boxes.size(), 1);
}

void tst_ConsoleNetwork::lateCompletionOfTheFirstOfTwoChangesNothing()
{
    reportBoth();
    HeldWorker worker(m_panel.get());
    const BoxAnswerer answerer;
    m_panel->setDelays({150, 0});
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    m_panel->setDelays({60000, 0});
    m_panel->slotInternetInfoChanged();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_VERIFY(!qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
    const QStringList other{"9.9.9.9"_q, "9.9.9.9"_q, "9.9.9.9"_q};
    fill(other);
    m_journal->takeLines();

    worker.letGo();
    QVERIFY(worker.hasStopped()); // the second
    QVERIFY(letPass(20));
    QCOMPARE(m_journal->linesOf("ask"_q), QStringList());
    QCOMPARE(m_journal->linesOf("mode"_q), QStringList{"mode 0 1 elsewhere"_q});
    QCOMPARE(fieldTexts(), other);
    QCOMPARE(busyText(), "loading , please wait."_q);
    worker.letGo();
    QTRY_COMPARE(busyText(), QString());
    QCOMPARE(fieldTexts(), newTexts());
}

void tst_ConsoleNetwork::theSecondOfTwoMayTimeOut()
{
    HeldWorker worker(m_panel.get());
    const BoxAnswerer answerer;
    m_panel->setDelays({500, 0});
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    m_panel->setDelays({30, 0});
    m_panel->slotInternetInfoChanged();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_COMPARE(busyText(), QString()); // it goes with the last one
    QVERIFY(letPass(600));
    QCOMPARE(answerer.boxes.size(), 1); // nothing is waited for any more
    worker.letGo(2);
    QTRY_COMPARE(m_journal->linesOf("mode"_q).size(), 2);
    QVERIFY(letPass(50));
    QCOMPARE(answerer.boxes.size(), 1);
    QCOMPARE(busyText(), QString());
}

void tst_ConsoleNetwork::theSecondOfTwoMayTimeOutAfterTheFirstHasEnded()
{
    HeldWorker worker(m_panel.get());
    const BoxAnswerer answerer;
    apply(0, newTexts());
    QVERIFY(worker.hasStopped());
    m_panel->setDelays({300, 0});
    m_panel->slotInternetInfoChanged();
    worker.letGo();
    QVERIFY(worker.hasStopped());
    QTRY_COMPARE(m_journal->linesOf("ask"_q).size(), 2); // of the port's button, and of the first's end
    QCOMPARE(answerer.boxes.size(), 0);
    QCOMPARE(busyText(), "loading , please wait."_q);
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_COMPARE(busyText(), QString());
}

void tst_ConsoleNetwork::applyAfterATimeOutStartsAnew()
{
    reportBoth();
    HeldWorker worker(m_panel.get());
    const BoxAnswerer answerer;
    m_panel->setDelays({30, 0});
    apply(0, newTexts());
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    worker.letGo(1000);
    QTRY_COMPARE(m_journal->linesOf("mode"_q).size(), 1);
    QVERIFY(letPass(50));

    m_panel->setDelays({60000, 0});
    m_journal->takeLines();
    apply(1, newTexts());
    QCOMPARE(busyText(), "loading , please wait."_q);
    QTRY_COMPARE(busyText(), QString());
    QCOMPARE(m_journal->lines().constLast(), "ask 1"_q);
    QCOMPARE(m_journal->linesOf("mode"_q), QStringList{"mode 1 1 elsewhere"_q});
    QCOMPARE(answerer.boxes.size(), 1);
}

void tst_ConsoleNetwork::thePanelMayGoWhileTheTimeOutIsShown()
{
    m_panel->setDelays({30, 0});
    HeldWorker worker(m_panel.get());
    const BoxAnswerer answerer([&, this] {
        worker.letGo();
        m_panel.reset();
    });
    apply(0, newTexts());
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QVERIFY(!m_panel);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QCoreApplication::processEvents();
}

void tst_ConsoleNetwork::thePanelWaitsForItsWorker()
{
    std::atomic<bool> hasEnded{false};
    QSemaphore isRunning;
    const QObject scope; // of what the connections capture
    connect(
        m_panel.get(), &ConsoleFloatWidget::signalIPModeChanged, &scope,
        [&] {
            isRunning.release();
            QThread::msleep(50); // destroying has begun by then
            hasEnded = true;
        },
        Qt::DirectConnection);
    apply(0, newTexts());
    QVERIFY(isRunning.tryAcquire(1, 5000));
    m_panel.reset();
    QVERIFY(hasEnded);
    m_journal->takeLines();
    QCoreApplication::processEvents();
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleNetwork::thePanelDropsTheApplyThatWaits()
{
    QSemaphore isRunning;
    const QObject scope; // of what the connections capture
    connect(
        m_panel.get(), &ConsoleFloatWidget::signalIPModeChanged, &scope,
        [&] {
            isRunning.release();
            QThread::msleep(50); // destroying has begun by then
        },
        Qt::DirectConnection);
    apply(0, newTexts());
    QVERIFY(isRunning.tryAcquire(1, 5000));
    portButton(1)->setChecked(true);
    fill(newTexts());
    m_panel->slotInternetInfoChanged();
    m_panel.reset();
    QCoreApplication::processEvents();
    QCOMPARE(m_journal->linesOf("mode"_q), QStringList{"mode 0 1 elsewhere"_q});
}

void tst_ConsoleNetwork::nothingIsToldOnceThePanelHasGone()
{
    auto button = std::make_unique<FloatWidgetWidthButton>(nullptr);
    auto *panel = button->findChild<ConsoleFloatWidget *>();
    QVERIFY(panel);
    QObject host;
    int late = 0;
    connect(button.get(), &FloatWidgetWidthButton::signalIPModeChanged, &host, [&late] { ++late; });
    HeldWorker worker(panel);
    panel->findChild<QPushButton *>("pushButton_gigabit"_q)->setChecked(true);
    for (const QString &name : {"lineEdit_IP"_q, "lineEdit_mask"_q, "lineEdit_gateWay"_q})
        panel->findChild<IPLineEdit *>(name)->setText("1.1.1.1"_q);
    panel->slotInternetInfoChanged();
    QVERIFY(worker.hasStopped());
    worker.letGo();
    button.reset();
    QCoreApplication::processEvents();
    QCOMPARE(late, 0);
}

void tst_ConsoleNetwork::theIndicatorGoesWithThePanel()
{
    HeldWorker worker(m_panel.get());
    apply(0, newTexts());
    QCOMPARE(busyIndicators(), 1);
    worker.letGo();
    m_panel.reset();
    QCOMPARE(busyIndicators(), 0);
}

QTEST_MAIN(tst_ConsoleNetwork)

#include "tst_consolenetwork.moc"
