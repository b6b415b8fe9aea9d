// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QScrollArea;
QT_END_NAMESPACE

namespace K7Host {

class ApplicationLanguage;
class ChoiceMenu;
class ConsoleWindow;
class HostSettings;
class ScaledView;

/// The window that a desktop sees: the console in the size of choice, and above it a menu bar in its own.
///
/// The console stands in the middle. A scale of 0 makes it as large as the window has room for, but no larger
/// than it is; with any other one it is scrolled where the window is too small.
class HostWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// \a console has no parent, stays the caller's, and outlives the window. \a settings, not null, outlive
    /// it too; what is chosen in the menus is stored there.
    HostWindow(ConsoleWindow *console, HostSettings *settings);
    ~HostWindow() override;

    /// Adds the menu of the languages.
    void addLanguages(ApplicationLanguage *language);
    /// Adds the menu of the themes beside \a current, which is in use.
    void addThemes(const QString &current);
    /// Adds an entry to the menu of the tools.
    void addTool(QAction *tool);

    /// Pictures go there, and nobody is asked for a file name.
    void setScreenshotDir(const QString &dir) { m_screenshotDir = dir; }

    /// 0, or a factor; the window takes the size that the console then needs, as far as the screen has room
    /// for it. Stores nothing.
    void setScale(qreal scale);
    /// Of the console, as it is shown.
    qreal factor() const;

    /// Takes the place that the settings hold, and stores its place there when it goes.
    void rememberPlace();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void makeMenus();
    void makeScaleMenu();
    void setFullScreen(bool isFull);
    void chooseTheme(const QString &dir);
    void takeScreenshot();
    void saveScreenshotAs(const QImage &picture, const QString &file);
    void showFault(const QString &text);
    QSize sizeForConsole() const;
    void fit();
    void setFactor(qreal factor);

    ConsoleWindow *const m_console;
    HostSettings *const m_settings;
    QScrollArea *const m_stage;   // a child; holds the console, or its view
    ScaledView *m_view = nullptr; // none as long as the console was only shown as large as it is
    qreal m_scale = 0;
    QString m_screenshotDir;
    QString m_theme;
    bool m_remembersPlace = false;

    // Children of the menu bar.
    QMenu *const m_viewMenu;
    QMenu *const m_toolMenu;
    ChoiceMenu *const m_scaleMenu;
    ChoiceMenu *const m_themeMenu;
    QAction *const m_fullScreenAction;
};

} // namespace K7Host
