// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QList>
#include <QObject>

QT_BEGIN_NAMESPACE
class QEvent;
QT_END_NAMESPACE

namespace Korvo::EC {
class K7DropButton;
class TextTicker;
} // namespace Korvo::EC

namespace Korvo::ECKeyboard::K7::Internal {

/// The id of a key or of an OLED label, which is its property; 0 when it has none that is a number.
int keyId(const QObject *widget);

/// Knows the ids of the keys, or of the OLED labels, of a section.
///
/// Every section is asked for every record, and a widget takes more than 2,000 instructions to tell a number
/// that its property holds as text. So the ids are read when one is first looked for, and once again after
/// the property of a widget changed. GUI thread only.
template <typename Widget>
class IdIndex : public QObject
{
public:
    /// Follows the ids of \a widgets from now on; null entries are passed over. Called once.
    void setWidgets(const QList<Widget *> &widgets);

    /// The first of the widgets that has \a id now; null when there is none.
    Widget *find(quint32 id);

    /// The id that \a widget has now, whether it is one of the widgets or not.
    quint32 idOf(const QObject *widget) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void readIds();

    QList<Widget *> m_widgets;
    bool m_isRead = false; // what follows is worth nothing until it is
    QHash<quint32, Widget *> m_widgetOfId;
    QHash<const QObject *, quint32> m_idOfWidget;
};

using KeyIndex = IdIndex<Korvo::EC::K7DropButton>;
using LabelIndex = IdIndex<Korvo::EC::TextTicker>;

} // namespace Korvo::ECKeyboard::K7::Internal
