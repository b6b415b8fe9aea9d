// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

/// The console as a host shows it: the plug-in loaded from disk, both halves side by side at native size.

#include "process.h"

#include "hostsettings.h"
#include "pluginhost.h"

#include <korvo/ec/textticker.h>
#include <korvo/keyboard/ikorvoeckeyboard.h>
#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QToolButton>

#include <cstdio>

namespace {

using Halves = QList<QWeakPointer<Korvo::IKorvoECKeyboard>>;

/// The class of the toolkit that \a widget's own class comes from.
QString plainKind(const QWidget *widget)
{
    const QMetaObject *type = widget->metaObject();
    while (type->className()[0] != 'Q')
        type = type->superClass();
    return QString::fromLatin1(type->className());
}

QJsonObject partOf(const QWidget *widget, const QWidget *window)
{
    const QPoint place = widget->mapTo(window, QPoint());
    return {{QStringLiteral("kind"), plainKind(widget)},
            {QStringLiteral("isTicker"), qobject_cast<const Korvo::EC::TextTicker *>(widget) != nullptr},
            {QStringLiteral("x"), place.x()},
            {QStringLiteral("y"), place.y()},
            {QStringLiteral("width"), widget->width()},
            {QStringLiteral("height"), widget->height()},
            {QStringLiteral("text"), widget->property("text").toString()}};
}

class Console : public Process::Subject
{
public:
    explicit Console(const QString &pluginDir)
        : m_settings(QString())
        , m_plugins(m_settings.store())
    {
        m_plugins.load(pluginDir);
    }

    ~Console() override
    {
        for (const auto &half : qAsConst(m_halves)) {
            if (const auto keyboard = half.toStrongRef())
                keyboard->setParent(nullptr);
        }
    }

    bool isUsable() const { return m_plugins.keyboardPlugin(); }

    void fill(QWidget *window) override
    {
        m_window = window;
        Korvo::IKorvoECKeyboardPlugin *plugin = m_plugins.keyboardPlugin();
        plugin->initStyleSheet();
        m_halves = plugin->keyboards();
        for (const auto &half : qAsConst(m_halves)) {
            const auto keyboard = half.toStrongRef();
            keyboard->setParent(window);
            // In its place already: a widget with a style sheet of its own is polished anew when it moves.
            keyboard->applyNoramlStyleSheet();
        }
        window->ensurePolished(); // the halves know their sizes from then on
        placeHalves();
        window->resize(window->childrenRect().size());
    }

    void scroll() override
    {
        const auto labels = m_window->findChildren<Korvo::EC::TextTicker *>();
        for (Korvo::EC::TextTicker *label : labels)
            label->setText(QStringLiteral("A text that is longer than its label"));
    }

    void calmDown() override
    {
        const auto buttons = m_window->findChildren<QToolButton *>();
        for (QToolButton *button : buttons) {
            if (button->property("floatButton_hide").toBool())
                button->click();
        }
    }

    void list() override
    {
        QJsonArray parts;
        const auto widgets = m_window->findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            if (widget->isVisible())
                parts.append(partOf(widget, m_window));
        }
        std::puts(QJsonDocument(parts).toJson().constData());
    }

private:
    void placeHalves()
    {
        int left = 0;
        for (const auto &half : qAsConst(m_halves)) {
            const auto keyboard = half.toStrongRef();
            const QSize size = keyboard->size().expandedTo(keyboard->minimumSizeHint());
            keyboard->setGeometry(QRect(QPoint(left, 0), size.boundedTo(keyboard->maximumSize())));
            left += size.width();
        }
    }

    const K7Host::HostSettings m_settings;
    K7Host::PluginHost m_plugins;
    Halves m_halves;
    QWidget *m_window = nullptr;
};

std::unique_ptr<Process::Subject> makeConsole(const QStringList &arguments)
{
    auto console = std::make_unique<Console>(arguments.value(0));
    if (!console->isUsable())
        return nullptr;
    return console;
}

} // namespace

int main(int argc, char *argv[])
{
    return Process::run(argc, argv, makeConsole);
}
