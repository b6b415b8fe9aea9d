// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <display.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

class tst_Display : public QObject
{
    Q_OBJECT

private slots:
    void theFittingFactorLeavesAWholeWindowOnTheScreen_data();
    void theFittingFactorLeavesAWholeWindowOnTheScreen();
    void aLargerFactorNeedsToBeAskedFor();
    void qtScalesOnlyWhatTheOptionsLeaveToIt_data();
    void qtScalesOnlyWhatTheOptionsLeaveToIt();
    void thereIsRoomForAFrameOnTheScreen();
};

void tst_Display::theFittingFactorLeavesAWholeWindowOnTheScreen_data()
{
    QTest::addColumn<QSize>("available");
    QTest::addColumn<qreal>("expectedFactor");
    QTest::newRow("full HD") << QSize(1920, 1080) << 0.55;
    QTest::newRow("full HD without a panel") << QSize(1920, 1040) << 0.55;
    QTest::newRow("ultra HD is no reason to enlarge") << QSize(3840, 2160) << 1.0;
    QTest::newRow("as large as the window") << QSize(3489, 1050) << 1.0;
    QTest::newRow("wide and low") << QSize(3840, 525) << 0.5;
    QTest::newRow("tiny") << QSize(640, 480) << 0.18;
    QTest::newRow("no screen") << QSize() << 0.01;
}

void tst_Display::theFittingFactorLeavesAWholeWindowOnTheScreen()
{
    QFETCH(QSize, available);
    QTEST(K7Host::fittingFactor(QSize(3489, 1050), available), "expectedFactor");
}

void tst_Display::aLargerFactorNeedsToBeAskedFor()
{
    const QSize native(100, 50);
    const QSize available(310, 100);
    QCOMPARE(K7Host::fittingFactor(native, available), 1.0);
    QCOMPARE(K7Host::fittingFactor(native, available, 1.5), 1.5);
    QCOMPARE(K7Host::fittingFactor(native, available, 4), 2.0);
}

void tst_Display::qtScalesOnlyWhatTheOptionsLeaveToIt_data()
{
    QTest::addColumn<bool>("isGiven");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QByteArray>("expectedVariable");
    QTest::newRow("half") << true << 0.5 << QByteArray("1");
    QTest::newRow("double") << true << 2.0 << QByteArray("1");
    QTest::newRow("fitted") << true << 0.0 << QByteArray("1");
    QTest::newRow("the session's") << false << 0.0 << QByteArray("1.75");
}

void tst_Display::qtScalesOnlyWhatTheOptionsLeaveToIt()
{
    QFETCH(bool, isGiven);
    QFETCH(qreal, scale);
    K7Host::Options options;
    options.scaleGiven = isGiven;
    options.scale = scale;
    qputenv("QT_SCALE_FACTOR", "1.75");
    K7Host::prepareDisplay(options);
    QVERIFY(!K7Host::checkDisplay(options));
    QTEST(qgetenv("QT_SCALE_FACTOR"), "expectedVariable");
    qunsetenv("QT_SCALE_FACTOR");
}

void tst_Display::thereIsRoomForAFrameOnTheScreen()
{
    QVERIFY(K7Host::isOffscreen());
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const QSize room = K7Host::roomOnScreen();
    QVERIFY(room.isValid());
    QVERIFY(room.width() < screen.width() && room.width() > screen.width() - 40);
    QVERIFY(room.height() < screen.height() && room.height() > screen.height() - 80);
}

QTEST_MAIN(tst_Display)

#include "tst_display.moc"
