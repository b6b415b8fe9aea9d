// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "presetkeyboardframe.h"

#include "sectiontests.h"

#include <korvo/keyboard/constants.h>

#include <QAbstractButton>
#include <QTest>

using Korvo::Constants::PROPERTY_KORVOECKEY;
using Korvo::ECKeyboard::K7::PresetKeyboardFrame;

static SectionRules rules()
{
    const char *transparent = "border:none;background-color:transparent;";
    const char *wide = "min-height:50px;";
    SectionRules rules;
    rules.facts = "presetkeyboardframe";
    rules.keys = 42;
    rules.labels = 36;
    rules.silentKeys = {"reserved_1_ToolButton", "reserved_2_ToolButton"};
    rules.colorlessKeys = rules.silentKeys;
    rules.unreachableLabels = {"presetExtendLabel2", "reserved_2_Label"};
    rules.formStyles = {
        {"presetExtendToolButton1", transparent},
        {"presetExtendToolButton2", transparent},
        {"presetExtendLabel2", transparent},
        {"cutToolButton", wide},
        {"takeToolButton", wide},
    };
    // Style sheets select on these names, crossed as they are.
    rules.markers = {
        {"contentFrame", {"PresetKeyboardFrame"}},
        {"isScreenToolButton", {"group"}},
        {"isScreenPageUpToolButton", {"pageUpToolButton"}},
        {"isScreenPageDownToolButton", {"pageDownToolButton"}},
        {"isClearPresetToolButton", {"clearPresetToolButton", "load_To_PGM"}},
        {"isClearAllPresetToolButton", {"clearAllPresetToolButton"}},
        {"clearAllPresetToolButton", {"savePresetToolButton"}},
        {"isSavePresetToolButton", {"savePresetToolButton"}},
        {"TakeToolButton", {"savePresetToolButton"}},
        {"CutToolButton", {"savePresetToolButton"}},
        {"isECKeyboardTitle", {"\"PRESET\"", "\"PRESET EDIT\""}},
        {"isECKeyboardTitleSpacer", {"\"\"", "\"\""}},
        {"isECButtonHolder", {"frame_22", "frame_2", "frame"}},
    };
    rules.normalMarkers = {
        {"isPresetToolButton", {"group"}},
        {"isInputPageUpToolButton",
         {"clearPresetToolButton", "clearAllPresetToolButton", "savePresetToolButton",
          "reserved_1_ToolButton", "reserved_2_ToolButton", "load_To_PGM", "cutToolButton", "takeToolButton",
          "pageUpToolButton", "pageDownToolButton"}},
    };
    return rules;
}

class tst_PresetKeyboardFrame : public SectionTestsOf<PresetKeyboardFrame>
{
    Q_OBJECT

public:
    tst_PresetKeyboardFrame()
        : SectionTestsOf(rules())
    {
    }

private slots:
    void reservedKeysTakeNoColorAndAreSilent();
    void saveAndTheLabelOfItsNumberDoNotMix();
    void unnumberedLabelsComeAfterTheNumberZero();
    void blocksStandInTheirPlaces();
};

void tst_PresetKeyboardFrame::reservedKeysTakeNoColorAndAreSilent()
{
    for (const quint32 id : {101u, 102u}) {
        const QStringList before = keyStyles();
        QVERIFY(!updateColor(colorRecord(id, 255, 0, 0)));
        QCOMPARE(keyStyles(), before);
    }
    for (const char *name : {"reserved_1_ToolButton", "reserved_2_ToolButton", "presetExtendToolButton1",
                             "presetExtendToolButton2"})
        QTest::mouseClick(key(QLatin1String(name)), Qt::LeftButton);
    QCOMPARE(sent(), QStringList());
}

void tst_PresetKeyboardFrame::saveAndTheLabelOfItsNumberDoNotMix()
{
    const QStringList styles = keyStyles();
    QVERIFY(updateText(textRecord(100, "TO PGM")));
    QCOMPARE(label(QStringLiteral("load_To_PGM_Label"))->text(), QStringLiteral("TO PGM"));
    QCOMPARE(keyStyles(), styles);

    const QStringList texts = labelTexts();
    QVERIFY(updateColor(colorRecord(100, 255, 0, 0)));
    QCOMPARE(key(QStringLiteral("savePresetToolButton"))->styleSheet(), css(Korvo::ECKeyboard::RedButton));
    QCOMPARE(labelTexts(), texts);
}

void tst_PresetKeyboardFrame::unnumberedLabelsComeAfterTheNumberZero()
{
    // A label without a number reads as 0. The search goes through the grid first.
    for (const char *name : {"presetLabel_24", "presetExtendLabel2", "reserved_2_Label"}) {
        QLabel *expected = label(QLatin1String(name));
        QVERIFY(updateText(textRecord(0, name)));
        QCOMPARE(expected->text(), QString::fromLatin1(name));
        expected->setProperty(PROPERTY_KORVOECKEY, 1000); // out of the way
    }
    QVERIFY(!updateText(textRecord(0, "nobody")));
}

void tst_PresetKeyboardFrame::blocksStandInTheirPlaces()
{
    const auto place = [this](const char *name) {
        const QWidget *one = widget(QLatin1String(name));
        return QRect(one->mapTo(frame(), QPoint()), one->size());
    };
    const QRect grid = place("frame_22");
    const QRect edit = place("frame_2");
    const QRect wide = place("frame");
    QVERIFY(edit.left() > grid.right());
    QVERIFY(wide.left() > grid.right());
    QVERIFY(wide.top() > edit.bottom());
    QCOMPARE(edit.width(), 302);
    QCOMPARE(wide.width(), 302);
    QVERIFY(wide.height() >= 78);

    const QRect cut = place("cutToolButton");
    const QRect take = place("takeToolButton");
    QCOMPARE(cut.top(), take.top());
    QVERIFY(cut.width() > 64);
    QVERIFY(take.width() > 64);
    QVERIFY(cut.height() >= 50);
    QVERIFY(take.height() >= 50);
    QVERIFY(place("pageUpToolButton").left() > place("presetExtendToolButton1").right());
}

QTEST_MAIN(tst_PresetKeyboardFrame)

#include "tst_presetkeyboardframe.moc"
