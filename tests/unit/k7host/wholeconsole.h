// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <applicationlanguage.h>
#include <consolesession.h>
#include <consolewindow.h>
#include <hostsettings.h>
#include <pluginhost.h>
#include <simulatedprocessor.h>

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QApplication>
#include <QDir>
#include <QScopedPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace K7Host {

/// A console as somebody sees it: the plug-in's halves in their window, answered by a processor, after the
/// first start. One at a time.
class WholeConsole
{
public:
    explicit WholeConsole(const QString &pluginDir)
        : settings(QStringLiteral("en"))
        , plugins(settings.store())
    {
        fault = plugins.load(pluginDir);
        if (fault)
            return;
        const QString texts = QApplication::applicationDirPath() + QStringLiteral("/../share/translations");
        language.reset(new ApplicationLanguage(plugins.keyboardPlugin(), settings.store(), texts));
        session.reset(new ConsoleSession(plugins.keyboardPlugin(), &processor));
        session->start();
        window.reset(new ConsoleWindow(session->halves()));
    }
    Q_DISABLE_COPY(WholeConsole)

    /// True once the window is there.
    bool show()
    {
        if (fault)
            return false;
        window->show();
        return QTest::qWaitForWindowExposed(window.data());
    }

    template <typename Widget = QWidget>
    Widget *child(const char *name) const
    {
        return window->findChild<Widget *>(QLatin1String(name));
    }
    QWidget *panel() const { return child("ConsoleFloatWidget"); }
    QScrollArea *panelArea() const { return panel()->findChild<QScrollArea *>(QStringLiteral("scrollArea")); }

    /// Shows the panel's form from \a top on, as far as it can be scrolled; false when it shows no more.
    bool scrollPanelTo(int top) const
    {
        QScrollBar *bar = panelArea()->verticalScrollBar();
        const int before = bar->value();
        bar->setValue(top);
        return top == 0 || bar->value() > before;
    }

private:
    QTemporaryDir m_settingsDir;
    struct SettingsPath
    {
        explicit SettingsPath(const QString &path)
        {
            QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
        }
    } m_settingsPath{m_settingsDir.path()};

public:
    HostSettings settings;
    PluginHost plugins;
    std::optional<Fault> fault;
    SimulatedProcessor processor;
    QScopedPointer<ApplicationLanguage> language;
    QScopedPointer<ConsoleSession> session;
    QScopedPointer<ConsoleWindow> window;
};

} // namespace K7Host
