// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <applicationlanguage.h>
#include <applytheme.h>
#include <consolesession.h>
#include <consolewindow.h>
#include <hostcall.h>
#include <hostsettings.h>
#include <hostwindow.h>
#include <keypad.h>
#include <pluginhost.h>
#include <scaledview.h>
#include <simulatedprocessor.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>
#include <korvo/keyboard/constants.h>
#include <korvo/keyboard/ikorvoeckeyboardplugin.h>
#include <korvo/keyboard/records.h>
#include <korvo/widgets/tbar.h>
#include <korvo/widgets/waitingdialog.h>
#include <ovo/widgets/framelessmessagebox.h>

#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QDir>
#include <QLabel>
#include <QLoggingCategory>
#include <QQueue>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSet>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <functional>

using namespace K7Host;
using Korvo::EC::K7DropButton;

namespace {

constexpr int KeyCount = 138;
constexpr int rowReach = 12; // pixels that the controls of a row stand apart

/// A console as it is after the first start.
class Console
{
public:
    explicit Console(qreal factor = 1)
        : plugins(settings.store())
    {
        fault = plugins.load(QStringLiteral(KORVO_PLUGINS));
        if (fault)
            return;
        const QDir bin(QCoreApplication::applicationDirPath());
        language.reset(new ApplicationLanguage(plugins.keyboardPlugin(), settings.store(),
                                               bin.filePath(QStringLiteral("../share/translations"))));
        session.reset(new ConsoleSession(plugins.keyboardPlugin(), &processor));
        session->start();
        window.reset(new ConsoleWindow(session->halves()));
        if (factor < 1)
            view.reset(new ScaledView(window.data(), factor));
        shown()->show();
        QApplication::setActiveWindow(shown());
    }

    QWidget *shown() const { return view ? static_cast<QWidget *>(view.data()) : window.data(); }
    QWidget *focused() const { return window->focusWidget(); }
    void type(Qt::Key key) const { QTest::keyClick(shown()->windowHandle(), key); }

    QList<K7DropButton *> keys(const QWidget *within) const { return within->findChildren<K7DropButton *>(); }
    QList<K7DropButton *> keys() const { return keys(window.data()); }
    K7DropButton *key(const QString &name) const
    {
        const auto all = keys();
        for (K7DropButton *key : all) {
            if (key->property("key") == name)
                return key;
        }
        return nullptr;
    }
    QWidget *panel() const { return window->findChild<QWidget *>(QStringLiteral("ConsoleFloatWidget")); }

    QTemporaryDir settingsDir;
    struct SettingsPath
    {
        explicit SettingsPath(const QString &path)
        {
            QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
        }
    } settingsPath{settingsDir.path()};
    HostSettings settings{QStringLiteral("en")};
    PluginHost plugins;
    std::optional<Fault> fault;
    SimulatedProcessor processor;
    QScopedPointer<ApplicationLanguage> language;
    QScopedPointer<ConsoleSession> session;
    QScopedPointer<ConsoleWindow> window;
    QScopedPointer<ScaledView> view; // goes before the window
};

using Interfaces = QVector<QAccessibleInterface *>;

void collect(QAccessibleInterface *root, Interfaces *all)
{
    if (!root)
        return;
    all->append(root);
    for (int i = 0; i < root->childCount(); ++i)
        collect(root->child(i), all);
}

Interfaces treeOf(QObject *root)
{
    Interfaces all;
    collect(QAccessible::queryAccessibleInterface(root), &all);
    return all;
}

bool isControl(const QAccessibleInterface *interface)
{
    static const QSet<int> roles{
        QAccessible::Button,         QAccessible::PushButton,   QAccessible::ButtonMenu,
        QAccessible::ButtonDropDown, QAccessible::CheckBox,     QAccessible::RadioButton,
        QAccessible::Slider,         QAccessible::SpinBox,      QAccessible::Dial,
        QAccessible::ComboBox,       QAccessible::EditableText, QAccessible::ProgressBar};
    const bool isWindow = interface->role() == QAccessible::Window || !interface->parent();
    return roles.contains(interface->role()) || (interface->state().focusable && !isWindow);
}

QString captionOf(const QAccessibleInterface *interface)
{
    const auto labels = interface->relations(QAccessible::Label);
    return labels.isEmpty() ? QString() : labels.constFirst().first->text(QAccessible::Name);
}

/// The name, or that of the label that stands for it: a list tells as its name what is chosen in it.
QString nameOf(const QAccessibleInterface *interface)
{
    const QString name = interface->text(QAccessible::Name);
    return name.isEmpty() || interface->role() == QAccessible::ComboBox ? captionOf(interface) : name;
}

bool isName(const QString &name)
{
    return std::any_of(name.cbegin(), name.cend(), [](QChar one) { return one.isLetterOrNumber(); });
}

QString described(QAccessibleInterface *interface)
{
    const QObject *object = interface->object();
    return QStringLiteral("%1 \"%2\" role %3 name \"%4\"")
        .arg(object ? QString::fromLatin1(object->metaObject()->className()) : QStringLiteral("?"),
             object ? object->objectName() : QString())
        .arg(interface->role())
        .arg(nameOf(interface));
}

/// The controls below \a root that have no name, one a line.
QString namelessOf(QObject *root, int *controls)
{
    QStringList nameless;
    const Interfaces tree = treeOf(root);
    for (QAccessibleInterface *interface : tree) {
        if (!isControl(interface))
            continue;
        ++*controls;
        if (!isName(nameOf(interface)))
            nameless << described(interface);
    }
    return nameless.join(QLatin1Char('\n'));
}

QString textOf(QObject *object, QAccessible::Text type)
{
    return QAccessible::queryAccessibleInterface(object)->text(type);
}

/// The class of the section or panel that \a widget stands in, without its namespace.
QString sectionOf(const QWidget *widget)
{
    for (const QWidget *around = widget; around; around = around->parentWidget()) {
        const QString name = QString::fromLatin1(around->metaObject()->className());
        QString section = name.section(QLatin1String("::"), -1);
        if (section.endsWith(QLatin1String("KeyboardFrame")) ||
            section == QLatin1String("ConsoleFloatWidget") || section == QLatin1String("HardwarePanel"))
            return section;
    }
    return QString();
}

bool isInSight(const QWidget *widget, const QScrollArea *area)
{
    const QWidget *viewport = area->viewport();
    const QRect place(widget->mapTo(viewport, QPoint()), widget->size());
    return viewport->rect().contains(place);
}

/// Tab stops at one button of a choice; arrow keys go on from there, and Space chooses.
bool isReachedInItsGroup(const Console &console, QAbstractButton *button, const QSet<QWidget *> &reached)
{
    if (!button || !button->group() || !button->group()->exclusive())
        return false;
    const auto buttons = button->group()->buttons();
    for (QAbstractButton *stop : buttons) {
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right}) {
            if (!reached.contains(stop))
                continue;
            stop->setFocus();
            console.type(key);
            if (!button->hasFocus())
                continue;
            console.type(Qt::Key_Space);
            return button->isChecked();
        }
    }
    return false;
}

} // namespace

Q_DECLARE_METATYPE(std::function<QWidget *(Console *)>)

/// What assistive technology finds of a whole console, and what the keyboard can do there.
class tst_Accessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void noControlIsWithoutAName_data() { addLanguages(); }
    void noControlIsWithoutAName();
    void thePanelSpeaksItsCaptions_data() { addLanguages(); }
    void thePanelSpeaksItsCaptions();
    void noControlOfAToolIsWithoutAName_data();
    void noControlOfAToolIsWithoutAName();
    void aKeyHasANameOfItsOwnAndALight();
    void aKeyTellsTheColorOfItsRecord_data();
    void aKeyTellsTheColorOfItsRecord();
    void anOledLabelTellsItsText();
    void theLeverIsASlider();
    void aReducedConsoleTellsAsMuch();
    void arrowKeysReachEveryKey_data() { addFactors(); }
    void arrowKeysReachEveryKey();
    void spacePressesAndReleasesEveryKeyOnce();
    void tabGoesFromSectionToSection();
    void tabReachesEveryControlOfThePanelAndShowsIt_data();
    void tabReachesEveryControlOfThePanelAndShowsIt();

private:
    static void addLanguages();
    static void addFactors();
};

void tst_Accessibility::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("korvo.k7.*.debug=false"));
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
}

void tst_Accessibility::addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"de", "en", "es", "fr", "ja", "zh_CN"})
        QTest::newRow(language) << QString::fromLatin1(language);
}

void tst_Accessibility::addFactors()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("window") << 1.0;
    QTest::newRow("reduced") << 0.5;
}

void tst_Accessibility::noControlIsWithoutAName()
{
    QFETCH(QString, language);

    Console console;
    QVERIFY(!console.fault);
    console.language->choose(language);
    QCOMPARE(console.language->current(), language);
    int controls = 0;
    QCOMPARE(namelessOf(console.window.data(), &controls), QString());
    QVERIFY(controls > KeyCount + 40);
}

void tst_Accessibility::thePanelSpeaksItsCaptions()
{
    QFETCH(QString, language);

    Console console;
    QVERIFY(!console.fault);
    console.language->choose(QStringLiteral("en"));
    const Interfaces tree = treeOf(console.panel());
    console.language->choose(language); // while it is shown
    QStringList names;
    for (QAccessibleInterface *interface : tree) {
        if (isControl(interface))
            names << nameOf(interface);
    }
    const auto captions =
        console.panel()->findChildren<QLabel *>(QRegularExpression(QStringLiteral("^label_")));
    int spoken = 0;
    for (const QLabel *caption : captions) {
        if (!caption->isVisible())
            continue;
        const bool isSpoken = std::any_of(names.cbegin(), names.cend(), [caption](const QString &name) {
            return name.contains(caption->text());
        });
        const bool isGroup = caption->objectName() == QLatin1String("label_timeOfDay"); // of the wheels
        QVERIFY2(isSpoken || isGroup, qPrintable(caption->text()));
        ++spoken;
    }
    QVERIFY(spoken >= 18);
    QCOMPARE(textOf(console.panel()->findChild<QWidget *>(QStringLiteral("timeWidget")), QAccessible::Name),
             console.panel()->findChild<QLabel *>(QStringLiteral("label_timeOfDay"))->text());
}

void tst_Accessibility::noControlOfAToolIsWithoutAName_data()
{
    using Make = std::function<QWidget *(Console *)>;
    QTest::addColumn<Make>("make");
    QTest::newRow("keypad") << Make([](Console *console) { return new Keypad(console->window.data()); });
    QTest::newRow("host window") << Make([](Console *console) {
        auto *window = new HostWindow(console->window.data(), &console->settings);
        window->addLanguages(console->language.data());
        return window;
    });
    QTest::newRow("busy indicator") << Make([](Console *console) {
        auto *dialog = new Korvo::Widgets::WaitingDialog(console->window.data());
        dialog->showWaitingDialog(QStringLiteral("loading"));
        return dialog;
    });
    QTest::newRow("message box") << Make([](Console *console) {
        return new Ovo::Widgets::FramelessMessageBox(
            QMessageBox::Question, QStringLiteral("Remind"), QStringLiteral("Sure?"),
            QMessageBox::Yes | QMessageBox::No, console->window.data());
    });
}

void tst_Accessibility::noControlOfAToolIsWithoutAName()
{
    QFETCH(std::function<QWidget *(Console *)>, make);

    Console console;
    QVERIFY(!console.fault);
    const QScopedPointer<QWidget> tool(make(&console));
    int controls = 0;
    QCOMPARE(namelessOf(tool.data(), &controls), QString());
    QVERIFY(controls > 0);
}

void tst_Accessibility::aKeyHasANameOfItsOwnAndALight()
{
    Console console;
    QVERIFY(!console.fault);
    int count = 0;
    const auto halves = console.session->halves();
    for (const auto &half : halves) {
        QSet<QString> names;
        const auto keys = console.keys(half.toStrongRef().data());
        for (K7DropButton *key : keys) {
            const QString name = textOf(key, QAccessible::Name);
            QVERIFY2(isName(name) && !names.contains(name), qPrintable(name));
            names << name;
            QVERIFY2(!textOf(key, QAccessible::Description).isEmpty(), qPrintable(name));
            const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(key);
            QCOMPARE(interface->role(), QAccessible::Button);
            QVERIFY(interface->state().focusable);
            QCOMPARE(bool(interface->state().checkable), key->isCheckable());
            ++count;
        }
    }
    QCOMPARE(count, KeyCount);
}

void tst_Accessibility::aKeyTellsTheColorOfItsRecord_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint32>("id");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("light");
    QTest::newRow("red") << "PRESET_05"
                         << "PRESET 05" << 58U << QColor(255, 0, 0) << "lit red";
    QTest::newRow("orange") << "INPUT_03"
                            << "INPUT 03" << 38U << QColor(255, 72, 0) << "lit orange";
    QTest::newRow("page up") << "LAYER_UP"
                             << "LAYER UP" << 34U << QColor(0, 0, 255) << "lit blue";
    QTest::newRow("page down") << "PRESET_DW"
                               << "PRESET DW" << 87U << QColor(0, 255, 0) << "lit green";
    QTest::newRow("off") << "NUMBER_01"
                         << "NUMBER 01" << 106U << QColor(0, 0, 0) << "unlit";
}

void tst_Accessibility::aKeyTellsTheColorOfItsRecord()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    QFETCH(quint32, id);
    QFETCH(QColor, color);
    QFETCH(QString, light);

    Console console;
    QVERIFY(!console.fault);
    auto record = std::make_shared<Korvo::ECButtonColor>();
    record->ButtonKey = id;
    record->R = quint8(color.red());
    record->G = quint8(color.green());
    record->B = quint8(color.blue());
    console.session->call(record);
    K7DropButton *button = console.key(key);
    QVERIFY(button);
    QCOMPARE(textOf(button, QAccessible::Name), name);
    QCOMPARE(textOf(button, QAccessible::Description), light);
}

void tst_Accessibility::anOledLabelTellsItsText()
{
    Console console;
    QVERIFY(!console.fault);
    auto record = std::make_shared<Korvo::ECOLEDText>();
    record->OledKey = 12;
    qstrcpy(record->OledText, "Cam 1");
    console.session->call(record);
    int labels = 0;
    const auto tickers = console.window->findChildren<Korvo::EC::TextTicker *>();
    for (Korvo::EC::TextTicker *ticker : tickers) {
        if (ticker->property("key") != QLatin1String("OLED_CS013"))
            continue;
        ++labels;
        QCOMPARE(QAccessible::queryAccessibleInterface(ticker)->role(), QAccessible::StaticText);
        QCOMPARE(textOf(ticker, QAccessible::Name), QStringLiteral("Cam 1"));
    }
    QCOMPARE(labels, 1);
}

void tst_Accessibility::theLeverIsASlider()
{
    Console console;
    QVERIFY(!console.fault);
    auto record = std::make_shared<Korvo::ECTBarValue>();
    record->Value = 600;
    console.session->call(record);
    QAccessibleInterface *lever =
        QAccessible::queryAccessibleInterface(console.window->findChild<Korvo::Widgets::tbar *>());
    QVERIFY(lever);
    QCOMPARE(lever->role(), QAccessible::Slider);
    QCOMPARE(lever->text(QAccessible::Name), QStringLiteral("T-bar"));
    QVERIFY(lever->state().disabled);
    QVERIFY(lever->valueInterface());
    QCOMPARE(lever->valueInterface()->currentValue().toDouble(), 50.0);
}

void tst_Accessibility::aReducedConsoleTellsAsMuch()
{
    Console console(0.5);
    QVERIFY(!console.fault);
    QVERIFY(QTest::qWaitForWindowActive(console.shown()));
    QAccessibleInterface *view = QAccessible::queryAccessibleInterface(console.view.data());
    QAccessibleInterface *window = QAccessible::queryAccessibleInterface(console.window.data());
    QCOMPARE(view->childCount(), 1);
    QCOMPARE(view->child(0), window);
    QCOMPARE(view->indexOfChild(window), 0);
    QVERIFY(treeOf(console.view.data())
                .contains(QAccessible::queryAccessibleInterface(console.key(QStringLiteral("PRESET_05")))));

    K7DropButton *const key = console.keys().constFirst();
    key->setFocus();
    QCOMPARE(view->focusChild(), QAccessible::queryAccessibleInterface(key));
}

void tst_Accessibility::arrowKeysReachEveryKey()
{
    QFETCH(qreal, factor);

    Console console(factor);
    QVERIFY(!console.fault);
    QVERIFY(QTest::qWaitForWindowActive(console.shown()));
    K7DropButton *const first = console.keys().constFirst();
    QSet<QWidget *> reached{first};
    QQueue<QWidget *> open;
    open.enqueue(first);
    while (!open.isEmpty()) {
        QWidget *const from = open.dequeue();
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
            from->setFocus();
            console.type(key);
            QWidget *const to = console.focused();
            QVERIFY(qobject_cast<K7DropButton *>(to));
            if (reached.contains(to))
                continue;
            reached << to;
            open.enqueue(to);
        }
    }
    QStringList missed;
    const auto keys = console.keys();
    for (K7DropButton *key : keys) {
        if (!reached.contains(key))
            missed << textOf(key, QAccessible::Name);
    }
    QCOMPARE(missed.join(QLatin1Char('\n')), QString());
    QCOMPARE(reached.size(), KeyCount);
}

void tst_Accessibility::spacePressesAndReleasesEveryKeyOnce()
{
    Console console;
    QVERIFY(!console.fault);
    QVERIFY(QTest::qWaitForWindowActive(console.window.data()));
    const auto keys = console.keys();
    QCOMPARE(keys.size(), KeyCount);
    for (K7DropButton *key : keys) {
        const QSignalSpy pressed(key, &QAbstractButton::pressed);
        const QSignalSpy released(key, &QAbstractButton::released);
        key->setFocus();
        QTest::keyPress(console.window->windowHandle(), Qt::Key_Space);
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(released.count(), 0);
        QTest::keyRelease(console.window->windowHandle(), Qt::Key_Space);
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(released.count(), 1);
    }

    const auto left = console.session->halves().constFirst().toStrongRef();
    const QSignalSpy pressed(left.data(), &Korvo::IKorvoECKeyboard::ecButtonPressed);
    const QSignalSpy released(left.data(), &Korvo::IKorvoECKeyboard::ecButtonRelease);
    console.key(QStringLiteral("PRESET_05"))->setFocus();
    QTest::keyClick(console.window->windowHandle(), Qt::Key_Space);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.constFirst().constFirst().toUInt(), 0xff0000U + 58);
    QCOMPARE(released.count(), 1);
    QCOMPARE(released.constFirst().constFirst().toUInt(), 0xff0000U + 58);
}

void tst_Accessibility::tabGoesFromSectionToSection()
{
    Console console;
    QVERIFY(!console.fault);
    QVERIFY(QTest::qWaitForWindowActive(console.window.data()));
    QWidget *const first = console.keys().constFirst();
    first->setFocus();
    QStringList sections;
    QSet<QWidget *> reached;
    for (QWidget *focused = first; !reached.contains(focused); focused = QApplication::focusWidget()) {
        QVERIFY(focused);
        reached << focused;
        if (sections.isEmpty() || sections.constLast() != sectionOf(focused))
            sections << sectionOf(focused);
        QTest::keyClick(console.window->windowHandle(), Qt::Key_Tab);
    }
    QCOMPARE(sections.join(QLatin1Char(' ')),
             QStringLiteral("ScreenKeyboardFrame LayerKeyboardFrame InputKeyboardFrame PresetKeyboardFrame "
                            "NumberKeyboardFrame FunctionKeyboardFrame TransitionKeyboardFrame "
                            "LogoKeyboardFrame ConsoleFloatWidget"));
}

void tst_Accessibility::tabReachesEveryControlOfThePanelAndShowsIt_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<qreal>("factor");
    QTest::newRow("forwards") << int(Qt::Key_Tab) << 1.0;
    QTest::newRow("backwards") << int(Qt::Key_Backtab) << 1.0;
    QTest::newRow("forwards, reduced") << int(Qt::Key_Tab) << 0.5;
    QTest::newRow("backwards, reduced") << int(Qt::Key_Backtab) << 0.5;
}

void tst_Accessibility::tabReachesEveryControlOfThePanelAndShowsIt()
{
    QFETCH(int, key);
    QFETCH(qreal, factor);

    Console console(factor);
    QVERIFY(!console.fault);
    QVERIFY(QTest::qWaitForWindowActive(console.shown()));
    auto *area = console.panel()->findChild<QScrollArea *>(QStringLiteral("scrollArea"));
    QVERIFY(area);
    QVERIFY(area->widget()->height() > area->viewport()->height()); // or there is nothing to scroll
    QSet<QWidget *> wanted;
    const auto widgets = console.panel()->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->isVisible() && widget->isEnabled() && widget->focusPolicy() & Qt::TabFocus &&
            !widget->focusProxy())
            wanted << widget;
    }
    QVERIFY(wanted.size() > 30);

    console.keys().constFirst()->setFocus();
    QSet<QWidget *> reached;
    QStringList hidden;
    QVector<int> tops; // in the order of the focus
    for (QWidget *focused = console.focused(); !reached.contains(focused); focused = console.focused()) {
        reached << focused;
        if (console.panel()->isAncestorOf(focused)) {
            tops << focused->mapTo(area->widget(), focused->rect().topLeft()).y();
            if (!isInSight(focused, area))
                hidden << described(QAccessible::queryAccessibleInterface(focused));
        }
        console.type(Qt::Key(key));
        QVERIFY(console.focused());
    }
    if (key == Qt::Key_Backtab)
        std::reverse(tops.begin(), tops.end());
    for (int i = 1; i < tops.size(); ++i)
        QVERIFY2(tops.at(i) > tops.at(i - 1) - rowReach, qPrintable(QString::number(i)));
    QCOMPARE(hidden.join(QLatin1Char('\n')), QString());
    QStringList missed;
    const QSet<QWidget *> missing = wanted - reached;
    for (QWidget *widget : missing) {
        if (!isReachedInItsGroup(console, qobject_cast<QAbstractButton *>(widget), reached))
            missed << described(QAccessible::queryAccessibleInterface(widget));
    }
    QCOMPARE(missed.join(QLatin1Char('\n')), QString());
}

QTEST_MAIN(tst_Accessibility)

#include "tst_accessibility.moc"
