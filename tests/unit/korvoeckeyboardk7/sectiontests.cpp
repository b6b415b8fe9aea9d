// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "sectiontests.h"

#include "fingers.h"

#include <korvo/keyboard/constants.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace Korvo;
using ECKeyboard::eECButtonImage;

namespace {

constexpr quint32 broadcast = 255;

QString column(const Fact &fact, const char *name)
{
    return fact.value(QLatin1String(name));
}

QString nameOf(const Fact &fact)
{
    return column(fact, "object");
}

quint32 idOf(const Fact &fact)
{
    return column(fact, "id").toUInt();
}

bool isAmong(const SectionRules::Names &names, const Fact &fact)
{
    return std::any_of(names.cbegin(), names.cend(),
                       [&fact](const char *name) { return nameOf(fact) == QLatin1String(name); });
}

QSet<quint32> idsOf(const QVector<Fact> &facts)
{
    QSet<quint32> ids;
    for (const Fact &fact : facts)
        ids << idOf(fact);
    return ids;
}

QVector<Fact> ofClass(const QVector<Fact> &facts, const char *className)
{
    QVector<Fact> some;
    std::copy_if(facts.cbegin(), facts.cend(), std::back_inserter(some),
                 [className](const Fact &fact) { return column(fact, "class") == QLatin1String(className); });
    return some;
}

/// Every id of the console and some around, and what could be taken for one of them by mistake.
QVector<quint32> manyIds()
{
    QVector<quint32> ids;
    for (quint32 id = 0; id < 600; ++id)
        ids << id;
    for (quint32 id = 0; id < 260; ++id)
        ids << id + 0xff0000 << id + 0x10000 << id + 0x80000000;
    ids << 0x7fffffff << 0xffffffff << quint32(-255);
    return ids;
}

QString sentLine(const char *what, quint32 code)
{
    return QString::fromLatin1(what) + QLatin1Char(' ') + QString::number(code, 16);
}

} // namespace

SectionTests::SectionTests(const SectionRules &rules)
    : m_rules(rules)
    , m_facts(readFacts(QString::fromLatin1(rules.facts)))
    , m_keys(ofClass(m_facts, "Korvo::EC::K7DropButton"))
    , m_labels(ofClass(m_facts, "Korvo::EC::TextTicker"))
{
}

void SectionTests::init()
{
    m_section = create();
    m_sent.clear();
    listen([this](const char *what, quint32 code) { m_sent << sentLine(what, code); });
    m_section->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_section.get()));
}

void SectionTests::cleanup()
{
    m_section.reset();
}

QAbstractButton *SectionTests::key(const QString &name) const
{
    return m_section->findChild<QAbstractButton *>(name);
}

QString SectionTests::press(const Fact &fact)
{
    return sentLine("press", idOf(fact) + 0xff0000);
}

QString SectionTests::release(const Fact &fact)
{
    return sentLine("release", idOf(fact) + 0xff0000);
}

QVector<Fact> SectionTests::sendingKeys() const
{
    QVector<Fact> sending;
    for (const Fact &fact : m_keys) {
        if (!isAmong(m_rules.silentKeys, fact))
            sending << fact;
    }
    return sending;
}

QVector<Fact> SectionTests::reachableLabels() const
{
    QVector<Fact> reachable;
    for (const Fact &fact : m_labels) {
        if (!isAmong(m_rules.unreachableLabels, fact))
            reachable << fact;
    }
    return reachable;
}

bool SectionTests::isColorless(const Fact &fact) const
{
    return isAmong(m_rules.colorlessKeys, fact);
}

QString SectionTests::formStyle(const QString &name) const
{
    for (const SectionRules::Style &style : m_rules.formStyles) {
        if (name == QLatin1String(style.widget))
            return QString::fromLatin1(style.styleSheet);
    }
    return QString();
}

/// Of all keys and of what is only shaped like one.
QStringList SectionTests::keyStyles() const
{
    QStringList styles;
    for (const Fact &fact : m_facts) {
        if (!m_labels.contains(fact))
            styles << nameOf(fact) + QLatin1String(": ") + widget(fact)->styleSheet();
    }
    return styles;
}

QStringList SectionTests::labelTexts() const
{
    QStringList texts;
    for (const Fact &fact : m_labels)
        texts << nameOf(fact) + QLatin1String(": ") + label(nameOf(fact))->text();
    return texts;
}

QStringList SectionTests::markersFound() const
{
    QList<QWidget *> widgets = m_section->findChildren<QWidget *>();
    widgets.prepend(m_section.get());
    QStringList found;
    for (const QWidget *one : qAsConst(widgets)) {
        const auto *title = qobject_cast<const QLabel *>(one);
        const bool isUnnamed = title && title->metaObject() == &QLabel::staticMetaObject;
        const QString name =
            isUnnamed ? QLatin1Char('"') + title->text() + QLatin1Char('"') : one->objectName();
        const QList<QByteArray> properties = one->dynamicPropertyNames();
        for (const QByteArray &property : properties) {
            const QVariant value = one->property(property.constData());
            if (value.type() != QVariant::Bool || property.startsWith("_q_"))
                continue;
            const QLatin1String suffix = value.toBool() ? QLatin1String() : QLatin1String("=false");
            found << QString::fromLatin1(property) + suffix + QLatin1String(" on ") + name;
        }
    }
    found.sort();
    return found;
}

QStringList SectionTests::markersExpected(const QVector<SectionRules::Marker> &markers) const
{
    QStringList expected;
    for (const SectionRules::Marker &marker : markers) {
        const QString prefix = QLatin1String(marker.name) + QStringLiteral(" on ");
        for (const char *name : marker.widgets) {
            if (qstrcmp(name, "group") != 0) {
                expected << prefix + QLatin1String(name);
                continue;
            }
            for (const Fact &fact : m_keys) {
                if (column(fact, "group") != QLatin1String("-"))
                    expected << prefix + nameOf(fact);
            }
        }
    }
    expected.sort();
    return expected;
}

void SectionTests::theTableIsComplete()
{
    QCOMPARE(m_keys.size(), m_rules.keys);
    QCOMPARE(m_labels.size(), m_rules.labels);
    for (const Fact &fact : qAsConst(m_facts)) {
        QVERIFY2(widget(fact), qPrintable(nameOf(fact)));
        QCOMPARE(QString::fromLatin1(widget(fact)->metaObject()->className()), column(fact, "class"));
    }
}

void SectionTests::keysAndLabelsStandInTheirPlaces()
{
    for (const Fact &fact : qAsConst(m_facts)) {
        const QRect here = widget(fact)->geometry();
        QVERIFY2(widget(fact)->isVisible() && widget(fact)->parentWidget()->rect().contains(here),
                 qPrintable(nameOf(fact)));
        if (column(fact, "width") != QLatin1String("-"))
            QCOMPARE(here.size(), QSize(column(fact, "width").toInt(), column(fact, "height").toInt()));

        for (const Fact &other : qAsConst(m_facts)) {
            if (other == fact || column(other, "holder") != column(fact, "holder"))
                continue;
            const QString pair = nameOf(fact) + QLatin1String(" and ") + nameOf(other);
            const QRect there = widget(other)->geometry();
            const int columns = column(other, "column").toInt() - column(fact, "column").toInt();
            const int rows = column(other, "row").toInt() - column(fact, "row").toInt();
            QVERIFY2(!here.intersects(there), qPrintable(pair));
            if (columns > 0)
                QVERIFY2(here.left() + 40 < there.left(), qPrintable(pair));
            if (columns == 0)
                QVERIFY2(qAbs(here.left() - there.left()) <= 4, qPrintable(pair));
            if (columns == 0 && qAbs(here.width() - there.width()) < 10)
                QVERIFY2(qAbs(here.center().x() - there.center().x()) <= 1, qPrintable(pair));
            if (columns == 0 && rows > 0)
                QVERIFY2(here.bottom() < there.top(), qPrintable(pair));
        }
    }
}

void SectionTests::theGroupHasTheKeysInOrder()
{
    const QList<QButtonGroup *> groups = m_section->findChildren<QButtonGroup *>();
    QCOMPARE(groups.size(), 1);
    QStringList expected;
    for (const Fact &fact : qAsConst(m_keys)) {
        if (column(fact, "group") == groups.constFirst()->objectName())
            expected << nameOf(fact);
    }
    QStringList members;
    const QList<QAbstractButton *> buttons = groups.constFirst()->buttons();
    for (QAbstractButton *button : buttons) {
        members << button->objectName();
        QVERIFY(groups.constFirst()->id(button) < -1); // given by the group, not by the form
    }
    QCOMPARE(members, expected);
}

void SectionTests::markersAreExactlyTheSections()
{
    QStringList expected = markersExpected(m_rules.markers);
    QCOMPARE(markersFound(), expected);

    expected << markersExpected(m_rules.normalMarkers);
    expected.sort();
    for (int i = 0; i < 2; ++i) {
        applyNormalStyle();
        QCOMPARE(markersFound(), expected);
    }

    // Colours and texts mark nothing.
    updateColor(colorRecord(broadcast, 255, 0, 0));
    for (const Fact &fact : qAsConst(m_facts)) {
        updateColor(colorRecord(idOf(fact), 0, 255, 0));
        updateText(textRecord(idOf(fact), "CAM 1"));
    }
    QCOMPARE(markersFound(), expected);
}

void SectionTests::nothingIsStyledBeforeItIsAsked()
{
    QList<QWidget *> widgets = m_section->findChildren<QWidget *>();
    widgets.prepend(m_section.get());
    int styled = 0;
    for (const QWidget *one : qAsConst(widgets)) {
        QCOMPARE(one->styleSheet(), formStyle(one->objectName()));
        styled += one->styleSheet().isEmpty() ? 0 : 1;
    }
    QCOMPARE(styled, m_rules.formStyles.size());
}

void SectionTests::labelsAreEmptyAtFirst()
{
    for (const Fact &fact : qAsConst(m_labels))
        QCOMPARE(label(nameOf(fact))->text(), QString());
}

void SectionTests::keysSendTheirCodeOnPressAndOnRelease_data()
{
    QTest::addColumn<Fact>("fact");
    const QVector<Fact> sending = sendingKeys();
    QVERIFY(!sending.isEmpty());
    for (const Fact &fact : sending)
        QTest::newRow(qPrintable(nameOf(fact))) << fact;
}

void SectionTests::keysSendTheirCodeOnPressAndOnRelease()
{
    QFETCH(Fact, fact);
    QTest::mousePress(widget(fact), Qt::LeftButton);
    QCOMPARE(m_sent, QStringList{press(fact)});
    QVERIFY(key(nameOf(fact))->isDown());
    QTest::mouseRelease(widget(fact), Qt::LeftButton);
    QCOMPARE(m_sent, (QStringList{press(fact), release(fact)}));

    Fingers fingers(m_section.get());
    fingers.press(0, widget(fact));
    QCOMPARE(m_sent.mid(2), QStringList{press(fact)});
    fingers.lift(0);
    QCOMPARE(m_sent.mid(2), (QStringList{press(fact), release(fact)}));

    QTest::mouseClick(widget(fact), Qt::RightButton);
    QCOMPARE(m_sent.size(), 4);
}

void SectionTests::silentKeysSendNothing()
{
    int silent = 0;
    for (const Fact &fact : qAsConst(m_facts)) {
        auto *button = key(nameOf(fact));
        if (!button || sendingKeys().contains(fact))
            continue;
        ++silent;
        const QSignalSpy clicked(button, &QAbstractButton::clicked);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        Fingers fingers(m_section.get());
        fingers.press(0, button);
        fingers.lift(0);
        QCOMPARE(m_sent, QStringList());
    }
    QCOMPARE(silent, m_rules.silentKeys.size() + ofClass(m_facts, "QToolButton").size());
}

void SectionTests::fingersHoldAllKeysAtOnce()
{
    QStringList presses;
    QStringList releases;
    Fingers fingers(m_section.get());
    for (int i = 0; i < m_keys.size(); ++i) {
        fingers.press(i, widget(m_keys.at(i)));
        if (sendingKeys().contains(m_keys.at(i))) {
            presses << press(m_keys.at(i));
            releases.prepend(release(m_keys.at(i)));
        }
    }
    QCOMPARE(m_sent, presses);
    for (const Fact &fact : qAsConst(m_keys))
        QVERIFY2(key(nameOf(fact))->isDown(), qPrintable(nameOf(fact)));

    for (int i = m_keys.size() - 1; i >= 0; --i)
        fingers.lift(i);
    QCOMPARE(m_sent, presses + releases);
}

void SectionTests::aPressOfNoKeySendsNothing()
{
    auto *group = m_section->findChild<QButtonGroup *>();
    QVERIFY(group);
    Q_EMIT group->buttonPressed(static_cast<QAbstractButton *>(nullptr));
    Q_EMIT group->buttonReleased(static_cast<QAbstractButton *>(nullptr));
    QCOMPARE(m_sent, QStringList());
}

void SectionTests::aKeyWithoutAnIdSendsTheBareOffset()
{
    const QStringList bare{QStringLiteral("press ff0000"), QStringLiteral("release ff0000")};
    for (const QVariant &id : {QVariant(), QVariant(QStringLiteral("KEY"))}) {
        const QVector<Fact> sending = sendingKeys();
        for (const Fact &fact : sending) {
            m_sent.clear();
            widget(fact)->setProperty(Constants::PROPERTY_KORVOECKEY, id);
            QTest::mouseClick(widget(fact), Qt::LeftButton);
            QCOMPARE(m_sent, bare);
        }
    }
}

/// Colours and presses of \a key go by \a id, and no more by \a formerId.
void SectionTests::followsIdOf(const Fact &key, quint32 id, quint32 formerId)
{
    QWidget *one = widget(key);
    if (!isColorless(key)) {
        QVERIFY(updateColor(colorRecord(id, 255, 0, 0)));
        QCOMPARE(one->styleSheet(), ordinaryLook(key, ECKeyboard::RedButton));
        updateColor(colorRecord(formerId, 255, 255, 0));
        QCOMPARE(one->styleSheet(), ordinaryLook(key, ECKeyboard::RedButton));
    }
    m_sent.clear();
    QTest::mouseClick(one, Qt::LeftButton);
    if (sendingKeys().contains(key))
        QCOMPARE(m_sent, (QStringList{sentLine("press", id + 0xff0000), sentLine("release", id + 0xff0000)}));
    else
        QCOMPARE(m_sent, QStringList());
}

/// The same for texts of a label.
void SectionTests::followsIdOfLabel(const Fact &label, quint32 id, quint32 formerId)
{
    const auto *one = this->label(nameOf(label));
    QVERIFY(updateText(textRecord(id, "NEW")));
    QCOMPARE(one->text(), QStringLiteral("NEW"));
    updateText(textRecord(formerId, "FORMER"));
    QCOMPARE(one->text(), QStringLiteral("NEW"));
}

void SectionTests::idsMayChangeAtAnyTime_data()
{
    QTest::addColumn<QVariant>("property");
    QTest::addColumn<quint32>("id");
    QTest::newRow("number") << QVariant(1000) << 1000u;
    QTest::newRow("text") << QVariant(QStringLiteral("1000")) << 1000u;
    QTest::newRow("more than 16 bits") << QVariant(70000) << 70000u;
    QTest::newRow("negative") << QVariant(QStringLiteral("-2")) << 0xfffffffeu;
}

void SectionTests::idsMayChangeAtAnyTime()
{
    QFETCH(QVariant, property);
    QFETCH(quint32, id);
    for (const Fact &fact : qAsConst(m_keys)) {
        const QVariant before = widget(fact)->property(Constants::PROPERTY_KORVOECKEY);
        widget(fact)->setProperty(Constants::PROPERTY_KORVOECKEY, property);
        followsIdOf(fact, id, idOf(fact));
        widget(fact)->setProperty(Constants::PROPERTY_KORVOECKEY, before);
        followsIdOf(fact, idOf(fact), id);
        if (QTest::currentTestFailed())
            return;
    }
    const QVector<Fact> reachable = reachableLabels();
    for (const Fact &fact : reachable) {
        const QVariant before = widget(fact)->property(Constants::PROPERTY_KORVOECKEY);
        widget(fact)->setProperty(Constants::PROPERTY_KORVOECKEY, property);
        followsIdOfLabel(fact, id, idOf(fact));
        widget(fact)->setProperty(Constants::PROPERTY_KORVOECKEY, before);
        followsIdOfLabel(fact, idOf(fact), id);
        if (QTest::currentTestFailed())
            return;
    }
}

void SectionTests::aChangeOfTheLanguageKeepsOrRestoresTheIds()
{
    constexpr quint32 other = 1000;
    for (const Fact &fact : qAsConst(m_facts)) {
        const bool isKey = m_keys.contains(fact);
        if (!isKey && !reachableLabels().contains(fact))
            continue;
        QWidget *one = widget(fact);
        const bool isText = one->property(Constants::PROPERTY_KORVOECKEY).type() == QVariant::String;
        one->setProperty(Constants::PROPERTY_KORVOECKEY, other);
        updateColor(colorRecord(other, 0, 255, 0));
        updateText(textRecord(other, "OTHER"));

        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_section.get(), &change);
        // Ids that are texts pass through the translation.
        const quint32 id = isText ? idOf(fact) : other;
        QCOMPARE(one->property(Constants::PROPERTY_KORVOECKEY).toUInt(), id);
        if (isKey)
            followsIdOf(fact, id, isText ? other : idOf(fact));
        else
            followsIdOfLabel(fact, id, isText ? other : idOf(fact));
        one->setProperty(Constants::PROPERTY_KORVOECKEY, idOf(fact));
        if (QTest::currentTestFailed())
            return;
    }
}

void SectionTests::heldKeysAreReleasedOnEveryWayOut_data()
{
    QTest::addColumn<QByteArray>("way");
    QTest::addColumn<bool>("isByMouse");
    for (const bool isByMouse : {true, false}) {
        for (const char *way : {"hide", "disable", "deactivate", "delete", "delete keys"}) {
            const QByteArray by = isByMouse ? " under the mouse" : " under fingers";
            QTest::newRow((way + by).constData()) << QByteArray(way) << isByMouse;
        }
    }
}

void SectionTests::heldKeysAreReleasedOnEveryWayOut()
{
    QFETCH(QByteArray, way);
    QFETCH(bool, isByMouse);
    m_section->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_section.get()));
    QStringList presses;
    QStringList releases;
    QList<QWidget *> held;
    Fingers fingers(m_section.get());
    const QVector<Fact> sending = sendingKeys();
    const int count = isByMouse ? 1 : sending.size();
    for (int i = 0; i < count; ++i) {
        held << widget(sending.at(i));
        if (isByMouse)
            QTest::mousePress(held.constLast(), Qt::LeftButton);
        else
            fingers.press(i, held.constLast());
        presses << press(sending.at(i));
        releases << release(sending.at(i));
    }
    QCOMPARE(m_sent, presses);

    QWidget other;
    if (way == "hide") {
        m_section->hide();
    } else if (way == "disable") {
        m_section->setEnabled(false);
    } else if (way == "deactivate") {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    } else if (way == "delete") {
        m_section.reset();
    } else {
        qDeleteAll(held);
    }
    QCOMPARE(m_sent.mid(0, presses.size()), presses);
    QStringList released = m_sent.mid(presses.size());
    released.sort();
    releases.sort();
    QCOMPARE(released, releases);

    if (m_section)
        fingers.liftAll();
    QCOMPARE(m_sent.size(), presses.size() + releases.size());
}

QString SectionTests::ordinaryLook(const Fact &fact, eECButtonImage otherwise) const
{
    const QString name = nameOf(fact);
    if (name != QLatin1String("pageUpToolButton") && name != QLatin1String("pageDownToolButton"))
        return css(otherwise);
    const bool isUp = name == QLatin1String("pageUpToolButton");
    switch (otherwise) {
    case ECKeyboard::RedButton:
        return css(isUp ? ECKeyboard::PageUpRedButton : ECKeyboard::PageDownRedButton);
    case ECKeyboard::YellowButton:
        return css(isUp ? ECKeyboard::PageUpYellowButton : ECKeyboard::PageDownYellowButton);
    default: // page keys know fewer colours
        return css(isUp ? ECKeyboard::PageUpWhiteButton : ECKeyboard::PageDownWhiteButton);
    }
}

void SectionTests::idleKeysAreWhiteAndTheIdlePageUpKeyIsBlack()
{
    for (const Fact &fact : qAsConst(m_keys))
        widget(fact)->setStyleSheet(QStringLiteral("color: red;"));
    applyNormalStyle();
    for (const Fact &fact : qAsConst(m_keys)) {
        const QString name = nameOf(fact);
        const eECButtonImage image = name == QLatin1String("pageUpToolButton") ? ECKeyboard::PageUpBlackButton
                                     : name == QLatin1String("pageDownToolButton")
                                         ? ECKeyboard::PageDownWhiteButton
                                         : ECKeyboard::WhiteButton;
        QVERIFY2(widget(fact)->styleSheet() == css(image), qPrintable(name));
    }
    QVERIFY(css(ECKeyboard::WhiteButton).contains(QLatin1String("ecbutton_white")));
    for (const Fact &fact : qAsConst(m_facts)) {
        if (!m_keys.contains(fact))
            QCOMPARE(widget(fact)->styleSheet(), formStyle(nameOf(fact)));
    }
    QCOMPARE(m_section->styleSheet(), QString());
}

void SectionTests::theNormalStyleLeavesLabelsAlone()
{
    for (const Fact &fact : qAsConst(m_labels))
        label(nameOf(fact))->setText(QStringLiteral("CAM 1"));
    const QStringList texts = labelTexts();
    applyNormalStyle();
    QCOMPARE(labelTexts(), texts);
    QCOMPARE(m_sent, QStringList());
}

void SectionTests::aColorPaintsOneKey_data()
{
    QTest::addColumn<Fact>("fact");
    int colored = 0;
    for (const Fact &fact : qAsConst(m_keys)) {
        if (isColorless(fact))
            continue;
        ++colored;
        QTest::newRow(qPrintable(nameOf(fact))) << fact;
    }
    QCOMPARE(colored, m_rules.keys - m_rules.colorlessKeys.size());
}

void SectionTests::aColorPaintsOneKey()
{
    QFETCH(Fact, fact);
    struct Case
    {
        int red;
        int green;
        int blue;
        eECButtonImage image;
    };
    applyNormalStyle();
    const QStringList texts = labelTexts();
    for (const Case &one :
         {Case{255, 0, 0, ECKeyboard::RedButton}, Case{255, 72, 0, ECKeyboard::OrangeButton},
          Case{255, 255, 0, ECKeyboard::YellowButton}, Case{255, 0, 255, ECKeyboard::PurpleButton},
          Case{0, 0, 0, ECKeyboard::WhiteButton}}) {
        const QString prefix = nameOf(fact) + QLatin1String(": ");
        QStringList expected = keyStyles();
        const auto entry = std::find_if(expected.begin(), expected.end(),
                                        [&prefix](const QString &style) { return style.startsWith(prefix); });
        *entry = prefix + ordinaryLook(fact, one.image);

        QVERIFY(updateColor(colorRecord(idOf(fact), quint8(one.red), quint8(one.green), quint8(one.blue))));
        QCOMPARE(keyStyles(), expected);
    }
    QCOMPARE(labelTexts(), texts);
    QCOMPARE(m_sent, QStringList());
}

void SectionTests::aBroadcastPaintsAllKeysAsOrdinaryOnes()
{
    applyNormalStyle();
    const QStringList before = keyStyles();
    QCOMPARE(updateColor(colorRecord(broadcast, 0, 255, 0)), m_rules.knowsBroadcast);
    if (!m_rules.knowsBroadcast) {
        QCOMPARE(keyStyles(), before);
        return;
    }

    int painted = 0;
    for (const Fact &fact : qAsConst(m_keys)) {
        const eECButtonImage image = isColorless(fact) ? ECKeyboard::WhiteButton : ECKeyboard::GreenButton;
        QVERIFY2(widget(fact)->styleSheet() == css(image), qPrintable(nameOf(fact)));
        painted += isColorless(fact) ? 0 : 1;
    }
    QCOMPARE(painted, m_rules.keys - m_rules.colorlessKeys.size());
}

void SectionTests::colorsOfOtherKeysAreRefused()
{
    QSet<quint32> known;
    for (const Fact &fact : qAsConst(m_keys)) {
        if (!isColorless(fact))
            known << idOf(fact);
    }
    if (m_rules.knowsBroadcast)
        known << broadcast;
    applyNormalStyle();
    const QStringList before = keyStyles();
    const LogKeeper log;
    const QVector<quint32> ids = manyIds();
    for (quint32 id : ids) {
        if (!known.contains(id))
            QVERIFY2(!updateColor(colorRecord(id, 255, 0, 0)), qPrintable(QString::number(id)));
    }
    QVERIFY(!updateColor(nullptr));
    QCOMPARE(keyStyles(), before);
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(m_sent, QStringList());
}

void SectionTests::colorsThatChangeNothingCostNothing()
{
    const auto paintAll = [this](quint8 green) {
        for (const Fact &fact : qAsConst(m_keys))
            QCOMPARE(updateColor(colorRecord(idOf(fact), 255, green, 0)), !isColorless(fact));
    };
    const auto isFree = [this](const std::function<void()> &work) {
        work();
        settle(m_section.get());
        const WorkOfAll onSection(m_section.get());
        for (int i = 0; i < 20; ++i)
            work();
        QCoreApplication::processEvents();
        return onSection.count() == 0;
    };
    QVERIFY(isFree([this] { applyNormalStyle(); }));
    QVERIFY(isFree([&paintAll] { paintAll(0); }));
    QVERIFY(isFree([this] { updateColor(colorRecord(broadcast, 0, 255, 0)); }));
    QVERIFY(isFree([this] { updateColor(nullptr); }));

    const WorkOfAll onSection(m_section.get());
    paintAll(255);
    QVERIFY(onSection.count() >= m_rules.keys - m_rules.colorlessKeys.size());
}

void SectionTests::aTextIsWrittenToOneLabel()
{
    const QVector<Fact> reachable = reachableLabels();
    QCOMPARE(reachable.size(), m_rules.labels - m_rules.unreachableLabels.size());
    QCOMPARE(idsOf(reachable).size(), reachable.size());
    applyNormalStyle();
    const QStringList styles = keyStyles();
    QStringList expected = labelTexts();
    for (const Fact &fact : reachable) {
        const QString prefix = nameOf(fact) + QLatin1String(": ");
        const int entry = expected.indexOf(prefix);
        QVERIFY2(entry >= 0, qPrintable(nameOf(fact)));

        expected[entry] = prefix + nameOf(fact);
        QVERIFY(updateText(textRecord(idOf(fact), nameOf(fact).toUtf8())));
        QCOMPARE(labelTexts(), expected);

        expected[entry] = prefix;
        QVERIFY(updateText(textRecord(idOf(fact), "")));
        QCOMPARE(labelTexts(), expected);
    }
    QCOMPARE(keyStyles(), styles);
    QCOMPARE(m_sent, QStringList());
}

void SectionTests::textsAreReadUpToTheFirstZeroByte_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expectedText");
    QTest::newRow("plain") << QByteArray("VTR A") << QStringLiteral("VTR A");
    QTest::newRow("blanks stay") << QByteArray("  VTR ") << QStringLiteral("  VTR ");
    QTest::newRow("a line break stays") << QByteArray("VTR\nA") << QStringLiteral("VTR\nA");
    QTest::newRow("rest is ignored") << QByteArray("AB\0CD", 5) << QStringLiteral("AB");
    QTest::newRow("first byte zero") << QByteArray("\0CD", 3) << QString();
    QTest::newRow("31 bytes") << QByteArray(31, 'x') << QString(31, QLatin1Char('x'));
    QTest::newRow("32 bytes without a zero") << QByteArray(32, 'x') << QString(32, QLatin1Char('x'));
    QTest::newRow("UTF-8") << QByteArray("K\xc3\xb6ln") << QStringLiteral("K\u00f6ln");
    QTest::newRow("not UTF-8") << QByteArray("A\xff"
                                             "B")
                               << QStringLiteral("A\ufffd"
                                                 "B");
    QTest::newRow("markup is text") << QByteArray("<b>1</b>") << QStringLiteral("<b>1</b>");
}

void SectionTests::textsAreReadUpToTheFirstZeroByte()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expectedText);
    const QVector<Fact> reachable = reachableLabels();
    for (const Fact &fact : reachable) {
        label(nameOf(fact))->setText(QStringLiteral("old"));
        QVERIFY(updateText(textRecord(idOf(fact), bytes)));
        QCOMPARE(label(nameOf(fact))->text(), expectedText);
    }
    if (reachable.isEmpty()) {
        const QStringList before = labelTexts();
        QCOMPARE(updateText(textRecord(0, bytes)), m_rules.takesEveryText);
        QCOMPARE(labelTexts(), before);
    }
}

void SectionTests::textsOfOtherLabelsAreRefused()
{
    const QSet<quint32> known = idsOf(reachableLabels());
    const QStringList before = labelTexts();
    applyNormalStyle();
    const QStringList styles = keyStyles();
    const LogKeeper log;
    const QVector<quint32> ids = manyIds();
    for (quint32 id : ids) {
        if (!known.contains(id))
            QVERIFY2(updateText(textRecord(id, "lost")) == m_rules.takesEveryText,
                     qPrintable(QString::number(id)));
    }
    QVERIFY(!updateText(nullptr));
    QCOMPARE(labelTexts(), before);
    QCOMPARE(keyStyles(), styles);
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(m_sent, QStringList());
}

void SectionTests::textsThatChangeNothingCostNothing()
{
    const auto writeAll = [this](const QByteArray &text) {
        for (const Fact &fact : qAsConst(m_labels))
            updateText(textRecord(idOf(fact), text));
    };
    writeAll("CAM 1");
    settle(m_section.get());
    const WorkOfAll onSection(m_section.get());
    for (int i = 0; i < 20; ++i)
        writeAll("CAM 1");
    updateText(nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(onSection.count(), 0);

    writeAll("CAM 2");
    if (!reachableLabels().isEmpty())
        QTRY_VERIFY(onSection.count() > 0);
}
