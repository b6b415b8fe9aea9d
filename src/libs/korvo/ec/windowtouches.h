// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "touchrouter.h"

#include <QObject>

namespace Korvo::EC {

class K7DropButton;

/// Routes the touches of one native window to its keys, before Qt hands out the rest. Owned by the window's
/// widget; made by the first key that is shown there.
class WindowTouches : public QObject
{
    Q_OBJECT

public:
    static void routeTo(const K7DropButton *key);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit WindowTouches(QWidget *window);

    bool take(QTouchEvent *event);

    TouchRouter m_router;
};

} // namespace Korvo::EC
