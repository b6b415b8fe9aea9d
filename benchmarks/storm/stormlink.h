// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "stormrecords.h"

#include <devicelink.h>

#include <QSemaphore>
#include <QThread>

#include <atomic>

/// A link that reports many records from a thread of its own, and takes no notice of the console.
class StormLink : public K7Host::DeviceLink
{
    Q_OBJECT

public:
    struct Plan
    {
        qint64 count = 0;
        /// So many a second, each at its time; with 0 see \a step.
        double rate = 0;
        /// So many at once, whenever goOn() was called for the ones before.
        int step = 1;
        quint32 seed = 1;
    };

    explicit StormLink(const Plan &plan);
    ~StormLink() override;

    void start() { m_thread.start(); }
    void goOn() { m_goneOn.release(); }

    // Once it has finished.
    qint64 sentCount() const { return m_sentCount; }
    /// How long after its time the last of all to come was handed over, in ns; 0 without a rate.
    qint64 worstDelay() const { return m_worstDelay; }
    const StormRecords &records() const { return m_records; }

    void refresh() override;
    void consoleClosed() override;
    void keyPressed(quint32 /*code*/) override {}
    void keyReleased(quint32 /*code*/) override {}
    void leverMoved(quint16 /*value*/, bool /*isBottomToTop*/) override {}
    void lampChanged(K7Host::Lamp /*lamp*/, bool /*isOn*/, quint8 /*brightness*/) override {}
    void peripheralScreensChanged(int /*count*/, int /*operationScreen*/,
                                  const QVector<quint16> & /*sizes*/) override
    {
    }
    void addressesRequested(quint8 /*port*/) override {}
    void addressesEntered(const QString & /*interfaceName*/, const QString & /*ip*/, const QString & /*mask*/,
                          const QString & /*gateway*/) override
    {
    }
    void addressChangeRequested(quint8 /*port*/, quint8 /*mode*/) override {}
    void clockSet(const QString & /*date*/, const QString & /*time*/) override {}
    void timeTypeChanged(int /*type*/) override {}
    void restartRequested(quint8 /*type*/) override {}

Q_SIGNALS:
    // In the link's thread, behind the records.
    void stepSent();
    void finished();

private:
    void send();
    void sendAtTheirTimes();
    void sendInSteps();
    void report(const K7Host::HostCall &call);

    class Thread : public QThread
    {
    public:
        explicit Thread(StormLink *link)
            : m_link(link)
        {
        }
        void run() override { m_link->send(); }

    private:
        StormLink *const m_link;
    };

    const Plan m_plan;
    StormRecords m_records; // of the thread while it runs
    qint64 m_sentCount = 0;
    qint64 m_worstDelay = 0;
    std::atomic<bool> m_isClosed{false};
    QSemaphore m_goneOn;
    Thread m_thread;
};
