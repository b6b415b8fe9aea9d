// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
class QScrollArea;
QT_END_NAMESPACE

namespace Korvo::Internal {

/// Scrolls to the control that the keyboard moves the focus to. A scroll area does so on its own while the
/// focus moves inside of it, but not when it comes from outside.
class FocusInSight : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a area and watches the controls that it holds now.
    explicit FocusInSight(QScrollArea *area);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void bringInSight(const QWidget *control);

    QScrollArea *const m_area;
};

} // namespace Korvo::Internal
