// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "leftkeyboardframe.h"

#include "support.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QSignalSpy>
#include <QTest>

using namespace Korvo;
using Korvo::ECKeyboard::K7::LeftKeyboardFrame;

class tst_LeftKeyboardFrame : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void identityIsTheLeftHalfs();
    void sizesAreTheConsoles();
    void sectionsStandInRows_data();
    void sectionsStandInRows();
    void keysAreRelayed();
    void aPressMayBeAnsweredAtOnce();
    void aHeldKeyIsReleasedWhileTheHalfIsStillOne();
    void normalStyleReachesTheSections();
    void recordsReachTheSectionThatKnowsThem();
    void resultsAreFixed();
    void recordsOfTheOtherHalfChangeNothing();
    void updateKeyboardAnnouncesTheModeChange();
    void recordsFromAnotherThreadArriveInOrderOnTheGuiThread();
    void recordsOnTheWayToADeletedHalfAreDropped();

private:
    QAbstractButton *key() const
    {
        return m_half->findChild<QAbstractButton *>(QStringLiteral("toolButton_254"));
    }
    QLabel *label() const { return m_half->findChild<QLabel *>(QStringLiteral("label_200")); }

    LivePlugin m_live;
    std::unique_ptr<LeftKeyboardFrame> m_half;
};

void tst_LeftKeyboardFrame::init()
{
    m_half = std::make_unique<LeftKeyboardFrame>(nullptr);
}

void tst_LeftKeyboardFrame::cleanup()
{
    m_half.reset();
}

void tst_LeftKeyboardFrame::identityIsTheLeftHalfs()
{
    QCOMPARE(m_half->displayName(), QStringLiteral("Left keyboard"));
    QCOMPARE(m_half->keyboardId(), Ovo::Utils::Id::fromString(QStringLiteral("K7_Left_Keyboard")));
    QCOMPARE(m_half->property("contentFrame"), QVariant(true));
}

void tst_LeftKeyboardFrame::sizesAreTheConsoles()
{
    QCOMPARE(m_half->size(), QSize(949, 826));
    QCOMPARE(m_half->minimumHeight(), 826);
    QCOMPARE(m_half->maximumHeight(), 848);
    QCOMPARE(m_half->frameShape(), QFrame::StyledPanel);
    QCOMPARE(m_half->frameShadow(), QFrame::Raised);
    QCOMPARE(m_half->layout()->contentsMargins(), QMargins());
    QCOMPARE(m_half->layout()->spacing(), 6);
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

    QCOMPARE(m_half->layout()->count(), 4);
    QLayout *line = m_half->layout()->itemAt(row)->layout();
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

    m_half->resize(m_half->sizeHint());
    m_half->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_half.get()));
    QCOMPARE(frame->height(), expectedHeight);
    QVERIFY(frame->width() >= 1754);
    QVERIFY(m_half->rect().contains(frame->geometry()));
}

void tst_LeftKeyboardFrame::keysAreRelayed()
{
    QSignalSpy pressed(m_half.get(), &IKorvoECKeyboard::ecButtonPressed);
    QSignalSpy released(m_half.get(), &IKorvoECKeyboard::ecButtonRelease);
    QTest::mousePress(key(), Qt::LeftButton);
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(pressed.first().first().toUInt(), 0xff0026u);
    QCOMPARE(released.size(), 0);
    QTest::mouseRelease(key(), Qt::LeftButton);
    QCOMPARE(pressed.size(), 1);
    QCOMPARE(released.size(), 1);
    QCOMPARE(released.first().first().toUInt(), 0xff0026u);
}

void tst_LeftKeyboardFrame::aPressMayBeAnsweredAtOnce()
{
    connect(m_half.get(), &IKorvoECKeyboard::ecButtonPressed, this, [this] {
        m_half->updateECButtonColor(colorRecord(38, 255, 0, 0));
        m_half->updateECOledText(textRecord(14, "CAM 3"));
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
    m_half->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_half.get()));
    IKorvoECKeyboard *half = m_half.get();
    QStringList names;
    connect(half, &IKorvoECKeyboard::ecButtonRelease, this, [half, told = &names] {
        *told << half->displayName();
        half->updateECButtonColor(colorRecord(38, 255, 0, 0));
    });
    QTest::mousePress(key(), Qt::LeftButton);
    m_half.reset();
    QCOMPARE(names, QStringList{QStringLiteral("Left keyboard")});
}

void tst_LeftKeyboardFrame::normalStyleReachesTheSections()
{
    m_half->applyNoramlStyleSheet();
    QVERIFY(key()->styleSheet().contains(QLatin1String("ecbutton_white")));
}

void tst_LeftKeyboardFrame::recordsReachTheSectionThatKnowsThem()
{
    m_half->updateECButtonColor(colorRecord(38, 255, 0, 0));
    QVERIFY(key()->styleSheet().contains(QLatin1String("ecbutton_red")));
    m_half->updateECOledText(textRecord(14, "CAM 3"));
    QCOMPARE(label()->text(), QStringLiteral("CAM 3"));
}

void tst_LeftKeyboardFrame::resultsAreFixed()
{
    QVERIFY(m_half->updateECButtonColor(colorRecord(38, 255, 0, 0)));
    QVERIFY(m_half->updateECButtonColor(colorRecord(9999, 255, 0, 0)));
    QVERIFY(m_half->updateECButtonColor(nullptr));
    QVERIFY(m_half->updateECOledText(textRecord(9999, "nowhere")));
    QVERIFY(m_half->updateECOledText(nullptr));
    QVERIFY(m_half->updateTBarValue(std::make_shared<ECTBarValue>()));
    QVERIFY(m_half->updateTBarValue(nullptr));
    m_half->updateECDeviceIP(nullptr);
    m_half->updateDVISignalStatus(nullptr);
    m_half->updatePeripheralVisibleState(nullptr);
}

void tst_LeftKeyboardFrame::recordsOfTheOtherHalfChangeNothing()
{
    m_half->applyNoramlStyleSheet();
    const QImage before = m_half->grab().toImage();
    QVERIFY(m_half->updateECButtonColor(colorRecord(106, 255, 0, 0)));
    QVERIFY(m_half->updateECOledText(textRecord(95, "TIME")));
    QVERIFY(m_half->updateTBarValue(std::make_shared<ECTBarValue>()));
    QCOMPARE(m_half->grab().toImage(), before);
}

void tst_LeftKeyboardFrame::updateKeyboardAnnouncesTheModeChange()
{
    QSignalSpy changed(m_half.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged);
    QVERIFY(m_half->updateKeyboard());
    QCOMPARE(changed.size(), 1);
}

void tst_LeftKeyboardFrame::recordsFromAnotherThreadArriveInOrderOnTheGuiThread()
{
    QSignalSpy changed(m_half.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged);
    runElsewhere([this] {
        for (int i = 0; i < 50; ++i) {
            m_half->updateECButtonColor(colorRecord(38, 255, 0, 0));
            m_half->updateECOledText(textRecord(14, QByteArray::number(i)));
        }
        m_half->updateECButtonColor(colorRecord(38, 0, 255, 0));
        m_half->updateKeyboard();
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
    runElsewhere([this, record] { m_half->updateECButtonColor(record); });
    QVERIFY(record.use_count() > 1);
    m_half.reset();
    QCoreApplication::processEvents();
    QCOMPARE(record.use_count(), 1L);
}

QTEST_MAIN(tst_LeftKeyboardFrame)

#include "tst_leftkeyboardframe.moc"
