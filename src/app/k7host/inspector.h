// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traffictext.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QList>
#include <QWeakPointer>
#include <QWidget>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QModelIndex;
QT_END_NAMESPACE

namespace Ui {
class Inspector;
}

namespace K7Host {

class TrafficFilter;
class TrafficListener;
class TrafficModel;

/// A window for those who write hosts and drivers: shows what crosses the boundary of the console as it
/// happens, and sends records by hand. Closing it ends nothing but the look.
///
/// GUI thread only, but what the listener is told.
class Inspector : public QWidget
{
    Q_OBJECT

public:
    /// \a halves name the keys; they may go at any time.
    explicit Inspector(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves, QWidget *parent = nullptr);
    ~Inspector() override;

    /// Is to be told of all lines; goes with this window.
    TrafficListener *listener() const;

    /// Adds \a page beside the map of the keys, and owns it.
    void addPage(QWidget *page, const QString &title);

Q_SIGNALS:
    /// Somebody closed the window.
    void closed();
    /// Somebody made up a call for a half, or for both.
    void callRequested(const K7Host::HostCall &call, std::optional<K7Host::Half> half);

protected:
    void closeEvent(QCloseEvent *event) override;

private Q_SLOTS:
    void copy();
    void askWhereToSave();
    void showLine(const QModelIndex &index);
    void showStatus();
    void flashKeys(const QModelIndex &parent, int first, int last);

private:
    Q_DISABLE_COPY(Inspector)

    void setUpView();
    void followLines();
    void connectTools();
    void connectKind(QAbstractButton *box, TrafficKind kind);
    void connectPages();
    QVector<int> chosenRows() const;
    QVector<ScenarioLine> chosenLines() const;
    void save(const QString &fileName, const QByteArray &text);

    const std::unique_ptr<Ui::Inspector> m_ui;
    TrafficModel *const m_model;   // a child
    TrafficFilter *const m_filter; // a child
    int m_waitingCount = 0;
    bool m_isAtEnd = true; // before the rows that are being added or removed
};

} // namespace K7Host
