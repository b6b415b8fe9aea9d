// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <display.h>

#include <QTest>

class tst_Display : public QObject
{
    Q_OBJECT

private slots:
    void theFittingFactorLeavesAWholeWindowOnTheScreen_data();
    void theFittingFactorLeavesAWholeWindowOnTheScreen();
    void qtIsOnlyAskedToEnlarge_data();
    void qtIsOnlyAskedToEnlarge();
    void theReductionNeverEnlarges_data();
    void theReductionNeverEnlarges();
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

void tst_Display::qtIsOnlyAskedToEnlarge_data()
{
    QTest::addColumn<bool>("isGiven");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QByteArray>("expectedVariable");
    QTest::newRow("half") << true << 0.5 << QByteArray("1");
    QTest::newRow("one") << true << 1.0 << QByteArray("1");
    QTest::newRow("double") << true << 2.0 << QByteArray("2");
    QTest::newRow("fitted") << true << 0.0 << QByteArray("1");
    QTest::newRow("the session's") << false << 0.0 << QByteArray("1.75");
}

void tst_Display::qtIsOnlyAskedToEnlarge()
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

void tst_Display::theReductionNeverEnlarges_data()
{
    QTest::addColumn<bool>("isGiven");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<qreal>("expectedReduction");
    QTest::newRow("half") << true << 0.5 << 0.5;
    QTest::newRow("one") << true << 1.0 << 1.0;
    QTest::newRow("double, which Qt does") << true << 2.0 << 1.0;
    QTest::newRow("fitted, with nothing to fit to") << true << 0.0 << 1.0;
    QTest::newRow("not given") << false << 0.0 << 1.0;
}

void tst_Display::theReductionNeverEnlarges()
{
    QFETCH(bool, isGiven);
    QFETCH(qreal, scale);
    K7Host::Options options;
    options.scaleGiven = isGiven;
    options.scale = scale;
    QTEST(K7Host::reduction(options, QSize(3489, 1050)), "expectedReduction");
}

QTEST_MAIN(tst_Display)

#include "tst_display.moc"
