// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keysection.h"

#include "korvoeckeyboardk7plugin.h"

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>
#include <korvo/keyboard/records.h>

namespace Korvo::ECKeyboard::K7::Internal {

namespace {

constexpr quint32 KeyCodeOffset = 0xff0000;
constexpr quint32 BroadcastKey = 255;

/// What \a builder makes of \a look; nothing once the plug-in is gone, though a host may still hold a half.
template <typename Builder, typename Look>
QString styleSheetFor(Builder builder, const Look &look)
{
    const K7Plugin *plugin = K7Plugin::instance();
    return plugin ? (plugin->*builder)(look) : QString();
}

QString imageStyleSheet(eECButtonImage image)
{
    using Builder = QString (K7Plugin::*)(const eECButtonImage &) const;
    return styleSheetFor<Builder>(&K7Plugin::ecButtonBorderImageCSS, image);
}

QString ordinaryStyleSheet(const std::shared_ptr<ECButtonColor> &color)
{
    using Builder = QString (K7Plugin::*)(std::shared_ptr<ECButtonColor>) const;
    return styleSheetFor<Builder>(&K7Plugin::ecButtonBorderImageCSS, color);
}

} // namespace

quint32 keyCode(const KeyIndex &keys, const QObject *key)
{
    return keys.idOf(key) + KeyCodeOffset;
}

void letGoOfKeys(QWidget *keyboard)
{
    keyboard->hide();
}

void leaveOutOfTabOrder(QWidget *button, const QString &name)
{
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(name);
}

void appendKeys(KeyList *keys, const QButtonGroup *group)
{
    const QList<QAbstractButton *> buttons = group->buttons();
    for (QAbstractButton *button : buttons)
        keys->append(qobject_cast<EC::K7DropButton *>(button));
}

void appendLabels(LabelList *labels, const QObject *holder)
{
    labels->append(holder->findChildren<EC::TextTicker *>());
}

void paintKey(QWidget *key, const QString &styleSheet)
{
    // Others may set the style sheet too, so what the key shows is asked of the key.
    if (key->styleSheet() != styleSheet)
        key->setStyleSheet(styleSheet);
}

void paintIdle(QAbstractButton *key)
{
    paintKey(key, imageStyleSheet(WhiteButton));
}

void paintIdle(const QButtonGroup *group)
{
    const QList<QAbstractButton *> buttons = group->buttons();
    for (QAbstractButton *button : buttons)
        paintIdle(button);
}

void paintIdle(const PageKeys &pageKeys)
{
    // Black up and white down, on purpose.
    paintKey(pageKeys.up, imageStyleSheet(PageUpBlackButton));
    paintKey(pageKeys.down, imageStyleSheet(PageDownWhiteButton));
}

bool paintAllKeys(const KeyList &keys, const std::shared_ptr<ECButtonColor> &color)
{
    if (!color || color->ButtonKey != BroadcastKey)
        return false;

    const QString styleSheet = ordinaryStyleSheet(color);
    for (EC::K7DropButton *key : keys) {
        if (key)
            paintKey(key, styleSheet);
    }
    return true;
}

bool paintMatchingKey(KeyIndex *keys, const std::shared_ptr<ECButtonColor> &color, const PageKeys &pageKeys)
{
    EC::K7DropButton *key = color ? keys->find(color->ButtonKey) : nullptr;
    if (!key)
        return false;

    if (key == pageKeys.up)
        paintKey(key, styleSheetFor(&K7Plugin::ecPageUpButtonBorderImageCSS, color));
    else if (key == pageKeys.down)
        paintKey(key, styleSheetFor(&K7Plugin::ecPageDownButtonBorderImageCSS, color));
    else
        paintKey(key, ordinaryStyleSheet(color));
    return true;
}

bool writeMatchingLabel(LabelIndex *labels, const std::shared_ptr<ECOLEDText> &text)
{
    EC::TextTicker *label = text ? labels->find(text->OledKey) : nullptr;
    if (!label)
        return false;

    const int length = static_cast<int>(qstrnlen(text->OledText, sizeof(text->OledText)));
    label->setText(QString::fromUtf8(text->OledText, length));
    return true;
}

} // namespace Korvo::ECKeyboard::K7::Internal
