// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/widgets/export.h>

#include <QMessageBox>
#include <QScopedPointer>

namespace Ovo::Widgets {

class FramelessMessageBoxPrivate;

/// A message box without a window frame, for touch screens.
///
/// The window title is shown inside, as a bar; the box is moved by dragging anything that takes no press
/// itself, and stays on the screen that it is dragged to. It opens over the middle of its parent's window and
/// is modal to the application. Buttons are large enough for fingers. All else is QMessageBox's.
///
/// It is a window of its own also when its parent is embedded in a graphics scene: an embedded dialog would
/// be modal to nothing.
///
/// To a style sheet the bar is QLabel#messagebox_title.
class OVO_WIDGETS_EXPORT FramelessMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    explicit FramelessMessageBox(QWidget *parent = nullptr);
    FramelessMessageBox(Icon icon, const QString &title, const QString &text,
                        StandardButtons buttons = NoButton, QWidget *parent = nullptr);
    ~FramelessMessageBox() override;

    /// These show a box and return its answer. It is NoButton when there was none: the parent was deleted, or
    /// the application quit, while the box was open.
    static StandardButton warning(QWidget *parent, const QString &title, const QString &text,
                                  StandardButtons buttons = Ok, StandardButton defaultButton = NoButton);
    static StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                   StandardButtons buttons = StandardButtons(Yes | No),
                                   StandardButton defaultButton = NoButton);
    static StandardButton information(QWidget *parent, const QString &title, const QString &text,
                                      StandardButtons buttons = Ok, StandardButton defaultButton = NoButton);

protected:
    bool event(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    const QScopedPointer<FramelessMessageBoxPrivate> d;
};

} // namespace Ovo::Widgets
