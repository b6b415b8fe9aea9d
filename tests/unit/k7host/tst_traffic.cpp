// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <traffic.h>

#include <QTest>
#include <QThread>

using namespace K7Host;

namespace {

class Notes : public TrafficListener
{
public:
    void noted(const ScenarioLine &line) override { lines << line; }

    QStringList texts() const
    {
        QStringList texts;
        for (const ScenarioLine &line : lines)
            texts << QString::fromUtf8(toJson({{}, line.direction, line.content}));
        return texts;
    }

    QVector<ScenarioLine> lines;
};

const char Signal[] = R"({"dir":"out","signal":"signalKorvoPluginModeChanged","args":[]})";
const char Idle[] = R"({"dir":"in","op":"applyNoramlStyleSheet","half":"left"})";
const char UpdateBegun[] = R"({"dir":"in","op":"updateKeyboard","half":"right"})";
const char Update[] = R"({"dir":"in","op":"updateKeyboard","half":"right","result":false})";

} // namespace

class tst_Traffic : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void everyListenerIsToldOfEveryLine();
    void aListenerThatHasLeftIsToldNothing();
    void aCallIsToldWhenItReturns();
    void whatACallCausesFollowsIt();
    void callsMayOverlapInAnyOrder();
    void timesNeverRunBackwards();
    void linesMayComeFromAnyThread();

private:
    QStringList expected(std::initializer_list<const char *> lines) const
    {
        QStringList texts;
        for (const char *line : lines)
            texts << QString::fromUtf8(line);
        return texts;
    }
    void signal() { m_traffic->emitted({QStringLiteral("signalKorvoPluginModeChanged"), {}}); }

    QScopedPointer<Notes> m_notes;
    QScopedPointer<Traffic> m_traffic;
};

void tst_Traffic::init()
{
    m_notes.reset(new Notes);
    m_traffic.reset(new Traffic);
    m_traffic->addListener(m_notes.data());
}

void tst_Traffic::everyListenerIsToldOfEveryLine()
{
    Notes second;
    m_traffic->addListener(&second);
    m_traffic->note(Direction::Out, MessageLine{QStringLiteral("Remind"), QStringLiteral("Now"), {}});
    signal();
    QCOMPARE(
        m_notes->texts(),
        expected({R"({"dir":"out","message":{"title":"Remind","text":"Now","informative":""}})", Signal}));
    QCOMPARE(second.texts(), m_notes->texts());
}

void tst_Traffic::aListenerThatHasLeftIsToldNothing()
{
    Notes second;
    m_traffic->addListener(&second);
    signal();
    m_traffic->removeListener(m_notes.data());
    signal();
    QCOMPARE(m_notes->texts(), expected({Signal}));
    QCOMPARE(second.texts(), expected({Signal, Signal}));
    m_traffic->removeListener(&second);
    signal();
    QCOMPARE(second.lines.size(), 2);
}

void tst_Traffic::aCallIsToldWhenItReturns()
{
    const HostCall call = IdleLook();
    m_traffic->calling(call, Half::Left, nullptr);
    QVERIFY(m_notes->lines.isEmpty());
    m_traffic->called(call, Half::Left, nullptr, {});
    QCOMPARE(m_notes->texts(), expected({Idle}));
}

void tst_Traffic::whatACallCausesFollowsIt()
{
    const HostCall outer = KeyboardUpdate();
    const HostCall inner = IdleLook();
    m_traffic->calling(outer, Half::Right, nullptr);
    QVERIFY(m_notes->lines.isEmpty());
    signal();
    QCOMPARE(m_notes->texts(), expected({UpdateBegun, Signal}));
    m_traffic->calling(inner, Half::Left, nullptr);
    m_traffic->called(inner, Half::Left, nullptr, {});
    QCOMPARE(m_notes->texts(), expected({UpdateBegun, Signal, Idle}));
    m_traffic->called(outer, Half::Right, nullptr, false);
    signal();
    QCOMPARE(m_notes->texts(), expected({UpdateBegun, Signal, Idle, Signal}));
}

/// In different threads; the later one has its line when the first has.
void tst_Traffic::callsMayOverlapInAnyOrder()
{
    class Elsewhere : public QThread
    {
    public:
        explicit Elsewhere(Traffic *traffic)
            : m_traffic(traffic)
        {
        }
        void run() override
        {
            const HostCall call = KeyboardUpdate();
            m_traffic->calling(call, Half::Right, nullptr);
            m_traffic->called(call, Half::Right, nullptr, false);
        }

    private:
        Traffic *const m_traffic;
    };
    const HostCall first = IdleLook();
    m_traffic->calling(first, Half::Left, nullptr);
    Elsewhere elsewhere(m_traffic.data());
    elsewhere.start();
    QVERIFY(elsewhere.wait());
    QVERIFY(m_notes->lines.isEmpty());
    m_traffic->called(first, Half::Left, nullptr, {});
    QCOMPARE(m_notes->texts(), expected({Idle, Update}));
}

void tst_Traffic::timesNeverRunBackwards()
{
    const double before = m_traffic->now();
    QVERIFY(before >= 0);
    const HostCall call = IdleLook();
    m_traffic->calling(call, Half::Left, nullptr);
    signal();
    m_traffic->called(call, Half::Left, nullptr, {});
    signal();
    double last = before;
    for (const ScenarioLine &line : qAsConst(m_notes->lines)) {
        QVERIFY(line.ms);
        QVERIFY(*line.ms >= last);
        last = *line.ms;
    }
    QVERIFY(m_traffic->now() >= last);
}

void tst_Traffic::linesMayComeFromAnyThread()
{
    constexpr int Count = 500;
    class Caller : public QThread
    {
    public:
        explicit Caller(Traffic *traffic)
            : m_traffic(traffic)
        {
        }
        void run() override
        {
            for (int i = 0; i < Count; ++i) {
                const HostCall call = IdleLook();
                m_traffic->calling(call, Half::Left, nullptr);
                m_traffic->called(call, Half::Left, nullptr, {});
            }
        }

    private:
        Traffic *const m_traffic;
    };
    Caller caller(m_traffic.data());
    caller.start();
    for (int i = 0; i < Count; ++i)
        signal();
    QVERIFY(caller.wait());
    const QStringList texts = m_notes->texts();
    QCOMPARE(texts.count(QString::fromUtf8(Idle)), Count);
    QCOMPARE(texts.count(QString::fromUtf8(Signal)), Count);
}

QTEST_GUILESS_MAIN(tst_Traffic)

#include "tst_traffic.moc"
