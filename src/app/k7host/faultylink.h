// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "devicelink.h"
#include "linkfaults.h"

#include <memory>

namespace K7Host {

/// Stands between a console and another link, and is a bad link at times. Events pass unharmed and at once.
/// So do records in good times; in bad ones they suffer the faults. Bad and good times take turns from the
/// first refresh() until consoleClosed(); nothing is emitted at any other time.
///
/// Records that come late, and those of a storm, are emitted on the GUI thread, all others in the thread that
/// they come from. All chance comes from one generator with a seed: the same records in the same order meet
/// the same fate. A storm's count as well.
///
/// GUI thread only, but the link's records may come from any thread.
class FaultyLink : public DeviceLink
{
    Q_OBJECT

public:
    static constexpr int BadMs = 2000;
    static constexpr int GoodMs = 2000;
    /// Of a storm: so often there is a burst, of so many records at most. Never more than 5000 a second.
    static constexpr int BurstMs = 20;
    static constexpr int MaxBurst = 100;
    /// The number of late records under way. What comes on top of them is lost.
    static constexpr int MaxUnderWay = 4096;
    /// So many late records are delivered in a row before other events have their turn.
    static constexpr int MaxInARow = 64;

    /// \a link is not null and outlives this one.
    FaultyLink(DeviceLink *link, LinkFaults faults, quint32 seed, QObject *parent = nullptr);
    /// Closes the console, as far as the other link is concerned.
    ~FaultyLink() override;

    bool isBad() const;
    /// The number of records that are still to come, 0 to MaxUnderWay.
    int underWay() const;

    void keyPressed(quint32 code) override;
    void keyReleased(quint32 code) override;
    void refresh() override;
    void consoleClosed() override;
    void leverMoved(quint16 value, bool isBottomToTop) override;
    void lampChanged(K7Host::Lamp lamp, bool isOn, quint8 brightness) override;
    void peripheralScreensChanged(int count, int operationScreen, const QVector<quint16> &sizes) override;
    void addressesRequested(quint8 port) override;
    void addressesEntered(const QString &interfaceName, const QString &ip, const QString &mask,
                          const QString &gateway) override;
    void addressChangeRequested(quint8 port, quint8 mode) override;
    void clockSet(const QString &date, const QString &time) override;
    void timeTypeChanged(int type) override;
    void restartRequested(quint8 type) override;

public Q_SLOTS:
    /// Bad times begin, anew when they have. Ignored without faults and without a console.
    void fail();
    /// Good times begin: what is under way is discarded, and the other link sends every record again. Once
    /// this returns, nothing harmed is emitted in any thread. Ignored without a console.
    void recover();

private Q_SLOTS:
    void takeTurns();
    void awaitNext();
    void deliverDue();
    void blow();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace K7Host
