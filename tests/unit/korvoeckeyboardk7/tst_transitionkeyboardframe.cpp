// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "transitionkeyboardframe.h"

#include "sectiontests.h"

#include <QTest>

using Korvo::ECKeyboard::K7::TransitionKeyboardFrame;

static SectionRules rules()
{
    SectionRules rules;
    rules.facts = "transitionkeyboardframe";
    rules.keys = 6;
    rules.labels = 6;
    rules.markers = {
        {"contentFrame", {"TransitionKeyboardFrame", "frametrans"}},
        {"isNumberToolButton", {"group"}}, // as the number keys, on purpose
    };
    return rules;
}

class tst_TransitionKeyboardFrame : public SectionTestsOf<TransitionKeyboardFrame>
{
    Q_OBJECT

public:
    tst_TransitionKeyboardFrame()
        : SectionTestsOf(rules())
    {
    }

private slots:
    void wipeSaysSo();
    void textsGoAboveTheirKeys_data();
    void textsGoAboveTheirKeys();
};

void tst_TransitionKeyboardFrame::wipeSaysSo()
{
    QCOMPARE(widget(QStringLiteral("toolButton_122"))->property("Wipe"), QVariant(QStringLiteral("true")));
    const QVector<Fact> all = keys();
    for (const Fact &fact : all) {
        const bool isWipe = fact.value(QStringLiteral("key")) == QLatin1String("TRANSITION_WIPE");
        QCOMPARE(widget(fact)->property("Wipe").isValid(), isWipe);
    }
}

void tst_TransitionKeyboardFrame::textsGoAboveTheirKeys_data()
{
    QTest::addColumn<quint32>("id");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("keyBelow");
    QTest::newRow("reserved key of the upper row") << 90u << "label_91"
                                                   << "toolButton_123";
    QTest::newRow("TIME+") << 95u << "label_94"
                           << "toolButton_125";
}

void tst_TransitionKeyboardFrame::textsGoAboveTheirKeys()
{
    QFETCH(quint32, id);
    QFETCH(QString, label);
    QFETCH(QString, keyBelow);
    QVERIFY(updateText(textRecord(id, "TEXT")));
    const QLabel *written = this->label(label);
    QCOMPARE(written->text(), QStringLiteral("TEXT"));
    const QWidget *below = widget(keyBelow);
    QVERIFY(below->y() > written->geometry().bottom());
    QVERIFY(below->y() - written->geometry().bottom() < below->height());
    QVERIFY(qAbs(below->geometry().center().x() - written->geometry().center().x()) <= 1);
}

QTEST_MAIN(tst_TransitionKeyboardFrame)

#include "tst_transitionkeyboardframe.moc"
