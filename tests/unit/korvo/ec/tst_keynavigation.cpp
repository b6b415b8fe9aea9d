// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/keynavigation.h>

#include <QApplication>
#include <QTest>

using namespace Korvo::EC;

Q_DECLARE_METATYPE(Korvo::EC::Direction)

namespace {

/// A key of a grid of 100 pixels.
QRect key(int column, int row, int width = 64, int height = 64)
{
    return {column * 100, row * 100, width, height};
}

} // namespace

/// The choice of the next key by its place, and the move of the focus that follows.
class tst_KeyNavigation : public QObject
{
    Q_OBJECT

private slots:
    void thePlaceIsTheNearestInItsDirection_data();
    void thePlaceIsTheNearestInItsDirection();
    void aWayLeadsBack_data();
    void aWayLeadsBack();
    void anArrowKeyMovesTheFocus_data();
    void anArrowKeyMovesTheFocus();
    void aKeyThatCannotHaveTheFocusIsPassedOver_data();
    void aKeyThatCannotHaveTheFocusIsPassedOver();
    void theFocusStaysInItsWindow();
};

void tst_KeyNavigation::thePlaceIsTheNearestInItsDirection_data()
{
    QTest::addColumn<QVector<QRect>>("places");
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<int>("expected");
    using Places = QVector<QRect>;
    const Places cross{key(4, 5), key(6, 5), key(5, 4), key(5, 6)};
    QTest::newRow("left") << cross << Direction::Left << 0;
    QTest::newRow("right") << cross << Direction::Right << 1;
    QTest::newRow("up") << cross << Direction::Up << 2;
    QTest::newRow("down") << cross << Direction::Down << 3;
    QTest::newRow("nothing at all") << Places() << Direction::Left << -1;
    QTest::newRow("itself") << Places{key(5, 5)} << Direction::Right << -1;
    QTest::newRow("the nearer one") << Places{key(8, 5), key(7, 5)} << Direction::Right << 1;
    QTest::newRow("the nearer one of the left") << Places{key(2, 5), key(3, 5)} << Direction::Left << 1;
    QTest::newRow("no wrapping") << Places{key(0, 5), key(0, 6)} << Direction::Right << -1;
    QTest::newRow("the row before what is nearer") << Places{key(6, 6), key(15, 5)} << Direction::Right << 1;
    QTest::newRow("the column before what is nearer")
        << Places{key(6, 6), key(5, 15)} << Direction::Down << 1;
    QTest::newRow("half of a key is its row") << Places{QRect(620, 532, 64, 64)} << Direction::Right << 0;
    QTest::newRow("no row, but near") << Places{QRect(620, 560, 64, 64)} << Direction::Right << 0;
    QTest::newRow("too far aside") << Places{key(6, 7)} << Direction::Right << -1;
    QTest::newRow("aside counts double")
        << Places{QRect(700, 600, 64, 64), QRect(760, 560, 64, 64)} << Direction::Right << 1;
    QTest::newRow("of two in the row the straighter one")
        << Places{QRect(620, 530, 64, 64), QRect(620, 510, 64, 64)} << Direction::Right << 1;
    QTest::newRow("the first of two alike")
        << Places{QRect(620, 510, 64, 64), QRect(620, 490, 64, 64)} << Direction::Right << 0;
    QTest::newRow("a wide key above") << Places{QRect(450, 400, 164, 64)} << Direction::Up << 0;
    QTest::newRow("half of a low key is its row too")
        << Places{QRect(600, 480, 64, 30), QRect(900, 530, 64, 30)} << Direction::Right << 1;
    QTest::newRow("what overlaps behind the middle")
        << Places{QRect(540, 500, 64, 64)} << Direction::Right << 0;
}

void tst_KeyNavigation::thePlaceIsTheNearestInItsDirection()
{
    QFETCH(QVector<QRect>, places);
    QFETCH(Direction, direction);
    QFETCH(int, expected);
    QCOMPARE(nearestPlace(key(5, 5), places, direction), expected);
}

void tst_KeyNavigation::aWayLeadsBack_data()
{
    QTest::addColumn<Direction>("there");
    QTest::addColumn<Direction>("back");
    QTest::newRow("left") << Direction::Left << Direction::Right;
    QTest::newRow("right") << Direction::Right << Direction::Left;
    QTest::newRow("up") << Direction::Up << Direction::Down;
    QTest::newRow("down") << Direction::Down << Direction::Up;
}

void tst_KeyNavigation::aWayLeadsBack()
{
    QFETCH(Direction, there);
    QFETCH(Direction, back);
    QVector<QRect> grid;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            grid << key(column, row);
    }
    const int middle = 4;
    const int next = nearestPlace(grid.at(middle), grid, there);
    QVERIFY(next >= 0 && next != middle);
    QCOMPARE(nearestPlace(grid.at(next), grid, there), -1);
    QCOMPARE(nearestPlace(grid.at(next), grid, back), middle);
}

void tst_KeyNavigation::anArrowKeyMovesTheFocus_data()
{
    QTest::addColumn<int>("arrow");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("expected");
    QTest::newRow("right") << int(Qt::Key_Right) << int(Qt::NoModifier) << 1;
    QTest::newRow("down") << int(Qt::Key_Down) << int(Qt::NoModifier) << 2;
    QTest::newRow("of the number pad") << int(Qt::Key_Right) << int(Qt::KeypadModifier) << 1;
    QTest::newRow("left, where nothing is") << int(Qt::Key_Left) << int(Qt::NoModifier) << 0;
    QTest::newRow("up, where nothing is") << int(Qt::Key_Up) << int(Qt::NoModifier) << 0;
    QTest::newRow("whatever else is held") << int(Qt::Key_Right) << int(Qt::ShiftModifier) << 1;
}

void tst_KeyNavigation::anArrowKeyMovesTheFocus()
{
    QFETCH(int, arrow);
    QFETCH(int, modifiers);
    QFETCH(int, expected);

    QWidget window;
    QWidget half(&window); // of the console: places count in the window
    window.resize(400, 400);
    half.setGeometry(100, 0, 300, 400);
    K7DropButton first(&window);
    K7DropButton right(&half);
    K7DropButton below(&window);
    first.setGeometry(0, 0, 64, 64);
    right.setGeometry(0, 0, 64, 64);
    below.setGeometry(0, 100, 64, 64);
    const K7DropButton *const keys[] = {&first, &right, &below};
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClick(&first, Qt::Key(arrow), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(QApplication::focusWidget(), static_cast<const QWidget *>(keys[expected]));
}

void tst_KeyNavigation::aKeyThatCannotHaveTheFocusIsPassedOver_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("hidden") << QByteArray("visible") << QVariant(false);
    QTest::newRow("disabled") << QByteArray("enabled") << QVariant(false);
    QTest::newRow("takes no focus") << QByteArray("focusPolicy") << QVariant(int(Qt::NoFocus));
}

void tst_KeyNavigation::aKeyThatCannotHaveTheFocusIsPassedOver()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);

    QWidget window;
    window.resize(400, 100);
    K7DropButton first(&window);
    K7DropButton second(&window);
    K7DropButton third(&window);
    first.setGeometry(0, 0, 64, 64);
    second.setGeometry(100, 0, 64, 64);
    third.setGeometry(200, 0, 64, 64);
    QVERIFY(second.setProperty(property.constData(), value));
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_Right);
    QVERIFY(third.hasFocus());
    QTest::keyClick(&third, Qt::Key_Left);
    QVERIFY(first.hasFocus());
}

void tst_KeyNavigation::theFocusStaysInItsWindow()
{
    QWidget window;
    window.resize(400, 100);
    K7DropButton first(&window);
    first.setGeometry(0, 0, 64, 64);
    QWidget dialog(&window, Qt::Dialog);
    K7DropButton other(&dialog);
    other.setGeometry(100, 0, 64, 64);
    window.show();
    dialog.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QVERIFY(!moveFocus(&first, Direction::Right));
    QVERIFY(first.hasFocus());
}

QTEST_MAIN(tst_KeyNavigation)

#include "tst_keynavigation.moc"
