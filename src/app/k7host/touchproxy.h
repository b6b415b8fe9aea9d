// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/ec/touchrouter.h>

#include <QGraphicsProxyWidget>

namespace K7Host {

/// Puts a widget into a scene and hands touches on to the child widgets that the fingers came down on; the
/// base class knows only of touches on the widget as a whole. A first finger that no widget takes acts as the
/// mouse.
class TouchProxy : public QGraphicsProxyWidget
{
    Q_OBJECT

public:
    explicit TouchProxy(QWidget *widget);

Q_SIGNALS:
    /// Tab, or Backtab, has gone past the last widget.
    void tabbedOut(bool forwards);

protected:
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    Korvo::EC::TouchRouter m_router;
};

} // namespace K7Host
