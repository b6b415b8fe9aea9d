// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include <applytheme.h>
#include <consolesession.h>
#include <consolewindow.h>
#include <faultylink.h>
#include <hostsettings.h>
#include <networkaddress.h>
#include <pluginhost.h>
#include <simulatedprocessor.h>

#include <korvo/keyboard/constants.h>
#include <korvo/keyboard/ikorvoeckeyboardplugin.h>
#include <korvo/widgets/tbar.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLoggingCategory>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstring>
#include <random>

using namespace K7Host;

Q_DECLARE_METATYPE(LinkFaults)

/// The real console on a bad link: once that has recovered, nothing wrong is left on it.
class tst_Faults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();

    void afterRecoveryTheConsoleIsAsIfNothingHadHappened_data();
    void afterRecoveryTheConsoleIsAsIfNothingHadHappened();
    void theConsoleStandsAStormAndAnswersKeys();

private:
    /// For whom the panel takes the addresses that come.
    enum class Asks { ForTheStrip, ForItsFields };

    /// A console with both halves.
    struct Picture
    {
        QStringList widgets; // a line for each
        QImage image;
    };

    void open(LinkFaults faults, quint32 seed, Asks asks);
    Picture withoutFaults(quint32 seed, Asks asks);
    void connectConsole(DeviceLink *device);
    void close();
    void use(quint32 seed);
    void useTheDesk();
    void spoilTheConsole();
    void settle();
    void fillTheStrip();

    QVector<QAbstractButton *> keysOfTheConsole() const;
    QTimer *timerOf(const QObject *owner, const char *name) const;
    QWidget *panel() const;
    QStringList shown() const;
    QString differenceFrom(const QStringList &expected) const;

    QTemporaryDir m_configDir;
    QScopedPointer<HostSettings> m_settings;
    QScopedPointer<PluginHost> m_plugins;
    Korvo::IKorvoECKeyboardPlugin *m_plugin = nullptr;

    QMap<quint32, Picture> m_withoutFaults; // by seed
    QScopedPointer<SimulatedProcessor> m_processor;
    QScopedPointer<FaultyLink> m_link; // null: the console is joined to the processor itself
    QScopedPointer<ConsoleSession> m_session;
    QScopedPointer<ConsoleWindow> m_window;
};

namespace {

const auto AllFaults =
    LinkFault::Late | LinkFault::Lost | LinkFault::Duplicate | LinkFault::Garbled | LinkFault::Storm;
constexpr int Presses = 20;

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

/// All that can be seen of a widget, as one line.
QString lineOf(const QWidget *widget)
{
    QStringList parts{QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                      widget->styleSheet(), widget->isHidden() ? text("hidden") : text("there"),
                      widget->isEnabled() ? text("enabled") : text("disabled")};
    if (widget->isVisible()) { // a hidden one lies where it was left
        const QRect place = widget->geometry();
        parts << text("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
    }
    const auto properties = widget->dynamicPropertyNames();
    for (const QByteArray &name : properties) {
        if (!name.startsWith("_q_"))
            parts << QString::fromLatin1(name) + QLatin1Char('=') + widget->property(name).toString();
    }
    for (const char *name : {"text", "checked", "down"})
        parts << widget->property(name).toString();
    if (const auto *lever = qobject_cast<const Korvo::Widgets::tbar *>(widget))
        parts << QString::number(lever->curValue()) << QString::number(lever->getTbarDirection());
    return parts.join(QLatin1Char('|'));
}

} // namespace

void tst_Faults::initTestCase()
{
    QVERIFY(m_configDir.isValid());
    // Null addresses and impossible lever positions are warned of, as they should be.
    QLoggingCategory::setFilterRules(
        text("korvo.k7.plugin.warning=false\nkorvo.widgets.warning=false\nkorvo.*.debug=false"));
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_configDir.path());
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
    m_settings.reset(new HostSettings(QStringLiteral("en")));
    m_plugins.reset(new PluginHost(m_settings->store()));
    const auto fault = m_plugins->load(QStringLiteral(KORVO_PLUGINS));
    QVERIFY2(!fault, qPrintable(fault ? fault->text : QString()));
    m_plugin = m_plugins->keyboardPlugin();
    QVERIFY(m_plugin);
}

void tst_Faults::cleanup()
{
    close();
}

void tst_Faults::cleanupTestCase()
{
    m_plugins.reset();
    m_settings.reset();
}

/// A console whose link is bad until the test has it recover; without faults, one without such a link.
void tst_Faults::open(LinkFaults faults, quint32 seed, Asks asks)
{
    close();
    m_processor.reset(new SimulatedProcessor);
    // The test moves the lever.
    timerOf(m_processor.data(), "frame")->setInterval(3600000);
    for (const char *name : {"answer0", "answer1", "link0", "link1"})
        timerOf(m_processor.data(), name)->setInterval(0);
    if (faults)
        m_link.reset(new FaultyLink(m_processor.data(), faults, seed));
    connectConsole(m_link ? static_cast<DeviceLink *>(m_link.data()) : m_processor.data());
    if (m_link)
        timerOf(m_link.data(), "turn")->stop();
    // A key of the console that stays down by itself was left so by the last one who pressed it.
    const auto keys = keysOfTheConsole();
    for (QAbstractButton *key : keys)
        key->setChecked(false);

    // The panel's clock and its requests for addresses.
    QVERIFY(panel());
    const auto timers = panel()->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timers.size() >= 2);
    for (QTimer *timer : timers)
        timer->stop();
    for (int port = 0; port < 2; ++port) {
        QVERIFY(asks == Asks::ForTheStrip ? QMetaObject::invokeMethod(panel(), "slotRefreshNetStatus")
                                          : QMetaObject::invokeMethod(panel(), "slotWANToggled",
                                                                      Q_ARG(int, port), Q_ARG(bool, true)));
    }
}

/// What a console shows that never had faults, with the keys of \a seed pressed.
tst_Faults::Picture tst_Faults::withoutFaults(quint32 seed, Asks asks)
{
    if (!m_withoutFaults.contains(seed)) {
        open({}, seed, asks);
        use(seed);
        settle();
        fillTheStrip();
        m_withoutFaults.insert(seed, {shown(), m_window->picture(1)});
    }
    return m_withoutFaults.value(seed);
}

void tst_Faults::connectConsole(DeviceLink *device)
{
    m_session.reset(new ConsoleSession(m_plugin, device));
    m_session->start();
    m_window.reset(new ConsoleWindow(m_session->halves()));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
}

void tst_Faults::close()
{
    m_window.reset();
    m_session.reset();
    m_link.reset();
    m_processor.reset();
}

/// Presses keys, the same ones for the same seed; the lever moves and bursts of a storm come meanwhile.
void tst_Faults::use(quint32 seed)
{
    const auto keys = keysOfTheConsole();
    QVERIFY(keys.size() >= 138);
    std::mt19937 generator(seed);
    for (int i = 0; i < Presses; ++i) {
        const auto key = generator() % static_cast<quint32>(keys.size());
        QTest::mouseClick(keys.at(static_cast<int>(key)), Qt::LeftButton);
        QVERIFY(QMetaObject::invokeMethod(m_processor.data(), "advanceFrame"));
        if (m_link)
            QVERIFY(QMetaObject::invokeMethod(m_link.data(), "blow"));
        if (i == Presses / 2)
            useTheDesk();
        QCoreApplication::processEvents();
    }
}

void tst_Faults::useTheDesk()
{
    DeviceLink *device = m_link ? static_cast<DeviceLink *>(m_link.data()) : m_processor.data();
    m_processor->setDviSignal(0, false);
    m_processor->setDviSignal(1, true);
    device->addressesEntered(text("eth2"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    device->addressChangeRequested(0, 1);
    device->addressesEntered(text("eth0"), text("10.1.0.2"), text("255.255.0.0"), text("10.1.0.1"));
    device->addressChangeRequested(1, 1);
}

/// Shows what no processor sends: so what is right afterwards has been put right.
void tst_Faults::spoilTheConsole()
{
    auto color = std::make_shared<Korvo::ECButtonColor>();
    color->R = 255;
    color->B = 255;
    auto label = std::make_shared<Korvo::ECOLEDText>();
    std::strcpy(label->OledText, "WRONG");
    auto lever = std::make_shared<Korvo::ECTBarValue>();
    lever->Value = 123;
    auto ip = std::make_shared<Korvo::ECDeviceIPData>();
    ip->IP = 0x01020304;
    auto dvi = std::make_shared<Korvo::DVIInSignal>();
    const auto visibility = std::make_shared<Korvo::PeripheralControlVisibleState>();
    const auto halves = m_plugin->keyboards();
    for (const auto &weak : halves) {
        const auto half = weak.toStrongRef();
        QVERIFY(half);
        for (quint32 id = 0; id < 256; ++id) {
            color->ButtonKey = id == 255 ? 0 : id; // the broadcast would end what is told apart
            half->updateECButtonColor(color);
            label->OledKey = id;
            half->updateECOledText(label);
        }
        half->updateTBarValue(lever);
        for (const quint8 index : {0, 1}) {
            ip->Index = index;
            half->updateECDeviceIP(ip);
            dvi->Index = index;
            half->updateDVISignalStatus(dvi);
        }
        half->updatePeripheralVisibleState(visibility);
    }
}

/// Waits until the processor has sent all that it is to send by itself.
void tst_Faults::settle()
{
    const QStringList answers{text("answer0"), text("answer1"), text("link0"), text("link1")};
    const auto isBusy = [this, &answers] {
        const auto timers = m_processor->findChildren<QTimer *>();
        return std::any_of(timers.cbegin(), timers.cend(), [&answers](const QTimer *timer) {
            return timer->isActive() && answers.contains(timer->objectName());
        });
    };
    QTRY_VERIFY(!isBusy());
}

QVector<QAbstractButton *> tst_Faults::keysOfTheConsole() const
{
    QVector<QAbstractButton *> keys;
    const auto buttons = m_window->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (button->property(Korvo::Constants::PROPERTY_KORVOECKEY).isValid())
            keys << button;
    }
    return keys;
}

/// What the panel does every ten seconds.
void tst_Faults::fillTheStrip()
{
    QVERIFY(QMetaObject::invokeMethod(panel(), "slotRefreshNetStatus"));
    // Its addresses come from another thread: the last to arrive.
    const auto *port = m_window->findChild<QWidget *>(text("toolButton_net2"));
    const auto *address = m_window->findChild<QLabel *>(text("label_2"));
    QVERIFY(port && address);
    QTRY_COMPARE(address->text(), text("10.0.0.2"));
    QTRY_VERIFY(!port->property("eth1StatusButton").toBool());
}

QTimer *tst_Faults::timerOf(const QObject *owner, const char *name) const
{
    return owner->findChild<QTimer *>(text(name));
}

QWidget *tst_Faults::panel() const
{
    const auto widgets = m_window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->inherits("Korvo::Internal::ConsoleFloatWidget"))
            return widget;
    }
    return nullptr;
}

/// A line for each widget of both halves.
QStringList tst_Faults::shown() const
{
    QStringList lines;
    const auto halves = m_session->halves();
    for (const auto &half : halves) {
        const auto widgets = half.toStrongRef()->findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            if (widget->window() == m_window.data()) // no pop-up
                lines << lineOf(widget);
        }
    }
    return lines;
}

QString tst_Faults::differenceFrom(const QStringList &expected) const
{
    const QStringList lines = shown();
    if (lines.size() != expected.size())
        return text("%1 widgets instead of %2").arg(lines.size()).arg(expected.size());
    for (int i = 0; i < lines.size(); ++i) {
        if (lines.at(i) != expected.at(i))
            return text("%1 instead of %2").arg(lines.at(i), expected.at(i));
    }
    return QString();
}

void tst_Faults::afterRecoveryTheConsoleIsAsIfNothingHadHappened_data()
{
    QTest::addColumn<LinkFaults>("faults");
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("isHarmful");
    const struct
    {
        const char *name;
        LinkFaults faults;
        bool isHarmful;
    } rows[] = {
        {"late", LinkFault::Late, true},
        {"lost", LinkFault::Lost, true},
        {"duplicate", LinkFault::Duplicate, false}, // the same again at once
        {"garbled", LinkFault::Garbled, true},
        {"storm", LinkFault::Storm, true},
        {"late and duplicate", LinkFault::Late | LinkFault::Duplicate, true},
        {"all", AllFaults, true},
    };
    for (const auto &row : rows) {
        const quint32 lastSeed = row.faults == AllFaults ? 3 : 1;
        for (quint32 seed = 1; seed <= lastSeed; ++seed) {
            const QByteArray name = QByteArray(row.name) + ", " + QByteArray::number(seed);
            QTest::newRow(name.constData()) << row.faults << seed << row.isHarmful;
        }
    }
}

void tst_Faults::afterRecoveryTheConsoleIsAsIfNothingHadHappened()
{
    QFETCH(LinkFaults, faults);
    QFETCH(quint32, seed);
    QFETCH(bool, isHarmful);
    const Asks asks = seed == 1 ? Asks::ForItsFields : Asks::ForTheStrip;
    const Picture expected = withoutFaults(seed, asks);
    QVERIFY(expected.widgets.size() > 300);
    open({}, seed, asks);
    spoilTheConsole();
    QVERIFY(!differenceFrom(expected.widgets).isEmpty());

    open(faults, seed, asks);
    QVERIFY(m_link->isBad());
    use(seed);
    settle();
    // Half of what is under way arrives; a storm sends ever more.
    const int underWay = m_link->underWay();
    if (!faults.testFlag(LinkFault::Storm))
        QTRY_VERIFY(m_link->underWay() <= underWay / 2);
    QVERIFY(!isHarmful || !differenceFrom(expected.widgets).isEmpty());

    const int failures = faults == AllFaults ? 2 : 1;
    for (int i = 0; i < failures; ++i) {
        m_link->recover();
        timerOf(m_link.data(), "turn")->stop();
        if (asks == Asks::ForItsFields)
            fillTheStrip();
        QTRY_COMPARE(differenceFrom(expected.widgets), QString());
        QTRY_COMPARE(m_window->picture(1), expected.image);
        m_link->fail();
        timerOf(m_link.data(), "turn")->stop();
        m_link->refresh();
    }
}

void tst_Faults::theConsoleStandsAStormAndAnswersKeys()
{
    open(LinkFault::Storm, 1, Asks::ForTheStrip);
    int arrived = 0;
    connect(m_link.data(), &DeviceLink::buttonColorReported, m_link.data(), [&arrived] { ++arrived; });
    QTRY_VERIFY(arrived > 200);
    const auto keys = keysOfTheConsole();
    const auto third = std::find_if(keys.cbegin(), keys.cend(), [](const QAbstractButton *key) {
        return key->property("key").toString() == QLatin1String("INPUT_03");
    });
    QVERIFY(third != keys.cend());
    QTest::mouseClick(*third, Qt::LeftButton);
    m_link->recover();
    QVERIFY2((*third)->styleSheet().contains(QLatin1String("ecbutton_green")),
             qPrintable((*third)->styleSheet()));
}

QTEST_MAIN(tst_Faults)

#include "tst_faults.moc"
