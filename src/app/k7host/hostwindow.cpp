// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "hostwindow.h"

#include "applytheme.h"
#include "choicemenu.h"
#include "consolewindow.h"
#include "display.h"
#include "hostactions.h"
#include "hostsettings.h"
#include "languagemenu.h"
#include "scaledview.h"
#include "screenshot.h"
#include "theme.h"

#include <QApplication>
#include <QDateTime>
#include <QEvent>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollArea>

#include <cmath>

namespace K7Host {

namespace {

constexpr qreal MenuScales[] = {0.5, 0.75, 1, 1.5, 2};

QString scaleName(qreal scale)
{
    return QStringLiteral("%1 %").arg(std::lround(scale * 100));
}

} // namespace

HostWindow::HostWindow(ConsoleWindow *console, HostSettings *settings)
    : m_console(console)
    , m_settings(settings)
    , m_stage(new QScrollArea(this))
    , m_viewMenu(new QMenu(QStringLiteral("&View"), this))
    , m_toolMenu(new QMenu(QStringLiteral("&Tools"), this))
    , m_scaleMenu(new ChoiceMenu(QStringLiteral("&Scale"), this))
    , m_themeMenu(new ChoiceMenu(QStringLiteral("&Theme"), this))
    , m_fullScreenAction(new QAction(QStringLiteral("&Full screen"), this))
{
    setWindowTitle(QStringLiteral("K7 console"));
    makeMenus();
    m_stage->setObjectName(QStringLiteral("stage"));
    m_stage->setFrameShape(QFrame::NoFrame);
    m_stage->setFocusPolicy(Qt::NoFocus);
    m_stage->setAlignment(Qt::AlignCenter);
    m_stage->setWidget(console);
    setCentralWidget(m_stage);
    m_stage->installEventFilter(this);
    m_console->installEventFilter(this);
    setScale(0);
    console->setFocus();
}

HostWindow::~HostWindow()
{
    if (m_remembersPlace)
        m_settings->setWindowGeometry(saveGeometry());
    // The stage would delete the console.
    m_console->removeEventFilter(this);
    if (!m_view)
        m_stage->takeWidget();
}

void HostWindow::addLanguages(ApplicationLanguage *language)
{
    auto *menu = new LanguageMenu(language, this);
    menu->addSeparator();
    menu->addAction(makeNextLanguageAction(language, this));
    m_viewMenu->insertMenu(m_scaleMenu->menuAction(), menu);
}

void HostWindow::addThemes(const QString &current)
{
    const QList<ThemeInfo> themes = themesBeside(current);
    for (const ThemeInfo &theme : themes)
        m_themeMenu->addChoice(theme.name, QDir(theme.dir).absolutePath());
    m_theme = QDir(current).absolutePath();
    m_themeMenu->setChosen(m_theme);
    m_themeMenu->menuAction()->setVisible(themes.size() > 1);
    connect(m_themeMenu, &ChoiceMenu::chosen, this,
            [this](const QVariant &dir) { chooseTheme(dir.toString()); });
}

void HostWindow::addTool(QAction *tool)
{
    m_toolMenu->addAction(tool);
    m_toolMenu->menuAction()->setVisible(true);
}

void HostWindow::setScale(qreal scale)
{
    m_scale = scale;
    m_scaleMenu->setChosen(scale);
    m_stage->setHorizontalScrollBarPolicy(scale > 0 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    m_stage->setVerticalScrollBarPolicy(scale > 0 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    if (!isMaximized() && !isFullScreen())
        resize(sizeForConsole());
    if (isVisible()) // until then the stage has no size
        fit();
}

qreal HostWindow::factor() const
{
    return m_view ? m_view->factor() : 1;
}

void HostWindow::rememberPlace()
{
    m_remembersPlace = true;
    restoreGeometry(m_settings->windowGeometry()); // sees to it that it is on a screen
}

bool HostWindow::eventFilter(QObject *watched, QEvent *event)
{
    const bool isResized = watched == m_stage || (watched == m_console && isVisible());
    if (event->type() == QEvent::Resize && isResized)
        fit();
    return QMainWindow::eventFilter(watched, event);
}

bool HostWindow::event(QEvent *event)
{
    const bool isHandled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowUnblocked)
        fit(); // what had to wait for the box
    return isHandled;
}

void HostWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange)
        m_fullScreenAction->setChecked(isFullScreen());
    QMainWindow::changeEvent(event);
}

void HostWindow::makeMenus()
{
    QMenu *console = menuBar()->addMenu(QStringLiteral("&Console"));
    QAction *screenshot = console->addAction(QStringLiteral("&Screenshot\u2026"));
    screenshot->setShortcut(Qt::CTRL + Qt::Key_S);
    connect(screenshot, &QAction::triggered, this, &HostWindow::takeScreenshot);
    console->addSeparator();
    console->addAction(makeQuitAction(this));

    menuBar()->addMenu(m_viewMenu);
    makeScaleMenu();
    m_viewMenu->addMenu(m_scaleMenu);
    m_viewMenu->addMenu(m_themeMenu);
    m_themeMenu->menuAction()->setVisible(false); // until there are any
    m_viewMenu->addSeparator();
    m_viewMenu->addAction(m_fullScreenAction);
    m_fullScreenAction->setCheckable(true);
    m_fullScreenAction->setShortcut(Qt::Key_F11);
    connect(m_fullScreenAction, &QAction::triggered, this, &HostWindow::setFullScreen);

    menuBar()->addMenu(m_toolMenu);
    m_toolMenu->menuAction()->setVisible(false);
}

void HostWindow::makeScaleMenu()
{
    m_scaleMenu->addChoice(QStringLiteral("&Automatic"), qreal(0));
    for (const qreal scale : MenuScales)
        m_scaleMenu->addChoice(scaleName(scale), scale);
    connect(m_scaleMenu, &ChoiceMenu::chosen, this, [this](const QVariant &scale) {
        setScale(scale.toReal());
        m_settings->setScale(scale.toReal());
    });
}

void HostWindow::setFullScreen(bool isFull)
{
    const Qt::WindowStates others = windowState() & ~Qt::WindowFullScreen;
    setWindowState(isFull ? others | Qt::WindowFullScreen : others);
}

void HostWindow::chooseTheme(const QString &dir)
{
    if (const auto fault = applyTheme(dir)) {
        m_themeMenu->setChosen(m_theme); // the click has checked the other one
        return showFault(fault->text);
    }
    m_theme = dir;
    m_settings->setTheme(dir);
}

void HostWindow::takeScreenshot()
{
    // As it is now, without the dialog that asks for a name.
    const QImage picture = m_console->picture(1);
    const QString name =
        QDateTime::currentDateTime().toString(QStringLiteral("'console-'yyyyMMdd-HHmmss-zzz'.png'"));
    if (!m_screenshotDir.isEmpty())
        return saveScreenshotAs(picture, QDir(m_screenshotDir).absoluteFilePath(name));
    auto *dialog = new QFileDialog(this, QStringLiteral("Save screenshot"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({QStringLiteral("Pictures (*.png)"), QStringLiteral("All files (*)")});
    dialog->setDefaultSuffix(QStringLiteral("png"));
    dialog->selectFile(name);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, picture](const QString &file) { saveScreenshotAs(picture, file); });
    dialog->open();
}

void HostWindow::saveScreenshotAs(const QImage &picture, const QString &file)
{
    const QFileInfo info(file);
    if (const auto fault = saveScreenshot(picture, info.path(), info.fileName()))
        showFault(fault->text);
}

void HostWindow::showFault(const QString &text)
{
    auto *box =
        new QMessageBox(QMessageBox::Warning, QStringLiteral("K7 console"), text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

/// What the window needs to show the whole console, or what there is room for.
QSize HostWindow::sizeForConsole() const
{
    menuBar()->ensurePolished();
    const QSize room = isOffscreen() ? QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : roomOnScreen();
    const QSize bar(0, menuBar()->heightForWidth(room.width()));
    const qreal factor = m_scale > 0 ? m_scale : fittingFactor(m_console->size(), room - bar);
    const QSizeF console = QSizeF(m_console->size()) * factor;
    const QSize size(static_cast<int>(std::ceil(console.width())),
                     static_cast<int>(std::ceil(console.height())));
    return (size + bar).boundedTo(room);
}

void HostWindow::fit()
{
    setFactor(m_scale > 0 ? m_scale : fittingFactor(m_console->size(), m_stage->size()));
}

void HostWindow::setFactor(qreal factor)
{
    if (qFuzzyCompare(factor, this->factor()))
        return;
    if (m_view)
        return m_view->setFactor(factor);
    // From now on in a view, also when it is as large as it is again: what the console has opened stays
    // there. What has opened before, and blocks the rest, would get lost.
    if (QApplication::activeModalWidget())
        return;
    QWidget *focused = m_console->focusWidget();
    m_console->removeEventFilter(this); // sizes change on the way
    m_stage->takeWidget();
    m_view = new ScaledView(m_console, factor);
    m_stage->setWidget(m_view);
    m_console->installEventFilter(this);
    m_view->show();
    m_view->setFocus();
    (focused ? focused : m_console)->setFocus();
}

} // namespace K7Host
