// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "idindex.h"

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>
#include <korvo/keyboard/constants.h>

#include <QCoreApplication>
#include <QTest>
#include <QVariant>

#include <memory>
#include <new>

using namespace Korvo;
using namespace Korvo::ECKeyboard::K7::Internal;
using Constants::PROPERTY_KORVOECKEY;

namespace {

/// Counts how often its id is asked for: to the meta-object its property is like any other.
class CountingKey : public EC::K7DropButton
{
    Q_OBJECT
    Q_PROPERTY(QString KorvoECKey READ id) // clazy:exclude=qproperty-without-notify

public:
    explicit CountingKey(const QString &id)
        : EC::K7DropButton(nullptr)
        , m_id(id)
    {
    }
    QString id() const
    {
        ++asked;
        return m_id;
    }
    void change(const QString &id)
    {
        m_id = id;
        QDynamicPropertyChangeEvent event(PROPERTY_KORVOECKEY);
        QCoreApplication::sendEvent(this, &event);
    }
    mutable int asked = 0;

private:
    QString m_id;
};

/// Looks for an id whenever the key that it watches gets an event of its own kind.
class Onlooker : public QObject
{
public:
    explicit Onlooker(KeyIndex *keys)
        : m_keys(keys)
    {
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::User) {
            ++seen;
            m_keys->find(7);
        }
        return false;
    }
    int seen = 0;

private:
    KeyIndex *const m_keys;
};

void setId(QObject *widget, const QVariant &id)
{
    widget->setProperty(PROPERTY_KORVOECKEY, id);
}

} // namespace

class tst_IdIndex : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsFoundAmongNone();
    void theFirstOfThoseWithOneIdIsFound();
    void nullEntriesArePassedOver();
    void anIdIsThePropertyWhateverItBecomes_data();
    void anIdIsThePropertyWhateverItBecomes();
    void theFirstIsAnotherOneAfterAChange();
    void keysAndLabelsDoNotMix();
    void idsOfOthersAreTheirProperties();
    void idsAreReadOnceAndOnceAgainAfterAChange();
    void othersAreNotAskedForTheIdOfOne();
    void lookingForAnIdAmidAnEventShowsItToNobodyTwice();
    void aWidgetThatIsGoneIsForgotten();
    void whatTakesThePlaceOfAWidgetIsNotTakenForIt();
    void widgetsMayOutliveTheIndex();
};

void tst_IdIndex::nothingIsFoundAmongNone()
{
    KeyIndex keys;
    QVERIFY(!keys.find(0));
    keys.setWidgets({});
    QVERIFY(!keys.find(0));
}

void tst_IdIndex::theFirstOfThoseWithOneIdIsFound()
{
    EC::TextTicker zero;
    EC::TextTicker unnumbered;
    EC::TextTicker seven;
    EC::TextTicker alsoSeven;
    setId(&zero, QStringLiteral("0"));
    setId(&seven, 7);
    setId(&alsoSeven, QStringLiteral("7"));

    LabelIndex labels;
    labels.setWidgets({&zero, &unnumbered, &seven, &alsoSeven, &seven});
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(labels.find(0), &zero);
        QCOMPARE(labels.find(7), &seven);
        QVERIFY(!labels.find(8));
    }
}

void tst_IdIndex::nullEntriesArePassedOver()
{
    EC::K7DropButton key;
    KeyIndex keys;
    keys.setWidgets({nullptr, &key, nullptr});
    QCOMPARE(keys.find(0), &key);
    QCOMPARE(keys.idOf(&key), 0u);
    setId(&key, 7);
    QVERIFY(!keys.find(0));
    QCOMPARE(keys.find(7), &key);
}

void tst_IdIndex::anIdIsThePropertyWhateverItBecomes_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("property");
    QTest::addColumn<quint32>("expectedId");

    const QVector<QVariant> befores{5, QStringLiteral("5")};
    for (const QVariant &before : befores) {
        const auto row = [&before](const char *name, const QVariant &property, quint32 id) {
            QTest::newRow(
                qPrintable(QLatin1String(before.typeName()) + QLatin1String(" to ") + QLatin1String(name)))
                << before << property << id;
        };
        row("number", 36, 36);
        row("text", QStringLiteral("36"), 36);
        row("zero", 0, 0);
        row("nothing", QVariant(), 0);
        row("not a number", QStringLiteral("INPUT_01"), 0);
        row("empty text", QString(), 0);
        row("text with blanks", QStringLiteral(" 36 "), 36);
        row("more than 16 bits", 70000, 70000);
        row("more than 16 bits, as text", QStringLiteral("70000"), 70000);
        row("negative", -1, 0xffffffff);
        row("negative, as text", QStringLiteral("-16"), 0xfffffff0);
        row("the least", QStringLiteral("-2147483648"), 0x80000000);
        row("bytes", QByteArray("36"), 36);
    }
}

void tst_IdIndex::anIdIsThePropertyWhateverItBecomes()
{
    QFETCH(QVariant, before);
    QFETCH(QVariant, property);
    QFETCH(quint32, expectedId);

    EC::K7DropButton key;
    setId(&key, before);
    KeyIndex keys;
    keys.setWidgets({&key});
    QCOMPARE(keys.find(5), &key);

    for (int i = 0; i < 2; ++i) {
        setId(&key, property);
        QCOMPARE(keys.idOf(&key), expectedId);
        QVERIFY(!keys.find(5));
        QCOMPARE(keys.find(expectedId), &key);
        QCOMPARE(keys.idOf(&key), expectedId);

        setId(&key, before);
        QCOMPARE(keys.idOf(&key), 5u);
        QVERIFY(!keys.find(expectedId));
        QCOMPARE(keys.find(5), &key);
    }
}

void tst_IdIndex::theFirstIsAnotherOneAfterAChange()
{
    EC::K7DropButton first;
    EC::K7DropButton second;
    EC::K7DropButton third;
    setId(&first, 7);
    setId(&second, QStringLiteral("7"));
    setId(&third, 9);
    KeyIndex keys;
    keys.setWidgets({&first, &second, &third});
    QCOMPARE(keys.find(7), &first);
    QCOMPARE(keys.find(9), &third);

    setId(&first, QStringLiteral("9"));
    QCOMPARE(keys.find(7), &second);
    QCOMPARE(keys.find(9), &first);

    setId(&third, 7);
    QCOMPARE(keys.find(7), &second);
    setId(&first, QVariant());
    QVERIFY(!keys.find(9));
    setId(&first, 7);
    QCOMPARE(keys.find(7), &first);
}

void tst_IdIndex::keysAndLabelsDoNotMix()
{
    EC::K7DropButton key;
    EC::TextTicker label;
    setId(&key, 51);
    setId(&label, 51);
    KeyIndex keys;
    keys.setWidgets({&key});
    LabelIndex labels;
    labels.setWidgets({&label});
    QCOMPARE(keys.find(51), &key);
    QCOMPARE(labels.find(51), &label);

    setId(&label, 52);
    QCOMPARE(keys.find(51), &key);
    QVERIFY(!keys.find(52));
    QVERIFY(!labels.find(51));
    QCOMPARE(labels.find(52), &label);
}

void tst_IdIndex::idsOfOthersAreTheirProperties()
{
    EC::K7DropButton key;
    QToolButton other;
    setId(&other, QStringLiteral("7"));
    KeyIndex keys;
    keys.setWidgets({&key});
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(keys.idOf(&other), 7u);
        QVERIFY(!keys.find(7));
    }
    setId(&other, 8);
    QCOMPARE(keys.idOf(&other), 8u);
}

void tst_IdIndex::idsAreReadOnceAndOnceAgainAfterAChange()
{
    CountingKey first(QStringLiteral("7"));
    CountingKey second(QStringLiteral("8"));
    KeyIndex keys;
    keys.setWidgets({&first, &second, &first});
    const auto lookForAll = [&] {
        for (quint32 id = 0; id < 20; ++id)
            keys.find(id);
        keys.idOf(&first);
        keys.idOf(&second);
    };
    QCOMPARE(first.asked + second.asked, 0);
    lookForAll();
    const int once = first.asked + second.asked;
    QVERIFY(once >= 2 && once <= 3);
    lookForAll();
    QCOMPARE(first.asked + second.asked, once);

    first.setProperty("isScreenToolButton", true);
    first.setText(QStringLiteral("VTR A"));
    lookForAll();
    QCOMPARE(first.asked + second.asked, once);

    // As a change of the language does it: all one after the other.
    first.change(QStringLiteral("9"));
    second.change(QStringLiteral("10"));
    lookForAll();
    lookForAll();
    QCOMPARE(first.asked + second.asked, 2 * once);
    QCOMPARE(keys.find(9), &first);
    QCOMPARE(keys.find(10), &second);
}

void tst_IdIndex::othersAreNotAskedForTheIdOfOne()
{
    CountingKey pressed(QStringLiteral("7"));
    CountingKey other(QStringLiteral("8"));
    KeyIndex keys;
    keys.setWidgets({&other, &pressed});
    QCOMPARE(keys.idOf(&pressed), 7u);
    QCOMPARE(other.asked, 0);

    keys.find(7);
    other.change(QStringLiteral("9"));
    other.asked = 0;
    QCOMPARE(keys.idOf(&pressed), 7u);
    QCOMPARE(other.asked, 0);
}

void tst_IdIndex::lookingForAnIdAmidAnEventShowsItToNobodyTwice()
{
    EC::K7DropButton key;
    KeyIndex keys;
    keys.setWidgets({&key});
    Onlooker onlooker(&keys);
    key.installEventFilter(&onlooker);

    QEvent first(QEvent::User);
    QCoreApplication::sendEvent(&key, &first);
    QCOMPARE(onlooker.seen, 1);

    setId(&key, 7);
    QEvent second(QEvent::User);
    QCoreApplication::sendEvent(&key, &second);
    QCOMPARE(onlooker.seen, 2);
}

void tst_IdIndex::aWidgetThatIsGoneIsForgotten()
{
    auto first = std::make_unique<EC::K7DropButton>();
    EC::K7DropButton second;
    setId(first.get(), 7);
    setId(&second, 7);
    KeyIndex keys;
    keys.setWidgets({first.get(), &second, first.get()});
    QCOMPARE(keys.find(7), first.get());

    first.reset();
    QCOMPARE(keys.find(7), &second);
    setId(&second, 8);
    QVERIFY(!keys.find(7));
}

void tst_IdIndex::whatTakesThePlaceOfAWidgetIsNotTakenForIt()
{
    alignas(EC::K7DropButton) unsigned char place[sizeof(EC::K7DropButton)];
    auto *key = new (place) EC::K7DropButton;
    setId(key, 7);
    KeyIndex keys;
    keys.setWidgets({key});
    QCOMPARE(keys.find(7), key);
    key->~K7DropButton();

    key = new (place) EC::K7DropButton;
    setId(key, 9);
    QCOMPARE(keys.idOf(key), 9u);
    QVERIFY(!keys.find(7));
    QCOMPARE(keys.idOf(key), 9u);
    key->~K7DropButton();
}

void tst_IdIndex::widgetsMayOutliveTheIndex()
{
    EC::K7DropButton key;
    {
        KeyIndex keys;
        keys.setWidgets({&key});
        QCOMPARE(keys.find(0), &key);
    }
    setId(&key, 7);
    QCOMPARE(key.property(PROPERTY_KORVOECKEY), QVariant(7));
}

QTEST_MAIN(tst_IdIndex)

#include "tst_idindex.moc"
