// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "leftkeyboardframe.h"

#include "halftests.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

using namespace Korvo;
using Korvo::ECKeyboard::K7::LeftKeyboardFrame;

class tst_LeftKeyboardFrame : public HalfTests
{
    Q_OBJECT

public:
    tst_LeftKeyboardFrame()
        : HalfTests(leftSections(), 106, 89)
    {
    }

private slots:
    void identityIsTheLeftHalfs();
    void sizesAreTheConsoles();
    void sectionsStandInRows_data();
    void sectionsStandInRows();
    void columnsStandOneBelowTheOther();
    void aPressMayBeAnsweredAtOnce();
    void aHeldKeyIsReleasedWhileTheHalfIsStillOne();
    void resultsAreFixed();
    void recordsOfTheOtherHalfChangeNothing();
    void updateKeyboardAnnouncesTheModeChange();
    void recordsFromAnotherThreadArriveInOrderOnTheGuiThread();
    void recordsOnTheWayToADeletedHalfAreDropped();

protected:
    std::unique_ptr<IKorvoECKeyboard> create() override
    {
        return std::make_unique<LeftKeyboardFrame>(nullptr);
    }

private:
    QAbstractButton *key() const
    {
        return m_keyboard->findChild<QAbstractButton *>(QStringLiteral("toolButton_254"));
    }
    QLabel *label() const { return m_keyboard->findChild<QLabel *>(QStringLiteral("label_200")); }
};

void tst_LeftKeyboardFrame::identityIsTheLeftHalfs()
{
    QCOMPARE(m_keyboard->displayName(), QStringLiteral("Left keyboard"));
    QCOMPARE(m_keyboard->keyboardId(), Ovo::Utils::Id::fromString(QStringLiteral("K7_Left_Keyboard")));
    QCOMPARE(m_keyboard->property("contentFrame"), QVariant(true));
}

void tst_LeftKeyboardFrame::sizesAreTheConsoles()
{
    QCOMPARE(m_keyboard->size(), QSize(949, 826));
    QCOMPARE(m_keyboard->minimumHeight(), 826);
    QCOMPARE(m_keyboard->maximumHeight(), 848);
    QCOMPARE(m_keyboard->frameShape(), QFrame::StyledPanel);
    QCOMPARE(m_keyboard->frameShadow(), QFrame::Raised);
    QCOMPARE(m_keyboard->layout()->contentsMargins(), QMargins());
    QCOMPARE(m_keyboard->layout()->spacing(), 6);
}

void tst_LeftKeyboardFrame::sectionsStandInRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("section");
    QTest::addColumn<int>("expectedHeight");
    QTest::newRow("screen") << 0 << "horizontalLayout_4"
                            << "screenKeyboardFrame" << 174;
    QTest::newRow("layer") << 1 << "horizontalLayout_3"
                           << "layerKeyboardframe" << 174;
    QTest::newRow("input") << 2 << "horizontalLayout"
                           << "inputKeyboardFrame" << 174;
    QTest::newRow("preset") << 3 << "horizontalLayout_2"
                            << "presetKeyboardFrame" << 298;
}

void tst_LeftKeyboardFrame::sectionsStandInRows()
{
    QFETCH(int, row);
    QFETCH(QString, layout);
    QFETCH(QString, section);
    QFETCH(int, expectedHeight);

    QCOMPARE(m_keyboard->layout()->count(), 4);
    QLayout *line = m_keyboard->layout()->itemAt(row)->layout();
    QVERIFY(line);
    QCOMPARE(line->objectName(), layout);
    QCOMPARE(line->spacing(), 0);
    QCOMPARE(line->count(), 2);
    QVERIFY(line->itemAt(1)->spacerItem());

    const auto *frame = qobject_cast<QFrame *>(line->itemAt(0)->widget());
    QVERIFY(frame);
    QCOMPARE(frame->objectName(), section);
    QCOMPARE(frame->minimumHeight(), expectedHeight);
    QCOMPARE(frame->maximumSize(), QSize(QWIDGETSIZE_MAX, expectedHeight));
    QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
    QCOMPARE(frame->frameShadow(), QFrame::Raised);

    m_keyboard->resize(m_keyboard->sizeHint());
    m_keyboard->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_keyboard.get()));
    QCOMPARE(frame->height(), expectedHeight);
    QVERIFY(frame->width() >= 1754);
    QVERIFY(m_keyboard->rect().contains(frame->geometry()));
}

void tst_LeftKeyboardFrame::columnsStandOneBelowTheOther()
{
    m_keyboard->resize(m_keyboard->sizeHint());
    QVERIFY(show());
    // The sixteen ordinary keys of each row, and of both rows of presets.
    QHash<int, QSet<int>> centers;
    int ordinary = 0;
    for (const ConsolePart &part : parts()) {
        if (part.fact.value(QStringLiteral("entry")) == QLatin1String("-"))
            continue;
        ++ordinary;
        centers[part.column()] << part.placeIn(m_keyboard.get()).center().x();
    }
    QCOMPARE(ordinary, 5 * 16);
    QCOMPARE(centers.size(), 16);
    for (const QSet<int> &column : qAsConst(centers)) {
        const auto ends = std::minmax_element(column.cbegin(), column.cend());
        QVERIFY2(*ends.second - *ends.first <= 2, qPrintable(QString::number(*ends.first)));
    }
}

void tst_LeftKeyboardFrame::aPressMayBeAnsweredAtOnce()
{
    connect(m_keyboard.get(), &IKorvoECKeyboard::ecButtonPressed, this, [this] {
        m_keyboard->updateECButtonColor(colorRecord(38, 255, 0, 0));
        m_keyboard->updateECOledText(textRecord(14, "CAM 3"));
    });
    QTest::mousePress(key(), Qt::LeftButton);
    QVERIFY(key()->styleSheet().contains(QLatin1String("ecbutton_red")));
    QCOMPARE(label()->text(), QStringLiteral("CAM 3"));
    QVERIFY(key()->isDown());
    QTest::mouseRelease(key(), Qt::LeftButton);
    QVERIFY(!key()->isDown());
}

void tst_LeftKeyboardFrame::aHeldKeyIsReleasedWhileTheHalfIsStillOne()
{
    m_keyboard->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_keyboard.get()));
    IKorvoECKeyboard *half = m_keyboard.get();
    QStringList names;
    connect(half, &IKorvoECKeyboard::ecButtonRelease, this, [half, told = &names] {
        *told << half->displayName();
        half->updateECButtonColor(colorRecord(38, 255, 0, 0));
    });
    QTest::mousePress(key(), Qt::LeftButton);
    m_keyboard.reset();
    QCOMPARE(names, QStringList{QStringLiteral("Left keyboard")});
}

void tst_LeftKeyboardFrame::resultsAreFixed()
{
    QVERIFY(m_keyboard->updateECButtonColor(colorRecord(38, 255, 0, 0)));
    QVERIFY(m_keyboard->updateECButtonColor(colorRecord(9999, 255, 0, 0)));
    QVERIFY(m_keyboard->updateECButtonColor(nullptr));
    QVERIFY(m_keyboard->updateECOledText(textRecord(9999, "nowhere")));
    QVERIFY(m_keyboard->updateECOledText(nullptr));
    QVERIFY(m_keyboard->updateTBarValue(std::make_shared<ECTBarValue>()));
    QVERIFY(m_keyboard->updateTBarValue(nullptr));
    m_keyboard->updateECDeviceIP(nullptr);
    m_keyboard->updateDVISignalStatus(nullptr);
    m_keyboard->updatePeripheralVisibleState(nullptr);
}

void tst_LeftKeyboardFrame::recordsOfTheOtherHalfChangeNothing()
{
    m_keyboard->applyNoramlStyleSheet();
    const QImage before = m_keyboard->grab().toImage();
    QVERIFY(m_keyboard->updateECButtonColor(colorRecord(106, 255, 0, 0)));
    QVERIFY(m_keyboard->updateECOledText(textRecord(95, "TIME")));
    QVERIFY(m_keyboard->updateTBarValue(std::make_shared<ECTBarValue>()));
    QCOMPARE(m_keyboard->grab().toImage(), before);
}

void tst_LeftKeyboardFrame::updateKeyboardAnnouncesTheModeChange()
{
    QSignalSpy changed(m_keyboard.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged);
    QVERIFY(m_keyboard->updateKeyboard());
    QCOMPARE(changed.size(), 1);
}

void tst_LeftKeyboardFrame::recordsFromAnotherThreadArriveInOrderOnTheGuiThread()
{
    QSignalSpy changed(m_keyboard.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged);
    runElsewhere([this] {
        for (int i = 0; i < 50; ++i) {
            m_keyboard->updateECButtonColor(colorRecord(38, 255, 0, 0));
            m_keyboard->updateECOledText(textRecord(14, QByteArray::number(i)));
        }
        m_keyboard->updateECButtonColor(colorRecord(38, 0, 255, 0));
        m_keyboard->updateKeyboard();
    });
    QCOMPARE(label()->text(), QString());
    QCOMPARE(changed.size(), 0);

    QCoreApplication::processEvents();
    QCOMPARE(label()->text(), QStringLiteral("49"));
    QVERIFY(key()->styleSheet().contains(QLatin1String("ecbutton_green")));
    QCOMPARE(changed.size(), 1);
}

void tst_LeftKeyboardFrame::recordsOnTheWayToADeletedHalfAreDropped()
{
    const auto record = colorRecord(38, 255, 0, 0);
    runElsewhere([this, record] { m_keyboard->updateECButtonColor(record); });
    QVERIFY(record.use_count() > 1);
    m_keyboard.reset();
    QCoreApplication::processEvents();
    QCOMPARE(record.use_count(), 1L);
}

QTEST_MAIN(tst_LeftKeyboardFrame)

#include "tst_leftkeyboardframe.moc"
