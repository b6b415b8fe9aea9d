// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "korvoeckeyboardk7plugin.h"

#include <korvo/keyboard/records.h>
#include <korvo/utils/icon.h>

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QThread>
#include <QVector>
#include <QWidget>

#include <cstring>
#include <memory>
#include <vector>

/// A plug-in whose key pictures are resolved, as sections find it in the console.
struct LivePlugin
{
    LivePlugin()
    {
        Korvo::Utils::Icon::setThemePaths({QStringLiteral(K7_THEME)});
        plugin.initStyleSheet();
    }
    Korvo::ECKeyboard::K7Plugin plugin;
};

inline std::shared_ptr<Korvo::ECButtonColor> colorRecord(quint32 key, quint8 red, quint8 green, quint8 blue)
{
    auto record = std::make_shared<Korvo::ECButtonColor>();
    record->ButtonKey = key;
    record->R = red;
    record->G = green;
    record->B = blue;
    return record;
}

/// A text record; longer texts are cut to the 32 bytes that a record holds, without a closing zero.
inline std::shared_ptr<Korvo::ECOLEDText> textRecord(quint32 label, const QByteArray &text)
{
    auto record = std::make_shared<Korvo::ECOLEDText>();
    record->OledKey = label;
    std::memcpy(record->OledText, text.constData(), qMin(size_t(text.size()), sizeof(record->OledText)));
    return record;
}

/// Counts the events that mean work: changes of properties and style, polishing, layout and painting.
class WorkCounter : public QObject
{
public:
    explicit WorkCounter(QObject *watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::StyleChange:
        case QEvent::Polish:
        case QEvent::LayoutRequest:
        case QEvent::UpdateRequest:
        case QEvent::Paint:
        case QEvent::DynamicPropertyChange:
            ++count;
            break;
        default:
            break;
        }
        return false;
    }
    int count = 0;
};

/// Counts the work of a widget and of all below it.
class WorkOfAll
{
public:
    explicit WorkOfAll(QWidget *top)
    {
        m_counters.push_back(std::make_unique<WorkCounter>(top));
        const QList<QWidget *> children = top->findChildren<QWidget *>();
        for (QWidget *child : children)
            m_counters.push_back(std::make_unique<WorkCounter>(child));
    }
    int count() const
    {
        int all = 0;
        for (const auto &counter : m_counters)
            all += counter->count;
        return all;
    }

private:
    std::vector<std::unique_ptr<WorkCounter>> m_counters;
};

/// Returns once all that was asked of \a top is laid out and painted: a round of events may bring the next.
inline void settle(QWidget *top)
{
    const WorkOfAll work(top);
    int before = 0;
    do {
        before = work.count();
        QCoreApplication::processEvents();
    } while (work.count() != before);
}

/// While it lives, takes all that is logged; what is not a debug line is kept.
class LogKeeper
{
public:
    LogKeeper()
        : m_previous(qInstallMessageHandler(keep))
    {
        lines().clear();
    }
    ~LogKeeper() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY(LogKeeper)

    static QStringList &lines()
    {
        static QStringList kept;
        return kept;
    }

private:
    static void keep(QtMsgType type, const QMessageLogContext &, const QString &text)
    {
        if (type != QtDebugMsg)
            lines() << text;
    }

    const QtMessageHandler m_previous;
};

/// Runs \a function in a thread of its own, and waits for its end.
template <typename Function>
void runElsewhere(Function function)
{
    struct Runner : QThread
    {
        explicit Runner(Function &work)
            : m_work(work)
        {
        }
        void run() override { m_work(); }
        Function &m_work;
    } runner(function);
    runner.start();
    if (!runner.wait())
        qFatal("a thread did not end");
}

/// One row of a table of facts, by column name. An absent value is "-", a line break is `\n`.
using Fact = QHash<QString, QString>;

inline QVector<Fact> readFacts(const QString &name)
{
    QFile file(QStringLiteral(K7_FACTS "/%1.tsv").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));

    QVector<Fact> facts;
    QStringList columns;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        QStringList cells = line.split(QLatin1Char('\t'));
        for (QString &cell : cells) {
            if (cell == QLatin1String("\"\""))
                cell.clear();
            cell.replace(QLatin1String("\\n"), QLatin1String("\n"));
        }
        if (columns.isEmpty()) {
            columns = cells;
            continue;
        }
        if (cells.size() != columns.size())
            qFatal("a row of %s has too few or too many cells: %s", qPrintable(name), qPrintable(line));
        Fact fact;
        for (int i = 0; i < columns.size(); ++i)
            fact.insert(columns.at(i), cells.at(i));
        facts << fact;
    }
    return facts;
}
