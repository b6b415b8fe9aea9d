// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/textticker.h>

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QImage>
#include <QPointer>
#include <QSet>
#include <QTest>
#include <QTimer>

#include <memory>

using Korvo::EC::TextTicker;

namespace {

const QString shortText = QStringLiteral("CAM 1");
const QString longText = QStringLiteral("Program output of the second mixer");

/// Sees every timer of the application at work, and so the clock of the tickers.
class TimerWatch : public QObject
{
public:
    TimerWatch() { qApp->installEventFilter(this); }

    /// All timer objects that fire within a time in which the clock would have ticked several times.
    QSet<QObject *> timersAtWork()
    {
        m_seen.clear();
        QElapsedTimer elapsed;
        elapsed.start();
        while (elapsed.elapsed() < 120)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
        return m_seen;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Timer)
            m_seen.insert(watched);
        return false;
    }

private:
    QSet<QObject *> m_seen;
};

/// A ticker that tells how often, and where, it was painted.
class PaintedTicker : public TextTicker
{
public:
    using TextTicker::TextTicker;

    int paints = 0;
    QRegion painted;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        painted += event->region();
        TextTicker::paintEvent(event);
    }
};

/// A parent that counts how often it was painted, and asked to lay its children out anew.
class LaidOutParent : public QWidget
{
public:
    int layoutRequests = 0;
    int paints = 0;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            ++layoutRequests;
        else if (event->type() == QEvent::Paint)
            ++paints;
        return QWidget::event(event);
    }
};

/// As long as it lives the application has a palette for labels, which then paint their own ground.
struct OledColors
{
    OledColors()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::black);
        QApplication::setPalette(palette, "Korvo::EC::TextTicker");
    }
    ~OledColors() { QApplication::setPalette(QApplication::palette(), "Korvo::EC::TextTicker"); }
    Q_DISABLE_COPY(OledColors)
};

/// White on black, so that ink is what is bright.
void setUp(TextTicker *ticker, const QString &text, const QSize &size = QSize(120, 32))
{
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::Mid, Qt::black);
    ticker->setPalette(palette);
    ticker->setAutoFillBackground(true);
    ticker->setFixedSize(size);
    ticker->setText(text);
}

bool show(QWidget *widget)
{
    widget->show();
    return QTest::qWaitForWindowExposed(widget);
}

QImage picture(QWidget *widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The smallest rectangle with all that is not black.
QRect ink(const QImage &image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) > 32)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

/// Whether \a now is \a before moved one pixel to the left within \a area, but for the rounding of clipped
/// glyphs.
bool isMovedByOnePixel(const QImage &before, const QImage &now, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x < area.right(); ++x) {
            if (qAbs(qGray(before.pixel(x + 1, y)) - qGray(now.pixel(x, y))) > 8)
                return false;
        }
    }
    return true;
}

/// The clock, seen at work; null when it does not exist.
QObject *findClock()
{
    TimerWatch watch;
    const QSet<QObject *> timers = watch.timersAtWork();
    return timers.isEmpty() ? nullptr : *timers.begin();
}

void tick(QObject *clock, int times = 1)
{
    QTimer *timer = qobject_cast<QTimer *>(clock);
    for (int i = 0; i < times; ++i) {
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }
}

} // namespace

class tst_TextTicker : public QObject
{
    Q_OBJECT

private slots:
    void textTellsTheTextUnchanged_data();
    void textTellsTheTextUnchanged();
    void textIsNeverTakenForMarkup();
    void lineBreaksAreShownAsBlanks_data();
    void lineBreaksAreShownAsBlanks();
    void aTextThatFitsIsCentred_data();
    void aTextThatFitsIsCentred();
    void alignmentPlacesATextThatFits();
    void aTextThatFitsNeedsNoClock();
    void aLongTextStandsStillFirstAndThenScrolls();
    void scrollingMovesTheWholePictureByPixels();
    void scrollingEndsWhereItBegan();
    void aTickRepaintsTheTextOnly();
    void tickersShareOneClock();
    void theClockEndsWithTheLastReason_data();
    void theClockEndsWithTheLastReason();
    void theClockComesBackWithTheReason();
    void theClockNeedsAVisibleTicker();
    void roomIsJudgedAnew_data();
    void roomIsJudgedAnew();
    void aTextSetThroughTheBaseClassIsShownToo();
    void theSameTextCostsNothing();
    void aNewTextDoesNotLayOutTheParentOfAFixedSize();
    void sizeHintsDoNotDependOnTheText();
    void aLayoutCanMakeItNarrowerThanItsText();
    void coloursFollowThePalette();
    void styleSheetsPaintFrameBackgroundAndText();
    void textStaysWithinTheContents();
    void rightToLeftTextIsPainted_data();
    void rightToLeftTextIsPainted();
    void theGroundIsOpaqueWithALineAroundIt();
    void withoutAPaletteOfItsOwnItIsALabelLikeOthers();
    void aNewTextRepaintsTheLabelAlone();
    void aSheetWithAGroundTakesOverAndGivesBack_data();
    void aSheetWithAGroundTakesOverAndGivesBack();
    void aTextHigherThanTheLabelIsClipped();
    void aTextIsLaidOutOnOneLineWhole_data();
    void aTextIsLaidOutOnOneLineWhole();
    void aTextSetWhileHiddenIsShownThen();
    void accessibilityReadsTheWholeText();
};

void tst_TextTicker::textTellsTheTextUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("short") << shortText;
    QTest::newRow("long") << longText;
    QTest::newRow("line breaks") << QStringLiteral("one\ntwo\r\nthree");
    QTest::newRow("blanks around") << QStringLiteral("  x  ");
    QTest::newRow("markup") << QStringLiteral("<b>&amp;</b>");
}

void tst_TextTicker::textTellsTheTextUnchanged()
{
    QFETCH(QString, text);
    TextTicker ticker;
    setUp(&ticker, text);
    QVERIFY(show(&ticker));
    QCOMPARE(ticker.text(), text);
    QCOMPARE(ticker.property("text").toString(), text);
}

void tst_TextTicker::textIsNeverTakenForMarkup()
{
    TextTicker plain;
    setUp(&plain, QStringLiteral("<b>&A</b>"), QSize(200, 32));
    TextTicker letters;
    setUp(&letters, QStringLiteral("A"), QSize(200, 32));
    QCOMPARE(plain.textFormat(), Qt::PlainText);
    QVERIFY(ink(picture(&plain)).width() > 3 * ink(picture(&letters)).width());
}

void tst_TextTicker::lineBreaksAreShownAsBlanks_data()
{
    QTest::addColumn<QString>("separator");
    QTest::newRow("LF") << QStringLiteral("\n");
    QTest::newRow("CR") << QStringLiteral("\r");
    QTest::newRow("CR LF") << QStringLiteral("\r\n");
    QTest::newRow("line separator") << QString(QChar(QChar::LineSeparator));
    QTest::newRow("paragraph separator") << QString(QChar(QChar::ParagraphSeparator));
}

void tst_TextTicker::lineBreaksAreShownAsBlanks()
{
    QFETCH(QString, separator);
    TextTicker broken;
    setUp(&broken, QStringLiteral("IN") + separator + QStringLiteral("7"));
    TextTicker blank;
    setUp(&blank, QStringLiteral("IN 7"));
    QVERIFY(!ink(picture(&blank)).isEmpty());
    QCOMPARE(picture(&broken), picture(&blank));
}

void tst_TextTicker::aTextThatFitsIsCentred_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("margin");
    QTest::newRow("even") << QSize(120, 32) << 0;
    QTest::newRow("odd") << QSize(121, 33) << 0;
    QTest::newRow("margin") << QSize(120, 32) << 7;
}

void tst_TextTicker::aTextThatFitsIsCentred()
{
    QFETCH(QSize, size);
    QFETCH(int, margin);
    TextTicker ticker;
    ticker.setMargin(margin);
    setUp(&ticker, QStringLiteral("HOH"), size);
    const QRect bounds = ink(picture(&ticker));
    QVERIFY(!bounds.isEmpty());
    const int left = bounds.left();
    const int right = size.width() - 1 - bounds.right();
    const int top = bounds.top();
    const int bottom = size.height() - 1 - bounds.bottom();
    QVERIFY2(qAbs(left - right) <= 2, qPrintable(QStringLiteral("%1 left, %2 right").arg(left).arg(right)));
    QVERIFY2(qAbs(top - bottom) <= 4, qPrintable(QStringLiteral("%1 above, %2 below").arg(top).arg(bottom)));
}

void tst_TextTicker::alignmentPlacesATextThatFits()
{
    TextTicker ticker;
    setUp(&ticker, shortText);
    ticker.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const QRect bounds = ink(picture(&ticker));
    QVERIFY(bounds.left() < ticker.contentsRect().left() + 5);
    QVERIFY(bounds.bottom() < 20);
}

void tst_TextTicker::aTextThatFitsNeedsNoClock()
{
    TextTicker ticker;
    setUp(&ticker, shortText);
    QVERIFY(show(&ticker));
    QVERIFY(findClock() == nullptr);
}

void tst_TextTicker::aLongTextStandsStillFirstAndThenScrolls()
{
    TextTicker ticker;
    setUp(&ticker, longText);
    QVERIFY(show(&ticker));
    const QPointer<QTimer> timer = qobject_cast<QTimer *>(findClock());
    QVERIFY(timer);
    const int pixelsASecond = 1000 / timer->interval();
    QVERIFY2(pixelsASecond >= 30 && pixelsASecond <= 40, qPrintable(QString::number(pixelsASecond)));

    ticker.hide();
    QVERIFY(!timer);
    QVERIFY(show(&ticker));
    QElapsedTimer still;
    still.start();
    const QImage start = picture(&ticker);
    QVERIFY(ink(start).left() < ticker.contentsRect().left() + 5);
    QTRY_VERIFY(picture(&ticker) != start);
    QVERIFY2(still.elapsed() > 800, qPrintable(QString::number(still.elapsed())));
}

void tst_TextTicker::scrollingMovesTheWholePictureByPixels()
{
    TextTicker ticker;
    setUp(&ticker, longText);
    QVERIFY(show(&ticker));
    QObject *timer = findClock();
    QVERIFY(timer != nullptr);

    int moved = 0;
    QImage before = picture(&ticker);
    for (int i = 0; i < 200 && moved < 20; ++i) {
        tick(timer);
        const QImage now = picture(&ticker);
        if (now == before)
            continue;
        QVERIFY(isMovedByOnePixel(before, now, ticker.contentsRect()));
        before = now;
        ++moved;
    }
    QCOMPARE(moved, 20);
}

void tst_TextTicker::scrollingEndsWhereItBegan()
{
    TextTicker ticker;
    setUp(&ticker, longText);
    QVERIFY(show(&ticker));
    QObject *timer = findClock();
    QVERIFY(timer != nullptr);
    const QImage start = picture(&ticker);
    const auto ticksUntil = [&](bool isAtStart) {
        int ticks = 0;
        while (ticks < 2000 && (picture(&ticker) == start) != isAtStart) {
            tick(timer);
            ++ticks;
        }
        return ticks;
    };

    ticksUntil(false);
    const int roundTrip = ticksUntil(true);
    QVERIFY2(roundTrip > ticker.fontMetrics().boundingRect(longText).width() && roundTrip < 2000,
             qPrintable(QString::number(roundTrip)));
    // Readable again, for as long as at first.
    const int pauseMs = ticksUntil(false) * qobject_cast<QTimer *>(timer)->interval();
    QVERIFY2(pauseMs > 900 && pauseMs < 1200, qPrintable(QString::number(pauseMs)));
    QCOMPARE(ticksUntil(true), roundTrip);
}

void tst_TextTicker::aTickRepaintsTheTextOnly()
{
    PaintedTicker ticker;
    ticker.setFrameStyle(QFrame::Box);
    ticker.setLineWidth(3);
    setUp(&ticker, longText, QSize(120, 80));
    QVERIFY(show(&ticker));
    QObject *timer = findClock();
    QVERIFY(timer != nullptr);
    tick(timer, 40);
    QCoreApplication::processEvents();

    ticker.painted = QRegion();
    ticker.paints = 0;
    tick(timer, 3);
    QTRY_VERIFY(ticker.paints > 0);
    const QRect area = ticker.painted.boundingRect();
    QVERIFY(ticker.contentsRect().contains(area));
    QVERIFY2(area.height() < 40, qPrintable(QString::number(area.height())));
}

void tst_TextTicker::tickersShareOneClock()
{
    TextTicker first;
    TextTicker second;
    TextTicker third;
    setUp(&first, longText);
    setUp(&second, longText + longText);
    setUp(&third, shortText);
    QVERIFY(show(&first));
    QVERIFY(show(&second));
    QVERIFY(show(&third));
    TimerWatch watch;
    const QSet<QObject *> timers = watch.timersAtWork();
    QCOMPARE(timers.size(), 1);
    const QPointer<QObject> timer = *timers.begin();

    const QImage firstStart = picture(&first);
    const QImage secondStart = picture(&second);
    tick(timer, 60);
    QVERIFY(picture(&first) != firstStart);
    QVERIFY(picture(&second) != secondStart);

    first.hide();
    QVERIFY(timer);
    second.hide();
    QVERIFY(!timer);
}

void tst_TextTicker::theClockEndsWithTheLastReason_data()
{
    QTest::addColumn<QString>("reason");
    for (const char *reason : {"hidden", "parent hidden", "minimised", "shorter text", "empty text",
                               "cleared", "smaller font", "wider", "deleted"})
        QTest::newRow(reason) << QString::fromLatin1(reason);
}

void tst_TextTicker::theClockEndsWithTheLastReason()
{
    QFETCH(QString, reason);
    QWidget window;
    window.resize(600, 100);
    auto *ticker = new TextTicker(&window);
    setUp(ticker, longText);
    QVERIFY(show(&window));
    const QPointer<QObject> timer = findClock();
    QVERIFY(timer);

    if (reason == QLatin1String("hidden")) {
        ticker->hide();
    } else if (reason == QLatin1String("parent hidden")) {
        window.hide();
    } else if (reason == QLatin1String("minimised")) {
        QHideEvent minimised; // as the window system has it sent: the widget stays visible
        QCoreApplication::sendEvent(ticker, &minimised);
        QVERIFY(ticker->isVisible());
    } else if (reason == QLatin1String("shorter text")) {
        ticker->setText(shortText);
    } else if (reason == QLatin1String("empty text")) {
        ticker->setText(QString());
    } else if (reason == QLatin1String("cleared")) {
        ticker->clear();
    } else if (reason == QLatin1String("smaller font")) {
        QFont font = ticker->font();
        font.setPixelSize(4);
        ticker->setFont(font);
    } else if (reason == QLatin1String("wider")) {
        ticker->setFixedWidth(500);
    } else {
        delete ticker;
    }
    if (reason == QLatin1String("cleared"))
        QTRY_VERIFY(!timer); // QLabel's own function: the next paint notices
    QVERIFY(!timer);
    QVERIFY(findClock() == nullptr);
}

void tst_TextTicker::theClockComesBackWithTheReason()
{
    TextTicker ticker;
    setUp(&ticker, longText);
    QVERIFY(show(&ticker));
    QObject *first = findClock();
    QVERIFY(first != nullptr);
    tick(first, 60);
    ticker.hide();
    QVERIFY(show(&ticker));
    // It starts readable again.
    QVERIFY(ink(picture(&ticker)).left() < ticker.contentsRect().left() + 5);
    QVERIFY(findClock() != nullptr);
}

void tst_TextTicker::theClockNeedsAVisibleTicker()
{
    TextTicker ticker;
    setUp(&ticker, longText);
    QVERIFY(!ink(picture(&ticker)).isEmpty());
    QVERIFY(findClock() == nullptr);
}

void tst_TextTicker::roomIsJudgedAnew_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"narrower", "larger font", "larger font by style sheet",
                               "padding by style sheet", "margin", "frame"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

void tst_TextTicker::roomIsJudgedAnew()
{
    QFETCH(QString, change);
    TextTicker ticker;
    setUp(&ticker, shortText, QSize(80, 32));
    QVERIFY(show(&ticker));
    QVERIFY(findClock() == nullptr);

    if (change == QLatin1String("narrower")) {
        ticker.setFixedWidth(20);
    } else if (change == QLatin1String("larger font")) {
        QFont font = ticker.font();
        font.setPixelSize(40);
        ticker.setFont(font);
    } else if (change == QLatin1String("larger font by style sheet")) {
        ticker.setStyleSheet(QStringLiteral("font-size: 40px"));
    } else if (change == QLatin1String("padding by style sheet")) {
        ticker.setStyleSheet(QStringLiteral("padding: 0 35px"));
    } else if (change == QLatin1String("margin")) {
        ticker.setMargin(30);
    } else {
        ticker.setFrameStyle(QFrame::Box);
        ticker.setLineWidth(30);
    }
    QVERIFY(findClock() != nullptr);
}

void tst_TextTicker::aTextSetThroughTheBaseClassIsShownToo()
{
    TextTicker ticker;
    setUp(&ticker, shortText);
    QVERIFY(show(&ticker));
    const QImage before = picture(&ticker);
    ticker.setProperty("text", longText);
    QVERIFY(picture(&ticker) != before);
    QVERIFY(findClock() != nullptr);
}

void tst_TextTicker::theSameTextCostsNothing()
{
    LaidOutParent parent;
    auto *ticker = new PaintedTicker;
    auto *layout = new QHBoxLayout(&parent);
    layout->addWidget(ticker);
    ticker->setText(shortText);
    QVERIFY(show(&parent));
    QTRY_VERIFY(ticker->paints > 0);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();

    ticker->paints = 0;
    parent.layoutRequests = 0;
    for (int i = 0; i < 3; ++i) {
        ticker->setText(QStringLiteral("CAM %1").arg(1)); // equal, yet not shared
        QCoreApplication::processEvents();
    }
    QCOMPARE(ticker->paints, 0);
    QCOMPARE(parent.layoutRequests, 0);

    ticker->setText(QStringLiteral("CAM 2"));
    QTRY_COMPARE(ticker->paints, 1);
}

void tst_TextTicker::aNewTextDoesNotLayOutTheParentOfAFixedSize()
{
    LaidOutParent parent;
    auto *ticker = new PaintedTicker;
    auto *layout = new QHBoxLayout(&parent);
    layout->addWidget(ticker);
    ticker->setFixedSize(100, 30);
    QVERIFY(show(&parent));
    QCoreApplication::processEvents();
    parent.layoutRequests = 0;
    ticker->setText(longText);
    QTRY_VERIFY(ticker->paints > 0);
    ticker->setText(shortText);
    QCoreApplication::processEvents();
    QCOMPARE(parent.layoutRequests, 0);
}

void tst_TextTicker::sizeHintsDoNotDependOnTheText()
{
    TextTicker ticker;
    const QSize hint = ticker.sizeHint();
    const QSize minimum = ticker.minimumSizeHint();
    ticker.setText(longText + longText);
    QCOMPARE(ticker.sizeHint(), hint);
    QCOMPARE(ticker.minimumSizeHint(), minimum);
    QVERIFY(minimum.width() > 0);
    QVERIFY(minimum.width() < ticker.fontMetrics().boundingRect(QStringLiteral("PROGRAM")).width());
    QVERIFY(minimum.height() >= ticker.fontMetrics().height());
    ticker.setMargin(10);
    QCOMPARE(ticker.minimumSizeHint(), minimum + QSize(20, 20));
}

void tst_TextTicker::aLayoutCanMakeItNarrowerThanItsText()
{
    QWidget parent;
    auto *layout = new QHBoxLayout(&parent);
    auto *ticker = new TextTicker;
    layout->addWidget(ticker);
    layout->setContentsMargins(0, 0, 0, 0);
    ticker->setText(longText);
    parent.resize(60, 30);
    QVERIFY(show(&parent));
    QCOMPARE(parent.width(), 60);
    QCOMPARE(ticker->width(), 60);
}

void tst_TextTicker::coloursFollowThePalette()
{
    TextTicker ticker;
    setUp(&ticker, QStringLiteral("HHH"));
    const auto holds = [&ticker](const QColor &color) {
        const QImage image = picture(&ticker);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == color.rgb())
                    return true;
            }
        }
        return false;
    };
    QVERIFY(holds(Qt::white));
    ticker.setEnabled(false);
    QVERIFY(holds(Qt::red));
    QVERIFY(!holds(Qt::white));
    ticker.setEnabled(true);
    QPalette palette = ticker.palette();
    palette.setColor(QPalette::Highlight, Qt::green);
    ticker.setPalette(palette);
    ticker.setForegroundRole(QPalette::Highlight);
    QVERIFY(holds(Qt::green));
}

void tst_TextTicker::styleSheetsPaintFrameBackgroundAndText()
{
    TextTicker ticker;
    ticker.setStyleSheet(
        QStringLiteral("QLabel { border: 4px solid #00ff00; background: #0000ff; color: #ff0000; }"
                       "QLabel:disabled { color: #ffff00; }"));
    ticker.setFixedSize(100, 32);
    ticker.setText(QStringLiteral("HHHHH HHHHH HHHHH HHHHH"));
    const auto colors = [&ticker] {
        QSet<QRgb> seen;
        const QImage image = picture(&ticker);
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                seen.insert(image.pixel(x, y));
        return seen;
    };
    const QImage image = picture(&ticker);
    QCOMPARE(QColor(image.pixel(1, 16)), QColor(Qt::green));
    QCOMPARE(QColor(image.pixel(98, 16)), QColor(Qt::green));
    QCOMPARE(QColor(image.pixel(50, 5)), QColor(Qt::blue));
    QVERIFY(colors().contains(QColor(Qt::red).rgb()));
    ticker.setEnabled(false);
    QVERIFY(!colors().contains(QColor(Qt::red).rgb()));
    QVERIFY(colors().contains(QColor(Qt::yellow).rgb()));
}

void tst_TextTicker::textStaysWithinTheContents()
{
    TextTicker ticker;
    setUp(&ticker, longText);
    ticker.setMargin(11);
    QVERIFY(show(&ticker));
    QObject *timer = findClock();
    QVERIFY(timer != nullptr);
    tick(timer, 60);
    const QRect bounds = ink(picture(&ticker));
    QVERIFY(!bounds.isEmpty());
    QVERIFY(ticker.rect().adjusted(11, 11, -11, -11).contains(bounds));
}

void tst_TextTicker::rightToLeftTextIsPainted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isMirrored");
    const QString hebrew = QStringLiteral("\u05de\u05e6\u05dc\u05de\u05d4 ");
    QTest::newRow("short") << hebrew << false;
    QTest::newRow("short, mirrored") << hebrew << true;
    QTest::newRow("long") << hebrew.repeated(8) << false;
    QTest::newRow("long, mirrored") << hebrew.repeated(8) << true;
    QTest::newRow("latin, mirrored") << longText << true;
}

void tst_TextTicker::rightToLeftTextIsPainted()
{
    QFETCH(QString, text);
    QFETCH(bool, isMirrored);
    TextTicker ticker;
    setUp(&ticker, text);
    ticker.setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
    const QRect bounds = ink(picture(&ticker));
    QVERIFY(!bounds.isEmpty());
    if (text.size() < 10)
        QVERIFY(qAbs(bounds.left() - (ticker.width() - 1 - bounds.right())) <= 6);
    else
        QVERIFY(bounds.width() > 100);
}

void tst_TextTicker::theGroundIsOpaqueWithALineAroundIt()
{
    const OledColors colors;
    QWidget parent;
    QPalette bright;
    bright.setColor(QPalette::Window, Qt::magenta);
    parent.setPalette(bright);
    parent.resize(200, 60);
    TextTicker ticker(&parent);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0, 0, 60));
    palette.setColor(QPalette::Mid, Qt::green);
    palette.setColor(QPalette::WindowText, Qt::white);
    ticker.setPalette(palette);
    ticker.setGeometry(11, 11, 101, 31);
    QVERIFY(show(&parent));
    QVERIFY(ticker.testAttribute(Qt::WA_OpaquePaintEvent));

    const QImage image = picture(&parent).copy(ticker.geometry());
    const QRect inside = image.rect().adjusted(1, 1, -1, -1);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(QColor(image.pixel(x, y)), inside.contains(x, y) ? QColor(0, 0, 60) : QColor(Qt::green));
    }
    QCOMPARE(QColor(picture(&parent).pixel(10, 20)), QColor(Qt::magenta));
}

void tst_TextTicker::withoutAPaletteOfItsOwnItIsALabelLikeOthers()
{
    QWidget parent;
    QPalette bright;
    bright.setColor(QPalette::Window, Qt::magenta);
    parent.setPalette(bright);
    parent.resize(200, 60);
    TextTicker ticker(&parent);
    ticker.setGeometry(11, 11, 101, 31);
    QVERIFY(show(&parent));
    QVERIFY(!ticker.testAttribute(Qt::WA_OpaquePaintEvent));
    QCOMPARE(ticker.contentsRect(), ticker.rect());
    QCOMPARE(QColor(picture(&parent).pixel(13, 13)), QColor(Qt::magenta));
    {
        const OledColors colors;
        parent.setStyleSheet(QStringLiteral("QSlider { color: red; }")); // as a theme does after its palettes
        QVERIFY(ticker.testAttribute(Qt::WA_OpaquePaintEvent));
        QVERIFY(ticker.contentsRect() != ticker.rect());
    }
    parent.setStyleSheet(QString());
    parent.setStyleSheet(QStringLiteral("QSlider { color: blue; }"));
    QCOMPARE(ticker.contentsRect(), ticker.rect());
}

void tst_TextTicker::aNewTextRepaintsTheLabelAlone()
{
    const OledColors colors;
    LaidOutParent parent;
    parent.resize(300, 100);
    PaintedTicker ticker;
    ticker.setParent(&parent);
    setUp(&ticker, shortText);
    ticker.move(20, 20);
    QVERIFY(show(&parent));
    QTRY_VERIFY(ticker.paints > 0);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();

    parent.paints = 0;
    ticker.painted = QRegion();
    for (const QString &text : {QStringLiteral("CAM 2"), longText, QString(), shortText}) {
        ticker.paints = 0;
        ticker.setText(text);
        QTRY_COMPARE(ticker.paints, 1);
    }
    QCOMPARE(parent.paints, 0);
    // The line around it stays.
    QVERIFY2(ticker.rect().adjusted(1, 1, -1, -1).contains(ticker.painted.boundingRect()),
             qPrintable(QString::number(ticker.painted.boundingRect().width())));
}

void tst_TextTicker::aSheetWithAGroundTakesOverAndGivesBack_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<bool>("isOnParent");
    QTest::newRow("background") << QStringLiteral("QLabel { background: rgba(0, 0, 255, 128); }") << false;
    QTest::newRow("border") << QStringLiteral("QLabel { border: 2px solid blue; }") << false;
    QTest::newRow("the parent's") << QStringLiteral("QLabel { background: rgba(0, 0, 255, 128); }") << true;
}

void tst_TextTicker::aSheetWithAGroundTakesOverAndGivesBack()
{
    const OledColors colors;
    QFETCH(QString, sheet);
    QFETCH(bool, isOnParent);
    QWidget parent;
    QPalette bright;
    bright.setColor(QPalette::Window, Qt::red);
    parent.setPalette(bright);
    parent.resize(200, 60);
    TextTicker ticker(&parent);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0, 0, 60));
    palette.setColor(QPalette::Mid, Qt::green);
    ticker.setPalette(palette);
    ticker.setGeometry(10, 10, 100, 30);
    QVERIFY(show(&parent));
    QWidget *styled = isOnParent ? &parent : static_cast<QWidget *>(&ticker);
    const auto ground = [&] { return QColor(picture(&parent).pixel(20, 15)); };

    for (int i = 0; i < 2; ++i) {
        QCOMPARE(ground(), QColor(0, 0, 60));
        QVERIFY(ticker.testAttribute(Qt::WA_OpaquePaintEvent));
        styled->setStyleSheet(sheet);
        QVERIFY(!ticker.testAttribute(Qt::WA_OpaquePaintEvent));
        QVERIFY2(ground().red() > 100, qPrintable(ground().name()));        // the parent is seen
        styled->setStyleSheet(QStringLiteral("QLabel { color: yellow; }")); // no ground
        QCOMPARE(ground(), QColor(0, 0, 60));
        QVERIFY(ticker.testAttribute(Qt::WA_OpaquePaintEvent));
        styled->setStyleSheet(sheet);
        styled->setStyleSheet(QString());
    }
}

void tst_TextTicker::aTextHigherThanTheLabelIsClipped()
{
    const OledColors colors;
    TextTicker ticker;
    QFont font;
    font.setPixelSize(60);
    ticker.setFont(font);
    setUp(&ticker, QStringLiteral("HHH"), QSize(300, 20));
    const QRect bounds = ink(picture(&ticker));
    QVERIFY(!bounds.isEmpty());
    QVERIFY2(bounds.top() >= 1 && bounds.bottom() <= 18,
             qPrintable(QStringLiteral("%1 to %2").arg(bounds.top()).arg(bounds.bottom())));
    QVERIFY(bounds.height() > 10);
}

void tst_TextTicker::aTextIsLaidOutOnOneLineWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("latin") << longText;
    QTest::newRow("Hebrew") << QStringLiteral("\u05de\u05e6\u05dc\u05de\u05d4 ").repeated(5);
    QTest::newRow("Chinese")
        << QStringLiteral("\u4e3b\u8f93\u51fa\u753b\u9762\u6765\u6e90\u540d\u79f0").repeated(3);
    QTest::newRow("both directions") << QStringLiteral("PGM \u05de\u05e6\u05dc\u05de\u05d4 12 \u4e3b");
    QTest::newRow("10,000 characters") << QStringLiteral("CAM 1 ").repeated(1667).left(10000);
}

void tst_TextTicker::aTextIsLaidOutOnOneLineWhole()
{
    QFETCH(QString, text);
    TextTicker ticker;
    const int width = ticker.fontMetrics().boundingRect(text).width();
    // In its whole length, where a picture can be so wide.
    const int room = qMin(width + 60, 3000);
    setUp(&ticker, text, QSize(room, 60));
    const QRect bounds = ink(picture(&ticker));
    const int line = ticker.fontMetrics().height();
    QVERIFY2(bounds.height() <= line + 4, qPrintable(QString::number(bounds.height())));
    if (width < room)
        QVERIFY2(qAbs(bounds.width() - width) < 12,
                 qPrintable(QStringLiteral("%1 of %2").arg(bounds.width()).arg(width)));
    else
        QVERIFY(bounds.width() > room - 30);
    QCOMPARE(ticker.text(), text);
}

void tst_TextTicker::aTextSetWhileHiddenIsShownThen()
{
    TextTicker ticker;
    setUp(&ticker, shortText);
    QVERIFY(show(&ticker));
    const QImage before = picture(&ticker);
    ticker.hide();
    ticker.setText(longText);
    ticker.setText(QStringLiteral("HHH"));
    QVERIFY(show(&ticker));
    TextTicker fresh;
    setUp(&fresh, QStringLiteral("HHH"));
    QVERIFY(show(&fresh));
    QVERIFY(picture(&ticker) != before);
    QCOMPARE(picture(&ticker), picture(&fresh));
}

void tst_TextTicker::accessibilityReadsTheWholeText()
{
    TextTicker ticker;
    setUp(&ticker, longText, QSize(40, 20));
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&ticker);
    QVERIFY(accessible != nullptr);
    QCOMPARE(accessible->text(QAccessible::Name), longText);
}

QTEST_MAIN(tst_TextTicker)

#include "tst_textticker.moc"
