// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
class QAbstractButton;
QT_END_NAMESPACE

namespace Korvo::Internal {

/// Lets arrow keys go from a button to its neighbours in an exclusive group, in the order of their ids; from
/// a checked one they check the neighbour. Qt's buttons do so too, but not in a graphics scene, where the
/// view is what has the application's focus.
class ChoiceKeys : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a button.
    explicit ChoiceKeys(QAbstractButton *button);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractButton *const m_button;
};

} // namespace Korvo::Internal
