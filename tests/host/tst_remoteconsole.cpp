// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "rfbclient.h"

#include <QHostAddress>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdlib>

/// The program itself, seen and touched from outside: its screen is looked at, its mouse is moved, both over
/// the wire.
class tst_RemoteConsole : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theFirstInputStartsOnProgramTheSecondOnPreview();
    void aHeldInputIsOnPreviewAndStaysThere();
    void eachPressedInputGoesOnPreviewAndProgramStays();
    void thePageKeysTurnThePage();
    void itEndsWellWithAKeyHeld();

private:
    void startProgram();
    void press(const QRect &key) { m_screen->sendPointer(key.center(), Qt::LeftButton); }
    void release(const QRect &key) { m_screen->sendPointer(key.center(), Qt::NoButton); }
    void click(const QRect &key);

    QRect findKey(Qt::GlobalColor color) const;
    QImage look(const QRect &area) const { return m_screen->picture().copy(area); }
    bool isLit(const QRect &key, Qt::GlobalColor color) const;
    bool isIdle(const QRect &key) const;

    QTemporaryDir m_configDir;
    QTcpSocket m_portKeeper;
    QScopedPointer<QProcess> m_program;
    QScopedPointer<RfbClient> m_screen;
    // The first three inputs on the screen, by their lit edges.
    QRect m_first;
    QRect m_second;
    QRect m_third;
};

namespace {

constexpr int TimeLimit = 7000; // ms for whatever is waited for

// The console fits itself to this screen at half its size, so that the mouse goes through the scale.
const char ScreenSize[] = "1761x640";
constexpr int MenuBarHeight = 31;
// The third row of the left half on that screen. Other rows may be lit in the same colours.
constexpr QRect InputSection(0, 180 + MenuBarHeight, 877, 88);

int hueDistance(const QColor &a, const QColor &b)
{
    const int distance = std::abs(a.hsvHue() - b.hsvHue());
    return std::min(distance, 360 - distance);
}

/// True for every shade of \a color that is not nearly grey or black.
bool isShadeOf(Qt::GlobalColor color, const QColor &shade)
{
    return shade.hsvSaturation() > 100 && shade.value() > 50 && hueDistance(shade, color) < 40;
}

QColor mean(const QImage &picture)
{
    return picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

/// The label is above its key, as wide as the key.
QRect labelOf(const QRect &key)
{
    return key.translated(0, -key.height());
}

} // namespace

void tst_RemoteConsole::initTestCase()
{
    QVERIFY(m_configDir.isValid());
    // Bound but not listening, it keeps the port from all who ask for any, but not from the server.
    QVERIFY(m_portKeeper.bind(QHostAddress::LocalHost, 0, QAbstractSocket::ReuseAddressHint));
}

void tst_RemoteConsole::init()
{
    startProgram();
    m_screen.reset(new RfbClient);
    m_screen->connectToPort(m_portKeeper.localPort());
    const auto keysAreShown = [this] {
        m_first = findKey(Qt::red);
        m_second = findKey(Qt::green);
        return m_first.isValid() && m_second.isValid();
    };
    const auto isGone = [this] { return m_program->state() == QProcess::NotRunning; };
    QTRY_VERIFY_WITH_TIMEOUT(keysAreShown() || isGone(), TimeLimit);
    if (isGone())
        QFAIL("k7host ended. Is Qt's platform plug-in for VNC (libqvnc.so) missing? " + m_program->readAll());

    QCOMPARE(m_first.size(), m_second.size());
    QCOMPARE(m_first.top(), m_second.top());
    QVERIFY(m_first.right() < m_second.left());
    m_third = m_second.translated(m_second.topLeft() - m_first.topLeft());
}

void tst_RemoteConsole::startProgram()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_LOGGING_RULES"));
    environment.remove(QStringLiteral("QT_MESSAGE_PATTERN"));
    environment.remove(QStringLiteral("QT_SCALE_FACTOR"));
    const QString platform = QStringLiteral("vnc:size=%1:port=%2");
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       platform.arg(QLatin1String(ScreenSize)).arg(m_portKeeper.localPort()));
    environment.insert(QStringLiteral("QT_QPA_FB_HIDECURSOR"), QStringLiteral("1"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_configDir.path());
    m_program.reset(new QProcess);
    m_program->setProcessEnvironment(environment);
    m_program->setProcessChannelMode(QProcess::MergedChannels);
    m_program->start(QStringLiteral(K7HOST), {QStringLiteral("--lang"), QStringLiteral("en")});
}

/// However it was used: asked to end it ends well, and has said nothing but what Qt's server says.
void tst_RemoteConsole::cleanup()
{
    QCOMPARE(m_screen->fault(), QString());
    m_program->terminate();
    QVERIFY(m_program->waitForFinished(TimeLimit));
    const QString words = QString::fromLocal8Bit(m_program->readAll());
    QCOMPARE(words, QStringLiteral("k7host: QVncServer created on port %1\n").arg(m_portKeeper.localPort()));
    QCOMPARE(m_program->exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_program->exitCode(), 0);
}

void tst_RemoteConsole::click(const QRect &key)
{
    press(key);
    release(key);
}

/// The place of the only input or page key of that colour; null when none is lit so.
QRect tst_RemoteConsole::findKey(Qt::GlobalColor color) const
{
    const QImage picture = look(InputSection);
    QRect place;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (isShadeOf(color, picture.pixelColor(x, y)))
                place |= QRect(x, y, 1, 1);
        }
    }
    return place.isNull() ? place : place.translated(InputSection.topLeft());
}

bool tst_RemoteConsole::isLit(const QRect &key, Qt::GlobalColor color) const
{
    return isShadeOf(color, mean(look(key)));
}

bool tst_RemoteConsole::isIdle(const QRect &key) const
{
    return !isLit(key, Qt::red) && !isLit(key, Qt::green) && !isLit(key, Qt::blue);
}

void tst_RemoteConsole::theFirstInputStartsOnProgramTheSecondOnPreview()
{
    QVERIFY(isLit(m_first, Qt::red));
    QVERIFY(isLit(m_second, Qt::green));
    QVERIFY(isIdle(m_third));
}

void tst_RemoteConsole::aHeldInputIsOnPreviewAndStaysThere()
{
    const QImage litLook = look(m_second);
    press(m_third);
    QTRY_VERIFY_WITH_TIMEOUT(isLit(m_third, Qt::green) && isIdle(m_second), TimeLimit);
    QVERIFY(look(m_third) != litLook); // sunk as long as it is held

    release(m_third);
    QTRY_COMPARE_WITH_TIMEOUT(look(m_third), litLook, TimeLimit);
    QVERIFY(isIdle(m_second));
}

void tst_RemoteConsole::eachPressedInputGoesOnPreviewAndProgramStays()
{
    click(m_third);
    QTRY_VERIFY_WITH_TIMEOUT(isLit(m_third, Qt::green) && isIdle(m_second), TimeLimit);
    click(m_third); // once more changes nothing
    click(m_second);
    QTRY_VERIFY_WITH_TIMEOUT(isLit(m_second, Qt::green) && isIdle(m_third), TimeLimit);
    QVERIFY(isLit(m_first, Qt::red));
}

void tst_RemoteConsole::thePageKeysTurnThePage()
{
    click(m_third);
    QTRY_VERIFY_WITH_TIMEOUT(isLit(m_third, Qt::green), TimeLimit);
    const QImage label = look(labelOf(m_third));
    const QRect pageDown = findKey(Qt::blue);
    QVERIFY(pageDown.isValid());

    click(pageDown);
    QTRY_VERIFY_WITH_TIMEOUT(isIdle(m_first) && isIdle(m_third), TimeLimit);
    QTRY_VERIFY_WITH_TIMEOUT(look(labelOf(m_third)) != label, TimeLimit);
    QTRY_VERIFY_WITH_TIMEOUT(isIdle(pageDown), TimeLimit);
    const QRect pageUp = findKey(Qt::blue);
    QVERIFY(pageUp.isValid());

    click(pageUp);
    QTRY_VERIFY_WITH_TIMEOUT(isLit(m_first, Qt::red) && isLit(m_third, Qt::green), TimeLimit);
    QTRY_COMPARE_WITH_TIMEOUT(look(labelOf(m_third)), label, TimeLimit);
}

void tst_RemoteConsole::itEndsWellWithAKeyHeld()
{
    press(m_third);
    QTRY_VERIFY_WITH_TIMEOUT(isLit(m_third, Qt::green), TimeLimit);
}

QTEST_GUILESS_MAIN(tst_RemoteConsole)

#include "tst_remoteconsole.moc"
