// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "halftests.h"

#include "fingers.h"

#include <QAbstractButton>
#include <QSet>
#include <QTest>

using namespace Korvo;

namespace {

QString press(const ConsolePart &part)
{
    return QStringLiteral("press %1").arg(part.code(), 0, 16);
}

QString release(const ConsolePart &part)
{
    return QStringLiteral("release %1").arg(part.code(), 0, 16);
}

/// Notes which section's keys get a new look, each time that it is another section's turn.
class TurnNotes : public QObject
{
public:
    explicit TurnNotes(const ConsoleParts &parts)
    {
        for (const ConsolePart &part : parts) {
            m_sections.insert(part.widget, part.section);
            part.widget->installEventFilter(this);
        }
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QString section = m_sections.value(watched);
        if (event->type() == QEvent::StyleChange && (turns.isEmpty() || turns.constLast() != section))
            turns << section;
        return false;
    }
    QStringList turns;

private:
    QHash<QObject *, QString> m_sections;
};

} // namespace

HalfTests::HalfTests(const QVector<PlacedSection> &sections, int keys, int labels)
    : m_sections(sections)
    , m_keys(keys)
    , m_labels(labels)
{
}

void HalfTests::init()
{
    m_keyboard = create();
    m_parts = partsOf(m_keyboard.get(), m_sections);
    m_sent.clear();
    connect(m_keyboard.get(), &IKorvoECKeyboard::ecButtonPressed, this,
            [this](const quint32 &code) { m_sent << QStringLiteral("press %1").arg(code, 0, 16); });
    connect(m_keyboard.get(), &IKorvoECKeyboard::ecButtonRelease, this,
            [this](const quint32 &code) { m_sent << QStringLiteral("release %1").arg(code, 0, 16); });
    QCOMPARE(partsThat(m_parts, [](const ConsolePart &part) { return part.isKey(); }).size(), m_keys);
    QCOMPARE(partsThat(m_parts, [](const ConsolePart &part) { return part.isLabel(); }).size(), m_labels);
}

void HalfTests::cleanup()
{
    m_keyboard.reset();
}

const ConsolePart &HalfTests::part(const QString &name) const
{
    const auto match = std::find_if(m_parts.cbegin(), m_parts.cend(),
                                    [&name](const ConsolePart &part) { return part.name() == name; });
    if (match == m_parts.cend())
        qFatal("there is no %s", qPrintable(name));
    return *match;
}

bool HalfTests::show()
{
    m_keyboard->show();
    m_keyboard->activateWindow();
    return QTest::qWaitForWindowActive(m_keyboard.get());
}

void HalfTests::sectionsAreOfTheirClasses()
{
    for (const PlacedSection &section : m_sections) {
        const auto *frame = m_keyboard->findChild<QFrame *>(QLatin1String(section.name));
        QVERIFY2(frame, section.name);
        QCOMPARE(QString::fromLatin1(frame->metaObject()->className()),
                 QStringLiteral("Korvo::ECKeyboard::K7::") + QLatin1String(section.className));
        QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
        QCOMPARE(frame->frameShadow(), QFrame::Raised);
    }
}

void HalfTests::keysAndLabelsFitTheirSections()
{
    QVERIFY(show());
    for (int round = 0; round < 2; ++round) {
        for (const ConsolePart &part : qAsConst(m_parts)) {
            const auto *section = m_keyboard->findChild<QWidget *>(part.section);
            const QByteArray name = part.name().toUtf8();
            QVERIFY2(part.widget->isVisible(), name.constData());
            QVERIFY2(section->rect().contains(part.placeIn(section)), name.constData());
            QVERIFY2(m_keyboard->rect().contains(part.placeIn(m_keyboard.get())), name.constData());
            QVERIFY2(part.widget->visibleRegion().boundingRect() == part.widget->rect(), name.constData());
            if (part.fact.value(QStringLiteral("width")) != QLatin1String("-"))
                QCOMPARE(part.widget->size(), QSize(part.fact.value(QStringLiteral("width")).toInt(),
                                                    part.fact.value(QStringLiteral("height")).toInt()));
            for (const ConsolePart &other : qAsConst(m_parts)) {
                const bool isApart =
                    other.widget == part.widget ||
                    !part.placeIn(m_keyboard.get()).intersects(other.placeIn(m_keyboard.get()));
                QVERIFY2(isApart, qPrintable(part.name() + QLatin1Char(' ') + other.name()));
            }
        }
        // The pictures of keys ask for no other room.
        m_keyboard->applyNoramlStyleSheet();
        QCoreApplication::processEvents();
    }
}

void HalfTests::everyKeyIsRelayedOnce_data()
{
    QTest::addColumn<QString>("name");
    const std::unique_ptr<IKorvoECKeyboard> keyboard = create();
    const ConsoleParts sending =
        partsThat(partsOf(keyboard.get(), m_sections), [](const ConsolePart &part) { return part.sends(); });
    QVERIFY(!sending.isEmpty());
    for (const ConsolePart &part : sending)
        QTest::newRow(qPrintable(part.name())) << part.name();
}

void HalfTests::everyKeyIsRelayedOnce()
{
    QFETCH(QString, name);
    const ConsolePart &key = part(name);
    QTest::mousePress(key.widget, Qt::LeftButton);
    QCOMPARE(m_sent, QStringList{press(key)});
    QTest::mouseRelease(key.widget, Qt::LeftButton);
    QCOMPARE(m_sent, (QStringList{press(key), release(key)}));
}

void HalfTests::silentKeysSendNothing()
{
    for (const ConsolePart &part : qAsConst(m_parts)) {
        if (part.sends() || part.isLabel())
            continue;
        QTest::mouseClick(part.widget, Qt::LeftButton);
        QCOMPARE(m_sent, QStringList());
    }
}

void HalfTests::fingersHoldKeysOfAllSectionsAtOnce()
{
    QVERIFY(show());
    // The keys of the sections by turns: the first of each, the second of each, and so on.
    ConsoleParts keys = partsThat(m_parts, [](const ConsolePart &part) { return part.sends(); });
    QHash<QString, int> turns;
    QMultiMap<int, int> byTurn;
    for (int i = 0; i < keys.size(); ++i)
        byTurn.insert(turns[keys.at(i).section]++, i);

    Fingers fingers(m_keyboard.get());
    QStringList expected;
    for (int i : byTurn) {
        fingers.press(i, keys.at(i).widget);
        expected << press(keys.at(i));
        QCOMPARE(m_sent, expected);
    }
    for (const ConsolePart &key : qAsConst(keys))
        QVERIFY2(qobject_cast<QAbstractButton *>(key.widget)->isDown(), qPrintable(key.name()));

    // Records meanwhile let go of nothing.
    m_keyboard->updateECButtonColor(colorRecord(255, 255, 0, 0));
    m_keyboard->applyNoramlStyleSheet();
    for (int i = 0; i < keys.size(); ++i) {
        fingers.lift(i);
        expected << release(keys.at(i));
        QCOMPARE(m_sent, expected);
    }
}

void HalfTests::aHandOnTheFrameTakesNoFinger()
{
    QVERIFY(show());
    const ConsolePart key =
        partsThat(m_parts, [](const ConsolePart &part) { return part.sends(); }).constFirst();
    const auto *section = m_keyboard->findChild<QWidget *>(key.section);
    Fingers fingers(m_keyboard.get());
    fingers.press(0, section->mapTo(m_keyboard.get(), QPoint(2, 2)));
    fingers.press(1, key.widget);
    QCOMPARE(m_sent, QStringList{press(key)});
    fingers.liftAll();
    QCOMPARE(m_sent, (QStringList{press(key), release(key)}));
}

void HalfTests::sectionsAreServedInOrder_data()
{
    QTest::addColumn<bool>("isBroadcast");
    QTest::newRow("normal style") << false;
    QTest::newRow("broadcast") << true;
}

void HalfTests::sectionsAreServedInOrder()
{
    QFETCH(bool, isBroadcast);
    const auto knows = [this, isBroadcast](const QString &section) {
        return std::any_of(m_parts.cbegin(), m_parts.cend(), [&](const ConsolePart &part) {
            return part.section == section && (isBroadcast ? part.takesBroadcast() : part.isKey());
        });
    };
    QStringList expected;
    for (const PlacedSection &section : m_sections) {
        if (knows(QLatin1String(section.name)))
            expected << QLatin1String(section.name);
    }
    QVERIFY(show());
    const TurnNotes notes(m_parts);
    if (isBroadcast)
        m_keyboard->updateECButtonColor(colorRecord(255, 255, 0, 0));
    else
        m_keyboard->applyNoramlStyleSheet();
    QCOMPARE(notes.turns, expected);
}

void HalfTests::theNormalStyleReachesEveryKey()
{
    m_keyboard->applyNoramlStyleSheet();
    for (const ConsolePart &part : qAsConst(m_parts)) {
        if (!part.isKey())
            continue;
        const ECKeyboard::eECButtonImage image = part.isPageUp()     ? ECKeyboard::PageUpBlackButton
                                                 : part.isPageDown() ? ECKeyboard::PageDownWhiteButton
                                                                     : ECKeyboard::WhiteButton;
        QVERIFY2(part.look() == css(image), qPrintable(part.name()));
    }
}

void HalfTests::aColorPaintsOneKeyOfTheHalf()
{
    m_keyboard->applyNoramlStyleSheet();
    for (const ConsolePart &part : qAsConst(m_parts)) {
        if (!part.takesColor())
            continue;
        const QStringList before = looksOf(m_parts);
        QVERIFY(m_keyboard->updateECButtonColor(colorRecord(part.id(), 0, 0, 255)));
        QCOMPARE(changes(before, looksOf(m_parts)), QStringList{part.name()});
        QVERIFY(part.look().contains(QLatin1String("_blue")));
    }
}

void HalfTests::aBroadcastPaintsAllKeysAsOrdinaryOnes()
{
    m_keyboard->applyNoramlStyleSheet();
    const QStringList before = looksOf(m_parts);
    QStringList expected;
    for (const ConsolePart &part : qAsConst(m_parts)) {
        if (part.takesBroadcast())
            expected << part.name();
    }
    QVERIFY(m_keyboard->updateECButtonColor(colorRecord(255, 0, 255, 0)));
    QCOMPARE(changes(before, looksOf(m_parts)), expected);
    for (const QString &name : qAsConst(expected))
        QCOMPARE(part(name).look(), css(ECKeyboard::GreenButton));
}

void HalfTests::aTextIsWrittenToOneLabelOfTheHalf()
{
    int written = 0;
    for (const ConsolePart &part : qAsConst(m_parts)) {
        if (!part.takesText())
            continue;
        ++written;
        const QStringList before = looksOf(m_parts);
        QVERIFY(m_keyboard->updateECOledText(textRecord(part.id(), "CAM 1")));
        QCOMPARE(changes(before, looksOf(m_parts)), QStringList{part.name()});
        QCOMPARE(part.look(), QStringLiteral("CAM 1"));
    }
    QVERIFY(written > 0);
}

void HalfTests::recordsForNoPartOfTheHalfChangeNothing()
{
    QSet<quint32> keys{255};
    QSet<quint32> labels;
    for (const ConsolePart &part : qAsConst(m_parts)) {
        if (part.takesColor())
            keys << part.id();
        if (part.takesText())
            labels << part.id();
    }
    m_keyboard->applyNoramlStyleSheet();
    const QStringList before = looksOf(m_parts);
    for (quint32 id = 0; id < 600; ++id) {
        for (quint32 foreign : {id, id + 0xff0000, 0xffffffff - id}) {
            if (!keys.contains(foreign))
                QVERIFY(m_keyboard->updateECButtonColor(colorRecord(foreign, 255, 0, 0)));
            if (!labels.contains(foreign))
                QVERIFY(m_keyboard->updateECOledText(textRecord(foreign, "lost")));
        }
    }
    QVERIFY(m_keyboard->updateECButtonColor(nullptr));
    QVERIFY(m_keyboard->updateECOledText(nullptr));
    QCOMPARE(changes(before, looksOf(m_parts)), QStringList());
    QCOMPARE(m_sent, QStringList());
}

void HalfTests::recordsThatChangeNothingCostNothing()
{
    QVERIFY(show());
    const auto handIn = [this] {
        for (const ConsolePart &part : qAsConst(m_parts)) {
            m_keyboard->updateECButtonColor(colorRecord(part.id(), 255, 0, 0));
            m_keyboard->updateECOledText(textRecord(part.id(), "1"));
        }
    };
    handIn();
    settle(m_keyboard.get());
    const WorkOfAll work(m_keyboard.get());
    handIn();
    QCoreApplication::processEvents();
    QCOMPARE(work.count(), 0);
}

void HalfTests::heldKeysAreReleasedOnEveryWayOut_data()
{
    QTest::addColumn<QByteArray>("way");
    QTest::newRow("half hidden") << QByteArray("hide");
    QTest::newRow("half disabled") << QByteArray("disable");
    QTest::newRow("half deleted") << QByteArray("delete");
    QTest::newRow("another window activated") << QByteArray("deactivate");
    QTest::newRow("sections deleted") << QByteArray("delete sections");
}

void HalfTests::heldKeysAreReleasedOnEveryWayOut()
{
    QFETCH(QByteArray, way);
    QVERIFY(show());
    QStringList presses;
    QStringList releases;
    Fingers fingers(m_keyboard.get());
    const ConsoleParts keys = partsThat(m_parts, [](const ConsolePart &part) { return part.sends(); });
    for (int i = 0; i < keys.size(); ++i) {
        fingers.press(i, keys.at(i).widget);
        presses << press(keys.at(i));
        releases << release(keys.at(i));
    }
    QCOMPARE(m_sent, presses);

    QWidget other;
    if (way == "hide") {
        m_keyboard->hide();
    } else if (way == "disable") {
        m_keyboard->setEnabled(false);
    } else if (way == "delete") {
        m_keyboard.reset();
    } else if (way == "deactivate") {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    } else {
        for (const PlacedSection &section : m_sections)
            delete m_keyboard->findChild<QWidget *>(QLatin1String(section.name));
    }
    QStringList released = m_sent.mid(presses.size());
    released.sort();
    releases.sort();
    QCOMPARE(released, releases);
}

void HalfTests::anotherLanguageRelabelsTheWords()
{
    // The texts of keys and of the sections' titles; OLED labels have none.
    const auto words = [this] {
        QHash<const QWidget *, QString> all;
        for (const PlacedSection &section : m_sections) {
            const auto *frame = m_keyboard->findChild<QWidget *>(QLatin1String(section.name));
            const QList<QAbstractButton *> keys = frame->findChildren<QAbstractButton *>();
            for (const QAbstractButton *key : keys)
                all.insert(key, key->text());
            const QList<QLabel *> labels = frame->findChildren<QLabel *>();
            for (const QLabel *label : labels)
                all.insert(label, label->text());
        }
        return all;
    };
    const auto before = words();
    auto expected = before;
    QSet<QString> relabelled; // sections
    for (auto word = expected.begin(); word != expected.end(); ++word) {
        if (!CrossLanguage::isWord(*word))
            continue;
        word->prepend(QLatin1Char('x'));
        for (const PlacedSection &section : m_sections) {
            const QString name = QString::fromLatin1(section.name);
            if (m_keyboard->findChild<QWidget *>(name)->isAncestorOf(word.key()))
                relabelled << name;
        }
    }
    QCOMPARE(relabelled.size(), m_sections.size());
    {
        const CrossSpeaking language;
        QCOMPARE(words(), expected);
        // One made meanwhile speaks it from the start.
        const std::unique_ptr<IKorvoECKeyboard> another = create();
        const ConsoleParts others = partsOf(another.get(), m_sections);
        for (int i = 0; i < m_parts.size(); ++i) {
            const auto *key = qobject_cast<QAbstractButton *>(others.at(i).widget);
            if (key)
                QCOMPARE(key->text(), expected.value(m_parts.at(i).widget));
        }
    }
    QCOMPARE(words(), before);
}

void HalfTests::anotherLanguageKeepsIdsAndRecords()
{
    m_keyboard->applyNoramlStyleSheet();
    for (const ConsolePart &part : qAsConst(m_parts)) {
        if (part.takesColor())
            m_keyboard->updateECButtonColor(colorRecord(part.id(), 255, 0, 0));
        if (part.takesText())
            m_keyboard->updateECOledText(textRecord(part.id(), "CAM 1"));
    }
    const auto properties = [this] {
        QStringList all;
        for (const ConsolePart &part : qAsConst(m_parts)) {
            for (const char *name : {"KorvoECKey", "key", "entry"})
                all << part.name() + QLatin1Char(' ') + part.widget->property(name).toString();
        }
        return all;
    };
    const QStringList looks = looksOf(m_parts);
    const QStringList before = properties();
    {
        const CrossSpeaking language;
        QCOMPARE(properties(), before);
        QCOMPARE(looksOf(m_parts), looks);
        QStringList expected;
        for (const ConsolePart &part : qAsConst(m_parts)) {
            if (!part.sends())
                continue;
            expected << press(part) << release(part);
            QTest::mouseClick(part.widget, Qt::LeftButton);
        }
        QVERIFY(!expected.isEmpty());
        QCOMPARE(m_sent, expected);
    }
    QCOMPARE(properties(), before);
    QCOMPARE(looksOf(m_parts), looks);
}
