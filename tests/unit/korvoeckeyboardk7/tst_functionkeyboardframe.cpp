// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "functionkeyboardframe.h"

#include "sectiontests.h"

#include <korvo/keyboard/constants.h>

#include <QLayout>
#include <QTest>

using Korvo::ECKeyboard::K7::FunctionKeyboardFrame;

static SectionRules rules()
{
    SectionRules rules;
    rules.facts = "functionkeyboardframe";
    rules.keys = 12;
    rules.labels = 3;
    rules.unreachableLabels = {"label_95", "label_96", "label_97"};
    rules.markers = {
        {"contentFrame", {"FunctionKeyboardFrame"}},
        {"isNumberToolButton", {"group"}}, // as the number keys, on purpose
        {"isECKeyboardTitle", {"\"FUNCTION\""}},
        {"isECKeyboardTitleSpacer", {"\"\""}},
    };
    return rules;
}

class tst_FunctionKeyboardFrame : public SectionTestsOf<FunctionKeyboardFrame>
{
    Q_OBJECT

public:
    tst_FunctionKeyboardFrame()
        : SectionTestsOf(rules())
    {
    }

private slots:
    void noTextReachesALabelEvenIfItHadANumber();
    void theOuterLayoutHoldsTheRows();
};

void tst_FunctionKeyboardFrame::noTextReachesALabelEvenIfItHadANumber()
{
    quint32 id = 96;
    for (const char *name : {"label_95", "label_96", "label_97"}) {
        label(QLatin1String(name))->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, id);
        QVERIFY(!updateText(textRecord(id, "lost")));
        QCOMPARE(label(QLatin1String(name))->text(), QString());
        ++id;
    }
}

void tst_FunctionKeyboardFrame::theOuterLayoutHoldsTheRows()
{
    QCOMPARE(frame()->layout()->objectName(), QStringLiteral("verticalLayout"));
    // Labels of one row, and keys of one row, stand at one height.
    const auto verifyRow = [this](std::initializer_list<const char *> names) {
        for (const char *name : names)
            QCOMPARE(widget(QLatin1String(name))->y(), widget(QLatin1String(*names.begin()))->y());
    };
    verifyRow({"toolButton_127", "toolButton_128", "toolButton_129"});
    verifyRow({"label_95", "label_96", "label_97"});
    verifyRow({"toolButton_136", "toolButton_137", "toolButton_138"});
}

QTEST_MAIN(tst_FunctionKeyboardFrame)

#include "tst_functionkeyboardframe.moc"
