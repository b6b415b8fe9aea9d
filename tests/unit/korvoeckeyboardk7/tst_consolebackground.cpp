// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "consolepanel.h"
#include "floatwidgetwidthbutton.h"
#include "support.h"

#include <QTest>
#include <QThread>

#include <atomic>
#include <functional>
#include <random>
#include <vector>

using namespace Korvo;
using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Internal::FloatWidgetWidthButton;

namespace {

/// Calls a function again and again, until it goes or has done enough.
class Repeater : public QThread
{
public:
    explicit Repeater(std::function<void(int)> function)
        : m_function(std::move(function))
    {
        start();
    }
    ~Repeater() override
    {
        m_isLeaving = true;
        wait();
    }

private:
    void run() override
    {
        for (int i = 0; i < 200 && !m_isLeaving; ++i) {
            m_function(i);
            usleep(200); // or the GUI thread comes to nothing else
        }
    }

    const std::function<void(int)> m_function;
    std::atomic<bool> m_isLeaving{false};
};

} // namespace

/// All that a panel does in the background at once, with an end at any moment.
class tst_ConsoleBackground : public QObject
{
    Q_OBJECT

private slots:
    void aPanelGoesAtAnyMoment_data();
    void aPanelGoesAtAnyMoment();
};

void tst_ConsoleBackground::aPanelGoesAtAnyMoment_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 50; ++seed)
        QTest::newRow(qPrintable("seed %1"_q.arg(seed))) << seed;
}

void tst_ConsoleBackground::aPanelGoesAtAnyMoment()
{
    QFETCH(quint32, seed);
    std::mt19937 random(seed);
    const SettingsFolder settings;
    const BoxAnswerer answerer;
    auto button = std::make_unique<FloatWidgetWidthButton>(nullptr);
    auto *panel = button->findChild<ConsoleFloatWidget *>();
    QVERIFY(panel);
    panel->setDelays({int(random() % 20), int(random() % 20)});
    button->initParm();

    QObject host;
    bool hasGone = false;
    int late = 0;
    const auto count = [&](auto signal) { connect(button.get(), signal, &host, [&] { late += hasGone; }); };
    count(&FloatWidgetWidthButton::signalIPModeChanged);
    count(&FloatWidgetWidthButton::signalUpdateSystemTime);
    count(&FloatWidgetWidthButton::signalTimeTypeChanged);
    count(&FloatWidgetWidthButton::signalReqECDeviceIP);
    count(&FloatWidgetWidthButton::signal_ipChanged);
    count(&FloatWidgetWidthButton::signal_netStatusChanged);

    std::vector<std::unique_ptr<Repeater>> others;
    for (const quint8 port : {quint8(0), quint8(1)}) {
        others.push_back(std::make_unique<Repeater>([panel, port](int i) {
            panel->updateECDeviceIP(addressRecord(port, i % 2, address(10, port, i / 256 % 256, i % 256),
                                                  address(255, 255, 0, 0), address(10, port, 0, 1)));
        }));
    }

    const int steps = int(random() % 40);
    for (int step = 0; step < steps; ++step) {
        const int port = int(random() % 2);
        switch (random() % 8) {
        case 0:
            panel->findChild<QPushButton *>(port ? "pushButton_gigabit"_q : "pushButton_hundred"_q)
                ->setChecked(true);
            break;
        case 1:
            panel->setNetParm("10.1.2.3"_q, "255.255.0.0"_q, "10.1.0.1"_q);
            panel->slotInternetInfoChanged();
            break;
        case 2:
            panel->slotTimeChanged();
            break;
        case 3:
            panel->slotRefreshNetStatus();
            break;
        case 4:
            panel->refreshNetStatus();
            break;
        case 5:
            panel->slotTimeDisplayChanged(port, true);
            break;
        default:
            QCoreApplication::processEvents();
            break;
        }
    }

    // Whoever delivers records stops before the panel goes; all else goes on.
    others.clear();
    button.reset();
    hasGone = true;
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(late, 0);
    QCOMPARE(busyIndicators(), 0);
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(tst_ConsoleBackground)

#include "tst_consolebackground.moc"
