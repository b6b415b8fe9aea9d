// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolepair.h"

#include "plainplugin.h"

#include <applytheme.h>

#include <QCoreApplication>
#include <QSettings>
#include <QTest>

using Korvo::IKorvoECKeyboard;
using Korvo::ECKeyboard::K7Plugin;

ShownConsole::ShownConsole(const Korvo::IKorvoECKeyboardPlugin *plugin)
    : m_plugin(plugin)
{
    const auto halves = plugin->keyboards();
    for (const auto &half : halves) {
        m_halves.append(half.toStrongRef().data());
        m_formSizes.append(m_halves.constLast()->size());
        m_halves.constLast()->setParent(&m_window);
    }
    placeHalves();
    m_window.show();
    if (!QTest::qWaitForWindowExposed(&m_window))
        qFatal("the window was not shown");
    QCoreApplication::processEvents();
    placeHalves(); // sizes depend on fonts and borders, which came with the style sheet
    QCoreApplication::processEvents();
}

ShownConsole::~ShownConsole()
{
    for (IKorvoECKeyboard *half : qAsConst(m_halves))
        half->setParent(nullptr);
}

QWidget *ShownConsole::child(const char *name) const
{
    auto *found = left()->findChild<QWidget *>(QLatin1String(name));
    if (!found)
        qFatal("the console has no %s", name);
    return found;
}

void ShownConsole::placeHalves()
{
    QRect all;
    for (int i = 0; i < m_halves.size(); ++i) {
        IKorvoECKeyboard *half = m_halves.at(i);
        const QSize size = m_formSizes.at(i).expandedTo(half->minimumSizeHint());
        half->setGeometry(QRect(QPoint(all.isNull() ? 0 : all.right() + 1, 0), size));
        all |= half->geometry();
    }
    m_window.resize(all.size());
}

ConsolePair::ConsolePair()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settingsDir.path());
    if (const auto fault = K7Host::applyTheme(QStringLiteral(K7_THEME)))
        qFatal("the theme cannot be used");
    m_ownPlugin = std::make_unique<K7Plugin>();
    m_ownPlugin->initStyleSheet();
    const auto halves = m_ownPlugin->keyboards();
    for (const auto &half : halves)
        half.toStrongRef()->applyNoramlStyleSheet();
    m_own = std::make_unique<ShownConsole>(m_ownPlugin.get());
    m_plainPlugin = std::make_unique<PlainPlugin>(m_ownPlugin.get());
    m_plain = std::make_unique<ShownConsole>(m_plainPlugin.get());
}

ConsolePair::~ConsolePair() = default;

void ConsolePair::addRows()
{
    QTest::addColumn<bool>("isPlain");
    QTest::newRow("console") << false;
    QTest::newRow("plain toolkit") << true;
}

void paint()
{
    QCoreApplication::sendPostedEvents();
}
