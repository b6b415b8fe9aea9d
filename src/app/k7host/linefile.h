// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QByteArray>

#include <optional>

namespace K7Host {

/// A file, pipe or terminal that takes whole lines and hands each to the system at once. Never waits for a
/// pipe or terminal, unless asked to; a regular file takes as long as its disk. For one thread at a time,
/// which is expected to block SIGPIPE and SIGXFSZ.
class LineFile
{
public:
    enum Outcome {
        Accepted, ///< the line is in the file, or begun, and then its rest goes ahead of the next line
        Refused,  ///< nothing of the line is in the file; error() tells why
        Busy      ///< nothing of the line is in the file; try again when there is room
    };

    LineFile() = default;
    ~LineFile();

    /// Opens and empties the file \a name; "-" is standard output, which is left as it is. Once only.
    std::optional<Fault> open(const QString &name);

    /// What the file is called in messages.
    QString name() const;

    /// Writes \a line and a line end, after the rest of the line before.
    Outcome write(const QByteArray &line);
    /// Writes the rest of the line before. Accepted: no line is left half written.
    Outcome finish();

    /// The system's number of the last error; 0 when the last write met none.
    int error() const { return m_error; }

    /// Waits until there may be room, for \a ms at most.
    void waitForRoom(int ms) const;

private:
    Q_DISABLE_COPY(LineFile)

    int send(const QByteArray &bytes);
    bool takeBack(int bytes);

    QString m_name;
    QByteArray m_rest; // of the line that is half written
    int m_descriptor = -1;
    int m_error = 0;
    bool m_isRegular = false;
};

} // namespace K7Host
