// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "korvoeckeyboardk7plugin.h"

#include "leftkeyboardframe.h"
#include "logging.h"
#include "rightkeyboardframe.h"

#include <korvo/utils/icon.h>
#include <ovo/extensionsystem/pluginmanager.h>

#include <QCoreApplication>
#include <QDir>
#include <QMap>
#include <QSettings>
#include <QSharedPointer>

namespace Korvo::ECKeyboard {

namespace Internal {

using Half = IKorvoECKeyboard;
using Plugin = IKorvoECKeyboardPlugin;

class K7PluginPrivate
{
public:
    explicit K7PluginPrivate(K7Plugin *plugin)
        : m_pPlugin(plugin)
    {
    }

    // The halves are made on demand; until then there is nothing to create or to connect.
    void createWidgets() {}
    void createConnects() {}

    void createLeftKeyboard();
    void createRightKeyboard();

    /// What makes a signal of \a half a signal of the plug-in.
    auto relayFrom(const Half *half) const
    {
        return [this, half](auto halfSignal, auto pluginSignal) {
            QObject::connect(half, halfSignal, m_pPlugin, pluginSignal);
        };
    }

    K7Plugin *m_pPlugin; // owns this
    QSharedPointer<K7::LeftKeyboardFrame> m_pLeftKeyboard;
    QSharedPointer<K7::RightKeyboardFrame> m_pRightKeyboard;
    QMap<eECButtonImage, QString> m_buttonBorderImageCSSes;
};

void K7PluginPrivate::createLeftKeyboard()
{
    m_pLeftKeyboard.reset(new K7::LeftKeyboardFrame(nullptr));
    const auto relay = relayFrom(m_pLeftKeyboard.data());
    relay(&Half::ecButtonPressed, &Plugin::ecButtonPressed);
    relay(&Half::ecButtonRelease, &Plugin::ecButtonRelease);
    relay(&Half::signalKorvoPluginModeChanged, &Plugin::signalKorvoPluginModeChanged);
}

void K7PluginPrivate::createRightKeyboard()
{
    m_pRightKeyboard.reset(new K7::RightKeyboardFrame(nullptr));
    const auto relay = relayFrom(m_pRightKeyboard.data());
    relay(&Half::ecButtonPressed, &Plugin::ecButtonPressed);
    relay(&Half::ecButtonRelease, &Plugin::ecButtonRelease);
    relay(&Half::signalKorvoPluginModeChanged, &Plugin::signalKorvoPluginModeChanged);
    relay(&Half::signalGrooseneckLightStatusChanged, &Plugin::signalGrooseneckLightStatusChanged);
    relay(&Half::signalFrontLightStatusChanged, &Plugin::signalFrontLightStatusChanged);
    relay(&Half::signalSideLightStatusChanged, &Plugin::signalSideLightStatusChanged);
    relay(&Half::signalLogoLightStatusChanged, &Plugin::signalLogoLightStatusChanged);
    relay(&Half::signalSetPeripheralDataChange, &Plugin::signalSetPeripheralDataChange);
    relay(&Half::signalUpdateSystemTime, &Plugin::signalUpdateSystemTime);
    relay(&Half::signalUpdateSystemIP, &Plugin::signalUpdateSystemIP);
    relay(&Half::ecTBarValueChanged, &Plugin::ecTBarValueChanged);
    relay(&Half::signalReqECDeviceIP, &Plugin::signalReqECDeviceIP);
    relay(&Half::signalRestartControlEvent, &Plugin::signalRestartControlEvent);
    relay(&Half::signalTimeTypeChanged, &Plugin::signalTimeTypeChanged);
    relay(&Half::signalIPModeChanged, &Plugin::signalIPModeChanged);
}

} // namespace Internal

static K7Plugin *m_instance = nullptr;

K7Plugin::K7Plugin()
    : d(new Internal::K7PluginPrivate(this))
{
    setObjectName(QStringLiteral("KorvoECKeyboardK7Plugin"));
    d->createWidgets();
    d->createConnects();
    m_instance = this;
}

K7Plugin::~K7Plugin()
{
    // One after the other, with all the rest in place: a half that goes releases the keys that are held, and
    // a host may answer that with records.
    d->m_buttonBorderImageCSSes.clear();
    d->m_pRightKeyboard.reset();
    d->m_pLeftKeyboard.reset();
    delete d;
    d = nullptr;
    m_instance = nullptr;
}

K7Plugin *K7Plugin::instance()
{
    return m_instance;
}

bool K7Plugin::initialize(const QStringList &, QString *)
{
    qCDebug(lcPlugin) << Q_FUNC_INFO;

    QString locale;
    if (const QSettings *settings = Ovo::ExtensionSystem::PluginManager::settings())
        locale = settings->value(QStringLiteral("General/OverrideLanguage")).toString();
    if (!installTranslator(locale))
        qCWarning(lcPlugin) << "Load " << QStringLiteral("korvoeckeyboardk7") << " Language failed!";

    addObject(this);
    return true;
}

void K7Plugin::extensionsInitialized()
{
    qCDebug(lcPlugin) << Q_FUNC_INFO;
}

bool K7Plugin::delayedInitialize()
{
    qCDebug(lcPlugin) << Q_FUNC_INFO;
    return true;
}

Ovo::ExtensionSystem::IPlugin::ShutdownFlag K7Plugin::aboutToShutdown()
{
    removeObject(this);
    return SynchronousShutdown;
}

bool K7Plugin::installTranslator(const QString &locale)
{
    const QString share =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share"));
    const QString dir = QDir::cleanPath(share + QStringLiteral("/translations"));
    return installTranslator(dir, QStringLiteral("korvoeckeyboardk7"), locale);
}

QString K7Plugin::displayName() const
{
    return QStringLiteral("K7");
}

QList<QWeakPointer<IKorvoECKeyboard>> K7Plugin::keyboards() const
{
    if (!d->m_pLeftKeyboard)
        d->createLeftKeyboard();
    if (!d->m_pRightKeyboard)
        d->createRightKeyboard();
    return {d->m_pLeftKeyboard, d->m_pRightKeyboard};
}

void K7Plugin::initStyleSheet()
{
    if (!d->m_buttonBorderImageCSSes.isEmpty())
        return;

    for (int i = 0; i < ECButtonImageCNT; ++i) {
        const auto image = static_cast<eECButtonImage>(i);
        const QString file = Utils::Icon::imageFileName(iconKey(image), QString());
        d->m_buttonBorderImageCSSes.insert(image, QStringLiteral("border-image:url(\"%1\")").arg(file));
    }
}

quint32 K7Plugin::modeId() const
{
    return 0x7403;
}

// Inert at this level: each half refreshes itself by its own updateKeyboard().
bool K7Plugin::updateKeyboard()
{
    return false;
}

QString K7Plugin::ecButtonBorderImageCSS(const eECButtonImage &image) const
{
    return d->m_buttonBorderImageCSSes.value(image);
}

QString K7Plugin::ecButtonBorderImageCSS(std::shared_ptr<ECButtonColor> color) const
{
    return ecButtonBorderImageCSS(keyImage(color.get()));
}

QString K7Plugin::ecPageUpButtonBorderImageCSS(std::shared_ptr<ECButtonColor> color) const
{
    return ecButtonBorderImageCSS(pageUpKeyImage(color.get()));
}

QString K7Plugin::ecPageDownButtonBorderImageCSS(std::shared_ptr<ECButtonColor> color) const
{
    return ecButtonBorderImageCSS(pageDownKeyImage(color.get()));
}

} // namespace Korvo::ECKeyboard
