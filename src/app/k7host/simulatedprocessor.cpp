// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "simulatedprocessor.h"

#include <QRunnable>
#include <QTimer>

#include <utility>

namespace K7Host {

namespace {

std::shared_ptr<Korvo::ECButtonColor> colorRecord(quint32 key, QRgb color)
{
    auto record = std::make_shared<Korvo::ECButtonColor>();
    record->ButtonKey = key;
    record->R = static_cast<quint8>(qRed(color));
    record->G = static_cast<quint8>(qGreen(color));
    record->B = static_cast<quint8>(qBlue(color));
    return record;
}

std::shared_ptr<Korvo::ECOLEDText> textRecord(quint32 label, const QString &text)
{
    auto record = std::make_shared<Korvo::ECOLEDText>();
    record->OledKey = label;
    qstrncpy(record->OledText, text.toUtf8().constData(), sizeof record->OledText);
    return record;
}

std::shared_ptr<Korvo::ECTBarValue> leverRecord(const Lever &lever)
{
    auto record = std::make_shared<Korvo::ECTBarValue>();
    record->Value = static_cast<quint32>(lever.position);
    record->IsBottomToTop = lever.isBottomToTop ? 1 : 0;
    return record;
}

std::shared_ptr<Korvo::ECDeviceIPData> portRecord(std::size_t index, const NetworkPort &port)
{
    auto record = std::make_shared<Korvo::ECDeviceIPData>();
    record->Index = static_cast<quint8>(index);
    record->Status = port.isUp ? 1 : 0;
    record->IP = port.addresses.ip;
    record->Mask = port.addresses.mask;
    record->Gateway = port.addresses.gateway;
    return record;
}

std::shared_ptr<Korvo::DVIInSignal> dviRecord(std::size_t input, bool hasSignal)
{
    auto record = std::make_shared<Korvo::DVIInSignal>();
    record->Index = static_cast<quint8>(input);
    record->Signal = hasSignal ? 1 : 0;
    return record;
}

/// The same keys and labels, idle and empty.
ConsoleState darkened(ConsoleState state)
{
    for (QRgb &color : state.colors)
        color = KeyColor::Idle;
    for (QString &text : state.texts)
        text.clear();
    return state;
}

/// Emits the address record of a port.
class PortReport : public QRunnable
{
public:
    PortReport(DeviceLink *link, std::shared_ptr<Korvo::ECDeviceIPData> record)
        : m_link(link)
        , m_record(std::move(record))
    {
    }

    void run() override { emit m_link->deviceIPReported(m_record); }

private:
    DeviceLink *const m_link;
    const std::shared_ptr<Korvo::ECDeviceIPData> m_record;
};

/// The entries of \a current that \a known does not hold.
template <typename Value>
QMap<quint32, Value> newIn(const QMap<quint32, Value> &current, const QMap<quint32, Value> &known)
{
    QMap<quint32, Value> news;
    for (auto it = current.cbegin(); it != current.cend(); ++it) {
        const auto old = known.constFind(it.key());
        if (old == known.cend() || *old != *it)
            news.insert(it.key(), *it);
    }
    return news;
}

} // namespace

SimulatedProcessor::SimulatedProcessor(QObject *parent)
    : DeviceLink(parent)
    , m_shown(m_model.state())
    , m_frameTimer(makeTimer(QStringLiteral("frame"), TransitionModel::FrameMs))
    , m_restartTimer(makeTimer(QStringLiteral("restart"), RestartMs))
{
    m_frameTimer->setTimerType(Qt::PreciseTimer);
    connect(m_frameTimer, &QTimer::timeout, this, &SimulatedProcessor::advanceFrame);
    m_restartTimer->setSingleShot(true);
    connect(m_restartTimer, &QTimer::timeout, this, &SimulatedProcessor::finishRestart);
    for (std::size_t port = 0; port < PortCount; ++port) {
        PortTimers &timers = m_portTimers.at(port);
        timers = {makeTimer(QStringLiteral("answer%1").arg(port), AnswerMs),
                  makeTimer(QStringLiteral("link%1").arg(port), LinkDownMs)};
        timers.answer->setSingleShot(true);
        timers.link->setSingleShot(true);
        connect(timers.answer, &QTimer::timeout, this, [this, port] { sendPort(port); });
        connect(timers.link, &QTimer::timeout, this, [this, port] { raiseLink(port); });
    }
    m_pool.setMaxThreadCount(1);
}

SimulatedProcessor::~SimulatedProcessor()
{
    // What is still to be emitted needs this object whole.
    consoleClosed();
}

void SimulatedProcessor::keyPressed(quint32 code)
{
    if (!m_hardware.isOn())
        return;
    m_model.press(code - KeyCodeOffset);
    answer();
}

void SimulatedProcessor::keyReleased(quint32 code)
{
    Q_UNUSED(code)
}

void SimulatedProcessor::refresh()
{
    m_isConsoleThere = true;
    sendAll();
}

void SimulatedProcessor::consoleClosed()
{
    m_isConsoleThere = false;
    m_pool.clear();
    m_pool.waitForDone();
}

void SimulatedProcessor::leverMoved(quint16 value, bool isBottomToTop)
{
    // This processor moves the lever, never the other way round.
    Q_UNUSED(value)
    Q_UNUSED(isBottomToTop)
}

void SimulatedProcessor::lampChanged(Lamp lamp, bool isOn, quint8 brightness)
{
    m_hardware.setLamp(lamp, isOn, brightness);
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::peripheralScreensChanged(int count, int operationScreen,
                                                  const QVector<quint16> &sizes)
{
    m_hardware.setScreens(count, operationScreen, sizes);
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::addressesRequested(quint8 port)
{
    if (!m_hardware.isOn() || port >= PortCount)
        return;
    // One answer is for all who ask meanwhile.
    QTimer *timer = m_portTimers.at(port).answer;
    if (!timer->isActive())
        timer->start();
}

void SimulatedProcessor::addressesEntered(const QString &interfaceName, const QString &ip,
                                          const QString &mask, const QString &gateway)
{
    if (m_hardware.isOn())
        m_hardware.enterAddresses(interfaceName, ip, mask, gateway);
}

void SimulatedProcessor::addressChangeRequested(quint8 port, quint8 mode)
{
    Q_UNUSED(mode)
    if (!m_hardware.isOn() || port >= PortCount)
        return;
    if (m_hardware.changeAddresses(port))
        m_portTimers.at(port).link->start();
    // Also tells a console whose addresses were refused that the old ones hold.
    sendPort(port);
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::clockSet(const QString &date, const QString &time)
{
    m_hardware.setClock(date, time, QDateTime::currentDateTime());
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::timeTypeChanged(int type)
{
    m_hardware.setTimeType(type);
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::restartRequested(quint8 type)
{
    if (!m_hardware.isOn())
        return;
    if (type == Korvo::Restart) {
        goDark(Power::Restarting);
        m_restartTimer->start();
    } else if (type == Korvo::Shutdown) {
        goDark(Power::Off);
    }
}

void SimulatedProcessor::switchOn()
{
    if (hardware().power == Power::Off)
        comeBack();
}

void SimulatedProcessor::setDviSignal(int input, bool hasSignal)
{
    const auto index = static_cast<std::size_t>(input);
    if (index >= DviInputCount || hardware().dviSignals.at(index) == hasSignal)
        return;
    m_hardware.setDviSignal(index, hasSignal);
    if (m_hardware.isOn() && m_isConsoleThere)
        emit dviSignalReported(dviRecord(index, hasSignal));
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::advanceFrame()
{
    m_model.advanceFrame();
    answer();
}

void SimulatedProcessor::finishRestart()
{
    if (hardware().power == Power::Restarting)
        comeBack();
}

QTimer *SimulatedProcessor::makeTimer(const QString &name, int intervalMs)
{
    auto *timer = new QTimer(this);
    timer->setObjectName(name);
    timer->setInterval(intervalMs);
    return timer;
}

void SimulatedProcessor::answer()
{
    if (!m_model.isMoving() || !m_hardware.isOn())
        m_frameTimer->stop();
    else if (!m_frameTimer->isActive())
        m_frameTimer->start();
    sendChanges();
}

void SimulatedProcessor::sendChanges()
{
    if (!m_isConsoleThere)
        return;
    const ConsoleState current = m_hardware.isOn() ? m_model.state() : darkened(m_model.state());
    const KeyColors colors = newIn(current.colors, m_shown.colors);
    const LabelTexts texts = newIn(current.texts, m_shown.texts);

    // A receiver may press a key: that answer then holds what is left of this one, and all that is newer.
    const quint32 number = ++m_answers;
    const auto isOutdated = [this, number] { return m_answers != number; };

    for (auto it = colors.cbegin(); it != colors.cend() && !isOutdated(); ++it) {
        m_shown.colors.insert(it.key(), *it);
        emit buttonColorReported(colorRecord(it.key(), *it));
    }
    for (auto it = texts.cbegin(); it != texts.cend() && !isOutdated(); ++it) {
        m_shown.texts.insert(it.key(), *it);
        emit oledTextReported(textRecord(it.key(), *it));
    }
    if (!isOutdated() && m_shown.lever != current.lever) {
        m_shown.lever = current.lever;
        emit tBarValueReported(leverRecord(*current.lever));
    }
}

void SimulatedProcessor::sendAll()
{
    m_shown = {};
    answer();
    sendSignals();
}

/// What the console shows besides keys, labels and lever.
void SimulatedProcessor::sendSignals()
{
    if (!m_isConsoleThere || !m_hardware.isOn())
        return;
    auto visible = std::make_shared<Korvo::PeripheralControlVisibleState>();
    visible->visible = 1;
    emit peripheralVisibilityReported(visible);
    for (std::size_t input = 0; input < DviInputCount; ++input)
        emit dviSignalReported(dviRecord(input, hardware().dviSignals.at(input)));
    for (std::size_t port = 0; port < PortCount; ++port)
        sendPort(port);
}

void SimulatedProcessor::sendPort(std::size_t port)
{
    if (!m_isConsoleThere)
        return;
    const auto record = portRecord(port, hardware().ports.at(port));
    if (port == 0)
        m_pool.start(new PortReport(this, record));
    else
        emit deviceIPReported(record);
}

void SimulatedProcessor::raiseLink(std::size_t port)
{
    m_hardware.raiseLink(port);
    sendPort(port);
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::goDark(Power power)
{
    m_hardware.goDark(power);
    for (const PortTimers &timers : m_portTimers) {
        timers.answer->stop();
        timers.link->stop();
    }
    answer();
    emit hardwareChanged(hardware());
}

void SimulatedProcessor::comeBack()
{
    m_hardware.switchOn();
    sendAll();
    emit hardwareChanged(hardware());
}

} // namespace K7Host
