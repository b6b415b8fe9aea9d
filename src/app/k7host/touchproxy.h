// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/ec/touchrouter.h>

#include <QGraphicsProxyWidget>

namespace K7Host {

/// Puts a widget into a scene and hands touches on to the child widgets that the fingers came down on; the
/// base class knows only of touches on the widget as a whole. A first finger that no widget takes acts as the
/// mouse.
///
/// Dialogs of the widget open in the scene too. The base class forgets that they are modal: here a modal one
/// stands in the middle, and nothing else in the scene takes input until it goes. Not so a dialog's dialogs.
class TouchProxy : public QGraphicsProxyWidget
{
    Q_OBJECT

public:
    explicit TouchProxy(QWidget *widget);

protected:
    bool event(QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    void watch(QGraphicsItem *child);
    void placeDialog(QGraphicsProxyWidget *dialog);

    Korvo::EC::TouchRouter m_router;
};

} // namespace K7Host
