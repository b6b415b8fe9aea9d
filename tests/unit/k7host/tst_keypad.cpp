// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <keypad.h>

#include <ovo/widgets/iplineedit.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTouchDevice>
#include <QWindow>

#include <memory>

using K7Host::Keypad;
using Ovo::Widgets::IPLineEdit;

namespace {

/// Editors with a keypad under them, in a window that takes the focus itself when it is clicked.
class Desk : public QWidget
{
public:
    Desk()
    {
        resize(500, 400);
        setFocusPolicy(Qt::ClickFocus);
        line.setGeometry(10, 10, 100, 30);
        spin.setGeometry(120, 10, 100, 30);
        decimal.setGeometry(230, 10, 100, 30);
        address.setGeometry(340, 10, 150, 30);
        spin.setRange(0, 9999);
        decimal.setRange(0, 9999);
        keypad.move(10, 60);
        keypad.show();
    }

    QAbstractButton *key(const QString &name) const { return keypad.findChild<QAbstractButton *>(name); }

    QPoint centerOf(const QString &name) { return key(name)->mapTo(this, key(name)->rect().center()); }

    void click(const QString &name) { QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, centerOf(name)); }

    QLineEdit line{this};
    QSpinBox spin{this};
    QDoubleSpinBox decimal{this};
    IPLineEdit address{this};
    Keypad keypad{this};
    int presses = 0; // that reach the desk itself

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { ++presses; }
};

} // namespace

class tst_Keypad : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eachKeyTypesIntoALineEdit_data();
    void eachKeyTypesIntoALineEdit();
    void clearEmptiesASpinBox();
    void aNumberCanBeTypedIntoASpinBox();
    void thePointIsTheOneThatWasSet_data();
    void thePointIsTheOneThatWasSet();
    void anAddressIsTypedAcrossItsOctets_data();
    void anAddressIsTypedAcrossItsOctets();
    void backspaceGoesBackAcrossOctets();
    void theReleaseGoesToWhoHasTheFocusThen();
    void aTouchLeavesTheFocusWhereItIs();
    void whatMissesTheKeysReachesNobody();
    void nothingInItTakesTheFocus();
    void keysAreAsLargeAsAFinger();
    void aHeldKeyRepeats_data();
    void aHeldKeyRepeats();
    void aHeldDigitDoesNotRepeat();
    void enterTypesReturnOnceTheFingerLeaves();
    void theCloseKeyOnlyCloses();
    void fingersMayOverlap();
    void withoutAFocusNothingIsTyped();

    void thePlaceIsBesideTheField_data();
    void thePlaceIsBesideTheField();
    void noPlaceIsFoundWhereThereIsNoRoom_data();
    void noPlaceIsFoundWhereThereIsNoRoom();

private:
    QTouchDevice *const m_device = QTest::createTouchDevice();
    std::unique_ptr<Desk> m_desk;
};

void tst_Keypad::init()
{
    m_desk = std::make_unique<Desk>();
    m_desk->show();
    QVERIFY(QTest::qWaitForWindowActive(m_desk.get()));
    m_desk->line.setFocus();
    QVERIFY(m_desk->line.hasFocus());
}

void tst_Keypad::cleanup()
{
    m_desk.reset();
}

void tst_Keypad::eachKeyTypesIntoALineEdit_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<int>("expectedCursor");
    for (int digit = 0; digit <= 9; ++digit) {
        QTest::addRow("%d", digit) << QStringLiteral("key_%1").arg(digit)
                                   << QStringLiteral("12") + QString::number(digit) + QLatin1Char('3') << 3;
    }
    QTest::newRow("point") << QStringLiteral("key_point") << QStringLiteral("12.3") << 3;
    QTest::newRow("backspace") << QStringLiteral("key_back") << QStringLiteral("13") << 1;
    QTest::newRow("left") << QStringLiteral("key_left") << QStringLiteral("123") << 1;
    QTest::newRow("right") << QStringLiteral("key_right") << QStringLiteral("123") << 3;
    QTest::newRow("clear") << QStringLiteral("key_clear") << QString() << 0;
    QTest::newRow("enter") << QStringLiteral("key_enter") << QStringLiteral("123") << 2;
    QTest::newRow("close") << QStringLiteral("key_close") << QStringLiteral("123") << 2;
}

void tst_Keypad::eachKeyTypesIntoALineEdit()
{
    QFETCH(QString, key);
    QVERIFY(m_desk->key(key));
    m_desk->line.setText(QStringLiteral("123"));
    m_desk->line.setCursorPosition(2);
    m_desk->click(key);
    QTEST(m_desk->line.text(), "expectedText");
    QTEST(m_desk->line.cursorPosition(), "expectedCursor");
}

void tst_Keypad::clearEmptiesASpinBox()
{
    m_desk->spin.setValue(1234);
    m_desk->spin.setFocus();
    m_desk->click(QStringLiteral("key_clear"));
    QCOMPARE(m_desk->spin.text(), QString());
}

void tst_Keypad::aNumberCanBeTypedIntoASpinBox()
{
    m_desk->spin.setFocus();
    for (const char *key : {"key_clear", "key_4", "key_0", "key_7", "key_enter"})
        m_desk->click(QLatin1String(key));
    QCOMPARE(m_desk->spin.value(), 407);
}

void tst_Keypad::thePointIsTheOneThatWasSet_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("English") << QLocale(QLocale::English);
    QTest::newRow("German") << QLocale(QLocale::German);
}

void tst_Keypad::thePointIsTheOneThatWasSet()
{
    QFETCH(QLocale, locale);
    m_desk->decimal.setLocale(locale);
    m_desk->decimal.setFocus();
    m_desk->keypad.setPoint(locale.decimalPoint());
    QCOMPARE(m_desk->key(QStringLiteral("key_point"))->text(), QString(locale.decimalPoint()));
    for (const char *key : {"key_clear", "key_2", "key_point", "key_5", "key_enter"})
        m_desk->click(QLatin1String(key));
    QCOMPARE(m_desk->decimal.value(), 2.5);
}

void tst_Keypad::anAddressIsTypedAcrossItsOctets_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("with points") << QStringLiteral("10.0.2.15");
    QTest::newRow("third digits move on") << QStringLiteral("192168100200");
    QTest::newRow("both") << QStringLiteral("192.168.1.13");
}

void tst_Keypad::anAddressIsTypedAcrossItsOctets()
{
    QFETCH(QString, typed);
    m_desk->address.setIPFocus();
    for (const QChar character : typed)
        m_desk->click(character == QLatin1Char('.') ? QStringLiteral("key_point")
                                                    : QStringLiteral("key_%1").arg(character));
    QCOMPARE(m_desk->address.text().remove(QLatin1Char('.')), QString(typed).remove(QLatin1Char('.')));
}

void tst_Keypad::backspaceGoesBackAcrossOctets()
{
    m_desk->address.setText(QStringLiteral("1.2.3.4"));
    m_desk->address.setIPFocus();
    for (const char *key : {"key_8", "key_point", "key_back", "key_back", "key_back"})
        m_desk->click(QLatin1String(key));
    QCOMPARE(m_desk->address.text(), QStringLiteral("..3.4"));
}

void tst_Keypad::theReleaseGoesToWhoHasTheFocusThen()
{
    QStringList heard;
    class Listener : public QObject
    {
    public:
        explicit Listener(QStringList *heard)
            : m_heard(heard)
        {
        }

        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)
                *m_heard << watched->objectName() + (event->type() == QEvent::KeyPress
                                                         ? QStringLiteral(" down")
                                                         : QStringLiteral(" up"));
            return false;
        }

    private:
        QStringList *const m_heard;
    } listener(&heard);
    m_desk->line.setObjectName(QStringLiteral("line"));
    m_desk->spin.setObjectName(QStringLiteral("spin"));
    m_desk->line.installEventFilter(&listener);
    m_desk->spin.installEventFilter(&listener);
    connect(&m_desk->line, &QLineEdit::textEdited, this, [this] { m_desk->spin.setFocus(); });
    m_desk->click(QStringLiteral("key_5"));
    QCOMPARE(heard, (QStringList{QStringLiteral("line down"), QStringLiteral("spin up")}));
}

void tst_Keypad::aTouchLeavesTheFocusWhereItIs()
{
    const auto keys = m_desk->keypad.findChildren<QAbstractButton *>();
    QCOMPARE(keys.size(), 17);
    for (const QAbstractButton *key : keys) {
        m_desk->click(key->objectName());
        QVERIFY2(m_desk->line.hasFocus(), qPrintable(key->objectName()));
    }
    QTest::mouseClick(m_desk->windowHandle(), Qt::LeftButton, {}, m_desk->keypad.pos() + QPoint(3, 3));
    QVERIFY(m_desk->line.hasFocus());
    QTest::touchEvent(m_desk->windowHandle(), m_device)
        .press(0, m_desk->centerOf(QStringLiteral("key_5")), m_desk->windowHandle());
    QTest::touchEvent(m_desk->windowHandle(), m_device)
        .release(0, m_desk->centerOf(QStringLiteral("key_5")), m_desk->windowHandle());
    QVERIFY(m_desk->line.hasFocus());
    // The window does take it otherwise.
    QTest::mouseClick(m_desk->windowHandle(), Qt::LeftButton, {}, QPoint(495, 395));
    QVERIFY(m_desk->hasFocus());
}

void tst_Keypad::whatMissesTheKeysReachesNobody()
{
    QTest::mouseClick(m_desk->windowHandle(), Qt::LeftButton, {}, QPoint(495, 395));
    QCOMPARE(m_desk->presses, 1);
    QTest::mouseClick(m_desk->windowHandle(), Qt::LeftButton, {}, m_desk->keypad.pos() + QPoint(3, 3));
    QCOMPARE(m_desk->presses, 1);
}

void tst_Keypad::nothingInItTakesTheFocus()
{
    QCOMPARE(m_desk->keypad.focusPolicy(), Qt::NoFocus);
    const auto children = m_desk->keypad.findChildren<QWidget *>();
    QVERIFY(!children.isEmpty());
    for (const QWidget *child : children)
        QCOMPARE(child->focusPolicy(), Qt::NoFocus);
}

void tst_Keypad::keysAreAsLargeAsAFinger()
{
    const auto keys = m_desk->keypad.findChildren<QAbstractButton *>();
    QCOMPARE(keys.size(), 17);
    for (const QAbstractButton *key : keys) {
        QVERIFY(key->width() >= 56);
        QVERIFY(key->height() >= 48);
        QVERIFY(m_desk->keypad.rect().contains(key->geometry()));
    }
}

void tst_Keypad::aHeldKeyRepeats_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("byFinger");
    for (const char *key : {"key_back", "key_left", "key_right"}) {
        QTest::addRow("%s, mouse", key) << QString::fromLatin1(key) << false;
        QTest::addRow("%s, finger", key) << QString::fromLatin1(key) << true;
    }
}

void tst_Keypad::aHeldKeyRepeats()
{
    QFETCH(QString, key);
    QFETCH(bool, byFinger);
    m_desk->line.setText(QStringLiteral("123456"));
    m_desk->line.setCursorPosition(key == QLatin1String("key_right") ? 0 : 6);
    m_desk->key(key)->setAutoRepeatDelay(10);
    m_desk->key(key)->setAutoRepeatInterval(10);
    const QPoint place = m_desk->centerOf(key);
    QWindow *window = m_desk->windowHandle();
    if (byFinger)
        QTest::touchEvent(window, m_device).press(0, place, window);
    else
        QTest::mousePress(window, Qt::LeftButton, {}, place);
    QTRY_COMPARE(m_desk->line.cursorPosition(), key == QLatin1String("key_right") ? 6 : 0);
    if (byFinger)
        QTest::touchEvent(window, m_device).release(0, place, window);
    else
        QTest::mouseRelease(window, Qt::LeftButton, {}, place);
    QVERIFY(!m_desk->key(key)->isDown());
}

void tst_Keypad::aHeldDigitDoesNotRepeat()
{
    for (int digit = 0; digit <= 9; ++digit)
        QVERIFY(!m_desk->key(QStringLiteral("key_%1").arg(digit))->autoRepeat());
}

void tst_Keypad::enterTypesReturnOnceTheFingerLeaves()
{
    const QSignalSpy returned(&m_desk->line, &QLineEdit::returnPressed);
    const QSignalSpy done(&m_desk->keypad, &Keypad::done);
    const QPoint place = m_desk->centerOf(QStringLiteral("key_enter"));
    QTest::mousePress(m_desk->windowHandle(), Qt::LeftButton, {}, place);
    QCOMPARE(returned.count(), 0);
    QTest::mouseRelease(m_desk->windowHandle(), Qt::LeftButton, {}, place);
    QCOMPARE(returned.count(), 1);
    QCOMPARE(done.count(), 1);
}

void tst_Keypad::theCloseKeyOnlyCloses()
{
    const QSignalSpy returned(&m_desk->line, &QLineEdit::returnPressed);
    const QSignalSpy done(&m_desk->keypad, &Keypad::done);
    m_desk->click(QStringLiteral("key_close"));
    QCOMPARE(done.count(), 1);
    QCOMPARE(returned.count(), 0);
    m_desk->click(QStringLiteral("key_5"));
    QCOMPARE(done.count(), 1);
}

void tst_Keypad::fingersMayOverlap()
{
    QWindow *window = m_desk->windowHandle();
    const QPoint one = m_desk->centerOf(QStringLiteral("key_1"));
    const QPoint two = m_desk->centerOf(QStringLiteral("key_2"));
    QTest::QTouchEventSequence fingers = QTest::touchEvent(window, m_device, false);
    fingers.press(0, one, window).commit();
    fingers.stationary(0).press(1, two, window).commit();
    fingers.release(0, one, window).stationary(1).commit();
    fingers.release(1, two, window).commit();
    QCOMPARE(m_desk->line.text(), QStringLiteral("12"));
}

void tst_Keypad::withoutAFocusNothingIsTyped()
{
    m_desk->line.clearFocus();
    QVERIFY(!QApplication::focusWidget());
    for (const char *key : {"key_1", "key_clear", "key_enter"})
        m_desk->click(QLatin1String(key));
    QCOMPARE(m_desk->line.text(), QString());
}

void tst_Keypad::thePlaceIsBesideTheField_data()
{
    QTest::addColumn<QRect>("field");
    QTest::addColumn<QPoint>("expectedPlace");
    QTest::newRow("in the middle: below") << QRect(400, 200, 100, 30) << QPoint(400, 236);
    QTest::newRow("top left corner: below") << QRect(0, 0, 100, 30) << QPoint(0, 36);
    QTest::newRow("top right corner: below, moved in") << QRect(900, 0, 100, 30) << QPoint(700, 36);
    QTest::newRow("last room below") << QRect(400, 264, 100, 30) << QPoint(400, 300);
    QTest::newRow("one pixel lower: above") << QRect(400, 265, 100, 30) << QPoint(400, 59);
    QTest::newRow("bottom left corner: above") << QRect(0, 470, 100, 30) << QPoint(0, 264);
    QTest::newRow("bottom right corner: above, moved in") << QRect(900, 470, 100, 30) << QPoint(700, 264);
    QTest::newRow("high: right") << QRect(100, 150, 100, 200) << QPoint(206, 150);
    QTest::newRow("very high: right") << QRect(100, 0, 100, 500) << QPoint(206, 0);
    QTest::newRow("high and low: right, moved in") << QRect(100, 200, 100, 300) << QPoint(206, 200);
    QTest::newRow("high, no room at the right: left") << QRect(700, 150, 100, 200) << QPoint(394, 150);
    QTest::newRow("wide and high, right") << QRect(0, 150, 694, 200) << QPoint(700, 150);
    QTest::newRow("reaches out at the top") << QRect(400, -20, 100, 30) << QPoint(400, 16);
    QTest::newRow("reaches out at the left") << QRect(-50, 100, 100, 30) << QPoint(0, 136);
}

void tst_Keypad::thePlaceIsBesideTheField()
{
    QFETCH(QRect, field);
    const QSize size(300, 200);
    const QRect bounds(0, 0, 1000, 500);
    const auto place = K7Host::placeBeside(field, size, bounds);
    QVERIFY(place);
    QTEST(*place, "expectedPlace");
    QVERIFY(bounds.contains(QRect(*place, size)));
    QVERIFY(!field.intersects(QRect(*place, size)));
}

void tst_Keypad::noPlaceIsFoundWhereThereIsNoRoom_data()
{
    QTest::addColumn<QRect>("field");
    QTest::addColumn<QSize>("size");
    QTest::newRow("the field fills the window") << QRect(0, 0, 1000, 500) << QSize(300, 200);
    QTest::newRow("too little on each side") << QRect(295, 195, 410, 110) << QSize(300, 200);
    QTest::newRow("higher than the window") << QRect(0, 0, 10, 10) << QSize(300, 501);
    QTest::newRow("wider than the window") << QRect(0, 0, 10, 10) << QSize(1001, 200);
}

void tst_Keypad::noPlaceIsFoundWhereThereIsNoRoom()
{
    QFETCH(QRect, field);
    QFETCH(QSize, size);
    QVERIFY(!K7Host::placeBeside(field, size, QRect(0, 0, 1000, 500)));
}

QTEST_MAIN(tst_Keypad)

#include "tst_keypad.moc"
