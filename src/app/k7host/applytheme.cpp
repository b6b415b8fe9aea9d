// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "applytheme.h"

#include <korvo/utils/icon.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPalette>

namespace K7Host {

namespace {

QPalette darkPalette()
{
    const QColor text(0xe6, 0xe8, 0xea);
    const QColor faint(0x7a, 0x80, 0x86);
    const QColor accent(0x3d, 0x8b, 0xd4);

    // Buttons and frames get their shades from these two.
    QPalette palette(QColor(0x2b, 0x2f, 0x33), QColor(0x1a, 0x1d, 0x20));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::Base, QColor(0x12, 0x14, 0x16));
    palette.setColor(QPalette::AlternateBase, QColor(0x1f, 0x23, 0x26));
    palette.setColor(QPalette::ToolTipBase, QColor(0x2b, 0x2f, 0x33));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    return palette;
}

} // namespace

std::optional<Fault> applyTheme(const QString &dir)
{
    if (QDir(dir).absolutePath().contains(QLatin1Char('"'))) { // keys name their pictures in quotes
        return Fault{ExitBadArguments,
                     QStringLiteral("the theme's folder %1 has a quote in its name").arg(dir)};
    }
    QFile styleSheet(QDir(dir).filePath(QStringLiteral("console.qss")));
    if (!styleSheet.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return Fault{ExitBadArguments, QStringLiteral("cannot read the theme's style sheet %1: %2")
                                           .arg(styleSheet.fileName(), styleSheet.errorString())};
    }
    const QFileInfo images(QDir(dir).filePath(QStringLiteral("images")));
    if (!images.isDir() || !images.isReadable()) {
        return Fault{ExitBadArguments,
                     QStringLiteral("cannot read the theme's pictures in %1").arg(images.filePath())};
    }
    QApplication::setStyle(QStringLiteral("Fusion"));
    QDir::setSearchPaths(QStringLiteral("theme"), {dir});
    Korvo::Utils::Icon::setThemePath(dir);
    QApplication::setPalette(darkPalette());
    qApp->setStyleSheet(QString::fromUtf8(styleSheet.readAll()));
    return {};
}

} // namespace K7Host
