// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace K7Host {

/// Scrolls the scroll areas of a window by finger or mouse, as a phone does: a drag moves the page wherever
/// in it it begins, and the page goes on for a while when it is let go of with speed.
///
/// A drag is a scroll once it is longer than QApplication::startDragDistance(), goes along a scroll bar that
/// has a range, and more that way than across; the innermost such area around the press moves. The widget
/// that it began on then gets its release outside of itself, and the focus goes back to where it was.
/// Buttons and switches get their press at once, and show it. Whatever else takes the focus by a click, such
/// as a field, a list or a slider, may act on the press already: it gets it when the finger is lifted where
/// it came down, or goes across, which a list takes for no press at all; until then its dynamic property
/// "isTouched" is true, for style sheets. Handles of sliders, scroll bars, and widgets that take touches keep
/// what begins on them.
///
/// A page that moves by itself stops at its end, by the next press in its area, which does nothing else, and
/// when others scroll it. It does not do so where the style has no animations: then what happens does not
/// depend on time. Nothing runs while nothing moves. GUI thread only.
///
/// Make it after whatever else filters the application's input: what it takes away is then nobody's input.
class KineticScroller : public QObject
{
    Q_OBJECT

public:
    /// A child of \a window, which is not null.
    explicit KineticScroller(QWidget *window);
    ~KineticScroller() override;

    /// Sees the events of the whole application.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace K7Host
