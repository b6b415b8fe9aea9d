// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "layerkeyboardframe.h"

#include "sectiontests.h"

#include <QTest>

using Korvo::ECKeyboard::K7::LayerKeyboardFrame;

static SectionRules rules()
{
    SectionRules rules;
    rules.facts = "layerkeyboardframe";
    rules.keys = 24;
    rules.labels = 19;
    rules.formStyles = {{"layerExtendToolButton", "border:none;background-color:transparent;"}};
    rules.markers = {
        {"contentFrame", {"LayerKeyboardFrame"}},
        {"isScreenToolButton", {"group"}}, // as the screen keys, on purpose
        {"isLayerPageUpToolButton", {"pageUpToolButton"}},
        {"isLayerPageDownToolButton", {"pageDownToolButton"}},
        {"isECKeyboardTitle", {"\"LAYER\"", "\"LAYER EDIT\""}},
        {"isECKeyboardTitleSpacer", {"\"\"", "\"\""}},
        {"isECButtonHolder", {"frame_18", "frame"}},
    };
    rules.normalMarkers = {
        {"isLayerToolButton", {"group"}},
        {"isLayerClearToolButton", {"clearLayerToolButton"}},
        {"isClearAllLayerToolButton", {"clearAllLayerToolButton"}},
        {"isTopZToolButton", {"setTopZValueToolButton"}},
        {"isBottomZToolButton", {"setBottomZValueToolButton"}},
        {"isLayerReserved1ToolButton", {"reserved_1_ToolButton"}},
        {"isLayerReserved2ToolButton", {"reserved_2_ToolButton"}},
    };
    return rules;
}

class tst_LayerKeyboardFrame : public SectionTestsOf<LayerKeyboardFrame>
{
    Q_OBJECT

public:
    tst_LayerKeyboardFrame()
        : SectionTestsOf(rules())
    {
    }

private slots:
    void theEditBlockStandsRightOfTheKeys();
    void keysAndLabelsOfOneNumberDoNotMix();
};

void tst_LayerKeyboardFrame::theEditBlockStandsRightOfTheKeys()
{
    const QWidget *keys = widget(QStringLiteral("frame_18"));
    const QWidget *edit = widget(QStringLiteral("frame"));
    QVERIFY(edit->mapTo(frame(), QPoint()).x() > keys->mapTo(frame(), keys->rect().topRight()).x());

    QStringList titles;
    QList<int> spacerHeights;
    const QList<QLabel *> labels = frame()->findChildren<QLabel *>();
    for (const QLabel *one : labels) {
        if (one->property("isECKeyboardTitle").toBool())
            titles << QStringLiteral("%1 %2").arg(one->text()).arg(one->width());
        if (one->property("isECKeyboardTitleSpacer").toBool())
            spacerHeights << one->height();
    }
    QCOMPARE(titles, (QStringList{QStringLiteral("LAYER 98"), QStringLiteral("LAYER EDIT 98")}));
    QVERIFY(spacerHeights.contains(24));
}

void tst_LayerKeyboardFrame::keysAndLabelsOfOneNumberDoNotMix()
{
    // 29 is a key and a label.
    applyNormalStyle();
    const QStringList styles = keyStyles();
    QVERIFY(updateText(textRecord(29, "LAYER 1")));
    QCOMPARE(label(QStringLiteral("label_179"))->text(), QStringLiteral("LAYER 1"));
    QCOMPARE(keyStyles(), styles);

    const QStringList texts = labelTexts();
    QVERIFY(updateColor(colorRecord(29, 255, 0, 0)));
    QCOMPARE(widget(QStringLiteral("toolButton_238"))->styleSheet(), css(Korvo::ECKeyboard::RedButton));
    QCOMPARE(labelTexts(), texts);
}

QTEST_MAIN(tst_LayerKeyboardFrame)

#include "tst_layerkeyboardframe.moc"
