// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fakekeyboard.h"

#include <scaledview.h>
#include <traffic.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/keyboard/constants.h>
#include <korvo/widgets/tbar.h>

#include <QApplication>
#include <QLineEdit>
#include <QScopedPointer>
#include <QTest>

namespace K7Host {

/// Two console halves in one window, or in a reduced view of it, with two keys and a field on the left one.
class ConsoleDesk
{
public:
    explicit ConsoleDesk(qreal factor = 1)
        : left(new FakeKeyboard(Qt::black, {600, 600}))
        , right(new FakeKeyboard(Qt::darkGray, {600, 600}))
    {
        window.setFixedSize(1200, 600);
        left->setParent(&window);
        right->setParent(&window);
        left->setObjectName(QStringLiteral("left"));
        right->setObjectName(QStringLiteral("right"));
        right->move(600, 0);
        key = addKey(58, "PRESET_05", {10, 10});
        other = addKey(59, "PRESET_06", {110, 10});
        field = add<QLineEdit>("field", {10, 120, 200, 30});
        if (factor < 1)
            view.reset(new ScaledView(&window, factor));
    }
    ~ConsoleDesk()
    {
        view.reset();
        left->setParent(nullptr);
        right->setParent(nullptr);
    }
    Q_DISABLE_COPY(ConsoleDesk)

    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> halves() const { return {left, right}; }
    QWidget *shown() { return view ? static_cast<QWidget *>(view.data()) : &window; }

    bool show()
    {
        shown()->show();
        QApplication::setActiveWindow(shown()); // also where no window manager does
        return QTest::qWaitForWindowExposed(shown());
    }

    template <typename Widget>
    Widget *add(const char *name, const QRect &place, QWidget *parent = nullptr)
    {
        auto *widget = new Widget(parent ? parent : left.data());
        widget->setObjectName(QLatin1String(name));
        widget->setGeometry(place);
        widget->show();
        return widget;
    }

    Korvo::EC::K7DropButton *addKey(quint32 id, const char *name, const QPoint &place)
    {
        auto *result = add<Korvo::EC::K7DropButton>("", {place, QSize(80, 80)});
        result->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, id);
        result->setProperty("key", QLatin1String(name));
        return result;
    }

    QWidget window;
    QSharedPointer<FakeKeyboard> left;
    QSharedPointer<FakeKeyboard> right;
    Korvo::EC::K7DropButton *key = nullptr;
    Korvo::EC::K7DropButton *other = nullptr;
    QLineEdit *field = nullptr;
    QScopedPointer<ScaledView> view; // goes before the window
};

/// The line of a scenario.
inline InputLine inputLine(const char *json)
{
    QString error;
    const auto line = scenarioLineFromJson(json, &error);
    if (!line || !std::holds_alternative<InputLine>(line->content))
        qFatal("%s: %s", json, qPrintable(error));
    return std::get<InputLine>(line->content);
}

} // namespace K7Host
