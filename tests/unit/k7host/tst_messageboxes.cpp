// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "fakekeyboard.h"

#include <messageboxes.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace K7Host;

class tst_MessageBoxes : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anOpenedBoxIsTold();
    void aWaitingAnswerIsGivenToTheNextBox_data();
    void aWaitingAnswerIsGivenToTheNextBox();
    void anOpenBoxIsAnswered();
    void anAnswerIsForOneBoxOnly();
    void aLaterAnswerReplacesOneThatWaits();
    void aButtonThatIsNotThereIsRefused();
    void whatAPersonClicksIsTold();
    void aBoxThatOpensAgainIsToldAgain();
    void boxesOfTheConsolesWidgetsAreTold();
    void otherWindowsAreLeftAlone_data();
    void otherWindowsAreLeftAlone();

private:
    QScopedPointer<FakeKeyboardPlugin> m_plugin;
    QScopedPointer<MessageBoxes> m_boxes;
    QVector<MessageLine> m_opened;
    QStringList m_answered;
};

void tst_MessageBoxes::init()
{
    m_plugin.reset(new FakeKeyboardPlugin);
    m_opened.clear();
    m_answered.clear();
    m_boxes.reset(new MessageBoxes(m_plugin->keyboards()));
    connect(m_boxes.data(), &MessageBoxes::opened, this,
            [this](const MessageLine &message) { m_opened << message; });
    connect(m_boxes.data(), &MessageBoxes::answered, this,
            [this](const AnswerLine &answer) { m_answered << answer.button; });
}

void tst_MessageBoxes::anOpenedBoxIsTold()
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Tip"), QStringLiteral("Mind the gap."));
    box.setInformativeText(QStringLiteral("It is wide."));
    box.show();
    QCOMPARE(m_opened.size(), 1);
    QCOMPARE(m_opened.first().title, QStringLiteral("Tip"));
    QCOMPARE(m_opened.first().text, QStringLiteral("Mind the gap."));
    QCOMPARE(m_opened.first().informative, QStringLiteral("It is wide."));
    QVERIFY(m_answered.isEmpty());
}

void tst_MessageBoxes::aWaitingAnswerIsGivenToTheNextBox_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("expectedResult");
    QTest::newRow("Yes") << QStringLiteral("Yes") << int(QMessageBox::Yes);
    QTest::newRow("No") << QStringLiteral("No") << int(QMessageBox::No);
}

void tst_MessageBoxes::aWaitingAnswerIsGivenToTheNextBox()
{
    QFETCH(QString, button);
    m_boxes->answer(button);
    QVERIFY(m_boxes->isAnswerWaiting());
    QMessageBox box(QMessageBox::Question, QString(), QStringLiteral("Really?"),
                    QMessageBox::Yes | QMessageBox::No);
    QTEST(box.exec(), "expectedResult");
    QVERIFY(!m_boxes->isAnswerWaiting());
    QCOMPARE(m_answered, QStringList{button});
}

void tst_MessageBoxes::anOpenBoxIsAnswered()
{
    QMessageBox box(QMessageBox::Question, QString(), QStringLiteral("Really?"),
                    QMessageBox::Yes | QMessageBox::No);
    QTimer::singleShot(0, &box, [this] { m_boxes->answer(QStringLiteral("No")); });
    QCOMPARE(box.exec(), int(QMessageBox::No));
    QVERIFY(!m_boxes->isAnswerWaiting());
}

void tst_MessageBoxes::anAnswerIsForOneBoxOnly()
{
    m_boxes->answer(QStringLiteral("Ok"));
    QMessageBox(QMessageBox::Warning, QString(), QStringLiteral("First"), QMessageBox::Ok).exec();
    QMessageBox second(QMessageBox::Warning, QString(), QStringLiteral("Second"), QMessageBox::Ok);
    second.show();
    QTRY_COMPARE(m_opened.size(), 2);
    QCoreApplication::processEvents();
    QVERIFY(second.isVisible());
    QCOMPARE(m_answered, QStringList{QStringLiteral("Ok")});
}

void tst_MessageBoxes::aLaterAnswerReplacesOneThatWaits()
{
    m_boxes->answer(QStringLiteral("Yes"));
    m_boxes->answer(QStringLiteral("No"));
    QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.exec(), int(QMessageBox::No));
}

void tst_MessageBoxes::aButtonThatIsNotThereIsRefused()
{
    QStringList refused;
    connect(m_boxes.data(), &MessageBoxes::answerRefused, this,
            [&refused](const QString &button) { refused << button; });
    QMessageBox box(QMessageBox::Warning, QString(), QString(), QMessageBox::Ok);
    box.show();
    m_boxes->answer(QStringLiteral("Yes"));
    QTRY_COMPARE(refused, QStringList{QStringLiteral("Yes")});
    QVERIFY(box.isVisible());
    QVERIFY(!m_boxes->isAnswerWaiting());
}

void tst_MessageBoxes::whatAPersonClicksIsTold()
{
    QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Yes | QMessageBox::No);
    QTimer::singleShot(0, &box, [this, &box] {
        QVERIFY(m_answered.isEmpty());
        QWidget *yes = box.button(QMessageBox::Yes);
        QTest::mouseClick(yes, Qt::LeftButton);
    });
    QCOMPARE(box.exec(), int(QMessageBox::Yes));
    QCOMPARE(m_answered, QStringList{QStringLiteral("Yes")});
}

void tst_MessageBoxes::aBoxThatOpensAgainIsToldAgain()
{
    QMessageBox box(QMessageBox::Warning, QString(), QString(), QMessageBox::Ok);
    for (int times = 1; times <= 2; ++times) {
        m_boxes->answer(QStringLiteral("Ok"));
        box.exec();
        QCOMPARE(m_opened.size(), times);
        QCOMPARE(m_answered.size(), times);
    }
}

void tst_MessageBoxes::boxesOfTheConsolesWidgetsAreTold()
{
    QMessageBox box(m_plugin->left.data());
    box.show();
    QCOMPARE(m_opened.size(), 1);
}

void tst_MessageBoxes::otherWindowsAreLeftAlone_data()
{
    QTest::addColumn<bool>("isBox");
    QTest::newRow("dialog") << false;
    QTest::newRow("message box of the host's") << true;
}

void tst_MessageBoxes::otherWindowsAreLeftAlone()
{
    QFETCH(bool, isBox);
    m_boxes->answer(QStringLiteral("Ok"));
    QWidget host;
    const QScopedPointer<QDialog> dialog(isBox ? new QMessageBox(&host) : new QDialog);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.data()));
    QVERIFY(m_opened.isEmpty());
    QVERIFY(m_boxes->isAnswerWaiting());
}

QTEST_MAIN(tst_MessageBoxes)

#include "tst_messageboxes.moc"
