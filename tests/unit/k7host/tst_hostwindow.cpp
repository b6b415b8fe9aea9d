// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"
#include "fakelanguageplugin.h"

#include <applicationlanguage.h>
#include <choicemenu.h>
#include <consolewindow.h>
#include <hostsettings.h>
#include <hostwindow.h>

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <memory>

using K7Host::ApplicationLanguage;
using K7Host::ChoiceMenu;
using K7Host::ConsoleWindow;
using K7Host::FakeKeyboardPlugin;
using K7Host::FakeLanguagePlugin;
using K7Host::HostSettings;
using K7Host::HostWindow;

class tst_HostWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theMenusStandAboveTheConsole();
    void byItselfTheConsoleIsFittedToTheWindow_data();
    void byItselfTheConsoleIsFittedToTheWindow();
    void theWindowTakesTheSizeOfAFixedScale_data();
    void theWindowTakesTheSizeOfAFixedScale();
    void aWindowThatIsTooSmallScrollsAFixedScale();
    void aScaleChosenInTheMenuHoldsNextTimeToo();
    void keysAreReachedAtEveryScale_data();
    void keysAreReachedAtEveryScale();
    void theKeyboardReachesTheConsole_data();
    void theKeyboardReachesTheConsole();
    void aMessageBoxIsNotLostWhenTheWindowChanges();
    void theConsoleOutlivesTheWindow_data();
    void theConsoleOutlivesTheWindow();

    void f11TurnsFullScreenOnAndOff();
    void theLanguagesAreInTheViewMenu();
    void theToolsAreShownOnceThereIsOne();

    void aThemeIsSwitchedToAndRemembered();
    void aThemeThatCannotBeUsedIsToldOf();
    void aSingleThemeNeedsNoMenu();

    void controlSSavesAPictureOfBothHalves();
    void withoutAFolderTheNameIsAskedFor();
    void aPictureThatCannotBeSavedIsToldOf();

    void thePlaceIsRemembered();
    void aPlaceThatIsOnNoScreenIsNotTaken();
    void thePlaceIsForgottenUnlessAsked();

private:
    void make();
    void show();
    ChoiceMenu *choices(const char *title) const;
    QAction *entry(const QMenu *menu, const char *text) const;
    void choose(const char *title, const char *text);
    QScrollArea *stage() const { return m_window->findChild<QScrollArea *>(QStringLiteral("stage")); }
    QWidget *shownConsole() const { return stage()->widget(); }
    void addTheme(const QString &name, const QByteArray &styleSheet) const;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<HostSettings> m_settings;
    std::unique_ptr<FakeKeyboardPlugin> m_plugin;
    std::unique_ptr<QPushButton> m_key;
    std::unique_ptr<ConsoleWindow> m_console;
    std::unique_ptr<HostWindow> m_window;
};

static const QSize NativeSize(3489, 1050);

void tst_HostWindow::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_dir->path());
    m_settings = std::make_unique<HostSettings>(QString());
    m_plugin = std::make_unique<FakeKeyboardPlugin>();
    const auto halves = m_plugin->keyboards();
    m_key = std::make_unique<QPushButton>(m_plugin->left.data());
    m_key->setGeometry(100, 100, 80, 80);
    m_console = std::make_unique<ConsoleWindow>(halves);
    make();
}

void tst_HostWindow::cleanup()
{
    m_window.reset();
    m_console.reset();
    m_key.reset();
    m_plugin.reset();
    m_settings.reset();
}

void tst_HostWindow::make()
{
    m_window.reset();
    m_window = std::make_unique<HostWindow>(m_console.get(), m_settings.get());
}

void tst_HostWindow::show()
{
    m_window->show();
    QApplication::setActiveWindow(m_window.get()); // also where no window manager does
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

ChoiceMenu *tst_HostWindow::choices(const char *title) const
{
    const auto menus = m_window->findChildren<ChoiceMenu *>();
    for (ChoiceMenu *menu : menus) {
        if (menu->title() == QLatin1String(title))
            return menu;
    }
    return nullptr;
}

QAction *tst_HostWindow::entry(const QMenu *menu, const char *text) const
{
    const auto actions = menu->actions();
    for (QAction *action : actions) {
        if (action->text() == QLatin1String(text))
            return action;
    }
    return nullptr;
}

void tst_HostWindow::choose(const char *title, const char *text)
{
    ChoiceMenu *menu = choices(title);
    QVERIFY(menu);
    QAction *action = entry(menu, text);
    QVERIFY2(action, text);
    menu->popup(QPoint());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
}

void tst_HostWindow::addTheme(const QString &name, const QByteArray &styleSheet) const
{
    const QDir dir(m_dir->path());
    QVERIFY(dir.mkpath(QStringLiteral("themes/%1/images").arg(name)));
    QFile file(dir.filePath(QStringLiteral("themes/%1/console.qss").arg(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(styleSheet), styleSheet.size());
}

void tst_HostWindow::theMenusStandAboveTheConsole()
{
    show();
    QCOMPARE(m_window->windowTitle(), QStringLiteral("K7 console"));
    QCOMPARE(m_window->size(), NativeSize + QSize(0, m_window->menuBar()->height()));
    QCOMPARE(stage()->geometry().topLeft(), QPoint(0, m_window->menuBar()->height()));
    QCOMPARE(m_window->factor(), 1.0);
    QCOMPARE(shownConsole(), m_console.get()); // there is nothing to scale
    m_window->resize(1000, 600);
    QVERIFY(m_window->factor() < 1);
    QCOMPARE(m_window->menuBar()->graphicsProxyWidget(), nullptr);
    QCOMPARE(m_window->menuBar()->geometry().topLeft(), QPoint(0, 0));
    QCOMPARE(m_window->menuBar()->width(), 1000);
}

void tst_HostWindow::byItselfTheConsoleIsFittedToTheWindow_data()
{
    QTest::addColumn<QSize>("room");
    QTest::addColumn<qreal>("expectedFactor");
    QTest::newRow("full HD") << QSize(1920, 1000) << 0.55;
    QTest::newRow("low") << QSize(1920, 315) << 0.3;
    QTest::newRow("larger than it") << QSize(4000, 2000) << 1.0;
}

void tst_HostWindow::byItselfTheConsoleIsFittedToTheWindow()
{
    QFETCH(QSize, room);
    QFETCH(qreal, expectedFactor);
    show();
    m_window->resize(1000, 500);
    m_window->resize(room + QSize(0, m_window->menuBar()->height()));
    QCOMPARE(stage()->size(), room);
    QCOMPARE(m_window->factor(), expectedFactor);
    QCOMPARE(shownConsole()->size(), (QSizeF(NativeSize) * expectedFactor).toSize());
    const QPoint middle = shownConsole()->geometry().center();
    QVERIFY((middle - stage()->viewport()->rect().center()).manhattanLength() <= 2);
    QVERIFY(!stage()->verticalScrollBar()->isVisible() && !stage()->horizontalScrollBar()->isVisible());
}

void tst_HostWindow::theWindowTakesTheSizeOfAFixedScale_data()
{
    QTest::addColumn<qreal>("scale");
    for (const qreal scale : {0.5, 0.75, 1.0, 1.5, 2.0})
        QTest::newRow(qPrintable(QString::number(scale))) << scale;
}

void tst_HostWindow::theWindowTakesTheSizeOfAFixedScale()
{
    QFETCH(qreal, scale);
    show();
    m_window->resize(1000, 500);
    m_window->setScale(scale);
    QCOMPARE(m_window->factor(), scale);
    QCOMPARE(shownConsole()->size(), (QSizeF(NativeSize) * scale).toSize());
    QVERIFY(!stage()->verticalScrollBar()->isVisible() && !stage()->horizontalScrollBar()->isVisible());
    const QSize rest = stage()->size() - shownConsole()->size();
    QVERIFY2(rest.width() <= 1 && rest.height() <= 1, "no more than a rounded pixel");
    m_window->setScale(0);
    QCOMPARE(m_window->factor(), 1.0);
}

void tst_HostWindow::aWindowThatIsTooSmallScrollsAFixedScale()
{
    show();
    m_window->setScale(0.5);
    m_window->resize(1000, 400);
    QCOMPARE(m_window->factor(), 0.5);
    QTRY_VERIFY(stage()->horizontalScrollBar()->isVisible());
    QCOMPARE(shownConsole()->width(), 1745);
}

void tst_HostWindow::aScaleChosenInTheMenuHoldsNextTimeToo()
{
    show();
    QVERIFY(entry(choices("&Scale"), "&Automatic")->isChecked());
    choose("&Scale", "75 %");
    QCOMPARE(m_window->factor(), 0.75);
    QCOMPARE(m_settings->scale(), 0.75);
    QVERIFY(entry(choices("&Scale"), "75 %")->isChecked());
    choose("&Scale", "150 %");
    QCOMPARE(m_window->factor(), 1.5);
    choose("&Scale", "&Automatic");
    QCOMPARE(m_window->factor(), 1.0);
    QCOMPARE(m_settings->scale(), 0.0);
}

void tst_HostWindow::keysAreReachedAtEveryScale_data()
{
    QTest::addColumn<qreal>("scale");
    for (const qreal scale : {0.5, 1.0, 2.0})
        QTest::newRow(qPrintable(QString::number(scale))) << scale;
}

void tst_HostWindow::keysAreReachedAtEveryScale()
{
    QFETCH(qreal, scale);
    show();
    m_window->setScale(scale);
    const QSignalSpy clicked(m_key.get(), &QPushButton::clicked);
    const QPoint onKey = m_key->geometry().center() * scale;
    const QPoint at = shownConsole()->mapTo(m_window.get(), onKey);
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, at);
    QCOMPARE(clicked.count(), 1);
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, at + QPoint(0, qRound(60 * scale)));
    QCOMPARE(clicked.count(), 1);
}

void tst_HostWindow::theKeyboardReachesTheConsole_data()
{
    keysAreReachedAtEveryScale_data();
}

void tst_HostWindow::theKeyboardReachesTheConsole()
{
    QFETCH(qreal, scale);
    m_window->setScale(scale);
    show();
    const QSignalSpy clicked(m_key.get(), &QPushButton::clicked);
    QVERIFY(!m_key->hasFocus());
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
    QVERIFY(m_key->hasFocus());
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Space);
    QCOMPARE(clicked.count(), 1);
}

void tst_HostWindow::aMessageBoxIsNotLostWhenTheWindowChanges()
{
    show();
    QMessageBox box(m_key.get());
    box.open();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    m_window->resize(1000, 500);
    QVERIFY(box.isVisible());
    QCOMPARE(shownConsole(), m_console.get());
    box.close();
    m_window->resize(1000, 501);
    QVERIFY(m_window->factor() < 1);
    QVERIFY(m_console->isVisible());
}

void tst_HostWindow::theConsoleOutlivesTheWindow_data()
{
    keysAreReachedAtEveryScale_data();
}

void tst_HostWindow::theConsoleOutlivesTheWindow()
{
    QFETCH(qreal, scale);
    m_window->setScale(scale);
    show();
    m_window.reset();
    QVERIFY(!m_console->parentWidget() && !m_console->graphicsProxyWidget());
    QCOMPARE(m_console->picture(1).size(), NativeSize);
}

void tst_HostWindow::f11TurnsFullScreenOnAndOff()
{
    show();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_F11);
    QVERIFY(m_window->isFullScreen());
    QVERIFY(m_window->menuBar()->isVisible());
    QVERIFY(m_window->factor() < 1); // the screen is small
    QTest::keyClick(m_window->windowHandle(), Qt::Key_F11);
    QVERIFY(!m_window->isFullScreen());
}

void tst_HostWindow::theLanguagesAreInTheViewMenu()
{
    FakeLanguagePlugin plugin;
    QVERIFY(plugin.addTranslation(QStringLiteral("de")));
    QVERIFY(plugin.addTranslation(QStringLiteral("en")));
    ApplicationLanguage language(&plugin, m_settings->store(), plugin.dir());
    m_window->addLanguages(&language);
    show();
    choose("&Language", "Deutsch");
    QCOMPARE(language.current(), QStringLiteral("de"));
    QTest::keyClick(m_window->windowHandle(), Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(language.current(), QStringLiteral("en"));
    m_window.reset(); // before the language
}

void tst_HostWindow::theToolsAreShownOnceThereIsOne()
{
    const auto visibleMenus = [this] {
        QStringList titles;
        const auto actions = m_window->menuBar()->actions();
        for (const QAction *action : actions) {
            if (action->isVisible())
                titles << action->text();
        }
        return titles;
    };
    QCOMPARE(visibleMenus(), (QStringList{QStringLiteral("&Console"), QStringLiteral("&View")}));
    QAction tool(QStringLiteral("Saw"));
    m_window->addTool(&tool);
    QCOMPARE(visibleMenus().mid(2), QStringList{QStringLiteral("&Tools")});
}

void tst_HostWindow::aThemeIsSwitchedToAndRemembered()
{
    addTheme(QStringLiteral("dark"), "QWidget { color: white }");
    addTheme(QStringLiteral("light"), "QWidget { color: black }");
    m_window->addThemes(m_dir->filePath(QStringLiteral("themes/dark")));
    show();
    ChoiceMenu *menu = choices("&Theme");
    QVERIFY(menu->menuAction()->isVisible());
    QCOMPARE(menu->actions().size(), 2);
    QVERIFY(menu->actions().at(0)->isChecked());

    menu->popup(QPoint());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(1)).center());
    QCOMPARE(qApp->styleSheet(), QStringLiteral("QWidget { color: black }"));
    QVERIFY(menu->actions().at(1)->isChecked());
    QCOMPARE(m_settings->store()->value(QStringLiteral("General/Theme")).toString(), QStringLiteral("light"));
    qApp->setStyleSheet(QString());
}

void tst_HostWindow::aThemeThatCannotBeUsedIsToldOf()
{
    addTheme(QStringLiteral("dark"), "QWidget { color: white }");
    addTheme(QStringLiteral("light"), "QWidget { color: black }");
    m_window->addThemes(m_dir->filePath(QStringLiteral("themes/dark")));
    show();
    QVERIFY(QDir(m_dir->filePath(QStringLiteral("themes/light"))).removeRecursively());
    ChoiceMenu *menu = choices("&Theme");
    menu->actions().at(1)->trigger();
    const auto *box = m_window->findChild<QMessageBox *>();
    QVERIFY(box && box->isVisible());
    QVERIFY2(box->text().contains(QStringLiteral("themes/light")), qPrintable(box->text()));
    QVERIFY(menu->actions().at(0)->isChecked() && !menu->actions().at(1)->isChecked());
    QVERIFY(!m_settings->store()->contains(QStringLiteral("General/Theme")));
}

void tst_HostWindow::aSingleThemeNeedsNoMenu()
{
    addTheme(QStringLiteral("dark"), "");
    m_window->addThemes(m_dir->filePath(QStringLiteral("themes/dark")));
    QVERIFY(!choices("&Theme")->menuAction()->isVisible());
}

void tst_HostWindow::controlSSavesAPictureOfBothHalves()
{
    m_window->setScreenshotDir(m_dir->filePath(QStringLiteral("pictures")));
    m_window->setScale(0.5);
    show();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_S, Qt::ControlModifier);
    const QFileInfoList pictures =
        QDir(m_dir->filePath(QStringLiteral("pictures"))).entryInfoList(QDir::Files);
    QCOMPARE(pictures.size(), 1);
    QCOMPARE(pictures.first().suffix(), QStringLiteral("png"));
    const QImage picture(pictures.first().filePath());
    QCOMPARE(picture.size(), NativeSize);
    QCOMPARE(picture.pixelColor(10, 10), QColor(Qt::darkRed));
    QVERIFY(!m_window->findChild<QFileDialog *>());
}

void tst_HostWindow::withoutAFolderTheNameIsAskedFor()
{
    show();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_S, Qt::ControlModifier);
    auto *dialog = m_window->findChild<QFileDialog *>();
    QVERIFY(dialog && dialog->isVisible());
    const QString file = m_dir->filePath(QStringLiteral("mine.png"));
    emit dialog->fileSelected(file);
    QCOMPARE(QImage(file).size(), NativeSize);
    dialog->close();
}

void tst_HostWindow::aPictureThatCannotBeSavedIsToldOf()
{
    QFile inTheWay(m_dir->filePath(QStringLiteral("file")));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    m_window->setScreenshotDir(inTheWay.fileName());
    show();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_S, Qt::ControlModifier);
    const auto *box = m_window->findChild<QMessageBox *>();
    QVERIFY(box && box->isVisible());
    QVERIFY2(box->text().contains(inTheWay.fileName()), qPrintable(box->text()));
}

void tst_HostWindow::thePlaceIsRemembered()
{
    m_window->rememberPlace();
    m_window->setGeometry(40, 50, 600, 300);
    show();
    make();
    QVERIFY(m_window->size() != QSize(600, 300));
    m_window->rememberPlace();
    show();
    QCOMPARE(m_window->geometry(), QRect(40, 50, 600, 300));
}

void tst_HostWindow::aPlaceThatIsOnNoScreenIsNotTaken()
{
    m_window->rememberPlace();
    m_window->setGeometry(5000, 4000, 600, 300);
    show();
    make();
    m_window->rememberPlace();
    show();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QVERIFY2(screen.contains(m_window->geometry()), qPrintable(QString::number(m_window->x())));
}

void tst_HostWindow::thePlaceIsForgottenUnlessAsked()
{
    m_window->setGeometry(40, 50, 600, 300);
    show();
    make();
    QCOMPARE(m_settings->windowGeometry(), QByteArray());
}

QTEST_MAIN(tst_HostWindow)

#include "tst_hostwindow.moc"
