// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tbarkeyboadframe.h"

#include "fingers.h"
#include "support.h"

#include <korvo/widgets/tbar.h>

#include <QBoxLayout>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <limits>

using namespace Korvo;
using Korvo::ECKeyboard::K7::TBarKeyboadFrame;
using Korvo::Widgets::tbar;

namespace {

std::shared_ptr<ECTBarValue> leverRecord(quint32 value, quint8 isBottomToTop)
{
    auto record = std::make_shared<ECTBarValue>();
    record->Value = value;
    record->IsBottomToTop = isBottomToTop;
    return record;
}

/// Notes where the lever stands whenever it is enabled or disabled.
class EnablingNotes : public QObject
{
public:
    explicit EnablingNotes(tbar *lever)
        : m_lever(lever)
    {
        lever->installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::EnabledChange) {
            lines << QStringLiteral("%1 at %2, %3")
                         .arg(m_lever->isEnabled() ? QStringLiteral("on") : QStringLiteral("off"))
                         .arg(m_lever->curValue())
                         .arg(m_lever->getTbarDirection());
        }
        return false;
    }
    QStringList lines;

private:
    tbar *m_lever;
};

} // namespace

class tst_TBarKeyboadFrame : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theFrameIsTheConsoles();
    void theTitlePassesThroughTheTranslation();
    void theLeverFillsTheInnerFrame();
    void theFrameAndTheLeverAreMarked();
    void aRecordMovesTheLever_data();
    void aRecordMovesTheLever();
    void theLeverIsEnabledOnlyWhileItIsWritten();
    void aNullRecordMovesNothing();
    void aRecordThatChangesNothingCostsNothing();
    void aMissingLeverIsReported();
    void theNormalStyleChangesNothing();
    void handsDoNotMoveTheLever();
    void aMovedLeverTellsItsSteps_data();
    void aMovedLeverTellsItsSteps();
    void aLeverMovedByHandTellsItsSteps();

private:
    tbar *lever() const { return m_frame->findChild<tbar *>(); }
    QFrame *inner() const { return m_frame->findChild<QFrame *>(QStringLiteral("tbarframe")); }

    std::unique_ptr<TBarKeyboadFrame> m_frame;
};

void tst_TBarKeyboadFrame::init()
{
    m_frame = std::make_unique<TBarKeyboadFrame>(nullptr);
    QVERIFY(inner());
    QCOMPARE(m_frame->findChildren<tbar *>().size(), 1);
}

void tst_TBarKeyboadFrame::cleanup()
{
    m_frame.reset();
}

void tst_TBarKeyboadFrame::theFrameIsTheConsoles()
{
    QCOMPARE(m_frame->size(), QSize(150, 356));
    QCOMPARE(m_frame->maximumWidth(), 150);
    QCOMPARE(m_frame->frameShape(), QFrame::StyledPanel);
    QCOMPARE(m_frame->frameShadow(), QFrame::Raised);
    QCOMPARE(m_frame->windowTitle(), QStringLiteral("Frame"));
    QCOMPARE(inner()->parentWidget(), m_frame.get());
    QCOMPARE(inner()->geometry(), QRect(9, 9, 152, 380));
    QCOMPARE(inner()->minimumSize(), QSize(152, 380));
    QCOMPARE(inner()->maximumSize(), QSize(152, 380));
    QCOMPARE(inner()->frameShape(), QFrame::StyledPanel);
    QCOMPARE(inner()->frameShadow(), QFrame::Raised);
}

void tst_TBarKeyboadFrame::theTitlePassesThroughTheTranslation()
{
    struct Translator : QTranslator
    {
        QString translate(const char *context, const char *text, const char *, int) const override
        {
            const bool isTitle = qstrcmp(context, "TBarKeyboadFrame") == 0 && qstrcmp(text, "Frame") == 0;
            return isTitle ? QStringLiteral("Rahmen") : QString();
        }
        bool isEmpty() const override { return false; }
    } translator;
    QCoreApplication::installTranslator(&translator);
    const TBarKeyboadFrame translated(nullptr);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(translated.windowTitle(), QStringLiteral("Rahmen"));
}

void tst_TBarKeyboadFrame::theLeverFillsTheInnerFrame()
{
    const auto *layout = qobject_cast<QHBoxLayout *>(inner()->layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), lever());
    QVERIFY(lever()->isDirectionEnabled());
    QVERIFY(!lever()->isEnabled());

    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    QCOMPARE(lever()->geometry(), inner()->contentsRect());
}

void tst_TBarKeyboadFrame::theFrameAndTheLeverAreMarked()
{
    QCOMPARE(m_frame->property("contentFrame"), QVariant(true));
    QCOMPARE(lever()->property("contentFrame"), QVariant(true));
    QVERIFY(!inner()->property("contentFrame").isValid());
}

void tst_TBarKeyboadFrame::aRecordMovesTheLever_data()
{
    QTest::addColumn<quint32>("value");
    QTest::addColumn<quint8>("isBottomToTop");
    QTest::addColumn<double>("expectedPercent");
    QTest::addColumn<tbar::TbarDirection>("expectedDirection");
    const quint8 up = 1;
    const quint8 down = 0;
    QTest::newRow("start, up") << 0u << up << 0.0 << tbar::BottomToTop;
    QTest::newRow("start, down") << 0u << down << 0.0 << tbar::TopToBottom;
    QTest::newRow("one step") << 1u << up << 1 / 12.0 << tbar::BottomToTop;
    QTest::newRow("one percent") << 12u << down << 1.0 << tbar::TopToBottom;
    QTest::newRow("middle") << 600u << up << 50.0 << tbar::BottomToTop;
    QTest::newRow("one step before the end") << 1199u << down << 1199 / 12.0 << tbar::TopToBottom;
    QTest::newRow("end, up") << 1200u << up << 100.0 << tbar::BottomToTop;
    QTest::newRow("end, down") << 1200u << down << 100.0 << tbar::TopToBottom;
    QTest::newRow("any non-zero is up") << 300u << quint8(255) << 25.0 << tbar::BottomToTop;
    QTest::newRow("beyond the end") << 1201u << up << 100.0 << tbar::BottomToTop;
    QTest::newRow("far beyond") << std::numeric_limits<quint32>::max() << down << 100.0 << tbar::TopToBottom;
}

void tst_TBarKeyboadFrame::aRecordMovesTheLever()
{
    QFETCH(quint32, value);
    QFETCH(quint8, isBottomToTop);
    QFETCH(double, expectedPercent);
    QFETCH(tbar::TbarDirection, expectedDirection);
    const LogKeeper log; // of a value out of range
    const QSignalSpy moved(m_frame.get(), &TBarKeyboadFrame::ecTBarValueChanged);
    // From elsewhere, travelling the other way.
    QVERIFY(m_frame->updateTBarValue(leverRecord(444, isBottomToTop ? 0 : 1)));
    QCOMPARE(lever()->curValue(), 37.0);

    QVERIFY(m_frame->updateTBarValue(leverRecord(value, isBottomToTop)));
    QCOMPARE(lever()->curValue(), expectedPercent);
    QCOMPARE(lever()->getTbarDirection(), expectedDirection);
    QVERIFY(!lever()->isEnabled());
    QCOMPARE(moved.count(), 0); // what the console said is not told back to it
}

void tst_TBarKeyboadFrame::theLeverIsEnabledOnlyWhileItIsWritten()
{
    QVERIFY(m_frame->updateTBarValue(leverRecord(120, 1)));
    EnablingNotes notes(lever());
    QVERIFY(m_frame->updateTBarValue(leverRecord(600, 0)));
    QVERIFY(m_frame->updateTBarValue(leverRecord(612, 0)));
    QVERIFY(m_frame->updateTBarValue(leverRecord(612, 1)));
    QVERIFY(m_frame->updateTBarValue(leverRecord(612, 1))); // a record that changes nothing does so too
    QCOMPARE(notes.lines, (QStringList{QStringLiteral("on at 10, 0"), QStringLiteral("off at 50, 1"),
                                       QStringLiteral("on at 50, 1"), QStringLiteral("off at 51, 1"),
                                       QStringLiteral("on at 51, 1"), QStringLiteral("off at 51, 0"),
                                       QStringLiteral("on at 51, 0"), QStringLiteral("off at 51, 0")}));
}

void tst_TBarKeyboadFrame::aNullRecordMovesNothing()
{
    QVERIFY(m_frame->updateTBarValue(leverRecord(300, 1)));
    const LogKeeper log;
    QVERIFY(m_frame->updateTBarValue(nullptr));
    QCOMPARE(lever()->curValue(), 25.0);
    QCOMPARE(lever()->getTbarDirection(), tbar::BottomToTop);
    QVERIFY(!lever()->isEnabled());
    QCOMPARE(log.lines(), QStringList());
}

void tst_TBarKeyboadFrame::aRecordThatChangesNothingCostsNothing()
{
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    QVERIFY(m_frame->updateTBarValue(leverRecord(300, 1)));
    QCoreApplication::processEvents();

    WorkCounter onLever(lever());
    WorkCounter onFrame(m_frame.get());
    for (int i = 0; i < 100; ++i)
        QVERIFY(m_frame->updateTBarValue(leverRecord(300, 1)));
    QCoreApplication::processEvents();
    QCOMPARE(onLever.count, 0);
    QCOMPARE(onFrame.count, 0);

    QVERIFY(m_frame->updateTBarValue(leverRecord(301, 1)));
    QTRY_VERIFY(onLever.count > 0);
}

void tst_TBarKeyboadFrame::aMissingLeverIsReported()
{
    delete lever();
    const QSignalSpy moved(m_frame.get(), &TBarKeyboadFrame::ecTBarValueChanged);
    const LogKeeper log;
    QVERIFY(m_frame->updateTBarValue(leverRecord(300, 1)));
    QCOMPARE(log.lines(), QStringList{QStringLiteral("TBar control do not exist.")});
    m_frame->slotTbarValueChanged(50.0, 0.0);
    QCOMPARE(moved.count(), 0);
}

void tst_TBarKeyboadFrame::theNormalStyleChangesNothing()
{
    QVERIFY(m_frame->updateTBarValue(leverRecord(300, 1)));
    const QImage before = m_frame->grab().toImage();
    const QList<QByteArray> properties = lever()->dynamicPropertyNames();
    m_frame->applyNoramlStyleSheet();
    QCOMPARE(m_frame->grab().toImage(), before);
    QCOMPARE(m_frame->styleSheet(), QString());
    QCOMPARE(lever()->styleSheet(), QString());
    QCOMPARE(lever()->dynamicPropertyNames(), properties);
    QVERIFY(!lever()->isEnabled());
}

void tst_TBarKeyboadFrame::handsDoNotMoveTheLever()
{
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    QVERIFY(m_frame->updateTBarValue(leverRecord(600, 1)));
    const QSignalSpy moved(m_frame.get(), &TBarKeyboadFrame::ecTBarValueChanged);
    const QPoint middle = lever()->rect().center();
    const QPoint top(middle.x(), 20);

    QTest::mousePress(lever(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseMove(lever(), top);
    QTest::mouseRelease(lever(), Qt::LeftButton, Qt::NoModifier, top);
    QTest::mouseClick(lever(), Qt::LeftButton, Qt::NoModifier, top);
    QTest::keyClick(lever(), Qt::Key_End);
    Fingers fingers(m_frame.get());
    fingers.press(0, lever()->mapTo(m_frame.get(), middle));
    fingers.move(0, lever()->mapTo(m_frame.get(), top));
    fingers.liftAll();
    QCOMPARE(lever()->curValue(), 50.0);
    QCOMPARE(moved.count(), 0);
}

void tst_TBarKeyboadFrame::aMovedLeverTellsItsSteps_data()
{
    QTest::addColumn<double>("percent");
    QTest::addColumn<quint16>("expectedValue");
    QTest::newRow("start") << 0.0 << quint16(0);
    QTest::newRow("less than a step") << 0.08 << quint16(0);
    QTest::newRow("just over a step") << 0.084 << quint16(1);
    QTest::newRow("cut off, not rounded") << 12.33 << quint16(147);
    QTest::newRow("cut off just below") << 33.33 << quint16(399);
    QTest::newRow("middle") << 50.0 << quint16(600);
    QTest::newRow("nearly the end") << 99.99 << quint16(1199);
    QTest::newRow("end") << 100.0 << quint16(1200);
    QTest::newRow("before the start") << -1.0 << quint16(0);
    QTest::newRow("far beyond the end") << 1e300 << quint16(65535);
    QTest::newRow("no number") << qQNaN() << quint16(0);
}

void tst_TBarKeyboadFrame::aMovedLeverTellsItsSteps()
{
    QFETCH(double, percent);
    QFETCH(quint16, expectedValue);
    for (const bool isBottomToTop : {true, false}) {
        lever()->setTbarDirection(isBottomToTop ? tbar::BottomToTop : tbar::TopToBottom);
        for (const double ignored : {0.0, 77.0, -1.0}) {
            QSignalSpy moved(m_frame.get(), &TBarKeyboadFrame::ecTBarValueChanged);
            Q_EMIT lever()->percentChanged(percent, ignored);
            QCOMPARE(moved.size(), 1);
            QCOMPARE(moved.constFirst().at(0).value<quint16>(), expectedValue);
            QCOMPARE(moved.constFirst().at(1).toBool(), isBottomToTop);
        }
    }

    // Hosts may call the slot by name.
    const QSignalSpy moved(m_frame.get(), &TBarKeyboadFrame::ecTBarValueChanged);
    QVERIFY(QMetaObject::invokeMethod(m_frame.get(), "slotTbarValueChanged", Q_ARG(double, percent),
                                      Q_ARG(double, 0.0)));
    QCOMPARE(moved.size(), 1);
}

void tst_TBarKeyboadFrame::aLeverMovedByHandTellsItsSteps()
{
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    QVERIFY(m_frame->updateTBarValue(leverRecord(600, 1)));
    QSignalSpy moved(m_frame.get(), &TBarKeyboadFrame::ecTBarValueChanged);
    lever()->setEnabled(true);
    QTest::keyClick(lever(), Qt::Key_End);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(moved.constFirst().at(0).value<quint16>(), quint16(1200));
    QCOMPARE(moved.constFirst().at(1).toBool(), true);
}

QTEST_MAIN(tst_TBarKeyboadFrame)

#include "tst_tbarkeyboadframe.moc"
