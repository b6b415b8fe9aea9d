// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keynavigation.h"

#include "k7dropbutton.h"

#include <cstdlib>

namespace Korvo::EC {

namespace {

/// A place turned such that the way goes to the right. Ends belong to it, as in QRect.
QRect turned(const QRect &place, Direction direction)
{
    switch (direction) {
    case Direction::Left:
        return QRect(QPoint(-place.right(), place.top()), QPoint(-place.left(), place.bottom()));
    case Direction::Right:
        return place;
    case Direction::Up:
        return QRect(QPoint(-place.bottom(), place.left()), QPoint(-place.top(), place.right()));
    case Direction::Down:
        break;
    }
    return QRect(QPoint(place.top(), place.left()), QPoint(place.bottom(), place.right()));
}

bool isSameRow(const QRect &one, const QRect &other)
{
    const int shared = qMin(one.bottom(), other.bottom()) - qMax(one.top(), other.top()) + 1;
    return 2 * shared >= qMin(one.height(), other.height());
}

/// Where a place lies, seen from the start; the lower the better.
struct Distance
{
    bool isOtherRow = false;
    int way = 0;
    int aside = 0;

    bool operator<(const Distance &other) const
    {
        if (isOtherRow != other.isOtherRow)
            return other.isOtherRow;
        if (way != other.way)
            return way < other.way;
        return aside < other.aside;
    }
};

} // namespace

int nearestPlace(const QRect &start, const QVector<QRect> &places, Direction direction)
{
    const QRect from = turned(start, direction);
    int nearest = -1;
    Distance shortest;
    for (int i = 0; i < places.size(); ++i) {
        const QRect place = turned(places.at(i), direction);
        const int ahead = place.center().x() - from.center().x();
        if (place.center().x() <= from.right())
            continue;
        Distance distance;
        distance.isOtherRow = !isSameRow(from, place);
        distance.aside = std::abs(place.center().y() - from.center().y());
        if (distance.isOtherRow && distance.aside > ahead)
            continue;
        distance.way = distance.isOtherRow ? ahead + 2 * distance.aside : place.left() - from.right();
        if (nearest < 0 || distance < shortest) {
            nearest = i;
            shortest = distance;
        }
    }
    return nearest;
}

bool moveFocus(const K7DropButton *from, Direction direction)
{
    const QWidget *window = from->window();
    const auto placeOf = [window](const QWidget *key) {
        return QRect(key->mapTo(window, QPoint()), key->size());
    };
    QVector<K7DropButton *> keys;
    QVector<QRect> places;
    const auto all = window->findChildren<K7DropButton *>();
    for (K7DropButton *key : all) {
        const bool takesFocus = key->isEnabled() && key->isVisible() && key->focusPolicy() & Qt::TabFocus;
        if (key == from || !takesFocus || key->window() != window)
            continue;
        keys << key;
        places << placeOf(key);
    }
    const int nearest = nearestPlace(placeOf(from), places, direction);
    if (nearest < 0)
        return false;
    const bool isForwards = direction == Direction::Right || direction == Direction::Down;
    keys.at(nearest)->setFocus(isForwards ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace Korvo::EC
