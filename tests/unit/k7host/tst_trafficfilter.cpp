// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <trafficfilter.h>
#include <trafficmodel.h>

#include <QAbstractItemModelTester>
#include <QTest>

using namespace K7Host;

class tst_TrafficFilter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyWordMustBeThere_data();
    void everyWordMustBeThere();
    void kindsAreHiddenAndShown_data();
    void kindsAreHiddenAndShown();
    void wordsAndKindsCountTogether();
    void newLinesAreFilteredToo();

private:
    QStringList names() const;

    QScopedPointer<TrafficModel> m_model;
    QScopedPointer<TrafficFilter> m_filter;
    QScopedPointer<QAbstractItemModelTester> m_tester;
};

namespace {

ScenarioLine signal(const char *name, const QJsonArray &args)
{
    return {0.0, Direction::Out, SignalLine{QString::fromLatin1(name), args}};
}

ScenarioLine color(quint32 key)
{
    auto record = std::make_shared<Korvo::ECButtonColor>();
    record->ButtonKey = key;
    return {0.0, Direction::In, CallLine{record, {}, {}}};
}

} // namespace

void tst_TrafficFilter::init()
{
    m_model.reset(new TrafficModel({}));
    m_filter.reset(new TrafficFilter);
    m_filter->setSourceModel(m_model.data());
    m_tester.reset(new QAbstractItemModelTester(m_filter.data(),
                                                QAbstractItemModelTester::FailureReportingMode::QtTest));
    m_model->noted(color(58));
    m_model->noted(signal("ecButtonPressed", {0xff0000 + 58}));
    m_model->noted({0.0, Direction::In, AnswerLine{QStringLiteral("Yes")}});
    m_model->noted({0.0, Direction::Out, MessageLine{QStringLiteral("Remind"), {}, {}}});
    QTRY_COMPARE(m_filter->rowCount(), 4);
}

void tst_TrafficFilter::cleanup()
{
    m_tester.reset();
    m_filter.reset();
    m_model.reset();
}

QStringList tst_TrafficFilter::names() const
{
    QStringList names;
    for (int row = 0; row < m_filter->rowCount(); ++row)
        names << m_filter->index(row, TrafficModel::NameColumn).data().toString();
    return names;
}

void tst_TrafficFilter::everyWordMustBeThere_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expectedNames");

    const QString all = QStringLiteral("updateECButtonColor ecButtonPressed answer message");
    QTest::newRow("nothing") << QString() << all;
    QTest::newRow("blanks") << QStringLiteral("  ") << all;
    QTest::newRow("name") << QStringLiteral("ecButtonPressed") << QStringLiteral("ecButtonPressed");
    QTest::newRow("part in another case")
        << QStringLiteral("ECBUTTON") << QStringLiteral("updateECButtonColor ecButtonPressed");
    QTest::newRow("field") << QStringLiteral("58") << QStringLiteral("updateECButtonColor ecButtonPressed");
    QTest::newRow("field and name, any order")
        << QStringLiteral("58  color") << QStringLiteral("updateECButtonColor");
    QTest::newRow("one is missing") << QStringLiteral("58 answer") << QString();
    QTest::newRow("text of a message") << QStringLiteral("remind") << QStringLiteral("message");
}

void tst_TrafficFilter::everyWordMustBeThere()
{
    QFETCH(QString, text);
    QFETCH(QString, expectedNames);
    m_filter->setText(text);
    QCOMPARE(names().join(QLatin1Char(' ')), expectedNames);
    m_filter->setText(QString());
    QCOMPARE(m_filter->rowCount(), 4);
}

void tst_TrafficFilter::kindsAreHiddenAndShown_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");

    QTest::newRow("records") << int(RecordTraffic) << QStringLiteral("updateECButtonColor");
    QTest::newRow("signals") << int(SignalTraffic) << QStringLiteral("ecButtonPressed");
    QTest::newRow("input") << int(InputTraffic) << QStringLiteral("answer");
    QTest::newRow("messages") << int(MessageTraffic) << QStringLiteral("message");
}

void tst_TrafficFilter::kindsAreHiddenAndShown()
{
    QFETCH(int, kind);
    QFETCH(QString, name);
    QVERIFY(names().contains(name));
    m_filter->setKindShown(static_cast<TrafficKind>(kind), false);
    QCOMPARE(m_filter->rowCount(), 3);
    QVERIFY(!names().contains(name));
    m_filter->setKindShown(static_cast<TrafficKind>(kind), true);
    QCOMPARE(m_filter->rowCount(), 4);
}

void tst_TrafficFilter::wordsAndKindsCountTogether()
{
    m_filter->setText(QStringLiteral("58"));
    m_filter->setKindShown(SignalTraffic, false);
    QCOMPARE(names(), QStringList{QStringLiteral("updateECButtonColor")});
}

void tst_TrafficFilter::newLinesAreFilteredToo()
{
    m_filter->setText(QStringLiteral("59"));
    QCOMPARE(m_filter->rowCount(), 0);
    m_model->noted(color(58));
    m_model->noted(color(59));
    QTRY_COMPARE(m_model->rowCount(), 6);
    QCOMPARE(m_filter->rowCount(), 1);
}

QTEST_MAIN(tst_TrafficFilter)

#include "tst_trafficfilter.moc"
