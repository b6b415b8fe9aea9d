// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

#include <memory>

namespace Korvo {
struct ECTBarValue;
}

namespace Korvo::ECKeyboard::K7 {

namespace Internal {
class TBarKeyboadFramePrivate;
}

/// Mirrors the console's transition lever. It cannot be moved by hand: the lever is enabled only while a
/// record is written into it.
class TBarKeyboadFrame : public QFrame
{
    Q_OBJECT

public:
    explicit TBarKeyboadFrame(QWidget *parent);
    ~TBarKeyboadFrame() override;

    /// Nothing: the lever has no idle look of its own.
    void applyNoramlStyleSheet();
    /// True for every record; null moves nothing.
    bool updateTBarValue(std::shared_ptr<ECTBarValue> value);

    QSize sizeHint() const override;

public Q_SLOTS:
    /// The lever stands at \a percent, 0 to 100. Says so in the console's steps.
    void slotTbarValueChanged(double percent, double previous);

Q_SIGNALS:
    /// The lever was moved to \a value, in twelfths of a percent, 0 to 1200.
    void ecTBarValueChanged(const quint16 &value, bool isBottomToTop);

protected:
    void changeEvent(QEvent *event) override;

private:
    Internal::TBarKeyboadFramePrivate *d;
};

} // namespace Korvo::ECKeyboard::K7
