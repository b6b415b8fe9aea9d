// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keypainting.h"

#include "keyface.h"

#include <QAbstractButton>
#include <QPainter>

namespace Korvo::EC {

namespace {

constexpr int pressedInset = 3;  // a pressed key sinks
constexpr int disabledInset = 6; // a disabled one is out of reach

KeyFace faceOf(const QAbstractButton *key)
{
    const QPalette &palette = key->palette();
    const auto color = [&palette](QPalette::ColorRole role) { return palette.color(role).rgb(); };
    KeyFace face;
    face.picture = pictureOf(key->styleSheet()).value_or(QString());
    face.size = key->size();
    face.pixelRatio = key->devicePixelRatioF();
    face.well = color(QPalette::Button);
    face.ground = face.well;
    if (!key->isEnabled()) {
        face.inset = disabledInset;
    } else if (key->isDown()) {
        face.inset = pressedInset;
        face.ground = color(QPalette::Midlight);
    } else if (key->isChecked()) {
        face.ground = color(QPalette::Light);
    }
    face.rim = key->hasFocus() ? color(QPalette::Highlight) : face.ground;
    return face;
}

} // namespace

void paintKey(QPainter *painter, const QAbstractButton *key)
{
    painter->drawImage(0, 0, faceOf(key).image());
    const QIcon icon = key->icon();
    if (!icon.isNull()) {
        const QRect area(QPoint(0, 0), key->iconSize());
        icon.paint(painter, area.translated(key->rect().center() - area.center()), Qt::AlignCenter,
                   key->isEnabled() ? QIcon::Normal : QIcon::Disabled);
        return; // in place of the lettering
    }
    if (key->text().isEmpty())
        return;
    painter->setPen(key->palette().color(QPalette::ButtonText));
    painter->drawText(key->rect().translated(0, key->isDown() ? 1 : 0),
                      Qt::AlignCenter | Qt::TextShowMnemonic, key->text());
}

} // namespace Korvo::EC
