// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "k7dropbuttonaccessible.h"

#include "k7dropbutton.h"

#include <QApplication>
#include <QRegularExpression>

namespace Korvo::EC {

namespace {

QString nameOf(const K7DropButton *key)
{
    if (!key->accessibleName().isEmpty())
        return key->accessibleName();
    const QString consoleName = key->property("key").toString();
    if (!consoleName.isEmpty())
        return QString(consoleName).replace(QLatin1Char('_'), QLatin1Char(' '));
    const QString text = key->text().simplified();
    return text.isEmpty() ? key->objectName() : text;
}

QString lightOfColor(const QString &color)
{
    if (color == QLatin1String("red"))
        return K7DropButton::tr("lit red");
    if (color == QLatin1String("green"))
        return K7DropButton::tr("lit green");
    if (color == QLatin1String("blue"))
        return K7DropButton::tr("lit blue");
    if (color == QLatin1String("yellow"))
        return K7DropButton::tr("lit yellow");
    if (color == QLatin1String("purple"))
        return K7DropButton::tr("lit purple");
    if (color == QLatin1String("orange"))
        return K7DropButton::tr("lit orange");
    if (color == QLatin1String("white") || color == QLatin1String("black"))
        return K7DropButton::tr("unlit");
    return QString();
}

/// Whether a message box or the like has to be answered first.
bool isBlocked(const K7DropButton *key)
{
    const QWidget *modal = QApplication::activeModalWidget();
    return modal && modal != key->window() && !modal->isAncestorOf(key);
}

QAccessibleInterface *createKey(const QString &, QObject *object)
{
    auto *key = qobject_cast<K7DropButton *>(object);
    return key ? new K7DropButtonAccessible(key) : nullptr;
}

} // namespace

QString lightOf(const K7DropButton *key)
{
    static const QRegularExpression picture(
        QStringLiteral("ecbutton_(?:double_width_|page_up_|page_down_)?([a-z]+)"));
    return lightOfColor(picture.match(key->styleSheet()).captured(1));
}

K7DropButtonAccessible::K7DropButtonAccessible(K7DropButton *key)
    : QAccessibleWidget(key, QAccessible::Button)
    , m_key(key)
{
}

void K7DropButtonAccessible::install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(createKey);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

QString K7DropButtonAccessible::text(QAccessible::Text type) const
{
    QString text;
    if (type == QAccessible::Name)
        text = nameOf(m_key);
    else if (type == QAccessible::Description)
        text = lightOf(m_key);
    return text.isEmpty() ? QAccessibleWidget::text(type) : text;
}

QAccessible::State K7DropButtonAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.pressed = m_key->isDown();
    state.checkable = m_key->isCheckable();
    state.checked = m_key->isChecked();
    return state;
}

QStringList K7DropButtonAccessible::actionNames() const
{
    QStringList names;
    if (m_key->isEnabled())
        names << pressAction();
    return names + QAccessibleWidget::actionNames();
}

void K7DropButtonAccessible::doAction(const QString &name)
{
    if (name != pressAction())
        QAccessibleWidget::doAction(name);
    else if (m_key->isVisible() && !isBlocked(m_key))
        m_key->click();
}

} // namespace Korvo::EC
