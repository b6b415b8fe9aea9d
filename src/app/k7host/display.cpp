// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "display.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace K7Host {

namespace {

// What Qt reads.
const char PlatformVariable[] = "QT_QPA_PLATFORM";
const char ScaleVariable[] = "QT_SCALE_FACTOR";

// For the title and the edges that a desktop puts around a window.
constexpr QSize FrameRoom(16, 48);

// Tried in this order.
const char Platforms[] = "xcb;wayland;offscreen";

QtMessageHandler usualHandler = nullptr; // when another one is put before it

/// Without any platform that it can use, Qt ends the program; this then says so.
void passOnlyTheEnd(QtMsgType type, const QMessageLogContext & /*context*/, const QString & /*text*/)
{
    if (type != QtFatalMsg)
        return;
    complain(QStringLiteral("cannot use the platform '%1' of %2")
                 .arg(QString::fromLocal8Bit(qgetenv(PlatformVariable)), QLatin1String(PlatformVariable)));
    std::_Exit(ExitBadArguments);
}

/// The offscreen platform says of every message box and popup what it cannot do, and nobody can help it.
void passOnWithoutExcuses(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support ")))
        usualHandler(type, context, text);
}

} // namespace

void prepareDisplay(const Options &options)
{
    // Fonts and sizes are the console's own, whatever desktop it is shown on.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QGuiApplication::setDesktopSettingsAware(false);

    usualHandler = qInstallMessageHandler(passOnlyTheEnd);
    if (qEnvironmentVariableIsEmpty(PlatformVariable))
        qputenv(PlatformVariable, Platforms);
    if (options.scaleGiven)
        qputenv(ScaleVariable, "1");
}

std::optional<Fault> checkDisplay(const Options &options)
{
    qInstallMessageHandler(isOffscreen() ? passOnWithoutExcuses : usualHandler);
    if (!isOffscreen() || qgetenv(PlatformVariable) != Platforms)
        return {};
    if (options.screenshotDir.isEmpty() && options.scenario.isEmpty()) {
        return Fault{ExitBadArguments, QStringLiteral("no display: set DISPLAY or WAYLAND_DISPLAY, or use "
                                                      "--screenshot or --scenario")};
    }
    complain(QStringLiteral("no display, running offscreen"));
    return {};
}

bool isOffscreen()
{
    return QGuiApplication::platformName() == QLatin1String("offscreen");
}

QSize roomOnScreen()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableSize() - FrameRoom : QSize();
}

qreal fittingFactor(const QSize &native, const QSize &available, qreal largest)
{
    const qreal width = available.width() / qreal(native.width());
    const qreal height = available.height() / qreal(native.height());
    const qreal hundredths = std::floor(std::min({width, height, largest}) * 100);
    return std::max(hundredths, qreal(1)) / 100;
}

} // namespace K7Host
