// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support.h"

#include <QLabel>
#include <QToolButton>
#include <QVector>

#include <algorithm>

/// A key section as it stands in a console half.
struct PlacedSection
{
    const char *name;      // of the object in the half
    const char *className; // within Korvo::ECKeyboard::K7
};

/// A key, an extension key or an OLED label of a console half, with its facts.
struct ConsolePart
{
    QString section;
    Fact fact;
    QWidget *widget = nullptr;

    QString name() const { return section + QLatin1Char('/') + fact.value(QStringLiteral("object")); }
    quint32 id() const { return fact.value(QStringLiteral("id")).toUInt(); }
    quint32 code() const { return id() + 0xff0000; }
    int column() const { return fact.value(QStringLiteral("column")).toInt(); }

    bool isLabel() const { return isOf("Korvo::EC::TextTicker"); }
    bool isKey() const { return isOf("Korvo::EC::K7DropButton"); }
    bool isPageUp() const { return is("pageUpToolButton"); }
    bool isPageDown() const { return is("pageDownToolButton"); }
    bool isReservedPreset() const
    {
        return isIn("presetKeyboardFrame") && (is("reserved_1_ToolButton") || is("reserved_2_ToolButton"));
    }
    bool sends() const
    {
        const bool isReservedScreen = isIn("screenKeyboardFrame") && is("reserved_1_ToolButton");
        return isKey() && !isReservedPreset() && !isReservedScreen;
    }
    bool takesColor() const { return isKey() && !isReservedPreset(); }
    bool takesBroadcast() const { return takesColor() && !isIn("numberFrame"); }
    bool takesText() const
    {
        const bool isNumbered = fact.value(QStringLiteral("id")) != QLatin1String("-");
        return isLabel() && isNumbered && !isIn("functionFrame");
    }

    /// The text or the style, whatever records change.
    QString look() const { return isLabel() ? qobject_cast<QLabel *>(widget)->text() : widget->styleSheet(); }
    QRect placeIn(const QWidget *around) const
    {
        return QRect(widget->mapTo(around, QPoint()), widget->size());
    }

private:
    bool is(const char *object) const
    {
        return fact.value(QStringLiteral("object")) == QLatin1String(object);
    }
    bool isIn(const char *some) const { return section == QLatin1String(some); }
    bool isOf(const char *some) const { return fact.value(QStringLiteral("class")) == QLatin1String(some); }
};

using ConsoleParts = QVector<ConsolePart>;

/// All parts of \a half, by the tables of its \a sections.
inline ConsoleParts partsOf(const QWidget *half, const QVector<PlacedSection> &sections)
{
    ConsoleParts parts;
    for (const PlacedSection &section : sections) {
        const auto *frame = half->findChild<QWidget *>(QLatin1String(section.name));
        const QVector<Fact> facts = readFacts(QString::fromLatin1(section.className).toLower());
        for (const Fact &fact : facts) {
            ConsolePart part;
            part.section = QString::fromLatin1(section.name);
            part.fact = fact;
            part.widget = frame->findChild<QWidget *>(fact.value(QStringLiteral("object")));
            if (!part.widget)
                qFatal("there is no %s", qPrintable(part.name()));
            parts << part;
        }
    }
    return parts;
}

template <typename Condition>
ConsoleParts partsThat(const ConsoleParts &parts, const Condition &condition)
{
    ConsoleParts some;
    std::copy_if(parts.cbegin(), parts.cend(), std::back_inserter(some), condition);
    return some;
}

/// "section/object: look" of every part.
inline QStringList looksOf(const ConsoleParts &parts)
{
    QStringList looks;
    for (const ConsolePart &part : parts)
        looks << part.name() + QLatin1String(": ") + part.look();
    return looks;
}

/// The names of those whose looks differ.
inline QStringList changes(const QStringList &before, const QStringList &after)
{
    QStringList names;
    for (int i = 0; i < before.size(); ++i) {
        if (before.at(i) != after.at(i))
            names << after.at(i).section(QLatin1Char(':'), 0, 0);
    }
    return names;
}

inline const QVector<PlacedSection> &leftSections()
{
    static const QVector<PlacedSection> sections{
        {"screenKeyboardFrame", "ScreenKeyboardFrame"},
        {"layerKeyboardframe", "LayerKeyboardFrame"},
        {"inputKeyboardFrame", "InputKeyboardFrame"},
        {"presetKeyboardFrame", "PresetKeyboardFrame"},
    };
    return sections;
}

inline const QVector<PlacedSection> &rightSections()
{
    static const QVector<PlacedSection> sections{
        {"numberFrame", "NumberKeyboardFrame"},
        {"functionFrame", "FunctionKeyboardFrame"},
        {"transitionFrame", "TransitionKeyboardFrame"},
    };
    return sections;
}
