// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/widgets/slidereditframe.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <functional>
#include <limits>

using Korvo::Widgets::SliderEditFrame;

namespace {

const int highest = std::numeric_limits<int>::max();
const int lowest = -highest;

void wheel(QWidget *widget, const QPoint &angle)
{
    const QPoint middle = widget->rect().center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(), angle, angle.y(), Qt::Vertical,
                      Qt::NoButton, Qt::NoModifier);
    QSpontaneKeyEvent::setSpontaneous(&event); // others are not handed on to parents
    qApp->notify(widget, &event);
}

// A frame in a window, with its parts as a user meets them.
class Desk
{
public:
    Desk()
        : slider(frame.findChild<QSlider *>())
        , editor(frame.findChild<QSpinBox *>())
        , label(frame.findChild<QLabel *>())
        , minus(frame.findChild<QToolButton *>(QStringLiteral("minus")))
        , plus(frame.findChild<QToolButton *>(QStringLiteral("plus")))
    {
        auto *layout = new QVBoxLayout(&content);
        layout->addWidget(&before);
        layout->addWidget(&frame);
        layout->addWidget(&after);
        content.resize(500, 200);
        window.resize(content.size());
    }

    bool show()
    {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window) && slider && editor && label && minus && plus;
    }

    void type(const QString &keys)
    {
        editor->setFocus();
        QTest::keyClicks(focused(), keys);
    }
    static void key(Qt::Key key) { QTest::keyClick(focused(), key); }
    static QWidget *focused() { return QApplication::focusWidget(); }

    QRect handle() const
    {
        QStyleOptionSlider option;
        option.initFrom(slider);
        option.orientation = Qt::Horizontal;
        option.minimum = slider->minimum();
        option.maximum = slider->maximum();
        option.sliderPosition = slider->sliderPosition();
        option.sliderValue = slider->value();
        option.upsideDown = slider->isRightToLeft();
        option.direction = Qt::LeftToRight; // in its stead
        return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider);
    }
    // At a percentage of the slider's width, from the left.
    QPoint groove(int percent) const { return QPoint(slider->width() * percent / 100, slider->height() / 2); }
    void press(const QPoint &place) { mouse(QEvent::MouseButtonPress, place); }
    void move(const QPoint &place) { mouse(QEvent::MouseMove, place); }
    void release(const QPoint &place) { mouse(QEvent::MouseButtonRelease, place); }

    bool agrees(int value) const
    {
        return frame.value() == value && slider->value() == value && slider->sliderPosition() == value &&
               editor->value() == value && editor->text() == QString::number(value) &&
               minus->isEnabledTo(minus->parentWidget()) == (value > frame.minimum()) &&
               plus->isEnabledTo(plus->parentWidget()) == (value < frame.maximum());
    }

    QImage picture()
    {
        QImage image(frame.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        frame.render(&image);
        return image;
    }

    QWidget window;
    QWidget content{&window};
    QLineEdit before;
    SliderEditFrame frame;
    QLineEdit after;

    QSlider *const slider;
    QSpinBox *const editor;
    QLabel *const label;
    QToolButton *const minus;
    QToolButton *const plus;

private:
    void mouse(QEvent::Type type, const QPoint &place)
    {
        const QPoint inWindow = slider->mapTo(&window, place);
        if (type == QEvent::MouseButtonPress)
            QTest::mousePress(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow);
        else if (type == QEvent::MouseMove)
            QTest::mouseMove(window.windowHandle(), inWindow);
        else
            QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow);
    }
};

using Act = std::function<void(Desk &)>;

} // namespace

Q_DECLARE_METATYPE(std::function<void(Desk &)>)

class tst_slidereditframe : public QObject
{
    Q_OBJECT

private slots:
    void aNewFrameHasAllPartsButALabel();
    void settingAValueIsToldOnce_data();
    void settingAValueIsToldOnce();
    void changingTheRangeKeepsTheValueInside_data();
    void changingTheRangeKeepsTheValueInside();
    void aRangeOfOneNumberHasNoWayOut();
    void stepsAreAtLeastOne();
    void aChangeByHandIsToldOnce_data();
    void aChangeByHandIsToldOnce();
    void stepsEndAtTheRange_data();
    void stepsEndAtTheRange();
    void theSliderJumpsToThePress_data();
    void theSliderJumpsToThePress();
    void aSliderOfFewValuesIsDraggedFromBesideItsHandle();
    void aPressOnTheHandleMovesNothing();
    void onlyTheLeftButtonJumpsAndDrags();
    void typingHoldsFromReturnOn();
    void aNumberBelowTheMinimumCanBeTyped();
    void typedNumbersAreMovedIntoTheRange_data();
    void typedNumbersAreMovedIntoTheRange();
    void moreThanTheMaximumCannotBeTyped();
    void escapeDropsWhatWasTyped();
    void aNewValueDropsWhatIsTyped();
    void theSameValueLeavesWhatIsTyped();
    void countingStartsFromWhatIsTyped_data();
    void countingStartsFromWhatIsTyped();
    void theFocusSelectsTheDigits_data();
    void theFocusSelectsTheDigits();
    void theWheelNeedsTheFocus_data();
    void theWheelNeedsTheFocus();
    void theWheelCountsNotches_data();
    void theWheelCountsNotches();
    void heldButtonsCountToTheEnd_data();
    void heldButtonsCountToTheEnd();
    void theFocusStaysInTheFrameAtTheEnds();
    void tabGoesThroughTheParts();
    void focusingTheFrameFocusesItsFirstPart();
    void hiddenPartsTakeNoRoom_data();
    void hiddenPartsTakeNoRoom();
    void gapsAreAsAsked();
    void theLabelIsPlainTextAndNamesTheParts();
    void aDisabledFrameTakesNoInput_data();
    void aDisabledFrameTakesNoInput();
    void eachStateHasAPictureOfItsOwn();
    void aListenerMaySetAnotherValue();
    void aFrameMayGoWhileANumberIsTyped_data();
    void aFrameMayGoWhileANumberIsTyped();
};

void tst_slidereditframe::aNewFrameHasAllPartsButALabel()
{
    Desk desk;
    QVERIFY(desk.show());
    QCOMPARE(desk.frame.minimum(), 0);
    QCOMPARE(desk.frame.maximum(), 99);
    QCOMPARE(desk.frame.singleStep(), 1);
    QCOMPARE(desk.frame.pageStep(), 10);
    QVERIFY(desk.agrees(0));
    QVERIFY(desk.slider->isVisible() && desk.editor->isVisible());
    QVERIFY(desk.minus->isVisible() && desk.plus->isVisible());
    QVERIFY(!desk.label->isVisible());
    QVERIFY(desk.frame.labelText().isEmpty());
    QCOMPARE(desk.frame.layout()->contentsMargins(), QMargins());
    for (const QWidget *part : {desk.minus, desk.plus})
        QVERIFY(part->width() >= 36 && part->height() >= 36);
}

void tst_slidereditframe::settingAValueIsToldOnce_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("another") << 51 << 51;
    QTest::newRow("the same") << 50 << 50;
    QTest::newRow("minimum") << 10 << 10;
    QTest::newRow("maximum") << 90 << 90;
    QTest::newRow("below") << 9 << 10;
    QTest::newRow("above") << 91 << 90;
    QTest::newRow("far below") << lowest << 10;
    QTest::newRow("far above") << highest << 90;
}

void tst_slidereditframe::settingAValueIsToldOnce()
{
    QFETCH(int, value);
    QFETCH(int, expected);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setRange(10, 90);
    desk.frame.setValue(50);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.frame.setValue(value);
    QVERIFY(desk.agrees(expected));
    QCOMPARE(changed.count(), expected == 50 ? 0 : 1);
    if (!changed.isEmpty())
        QCOMPARE(changed.first().first().toInt(), expected);
}

void tst_slidereditframe::changingTheRangeKeepsTheValueInside_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("maximumAfter");
    QTest::addColumn<int>("expected");
    QTest::newRow("around") << 40 << 60 << 60 << 50;
    QTest::newRow("starts there") << 50 << 60 << 60 << 50;
    QTest::newRow("below") << 10 << 40 << 40 << 40;
    QTest::newRow("above") << 800 << 8192 << 8192 << 800;
    QTest::newRow("negative") << -20 << -10 << -10 << -10;
    QTest::newRow("turned round") << 60 << 40 << 60 << 60;
    QTest::newRow("all numbers") << lowest << highest << highest << 50;
}

void tst_slidereditframe::changingTheRangeKeepsTheValueInside()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, maximumAfter);
    QFETCH(int, expected);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setValue(50);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.frame.setRange(minimum, maximum);
    QCOMPARE(desk.frame.minimum(), minimum);
    QCOMPARE(desk.frame.maximum(), maximumAfter);
    QVERIFY(desk.agrees(expected));
    QCOMPARE(changed.count(), expected == 50 ? 0 : 1);
    if (!changed.isEmpty())
        QCOMPARE(changed.first().first().toInt(), expected);
}

void tst_slidereditframe::aRangeOfOneNumberHasNoWayOut()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setRange(7, 7);
    QVERIFY(desk.agrees(7));
    QVERIFY(!desk.minus->isEnabled() && !desk.plus->isEnabled());
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.press(desk.groove(80));
    desk.release(desk.groove(80));
    desk.type(QStringLiteral("5"));
    desk.key(Qt::Key_Return);
    QCOMPARE(changed.count(), 0);
    QVERIFY(desk.agrees(7));
}

void tst_slidereditframe::stepsAreAtLeastOne()
{
    SliderEditFrame frame;
    for (const int step : {5, 1}) {
        frame.setSingleStep(step);
        frame.setPageStep(step + 1);
        QCOMPARE(frame.singleStep(), step);
        QCOMPARE(frame.pageStep(), step + 1);
    }
    frame.setSingleStep(0);
    frame.setPageStep(-3);
    QCOMPARE(frame.singleStep(), 1);
    QCOMPARE(frame.pageStep(), 1);
}

void tst_slidereditframe::aChangeByHandIsToldOnce_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<int>("expected");
    const auto onSlider = [](Qt::Key key) {
        return Act([key](Desk &desk) {
            desk.slider->setFocus();
            desk.key(key);
        });
    };
    const auto onEditor = [](Qt::Key key) {
        return Act([key](Desk &desk) {
            desk.editor->setFocus();
            desk.key(key);
        });
    };
    QTest::newRow("slider, Left") << onSlider(Qt::Key_Left) << 47;
    QTest::newRow("slider, Right") << onSlider(Qt::Key_Right) << 53;
    QTest::newRow("slider, Up") << onSlider(Qt::Key_Up) << 53;
    QTest::newRow("slider, Down") << onSlider(Qt::Key_Down) << 47;
    QTest::newRow("slider, Page Up") << onSlider(Qt::Key_PageUp) << 70;
    QTest::newRow("slider, Page Down") << onSlider(Qt::Key_PageDown) << 30;
    QTest::newRow("slider, Home") << onSlider(Qt::Key_Home) << 0;
    QTest::newRow("slider, End") << onSlider(Qt::Key_End) << 99;
    QTest::newRow("field, Up") << onEditor(Qt::Key_Up) << 53;
    QTest::newRow("field, Down") << onEditor(Qt::Key_Down) << 47;
    QTest::newRow("field, Page Up") << onEditor(Qt::Key_PageUp) << 70;
    QTest::newRow("field, Page Down") << onEditor(Qt::Key_PageDown) << 30;
    QTest::newRow("typed, Return") << Act([](Desk &desk) {
        desk.type(QStringLiteral("42"));
        desk.key(Qt::Key_Return);
    }) << 42;
    QTest::newRow("typed, Enter") << Act([](Desk &desk) {
        desk.type(QStringLiteral("42"));
        desk.key(Qt::Key_Enter);
    }) << 42;
    QTest::newRow("typed, Tab") << Act([](Desk &desk) {
        desk.type(QStringLiteral("42"));
        desk.key(Qt::Key_Tab);
    }) << 42;
    QTest::newRow("typed, focus taken") << Act([](Desk &desk) {
        desk.type(QStringLiteral("42"));
        desk.after.setFocus();
    }) << 42;
    QTest::newRow("minus") << Act([](Desk &desk) { QTest::mouseClick(desk.minus, Qt::LeftButton); }) << 47;
    QTest::newRow("plus") << Act([](Desk &desk) { QTest::mouseClick(desk.plus, Qt::LeftButton); }) << 53;
    QTest::newRow("plus, Space") << Act([](Desk &desk) {
        desk.plus->setFocus();
        desk.key(Qt::Key_Space);
    }) << 53;
    QTest::newRow("slider, wheel") << Act([](Desk &desk) {
        desk.slider->setFocus();
        wheel(desk.slider, QPoint(0, 120));
    }) << 53;
    QTest::newRow("field, wheel") << Act([](Desk &desk) {
        desk.editor->setFocus();
        wheel(desk.editor->findChild<QLineEdit *>(), QPoint(0, -120));
    }) << 47;
    QTest::newRow("press on the groove's start") << Act([](Desk &desk) {
        desk.press(desk.groove(0));
        desk.release(desk.groove(0));
    }) << 0;
    QTest::newRow("dragged to the end") << Act([](Desk &desk) {
        desk.press(desk.handle().center());
        desk.move(desk.groove(120));
        desk.release(desk.groove(120));
    }) << 99;
}

void tst_slidereditframe::aChangeByHandIsToldOnce()
{
    QFETCH(Act, act);
    QFETCH(int, expected);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setSingleStep(3);
    desk.frame.setPageStep(20);
    desk.frame.setValue(50);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    act(desk);
    QVERIFY(desk.agrees(expected));
    desk.after.setFocus(); // nothing is told late
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toInt(), expected);
}

void tst_slidereditframe::stepsEndAtTheRange_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::newRow("usual") << 0 << 99;
    QTest::newRow("at the ends of int") << lowest << highest;
}

void tst_slidereditframe::stepsEndAtTheRange()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setRange(minimum, maximum);
    desk.frame.setSingleStep(20);
    desk.frame.setPageStep(30);
    const QVector<QPair<Act, Act>> ways{
        {[](Desk &d) { QTest::mouseClick(d.plus, Qt::LeftButton); },
         [](Desk &d) { QTest::mouseClick(d.minus, Qt::LeftButton); }},
        {[](Desk &d) { QTest::keyClick(d.editor, Qt::Key_PageUp); },
         [](Desk &d) { QTest::keyClick(d.editor, Qt::Key_PageDown); }},
        {[](Desk &d) { QTest::keyClick(d.slider, Qt::Key_PageUp); },
         [](Desk &d) { QTest::keyClick(d.slider, Qt::Key_PageDown); }},
    };
    for (const auto &way : ways) {
        desk.frame.setValue(maximum - 5);
        const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
        way.first(desk);
        QVERIFY(desk.agrees(maximum));
        way.first(desk);
        QCOMPARE(changed.count(), 1);
        desk.frame.setValue(minimum + 5);
        way.second(desk);
        QVERIFY(desk.agrees(minimum));
        way.second(desk);
        QCOMPARE(changed.count(), 3);
    }
}

void tst_slidereditframe::theSliderJumpsToThePress_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("percent");
    for (const int percent : {10, 35, 80}) {
        QTest::newRow(qPrintable(QStringLiteral("left to right, %1").arg(percent)))
            << int(Qt::LeftToRight) << percent;
        QTest::newRow(qPrintable(QStringLiteral("right to left, %1").arg(percent)))
            << int(Qt::RightToLeft) << percent;
    }
}

void tst_slidereditframe::theSliderJumpsToThePress()
{
    QFETCH(int, direction);
    QFETCH(int, percent);
    Desk desk;
    desk.frame.setLayoutDirection(Qt::LayoutDirection(direction));
    desk.frame.setRange(0, 10000);
    desk.frame.setValue(5000);
    QVERIFY(desk.show());
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);

    const QPoint place = desk.groove(percent);
    desk.press(place);
    QCOMPARE(changed.count(), 1);
    QVERIFY(qAbs(desk.handle().center().x() - place.x()) <= 1);
    const bool isLow = desk.frame.value() < 5000;
    QCOMPARE(isLow, (percent < 50) == (direction == Qt::LeftToRight));
    QVERIFY(desk.slider->isSliderDown());

    const QPoint next = desk.groove(percent + 10);
    desk.move(next);
    QCOMPARE(changed.count(), 2);
    QVERIFY(qAbs(desk.handle().center().x() - next.x()) <= 1);
    QVERIFY(desk.agrees(changed.last().first().toInt()));
    desk.release(next);
    desk.move(desk.groove(50));
    QCOMPARE(changed.count(), 2);
    QVERIFY(!desk.slider->isSliderDown());
}

void tst_slidereditframe::aSliderOfFewValuesIsDraggedFromBesideItsHandle()
{
    Desk desk;
    desk.frame.setRange(0, 2);
    QVERIFY(desk.show());
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.press(desk.groove(38)); // off the handle's nearest place
    QVERIFY(!desk.handle().contains(desk.groove(38)));
    QVERIFY(desk.agrees(1));
    desk.move(desk.groove(90));
    QVERIFY(desk.agrees(2));
    desk.release(desk.groove(90));
    QCOMPARE(changed.count(), 2);
}

void tst_slidereditframe::aPressOnTheHandleMovesNothing()
{
    Desk desk;
    desk.frame.setRange(800, 8192);
    desk.frame.setValue(3001);
    QVERIFY(desk.show());
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    const QRect handle = desk.handle();
    for (const QPoint &place :
         {handle.center(), handle.center() - QPoint(4, 0), handle.center() + QPoint(4, 0)}) {
        desk.press(place);
        desk.release(place);
    }
    QCOMPARE(changed.count(), 0);

    desk.press(handle.center() + QPoint(4, 0));
    desk.move(handle.center() + QPoint(24, 0));
    QCOMPARE(desk.handle().x(), handle.x() + 20);
    desk.release(handle.center() + QPoint(24, 0));
}

void tst_slidereditframe::onlyTheLeftButtonJumpsAndDrags()
{
    Desk desk;
    QVERIFY(desk.show());
    QTest::mouseClick(desk.slider, Qt::RightButton, Qt::NoModifier, desk.groove(80));
    QVERIFY(desk.agrees(0));
}

void tst_slidereditframe::typingHoldsFromReturnOn()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setValue(50);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.type(QStringLiteral("4"));
    desk.type(QStringLiteral("2"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(desk.frame.value(), 50);
    QCOMPARE(desk.slider->value(), 50);
    QCOMPARE(desk.editor->text(), QStringLiteral("42"));
    desk.key(Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QVERIFY(desk.agrees(42));
}

void tst_slidereditframe::aNumberBelowTheMinimumCanBeTyped()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setRange(800, 8192);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.type(QStringLiteral("1920"));
    QCOMPARE(desk.editor->text(), QStringLiteral("1920"));
    desk.key(Qt::Key_Return);
    QVERIFY(desk.agrees(1920));
    QCOMPARE(changed.count(), 1);
}

void tst_slidereditframe::typedNumbersAreMovedIntoTheRange_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("expected");
    QTest::newRow("inside") << "900" << 900;
    QTest::newRow("below") << "5" << 800;
    QTest::newRow("just below") << "799" << 800;
    QTest::newRow("leading zeros") << "0900" << 900;
    QTest::newRow("letters") << "x9y0z0" << 900;
}

void tst_slidereditframe::typedNumbersAreMovedIntoTheRange()
{
    QFETCH(QString, typed);
    QFETCH(int, expected);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
        Desk desk;
        QVERIFY(desk.show());
        desk.frame.setRange(800, 8192);
        desk.frame.setValue(1000);
        const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
        desk.type(typed);
        desk.key(key);
        QVERIFY(desk.agrees(expected));
        QCOMPARE(changed.count(), 1);

        // Nothing is no number.
        desk.editor->setFocus();
        desk.editor->selectAll();
        desk.key(Qt::Key_Backspace);
        QVERIFY(desk.editor->text().isEmpty());
        desk.key(key);
        QVERIFY(desk.agrees(expected));
        QCOMPARE(changed.count(), 1);
    }
}

void tst_slidereditframe::moreThanTheMaximumCannotBeTyped()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setRange(800, 8192);
    desk.type(QStringLiteral("8193"));
    QCOMPARE(desk.editor->text(), QStringLiteral("819"));
}

void tst_slidereditframe::escapeDropsWhatWasTyped()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setRange(800, 8192);
    desk.frame.setValue(1000);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.type(QStringLiteral("12"));
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(desk.editor, &escape);
    QVERIFY(escape.isAccepted());
    QVERIFY(desk.agrees(1000));
    QCoreApplication::sendEvent(desk.editor, &escape);
    QVERIFY(!escape.isAccepted()); // a dialog may close now
    desk.after.setFocus();
    QVERIFY(desk.agrees(1000));
    QCOMPARE(changed.count(), 0);
}

void tst_slidereditframe::aNewValueDropsWhatIsTyped()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.type(QStringLiteral("42"));
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.frame.setValue(60);
    desk.after.setFocus();
    QVERIFY(desk.agrees(60));
    QCOMPARE(changed.count(), 1);
}

void tst_slidereditframe::theSameValueLeavesWhatIsTyped()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.type(QStringLiteral("42"));
    desk.frame.setValue(0);
    QCOMPARE(desk.editor->text(), QStringLiteral("42"));
    desk.key(Qt::Key_Return);
    QVERIFY(desk.agrees(42));
}

void tst_slidereditframe::countingStartsFromWhatIsTyped_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<int>("expected");
    QTest::newRow("plus") << Act([](Desk &desk) { QTest::mouseClick(desk.plus, Qt::LeftButton); }) << 43;
    QTest::newRow("minus") << Act([](Desk &desk) { QTest::mouseClick(desk.minus, Qt::LeftButton); }) << 41;
    QTest::newRow("Up") << Act([](Desk &desk) { desk.key(Qt::Key_Up); }) << 43;
    QTest::newRow("Page Down") << Act([](Desk &desk) { desk.key(Qt::Key_PageDown); }) << 32;
    QTest::newRow("wheel") << Act([](Desk &desk) { wheel(desk.editor, QPoint(0, 240)); }) << 44;
}

void tst_slidereditframe::countingStartsFromWhatIsTyped()
{
    QFETCH(Act, act);
    QFETCH(int, expected);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setValue(70);
    desk.type(QStringLiteral("42"));
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    act(desk);
    QVERIFY(desk.agrees(expected));
    QCOMPARE(changed.count(), 1);
}

void tst_slidereditframe::theFocusSelectsTheDigits_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("click") << Act([](Desk &desk) {
        const QPoint place = desk.editor->mapTo(&desk.window, desk.editor->rect().center());
        QTest::mouseClick(desk.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    });
    QTest::newRow("Tab") << Act([](Desk &desk) {
        desk.slider->setFocus();
        desk.key(Qt::Key_Tab);
    });
    QTest::newRow("code") << Act([](Desk &desk) { desk.editor->setFocus(); });
}

void tst_slidereditframe::theFocusSelectsTheDigits()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setValue(55);
    desk.before.setFocus();
    act(desk);
    QVERIFY(desk.editor->hasFocus());
    auto *digits = desk.editor->findChild<QLineEdit *>();
    QCOMPARE(digits->selectedText(), QStringLiteral("55"));
    QTest::keyClicks(desk.focused(), QStringLiteral("7"));
    QCOMPARE(digits->text(), QStringLiteral("7"));

    // A further click places the cursor.
    QTest::mouseClick(digits, Qt::LeftButton, Qt::NoModifier, digits->rect().center());
    QVERIFY(!digits->hasSelectedText());
}

void tst_slidereditframe::theWheelNeedsTheFocus_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<bool>("takesIt");
    QTest::newRow("slider") << "slider" << true;
    QTest::newRow("field") << "editor" << true;
    QTest::newRow("digits") << "qt_spinbox_lineedit" << true;
    QTest::newRow("label") << "label" << false;
    QTest::newRow("button") << "plus" << false;
}

void tst_slidereditframe::theWheelNeedsTheFocus()
{
    QFETCH(QString, part);
    QFETCH(bool, takesIt);
    QScrollArea area;
    auto *content = new QWidget;
    content->resize(400, 1000);
    auto *frame = new SliderEditFrame(content);
    frame->resize(400, 40);
    frame->setLabelText(QStringLiteral("Width"));
    frame->setValue(50);
    area.setWidget(content);
    area.resize(420, 200);
    area.show();
    area.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    area.setFocus();
    auto *widget = frame->findChild<QWidget *>(part);
    QVERIFY(widget);
    const QSignalSpy changed(frame, &SliderEditFrame::valueChanged);

    wheel(widget, QPoint(0, -120));
    QCOMPARE(changed.count(), 0);
    QVERIFY(!frame->isAncestorOf(QApplication::focusWidget()));
    const int scrolled = area.verticalScrollBar()->value();
    QVERIFY(scrolled > 0);

    if (!takesIt)
        return;
    widget->setFocus();
    wheel(widget, QPoint(0, -120));
    QCOMPARE(changed.count(), 1);
    frame->setValue(frame->minimum());
    wheel(widget, QPoint(0, -120)); // at the end too
    QCOMPARE(area.verticalScrollBar()->value(), scrolled);
}

void tst_slidereditframe::theWheelCountsNotches_data()
{
    QTest::addColumn<QVector<QPoint>>("angles");
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("signalCount");
    using Angles = QVector<QPoint>;
    QTest::newRow("away") << Angles{{0, 120}} << 52 << 1;
    QTest::newRow("near") << Angles{{0, -120}} << 48 << 1;
    QTest::newRow("three at once") << Angles{{0, 360}} << 56 << 1;
    QTest::newRow("one by one") << Angles{{0, 120}, {0, 120}} << 54 << 2;
    QTest::newRow("a fine wheel") << Angles{{0, 40}, {0, 40}, {0, 40}} << 52 << 1;
    QTest::newRow("to and fro") << Angles{{0, 40}, {0, -40}, {0, 40}} << 50 << 0;
    QTest::newRow("sideways") << Angles{{120, 0}} << 50 << 0;
}

void tst_slidereditframe::theWheelCountsNotches()
{
    QFETCH(QVector<QPoint>, angles);
    QFETCH(int, expected);
    QFETCH(int, signalCount);
    for (const bool isSlider : {true, false}) {
        Desk desk;
        QVERIFY(desk.show());
        desk.frame.setSingleStep(2);
        desk.frame.setValue(50);
        QWidget *part = isSlider ? static_cast<QWidget *>(desk.slider) : desk.editor;
        part->setFocus();
        const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
        for (const QPoint &angle : angles)
            wheel(part, angle);
        QVERIFY(desk.agrees(expected));
        QCOMPARE(changed.count(), signalCount);
    }
}

void tst_slidereditframe::heldButtonsCountToTheEnd_data()
{
    QTest::addColumn<bool>("isPlus");
    QTest::addColumn<int>("end");
    QTest::newRow("minus") << false << 0;
    QTest::newRow("plus") << true << 99;
}

void tst_slidereditframe::heldButtonsCountToTheEnd()
{
    QFETCH(bool, isPlus);
    QFETCH(int, end);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setSingleStep(10);
    desk.frame.setValue(50);
    QToolButton *button = isPlus ? desk.plus : desk.minus;
    QVERIFY(button->autoRepeat());
    button->setAutoRepeatDelay(1);
    button->setAutoRepeatInterval(1);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    QTest::mousePress(button, Qt::LeftButton);
    QTRY_VERIFY(desk.agrees(end));
    QCOMPARE(changed.count(), 5);
    QVERIFY(!button->isEnabled());
    QVERIFY(!button->isDown());
    QTest::mouseRelease(button, Qt::LeftButton);
    QCOMPARE(changed.count(), 5);
    desk.frame.setValue(50);
    QVERIFY(button->isEnabled());
}

void tst_slidereditframe::theFocusStaysInTheFrameAtTheEnds()
{
    Desk desk;
    QVERIFY(desk.show());
    for (const bool hasSlider : {true, false}) {
        desk.frame.setSliderVisible(hasSlider);
        desk.frame.setValue(98);
        desk.plus->setFocus();
        desk.key(Qt::Key_Space);
        QVERIFY(!desk.plus->isEnabled());
        QVERIFY(desk.frame.isAncestorOf(desk.focused()));
        desk.frame.setValue(1);
        desk.minus->setFocus();
        desk.key(Qt::Key_Space);
        QVERIFY(!desk.minus->isEnabled());
        QVERIFY(desk.frame.isAncestorOf(desk.focused()));
    }
}

void tst_slidereditframe::tabGoesThroughTheParts()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setValue(50);
    desk.before.setFocus();
    const QVector<QWidget *> order{desk.slider, desk.editor, desk.minus, desk.plus, &desk.after};
    for (QWidget *next : order) {
        desk.key(Qt::Key_Tab);
        QCOMPARE(desk.focused(), next);
    }
}

void tst_slidereditframe::focusingTheFrameFocusesItsFirstPart()
{
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setFocus();
    QVERIFY(desk.slider->hasFocus());
    desk.frame.setSliderVisible(false);
    desk.before.setFocus();
    desk.frame.setFocus();
    QVERIFY(desk.editor->hasFocus());
}

void tst_slidereditframe::hiddenPartsTakeNoRoom_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("hasSlider");
    QTest::addColumn<bool>("hasButtons");
    for (const QString &text : {QString(), QStringLiteral("Width")}) {
        for (const bool hasSlider : {true, false}) {
            for (const bool hasButtons : {true, false})
                QTest::newRow(
                    qPrintable(QStringLiteral("%1%2%3").arg(text, QLatin1String(hasSlider ? ", slider" : ""),
                                                            QLatin1String(hasButtons ? ", buttons" : ""))))
                    << text << hasSlider << hasButtons;
        }
    }
}

void tst_slidereditframe::hiddenPartsTakeNoRoom()
{
    QFETCH(QString, text);
    QFETCH(bool, hasSlider);
    QFETCH(bool, hasButtons);
    const int gap = 40;
    Desk desk;
    desk.frame.setHorizontalSpacing(gap, gap);
    // By way of the opposite, before and after it is shown.
    desk.frame.setSliderVisible(!hasSlider);
    desk.frame.setButtonVisible(!hasButtons);
    desk.frame.setLabelText(text.isEmpty() ? QStringLiteral("gone") : QString());
    desk.frame.setSliderVisible(hasSlider);
    QVERIFY(desk.show());
    desk.frame.setButtonVisible(hasButtons);
    desk.frame.setLabelText(text);
    desk.content.layout()->activate();
    desk.frame.layout()->activate();

    QCOMPARE(desk.label->isVisible(), !text.isEmpty());
    QCOMPARE(desk.slider->isVisible(), hasSlider);
    QCOMPARE(desk.minus->isVisible(), hasButtons);
    QCOMPARE(desk.plus->isVisible(), hasButtons);
    QVERIFY(desk.editor->isVisible());

    int x = 0;
    if (!text.isEmpty()) {
        QCOMPARE(desk.label->x(), 0);
        x = desk.label->geometry().right() + 1 + gap;
    }
    if (hasSlider) {
        QCOMPARE(desk.slider->x(), x);
        QVERIFY(desk.slider->width() > 150);
        x = desk.slider->geometry().right() + 1 + gap;
    }
    QCOMPARE(desk.editor->x(), x);
    if (hasSlider) {
        const QWidget *last = hasButtons ? static_cast<QWidget *>(desk.plus) : desk.editor;
        QCOMPARE(last->geometry().right(), desk.frame.rect().right());
    }
}

void tst_slidereditframe::gapsAreAsAsked()
{
    Desk desk;
    desk.frame.setLabelText(QStringLiteral("Width"));
    QVERIFY(desk.show());
    const auto gaps = [&desk] {
        desk.frame.layout()->activate();
        return QPair<int, int>(desk.slider->x() - desk.label->geometry().right() - 1,
                               desk.editor->x() - desk.slider->geometry().right() - 1);
    };
    QVERIFY(gaps().first > 0 && gaps().second > 0);
    desk.frame.setHorizontalSpacing(30, 20);
    QCOMPARE(gaps(), (QPair<int, int>(30, 20)));
    desk.frame.setHorizontalSpacing(0, -5);
    QCOMPARE(gaps(), (QPair<int, int>(0, 0)));
}

void tst_slidereditframe::theLabelIsPlainTextAndNamesTheParts()
{
    SliderEditFrame frame;
    const QString text = QStringLiteral("<b>R & D</b>");
    frame.setLabelText(text);
    QCOMPARE(frame.labelText(), text);
    QCOMPARE(frame.findChild<QLabel *>()->textFormat(), Qt::PlainText);
    QCOMPARE(frame.findChild<QSlider *>()->accessibleName(), text);
    QCOMPARE(frame.findChild<QSpinBox *>()->accessibleName(), text);
    const QList<QToolButton *> buttons = frame.findChildren<QToolButton *>();
    QCOMPARE(buttons.size(), 2);
    for (const QToolButton *button : buttons)
        QVERIFY(!button->accessibleName().isEmpty());
}

void tst_slidereditframe::aDisabledFrameTakesNoInput_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("press on the groove") << Act([](Desk &desk) {
        desk.press(desk.groove(80));
        desk.release(desk.groove(80));
    });
    QTest::newRow("key") << Act([](Desk &desk) {
        desk.slider->setFocus();
        QTest::keyClick(desk.window.windowHandle(), Qt::Key_Home);
    });
    QTest::newRow("wheel") << Act([](Desk &desk) {
        desk.slider->setFocus();
        wheel(desk.slider, QPoint(0, 120));
    });
    QTest::newRow("button") << Act([](Desk &desk) { QTest::mouseClick(desk.plus, Qt::LeftButton); });
}

void tst_slidereditframe::aDisabledFrameTakesNoInput()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.show());
    desk.frame.setValue(50);
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.frame.setEnabled(false);
    act(desk);
    QCOMPARE(changed.count(), 0);
    desk.frame.setValue(99);
    desk.frame.setValue(50);
    const QList<QWidget *> parts = desk.frame.findChildren<QWidget *>();
    for (const QWidget *part : parts)
        QVERIFY(!part->isEnabled());
    QCOMPARE(changed.count(), 2);

    desk.frame.setEnabled(true);
    act(desk);
    QVERIFY(changed.count() > 2);
}

void tst_slidereditframe::eachStateHasAPictureOfItsOwn()
{
    Desk desk;
    desk.frame.setLabelText(QStringLiteral("Width"));
    QVERIFY(desk.show());
    desk.before.setFocus();
    QVector<QImage> pictures;
    for (const bool isEnabled : {true, false}) {
        desk.frame.setEnabled(isEnabled);
        for (const int value : {0, 50, 99}) {
            desk.frame.setValue(value);
            const QImage image = desk.picture();
            QVERIFY(!pictures.contains(image));
            pictures << image;
        }
    }
    desk.frame.setEnabled(true);
    QCOMPARE(desk.picture(), pictures.at(2));
    desk.before.setFocus();
    desk.key(Qt::Key_Tab);
    QVERIFY(desk.slider->hasFocus());
    QVERIFY(!pictures.contains(desk.picture()));
}

void tst_slidereditframe::aListenerMaySetAnotherValue()
{
    Desk desk;
    QVERIFY(desk.show());
    connect(&desk.frame, &SliderEditFrame::valueChanged, &desk.frame,
            [&desk](int value) { desk.frame.setValue(value / 2 * 2); });
    const QSignalSpy changed(&desk.frame, &SliderEditFrame::valueChanged);
    desk.type(QStringLiteral("43"));
    desk.key(Qt::Key_Return);
    QVERIFY(desk.agrees(42));
    QCOMPARE(changed.count(), 2);
    QTest::mouseClick(desk.plus, Qt::LeftButton);
    QVERIFY(desk.agrees(42));
    desk.slider->setFocus();
    desk.key(Qt::Key_End);
    QVERIFY(desk.agrees(98));
}

void tst_slidereditframe::aFrameMayGoWhileANumberIsTyped_data()
{
    QTest::addColumn<bool>("isWindow");
    QTest::newRow("in a window") << false;
    QTest::newRow("as a window") << true;
}

void tst_slidereditframe::aFrameMayGoWhileANumberIsTyped()
{
    QFETCH(bool, isWindow);
    QWidget parent;
    auto *frame = new SliderEditFrame(isWindow ? nullptr : &parent);
    frame->window()->show();
    frame->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(frame->window()));
    const QSignalSpy changed(frame, &SliderEditFrame::valueChanged);
    frame->findChild<QSpinBox *>()->setFocus();
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("42"));
    delete frame;
    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(tst_slidereditframe)

#include "tst_slidereditframe.moc"
