// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakelanguageplugin.h"

#include <applicationlanguage.h>
#include <languagemenu.h>
#include <scaledview.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

using K7Host::ApplicationLanguage;
using K7Host::FakeLanguagePlugin;
using K7Host::LanguageMenu;
using K7Host::ScaledView;

namespace {

/// The button at the place where the console will have it, at the bottom left, and a field.
class Desk : public QWidget
{
public:
    explicit Desk(ApplicationLanguage *language)
        : button(language, this)
    {
        resize(800, 600);
        button.setGeometry(10, 550, 160, 40);
        field.setGeometry(10, 10, 160, 40);
    }

    LanguageMenu button;
    QLineEdit field{this};
};

} // namespace

class tst_LanguageMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theMenuListsTheLanguagesInTheirOwnNames();
    void theCurrentLanguageIsShownAndChecked();
    void aClickInTheMenuChooses_data();
    void aClickInTheMenuChooses();
    void leavingTheMenuChoosesNothing();
    void controlLGoesOnToTheNextLanguage_data();
    void controlLGoesOnToTheNextLanguage();
    void controlLWorksInOtherWindowsToo();
    void aRefusedLanguageLeavesTheCheckMark();

private:
    void show(qreal factor = 1);
    QList<QAction *> choices() const { return m_desk->button.menu()->actions(); }
    QAction *choice(const QString &language) const;
    QStringList checked() const;

    std::unique_ptr<FakeLanguagePlugin> m_plugin;
    std::unique_ptr<QTemporaryDir> m_settingsDir;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<ApplicationLanguage> m_language;
    std::unique_ptr<Desk> m_desk;
    std::unique_ptr<ScaledView> m_view;
};

void tst_LanguageMenu::init()
{
    m_settingsDir = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<QSettings>(m_settingsDir->filePath(QStringLiteral("host.ini")),
                                             QSettings::IniFormat);
    m_plugin = std::make_unique<FakeLanguagePlugin>();
    for (const char *locale : {"de", "en", "zh_CN"})
        QVERIFY(m_plugin->addTranslation(QLatin1String(locale)));
    m_settings->setValue(QStringLiteral("General/OverrideLanguage"), QStringLiteral("en"));
    m_language = std::make_unique<ApplicationLanguage>(m_plugin.get(), m_settings.get(), m_plugin->dir());
    m_desk = std::make_unique<Desk>(m_language.get());
}

void tst_LanguageMenu::cleanup()
{
    m_view.reset();
    m_desk.reset();
    m_language.reset();
    m_plugin.reset();
}

void tst_LanguageMenu::show(qreal factor)
{
    if (factor < 1)
        m_view = std::make_unique<ScaledView>(m_desk.get(), factor);
    QWidget *top = m_view ? static_cast<QWidget *>(m_view.get()) : m_desk.get();
    top->show();
    QVERIFY(QTest::qWaitForWindowActive(top));
}

QAction *tst_LanguageMenu::choice(const QString &language) const
{
    const auto actions = choices();
    for (QAction *action : actions) {
        if (action->data().toString() == language)
            return action;
    }
    return nullptr;
}

QStringList tst_LanguageMenu::checked() const
{
    QStringList languages;
    const auto actions = choices();
    for (const QAction *action : actions) {
        if (action->isChecked())
            languages << action->data().toString();
    }
    return languages;
}

void tst_LanguageMenu::theMenuListsTheLanguagesInTheirOwnNames()
{
    QStringList names;
    const auto actions = choices();
    for (const QAction *action : actions)
        names << action->text();
    QCOMPARE(names, (QStringList{QStringLiteral("Deutsch"), QStringLiteral("English"),
                                 QStringLiteral("\u7b80\u4f53\u4e2d\u6587")}));
    QCOMPARE(m_desk->button.popupMode(), QToolButton::InstantPopup);
}

void tst_LanguageMenu::theCurrentLanguageIsShownAndChecked()
{
    QCOMPARE(m_desk->button.text(), QStringLiteral("English"));
    QCOMPARE(checked(), QStringList{QStringLiteral("en")});
    QVERIFY(m_language->choose(QStringLiteral("de")));
    QCOMPARE(m_desk->button.text(), QStringLiteral("Deutsch"));
    QCOMPARE(checked(), QStringList{QStringLiteral("de")});
}

void tst_LanguageMenu::aClickInTheMenuChooses_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("native") << 1.0;
    QTest::newRow("reduced") << 0.5;
}

void tst_LanguageMenu::aClickInTheMenuChooses()
{
    QFETCH(qreal, factor);
    show(factor);
    QMenu *menu = m_desk->button.menu();
    bool wasOpen = false;
    // The click on the button returns when the menu is closed.
    QTimer::singleShot(0, menu, [&] {
        wasOpen = menu->isVisible();
        QTest::mouseClick(menu, Qt::LeftButton, {},
                          menu->actionGeometry(choice(QStringLiteral("zh_CN"))).center());
        menu->close();
    });
    QWidget *top = m_view ? static_cast<QWidget *>(m_view.get()) : m_desk.get();
    QTest::mouseClick(top->windowHandle(), Qt::LeftButton, {}, m_desk->button.geometry().center() * factor);
    QVERIFY(wasOpen);
    QCOMPARE(m_language->current(), QStringLiteral("zh_CN"));
    QCOMPARE(checked(), QStringList{QStringLiteral("zh_CN")});
}

void tst_LanguageMenu::leavingTheMenuChoosesNothing()
{
    show();
    QMenu *menu = m_desk->button.menu();
    QTimer::singleShot(0, menu, [&] {
        QVERIFY(menu->isVisible());
        QTest::keyClick(menu, Qt::Key_Escape);
    });
    QTest::mouseClick(m_desk->windowHandle(), Qt::LeftButton, {}, m_desk->button.geometry().center());
    QVERIFY(!menu->isVisible());
    QCOMPARE(m_plugin->asked, QStringList());
    QCOMPARE(checked(), QStringList{QStringLiteral("en")});
}

void tst_LanguageMenu::controlLGoesOnToTheNextLanguage_data()
{
    aClickInTheMenuChooses_data();
}

void tst_LanguageMenu::controlLGoesOnToTheNextLanguage()
{
    QFETCH(qreal, factor);
    show(factor);
    m_desk->field.setFocus();
    QWidget *top = m_view ? static_cast<QWidget *>(m_view.get()) : m_desk.get();
    for (const char *expected : {"zh_CN", "de", "en"}) {
        QTest::keyClick(top->windowHandle(), Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(m_language->current(), QString::fromLatin1(expected));
        QCOMPARE(checked(), QStringList{QString::fromLatin1(expected)});
    }
}

void tst_LanguageMenu::controlLWorksInOtherWindowsToo()
{
    show();
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTest::keyClick(other.windowHandle(), Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(m_language->current(), QStringLiteral("zh_CN"));
}

void tst_LanguageMenu::aRefusedLanguageLeavesTheCheckMark()
{
    QVERIFY(QFile::remove(m_plugin->dir() + QStringLiteral("/korvoeckeyboardk7_de.qm")));
    QTest::ignoreMessage(QtWarningMsg, "there is no translation for 'de'");
    choice(QStringLiteral("de"))->trigger();
    QCOMPARE(m_language->current(), QStringLiteral("en"));
    QCOMPARE(checked(), QStringList{QStringLiteral("en")});
    QCOMPARE(m_desk->button.text(), QStringLiteral("English"));
}

QTEST_MAIN(tst_LanguageMenu)

#include "tst_languagemenu.moc"
