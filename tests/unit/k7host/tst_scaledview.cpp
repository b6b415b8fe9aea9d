// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <scaledview.h>

#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using K7Host::ScaledView;

namespace {

/// 400 by 200, red on the left and blue on the right, with a button in the blue.
class TwoColors : public QWidget
{
public:
    TwoColors()
    {
        setWindowTitle(QStringLiteral("Two colours"));
        setFixedSize(400, 200);
        button.setGeometry(300, 100, 80, 40);
        other.setGeometry(150, 50, 40, 20);
    }

    QPushButton button{this};
    QPushButton other{this};

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::red);
        painter.fillRect(200, 0, width() - 200, height(), Qt::blue);
    }
};

} // namespace

class tst_ScaledView : public QObject
{
    Q_OBJECT

private slots:
    void theViewIsAsLargeAsTheReducedWindow_data();
    void theViewIsAsLargeAsTheReducedWindow();
    void theWholeWindowIsPaintedReduced();
    void theViewFollowsTheWindowsSize();
    void theFactorCanBeChanged();
    void aClickReachesWhatIsSeenUnderIt();
    void theWindowOutlivesTheView();
    void closingTheViewClosesTheLastWindow();
};

void tst_ScaledView::theViewIsAsLargeAsTheReducedWindow_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::addColumn<QSize>("expectedSize");
    QTest::newRow("half") << 0.5 << QSize(200, 100);
    QTest::newRow("a quarter") << 0.25 << QSize(100, 50);
    QTest::newRow("as in full HD") << 0.55 << QSize(220, 110);
}

void tst_ScaledView::theViewIsAsLargeAsTheReducedWindow()
{
    QFETCH(qreal, factor);
    TwoColors window;
    ScaledView view(&window, factor);
    QCOMPARE(view.windowTitle(), window.windowTitle());
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTEST(view.size(), "expectedSize");
    QCOMPARE(view.viewport()->size(), view.size());
    QVERIFY(window.isVisible());
}

void tst_ScaledView::theWholeWindowIsPaintedReduced()
{
    TwoColors window;
    ScaledView view(&window, 0.5);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QImage image = view.grab().toImage();
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(image.pixelColor(98, 99), QColor(Qt::red));
    QCOMPARE(image.pixelColor(101, 0), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(199, 99), QColor(Qt::blue));
}

void tst_ScaledView::theViewFollowsTheWindowsSize()
{
    TwoColors window;
    ScaledView view(&window, 0.5);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    window.setFixedSize(600, 300);
    QTRY_COMPARE(view.size(), QSize(300, 150));
    QCOMPARE(view.grab().toImage().pixelColor(299, 149), QColor(Qt::blue));
    QCOMPARE(view.grab().toImage().pixelColor(0, 0), QColor(Qt::red));
}

void tst_ScaledView::theFactorCanBeChanged()
{
    TwoColors window;
    ScaledView view(&window, 0.5);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    for (const qreal factor : {2.0, 1.0, 0.25}) {
        view.setFactor(factor);
        QCOMPARE(view.factor(), factor);
        QCOMPARE(view.nativeSize(), window.size());
        QCOMPARE(view.size(), window.size() * factor);
        const QSignalSpy pressed(&window.button, &QPushButton::pressed);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, window.button.geometry().center() * factor);
        QCOMPARE(pressed.count(), 1);
        const QImage image = view.grab().toImage();
        QCOMPARE(image.pixelColor(0, image.height() - 1), QColor(Qt::red));
        QCOMPARE(image.pixelColor(image.width() - 1, 0), QColor(Qt::blue));
    }
}

void tst_ScaledView::aClickReachesWhatIsSeenUnderIt()
{
    TwoColors window;
    ScaledView view(&window, 0.5);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QSignalSpy pressed(&window.button, &QPushButton::pressed);
    const QSignalSpy released(&window.button, &QPushButton::released);

    const QPoint onOther(85, 30);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, onOther);
    QCOMPARE(pressed.count(), 0);

    const QPoint onButton(170, 60);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, onButton);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 0);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, onButton);
    QCOMPARE(released.count(), 1);
}

void tst_ScaledView::theWindowOutlivesTheView()
{
    TwoColors window;
    {
        ScaledView view(&window, 0.5);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QVERIFY(window.graphicsProxyWidget());
    }
    QVERIFY(!window.graphicsProxyWidget());
    QCOMPARE(window.size(), QSize(400, 200));
}

void tst_ScaledView::closingTheViewClosesTheLastWindow()
{
    TwoColors window;
    ScaledView view(&window, 0.5);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTimer::singleShot(0, &view, &QWidget::close);
    QTimer::singleShot(5000, &view, [] { QCoreApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
}

QTEST_MAIN(tst_ScaledView)

#include "tst_scaledview.moc"
