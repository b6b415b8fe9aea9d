// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "rightkeyboardframe.h"

#include "halftests.h"

#include <korvo/widgets/tbar.h>

#include <QBoxLayout>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace Korvo;
using Korvo::ECKeyboard::K7::RightKeyboardFrame;

class tst_RightKeyboardFrame : public HalfTests
{
    Q_OBJECT

public:
    tst_RightKeyboardFrame()
        : HalfTests(rightSections(), 32, 9)
    {
    }

private slots:
    void identityIsTheRightHalfs();
    void innerFramesAreMarked();
    void sizesAreTheConsoles_data();
    void sizesAreTheConsoles();
    void sectionsStandWhereTheConsoleHasThem();
    void layoutsNestAsTheConsoleHasThem();
    void aRecordMovesTheLever();
    void aLeverThatMovesIsRelayedOnce();
    void resultsAreFixed();
    void updateKeyboardAnnouncesTheModeChangeAndSaysFalse();
    void aCallFromAnotherThreadAnnouncesOnTheGuiThread();

protected:
    std::unique_ptr<IKorvoECKeyboard> create() override
    {
        return std::make_unique<RightKeyboardFrame>(nullptr);
    }

private:
    QFrame *frame(const char *name) const { return m_keyboard->findChild<QFrame *>(QLatin1String(name)); }
    Widgets::tbar *lever() const { return m_keyboard->findChild<Widgets::tbar *>(); }
    QRect place(const char *name) const
    {
        return QRect(frame(name)->mapTo(m_keyboard.get(), QPoint()), frame(name)->size());
    }
};

void tst_RightKeyboardFrame::identityIsTheRightHalfs()
{
    QCOMPARE(m_keyboard->displayName(), QStringLiteral("Right keyboard"));
    QCOMPARE(m_keyboard->keyboardId(), Ovo::Utils::Id::fromString(QStringLiteral("K7_Right_Keyboard")));
    QCOMPARE(m_keyboard->size(), QSize(1719, 1050));
    QCOMPARE(m_keyboard->minimumHeight(), 1026);
    QCOMPARE(m_keyboard->frameShape(), QFrame::StyledPanel);
    QCOMPARE(m_keyboard->frameShadow(), QFrame::Raised);
}

void tst_RightKeyboardFrame::innerFramesAreMarked()
{
    QCOMPARE(m_keyboard->property("contentFrame"), QVariant(true));
    const QFrame *strip = frame("logoFrame");
    QStringList marked;
    const QList<QFrame *> frames = m_keyboard->findChildren<QFrame *>();
    for (const QFrame *child : frames) {
        const bool isOfStrip = child == strip || strip->isAncestorOf(child);
        if (!isOfStrip && child->property("contentFrame") == QVariant(true))
            marked << child->objectName();
    }
    marked.sort();
    // The sections mark themselves.
    QCOMPARE(marked, (QStringList{QStringLiteral("frame_6"), QStringLiteral("frametrans"),
                                  QStringLiteral("functionFrame"), QStringLiteral("numberFrame"),
                                  QStringLiteral("tBarFrame"), QStringLiteral("transitionFrame")}));
}

void tst_RightKeyboardFrame::sizesAreTheConsoles_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QSize>("expectedMinimum");
    QTest::addColumn<QSize>("expectedMaximum");
    QTest::newRow("number") << QByteArray("numberFrame") << QSize(230, 380) << QSize(230, 380);
    QTest::newRow("function") << QByteArray("functionFrame") << QSize(250, 400) << QSize(250, 400);
    QTest::newRow("T-bar") << QByteArray("tBarFrame") << QSize(152, 380) << QSize(152, QWIDGETSIZE_MAX);
    QTest::newRow("transition") << QByteArray("transitionFrame") << QSize(256, 270) << QSize(256, 270);
    QTest::newRow("status strip") << QByteArray("logoFrame") << QSize(950, 1026) << QSize(950, 1026);
}

void tst_RightKeyboardFrame::sizesAreTheConsoles()
{
    QFETCH(QByteArray, name);
    QFETCH(QSize, expectedMinimum);
    QFETCH(QSize, expectedMaximum);
    QCOMPARE(frame(name.constData())->minimumSize(), expectedMinimum);
    QCOMPARE(frame(name.constData())->maximumSize(), expectedMaximum);
}

void tst_RightKeyboardFrame::sectionsStandWhereTheConsoleHasThem()
{
    m_keyboard->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_keyboard.get()));
    QCOMPARE(m_keyboard->size(), QSize(1719, 1050));

    const QRect number = place("numberFrame");
    const QRect function = place("functionFrame");
    QVERIFY(number.x() >= 162);
    QCOMPARE(function.x() - (number.right() + 1), 80);

    const QRect lever = place("tBarFrame");
    const QRect above = place("frame_6");
    const QRect transition = place("transitionFrame");
    QVERIFY(lever.y() > number.bottom());
    QVERIFY(above.x() > lever.right());
    QCOMPARE(above.x(), transition.x());
    QVERIFY(transition.y() > above.bottom());
    QCOMPARE(transition.bottom(), lever.bottom());

    const QRect strip = place("logoFrame");
    QVERIFY(strip.x() > function.right());
    QVERIFY(strip.x() > transition.right());
    QVERIFY(m_keyboard->rect().contains(strip));
}

void tst_RightKeyboardFrame::layoutsNestAsTheConsoleHasThem()
{
    const auto parentOf = [this](const char *name) {
        const auto *layout = m_keyboard->findChild<QLayout *>(QLatin1String(name));
        return layout && layout->parent() ? layout->parent()->objectName() : QString();
    };
    QCOMPARE(m_keyboard->layout()->objectName(), QStringLiteral("verticalLayout_2"));
    QCOMPARE(parentOf("horizontalLayout_13"), QStringLiteral("verticalLayout_2"));
    QCOMPARE(parentOf("verticalLayout_12"), QStringLiteral("horizontalLayout_13"));
    QCOMPARE(parentOf("verticalLayout_13"), QStringLiteral("horizontalLayout_13"));
    QCOMPARE(parentOf("horizontalLayout_3"), QStringLiteral("verticalLayout_12"));
    QCOMPARE(parentOf("horizontalLayout"), QStringLiteral("horizontalLayout_3"));
    QCOMPARE(parentOf("horizontalLayout_5"), QStringLiteral("verticalLayout_12"));
    QCOMPARE(parentOf("horizontalLayout_4"), QStringLiteral("horizontalLayout_5"));
    QCOMPARE(parentOf("horizontalLayout_2"), QStringLiteral("horizontalLayout_4"));
    QCOMPARE(parentOf("verticalLayout"), QStringLiteral("horizontalLayout_2"));

    const auto *numbers = m_keyboard->findChild<QBoxLayout *>(QStringLiteral("horizontalLayout"));
    QCOMPARE(numbers->spacing(), 80);
    QCOMPARE(numbers->contentsMargins().left(), 162);
    QCOMPARE(m_keyboard->findChild<QBoxLayout *>(QStringLiteral("horizontalLayout_4"))->spacing(), 50);

    const auto *halves = m_keyboard->findChild<QBoxLayout *>(QStringLiteral("horizontalLayout_13"));
    QCOMPARE(halves->count(), 3);
    QVERIFY(halves->itemAt(1)->spacerItem());
    QCOMPARE(halves->itemAt(1)->sizeHint(), QSize(40, 20));
    QVERIFY(halves->itemAt(1)->expandingDirections() & Qt::Horizontal);
}

void tst_RightKeyboardFrame::aRecordMovesTheLever()
{
    const QStringList looks = looksOf(parts());
    const QSignalSpy moved(m_keyboard.get(), &IKorvoECKeyboard::ecTBarValueChanged);
    auto record = std::make_shared<ECTBarValue>();
    record->Value = 900;
    record->IsBottomToTop = 1;
    QVERIFY(m_keyboard->updateTBarValue(record));
    QCOMPARE(lever()->curValue(), 75.0);
    QCOMPARE(lever()->getTbarDirection(), Widgets::tbar::BottomToTop);
    QVERIFY(!lever()->isEnabled());
    QVERIFY(m_keyboard->updateTBarValue(nullptr));
    QCOMPARE(lever()->curValue(), 75.0);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(changes(looks, looksOf(parts())), QStringList());
}

void tst_RightKeyboardFrame::aLeverThatMovesIsRelayedOnce()
{
    QSignalSpy moved(m_keyboard.get(), &IKorvoECKeyboard::ecTBarValueChanged);
    lever()->setTbarDirection(Widgets::tbar::TopToBottom);
    Q_EMIT lever()->percentChanged(33.0, 0.0);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(moved.constFirst().at(0).value<quint16>(), quint16(396));
    QCOMPARE(moved.constFirst().at(1).toBool(), false);
    QCOMPARE(m_sent, QStringList());
}

void tst_RightKeyboardFrame::resultsAreFixed()
{
    QVERIFY(m_keyboard->updateECButtonColor(colorRecord(106, 255, 0, 0)));
    QVERIFY(m_keyboard->updateECButtonColor(nullptr));
    QVERIFY(m_keyboard->updateECOledText(textRecord(95, "TIME")));
    QVERIFY(m_keyboard->updateECOledText(nullptr));
    QVERIFY(m_keyboard->updateTBarValue(std::make_shared<ECTBarValue>()));
    QVERIFY(m_keyboard->updateTBarValue(nullptr));
    m_keyboard->applyNoramlStyleSheet();
    m_keyboard->updateECDeviceIP(nullptr);
    m_keyboard->updateDVISignalStatus(nullptr);
    m_keyboard->updatePeripheralVisibleState(nullptr);
}

void tst_RightKeyboardFrame::updateKeyboardAnnouncesTheModeChangeAndSaysFalse()
{
    QSignalSpy changed(m_keyboard.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged);
    QVERIFY(!m_keyboard->updateKeyboard());
    QCOMPARE(changed.size(), 1);
}

void tst_RightKeyboardFrame::aCallFromAnotherThreadAnnouncesOnTheGuiThread()
{
    QThread *announcedOn = nullptr;
    connect(
        m_keyboard.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged, this,
        [told = &announcedOn] { *told = QThread::currentThread(); }, Qt::DirectConnection);
    runElsewhere([this] { QVERIFY(!m_keyboard->updateKeyboard()); });
    QVERIFY(!announcedOn);
    QTRY_COMPARE(announcedOn, QThread::currentThread());
}

QTEST_MAIN(tst_RightKeyboardFrame)

#include "tst_rightkeyboardframe.moc"
