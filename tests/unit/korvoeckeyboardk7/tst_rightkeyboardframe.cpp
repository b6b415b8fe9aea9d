// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "rightkeyboardframe.h"

#include "consolefloatwidget.h"
#include "halftests.h"
#include "logokeyboardframe.h"

#include <korvo/widgets/tbar.h>

#include <QBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <algorithm>

using namespace Korvo;
using Korvo::ECKeyboard::K7::LogoKeyboardFrame;
using Korvo::ECKeyboard::K7::RightKeyboardFrame;
using Korvo::Internal::ConsoleFloatWidget;

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
    void theStripFillsItsPlace();
    void everySignalOfTheStripIsRelayed_data();
    void everySignalOfTheStripIsRelayed();
    void aHandOnThePanelReachesTheHost();
    void theModeChangeMayEndTheStrip();
    void recordsReachTheStrip_data();
    void recordsReachTheStrip();
    void theNormalStyleLeavesTheStrip();
    void nothingOfTheStripIsAKey();
    void theWidgetsAreNotPolishedBeforeTheHalf();

protected:
    std::unique_ptr<IKorvoECKeyboard> create() override
    {
        return std::make_unique<RightKeyboardFrame>(nullptr);
    }

private:
    QFrame *frame(const char *name) const { return m_keyboard->findChild<QFrame *>(QLatin1String(name)); }
    LogoKeyboardFrame *strip() const { return m_keyboard->findChild<LogoKeyboardFrame *>(); }
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
    QStringList marked;
    const QList<QFrame *> frames = m_keyboard->findChildren<QFrame *>();
    for (const QFrame *child : frames) {
        if (child->property("contentFrame") == QVariant(true))
            marked << child->objectName();
    }
    marked.sort();
    // The sections, the strip and the settings panel mark themselves.
    QStringList expected{
        QStringLiteral("frame_6"),          QStringLiteral("frametrans"), QStringLiteral("functionFrame"),
        QStringLiteral("numberFrame"),      QStringLiteral("tBarFrame"),  QStringLiteral("transitionFrame"),
        QStringLiteral("logoFrame"),        QStringLiteral("frame_4"),    QStringLiteral("frame_5"),
        QStringLiteral("frame_8"),          QStringLiteral("frame_2"),    QStringLiteral("frame_3"),
        QStringLiteral("screenButtonFrame")};
    expected.sort();
    QCOMPARE(marked, expected);
    // The strip has a frame of that name too, which is none of them.
    for (const QFrame *child : frames) {
        if (child->objectName() == QLatin1String("frame_6"))
            QCOMPARE(child->property("contentFrame").isValid(), !frame("logoFrame")->isAncestorOf(child));
    }
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

void tst_RightKeyboardFrame::theStripFillsItsPlace()
{
    QVERIFY(strip());
    QCOMPARE(strip()->objectName(), QStringLiteral("logoFrame"));
    const auto *column = m_keyboard->findChild<QBoxLayout *>(QStringLiteral("verticalLayout_13"));
    QVERIFY(column);
    QCOMPARE(column->count(), 1);
    QCOMPARE(column->itemAt(0)->widget(), strip());
    QVERIFY(show());
    QCOMPARE(strip()->size(), QSize(950, 1026));
    QVERIFY(find(strip(), "scrollArea")->isVisible());
}

void tst_RightKeyboardFrame::everySignalOfTheStripIsRelayed_data()
{
    QTest::addColumn<QByteArray>("name");
    const QList<QByteArray> names = signalsOf(LogoKeyboardFrame::staticMetaObject).keys();
    for (const QByteArray &name : names)
        QTest::newRow(name.constData()) << name;
    QCOMPARE(names.size(), 11);
}

void tst_RightKeyboardFrame::everySignalOfTheStripIsRelayed()
{
    QFETCH(QByteArray, name);
    SignalNotes told(m_keyboard.get(), &IKorvoECKeyboard::staticMetaObject);
    const QString arguments = emitSample(strip(), signalsOf(LogoKeyboardFrame::staticMetaObject).value(name));
    QCOMPARE(told.take(), QStringList{QLatin1String(name) + arguments});
}

void tst_RightKeyboardFrame::aHandOnThePanelReachesTheHost()
{
    QVERIFY(show());
    SignalNotes told(m_keyboard.get(), &IKorvoECKeyboard::staticMetaObject);
    QTest::mouseClick(find(strip(), "switch_logo"), Qt::LeftButton);
    QCOMPARE(told.take(), QStringList{QStringLiteral("signalLogoLightStatusChanged(false, 15)")});
    QCOMPARE(m_sent, QStringList());
}

void tst_RightKeyboardFrame::theModeChangeMayEndTheStrip()
{
    // The strip is entered after the mode change is announced, and so is not there by then.
    connect(m_keyboard.get(), &IKorvoECKeyboard::signalKorvoPluginModeChanged, this,
            [this] { delete strip(); });
    QVERIFY(!m_keyboard->updateKeyboard());
    QVERIFY(!strip());
}

void tst_RightKeyboardFrame::recordsReachTheStrip_data()
{
    QTest::addColumn<bool>("isElsewhere");
    QTest::newRow("from the GUI thread") << false;
    QTest::newRow("from another thread") << true;
}

void tst_RightKeyboardFrame::recordsReachTheStrip()
{
    QFETCH(bool, isElsewhere);
    auto address = std::make_shared<ECDeviceIPData>();
    address->Index = 1;
    address->Status = 1;
    address->IP = 0x0d01a8c0;
    auto input = std::make_shared<DVIInSignal>();
    input->Index = 1;
    input->Signal = 1;
    const auto screens = std::make_shared<PeripheralControlVisibleState>();
    const auto handIn = [&] {
        m_keyboard->updateECDeviceIP(address);
        m_keyboard->updateDVISignalStatus(input);
        m_keyboard->updatePeripheralVisibleState(screens);
        m_keyboard->updateDVISignalStatus(nullptr);
        m_keyboard->updatePeripheralVisibleState(nullptr);
    };
    const auto *text = find<QLabel>(strip(), "label_5");
    const auto *apply = find(strip(), "peripheralApply");
    const auto secondInput = [this] { return find(strip(), "label_in2")->property("in2Status"); };
    QVERIFY(!apply->isHidden());

    m_keyboard->findChild<ConsoleFloatWidget *>()->slotRefreshNetStatus();
    if (isElsewhere) {
        runElsewhere(handIn);
        QCOMPARE(secondInput(), QVariant(true));
        QVERIFY(!apply->isHidden());
        QCoreApplication::processEvents();
    } else {
        handIn();
    }
    QCOMPARE(text->text(), QStringLiteral("192.168.1.13"));
    QCOMPARE(secondInput(), QVariant(false));
    QVERIFY(apply->isHidden());
}

void tst_RightKeyboardFrame::theNormalStyleLeavesTheStrip()
{
    QVERIFY(show());
    const auto styleSheets = [this] {
        QStringList all;
        const QList<QWidget *> widgets = strip()->findChildren<QWidget *>();
        for (const QWidget *widget : widgets)
            all << widget->styleSheet();
        return all;
    };
    const QStringList before = styleSheets();
    QVERIFY(!before.isEmpty());
    m_keyboard->applyNoramlStyleSheet();
    m_keyboard->updateECButtonColor(colorRecord(255, 255, 0, 0));
    QCOMPARE(styleSheets(), before);
}

void tst_RightKeyboardFrame::nothingOfTheStripIsAKey()
{
    const QList<QWidget *> widgets = strip()->findChildren<QWidget *>();
    for (const QWidget *widget : widgets)
        QVERIFY2(!widget->property("KorvoECKey").isValid(), qPrintable(widget->objectName()));
}

// What is polished before would be polished anew when a host gives the half a place.
void tst_RightKeyboardFrame::theWidgetsAreNotPolishedBeforeTheHalf()
{
    const auto isPolished = [](const QWidget *widget) {
        return widget->testAttribute(Qt::WA_WState_Polished);
    };
    const QList<QWidget *> widgets = m_keyboard->findChildren<QWidget *>();
    QVERIFY(widgets.size() > 200);
    QStringList early;
    for (const QWidget *widget : widgets) {
        // Scroll areas ask their bars for sizes themselves.
        if (isPolished(widget) && !qobject_cast<const QScrollBar *>(widget))
            early << QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') +
                         widget->objectName();
    }
    QCOMPARE(early.join(QLatin1Char(' ')), QString());

    m_keyboard->ensurePolished();
    QVERIFY(std::all_of(widgets.cbegin(), widgets.cend(), isPolished));
}

QTEST_MAIN(tst_RightKeyboardFrame)

#include "tst_rightkeyboardframe.moc"
