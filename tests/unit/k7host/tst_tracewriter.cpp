// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "descriptors.h"

#include <tracewriter.h>

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <memory>
#include <thread>
#include <vector>

using K7Host::TraceLimits;
using K7Host::TraceWriter;

namespace {

/// What goes to stderr while this lives.
class Complaints
{
public:
    explicit Complaints(const QString &name)
        : m_name(name)
    {
        const int target =
            ::open(QFile::encodeName(name).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0600);
        m_redirection = std::make_unique<Redirection>(STDERR_FILENO, target);
        ::close(target);
    }

    QByteArray text() const { return contents(m_name); }
    int count() const { return text().count('\n'); }

private:
    const QString m_name;
    std::unique_ptr<Redirection> m_redirection;
};

/// Longer than a pipe.
QByteArray tooLongLine()
{
    return QByteArray(1024 * 1024, 'x');
}

/// Lines are numbered, and number n is of n and a half ms.
QByteArray numbered(int n)
{
    return QByteArrayLiteral("{\"n\":") + QByteArray::number(n) + '}';
}

void writeLines(TraceWriter *writer, int first, int last)
{
    for (int n = first; n <= last; ++n)
        writer->write(n + 0.5, numbered(n));
}

QByteArray numberedLines(int first, int last)
{
    QByteArray lines;
    for (int n = first; n <= last; ++n)
        lines += numbered(n) + '\n';
    return lines;
}

/// What a trace with or without gaps tells of lines that were written with numbers from 0 on.
struct Account
{
    int next = 0; ///< the number of lines it accounts for
    int missing = 0;
    int gaps = 0;
    QString flaw; ///< empty: each line is whole and in its place, and each gap begins where it says
};

Account account(const QByteArray &trace)
{
    Account result;
    auto lines = trace.split('\n');
    if (!lines.takeLast().isEmpty())
        result.flaw = QStringLiteral("the last line is not whole");
    for (const QByteArray &line : qAsConst(lines)) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object.contains(QLatin1String("gap"))) {
            if (object.value(QLatin1String("t")).toDouble() != result.next + 0.5)
                result.flaw = QString::fromLatin1(line);
            const int missing = object.value(QLatin1String("gap")).toInt();
            result.next += missing;
            result.missing += missing;
            ++result.gaps;
        } else if (line == numbered(result.next)) {
            ++result.next;
        } else {
            result.flaw = QString::fromLatin1(line);
        }
    }
    return result;
}

} // namespace

class tst_TraceWriter : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aLineIsInTheFileWithoutFurtherCalls();
    void closeWritesAllThatWaits();
    void linesOfManyThreadsStayWholeAndInOrder();
    void aFaultLeavesTheTraceClosed();
    void onlyAnOpenTraceIsWrittenTo();
    void aSecondTraceIsAsGoodAsTheFirst();
    void whatDoesNotFitInTheQueueIsAGap();
    void aLossIsToldWhileNobodyReads();
    void aLineLongerThanTheQueueIsAGap();
    void aDiskThatWasFullHoldsTheGapFirst();
    void aFullDeviceIsToldOnce();
    void aNewReaderGetsTheGapFirst();
    void aReaderOfStandardOutputThatLeavesIsToldOnce();
    void closeWaitsForAStuckReaderForItsTimeOnly();
    void whatATraceClosedInNoTimeLacksIsItsLastGap();
    void aStuckReaderOfBothOutputsDoesNotHoldTheEnd();

private:
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_TraceWriter::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void tst_TraceWriter::aLineIsInTheFileWithoutFurtherCalls()
{
    const Complaints complaints(path("stderr"));
    TraceWriter writer;
    QVERIFY(!writer.open(path("trace")));
    writeLines(&writer, 0, 0);
    QTRY_COMPARE(contents(path("trace")), numberedLines(0, 0));
    writeLines(&writer, 1, 2);
    QTRY_COMPARE(contents(path("trace")), numberedLines(0, 2));
    QCOMPARE(complaints.text(), QByteArray());
}

void tst_TraceWriter::closeWritesAllThatWaits()
{
    const Complaints complaints(path("stderr"));
    TraceWriter writer;
    QVERIFY(!writer.open(path("trace")));
    writeLines(&writer, 0, 9999);
    writer.close();
    QCOMPARE(contents(path("trace")), numberedLines(0, 9999));
    QCOMPARE(complaints.text(), QByteArray());
}

void tst_TraceWriter::linesOfManyThreadsStayWholeAndInOrder()
{
    constexpr int threadCount = 4;
    constexpr int lineCount = 2000;
    {
        TraceWriter writer;
        QVERIFY(!writer.open(path("trace")));
        std::vector<std::thread> threads;
        threads.reserve(threadCount);
        for (int thread = 0; thread < threadCount; ++thread) {
            threads.emplace_back([thread, &writer] {
                for (int n = 0; n < lineCount; ++n)
                    writer.write(n, QByteArray::number(thread) + ' ' + QByteArray::number(n));
            });
        }
        for (std::thread &thread : threads)
            thread.join();
    }
    auto lines = contents(path("trace")).split('\n');
    QVERIFY(lines.takeLast().isEmpty());
    QCOMPARE(lines.size(), threadCount * lineCount);
    std::array<int, threadCount> next = {};
    for (const QByteArray &line : qAsConst(lines)) {
        const int thread = line.left(1).toInt();
        QVERIFY(thread < threadCount);
        QCOMPARE(line, QByteArray::number(thread) + ' ' + QByteArray::number(next.at(size_t(thread))++));
    }
}

void tst_TraceWriter::aFaultLeavesTheTraceClosed()
{
    TraceWriter writer;
    QVERIFY(!writer.open(path("trace")));
    writeLines(&writer, 0, 0);
    const auto fault = writer.open(m_dir->path());
    QVERIFY(fault);
    QCOMPARE(fault->exitCode, K7Host::ExitBadArguments);
    QVERIFY2(fault->text.contains(m_dir->path()), qPrintable(fault->text));
    writeLines(&writer, 1, 1);
    writer.close();
    QCOMPARE(contents(path("trace")), numberedLines(0, 0));
}

void tst_TraceWriter::onlyAnOpenTraceIsWrittenTo()
{
    TraceWriter writer;
    writer.close();
    writeLines(&writer, 0, 0);
    QVERIFY(!writer.open(path("trace")));
    writeLines(&writer, 1, 1);
    writer.close();
    writer.close();
    writeLines(&writer, 2, 2);
    QCOMPARE(contents(path("trace")), numberedLines(1, 1));
}

void tst_TraceWriter::aSecondTraceIsAsGoodAsTheFirst()
{
    const Complaints complaints(path("stderr"));
    TraceLimits limits;
    limits.queuedBytes = 100;
    TraceWriter writer(limits);
    QVERIFY(!writer.open(path("first")));
    writer.write(0.5, tooLongLine());
    QVERIFY(!writer.open(path("second")));
    QCOMPARE(contents(path("first")), QByteArrayLiteral("{\"t\":0.5,\"gap\":1}\n"));
    QCOMPARE(complaints.count(), 1);
    writeLines(&writer, 0, 2);
    writer.close();
    QCOMPARE(contents(path("second")), numberedLines(0, 2));
    QCOMPARE(complaints.count(), 1);

    QVERIFY(!writer.open(path("third")));
    writer.write(0.5, tooLongLine());
    writer.close();
    QCOMPARE(complaints.count(), 2);
}

void tst_TraceWriter::whatDoesNotFitInTheQueueIsAGap()
{
    constexpr int lineCount = 20000; // several times what the pipe and the queue hold
    const Complaints complaints(path("stderr"));
    Reader reader(path("pipe"));
    TraceLimits limits;
    limits.queuedBytes = 1000;
    TraceWriter writer(limits);
    QVERIFY(!writer.open(path("pipe")));
    writeLines(&writer, 0, lineCount - 1);
    QTRY_COMPARE(account(reader.all()).next, lineCount);
    writeLines(&writer, lineCount, lineCount);
    QTRY_COMPARE(account(reader.all()).next, lineCount + 1);
    writer.close();
    const Account result = account(reader.all());
    QCOMPARE(result.flaw, QString());
    QVERIFY(result.gaps >= 1);
    QVERIFY(result.missing > 0 && result.missing < lineCount);
    QVERIFY(reader.all().endsWith(numberedLines(lineCount, lineCount)));
    QCOMPARE(complaints.count(), 1);
}

void tst_TraceWriter::aLossIsToldWhileNobodyReads()
{
    const Complaints complaints(path("stderr"));
    const Reader reader(path("pipe"));
    TraceLimits limits;
    limits.queuedBytes = tooLongLine().size() + 100;
    limits.closingMs = 0;
    TraceWriter writer(limits);
    QVERIFY(!writer.open(path("pipe")));
    writer.write(0.5, tooLongLine());
    writeLines(&writer, 1, 1);
    QTRY_VERIFY(reader.isFull());
    QCOMPARE(complaints.count(), 0);
    writer.write(2.5, tooLongLine() + tooLongLine());
    QTRY_COMPARE(complaints.count(), 1);
    QVERIFY2(complaints.text().contains(path("pipe").toUtf8() + " lacks lines"),
             complaints.text().constData());
    writer.close();
    QCOMPARE(complaints.count(), 2);
    QVERIFY2(complaints.text().endsWith("in time: 3\n"), complaints.text().constData());
}

void tst_TraceWriter::aLineLongerThanTheQueueIsAGap()
{
    const Complaints complaints(path("stderr"));
    TraceLimits limits;
    limits.queuedBytes = 10;
    TraceWriter writer(limits);
    QVERIFY(!writer.open(path("trace")));
    writer.write(1, QByteArrayLiteral("123456789"));
    QTRY_COMPARE(contents(path("trace")), QByteArrayLiteral("123456789\n"));
    writer.write(1234567.25, QByteArrayLiteral("1234567890"));
    QTRY_COMPARE(contents(path("trace")), QByteArrayLiteral("123456789\n{\"t\":1234567.25,\"gap\":1}\n"));
    QTRY_COMPARE(complaints.count(), 1);
}

void tst_TraceWriter::aDiskThatWasFullHoldsTheGapFirst()
{
    const Complaints complaints(path("stderr"));
    TraceWriter writer;
    QVERIFY(!writer.open(path("trace")));
    writeLines(&writer, 0, 9);
    const QByteArray before = numberedLines(0, 9);
    QTRY_COMPARE(contents(path("trace")), before);
    const QByteArray longLine(4096, 'x');
    {
        const FullDisk disk(rlim_t(before.size()) + 1024); // room for the complaint, not for the line
        writer.write(10.5, longLine);
        QTRY_COMPARE(complaints.count(), 1);
        QCOMPARE(contents(path("trace")), before);
    }
    writeLines(&writer, 11, 12);
    QTRY_COMPARE(contents(path("trace")), before + "{\"t\":10.5,\"gap\":1}\n" + numberedLines(11, 12));
    writer.close();
    QCOMPARE(complaints.count(), 1);
}

void tst_TraceWriter::aFullDeviceIsToldOnce()
{
    const Complaints complaints(path("stderr"));
    TraceWriter writer;
    QVERIFY(!writer.open(QStringLiteral("/dev/full")));
    writeLines(&writer, 0, 99);
    writer.close();
    QCOMPARE(complaints.count(), 1);
    QVERIFY2(complaints.text().contains("/dev/full lacks lines: No space left"),
             complaints.text().constData());
}

void tst_TraceWriter::aNewReaderGetsTheGapFirst()
{
    const Complaints complaints(path("stderr"));
    auto reader = std::make_unique<Reader>(path("pipe"));
    TraceWriter writer;
    QVERIFY(!writer.open(path("pipe")));
    writeLines(&writer, 0, 1);
    QTRY_COMPARE(reader->all(), numberedLines(0, 1));
    reader.reset();
    writeLines(&writer, 2, 2);
    QTRY_COMPARE(complaints.count(), 1);
    reader = std::make_unique<Reader>(path("pipe"));
    writeLines(&writer, 3, 4);
    QTRY_COMPARE(reader->all(), "{\"t\":2.5,\"gap\":1}\n" + numberedLines(3, 4));
    writer.close();
    QCOMPARE(complaints.count(), 1);
}

void tst_TraceWriter::aReaderOfStandardOutputThatLeavesIsToldOnce()
{
    const Complaints complaints(path("stderr"));
    std::array<int, 2> ends = {-1, -1};
    QCOMPARE(::pipe(ends.data()), 0);
    {
        TraceWriter writer;
        auto reader = std::make_unique<Reader>(ends[0]);
        {
            const Redirection redirection(STDOUT_FILENO, ends[1]);
            ::close(ends[1]);
            QVERIFY(!writer.open(QStringLiteral("-")));
        }
        writeLines(&writer, 0, 1);
        QTRY_COMPARE(reader->all(), numberedLines(0, 1));
        reader.reset();
        writeLines(&writer, 2, 99);
    }
    QCOMPARE(complaints.count(), 1);
    QVERIFY2(complaints.text().contains("standard output lacks lines: Broken pipe"),
             complaints.text().constData());
}

void tst_TraceWriter::closeWaitsForAStuckReaderForItsTimeOnly()
{
    constexpr int lineCount = 20000;
    const Complaints complaints(path("stderr"));
    Reader reader(path("pipe"));
    TraceLimits limits;
    limits.closingMs = 100;
    TraceWriter writer(limits);
    QVERIFY(!writer.open(path("pipe")));
    writeLines(&writer, 0, lineCount - 1);
    QElapsedTimer time;
    time.start();
    writer.close();
    QVERIFY2(time.elapsed() >= limits.closingMs && time.elapsed() < 2000,
             QByteArray::number(time.elapsed()).constData());

    const QByteArray trace = reader.all();
    const int whole = trace.count('\n');
    QCOMPARE(trace.left(trace.lastIndexOf('\n') + 1), numberedLines(0, whole - 1));
    QCOMPARE(complaints.count(), 1);
    QVERIFY2(complaints.text().contains("in time: " + QByteArray::number(lineCount - whole) + '\n'),
             complaints.text().constData());
}

void tst_TraceWriter::whatATraceClosedInNoTimeLacksIsItsLastGap()
{
    constexpr int lineCount = 20000;
    const Complaints complaints(path("stderr"));
    TraceLimits limits;
    limits.closingMs = 0;
    TraceWriter writer(limits);
    QVERIFY(!writer.open(path("trace")));
    writeLines(&writer, 0, lineCount - 1);
    writer.close();
    const Account result = account(contents(path("trace")));
    QCOMPARE(result.flaw, QString());
    QCOMPARE(result.next, lineCount);
    // A quick disk may have taken all.
    QVERIFY(result.gaps <= 1);
    QCOMPARE(complaints.count(), result.gaps);
    QVERIFY(complaints.text().endsWith(
        result.gaps == 0 ? QByteArray() : "in time: " + QByteArray::number(result.missing) + '\n'));
}

void tst_TraceWriter::aStuckReaderOfBothOutputsDoesNotHoldTheEnd()
{
    const QByteArray page(4095, 'x'); // with its line end: leaves no room for a message
    std::array<int, 2> ends = {-1, -1};
    QCOMPARE(::pipe(ends.data()), 0);
    Reader reader(ends[0]);
    {
        const Redirection output(STDOUT_FILENO, ends[1]);
        const Redirection complaints(STDERR_FILENO, ends[1]);
        ::close(ends[1]);
        TraceLimits limits;
        limits.queuedBytes = 100 * qint64(page.size() + 1);
        limits.closingMs = 100;
        TraceWriter writer(limits);
        if (!writer.open(QStringLiteral("-"))) {
            for (int n = 0; n < 100; ++n)
                writer.write(n, page);
            QTRY_VERIFY(reader.isFull());
            for (int n = 0; n < 100; ++n)
                writer.write(n, page);
        }
    }
    QVERIFY(reader.isFull());
    QVERIFY(reader.all().startsWith(page + '\n'));
}

QTEST_GUILESS_MAIN(tst_TraceWriter)

#include "tst_tracewriter.moc"
