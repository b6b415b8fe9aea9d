// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <latencymeter.h>
#include <latencypage.h>

#include <korvo/keyboard/constants.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

using K7Host::LatencyMeter;
using K7Host::LatencyPage;

namespace {

constexpr qint64 Ms = 1000000;

} // namespace

class tst_LatencyPage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsAndColumnsAreNamed();
    void nothingIsShownWhereNothingWasMeasured();
    void recordsAreShown();
    void aVisiblePageFollows();
    void manySamplesAreShownAtOnce();
    void aHiddenPageWaitsUntilItIsShown();
    void nothingRunsWhileNothingComes();
    void resetBeginsAnew();

private:
    /// A press that takes that long.
    void measure(qint64 duration);
    QStringList row(int number) const;
    QString label(const char *name) const { return m_page->findChild<QLabel *>(QLatin1String(name))->text(); }
    QTimer *timer() const { return m_page->findChild<QTimer *>(); }

    qint64 m_now = 0;
    QScopedPointer<QPushButton> m_key;
    QScopedPointer<LatencyMeter> m_meter;
    QScopedPointer<LatencyPage> m_page;
};

void tst_LatencyPage::init()
{
    m_now = 0;
    m_key.reset(new QPushButton);
    m_key->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 36);
    m_meter.reset(new LatencyMeter({}, [this] { return m_now; }));
    m_page.reset(new LatencyPage(m_meter.data()));
}

void tst_LatencyPage::cleanup()
{
    m_page.reset();
    m_meter.reset();
    m_key.reset();
}

void tst_LatencyPage::measure(qint64 duration)
{
    const QPointF middle(5, 5);
    QMouseEvent press(QEvent::MouseButtonPress, middle, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_key.data(), &press);
    m_now += duration;
    m_meter->emitted({QStringLiteral("ecButtonPressed"), {0xff0024}});
}

QStringList tst_LatencyPage::row(int number) const
{
    const auto *table = m_page->findChild<QTableWidget *>();
    QStringList texts;
    for (int column = 0; column < table->columnCount(); ++column)
        texts << table->item(number, column)->text();
    return texts;
}

void tst_LatencyPage::rowsAndColumnsAreNamed()
{
    const auto *table = m_page->findChild<QTableWidget *>();
    QVERIFY(table);
    QStringList rows;
    for (int i = 0; i < table->rowCount(); ++i)
        rows << table->verticalHeaderItem(i)->text();
    QStringList columns;
    for (int i = 0; i < table->columnCount(); ++i)
        columns << table->horizontalHeaderItem(i)->text();
    QCOMPARE(rows, (QStringList{QStringLiteral("Touch to key code"), QStringLiteral("Record to pixel"),
                                QStringLiteral("Record, no change"), QStringLiteral("Record, change"),
                                QStringLiteral("Record in the queue")}));
    QVERIFY(table->height() >= table->horizontalHeader()->height() + table->verticalHeader()->length());
    QCOMPARE(columns, (QStringList{QStringLiteral("Count"), QStringLiteral("Median"), QStringLiteral("99 %"),
                                   QStringLiteral("Worst")}));
}

void tst_LatencyPage::nothingIsShownWhereNothingWasMeasured()
{
    const QString none = QStringLiteral("\u2013");
    const QStringList expected{QStringLiteral("0"), none, none, none};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(row(i), expected);
    QCOMPARE(label("recordsLabel"), QStringLiteral("0 in all, at most 0 waiting"));
    QCOMPARE(label("ratesLabel"), QStringLiteral("0.0 wake-ups, 0.0 paints a second"));
}

void tst_LatencyPage::recordsAreShown()
{
    m_page->show();
    const K7Host::HostCall call = std::make_shared<Korvo::ECButtonColor>();
    for (int i = 0; i < 3; ++i) {
        m_meter->calling(call, K7Host::Half::Left, nullptr);
        m_now += 2 * Ms;
        m_meter->called(call, K7Host::Half::Left, nullptr, true);
    }
    QTRY_COMPARE(row(2), (QStringList{QStringLiteral("3"), QStringLiteral("2.00 ms"),
                                      QStringLiteral("2.00 ms"), QStringLiteral("2.00 ms")}));
    QCOMPARE(label("recordsLabel"), QStringLiteral("3 in all, at most 0 waiting"));
    QVERIFY(label("ratesLabel") != QStringLiteral("0.0 wake-ups, 0.0 paints a second"));
}

void tst_LatencyPage::aVisiblePageFollows()
{
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.data()));
    measure(2 * Ms);
    const QString time = QStringLiteral("2.00 ms");
    QTRY_COMPARE(row(0), (QStringList{QStringLiteral("1"), time, time, time}));
    QCOMPARE(row(1).constFirst(), QStringLiteral("0"));
}

void tst_LatencyPage::manySamplesAreShownAtOnce()
{
    m_page->show();
    int shown = 0;
    connect(m_page->findChild<QTableWidget *>(), &QTableWidget::itemChanged, this,
            [&shown](const QTableWidgetItem *item) { shown += item->row() == 0 && item->column() == 0; });
    for (int i = 0; i < 100; ++i)
        measure(Ms);
    QCOMPARE(shown, 0);
    QTRY_COMPARE(row(0).constFirst(), QStringLiteral("100"));
    QCOMPARE(shown, 1);
}

void tst_LatencyPage::aHiddenPageWaitsUntilItIsShown()
{
    measure(Ms);
    QVERIFY(!timer()->isActive());
    QCOMPARE(row(0).constFirst(), QStringLiteral("0"));
    m_page->show();
    QCOMPARE(row(0).constFirst(), QStringLiteral("1"));
}

void tst_LatencyPage::nothingRunsWhileNothingComes()
{
    m_page->show();
    QVERIFY(!timer()->isActive());
    measure(Ms);
    QVERIFY(timer()->isActive());
    QVERIFY(timer()->interval() >= 200);
    QTRY_COMPARE(row(0).constFirst(), QStringLiteral("1"));
    QVERIFY(!timer()->isActive());
}

void tst_LatencyPage::resetBeginsAnew()
{
    m_page->show();
    measure(Ms);
    QTest::mouseClick(m_page->findChild<QPushButton *>(), Qt::LeftButton);
    QCOMPARE(m_meter->touchToCode().count(), 0);
    QCOMPARE(row(0).constFirst(), QStringLiteral("0"));
    QVERIFY(!timer()->isActive());
    measure(3 * Ms);
    QTRY_COMPARE(row(0), (QStringList{QStringLiteral("1"), QStringLiteral("3.00 ms"),
                                      QStringLiteral("3.00 ms"), QStringLiteral("3.00 ms")}));
}

QTEST_MAIN(tst_LatencyPage)

#include "tst_latencypage.moc"
