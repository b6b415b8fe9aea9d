// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"
#include "fakelanguageplugin.h"

#include <applicationlanguage.h>
#include <consolesession.h>
#include <hostactions.h>
#include <instruments.h>
#include <scaledview.h>
#include <simulatedprocessor.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <memory>

using K7Host::ApplicationLanguage;
using K7Host::ConsoleSession;
using K7Host::FakeKeyboardPlugin;
using K7Host::FakeLanguagePlugin;
using K7Host::Instruments;
using K7Host::ScaledView;
using K7Host::SimulatedProcessor;

class tst_HostActions : public QObject
{
    Q_OBJECT

private slots:
    void controlQQuits();
    void controlLGoesOnToTheNextLanguage();
    void controlLWorksInOtherWindowsAndWhereSomethingIsTyped_data();
    void controlLWorksInOtherWindowsAndWhereSomethingIsTyped();
    void controlIOpensAndClosesTheInspector();

private:
    std::unique_ptr<ApplicationLanguage> makeLanguage();

    FakeLanguagePlugin m_plugin;
    QTemporaryDir m_settingsDir;
    QSettings m_settings{m_settingsDir.filePath(QStringLiteral("host.ini")), QSettings::IniFormat};
};

static bool show(QWidget *window)
{
    window->show();
    QApplication::setActiveWindow(window); // also where no window manager does
    return QTest::qWaitForWindowActive(window);
}

std::unique_ptr<ApplicationLanguage> tst_HostActions::makeLanguage()
{
    for (const char *locale : {"de", "en", "zh_CN"})
        m_plugin.addTranslation(QLatin1String(locale));
    m_settings.setValue(QStringLiteral("General/OverrideLanguage"), QStringLiteral("en"));
    return std::make_unique<ApplicationLanguage>(&m_plugin, &m_settings, m_plugin.dir());
}

void tst_HostActions::controlQQuits()
{
    QWidget window;
    K7Host::makeQuitAction(&window);
    QVERIFY(show(&window));
    QTimer::singleShot(0, &window,
                       [&] { QTest::keyClick(window.windowHandle(), Qt::Key_Q, Qt::ControlModifier); });
    QTimer::singleShot(5000, &window, [] { QCoreApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
}

void tst_HostActions::controlLGoesOnToTheNextLanguage()
{
    const auto language = makeLanguage();
    QWidget window;
    K7Host::makeNextLanguageAction(language.get(), &window);
    QVERIFY(show(&window));
    for (const char *expected : {"zh_CN", "de", "en"}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(language->current(), QString::fromLatin1(expected));
    }
}

void tst_HostActions::controlLWorksInOtherWindowsAndWhereSomethingIsTyped_data()
{
    QTest::addColumn<bool>("isReduced");
    QTest::newRow("native") << false;
    QTest::newRow("reduced") << true;
}

void tst_HostActions::controlLWorksInOtherWindowsAndWhereSomethingIsTyped()
{
    QFETCH(bool, isReduced);
    const auto language = makeLanguage();
    QWidget window;
    K7Host::makeNextLanguageAction(language.get(), &window);
    QVERIFY(show(&window));

    QWidget other;
    QLineEdit field(&other);
    field.setFocus();
    std::unique_ptr<ScaledView> view;
    if (isReduced)
        view = std::make_unique<ScaledView>(&other, 0.5);
    QWidget *shown = isReduced ? static_cast<QWidget *>(view.get()) : &other;
    QVERIFY(show(shown));
    QTest::keyClick(shown->windowHandle(), Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(language->current(), QStringLiteral("zh_CN"));
    QCOMPARE(field.text(), QString());
}

void tst_HostActions::controlIOpensAndClosesTheInspector()
{
    FakeKeyboardPlugin plugin;
    SimulatedProcessor processor;
    Instruments instruments({}, {});
    ConsoleSession session(&plugin, &processor);
    session.prepare();
    QVERIFY(!instruments.watch(&session));
    QWidget window;
    const QAction *action = K7Host::makeInspectorAction(&instruments, &window);
    QVERIFY(action->isCheckable() && !action->isChecked());
    QVERIFY(show(&window));

    for (const bool isOpen : {true, false, true}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(instruments.isInspecting(), isOpen);
        QCOMPARE(action->isChecked(), isOpen);
    }
    instruments.setInspecting(false); // as when its window is closed
    QVERIFY(!action->isChecked());
}

QTEST_MAIN(tst_HostActions)

#include "tst_hostactions.moc"
