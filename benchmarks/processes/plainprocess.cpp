// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

/// The plain toolkit's way: for each widget that the console shows one of the toolkit's own, in the same
/// place and of the same size, under the same theme.

#include "process.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int StepMs = 30; // of a text that moves

QRect placeOf(const QJsonObject &part)
{
    const auto number = [&part](QLatin1String name) { return part.value(name).toInt(); };
    return {number(QLatin1String("x")), number(QLatin1String("y")), number(QLatin1String("width")),
            number(QLatin1String("height"))};
}

template <typename Widget>
QWidget *makeOf(const QString &text, QWidget *window)
{
    auto *widget = new Widget(window);
    widget->setProperty("text", text); // of those that have one
    return widget;
}

QWidget *make(const QJsonObject &part, QWidget *window)
{
    using Make = QWidget *(*)(const QString &text, QWidget *window);
    static const QHash<QString, Make> makers = {{QStringLiteral("QToolButton"), makeOf<QToolButton>},
                                                {QStringLiteral("QPushButton"), makeOf<QPushButton>},
                                                {QStringLiteral("QCheckBox"), makeOf<QCheckBox>},
                                                {QStringLiteral("QLabel"), makeOf<QLabel>},
                                                {QStringLiteral("QLineEdit"), makeOf<QLineEdit>},
                                                {QStringLiteral("QSpinBox"), makeOf<QSpinBox>},
                                                {QStringLiteral("QSlider"), makeOf<QSlider>},
                                                {QStringLiteral("QComboBox"), makeOf<QComboBox>}};
    const Make maker = makers.value(part.value(QLatin1String("kind")).toString());
    return maker ? maker(part.value(QLatin1String("text")).toString(), window) : nullptr;
}

/// A label that moves its text the simple way: a timer of its own puts the first letter last.
void move(QLabel *label)
{
    label->setText(QStringLiteral("A text that is longer than its label    "));
    auto *timer = new QTimer(label);
    QObject::connect(timer, &QTimer::timeout, label, [label] {
        const QString text = label->text();
        label->setText(text.mid(1) + text.at(0));
    });
    timer->start(StepMs);
}

class Plain : public Process::Subject
{
public:
    explicit Plain(const QJsonArray &parts)
        : m_parts(parts)
    {
    }

    void fill(QWidget *window) override
    {
        for (const QJsonValue &value : m_parts) {
            const QJsonObject part = value.toObject();
            QWidget *widget = make(part, window);
            if (!widget)
                continue;
            widget->setGeometry(placeOf(part));
            if (part.value(QLatin1String("isTicker")).toBool())
                m_tickers.append(static_cast<QLabel *>(widget));
        }
        window->resize(window->childrenRect().size());
    }

    void scroll() override
    {
        for (QLabel *label : qAsConst(m_tickers))
            move(label);
    }

private:
    const QJsonArray m_parts;
    QVector<QLabel *> m_tickers;
};

std::unique_ptr<Process::Subject> makePlain(const QStringList &arguments)
{
    QFile file(arguments.value(0));
    if (!file.open(QFile::ReadOnly))
        return nullptr;
    return std::make_unique<Plain>(QJsonDocument::fromJson(file.readAll()).array());
}

} // namespace

int main(int argc, char *argv[])
{
    return Process::run(argc, argv, makePlain);
}
