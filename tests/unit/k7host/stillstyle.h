// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

namespace K7Host {

/// The theme's own style, but nothing on the way from one look to the other: what is shown depends on what
/// was done, never on when. To be set after the theme.
class StillStyle : public QProxyStyle
{
public:
    StillStyle()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace K7Host
