// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "descriptors.h"

#include <linefile.h>

#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <sys/socket.h>
#include <termios.h>

using K7Host::LineFile;

namespace {

/// More than a pipe or a socket holds unless told otherwise.
QByteArray longLine()
{
    return QByteArray(1024 * 1024, 'x');
}

using Ends = std::array<int, 2>; // where to read, where to write
using Opener = Ends (*)();

Ends openPipe()
{
    Ends ends = {-1, -1};
    return ::pipe(ends.data()) == 0 ? ends : Ends{-1, -1};
}

Ends openSocket()
{
    Ends ends = {-1, -1};
    return ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) == 0 ? ends : Ends{-1, -1};
}

Ends openTerminal()
{
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    std::array<char, 64> name = {};
    if (::grantpt(master) != 0 || ::unlockpt(master) != 0 ||
        ::ptsname_r(master, name.data(), name.size()) != 0)
        return {-1, -1};
    const int terminal = ::open(name.data(), O_RDWR | O_NOCTTY);
    termios settings = {};
    ::tcgetattr(terminal, &settings);
    settings.c_oflag &= ~tcflag_t(OPOST); // line ends stay as they are
    ::tcsetattr(terminal, TCSANOW, &settings);
    return {master, terminal};
}

/// What writing "second line", too long for the disk, and then for a disk with room, leaves behind \a before.
void writeToFullDisk(LineFile *file, const QString &name, const QByteArray &before)
{
    QCOMPARE(file->write(QByteArrayLiteral("first")), LineFile::Accepted);
    {
        const FullDisk disk(rlim_t(before.size()) + 10);
        QCOMPARE(file->write(QByteArrayLiteral("second line")), LineFile::Refused);
        QCOMPARE(file->error(), EFBIG);
        QCOMPARE(contents(name), before + "first\n");
    }
    QCOMPARE(file->write(QByteArrayLiteral("third")), LineFile::Accepted);
    QCOMPARE(file->error(), 0);
    QCOMPARE(contents(name), before + "first\nthird\n");
}

} // namespace

Q_DECLARE_METATYPE(Opener)

class tst_LineFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void whatCannotBeOpenedIsAFault_data();
    void whatCannotBeOpenedIsAFault();
    void aFileIsEmptiedAndHoldsEachLineAtOnce();
    void aLineThatDoesNotFitOnTheDiskIsTakenBack();
    void standardOutputIsContinuedWhereItStands_data();
    void standardOutputIsContinuedWhereItStands();
    void aFullDeviceRefuses();
    void aPipeTakesTheRestOfALineWhenItHasRoom();
    void aPipeWithoutItsReaderRefuses();
    void standardOutputIsNeverWaitedForAndStillBlocksOthers_data();
    void standardOutputIsNeverWaitedForAndStillBlocksOthers();

private:
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_LineFile::initTestCase()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void tst_LineFile::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void tst_LineFile::whatCannotBeOpenedIsAFault_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expectedReason");

    QTest::newRow("no name") << QString() << QStringLiteral("without a name");
    QTest::newRow("a folder") << QStringLiteral("/tmp") << QStringLiteral("directory");
    QTest::newRow("a missing folder")
        << QStringLiteral("/tmp/missing/trace") << QStringLiteral("No such file");
    QTest::newRow("a folder nobody writes to")
        << QStringLiteral("/proc/trace") << QStringLiteral("No such file");
    QTest::newRow("below a file") << QStringLiteral("/dev/null/trace") << QStringLiteral("Not a directory");
}

void tst_LineFile::whatCannotBeOpenedIsAFault()
{
    QFETCH(QString, name);
    QFETCH(QString, expectedReason);
    LineFile file;
    const auto fault = file.open(name);
    QVERIFY(fault);
    QCOMPARE(fault->exitCode, K7Host::ExitBadArguments);
    QVERIFY2(fault->text.contains(name), qPrintable(fault->text));
    QVERIFY2(fault->text.contains(expectedReason), qPrintable(fault->text));
    QVERIFY(!fault->text.contains(QLatin1Char('\n')));
}

void tst_LineFile::aFileIsEmptiedAndHoldsEachLineAtOnce()
{
    const QString name = path("trace");
    {
        QFile former(name);
        QVERIFY(former.open(QIODevice::WriteOnly));
        former.write("a longer text of a former run\n");
    }
    LineFile file;
    QVERIFY(!file.open(name));
    QCOMPARE(contents(name), QByteArray());
    QCOMPARE(file.write(QByteArrayLiteral("one")), LineFile::Accepted);
    QCOMPARE(contents(name), QByteArrayLiteral("one\n"));
    QCOMPARE(file.write(QByteArray()), LineFile::Accepted);
    QCOMPARE(contents(name), QByteArrayLiteral("one\n\n"));
    QCOMPARE(file.finish(), LineFile::Accepted);
}

void tst_LineFile::aLineThatDoesNotFitOnTheDiskIsTakenBack()
{
    LineFile file;
    QVERIFY(!file.open(path("trace")));
    writeToFullDisk(&file, path("trace"), QByteArray());
}

void tst_LineFile::standardOutputIsContinuedWhereItStands_data()
{
    QTest::addColumn<int>("flags");

    QTest::newRow("> file") << 0;
    QTest::newRow(">> file") << O_APPEND;
}

void tst_LineFile::standardOutputIsContinuedWhereItStands()
{
    QFETCH(int, flags);
    const QString name = path("output");
    const int output = ::open(QFile::encodeName(name).constData(), O_WRONLY | O_CREAT | flags, 0600);
    QCOMPARE(int(::write(output, "before\n", 7)), 7);
    {
        const Redirection redirection(STDOUT_FILENO, output);
        LineFile file;
        QVERIFY(!file.open(QStringLiteral("-")));
        writeToFullDisk(&file, name, QByteArrayLiteral("before\n"));
    }
    QCOMPARE(int(::write(output, "after\n", 6)), 6);
    ::close(output);
    QCOMPARE(contents(name), QByteArrayLiteral("before\nfirst\nthird\nafter\n"));
}

void tst_LineFile::aFullDeviceRefuses()
{
    LineFile file;
    QVERIFY(!file.open(QStringLiteral("/dev/full")));
    QCOMPARE(file.write(QByteArrayLiteral("line")), LineFile::Refused);
    QCOMPARE(file.error(), ENOSPC);
    QCOMPARE(file.finish(), LineFile::Accepted);
}

void tst_LineFile::aPipeTakesTheRestOfALineWhenItHasRoom()
{
    Reader reader(path("pipe"));
    LineFile file;
    QVERIFY(!file.open(path("pipe")));
    QCOMPARE(file.write(longLine()), LineFile::Accepted);
    QCOMPARE(file.finish(), LineFile::Busy);
    QCOMPARE(file.write(QByteArrayLiteral("next")), LineFile::Busy);
    const int begun = reader.all().size();
    QVERIFY(begun > 0 && begun < longLine().size());
    while (file.finish() == LineFile::Busy)
        QVERIFY(!reader.all().isEmpty());
    QCOMPARE(file.finish(), LineFile::Accepted);
    QCOMPARE(file.write(QByteArrayLiteral("next")), LineFile::Accepted);
    QVERIFY(reader.all() == longLine() + "\nnext\n");
}

void tst_LineFile::aPipeWithoutItsReaderRefuses()
{
    auto reader = std::make_unique<Reader>(path("pipe"));
    LineFile file;
    QVERIFY(!file.open(path("pipe")));
    QCOMPARE(file.write(longLine()), LineFile::Accepted);
    reader.reset();
    QCOMPARE(file.finish(), LineFile::Refused);
    QCOMPARE(file.write(QByteArrayLiteral("next")), LineFile::Refused);
    QCOMPARE(file.error(), EPIPE);

    LineFile other;
    const auto fault = other.open(path("pipe"));
    QVERIFY(fault);
    QVERIFY2(fault->text.contains(QStringLiteral("nobody reads")), qPrintable(fault->text));
}

void tst_LineFile::standardOutputIsNeverWaitedForAndStillBlocksOthers_data()
{
    QTest::addColumn<Opener>("opener");

    QTest::newRow("a pipe") << Opener(openPipe);
    QTest::newRow("a socket") << Opener(openSocket); // cannot be opened a second time
    QTest::newRow("a terminal") << Opener(openTerminal);
}

void tst_LineFile::standardOutputIsNeverWaitedForAndStillBlocksOthers()
{
    QFETCH(Opener, opener);
    const Ends ends = opener();
    QVERIFY(ends[0] >= 0 && ends[1] >= 0);
    Reader reader(ends[0]);
    const Redirection redirection(STDOUT_FILENO, ends[1]);
    ::close(ends[1]);
    LineFile file;
    QVERIFY(!file.open(QStringLiteral("-")));

    QByteArray written;
    LineFile::Outcome outcome = LineFile::Accepted;
    while (outcome == LineFile::Accepted && written.size() < 10 * longLine().size()) {
        outcome = file.write(longLine());
        if (outcome == LineFile::Accepted)
            written += longLine() + '\n';
    }
    QCOMPARE(outcome, LineFile::Busy);
    QVERIFY((::fcntl(STDOUT_FILENO, F_GETFL) & O_NONBLOCK) == 0);

    while (file.finish() == LineFile::Busy)
        QVERIFY(!reader.all().isEmpty());
    QVERIFY(reader.all() == written);
}

QTEST_GUILESS_MAIN(tst_LineFile)

#include "tst_linefile.moc"
