// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace K7Host {

/// Ends the application's event loop on SIGINT and SIGTERM, for as long as it lives. One at a time.
class QuitOnSignal : public QObject
{
    Q_OBJECT

public:
    explicit QuitOnSignal(QObject *parent = nullptr);
    ~QuitOnSignal() override;

private:
    void readSignal();
};

} // namespace K7Host
