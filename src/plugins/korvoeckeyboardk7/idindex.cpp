// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "idindex.h"

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>
#include <korvo/keyboard/constants.h>

#include <QDynamicPropertyChangeEvent>
#include <QVariant>

#include <algorithm>

namespace Korvo::ECKeyboard::K7::Internal {

int keyId(const QObject *widget)
{
    return widget->property(Constants::PROPERTY_KORVOECKEY).toInt();
}

template <typename Widget>
void IdIndex<Widget>::setWidgets(const QList<Widget *> &widgets)
{
    m_widgets = widgets;
    // Here and not with the first record: that may come amid an event of a key, and a filter that is
    // installed meanwhile makes Qt hand the event to another one twice.
    for (Widget *widget : widgets) {
        if (widget)
            widget->installEventFilter(this);
    }
}

template <typename Widget>
Widget *IdIndex<Widget>::find(quint32 id)
{
    if (!m_isRead)
        readIds();
    return m_widgetOfId.value(id);
}

template <typename Widget>
quint32 IdIndex<Widget>::idOf(const QObject *widget) const
{
    // One that is pressed does not wait until all others have been asked too.
    const auto known = m_isRead ? m_idOfWidget.constFind(widget) : m_idOfWidget.cend();
    return known != m_idOfWidget.cend() ? *known : static_cast<quint32>(keyId(widget));
}

template <typename Widget>
void IdIndex<Widget>::readIds()
{
    m_widgetOfId.clear();
    m_idOfWidget.clear();
    for (Widget *widget : qAsConst(m_widgets)) {
        if (!widget)
            continue;
        const auto id = static_cast<quint32>(keyId(widget));
        m_idOfWidget.insert(widget, id);
        if (!m_widgetOfId.contains(id))
            m_widgetOfId.insert(id, widget);
    }
    m_isRead = true;
}

template <typename Widget>
bool IdIndex<Widget>::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange) {
        const auto *change = static_cast<QDynamicPropertyChangeEvent *>(event);
        if (change->propertyName() == Constants::PROPERTY_KORVOECKEY) // markers are properties too
            m_isRead = false;
    } else if (event->type() == QEvent::Destroy) {
        // Its address may be another one's soon.
        m_widgets.erase(std::remove(m_widgets.begin(), m_widgets.end(), watched), m_widgets.end());
        m_isRead = false;
    }
    return false;
}

template class IdIndex<EC::K7DropButton>;
template class IdIndex<EC::TextTicker>;

} // namespace Korvo::ECKeyboard::K7::Internal
