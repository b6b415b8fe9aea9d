// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "keynames.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QGraphicsView>
#include <QHash>
#include <QList>
#include <QPair>
#include <QWeakPointer>

namespace K7Host {

/// Draws what of console halves holds keys, with the id of each key and label in its place, as large as there
/// is room. Ctrl and the wheel zoom; when there is room for names, they are shown.
class KeyMap : public QGraphicsView
{
    Q_OBJECT

public:
    explicit KeyMap(QWidget *parent = nullptr);
    ~KeyMap() override;

    /// Shows \a halves side by side, and follows changes of their size. They may go at any time.
    void setHalves(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves);

    /// Lights the key or label \a id up for a moment, if it is shown.
    void flash(ConsoleItem::Kind kind, quint32 id);

Q_SIGNALS:
    void keyClicked(quint32 id, const QString &name);
    void labelClicked(quint32 id, const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private Q_SLOTS:
    void drawHalves();
    void endFlash();

private:
    qreal drawHalf(const Korvo::IKorvoECKeyboard &half, qreal left);
    void applyZoom();

    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> m_halves;
    QHash<QPair<int, quint32>, QGraphicsItem *> m_items; // by kind and id; of the scene
    QTimer *const m_flashTimer;                          // a child
    qreal m_zoom = 1;                                    // 1 is all, as large as there is room
};

} // namespace K7Host
