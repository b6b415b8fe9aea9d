// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "process.h"

#include "applytheme.h"
#include "logging.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <unistd.h>

namespace Process {

namespace {

constexpr int SettlingMs = 2000; // the address request of the start is answered, or not, by then

void print(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

void print(const QJsonObject &object)
{
    print(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// Counts what is painted, by class.
class Paints : public QObject
{
public:
    Paints() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            const QString name = QString::fromLatin1(watched->metaObject()->className());
            m_counts[name] = m_counts.value(name).toInt() + 1;
        }
        return false;
    }

    QJsonObject takeCounts() { return std::exchange(m_counts, {}); }

private:
    QJsonObject m_counts;
};

/// Until a turn of the event loop paints nothing any more.
void paintAll(Paints *paints)
{
    do {
        QCoreApplication::processEvents();
    } while (!paints->takeCounts().isEmpty());
}

/// In KiB: the most that was resident so far, and what of the present memory no file backs.
QJsonObject memory()
{
    QJsonObject figures;
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QFile::ReadOnly))
        return figures;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        for (const char *name : {"VmHWM:", "RssAnon:"}) {
            if (line.startsWith(name))
                figures.insert(QLatin1String(name), line.simplified().split(' ').at(1).toInt());
        }
    }
    return figures;
}

/// Lets the event loop run until nobody listens any more, and tells what was painted meanwhile.
void runUntilClosed(Paints *paints)
{
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
    QTimer::singleShot(SettlingMs, &input, [paints] {
        paints->takeCounts();
        print("ready");
    });
    QCoreApplication::exec();
    print(paints->takeCounts());
}

} // namespace

int run(int argc, char *argv[], MakeSubject make)
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    K7Host::setUpLogging(false);
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3 || K7Host::applyTheme(arguments.at(1)))
        return EXIT_FAILURE;

    Paints paints;
    QWidget window;
    const std::unique_ptr<Subject> subject = make(arguments.mid(3)); // gone before the window
    if (!subject)
        return EXIT_FAILURE;
    subject->fill(&window);
    window.show();
    paintAll(&paints);

    const QString &what = arguments.at(2);
    if (what == QLatin1String("start")) {
        QJsonObject figures = memory();
        figures.insert(QLatin1String("ms"), sinceStart.nsecsElapsed() / 1e6);
        print(figures);
        std::_Exit(EXIT_SUCCESS); // taking it all down again belongs to no start
    }
    if (what == QLatin1String("list")) {
        subject->list();
        return EXIT_SUCCESS;
    }
    subject->calmDown();
    if (what == QLatin1String("scroll"))
        subject->scroll();
    runUntilClosed(&paints);
    return EXIT_SUCCESS;
}

} // namespace Process
