// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <keypad.h>
#include <keypadtrigger.h>
#include <scaledview.h>

#include <korvo/ec/k7dropbutton.h>
#include <ovo/widgets/iplineedit.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTouchDevice>
#include <QWindow>

#include <memory>

using K7Host::Keypad;
using K7Host::KeypadTrigger;
using K7Host::ScaledView;
using Korvo::EC::K7DropButton;
using Ovo::Widgets::IPLineEdit;

namespace {

const char Property[] = "Brisa_VK";

/// As large as the console, and taking the focus itself when it is clicked, as the console does. A field of
/// each kind, an editor that is none, and a key.
class Desk : public QWidget
{
public:
    Desk()
    {
        resize(2700, 1050);
        setFocusPolicy(Qt::ClickFocus);
        line.setObjectName(QStringLiteral("line"));
        spin.setObjectName(QStringLiteral("spin"));
        decimal.setObjectName(QStringLiteral("decimal"));
        address.setObjectName(QStringLiteral("address"));
        plain.setObjectName(QStringLiteral("plain"));
        frame.setObjectName(QStringLiteral("frame"));
        framed.setObjectName(QStringLiteral("framed"));
        line.setGeometry(800, 400, 160, 32);
        spin.setGeometry(1000, 400, 160, 32);
        decimal.setGeometry(1200, 400, 160, 32);
        address.setGeometry(1400, 400, 240, 32);
        plain.setGeometry(800, 100, 160, 32);
        frame.setGeometry(1700, 400, 240, 100);
        framed.setGeometry(20, 20, 160, 32);
        framedKey.setGeometry(190, 20, 40, 60);
        key.setGeometry(100, 100, 66, 66);
        for (QWidget *field : std::initializer_list<QWidget *>{&line, &spin, &address, &frame})
            field->setProperty(Property, QStringLiteral("Vk_Number"));
        decimal.setProperty(Property, QStringLiteral("Vk_NumberFloat"));
        framedKey.setFocusPolicy(Qt::NoFocus);
        spin.setRange(0, 9999);
        decimal.setRange(0, 9999);
    }

    Keypad *keypad() const { return findChild<Keypad *>(); }
    bool hasKeypad() const { return keypad()->isVisible(); }

    /// Where \a widget is in the window.
    QRect placeOf(const QWidget *widget) const { return {widget->mapTo(this, QPoint()), widget->size()}; }

    QLineEdit line{this};
    QSpinBox spin{this};
    QDoubleSpinBox decimal{this};
    IPLineEdit address{this};
    QLineEdit plain{this};
    QFrame frame{this}; // the field, with its editor well inside
    QLineEdit framed{&frame};
    QPushButton framedKey{&frame};
    K7DropButton key{this};
    KeypadTrigger trigger{this};
};

} // namespace

class tst_KeypadTrigger : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void touchingAFieldBringsTheKeypad_data();
    void touchingAFieldBringsTheKeypad();
    void otherWaysToTheFocusBringNoKeypad_data();
    void otherWaysToTheFocusBringNoKeypad();
    void onlyUsableEditorsBringTheKeypad_data();
    void onlyUsableEditorsBringTheKeypad();
    void onlyNumberKindsBringTheKeypad_data();
    void onlyNumberKindsBringTheKeypad();
    void aPropertyAroundTheEditorCounts();
    void aButtonInAFieldBringsNoKeypad();
    void whatIsTypedArrives_data();
    void whatIsTypedArrives();
    void thePointFollowsTheKindOfTheField();

    void theKeypadNeverCoversTheField_data();
    void theKeypadNeverCoversTheField();
    void itDoesNotComeWithoutRoom();
    void itFollowsTheField_data();
    void itFollowsTheField();
    void itFollowsScrollingAndGoesOutOfSight();

    void anotherOctetKeepsIt();
    void anotherFieldTakesItOver_data();
    void anotherFieldTakesItOver();
    void itGoesWithTheField_data();
    void itGoesWithTheField();
    void aKeyOfTheConsoleWorksAtOnce_data();
    void aKeyOfTheConsoleWorksAtOnce();
    void enterAndTheCloseKeyEndIt_data();
    void enterAndTheCloseKeyEndIt();
    void itComesAgainAfterEnter();
    void escapeClosesItAndDoesNothingElse_data();
    void escapeClosesItAndDoesNothingElse();
    void theWindowMayGoWhileItIsOpen();
    void dialogsAreLeftAlone();

private:
    void show(qreal factor = 1);
    QWindow *handle() const;
    QPoint onScreen(const QPoint &pos) const { return pos * m_factor; }
    void click(const QWidget *widget);
    void touch(const QWidget *widget);
    void clickKey(const char *name);
    QWidget *find(const char *name) const { return m_desk->findChild<QWidget *>(QLatin1String(name)); }

    QTouchDevice *const m_device = QTest::createTouchDevice();
    std::unique_ptr<Desk> m_desk;
    std::unique_ptr<ScaledView> m_view;
    qreal m_factor = 1;
};

void tst_KeypadTrigger::init()
{
    m_desk = std::make_unique<Desk>();
}

void tst_KeypadTrigger::cleanup()
{
    m_view.reset();
    m_desk.reset();
}

void tst_KeypadTrigger::show(qreal factor)
{
    m_factor = factor;
    if (factor < 1)
        m_view = std::make_unique<ScaledView>(m_desk.get(), factor);
    QWidget *top = m_view ? static_cast<QWidget *>(m_view.get()) : m_desk.get();
    top->show();
    QVERIFY(QTest::qWaitForWindowActive(top));
    m_desk->setFocus();
    QVERIFY(!m_desk->hasKeypad());
}

QWindow *tst_KeypadTrigger::handle() const
{
    return m_view ? m_view->windowHandle() : m_desk->windowHandle();
}

void tst_KeypadTrigger::click(const QWidget *widget)
{
    QTest::mouseClick(handle(), Qt::LeftButton, {}, onScreen(m_desk->placeOf(widget).center()));
}

void tst_KeypadTrigger::touch(const QWidget *widget)
{
    const QPoint place = onScreen(m_desk->placeOf(widget).center());
    QTest::touchEvent(handle(), m_device).press(0, place, handle());
    QTest::touchEvent(handle(), m_device).release(0, place, handle());
}

void tst_KeypadTrigger::clickKey(const char *name)
{
    const auto *key = m_desk->keypad()->findChild<QAbstractButton *>(QLatin1String(name));
    QVERIFY(key);
    click(key);
}

void tst_KeypadTrigger::touchingAFieldBringsTheKeypad_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("byFinger");
    QTest::addColumn<qreal>("factor");
    for (const char *field : {"line", "spin", "decimal", "address", "octet_3", "framed"}) {
        for (const bool byFinger : {false, true}) {
            for (const qreal factor : {1.0, 0.5}) {
                QTest::addRow("%s, %s, %g", field, byFinger ? "finger" : "mouse", factor)
                    << QString::fromLatin1(field) << byFinger << factor;
            }
        }
    }
}

void tst_KeypadTrigger::touchingAFieldBringsTheKeypad()
{
    QFETCH(QString, field);
    QFETCH(bool, byFinger);
    QFETCH(qreal, factor);
    show(factor);
    const auto *widget = m_desk->findChild<QWidget *>(field);
    QVERIFY(widget);
    if (byFinger)
        touch(widget);
    else
        click(widget);
    QTRY_VERIFY(m_desk->hasKeypad());
    QVERIFY(m_desk->rect().contains(m_desk->keypad()->geometry()));
    const QWidget *focused = K7Host::focusedIn(m_desk.get());
    QVERIFY(focused == widget || widget->isAncestorOf(focused));
}

void tst_KeypadTrigger::otherWaysToTheFocusBringNoKeypad_data()
{
    QTest::addColumn<bool>("byTab");
    QTest::newRow("Tab") << true;
    QTest::newRow("code") << false;
}

void tst_KeypadTrigger::otherWaysToTheFocusBringNoKeypad()
{
    QFETCH(bool, byTab);
    show();
    if (byTab)
        QTest::keyClick(handle(), Qt::Key_Tab);
    else
        m_desk->line.setFocus();
    QVERIFY(m_desk->line.hasFocus());
    QCoreApplication::processEvents();
    QVERIFY(!m_desk->hasKeypad());
}

void tst_KeypadTrigger::onlyUsableEditorsBringTheKeypad_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<bool>("value");
    QTest::newRow("read-only line") << QStringLiteral("line") << QByteArray("readOnly") << true;
    QTest::newRow("read-only spin box") << QStringLiteral("spin") << QByteArray("readOnly") << true;
    QTest::newRow("disabled line") << QStringLiteral("line") << QByteArray("enabled") << false;
    QTest::newRow("disabled address") << QStringLiteral("address") << QByteArray("enabled") << false;
    QTest::newRow("line without focus") << QStringLiteral("line") << QByteArray("unfocusable") << true;
}

void tst_KeypadTrigger::onlyUsableEditorsBringTheKeypad()
{
    QFETCH(QString, field);
    QFETCH(QByteArray, property);
    QFETCH(bool, value);
    show();
    auto *widget = m_desk->findChild<QWidget *>(field);
    widget->setProperty(property.constData(), value);
    if (property == "unfocusable")
        widget->setFocusPolicy(Qt::NoFocus);
    click(widget);
    QCoreApplication::processEvents();
    QVERIFY(!m_desk->hasKeypad());
}

void tst_KeypadTrigger::onlyNumberKindsBringTheKeypad_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");
    QTest::newRow("none") << QVariant() << false;
    QTest::newRow("number") << QVariant(QStringLiteral("Vk_Number")) << true;
    QTest::newRow("decimal number") << QVariant(QStringLiteral("Vk_NumberFloat")) << true;
    QTest::newRow("text") << QVariant(QStringLiteral("Vk_Text")) << false;
    QTest::newRow("longer") << QVariant(QStringLiteral("Vk_Numbers")) << false;
    QTest::newRow("other case") << QVariant(QStringLiteral("vk_number")) << false;
    QTest::newRow("true") << QVariant(true) << false;
}

void tst_KeypadTrigger::onlyNumberKindsBringTheKeypad()
{
    QFETCH(QVariant, value);
    QFETCH(bool, expected);
    show();
    m_desk->plain.setProperty(Property, value);
    click(&m_desk->plain);
    QVERIFY(m_desk->plain.hasFocus());
    QCoreApplication::processEvents();
    QCOMPARE(m_desk->hasKeypad(), expected);
}

void tst_KeypadTrigger::aPropertyAroundTheEditorCounts()
{
    show();
    click(&m_desk->framed);
    QTRY_VERIFY(m_desk->hasKeypad());
    const QRect keypad = m_desk->keypad()->geometry();
    QVERIFY(!keypad.intersects(m_desk->frame.geometry()));
    QVERIFY(keypad.top() > m_desk->frame.geometry().bottom());
}

void tst_KeypadTrigger::aButtonInAFieldBringsNoKeypad()
{
    show();
    m_desk->setFocusPolicy(Qt::NoFocus);
    m_desk->framed.setFocus();
    click(&m_desk->framedKey);
    QCoreApplication::processEvents();
    QVERIFY(m_desk->framed.hasFocus());
    QVERIFY(!m_desk->hasKeypad());
}

void tst_KeypadTrigger::whatIsTypedArrives_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("native") << 1.0;
    QTest::newRow("reduced") << 0.5;
}

void tst_KeypadTrigger::whatIsTypedArrives()
{
    QFETCH(qreal, factor);
    show(factor);
    click(find("octet_1"));
    QTRY_VERIFY(m_desk->hasKeypad());
    for (const char *key : {"key_1", "key_9", "key_2", "key_1", "key_6", "key_8", "key_1", "key_point",
                            "key_1", "key_5", "key_back", "key_3"})
        clickKey(key);
    QCOMPARE(m_desk->address.text(), QStringLiteral("192.168.1.13"));
    QVERIFY(m_desk->hasKeypad());
}

void tst_KeypadTrigger::thePointFollowsTheKindOfTheField()
{
    show();
    const auto *point = m_desk->keypad()->findChild<QAbstractButton *>(QStringLiteral("key_point"));
    for (QWidget *field : std::initializer_list<QWidget *>{&m_desk->decimal, &m_desk->address})
        field->setLocale(QLocale(QLocale::German));
    click(&m_desk->decimal);
    QTRY_VERIFY(m_desk->hasKeypad());
    QCOMPARE(point->text(), QStringLiteral(","));
    click(&m_desk->address);
    QTRY_COMPARE(point->text(), QStringLiteral("."));
    QVERIFY(m_desk->hasKeypad());
}

void tst_KeypadTrigger::theKeypadNeverCoversTheField_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QRect>("geometry");
    const QSize small(160, 32);
    const QSize high(200, 700);
    for (const char *field : {"line", "spin", "decimal", "address", "framed"}) {
        for (const QSize &size : {small, high}) {
            const int right = 2700 - size.width();
            const int bottom = 1050 - size.height();
            for (const int x : {0, right / 2, right}) {
                for (const int y : {0, bottom / 2, bottom}) {
                    QTest::addRow("%s of %d by %d at %d, %d", field, size.width(), size.height(), x, y)
                        << QString::fromLatin1(field) << QRect(QPoint(x, y), size);
                }
            }
        }
    }
}

void tst_KeypadTrigger::theKeypadNeverCoversTheField()
{
    QFETCH(QString, field);
    QFETCH(QRect, geometry);
    show();
    auto *widget = m_desk->findChild<QWidget *>(field);
    QVERIFY(widget);
    QWidget *marked = widget == &m_desk->framed ? &m_desk->frame : widget;
    marked->setMinimumSize(geometry.size());
    marked->setGeometry(geometry);
    QCOMPARE(marked->geometry(), geometry);
    m_desk->framed.setGeometry(m_desk->frame.rect().adjusted(8, 8, -8, -8));
    click(widget);
    QTRY_VERIFY(m_desk->hasKeypad());
    const QRect keypad = m_desk->keypad()->geometry();
    QVERIFY(keypad.width() > 300);
    QVERIFY(m_desk->rect().contains(keypad));
    QVERIFY(!keypad.intersects(geometry));
    // Close by, so that both are seen at one glance.
    QVERIFY(keypad.intersects(geometry.adjusted(-10, -10, 10, 10)));
}

void tst_KeypadTrigger::itDoesNotComeWithoutRoom()
{
    show();
    m_desk->frame.setGeometry(m_desk->rect().adjusted(50, 50, -50, -50));
    click(&m_desk->framed);
    QVERIFY(m_desk->framed.hasFocus());
    QCoreApplication::processEvents();
    QVERIFY(!m_desk->hasKeypad());
}

void tst_KeypadTrigger::itFollowsTheField_data()
{
    QTest::addColumn<QRect>("geometry");
    QTest::newRow("moved") << QRect(1500, 600, 160, 32);
    QTest::newRow("moved to the edge") << QRect(2540, 1018, 160, 32);
    QTest::newRow("higher") << QRect(800, 400, 160, 300);
    QTest::newRow("wider") << QRect(800, 400, 700, 32);
}

void tst_KeypadTrigger::itFollowsTheField()
{
    QFETCH(QRect, geometry);
    show();
    click(&m_desk->line);
    QTRY_VERIFY(m_desk->hasKeypad());
    m_desk->line.setGeometry(geometry);
    QVERIFY(m_desk->hasKeypad());
    const auto expected = K7Host::placeBeside(geometry, m_desk->keypad()->size(), m_desk->rect());
    QVERIFY(expected);
    QCOMPARE(m_desk->keypad()->pos(), *expected);
}

void tst_KeypadTrigger::itFollowsScrollingAndGoesOutOfSight()
{
    show();
    QScrollArea area(m_desk.get());
    area.setGeometry(100, 300, 400, 200);
    auto *page = new QWidget;
    page->resize(300, 1000);
    auto *field = new QLineEdit(page);
    field->setGeometry(10, 60, 100, 30);
    field->setProperty(Property, QStringLiteral("Vk_Number"));
    area.setWidget(page);
    area.show();
    click(field);
    QTRY_VERIFY(m_desk->hasKeypad());
    const QPoint before = m_desk->keypad()->pos();
    area.verticalScrollBar()->setValue(20);
    QCOMPARE(m_desk->keypad()->pos(), before - QPoint(0, 20));
    area.verticalScrollBar()->setValue(500);
    QTRY_VERIFY(!m_desk->hasKeypad());
}

void tst_KeypadTrigger::anotherOctetKeepsIt()
{
    show();
    click(find("octet_1"));
    QTRY_VERIFY(m_desk->hasKeypad());
    const QPoint place = m_desk->keypad()->pos();
    class HideWatch : public QObject
    {
    public:
        bool eventFilter(QObject * /*watched*/, QEvent *event) override
        {
            wasHidden = wasHidden || event->type() == QEvent::Hide;
            return false;
        }

        bool wasHidden = false;
    } watch;
    m_desk->keypad()->installEventFilter(&watch);
    click(find("octet_4"));
    QVERIFY(find("octet_4")->hasFocus());
    QCoreApplication::processEvents();
    QVERIFY(m_desk->hasKeypad());
    QVERIFY(!watch.wasHidden);
    QCOMPARE(m_desk->keypad()->pos(), place);
}

void tst_KeypadTrigger::anotherFieldTakesItOver_data()
{
    QTest::addColumn<bool>("byTouch");
    QTest::newRow("touched") << true;
    QTest::newRow("by code") << false;
}

void tst_KeypadTrigger::anotherFieldTakesItOver()
{
    QFETCH(bool, byTouch);
    show();
    click(&m_desk->line);
    QTRY_VERIFY(m_desk->hasKeypad());
    if (byTouch)
        click(&m_desk->address);
    else
        m_desk->address.setIPFocus();
    QTRY_COMPARE(m_desk->keypad()->x(), m_desk->address.x());
    QVERIFY(m_desk->hasKeypad());
}

void tst_KeypadTrigger::itGoesWithTheField_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("way");
    QTest::addColumn<qreal>("factor");
    const QStringList fields{QStringLiteral("line"), QStringLiteral("spin"), QStringLiteral("address")};
    const QStringList ways{QStringLiteral("hidden"),          QStringLiteral("disabled"),
                           QStringLiteral("destroyed"),       QStringLiteral("moved out of the window"),
                           QStringLiteral("read-only"),       QStringLiteral("focus taken away"),
                           QStringLiteral("focus elsewhere"), QStringLiteral("window disabled"),
                           QStringLiteral("window left"),     QStringLiteral("window hidden")};
    for (const QString &field : fields) {
        for (const QString &way : ways) {
            if (field == QLatin1String("address") && way == QLatin1String("read-only"))
                continue; // it has no such property
            QTest::addRow("%s, %s", qPrintable(field), qPrintable(way)) << field << way << 1.0;
            QTest::addRow("%s, %s, reduced", qPrintable(field), qPrintable(way)) << field << way << 0.5;
        }
    }
}

void tst_KeypadTrigger::itGoesWithTheField()
{
    QFETCH(QString, field);
    QFETCH(QString, way);
    QFETCH(qreal, factor);
    show(factor);

    // Of its own, to be deleted; followed by another field, which must not take the keypad over.
    QWidget *widget = nullptr;
    if (field == QLatin1String("line"))
        widget = new QLineEdit(m_desk.get());
    else if (field == QLatin1String("spin"))
        widget = new QSpinBox(m_desk.get());
    else
        widget = new IPLineEdit(m_desk.get());
    widget->setProperty(Property, QStringLiteral("Vk_Number"));
    widget->setGeometry(300, 300, 240, 32);
    widget->show();
    QWidget::setTabOrder(widget, &m_desk->line);
    click(widget);
    QTRY_VERIFY(m_desk->hasKeypad());

    QWidget other;
    if (way == QLatin1String("hidden")) {
        widget->hide();
    } else if (way == QLatin1String("disabled")) {
        widget->setEnabled(false);
    } else if (way == QLatin1String("destroyed")) {
        delete widget;
    } else if (way == QLatin1String("moved out of the window")) {
        widget->setParent(&other);
    } else if (way == QLatin1String("focus taken away")) {
        K7Host::focusedIn(m_desk.get())->clearFocus();
    } else if (way == QLatin1String("focus elsewhere")) {
        m_desk->plain.setFocus();
    } else if (way == QLatin1String("window disabled")) {
        m_desk->setEnabled(false);
    } else if (way == QLatin1String("window left")) {
        other.show();
        QApplication::setActiveWindow(&other);
    } else if (way == QLatin1String("window hidden")) {
        handle()->hide();
    } else {
        widget->setProperty("readOnly", true);
    }
    QTRY_VERIFY(m_desk->keypad()->isHidden());
}

void tst_KeypadTrigger::aKeyOfTheConsoleWorksAtOnce_data()
{
    QTest::addColumn<bool>("takesFocus");
    QTest::addColumn<qreal>("factor");
    QTest::newRow("takes the focus") << true << 1.0;
    QTest::newRow("leaves it") << false << 1.0;
    QTest::newRow("takes the focus, reduced") << true << 0.5;
    QTest::newRow("leaves it, reduced") << false << 0.5;
}

void tst_KeypadTrigger::aKeyOfTheConsoleWorksAtOnce()
{
    QFETCH(bool, takesFocus);
    QFETCH(qreal, factor);
    show(factor);
    click(&m_desk->line);
    QTRY_VERIFY(m_desk->hasKeypad());
    m_desk->key.setFocusPolicy(takesFocus ? Qt::StrongFocus : Qt::NoFocus);
    if (!takesFocus)
        m_desk->setFocusPolicy(Qt::NoFocus);
    const QSignalSpy clicked(&m_desk->key, &QAbstractButton::clicked);
    click(&m_desk->key);
    QCOMPARE(clicked.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(m_desk->hasKeypad(), !takesFocus);
}

void tst_KeypadTrigger::enterAndTheCloseKeyEndIt_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("expectedReturns");
    QTest::newRow("enter") << QByteArray("key_enter") << 1;
    QTest::newRow("close") << QByteArray("key_close") << 0;
}

void tst_KeypadTrigger::enterAndTheCloseKeyEndIt()
{
    QFETCH(QByteArray, key);
    show();
    const QSignalSpy returned(&m_desk->line, &QLineEdit::returnPressed);
    click(&m_desk->line);
    QTRY_VERIFY(m_desk->hasKeypad());
    clickKey(key.constData());
    QVERIFY(!m_desk->hasKeypad());
    QTEST(returned.count(), "expectedReturns");
    QVERIFY(m_desk->line.hasFocus());
}

void tst_KeypadTrigger::itComesAgainAfterEnter()
{
    show();
    for (int time = 0; time < 2; ++time) {
        click(&m_desk->line);
        QTRY_VERIFY(m_desk->hasKeypad());
        clickKey("key_enter");
        QVERIFY(!m_desk->hasKeypad());
    }
}

void tst_KeypadTrigger::escapeClosesItAndDoesNothingElse_data()
{
    whatIsTypedArrives_data();
}

void tst_KeypadTrigger::escapeClosesItAndDoesNothingElse()
{
    QFETCH(qreal, factor);
    show(factor);
    QShortcut shortcut(Qt::Key_Escape, m_desk.get());
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    click(&m_desk->line);
    QTRY_VERIFY(m_desk->hasKeypad());
    QTest::keyClick(handle(), Qt::Key_Escape);
    QVERIFY(!m_desk->hasKeypad());
    QVERIFY(m_desk->line.hasFocus());
    QCOMPARE(activated.count(), 0);
    QTest::keyClick(handle(), Qt::Key_Escape);
    QCOMPARE(activated.count(), 1);
}

void tst_KeypadTrigger::theWindowMayGoWhileItIsOpen()
{
    show();
    click(&m_desk->line);
    QTRY_VERIFY(m_desk->hasKeypad());
    const QPointer<Keypad> keypad = m_desk->keypad();
    m_desk.reset();
    QVERIFY(!keypad);
    QWidget plain;
    plain.setFocusPolicy(Qt::StrongFocus);
    plain.setWindowTitle(QStringLiteral("Without a field"));
    auto *trigger = new KeypadTrigger(&plain);
    QVERIFY(plain.findChild<Keypad *>());
    delete trigger;
    QVERIFY(!plain.findChild<Keypad *>());
}

void tst_KeypadTrigger::dialogsAreLeftAlone()
{
    show();
    QDialog dialog(m_desk.get());
    dialog.resize(600, 600);
    QLineEdit field(&dialog);
    field.setProperty(Property, QStringLiteral("Vk_Number"));
    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {}, field.geometry().center());
    QVERIFY(field.hasFocus());
    QCoreApplication::processEvents();
    QVERIFY(!m_desk->hasKeypad());
}

QTEST_MAIN(tst_KeypadTrigger)

#include "tst_keypadtrigger.moc"
