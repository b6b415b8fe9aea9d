// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tracetext.h"

#include <hostcall.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>

namespace {

/// Port and half that an address record is for; empty for all other lines.
QString addressOwner(const QString &line)
{
    const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
    if (object.value(QLatin1String("op")) != QLatin1String("updateECDeviceIP"))
        return {};
    const int port = object.value(QLatin1String("record")).toObject().value(QLatin1String("Index")).toInt();
    return QStringLiteral("%1 %2").arg(port).arg(object.value(QLatin1String("half")).toString());
}

} // namespace

QStringList readLines(const QString &file)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
        return {QStringLiteral("cannot read %1").arg(file)};
    QStringList lines = QString::fromUtf8(input.readAll()).split(QLatin1Char('\n'));
    if (lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

QStringList withoutTimes(const QStringList &lines)
{
    QStringList result = lines;
    return result.replaceInStrings(QRegularExpression(QStringLiteral("^\\{\"t\":[0-9.e-]+,")),
                                   QStringLiteral("{"));
}

QStringList comparable(const QStringList &lines)
{
    const QString request = QStringLiteral(R"({"dir":"out","signal":"signalReqECDeviceIP","args":[%1]})");
    QStringList result;
    QMap<QString, QStringList> addresses;
    for (const QString &line : lines) {
        const QString whose = addressOwner(line);
        if (line == request.arg(1) && !result.isEmpty() && result.constLast() == request.arg(0))
            result.removeLast();
        else if (whose.isEmpty())
            result << line;
        else if (addresses[whose].isEmpty() || addresses[whose].constLast() != line)
            addresses[whose] << line;
    }
    for (const QStringList &own : qAsConst(addresses))
        result << own;
    return result;
}

QSet<QString> kindsOf(const QStringList &lines)
{
    QSet<QString> kinds;
    for (const QString &line : lines) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        const QString operation = object.value(QLatin1String("op")).toString();
        if (!operation.isEmpty())
            kinds << operation;
        for (const char *kind : {"signal", "message", "gap"}) {
            if (operation.isEmpty() && object.contains(QLatin1String(kind)))
                kinds << QString::fromLatin1(kind);
        }
    }
    return kinds;
}

QSet<QString> allKinds()
{
    QSet<QString> kinds = K7Host::operationNames().toSet();
    for (const char *kind : {"press", "move", "release", "click", "wheel", "type", "set", "answer", "wait",
                             "waitFor", "screenshot", "signal", "message", "gap"}) {
        kinds << QString::fromLatin1(kind);
    }
    return kinds;
}
