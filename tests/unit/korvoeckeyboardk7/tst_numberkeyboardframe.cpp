// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "numberkeyboardframe.h"

#include "sectiontests.h"

#include <QTest>

using Korvo::ECKeyboard::K7::NumberKeyboardFrame;

static SectionRules rules()
{
    SectionRules rules;
    rules.facts = "numberkeyboardframe";
    rules.keys = 14;
    rules.knowsBroadcast = false;
    rules.takesEveryText = true;
    rules.markers = {
        {"contentFrame", {"NumberKeyboardFrame"}},
        {"isNumberToolButton", {"group"}},
        {"isECKeyboardTitle", {"\"NUMBER\""}},
        {"isECKeyboardTitleSpacer", {"\"\""}},
    };
    return rules;
}

class tst_NumberKeyboardFrame : public SectionTestsOf<NumberKeyboardFrame>
{
    Q_OBJECT

public:
    tst_NumberKeyboardFrame()
        : SectionTestsOf(rules())
    {
    }

private slots:
    void enterIsTwoKeysWide();
    void zeroStandsBetweenMinusAndPlus();
};

void tst_NumberKeyboardFrame::enterIsTwoKeysWide()
{
    const QRect enter = widget(QStringLiteral("toolButton_enter"))->geometry();
    const QRect plus = widget(QStringLiteral("toolButton_118"))->geometry();
    const QRect back = widget(QStringLiteral("toolButton_119"))->geometry();
    QVERIFY(enter.left() > back.right());
    QVERIFY(qAbs(enter.right() - plus.right()) <= 4);
    QVERIFY(qAbs(enter.center().y() - back.center().y()) <= 1);
}

void tst_NumberKeyboardFrame::zeroStandsBetweenMinusAndPlus()
{
    QVERIFY(updateColor(colorRecord(116, 255, 0, 0)));
    const QWidget *zero = widget(QStringLiteral("toolButton_117"));
    QCOMPARE(zero->property("text").toString(), QStringLiteral("0"));
    QCOMPARE(zero->styleSheet(), css(Korvo::ECKeyboard::RedButton));
    QVERIFY(zero->x() > widget(QStringLiteral("toolButton_116"))->x());
    QVERIFY(zero->x() < widget(QStringLiteral("toolButton_118"))->x());
}

QTEST_MAIN(tst_NumberKeyboardFrame)

#include "tst_numberkeyboardframe.moc"
