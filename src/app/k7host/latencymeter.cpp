// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "latencymeter.h"

#include "devicelink.h"
#include "handoverwatch.h"
#include "looprates.h"
#include "unpaintedrecords.h"

#include <korvo/keyboard/constants.h>
#include <korvo/keyboard/ikorvoeckeyboard.h>
#include <korvo/widgets/tbar.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QSet>
#include <QThread>
#include <QTouchEvent>
#include <QVariant>
#include <QWindow>

#include <algorithm>
#include <vector>

using Korvo::IKorvoECKeyboard;
using Korvo::Widgets::tbar;

namespace K7Host {

namespace {

constexpr quint32 EveryKey = 255;
constexpr int SummaryNameWidth = 20;

using WidgetList = UnpaintedRecords::WidgetList;

LatencyMeter::Clock monotonicClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.nsecsElapsed(); };
}

/// Of a key that has an id.
std::optional<quint32> codeOfKey(const QObject *receiver)
{
    if (!qobject_cast<const QAbstractButton *>(receiver))
        return {};
    const QVariant id = receiver->property(Korvo::Constants::PROPERTY_KORVOECKEY);
    if (!id.isValid())
        return {};
    return id.toUInt() + KeyCodeOffset;
}

bool isKeyPressing(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return true;
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
        return static_cast<const QTouchEvent *>(event)->touchPointStates().testFlag(Qt::TouchPointPressed);
    case QEvent::KeyPress: {
        const auto *key = static_cast<const QKeyEvent *>(event);
        return !key->isAutoRepeat() && (key->key() == Qt::Key_Space || key->key() == Qt::Key_Select);
    }
    default:
        return false;
    }
}

/// The press that is on its way: first to a window, from there to a widget, or through a view to another one,
/// or to several when fingers come down together.
class PressOnItsWay
{
public:
    bool hasCome() const { return m_first; }

    /// True when a press event at \a receiver is a new press, rather than the one that others have had.
    bool isNew(const QObject *receiver) const
    {
        // Nobody hands a press on to a window, to whom it had first, or from one key to another.
        return !m_first || receiver == m_first || receiver->isWindowType() ||
               (m_isFirstAKey && codeOfKey(receiver));
    }
    void begin(const QObject *receiver, qint64 now)
    {
        m_first = receiver;
        m_isFirstAKey = codeOfKey(receiver).has_value();
        m_begin = now;
        m_reached.clear();
    }
    void reach(const QObject *receiver)
    {
        if (const auto code = codeOfKey(receiver))
            m_reached.insert(*code);
    }
    void end() { m_first = nullptr; }

    /// When it began, once for each key that it reached.
    std::optional<qint64> take(quint32 code)
    {
        if (!m_first || !m_reached.remove(code))
            return {};
        return m_begin;
    }

private:
    const QObject *m_first = nullptr; // may be gone
    bool m_isFirstAKey = false;
    qint64 m_begin = 0;
    QSet<quint32> m_reached; // codes
};

/// What records change in a half.
class ChangingParts
{
public:
    ChangingParts() = default;
    explicit ChangingParts(const IKorvoECKeyboard *half)
    {
        const auto buttons = half->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons)
            m_keys.insert(idOf(button), button);
        const auto labels = half->findChildren<QLabel *>();
        for (QLabel *label : labels)
            m_labels.insert(idOf(label), label);
        const auto levers = half->findChildren<tbar *>();
        for (tbar *lever : levers)
            m_levers.emplace_back(lever);
    }

    /// None for a null record, and for calls that are not measured.
    WidgetList of(const HostCall &call) const
    {
        if (const auto *color = std::get_if<std::shared_ptr<Korvo::ECButtonColor>>(&call))
            return *color ? keys((*color)->ButtonKey) : WidgetList();
        if (const auto *text = std::get_if<std::shared_ptr<Korvo::ECOLEDText>>(&call))
            return *text ? list(m_labels.values((*text)->OledKey)) : WidgetList();
        if (const auto *value = std::get_if<std::shared_ptr<Korvo::ECTBarValue>>(&call))
            return *value ? m_levers : WidgetList();
        return {};
    }

private:
    using ById = QMultiHash<quint32, QPointer<QWidget>>;

    static quint32 idOf(const QWidget *widget)
    {
        return widget->property(Korvo::Constants::PROPERTY_KORVOECKEY).toUInt();
    }
    static WidgetList list(const QList<QPointer<QWidget>> &widgets)
    {
        return {widgets.cbegin(), widgets.cend()};
    }
    WidgetList keys(quint32 id) const { return list(id == EveryKey ? m_keys.values() : m_keys.values(id)); }

    ById m_keys;
    ById m_labels;
    WidgetList m_levers;
};

/// Whether \a call is of a kind whose parts are known.
bool isMeasured(const HostCall &call)
{
    return std::holds_alternative<std::shared_ptr<Korvo::ECButtonColor>>(call) ||
           std::holds_alternative<std::shared_ptr<Korvo::ECOLEDText>>(call) ||
           std::holds_alternative<std::shared_ptr<Korvo::ECTBarValue>>(call);
}

/// What a record changes of a widget.
struct ShownState
{
    explicit ShownState(const QWidget *widget)
    {
        if (const auto *lever = qobject_cast<const tbar *>(widget)) {
            percent = lever->curValue();
            direction = lever->getTbarDirection();
        } else if (const auto *label = qobject_cast<const QLabel *>(widget)) {
            text = label->text();
        } else {
            text = widget->styleSheet();
        }
    }
    bool operator!=(const ShownState &other) const
    {
        return text != other.text || percent < other.percent || percent > other.percent ||
               direction != other.direction;
    }

    QString text;
    double percent = 0;
    tbar::TbarDirection direction = tbar::BottomToTop;
};

/// What a record may change, as it was before.
class StatesBefore
{
public:
    StatesBefore() = default;
    explicit StatesBefore(const WidgetList &widgets)
    {
        m_states.reserve(widgets.size());
        for (const QPointer<QWidget> &widget : widgets) {
            if (widget)
                m_states.emplace_back(widget, ShownState(widget));
        }
    }
    WidgetList changedOnes() const
    {
        WidgetList widgets;
        for (const auto &[widget, before] : m_states) {
            if (widget && ShownState(widget) != before)
                widgets.push_back(widget);
        }
        return widgets;
    }

private:
    std::vector<std::pair<QPointer<QWidget>, ShownState>> m_states;
};

/// A record that a half is taking.
struct OpenCall
{
    const HostCall *call;
    StatesBefore before;
    qint64 begin;
};

/// A record of another thread that waits to be taken.
struct FollowedCall
{
    StatesBefore before;
    qint64 begin;
};

} // namespace

class LatencyMeter::Private
{
public:
    explicit Private(const Clock &clock)
        : now(clock ? clock : monotonicClock())
        , elsewhere(now)
    {
    }

    StatesBefore statesBefore(const HostCall &call, const IKorvoECKeyboard *keyboard) const
    {
        const auto found = parts.constFind(keyboard);
        return found != parts.cend() ? StatesBefore(found->of(call)) : StatesBefore();
    }

    const Clock now;
    QHash<const IKorvoECKeyboard *, ChangingParts> parts; // by half, constant
    LatencyFigures touchToCode;
    LatencyFigures recordToPixel;
    LatencyFigures idleRecordToReturn;
    LatencyFigures changingRecordToReturn;
    LatencyFigures recordInQueue;
    qint64 recordCount = 0; // of this thread
    LoopRates rates;

    PressOnItsWay press;
    std::vector<OpenCall> calls; // that have not returned; the innermost is the last
    HandOverWatch elsewhere;
    std::optional<FollowedCall> followed; // of another thread, until it is known to have been taken
    UnpaintedRecords records;
    bool isUpdating = false; // a window is being painted on the screen
    bool isEndPosted = false;
};

LatencyMeter::LatencyMeter(const QList<QWeakPointer<IKorvoECKeyboard>> &halves, const Clock &clock,
                           QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(clock))
{
    for (const auto &half : halves) {
        if (const auto keyboard = half.toStrongRef())
            d->parts.insert(keyboard.data(), ChangingParts(keyboard.data()));
    }
    connect(&d->elsewhere, &HandOverWatch::comes, this, &LatencyMeter::followedComes);
    connect(&d->elsewhere, &HandOverWatch::taken, this, &LatencyMeter::followedWasTaken);
    setMeasuring(true);
}

LatencyMeter::~LatencyMeter() = default;

void LatencyMeter::setMeasuring(bool isOn)
{
    if (isOn) {
        qApp->installEventFilter(this);
        d->rates.start(d->now());
    } else {
        qApp->removeEventFilter(this);
        d->rates.stop(d->now());
    }
}

const LatencyFigures &LatencyMeter::touchToCode() const
{
    return d->touchToCode;
}

const LatencyFigures &LatencyMeter::recordToPixel() const
{
    return d->recordToPixel;
}

const LatencyFigures &LatencyMeter::idleRecordToReturn() const
{
    return d->idleRecordToReturn;
}

const LatencyFigures &LatencyMeter::changingRecordToReturn() const
{
    return d->changingRecordToReturn;
}

const LatencyFigures &LatencyMeter::recordInQueue() const
{
    return d->recordInQueue;
}

qint64 LatencyMeter::recordCount() const
{
    return d->recordCount + d->elsewhere.count();
}

qint64 LatencyMeter::mostWaiting() const
{
    return d->elsewhere.mostWaiting();
}

double LatencyMeter::wakeUpRate() const
{
    return d->rates.wakeUps(d->now());
}

double LatencyMeter::paintRate() const
{
    return d->rates.paints(d->now());
}

std::vector<LatencyMeter::Row> LatencyMeter::rows() const
{
    return {{QStringLiteral("touch to key code"), &d->touchToCode},
            {QStringLiteral("record to pixel"), &d->recordToPixel},
            {QStringLiteral("record, no change"), &d->idleRecordToReturn},
            {QStringLiteral("record, change"), &d->changingRecordToReturn},
            {QStringLiteral("record in the queue"), &d->recordInQueue}};
}

QString LatencyMeter::recordsText() const
{
    return QStringLiteral("%1 in all, at most %2 waiting").arg(recordCount()).arg(mostWaiting());
}

QString LatencyMeter::ratesText() const
{
    return QStringLiteral("%1 wake-ups, %2 paints a second")
        .arg(wakeUpRate(), 0, 'f', 1)
        .arg(paintRate(), 0, 'f', 1);
}

QString LatencyMeter::summary() const
{
    const auto line = [](const QString &name, const QString &count, const QString &median,
                         const QString &percentile99, const QString &worst) {
        return QStringLiteral("%1%2%3%4%5\n")
            .arg(name, -SummaryNameWidth)
            .arg(count, 9)
            .arg(median, 12)
            .arg(percentile99, 12)
            .arg(worst, 12);
    };
    const auto lineOf = [&line](const QString &name, const LatencyFigures &figures) {
        if (figures.count() == 0)
            return QStringLiteral("%1%2\n").arg(name, -SummaryNameWidth).arg(QStringLiteral("none"), 9);
        return line(name, QString::number(figures.count()), millisecondsText(figures.median()),
                    millisecondsText(figures.percentile99()), millisecondsText(figures.worst()));
    };
    QString text = line(QStringLiteral("latency"), QStringLiteral("count"), QStringLiteral("median"),
                        QStringLiteral("99 %"), QStringLiteral("worst"));
    for (const Row &row : rows())
        text += lineOf(row.name, *row.figures);
    text += QStringLiteral("%1 %2\n").arg(QStringLiteral("records"), -SummaryNameWidth).arg(recordsText());
    text += QStringLiteral("%1 %2\n").arg(QStringLiteral("event loop"), -SummaryNameWidth).arg(ratesText());
    return text;
}

void LatencyMeter::reset()
{
    d->touchToCode = LatencyFigures();
    d->recordToPixel = LatencyFigures();
    d->idleRecordToReturn = LatencyFigures();
    d->changingRecordToReturn = LatencyFigures();
    d->recordInQueue = LatencyFigures();
    d->recordCount = 0;
    d->elsewhere.reset();
    d->rates.reset(d->now());
    emit changed();
}

void LatencyMeter::calling(const HostCall &call, Half /*half*/, IKorvoECKeyboard *keyboard)
{
    if (QThread::currentThread() != thread()) {
        d->elsewhere.calling(call, keyboard);
        return;
    }
    ++d->recordCount;
    if (!isMeasured(call))
        return;
    d->calls.push_back({&call, d->statesBefore(call, keyboard), 0});
    d->calls.back().begin = d->now();
}

void LatencyMeter::called(const HostCall &call, Half /*half*/, IKorvoECKeyboard * /*keyboard*/,
                          std::optional<bool> /*result*/)
{
    if (QThread::currentThread() != thread()) {
        d->elsewhere.called(call);
        return;
    }
    if (d->calls.empty() || d->calls.back().call != &call)
        return;
    const qint64 now = d->now();
    const OpenCall open = std::move(d->calls.back());
    d->calls.pop_back();
    const WidgetList changedOnes = open.before.changedOnes();
    d->records.add(changedOnes, open.begin);
    addTo(changedOnes.empty() ? &d->idleRecordToReturn : &d->changingRecordToReturn, open.begin, now);
}

void LatencyMeter::followedComes(const HostCall &call, const IKorvoECKeyboard *keyboard, qint64 begin)
{
    d->followed = FollowedCall{d->statesBefore(call, keyboard), begin};
}

void LatencyMeter::followedWasTaken()
{
    if (!d->followed)
        return;
    d->records.add(d->followed->before.changedOnes(), d->followed->begin);
    addTo(&d->recordInQueue, d->followed->begin, d->now());
    d->followed.reset();
}

void LatencyMeter::emitted(const SignalLine &signal)
{
    if (!d->press.hasCome() || signal.signal != QLatin1String("ecButtonPressed"))
        return;
    const qint64 now = d->now();
    const auto code = static_cast<quint32>(signal.args.at(0).toDouble());
    if (const auto begin = d->press.take(code))
        addTo(&d->touchToCode, *begin, now);
}

// A widget that is changed is painted when its window gets its next UpdateRequest, or is exposed, and at the
// end of the same delivery the window hands the new picture to the window system. In a view, whose own window
// is the one on the screen, what is embedded paints within the viewport's Paint. Nobody is told when a
// delivery is over, so an event is posted ahead of all others: the event loop comes to it after that. A Paint
// outside of an update is that of a picture, which nobody sees on the screen.
bool LatencyMeter::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::KeyPress:
        if (!isKeyPressing(event))
            break;
        if (d->press.isNew(watched)) {
            d->press.begin(watched, d->now());
            endSoon();
        }
        d->press.reach(watched);
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::KeyRelease:
        d->press.end();
        break;
    case QEvent::UpdateRequest:
    case QEvent::Expose:
        // A window and its widget may each get one.
        if (event->type() == QEvent::UpdateRequest && watched->isWidgetType())
            d->rates.notePaint();
        // What it changed is painted before its thread has come to tell that it was handed over.
        if (d->followed && !d->followed->before.changedOnes().empty())
            followedWasTaken();
        if (d->records.isEmpty())
            break;
        // What another window has painted is on the screen: updates are not nested.
        if (d->records.isPainting())
            endUpdate();
        d->isUpdating = true;
        endSoon();
        break;
    case QEvent::Paint:
        if (d->isUpdating)
            d->records.painted(watched);
        break;
    default:
        break;
    }
    return false;
}

void LatencyMeter::customEvent(QEvent * /*event*/)
{
    d->isEndPosted = false;
    d->press.end();
    endUpdate();
}

void LatencyMeter::addTo(LatencyFigures *figures, qint64 begin, qint64 end)
{
    figures->add(end - begin);
    emit changed();
}

/// Learns when what is being delivered has been delivered.
void LatencyMeter::endSoon()
{
    if (d->isEndPosted)
        return;
    d->isEndPosted = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
}

void LatencyMeter::endUpdate()
{
    d->isUpdating = false;
    if (d->records.isEmpty())
        return;
    if (d->records.isPainting())
        d->records.handedOver(d->now());
    d->records.dropUnseen();
    const auto complete = d->records.takeComplete();
    for (const auto &[begin, end] : complete)
        addTo(&d->recordToPixel, begin, end);
}

} // namespace K7Host
