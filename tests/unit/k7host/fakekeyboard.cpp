// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"

#include <QPainter>
#include <QThread>

namespace K7Host {

FakeKeyboard::FakeKeyboard(const QColor &color, const QSize &formSize, const FakeKeyboardPlugin *plugin)
    : m_color(color)
    , m_plugin(plugin)
{
    resize(formSize);
}

FakeKeyboard::~FakeKeyboard() = default;

QString FakeKeyboard::displayName() const
{
    return m_color.name();
}

Ovo::Utils::Id FakeKeyboard::keyboardId() const
{
    return Ovo::Utils::Id::fromString(displayName());
}

void FakeKeyboard::applyNoramlStyleSheet()
{
    calls << QStringLiteral("applyNoramlStyleSheet");
    if (m_plugin)
        m_plugin->journal << displayName() + QStringLiteral(" applyNoramlStyleSheet");
}

bool FakeKeyboard::updateECButtonColor(std::shared_ptr<Korvo::ECButtonColor> color)
{
    takeRecord("updateECButtonColor", color);
    return true;
}

bool FakeKeyboard::updateECOledText(std::shared_ptr<Korvo::ECOLEDText> text)
{
    takeRecord("updateECOledText", text);
    return true;
}

bool FakeKeyboard::updateTBarValue(std::shared_ptr<Korvo::ECTBarValue> value)
{
    takeRecord("updateTBarValue", value);
    return true;
}

void FakeKeyboard::updateECDeviceIP(std::shared_ptr<Korvo::ECDeviceIPData> ip)
{
    takeRecord("updateECDeviceIP", ip);
}

bool FakeKeyboard::updateKeyboard()
{
    calls << QStringLiteral("updateKeyboard");
    return true;
}

void FakeKeyboard::updateDVISignalStatus(std::shared_ptr<Korvo::DVIInSignal> signal)
{
    takeRecord("updateDVISignalStatus", signal);
}

void FakeKeyboard::updatePeripheralVisibleState(std::shared_ptr<Korvo::PeripheralControlVisibleState> state)
{
    takeRecord("updatePeripheralVisibleState", state);
}

void FakeKeyboard::paintEvent(QPaintEvent * /*event*/)
{
    ++paintCount;
    QPainter(this).fillRect(rect(), m_color);
}

void FakeKeyboard::takeRecord(const char *operation, const std::shared_ptr<void> &record)
{
    calls << QLatin1String(operation);
    lastRecord = record;
    lastThread = QThread::currentThread();
}

FakeKeyboardPlugin::FakeKeyboardPlugin() = default;

FakeKeyboardPlugin::~FakeKeyboardPlugin() = default;

bool FakeKeyboardPlugin::initialize(const QStringList & /*arguments*/, QString * /*errorString*/)
{
    addObject(this);
    return true;
}

void FakeKeyboardPlugin::extensionsInitialized() {}

Ovo::ExtensionSystem::IPlugin::ShutdownFlag FakeKeyboardPlugin::aboutToShutdown()
{
    removeObject(this);
    return SynchronousShutdown;
}

QString FakeKeyboardPlugin::displayName() const
{
    return QStringLiteral("Fake");
}

QList<QWeakPointer<Korvo::IKorvoECKeyboard>> FakeKeyboardPlugin::keyboards() const
{
    journal << QStringLiteral("keyboards");
    if (!left)
        left.reset(new FakeKeyboard(Qt::darkRed, QSize(1754, 826), this));
    if (!right)
        right.reset(new FakeKeyboard(Qt::darkBlue, QSize(1719, 1050), this));
    return {left, right};
}

void FakeKeyboardPlugin::initStyleSheet()
{
    journal << QStringLiteral("initStyleSheet");
}

quint32 FakeKeyboardPlugin::modeId() const
{
    return 1;
}

bool FakeKeyboardPlugin::updateKeyboard()
{
    return false;
}

} // namespace K7Host
