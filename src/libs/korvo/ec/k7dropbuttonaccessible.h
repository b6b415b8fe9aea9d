// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>

namespace Korvo::EC {

class K7DropButton;

/// A key as assistive technology knows it: a button with a name, a light and an action that presses it.
///
/// The name is the key's accessibleName(); without one it is its "key" property with blanks for underscores
/// ("PRESET_05" is "PRESET 05"), then its text on one line, then its object name.
///
/// The description is the light, after the picture in the key's own style sheet, whatever its shape: "lit
/// red", "lit orange" and so on. White and black are the pictures of keys at rest: "unlit". Without a picture
/// it is the key's accessibleDescription() or tool tip.
///
/// The press action presses and releases a key that is visible and enabled, as a tap does.
class K7DropButtonAccessible : public QAccessibleWidget
{
public:
    explicit K7DropButtonAccessible(K7DropButton *key);

    /// Makes assistive technology see keys so, from the first call on.
    static void install();

    QString text(QAccessible::Text type) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    K7DropButton *const m_key;
};

/// The light of \a key in words, empty when it has no picture.
QString lightOf(const K7DropButton *key);

} // namespace Korvo::EC
