// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "rightkeyboardframe.h"

#include "support.h"

#include <QBoxLayout>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace Korvo;
using Korvo::ECKeyboard::K7::RightKeyboardFrame;

class tst_RightKeyboardFrame : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void identityIsTheRightHalfs();
    void innerFramesAreMarked();
    void sizesAreTheConsoles_data();
    void sizesAreTheConsoles();
    void sectionsStandWhereTheConsoleHasThem();
    void layoutsNestAsTheConsoleHasThem();
    void resultsAreFixed();
    void updateKeyboardAnnouncesTheModeChangeAndSaysFalse();
    void aCallFromAnotherThreadAnnouncesOnTheGuiThread();

private:
    QFrame *frame(const char *name) const { return m_half->findChild<QFrame *>(QLatin1String(name)); }
    QRect place(const char *name) const
    {
        return QRect(frame(name)->mapTo(m_half.get(), QPoint()), frame(name)->size());
    }

    LivePlugin m_live;
    std::unique_ptr<RightKeyboardFrame> m_half;
};

void tst_RightKeyboardFrame::init()
{
    m_half = std::make_unique<RightKeyboardFrame>(nullptr);
}

void tst_RightKeyboardFrame::cleanup()
{
    m_half.reset();
}

void tst_RightKeyboardFrame::identityIsTheRightHalfs()
{
    QCOMPARE(m_half->displayName(), QStringLiteral("Right keyboard"));
    QCOMPARE(m_half->keyboardId(), Ovo::Utils::Id::fromString(QStringLiteral("K7_Right_Keyboard")));
    QCOMPARE(m_half->size(), QSize(1719, 1050));
    QCOMPARE(m_half->minimumHeight(), 1026);
    QCOMPARE(m_half->frameShape(), QFrame::StyledPanel);
    QCOMPARE(m_half->frameShadow(), QFrame::Raised);
}

void tst_RightKeyboardFrame::innerFramesAreMarked()
{
    QCOMPARE(m_half->property("contentFrame"), QVariant(true));
    QStringList marked;
    const QList<QFrame *> frames = m_half->findChildren<QFrame *>();
    for (const QFrame *child : frames) {
        if (child->property("contentFrame") == QVariant(true))
            marked << child->objectName();
    }
    marked.sort();
    for (const char *name : {"frame_6", "tBarFrame", "transitionFrame"})
        QVERIFY2(marked.contains(QLatin1String(name)), name);
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
    m_half->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_half.get()));
    QCOMPARE(m_half->size(), QSize(1719, 1050));

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
    QVERIFY(m_half->rect().contains(strip));
}

void tst_RightKeyboardFrame::layoutsNestAsTheConsoleHasThem()
{
    const auto parentOf = [this](const char *name) {
        const auto *layout = m_half->findChild<QLayout *>(QLatin1String(name));
        return layout && layout->parent() ? layout->parent()->objectName() : QString();
    };
    QCOMPARE(m_half->layout()->objectName(), QStringLiteral("verticalLayout_2"));
    QCOMPARE(parentOf("horizontalLayout_13"), QStringLiteral("verticalLayout_2"));
    QCOMPARE(parentOf("verticalLayout_12"), QStringLiteral("horizontalLayout_13"));
    QCOMPARE(parentOf("verticalLayout_13"), QStringLiteral("horizontalLayout_13"));
    QCOMPARE(parentOf("horizontalLayout_3"), QStringLiteral("verticalLayout_12"));
    QCOMPARE(parentOf("horizontalLayout"), QStringLiteral("horizontalLayout_3"));
    QCOMPARE(parentOf("horizontalLayout_5"), QStringLiteral("verticalLayout_12"));
    QCOMPARE(parentOf("horizontalLayout_4"), QStringLiteral("horizontalLayout_5"));
    QCOMPARE(parentOf("horizontalLayout_2"), QStringLiteral("horizontalLayout_4"));
    QCOMPARE(parentOf("verticalLayout"), QStringLiteral("horizontalLayout_2"));

    const auto *numbers = m_half->findChild<QBoxLayout *>(QStringLiteral("horizontalLayout"));
    QCOMPARE(numbers->spacing(), 80);
    QCOMPARE(numbers->contentsMargins().left(), 162);
    QCOMPARE(m_half->findChild<QBoxLayout *>(QStringLiteral("horizontalLayout_4"))->spacing(), 50);

    const auto *halves = m_half->findChild<QBoxLayout *>(QStringLiteral("horizontalLayout_13"));
    QCOMPARE(halves->count(), 3);
    QVERIFY(halves->itemAt(1)->spacerItem());
    QCOMPARE(halves->itemAt(1)->sizeHint(), QSize(40, 20));
    QVERIFY(halves->itemAt(1)->expandingDirections() & Qt::Horizontal);
}

void tst_RightKeyboardFrame::resultsAreFixed()
{
    QVERIFY(m_half->updateECButtonColor(colorRecord(106, 255, 0, 0)));
    QVERIFY(m_half->updateECButtonColor(nullptr));
    QVERIFY(m_half->updateECOledText(textRecord(95, "TIME")));
    QVERIFY(m_half->updateECOledText(nullptr));
    QVERIFY(m_half->updateTBarValue(std::make_shared<ECTBarValue>()));
    QVERIFY(m_half->updateTBarValue(nullptr));
    m_half->applyNoramlStyleSheet();
    m_half->updateECDeviceIP(nullptr);
    m_half->updateDVISignalStatus(nullptr);
    m_half->updatePeripheralVisibleState(nullptr);
}

void tst_RightKeyboardFrame::updateKeyboardAnnouncesTheModeChangeAndSaysFalse()
{
    QSignalSpy changed(m_half.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged);
    QVERIFY(!m_half->updateKeyboard());
    QCOMPARE(changed.size(), 1);
}

void tst_RightKeyboardFrame::aCallFromAnotherThreadAnnouncesOnTheGuiThread()
{
    QThread *announcedOn = nullptr;
    connect(
        m_half.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged, this,
        [told = &announcedOn] { *told = QThread::currentThread(); }, Qt::DirectConnection);
    runElsewhere([this] { QVERIFY(!m_half->updateKeyboard()); });
    QVERIFY(!announcedOn);
    QTRY_COMPARE(announcedOn, QThread::currentThread());
}

QTEST_MAIN(tst_RightKeyboardFrame)

#include "tst_rightkeyboardframe.moc"
