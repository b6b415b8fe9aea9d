// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "../unit/k7host/stillstyle.h"
#include "../unit/korvoeckeyboardk7/fingers.h"

#include <applytheme.h>
#include <consolesession.h>
#include <consolewindow.h>
#include <devicelink.h>
#include <hand.h>
#include <hostsettings.h>
#include <inputrecorder.h>
#include <kineticscroller.h>
#include <pluginhost.h>
#include <scaledview.h>
#include <traffic.h>

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>
#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/slidereditframe.h>
#include <korvo/widgets/switchcontrol.h>
#include <korvo/widgets/tbar.h>
#include <korvo/widgets/tumblertime.h>
#include <ovo/widgets/iplineedit.h>

#include <QApplication>
#include <QComboBox>
#include <QLoggingCategory>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <random>

using namespace K7Host;

namespace {

/// A device that never says anything, so that all that happens comes from the input.
class SilentDevice : public DeviceLink
{
public:
    void keyPressed(quint32) override {}
    void keyReleased(quint32) override {}
    void refresh() override {}
    void consoleClosed() override {}
    void leverMoved(quint16, bool) override {}
    void lampChanged(Lamp, bool, quint8) override {}
    void peripheralScreensChanged(int, int, const QVector<quint16> &) override {}
    void addressesRequested(quint8) override {}
    void addressesEntered(const QString &, const QString &, const QString &, const QString &) override {}
    void addressChangeRequested(quint8, quint8) override {}
    void clockSet(const QString &, const QString &) override {}
    void timeTypeChanged(int) override {}
    void restartRequested(quint8) override {}
};

/// Input and signals, in order, without what the console asks for every ten seconds.
class Journal : public TrafficListener
{
public:
    void noted(const ScenarioLine &line) override
    {
        const auto *signal = std::get_if<SignalLine>(&line.content);
        const bool isPeriodic = signal && signal->signal == QLatin1String("signalReqECDeviceIP");
        if (isPeriodic || std::holds_alternative<CallLine>(line.content))
            return;
        ScenarioLine untimed = line;
        untimed.ms.reset();
        lines.push_back(untimed);
        texts << QString::fromUtf8(toJson(untimed));
    }
    void clear()
    {
        lines.clear();
        texts.clear();
    }

    std::vector<ScenarioLine> lines;
    QStringList texts;
};

/// A console as it is after the first start, and all that passes in and out of it.
class Console
{
public:
    explicit Console(qreal factor)
        : plugins(settings.store())
    {
        fault = plugins.load(QStringLiteral(KORVO_PLUGINS));
        if (fault)
            return;
        traffic.addListener(&journal);
        session.reset(new ConsoleSession(plugins.keyboardPlugin(), &device));
        session->start();
        recorder.reset(new InputRecorder(session->halves(), &traffic));
        session->addObserver(&traffic);
        window.reset(new ConsoleWindow(session->halves()));
        window->findChild<Korvo::Widgets::TumblerTime *>()->setSec(30);
        if (factor < 1)
            view.reset(new ScaledView(window.data(), factor));
        new KineticScroller(window.data()); // what it takes is not recorded
        shown()->show();
    }

    QWidget *shown() const { return view ? static_cast<QWidget *>(view.data()) : window.data(); }

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
    SilentDevice device;
    Journal journal;
    Traffic traffic;
    QScopedPointer<ConsoleSession> session;
    QScopedPointer<ConsoleWindow> window;
    QScopedPointer<InputRecorder> recorder;
    QScopedPointer<ScaledView> view; // goes before the window
};

/// Somebody who plays with the console, with the mouse, fingers and a keyboard.
class Person
{
public:
    Person(Console *console, qreal factor, unsigned seed)
        : m_console(console)
        , m_factor(factor)
        , m_random(seed)
        , m_fingers(console->shown())
    {
    }

    void play(int gestures)
    {
        for (int i = 0; i < gestures; ++i) {
            gesture();
            QCoreApplication::processEvents();
        }
        m_fingers.liftAll();
        type(Qt::Key_Escape);
    }

private:
    int upTo(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    bool perhaps() { return upTo(2) == 0; }

    void gesture()
    {
        switch (upTo(8)) {
        case 0:
        case 1:
            return useMouse(anyOf<QAbstractButton>());
        case 2:
            return touch(perhaps() ? anyOf<QAbstractButton>() : anyOf<Korvo::Widgets::tbar>());
        case 3:
            return useMouse(anyControl());
        case 4:
            return turnWheel(perhaps() ? anyControl() : anyOf<QWidget>());
        case 5:
            return useMouse(anyOf<QWidget>());
        default:
            return typeAny();
        }
    }

    template <typename Widget>
    QWidget *anyOf()
    {
        QList<Widget *> widgets = m_console->window->template findChildren<Widget *>();
        if (QWidget *popup = QApplication::activePopupWidget())
            widgets += popup->findChildren<Widget *>();
        const auto isUseless = [](const Widget *widget) { return !widget->isVisible(); };
        widgets.erase(std::remove_if(widgets.begin(), widgets.end(), isUseless), widgets.end());
        return widgets.isEmpty() ? nullptr : widgets.at(upTo(widgets.size()));
    }

    QWidget *anyControl()
    {
        switch (upTo(7)) {
        case 0:
            return anyOf<Korvo::Widgets::SliderEditFrame>();
        case 1:
            return anyOf<Korvo::Widgets::SwitchControl>();
        case 2:
            return anyOf<Korvo::Widgets::TumblerTime>();
        case 3:
            return anyOf<Korvo::Widgets::DateWidget>();
        case 4:
            return anyOf<Ovo::Widgets::IPLineEdit>();
        case 5:
            return anyOf<QComboBox>();
        default:
            return anyOf<Korvo::Widgets::tbar>();
        }
    }

    /// Somewhere in a widget, in the window.
    QPoint placeIn(const QWidget *widget)
    {
        const QPoint at(upTo(widget->width()) & ~1, upTo(widget->height()) & ~1);
        if (widget->window() != m_console->window.data())
            return m_console->window->mapFromGlobal(widget->mapToGlobal(at));
        return widget->mapTo(m_console->window.data(), at);
    }

    QPoint shown(const QPoint &place) const { return (QPointF(place) * m_factor).toPoint(); }

    bool isAllowed(const QPoint &place) const
    {
        const QWidget *widget = m_console->window->childAt(place);
        return m_console->window->rect().contains(place) && !isBarred(widget);
    }

    /// Message boxes are answered, not played with. And what is pressed beside a calendar in a reduced window
    /// depends on what its scene makes of the mouse.
    bool isBarred(const QWidget *widget) const
    {
        static const QStringList names{QStringLiteral("pushButton_apply"), QStringLiteral("pushButton_time"),
                                       QStringLiteral("pushButton_restart"),
                                       QStringLiteral("peripheralApply")};
        const bool isCalendar = m_factor < 1 && qobject_cast<const Korvo::Widgets::DateWidget *>(widget);
        return widget && (isCalendar || names.contains(widget->objectName()));
    }

    bool isTumbler(const QPoint &place) const
    {
        const QWidget *widget = m_console->window->childAt(place);
        return widget && widget->inherits("Korvo::Widgets::TumblerWheel");
    }

    void mouse(QTest::MouseAction action, const QPoint &place)
    {
        QTest::mouseEvent(action, m_console->shown()->windowHandle(), Qt::LeftButton, {}, shown(place));
    }

    void useMouse(const QWidget *widget)
    {
        if (!widget)
            return;
        QPoint place = placeIn(widget);
        if (!isAllowed(place))
            return;
        m_fingers.liftAll(); // one hand at a time: popups take the fingers with the mouse
        const bool isDrag = perhaps() && !isTumbler(place); // how a wheel goes on depends on the time
        mouse(QTest::MousePress, place);
        for (int i = isDrag ? upTo(4) : 0; i > 0; --i) {
            const QPoint next = place + QPoint(upTo(80) - 40, upTo(80) - 40) * 2;
            if (!m_console->window->rect().contains(next))
                break;
            place = {next.x() & ~1, next.y() & ~1};
            mouse(QTest::MouseMove, place);
        }
        mouse(QTest::MouseRelease, place);
    }

    void touch(QWidget *widget)
    {
        const int finger = upTo(3);
        if (m_fingers.isDown(finger)) {
            if (perhaps())
                m_fingers.move(finger, m_fingers.place(finger) + QPoint(upTo(40) - 20, upTo(40) - 20));
            return m_fingers.lift(finger);
        }
        if (!widget || QApplication::activePopupWidget())
            return;
        QPoint place = placeIn(widget);
        // On its rail: a touch that the lever refuses would be the mouse, of which there is only one.
        if (qobject_cast<Korvo::Widgets::tbar *>(widget))
            place = widget->mapTo(m_console->window.data(), {76, 100 + 2 * upTo(80)});
        const QWidget *touched = m_console->window->childAt(place);
        // What takes no touches has the mouse's part of them.
        if (touched && isAllowed(place) && touched->testAttribute(Qt::WA_AcceptTouchEvents) &&
            !isTumbler(place))
            m_fingers.press(finger, shown(place));
    }

    void turnWheel(const QWidget *widget)
    {
        if (!widget)
            return;
        const QPoint place = shown(placeIn(widget));
        QWindow *window = m_console->shown()->windowHandle();
        const int angle = (upTo(5) - 2) * 60;
        if (!QRect(QPoint(), window->size()).contains(place))
            return;
        QWheelEvent event(place, window->mapToGlobal(place), QPoint(), {0, angle}, angle, Qt::Vertical,
                          Qt::NoButton, Qt::NoModifier);
        QSpontaneKeyEvent::setSpontaneous(&event); // the wheel gives the focus only then
        qApp->notify(window, &event);
    }

    void type(Qt::Key key)
    {
        QWidget *popup = QApplication::activePopupWidget();
        QWidget *receiver = popup ? popup : m_console->shown();
        QTest::keyClick(receiver->windowHandle(), key);
    }

    void typeAny()
    {
        static const Qt::Key keys[] = {
            Qt::Key_Tab,   Qt::Key_Tab,  Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Space,  Qt::Key_Return,
            Qt::Key_Up,    Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,    Qt::Key_PageUp, Qt::Key_PageDown,
            Qt::Key_Home,  Qt::Key_End,  Qt::Key_1,      Qt::Key_2,        Qt::Key_5,      Qt::Key_Period,
            Qt::Key_Space, Qt::Key_9,    Qt::Key_Escape, Qt::Key_Backspace};
        const Qt::Key key = keys[upTo(int(sizeof keys / sizeof *keys))];
        const QWidget *focused = m_console->window->focusWidget();
        // What is typed into the host's own window is not recorded, and Tab would lead out of it.
        if (focused && focused != m_console->window.data())
            type(isBarred(focused) ? Qt::Key_Tab : key);
    }

    Console *const m_console;
    const qreal m_factor;
    std::mt19937 m_random;
    Fingers m_fingers;
};

/// From a little before the first line that is another one.
QString difference(const QStringList &done, const QStringList &wanted)
{
    int line = 0;
    while (line < done.size() && line < wanted.size() && done.at(line) == wanted.at(line))
        ++line;
    const int start = qMax(0, line - 12);
    const auto shown = [start](const QStringList &lines) {
        return lines.mid(start, 16).join(QLatin1Char('\n'));
    };
    return QStringLiteral("\ndone:\n%1\nwanted:\n%2").arg(shown(done), shown(wanted));
}

} // namespace

/// What somebody does to a console is recorded, done again on another one, and has the same effect.
class tst_Replay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void whatWasDoneByHandIsDoneAgain_data();
    void whatWasDoneByHandIsDoneAgain();
};

void tst_Replay::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("korvo.k7.*.debug=false"));
    // Nothing depends on how long ago the last input was.
    QApplication::setDoubleClickInterval(0);
    QApplication::setKeyboardInputInterval(0);
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
    QApplication::setStyle(new StillStyle); // in place of the theme's
    QCOMPARE(QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration), 0);
}

void tst_Replay::whatWasDoneByHandIsDoneAgain_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 0; seed < 2; ++seed) {
        QTest::addRow("window, %u", seed) << 1.0 << seed;
        QTest::addRow("reduced, %u", seed) << 0.5 << seed;
    }
}

void tst_Replay::whatWasDoneByHandIsDoneAgain()
{
    QFETCH(qreal, factor);
    QFETCH(unsigned, seed);

    std::vector<ScenarioLine> lines;
    QStringList expected;
    {
        Console console(factor);
        QVERIFY2(!console.fault, qPrintable(console.fault ? console.fault->text : QString()));
        QVERIFY(QTest::qWaitForWindowActive(console.shown()));
        console.journal.clear();
        Person(&console, factor, seed).play(150);
        lines = console.journal.lines;
        expected = console.journal.texts;
    }
    QVERIFY(expected.filter(QStringLiteral("ecButtonPressed")).size() > 5);

    Console console(factor);
    QVERIFY2(!console.fault, qPrintable(console.fault ? console.fault->text : QString()));
    QVERIFY(QTest::qWaitForWindowActive(console.shown()));
    console.journal.clear();
    Hand hand(console.session->halves());
    int compared = 0;
    for (const ScenarioLine &line : lines) {
        const auto *input = std::get_if<InputLine>(&line.content);
        if (!input)
            continue;
        const auto fault = hand.act(*input);
        QVERIFY2(!fault, qPrintable((fault ? *fault : QString()) + QString::fromUtf8(toJson(line))));
        QCoreApplication::processEvents();
        const QStringList &done = console.journal.texts;
        for (; compared < done.size(); ++compared) {
            if (done.at(compared) != expected.value(compared))
                QFAIL(qPrintable(difference(done, expected)));
        }
    }
    QCOMPARE(console.journal.texts, expected);
}

QTEST_MAIN(tst_Replay)

#include "tst_replay.moc"
