// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputkeyboardframe.h"

#include "sectiontests.h"

#include <QTest>
#include <QTranslator>

using Korvo::ECKeyboard::K7::InputKeyboardFrame;

static SectionRules rules()
{
    SectionRules rules;
    rules.facts = "inputkeyboardframe";
    rules.keys = 18;
    rules.labels = 17;
    rules.formStyles = {{"inputExtendToolButton", "border:none;background-color:transparent;"}};
    rules.markers = {
        {"contentFrame", {"InputKeyboardFrame", "frame"}},
        {"isInputToolButton", {"group"}},
        {"isInputPageUpToolButton", {"pageUpToolButton"}},
        {"isInputPageDownToolButton", {"pageDownToolButton"}},
        {"isECKeyboardTitle", {"\"INPUT\""}},
        {"isECKeyboardTitleSpacer", {"\"\""}},
        {"isECButtonHolder", {"frame_20"}},
    };
    return rules;
}

class tst_InputKeyboardFrame : public SectionTestsOf<InputKeyboardFrame>
{
    Q_OBJECT

public:
    tst_InputKeyboardFrame()
        : SectionTestsOf(rules())
    {
    }

private slots:
    void idsFamiliesAndTitlePassThroughTheTranslation();
    void theNormalStyleRestoresMarkers();
    void titleAndFillerStandInTheirPlaces();
    void keysAndLabelsOfOneNumberDoNotMix();
};

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
    const QVector<Fact> facts = readFacts(QStringLiteral("inputkeyboardframe"));
    for (const Fact &fact : facts) {
        for (const QString &column : {QStringLiteral("id"), QStringLiteral("entry")}) {
            if (fact.value(column) != QLatin1String("-"))
                expected << fact.value(column);
        }
    }
    expected.sort();
    recorder.texts.sort();
    QCOMPARE(recorder.texts, expected);
}

void tst_InputKeyboardFrame::theNormalStyleRestoresMarkers()
{
    const auto marker = [](const Fact &fact) {
        const QString name = fact.value(QStringLiteral("object"));
        return name == QLatin1String("pageUpToolButton")     ? "isInputPageUpToolButton"
               : name == QLatin1String("pageDownToolButton") ? "isInputPageDownToolButton"
                                                             : "isInputToolButton";
    };
    const QVector<Fact> all = keys();
    for (const Fact &fact : all)
        widget(fact)->setProperty(marker(fact), QVariant());
    applyNormalStyle();
    for (const Fact &fact : all)
        QCOMPARE(widget(fact)->property(marker(fact)), QVariant(true));
}

void tst_InputKeyboardFrame::titleAndFillerStandInTheirPlaces()
{
    const QLabel *title = nullptr;
    const QLabel *spacer = nullptr;
    const QList<QLabel *> labels = frame()->findChildren<QLabel *>();
    for (const QLabel *one : labels) {
        if (one->property("isECKeyboardTitle").toBool())
            title = one;
        if (one->property("isECKeyboardTitleSpacer").toBool())
            spacer = one;
    }
    QVERIFY(title);
    QVERIFY(spacer);
    QVERIFY(spacer->x() > title->x());

    const QWidget *holder = widget(QStringLiteral("frame_20"));
    const QWidget *filler = widget(QStringLiteral("frame"));
    QCOMPARE(holder->width(), 1425);
    QCOMPARE(filler->width(), 302);
    QVERIFY(filler->x() >= holder->geometry().right());
    QVERIFY(holder->y() > title->geometry().bottom());
}

void tst_InputKeyboardFrame::keysAndLabelsOfOneNumberDoNotMix()
{
    // 51 is INPUT_16, and the label above the extension key.
    applyNormalStyle();
    const QStringList styles = keyStyles();
    QVERIFY(updateText(textRecord(51, "MORE")));
    QCOMPARE(label(QStringLiteral("label_214"))->text(), QStringLiteral("MORE"));
    QCOMPARE(keyStyles(), styles);

    const QStringList texts = labelTexts();
    QVERIFY(updateColor(colorRecord(51, 255, 0, 0)));
    QCOMPARE(widget(QStringLiteral("toolButton_267"))->styleSheet(), css(Korvo::ECKeyboard::RedButton));
    QCOMPARE(labelTexts(), texts);
}

QTEST_MAIN(tst_InputKeyboardFrame)

#include "tst_inputkeyboardframe.moc"
