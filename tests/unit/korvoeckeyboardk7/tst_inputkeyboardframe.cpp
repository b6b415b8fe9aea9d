// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputkeyboardframe.h"

#include "support.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QTranslator>

using namespace Korvo;
using Korvo::ECKeyboard::K7::InputKeyboardFrame;

static const QLatin1String Absent("-");
static const int ExpectedKeys = 18; // sixteen inputs and two page keys
static const int ExpectedLabels = 17;

class tst_InputKeyboardFrame : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theFormHoldsTheTable_data();
    void theFormHoldsTheTable();
    void idsFamiliesAndTitlePassThroughTheTranslation();
    void theGroupHasTheKeysInColumnOrder();
    void titlesAndHoldersAreMarked();
    void widthsAndHeightsAreTheSections();
    void nothingIsStyledBeforeItIsAsked();
    void keysSendTheirCodeOnPressAndOnRelease_data();
    void keysSendTheirCodeOnPressAndOnRelease();
    void theExtensionKeyIsSilent();
    void idleKeysAreWhiteAndTheIdlePageUpKeyIsBlack();
    void theNormalStyleMarksKeysAndLeavesLabelsAlone();
    void aColorPaintsOneKey_data();
    void aColorPaintsOneKey();
    void aBroadcastPaintsAllKeysAsOrdinaryOnes();
    void foreignColorsAreRefused_data();
    void foreignColorsAreRefused();
    void aColorThatChangesNothingCostsNothing();
    void aTextIsWrittenToOneLabel_data();
    void aTextIsWrittenToOneLabel();
    void textsAreReadUpToTheFirstZeroByte_data();
    void textsAreReadUpToTheFirstZeroByte();
    void foreignTextsAreRefused_data();
    void foreignTextsAreRefused();
    void aTextThatChangesNothingCostsNothing();
    void heldKeysAreReleasedOnEveryWayOut_data();
    void heldKeysAreReleasedOnEveryWayOut();

private:
    QVector<Fact> keyFacts() const;
    QVector<Fact> labelFacts() const;
    QWidget *widget(const Fact &fact) const;
    QStringList keyStyles() const;
    QStringList labelTexts() const;
    QString css(ECKeyboard::eECButtonImage image) const
    {
        return m_live.plugin.ecButtonBorderImageCSS(image);
    }

    LivePlugin m_live;
    const QVector<Fact> m_facts = readFacts(QStringLiteral("inputkeyboardframe"));
    std::unique_ptr<InputKeyboardFrame> m_section;
};

void tst_InputKeyboardFrame::init()
{
    m_section = std::make_unique<InputKeyboardFrame>(nullptr);
    m_section->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_section.get()));
    QCOMPARE(keyFacts().size(), ExpectedKeys);
    QCOMPARE(labelFacts().size(), ExpectedLabels);
}

void tst_InputKeyboardFrame::cleanup()
{
    m_section.reset();
}

QVector<Fact> tst_InputKeyboardFrame::keyFacts() const
{
    QVector<Fact> keys;
    for (const Fact &fact : m_facts) {
        if (fact.value(QStringLiteral("class")) == QLatin1String("Korvo::EC::K7DropButton"))
            keys << fact;
    }
    return keys;
}

QVector<Fact> tst_InputKeyboardFrame::labelFacts() const
{
    QVector<Fact> labels;
    for (const Fact &fact : m_facts) {
        if (fact.value(QStringLiteral("class")) == QLatin1String("Korvo::EC::TextTicker"))
            labels << fact;
    }
    return labels;
}

QWidget *tst_InputKeyboardFrame::widget(const Fact &fact) const
{
    return m_section->findChild<QWidget *>(fact.value(QStringLiteral("object")));
}

QStringList tst_InputKeyboardFrame::keyStyles() const
{
    QStringList styles;
    const QVector<Fact> facts = keyFacts();
    for (const Fact &fact : facts)
        styles << widget(fact)->styleSheet();
    return styles;
}

QStringList tst_InputKeyboardFrame::labelTexts() const
{
    QStringList texts;
    const QVector<Fact> facts = labelFacts();
    for (const Fact &fact : facts)
        texts << qobject_cast<QLabel *>(widget(fact))->text();
    return texts;
}

void tst_InputKeyboardFrame::theFormHoldsTheTable_data()
{
    QTest::addColumn<Fact>("fact");
    QCOMPARE(m_facts.size(), ExpectedKeys + 1 + ExpectedLabels);
    for (const Fact &fact : m_facts)
        QTest::newRow(qPrintable(fact.value(QStringLiteral("object")))) << fact;
}

void tst_InputKeyboardFrame::theFormHoldsTheTable()
{
    QFETCH(Fact, fact);
    const auto text = [&fact](const char *column) { return fact.value(QString::fromLatin1(column)); };
    const auto verifyProperty = [&](const char *name, const char *column) {
        const QVariant value = widget(fact)->property(name);
        return text(column) == Absent ? !value.isValid()
                                      : value.isValid() && value.toString() == text(column);
    };

    QWidget *subject = widget(fact);
    QVERIFY(subject);
    QCOMPARE(QString::fromLatin1(subject->metaObject()->className()), text("class"));
    QCOMPARE(subject->property("text").toString(), text("text"));
    QVERIFY(verifyProperty("key", "key"));
    QVERIFY(verifyProperty("entry", "entry"));
    QVERIFY(verifyProperty("KorvoECKey", "id"));
    if (text("idKind") == QLatin1String("text"))
        QCOMPARE(subject->property("KorvoECKey").type(), QVariant::String);

    const QSize size(text("width").toInt(), text("height").toInt());
    QCOMPARE(subject->minimumSize(), size);
    QCOMPARE(subject->maximumSize(), size);
    QCOMPARE(subject->size(), size);

    const auto *button = qobject_cast<QAbstractButton *>(subject);
    const QString group = button && button->group() ? button->group()->objectName() : QString(Absent);
    QCOMPARE(group, text("group"));

    // Places: in its column, centred, with the label above the key.
    for (const Fact &other : m_facts) {
        const QPoint here = subject->mapTo(m_section.get(), subject->rect().center());
        const QPoint there = widget(other)->mapTo(m_section.get(), widget(other)->rect().center());
        const int column = text("column").toInt();
        const int otherColumn = other.value(QStringLiteral("column")).toInt();
        if (column < otherColumn)
            QVERIFY(here.x() + 60 < there.x());
        if (column == otherColumn)
            QVERIFY(qAbs(here.x() - there.x()) <= 1);
        if (column == otherColumn && text("row").toInt() < other.value(QStringLiteral("row")).toInt())
            QVERIFY(here.y() + 40 < there.y());
    }
}

void tst_InputKeyboardFrame::idsFamiliesAndTitlePassThroughTheTranslation()
{
    struct Recorder : QTranslator
    {
        QString translate(const char *context, const char *text, const char *, int) const override
        {
            if (qstrcmp(context, "InputKeyboardFrame") == 0)
                texts << QString::fromUtf8(text);
            return QString();
        }
        bool isEmpty() const override { return false; }
        mutable QStringList texts;
    } recorder;
    QCoreApplication::installTranslator(&recorder);
    const InputKeyboardFrame section(nullptr);
    QCoreApplication::removeTranslator(&recorder);

    QStringList expected{QStringLiteral("INPUT")};
    for (const Fact &fact : m_facts) {
        for (const QString &column : {QStringLiteral("id"), QStringLiteral("entry")}) {
            if (fact.value(column) != Absent)
                expected << fact.value(column);
        }
    }
    expected.sort();
    recorder.texts.sort();
    QCOMPARE(recorder.texts, expected);
}

void tst_InputKeyboardFrame::theGroupHasTheKeysInColumnOrder()
{
    const auto *group = m_section->findChild<QButtonGroup *>(QStringLiteral("inputButtonGroup"));
    QVERIFY(group);
    const QList<QAbstractButton *> buttons = group->buttons();
    QCOMPARE(buttons.size(), 16);
    for (int i = 0; i < 16; ++i) {
        QCOMPARE(buttons.at(i), widget(keyFacts().at(i)));
        QVERIFY(group->id(buttons.at(i)) < -1); // given by the group, not by the form
    }
}

void tst_InputKeyboardFrame::titlesAndHoldersAreMarked()
{
    const auto marked = [this](const char *marker) {
        QStringList names;
        if (m_section->property(marker) == true)
            names << m_section->objectName();
        const QList<QWidget *> widgets = m_section->findChildren<QWidget *>();
        for (const QWidget *child : widgets) {
            if (child->property(marker) == true)
                names << child->objectName();
        }
        return names;
    };
    QCOMPARE(marked("contentFrame"),
             (QStringList{QStringLiteral("InputKeyboardFrame"), QStringLiteral("frame")}));
    QCOMPARE(marked("isECButtonHolder"), QStringList{QStringLiteral("frame_20")});
    QStringList inputs;
    for (int i = 0; i < 16; ++i)
        inputs << keyFacts().at(i).value(QStringLiteral("object"));
    QCOMPARE(marked("isInputToolButton"), inputs);
    QCOMPARE(marked("isInputPageUpToolButton"), QStringList{QStringLiteral("pageUpToolButton")});
    QCOMPARE(marked("isInputPageDownToolButton"), QStringList{QStringLiteral("pageDownToolButton")});

    const QStringList titles = marked("isECKeyboardTitle");
    QCOMPARE(titles.size(), 1);
    const auto *title = m_section->findChild<QLabel *>(titles.first());
    QCOMPARE(title->text(), QStringLiteral("INPUT"));
    QCOMPARE(title->minimumSize(), QSize(98, 30));

    const QStringList spacers = marked("isECKeyboardTitleSpacer");
    QCOMPARE(spacers.size(), 1);
    const auto *spacer = m_section->findChild<QLabel *>(spacers.first());
    QCOMPARE(spacer->text(), QString());
    QCOMPARE(spacer->minimumHeight(), 30);
    QVERIFY(spacer->x() > title->x());
}

void tst_InputKeyboardFrame::widthsAndHeightsAreTheSections()
{
    QCOMPARE(m_section->minimumHeight(), 174);
    QCOMPARE(m_section->maximumSize(), QSize(1754, 180));

    const auto *holder = m_section->findChild<QFrame *>(QStringLiteral("frame_20"));
    QCOMPARE(holder->minimumSize(), QSize(1425, 144));
    QCOMPARE(holder->maximumWidth(), 1425);
    const auto *filler = m_section->findChild<QFrame *>(QStringLiteral("frame"));
    QCOMPARE(filler->minimumWidth(), 302);
    QCOMPARE(filler->maximumWidth(), 302);
    QVERIFY(filler->x() >= holder->geometry().right());
}

void tst_InputKeyboardFrame::nothingIsStyledBeforeItIsAsked()
{
    const QStringList styles = keyStyles();
    QVERIFY(
        std::all_of(styles.cbegin(), styles.cend(), [](const QString &style) { return style.isEmpty(); }));
    const auto *extension = m_section->findChild<QWidget *>(QStringLiteral("inputExtendToolButton"));
    QCOMPARE(extension->styleSheet(), QStringLiteral("border:none;background-color:transparent;"));
}

void tst_InputKeyboardFrame::keysSendTheirCodeOnPressAndOnRelease_data()
{
    QTest::addColumn<Fact>("fact");
    QTest::addColumn<quint32>("expectedCode");
    const QVector<Fact> facts = keyFacts();
    for (const Fact &fact : facts) {
        QTest::newRow(qPrintable(fact.value(QStringLiteral("key"))))
            << fact << fact.value(QStringLiteral("id")).toUInt() + 0xff0000u;
    }
}

void tst_InputKeyboardFrame::keysSendTheirCodeOnPressAndOnRelease()
{
    QFETCH(Fact, fact);
    QFETCH(quint32, expectedCode);
    QSignalSpy pressed(m_section.get(), &InputKeyboardFrame::ecButtonPressed);
    QSignalSpy released(m_section.get(), &InputKeyboardFrame::ecButtonRelease);

    QTest::mousePress(widget(fact), Qt::LeftButton);
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(pressed.first().first().toUInt(), expectedCode);
    QCOMPARE(released.size(), 0);

    QTest::mouseRelease(widget(fact), Qt::LeftButton);
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(released.size(), 1);
    QCOMPARE(released.first().first().toUInt(), expectedCode);
}

void tst_InputKeyboardFrame::theExtensionKeyIsSilent()
{
    QSignalSpy pressed(m_section.get(), &InputKeyboardFrame::ecButtonPressed);
    QSignalSpy released(m_section.get(), &InputKeyboardFrame::ecButtonRelease);
    auto *extension = m_section->findChild<QToolButton *>(QStringLiteral("inputExtendToolButton"));
    QSignalSpy clicked(extension, &QToolButton::clicked);
    QTest::mouseClick(extension, Qt::LeftButton);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(pressed.size(), 0);
    QCOMPARE(released.size(), 0);
}

void tst_InputKeyboardFrame::idleKeysAreWhiteAndTheIdlePageUpKeyIsBlack()
{
    m_section->applyNoramlStyleSheet();
    const QStringList styles = keyStyles();
    for (int i = 0; i < 16; ++i)
        QCOMPARE(styles.at(i), css(ECKeyboard::WhiteButton));
    QCOMPARE(styles.at(16), css(ECKeyboard::PageUpBlackButton));
    QCOMPARE(styles.at(17), css(ECKeyboard::PageDownWhiteButton));
    QVERIFY(styles.at(0).contains(QLatin1String("ecbutton_white")));
}

void tst_InputKeyboardFrame::theNormalStyleMarksKeysAndLeavesLabelsAlone()
{
    const auto marker = [](int entry) {
        return entry < 16    ? "isInputToolButton"
               : entry == 16 ? "isInputPageUpToolButton"
                             : "isInputPageDownToolButton";
    };
    for (int i = 0; i < ExpectedKeys; ++i)
        widget(keyFacts().at(i))->setProperty(marker(i), QVariant());
    QVERIFY(m_section->updateECOledText(textRecord(12, "CAM 1")));
    const QStringList texts = labelTexts();

    m_section->applyNoramlStyleSheet();
    for (int i = 0; i < ExpectedKeys; ++i)
        QCOMPARE(widget(keyFacts().at(i))->property(marker(i)), QVariant(true));
    QCOMPARE(labelTexts(), texts);
    QCOMPARE(texts.constFirst(), QStringLiteral("CAM 1"));
}

void tst_InputKeyboardFrame::aColorPaintsOneKey_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<quint32>("id");
    QTest::addColumn<int>("expectedRed");
    QTest::addColumn<int>("expectedOrange");
    const QVector<Fact> facts = keyFacts();
    for (int i = 0; i < facts.size(); ++i) {
        const int red = i == 16   ? ECKeyboard::PageUpRedButton
                        : i == 17 ? ECKeyboard::PageDownRedButton
                                  : ECKeyboard::RedButton;
        const int orange = i == 16   ? ECKeyboard::PageUpWhiteButton
                           : i == 17 ? ECKeyboard::PageDownWhiteButton
                                     : ECKeyboard::OrangeButton;
        QTest::newRow(qPrintable(facts.at(i).value(QStringLiteral("key"))))
            << i << facts.at(i).value(QStringLiteral("id")).toUInt() << red << orange;
    }
}

void tst_InputKeyboardFrame::aColorPaintsOneKey()
{
    QFETCH(int, entry);
    QFETCH(quint32, id);
    QFETCH(int, expectedRed);
    QFETCH(int, expectedOrange);
    m_section->applyNoramlStyleSheet();
    QStringList expected = keyStyles();

    expected[entry] = css(static_cast<ECKeyboard::eECButtonImage>(expectedRed));
    QVERIFY(m_section->updateECButtonColor(colorRecord(id, 255, 0, 0)));
    QCOMPARE(keyStyles(), expected);

    expected[entry] = css(static_cast<ECKeyboard::eECButtonImage>(expectedOrange));
    QVERIFY(m_section->updateECButtonColor(colorRecord(id, 255, 72, 0)));
    QCOMPARE(keyStyles(), expected);
}

void tst_InputKeyboardFrame::aBroadcastPaintsAllKeysAsOrdinaryOnes()
{
    m_section->applyNoramlStyleSheet();
    QVERIFY(m_section->updateECButtonColor(colorRecord(255, 0, 255, 0)));
    const QStringList styles = keyStyles();
    QCOMPARE(styles.size(), ExpectedKeys);
    for (const QString &style : styles)
        QCOMPARE(style, css(ECKeyboard::GreenButton));
}

void tst_InputKeyboardFrame::foreignColorsAreRefused_data()
{
    QTest::addColumn<quint32>("id");
    QTest::newRow("a screen key") << 0u;
    QTest::newRow("an OLED label's id") << 12u;
    QTest::newRow("one below") << 35u;
    QTest::newRow("one above") << 54u;
    QTest::newRow("one below broadcast") << 254u;
    QTest::newRow("one above broadcast") << 256u;
    QTest::newRow("a key code") << 0xff0024u;
    QTest::newRow("the highest") << 0xffffffffu;
}

void tst_InputKeyboardFrame::foreignColorsAreRefused()
{
    QFETCH(quint32, id);
    m_section->applyNoramlStyleSheet();
    const QStringList before = keyStyles();
    const LogKeeper log;
    QVERIFY(!m_section->updateECButtonColor(colorRecord(id, 255, 0, 0)));
    QVERIFY(!m_section->updateECButtonColor(nullptr));
    QCOMPARE(keyStyles(), before);
    QCOMPARE(log.lines(), QStringList());
}

void tst_InputKeyboardFrame::aColorThatChangesNothingCostsNothing()
{
    QVERIFY(m_section->updateECButtonColor(colorRecord(36, 255, 0, 0)));
    QCoreApplication::processEvents();

    WorkCounter onKey(widget(keyFacts().constFirst()));
    WorkCounter onSection(m_section.get());
    for (int i = 0; i < 100; ++i)
        QVERIFY(m_section->updateECButtonColor(colorRecord(36, 255, 0, 0)));
    QCoreApplication::processEvents();
    QCOMPARE(onKey.count, 0);
    QCOMPARE(onSection.count, 0);

    QVERIFY(m_section->updateECButtonColor(colorRecord(36, 0, 255, 0)));
    QVERIFY(onKey.count > 0);
}

void tst_InputKeyboardFrame::aTextIsWrittenToOneLabel_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<quint32>("id");
    const QVector<Fact> facts = labelFacts();
    for (int i = 0; i < facts.size(); ++i) {
        QTest::newRow(qPrintable(facts.at(i).value(QStringLiteral("key"))))
            << i << facts.at(i).value(QStringLiteral("id")).toUInt();
    }
}

void tst_InputKeyboardFrame::aTextIsWrittenToOneLabel()
{
    QFETCH(int, entry);
    QFETCH(quint32, id);
    m_section->applyNoramlStyleSheet();
    const QStringList styles = keyStyles();
    QStringList expected = labelTexts();

    expected[entry] = QStringLiteral("CAM 1");
    QVERIFY(m_section->updateECOledText(textRecord(id, "CAM 1")));
    QCOMPARE(labelTexts(), expected);

    expected[entry] = QString();
    QVERIFY(m_section->updateECOledText(textRecord(id, "")));
    QCOMPARE(labelTexts(), expected);
    QCOMPARE(keyStyles(), styles);
}

void tst_InputKeyboardFrame::textsAreReadUpToTheFirstZeroByte_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expectedText");
    QTest::newRow("plain") << QByteArray("VTR A") << QStringLiteral("VTR A");
    QTest::newRow("blanks stay") << QByteArray("  VTR ") << QStringLiteral("  VTR ");
    QTest::newRow("rest is ignored") << QByteArray("AB\0CD", 5) << QStringLiteral("AB");
    QTest::newRow("31 bytes") << QByteArray(31, 'x') << QString(31, QLatin1Char('x'));
    QTest::newRow("32 bytes without a zero") << QByteArray(32, 'x') << QString(32, QLatin1Char('x'));
    QTest::newRow("UTF-8") << QByteArray("K\xc3\xb6ln") << QStringLiteral("K\u00f6ln");
    QTest::newRow("not UTF-8") << QByteArray("A\xff"
                                             "B")
                               << QStringLiteral("A\ufffd"
                                                 "B");
    QTest::newRow("markup is text") << QByteArray("<b>1</b>") << QStringLiteral("<b>1</b>");
}

void tst_InputKeyboardFrame::textsAreReadUpToTheFirstZeroByte()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expectedText);
    QVERIFY(m_section->updateECOledText(textRecord(12, bytes)));
    QCOMPARE(labelTexts().constFirst(), expectedText);
}

void tst_InputKeyboardFrame::foreignTextsAreRefused_data()
{
    QTest::addColumn<quint32>("id");
    QTest::newRow("zero") << 0u;
    QTest::newRow("a key's id that no label has") << 36u;
    QTest::newRow("a layer label") << 52u;
    QTest::newRow("broadcast") << 255u;
    QTest::newRow("the highest") << 0xffffffffu;
}

void tst_InputKeyboardFrame::foreignTextsAreRefused()
{
    QFETCH(quint32, id);
    const QStringList before = labelTexts();
    const LogKeeper log;
    QVERIFY(!m_section->updateECOledText(textRecord(id, "lost")));
    QVERIFY(!m_section->updateECOledText(nullptr));
    QCOMPARE(labelTexts(), before);
    QCOMPARE(log.lines(), QStringList());
}

void tst_InputKeyboardFrame::aTextThatChangesNothingCostsNothing()
{
    QVERIFY(m_section->updateECOledText(textRecord(12, "CAM 1")));
    QCoreApplication::processEvents();

    WorkCounter onLabel(widget(labelFacts().constFirst()));
    WorkCounter onSection(m_section.get());
    for (int i = 0; i < 100; ++i)
        QVERIFY(m_section->updateECOledText(textRecord(12, "CAM 1")));
    QCoreApplication::processEvents();
    QCOMPARE(onLabel.count, 0);
    QCOMPARE(onSection.count, 0);

    QVERIFY(m_section->updateECOledText(textRecord(12, "CAM 2")));
    QTRY_VERIFY(onLabel.count > 0);
}

void tst_InputKeyboardFrame::heldKeysAreReleasedOnEveryWayOut_data()
{
    QTest::addColumn<QByteArray>("way");
    QTest::newRow("section hidden") << QByteArray("hide");
    QTest::newRow("section disabled") << QByteArray("disable");
    QTest::newRow("section deleted") << QByteArray("delete");
    QTest::newRow("key deleted") << QByteArray("delete key");
}

void tst_InputKeyboardFrame::heldKeysAreReleasedOnEveryWayOut()
{
    QFETCH(QByteArray, way);
    QSignalSpy pressed(m_section.get(), &InputKeyboardFrame::ecButtonPressed);
    QSignalSpy released(m_section.get(), &InputKeyboardFrame::ecButtonRelease);
    QWidget *key = widget(keyFacts().at(2));
    QTest::mousePress(key, Qt::LeftButton);
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(released.size(), 0);

    if (way == "hide")
        m_section->hide();
    else if (way == "disable")
        m_section->setEnabled(false);
    else if (way == "delete")
        m_section.reset();
    else
        delete key;
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(released.size(), 1);
    QCOMPARE(released.first().first().toUInt(), 0xff0026u);
}

QTEST_MAIN(tst_InputKeyboardFrame)

#include "tst_inputkeyboardframe.moc"
