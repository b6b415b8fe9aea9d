// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>

namespace K7Host {

class ScaledView;

/// A reduced view as assistive technology knows it: Qt shows nothing of what is in a scene, so the window in
/// the view is its only child here.
class ScaledViewAccessible : public QAccessibleWidget
{
public:
    explicit ScaledViewAccessible(ScaledView *view);

    /// Makes assistive technology see reduced views so, from the first call on.
    static void install();

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *focusChild() const override;

private:
    QAccessibleInterface *shownWindow() const;

    ScaledView *const m_view;
};

} // namespace K7Host
