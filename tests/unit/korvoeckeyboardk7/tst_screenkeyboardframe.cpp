// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "screenkeyboardframe.h"

#include "sectiontests.h"

#include <QAbstractButton>
#include <QTest>

using Korvo::ECKeyboard::K7::ScreenKeyboardFrame;

static SectionRules rules()
{
    SectionRules rules;
    rules.facts = "screenkeyboardframe";
    rules.keys = 22;
    rules.labels = 17;
    rules.silentKeys = {"reserved_1_ToolButton"};
    rules.formStyles = {{"screenExtendToolButton", "border:none;background-color:transparent;"}};
    rules.markers = {
        {"contentFrame", {"ScreenKeyboardFrame"}},
        {"isScreenToolButton", {"group"}},
        {"isScreenPageUpToolButton", {"pageUpToolButton"}},
        {"isScreenPageDownToolButton", {"pageDownToolButton"}},
        {"isFreezePGMToolButton", {"freezePGMToolButton"}},
        {"isMatchPGMToolButton", {"matchPGMToolButton"}},
        {"isFtbToolButton", {"ftbToolButton"}},
        {"isScreenRreservedToolButton", {"reserved_1_ToolButton"}}, // sic
        {"isECKeyboardTitle", {"\"SCREEN\""}},
        {"isECKeyboardSpacer=false", {"\"\""}},
        {"isECKeyboardSpacer", {"\"\""}},
        {"isECButtonHolder", {"frameSelectMode", "frame"}},
    };
    return rules;
}

class tst_ScreenKeyboardFrame : public SectionTestsOf<ScreenKeyboardFrame>
{
    Q_OBJECT

public:
    tst_ScreenKeyboardFrame()
        : SectionTestsOf(rules())
    {
    }

private slots:
    void checkableKeysSendNoMoreThanOthers();
    void theReservedKeyTakesColorsButIsSilent();
    void theExtensionLabelIsFoundByItsId();
    void theCommandBlockStandsRightOfTheKeys();
};

void tst_ScreenKeyboardFrame::checkableKeysSendNoMoreThanOthers()
{
    for (const char *name : {"matchPGMToolButton", "ftbToolButton"}) {
        QAbstractButton *checkable = key(QLatin1String(name));
        for (const bool expected : {true, false}) {
            const int before = sent().size();
            QTest::mouseClick(checkable, Qt::LeftButton);
            QCOMPARE(checkable->isChecked(), expected);
            QCOMPARE(sent().size(), before + 2);
        }
        const int before = sent().size();
        checkable->toggle();
        QCOMPARE(sent().size(), before);
    }
    applyNormalStyle();
    QVERIFY(key(QStringLiteral("matchPGMToolButton"))->isChecked());
    QVERIFY(key(QStringLiteral("ftbToolButton"))->isChecked());
    QVERIFY(!key(QStringLiteral("freezePGMToolButton"))->isCheckable());
    QVERIFY(!key(QStringLiteral("reserved_1_ToolButton"))->isCheckable());
}

void tst_ScreenKeyboardFrame::theReservedKeyTakesColorsButIsSilent()
{
    QAbstractButton *reserved = key(QStringLiteral("reserved_1_ToolButton"));
    QVERIFY(updateColor(colorRecord(90, 0, 255, 0)));
    QCOMPARE(reserved->styleSheet(), css(Korvo::ECKeyboard::GreenButton));
    QTest::mouseClick(reserved, Qt::LeftButton);
    QCOMPARE(sent(), QStringList());
}

void tst_ScreenKeyboardFrame::theExtensionLabelIsFoundByItsId()
{
    QVERIFY(updateText(textRecord(49, "MORE")));
    const QLabel *above = label(QStringLiteral("label_267"));
    QCOMPARE(above->text(), QStringLiteral("MORE"));
    const QWidget *extension = widget(QStringLiteral("screenExtendToolButton"));
    QVERIFY(above->geometry().bottom() < extension->y());
}

void tst_ScreenKeyboardFrame::theCommandBlockStandsRightOfTheKeys()
{
    const auto place = [this](const QWidget *one) {
        return QRect(one->mapTo(frame(), QPoint()), one->size());
    };
    QVERIFY(place(widget(QStringLiteral("frame"))).left() >
            place(widget(QStringLiteral("frameSelectMode"))).right());

    int spacers = 0;
    const QRect freeze = place(key(QStringLiteral("freezePGMToolButton")));
    const QList<QLabel *> labels = frame()->findChildren<QLabel *>();
    for (const QLabel *spacer : labels) {
        if (!spacer->property("isECKeyboardSpacer").toBool())
            continue;
        ++spacers;
        QCOMPARE(spacer->height(), 32);
        QVERIFY(place(spacer).bottom() < freeze.top());
        QVERIFY(place(spacer).right() >= freeze.left());
    }
    QCOMPARE(spacers, 1);
}

QTEST_MAIN(tst_ScreenKeyboardFrame)

#include "tst_screenkeyboardframe.moc"
