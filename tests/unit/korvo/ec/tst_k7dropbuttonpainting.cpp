// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/k7dropbutton.h>

#include <QApplication>
#include <QButtonGroup>
#include <QFile>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTouchDevice>
#include <QWindow>

using Korvo::EC::K7DropButton;

namespace {

// The key's palette: no two alike, and none of them the picture's.
const QColor well(0, 0, 40);
const QColor pressedGround(0, 120, 120);
const QColor checkedGround(0, 160, 0);
const QColor rim(200, 200, 0);
const QColor lettering(240, 240, 255);
const QColor letteringOff(90, 90, 110);
const QColor picture(255, 0, 0);
const QColor behind(255, 0, 255);

QPalette keyPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Button, well);
    palette.setColor(QPalette::Midlight, pressedGround);
    palette.setColor(QPalette::Light, checkedGround);
    palette.setColor(QPalette::Highlight, rim);
    palette.setColor(QPalette::ButtonText, lettering);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, letteringOff);
    return palette;
}

/// Tells all that happens to it, in its order.
class Key : public K7DropButton
{
public:
    explicit Key(QWidget *parent)
        : K7DropButton(parent)
    {
        setPalette(keyPalette());
        setFocusPolicy(Qt::StrongFocus);
        connect(this, &QAbstractButton::pressed, this, [this] { log << QStringLiteral("pressed"); });
        connect(this, &QAbstractButton::released, this, [this] { log << QStringLiteral("released"); });
    }
    ~Key() override { disconnect(this, nullptr, this, nullptr); } // it comes up once more

    QStringList log;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        log << (isDown() ? QStringLiteral("painted down") : QStringLiteral("painted up"));
        K7DropButton::paintEvent(event);
    }
};

/// Two keys in a group, on a bright ground that must not shine through them.
class Panel : public QWidget
{
public:
    explicit Panel(const QSize &keySize = QSize(60, 48))
    {
        QPalette bright;
        bright.setColor(QPalette::Window, behind);
        setPalette(bright);
        setAutoFillBackground(true);
        resize(2 * keySize.width() + 60, keySize.height() + 40);
        int x = 20;
        for (Key *&key : keys) {
            key = new Key(this);
            key->setGeometry(QRect(QPoint(x, 20), keySize));
            group.addButton(key);
            x += keySize.width() + 20;
        }
        group.setExclusive(false);
        connect(&group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonPressed), this,
                [this] { keys[0]->log << QStringLiteral("group pressed"); });
        connect(&group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonReleased), this,
                [this] { keys[0]->log << QStringLiteral("group released"); });
    }

    bool isShown()
    {
        show();
        activateWindow();
        keys[1]->setFocus(); // the first one has no rim
        // What comes late of showing it would be taken for the effects of what is done to it.
        return QTest::qWaitForWindowActive(this) && settle();
    }

    /// Until nothing is left to paint.
    bool settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        keys[0]->log.clear();
        keys[0]->paints = 0;
        paints = 0;
        layoutRequests = 0;
        return true;
    }

    int paints = 0;
    int layoutRequests = 0;
    QButtonGroup group;
    Key *keys[2] = {};

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            ++layoutRequests;
        return QWidget::event(event);
    }
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        QWidget::paintEvent(event);
    }
};

enum Way { Mouse, Finger, Keyboard, Click };

const char *const wayNames[] = {"mouse", "finger", "Space", "click()"};

/// Presses the first key of a panel and lifts, without letting anything be painted in between.
class Hand
{
public:
    Hand(Panel *panel, int way)
        : m_panel(panel)
        , m_key(panel->keys[0])
        , m_way(way)
        , m_pos(m_key->geometry().center())
        , m_finger(QTest::touchEvent(panel->windowHandle(), screen(), false))
    {
    }

    void press()
    {
        switch (m_way) {
        case Mouse:
            sendMouse(QEvent::MouseButtonPress, Qt::LeftButton);
            break;
        case Finger:
            m_finger.press(0, m_pos, m_panel->windowHandle());
            m_finger.commit(false);
            break;
        case Keyboard:
            sendKey(QEvent::KeyPress);
            break;
        default:
            m_key->click();
            break;
        }
    }

    void lift()
    {
        switch (m_way) {
        case Mouse:
            sendMouse(QEvent::MouseButtonRelease, Qt::NoButton);
            break;
        case Finger:
            m_finger.release(0, m_pos, m_panel->windowHandle());
            m_finger.commit(false);
            break;
        case Keyboard:
            sendKey(QEvent::KeyRelease);
            break;
        default:
            break; // comes up by itself
        }
    }

private:
    static QTouchDevice *screen()
    {
        static QTouchDevice *const device = QTest::createTouchDevice();
        return device;
    }

    void sendMouse(QEvent::Type type, Qt::MouseButtons buttons)
    {
        QWindow *window = m_panel->windowHandle();
        QMouseEvent event(type, m_pos, window->mapToGlobal(m_pos), Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    }
    void sendKey(QEvent::Type type)
    {
        if (type == QEvent::KeyPress && !m_key->hasFocus()) {
            m_key->setFocus();
            m_panel->settle(); // the rim
        }
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier);
        QCoreApplication::sendEvent(m_panel->windowHandle(), &event);
    }

    Panel *m_panel;
    QPointer<Key> m_key;
    int m_way;
    QPoint m_pos;
    QTest::QTouchEventSequence m_finger;
};

QImage imageOf(QWidget *widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Of the cap where the picture is see-through.
QColor groundOf(QWidget *key)
{
    return imageOf(key).pixelColor(key->width() * 3 / 4, key->height() / 2);
}

QColor pictureOn(QWidget *key)
{
    return imageOf(key).pixelColor(key->width() / 4, key->height() / 2);
}

int count(const QImage &image, const QColor &color)
{
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == color.rgba())
                ++pixels;
        }
    }
    return pixels;
}

QStringList &loggedMessages()
{
    static QStringList messages;
    return messages;
}

void collectMessages(QtMsgType, const QMessageLogContext &, const QString &message)
{
    loggedMessages() << message;
}

void addWays()
{
    QTest::addColumn<int>("way");
    for (const int way : {Mouse, Finger, Keyboard, Click})
        QTest::newRow(wayNames[way]) << way;
}

} // namespace

/// How keys paint themselves, and that nobody has to wait for it.
class tst_K7DropButtonPainting : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theSheetIsToldBackWhicheverItFollows_data();
    void theSheetIsToldBackWhicheverItFollows();
    void aSheetThatIsMoreThanAPictureColoursTheLettering();
    void aPictureThatCannotBeReadLeavesTheWell_data();
    void aPictureThatCannotBeReadLeavesTheWell();
    void statesShowInTheColoursOfThePalette();
    void eachStateLooksDifferent();
    void letteringIsPaintedWithinTheKey_data();
    void letteringIsPaintedWithinTheKey();
    void nothingShinesThrough_data();
    void nothingShinesThrough();
    void anIconIsShown();
    void anotherPictureRepaintsTheKeyAlone_data();
    void anotherPictureRepaintsTheKeyAlone();
    void keysShareAPictureUntilTheApplicationsSheetChanges();
    void aPressIsToldBeforeItIsPainted_data();
    void aPressIsToldBeforeItIsPainted();
    void anEventLoopOfAReceiverPaintsTheKeyPressed_data();
    void anEventLoopOfAReceiverPaintsTheKeyPressed();
    void aReceiverMayDeleteAKeyThatPaintsItself_data();
    void aReceiverMayDeleteAKeyThatPaintsItself();
    void whoStopsPaintingStopsIt_data();
    void whoStopsPaintingStopsIt();
    void aKeyInASceneIsPainted_data();
    void aKeyInASceneIsPainted();

private:
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    QString sheet(const char *name) const
    {
        return QStringLiteral("border-image:url(\"%1\")").arg(path(name));
    }
    void save(const char *name, const QColor &left, const QColor &right);

    QScopedPointer<QTemporaryDir> m_dir;
};

/// Without, the style paints keys.
void tst_K7DropButtonPainting::initTestCase()
{
    QApplication::setPalette(keyPalette(), "Korvo::EC::K7DropButton");
}

void tst_K7DropButtonPainting::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    save("key.png", picture, Qt::transparent);
    save("other.png", Qt::blue, Qt::transparent);
}

void tst_K7DropButtonPainting::cleanup()
{
    qApp->setStyleSheet(QString());
}

void tst_K7DropButtonPainting::save(const char *name, const QColor &left, const QColor &right)
{
    QImage image(60, 48, QImage::Format_ARGB32);
    image.fill(right);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width() / 2; ++x)
            image.setPixelColor(x, y, left);
    }
    QVERIFY(image.save(path(name)));
}

void tst_K7DropButtonPainting::theSheetIsToldBackWhicheverItFollows_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("paintsItself"); // with the second
    QTest::addColumn<bool>("isShown");
    QTest::addColumn<bool>("hasApplicationSheet");
    struct Sheet
    {
        const char *name;
        const char *text;
        bool isPicture;
    };
    const Sheet sheets[] = {
        {"nothing", "", false},
        {"picture", "border-image:url(\"%1/key.png\")", true},
        {"other picture", "border-image:url(\"%1/other.png\")", true},
        {"color first", "color: red; border-image:url(\"%1/key.png\")", false},
        {"semicolon", "border-image:url(\"%1/key.png\");", false},
        {"rule", "QToolButton { border-image: url(\"%1/key.png\"); }", false},
        {"single quotes", "border-image:url('%1/key.png')", false},
        {"no quotes", "border-image:url(%1/key.png)", false},
    };
    for (const Sheet &first : sheets) {
        for (const Sheet &second : sheets) {
            for (const bool isShown : {false, true}) {
                for (const bool hasApplicationSheet : {false, true}) {
                    QTest::addRow("%s, then %s%s%s", first.name, second.name, isShown ? ", shown" : "",
                                  hasApplicationSheet ? ", application's" : "")
                        << QString::fromLatin1(first.text) << QString::fromLatin1(second.text)
                        << second.isPicture << isShown << hasApplicationSheet;
                }
            }
        }
    }
}

void tst_K7DropButtonPainting::theSheetIsToldBackWhicheverItFollows()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, paintsItself);
    QFETCH(bool, isShown);
    QFETCH(bool, hasApplicationSheet);
    if (hasApplicationSheet)
        qApp->setStyleSheet(QStringLiteral("QLabel { color: red; }"));
    if (first.contains(QLatin1String("%1")))
        first = first.arg(m_dir->path());
    const bool showsPicture = second.contains(QLatin1String("%1"));
    if (showsPicture)
        second = second.arg(m_dir->path());

    Panel panel;
    Key *key = panel.keys[0];
    if (isShown)
        QVERIFY(panel.isShown());
    key->setStyleSheet(first);
    QCOMPARE(key->styleSheet(), first);
    if (isShown)
        QVERIFY(panel.settle());
    key->setStyleSheet(second);
    QCOMPARE(key->styleSheet(), second);
    if (!isShown)
        QVERIFY(panel.isShown());
    QCOMPARE(key->styleSheet(), second);
    QCOMPARE(key->property("styleSheet").toString(), paintsItself ? QString() : second);

    // The style leaves the panel to be seen where a picture is see-through.
    const QImage image = imageOf(&panel).copy(key->geometry());
    const QColor shown = image.pixelColor(45, 24);
    if (!showsPicture) {
        QCOMPARE(count(image, picture), 0);
        return;
    }
    QCOMPARE(shown, paintsItself ? well : behind);
    QVERIFY(image.pixelColor(10, 24) ==
            (second.contains(QLatin1String("other")) ? QColor(Qt::blue) : picture));
    QCOMPARE(key->testAttribute(Qt::WA_OpaquePaintEvent), paintsItself);
}

void tst_K7DropButtonPainting::aSheetThatIsMoreThanAPictureColoursTheLettering()
{
    Panel panel;
    Key *key = panel.keys[0];
    key->setText(QStringLiteral("HH"));
    key->setStyleSheet(QStringLiteral("color: #00ff80; ") + sheet("key.png"));
    QVERIFY(count(imageOf(key), QColor(0, 255, 128)) > 0);
    key->setStyleSheet(sheet("key.png"));
    QCOMPARE(count(imageOf(key), QColor(0, 255, 128)), 0);
    QVERIFY(count(imageOf(key), lettering) > 0);
}

void tst_K7DropButtonPainting::aPictureThatCannotBeReadLeavesTheWell_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("none") << QStringLiteral("border-image:url(\"\")");
    QTest::newRow("missing") << QStringLiteral("border-image:url(\"%1/missing.svg\")");
    QTest::newRow("broken") << QStringLiteral("border-image:url(\"%1/broken.png\")");
}

void tst_K7DropButtonPainting::aPictureThatCannotBeReadLeavesTheWell()
{
    QFETCH(QString, sheet);
    QFile broken(path("broken.png"));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    QVERIFY(broken.write("\x89PNG\r\n\x1a\n and no more") > 0);
    broken.close();
    Panel panel;
    Key *key = panel.keys[0];
    key->setStyleSheet(sheet.contains(QLatin1String("%1")) ? sheet.arg(m_dir->path()) : sheet);
    QVERIFY(panel.isShown());

    loggedMessages().clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectMessages);
    const QImage image = imageOf(key);
    const int messages = loggedMessages().size();
    for (int i = 0; i < 10; ++i)
        imageOf(key);
    qInstallMessageHandler(previous);
    QCOMPARE(count(image, well), key->width() * key->height());
    QVERIFY2(messages <= 1, qPrintable(loggedMessages().join(QLatin1Char('\n'))));
    QCOMPARE(loggedMessages().size(), messages);
}

void tst_K7DropButtonPainting::statesShowInTheColoursOfThePalette()
{
    Panel panel;
    Key *key = panel.keys[0];
    key->setStyleSheet(sheet("key.png"));
    key->setCheckable(true);
    QVERIFY(panel.isShown());
    const QPoint edge(45, 0);

    QCOMPARE(pictureOn(key), picture);
    QCOMPARE(groundOf(key), well);
    QCOMPARE(imageOf(key).pixelColor(edge), well);
    key->setDown(true);
    QCOMPARE(pictureOn(key), picture);
    QCOMPARE(groundOf(key), pressedGround);
    QCOMPARE(imageOf(key).pixelColor(edge), well); // it sinks
    key->setDown(false);
    key->setChecked(true);
    QCOMPARE(groundOf(key), checkedGround);
    QCOMPARE(imageOf(key).pixelColor(edge), checkedGround);
    key->setFocus();
    QVERIFY(key->hasFocus());
    QCOMPARE(groundOf(key), checkedGround);
    QCOMPARE(imageOf(key).pixelColor(edge), rim);
    key->setChecked(false);
    QCOMPARE(groundOf(key), well);
    QCOMPARE(imageOf(key).pixelColor(edge), rim);
    key->setEnabled(false);
    QCOMPARE(pictureOn(key), picture);
    QCOMPARE(imageOf(key).pixelColor(5, 24), well); // it is out of reach

    // Another palette shows at once.
    key->setEnabled(true);
    QPalette other = keyPalette();
    other.setColor(QPalette::Button, Qt::gray);
    key->setPalette(other);
    QCOMPARE(groundOf(key), QColor(Qt::gray));
}

void tst_K7DropButtonPainting::eachStateLooksDifferent()
{
    Panel panel;
    Key *key = panel.keys[0];
    key->setStyleSheet(sheet("key.png"));
    key->setCheckable(true);
    QVERIFY(panel.isShown());
    QVector<QImage> looks;
    QStringList states;
    const auto note = [&](const QString &state) {
        looks << imageOf(key);
        states << state;
    };
    for (const bool hasFocus : {false, true}) {
        panel.keys[hasFocus ? 0 : 1]->setFocus();
        for (const bool isChecked : {false, true}) {
            key->setChecked(isChecked);
            note(QStringLiteral("checked %1, focus %2").arg(isChecked).arg(hasFocus));
        }
        key->setDown(true); // checked or not: it will not stay so
        note(QStringLiteral("down, focus %1").arg(hasFocus));
        key->setDown(false);
    }
    key->setChecked(false);
    key->setEnabled(false);
    note(QStringLiteral("disabled"));

    QCOMPARE(looks.size(), 7);
    for (int i = 0; i < looks.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(looks.at(i) != looks.at(j),
                     qPrintable(states.at(i) + QLatin1String(" as ") + states.at(j)));
    }
}

void tst_K7DropButtonPainting::letteringIsPaintedWithinTheKey_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a word") << QStringLiteral("TAKE");
    QTest::newRow("two lines") << QStringLiteral("CLEAR\nALL");
    QTest::newRow("far too long") << QStringLiteral("HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH");
    QTest::newRow("far too high") << QStringLiteral("H\nH\nH\nH\nH\nH\nH\nH\nH\nH");
}

void tst_K7DropButtonPainting::letteringIsPaintedWithinTheKey()
{
    QFETCH(QString, text);
    Panel panel;
    Key *key = panel.keys[0];
    key->setStyleSheet(sheet("key.png"));
    key->setText(text);
    QVERIFY(panel.isShown());
    const int inside = count(imageOf(key), lettering);
    QVERIFY(inside > 0);
    const QImage whole = imageOf(&panel);
    QCOMPARE(count(whole, lettering), inside);
    key->setText(QString());
    QCOMPARE(count(imageOf(&panel), behind), count(whole, behind));
    key->setText(text);
    key->setEnabled(false);
    QCOMPARE(count(imageOf(key), lettering), 0);
    QVERIFY(count(imageOf(key), letteringOff) > 0);
}

void tst_K7DropButtonPainting::nothingShinesThrough_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("ratio");
    for (const QSize &size : {QSize(60, 48), QSize(61, 47), QSize(11, 9), QSize(3, 5), QSize(1, 1)}) {
        for (const qreal ratio : {1.0, 1.25, 2.0})
            QTest::addRow("%d by %d, ratio %g", size.width(), size.height(), ratio) << size << ratio;
    }
}

void tst_K7DropButtonPainting::nothingShinesThrough()
{
    QFETCH(QSize, size);
    QFETCH(qreal, ratio);
    save("key.png", QColor(255, 0, 0, 60), Qt::transparent);
    Panel panel(size);
    Key *key = panel.keys[0];
    key->setCheckable(true);
    key->setStyleSheet(sheet("key.png"));
    QVERIFY(panel.isShown());

    const auto isOpaque = [&] {
        QImage image(panel.size() * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        panel.render(&painter, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
        painter.end();
        const QRect pixels(key->geometry().topLeft() * ratio, key->size() * ratio);
        for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
            for (int x = pixels.left(); x <= pixels.right(); ++x) {
                const QColor color = image.pixelColor(x, y);
                if (color.alpha() != 255 || (color.red() > 230 && color.blue() > 230))
                    return false;
            }
        }
        return true;
    };
    QVERIFY(isOpaque());
    key->setDown(true);
    QVERIFY(isOpaque());
    key->setDown(false);
    key->setChecked(true);
    QVERIFY(isOpaque());
    key->setFocus();
    QVERIFY(isOpaque());
    key->setEnabled(false);
    QVERIFY(isOpaque());
}

void tst_K7DropButtonPainting::anIconIsShown()
{
    QPixmap icon(16, 16);
    icon.fill(Qt::green);
    for (const bool isIconFirst : {true, false}) {
        Panel panel;
        Key *key = panel.keys[0];
        QVERIFY(panel.isShown());
        if (isIconFirst)
            key->setIcon(icon);
        key->setStyleSheet(sheet("key.png"));
        QVERIFY(panel.settle());
        if (!isIconFirst)
            key->setIcon(icon);
        QVERIFY(panel.settle());
        const QImage image = imageOf(key);
        QVERIFY(count(image, Qt::green) > 100);
        QVERIFY(count(image, picture) > 100);
        key->setIcon(QIcon());
        QVERIFY(panel.settle());
        QCOMPARE(count(imageOf(key), Qt::green), 0);
        QVERIFY(count(imageOf(key), picture) > 100);
    }
}

void tst_K7DropButtonPainting::anotherPictureRepaintsTheKeyAlone_data()
{
    QTest::addColumn<bool>("hasLayout");
    QTest::addColumn<QSize>("smallest");
    QTest::addColumn<QSize>("largest");
    for (const bool hasLayout : {false, true}) {
        const char *const where = hasLayout ? "in a layout" : "placed";
        QTest::addRow("%s, fixed", where) << hasLayout << QSize(60, 48) << QSize(60, 48);
        QTest::addRow("%s, may grow", where) << hasLayout << QSize(40, 30) << QSize(90, 80);
        QTest::addRow("%s, free", where) << hasLayout << QSize() << QSize();
    }
}

void tst_K7DropButtonPainting::anotherPictureRepaintsTheKeyAlone()
{
    QFETCH(bool, hasLayout);
    QFETCH(QSize, smallest);
    QFETCH(QSize, largest);
    Panel panel;
    Key *key = panel.keys[0];
    if (hasLayout) {
        auto *layout = new QHBoxLayout(&panel);
        layout->addWidget(key);
        layout->addWidget(panel.keys[1]);
    }
    if (smallest.isValid()) {
        key->setMinimumSize(smallest);
        key->setMaximumSize(largest);
    }
    key->setText(QStringLiteral("T"));
    key->setStyleSheet(sheet("key.png"));
    QVERIFY(panel.isShown());
    QCOMPARE(pictureOn(key), picture);
    QVERIFY(panel.settle());

    for (const char *name : {"other.png", "missing.png", "key.png"}) {
        key->setStyleSheet(sheet(name));
        QTRY_COMPARE(key->paints, 1);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCOMPARE(key->paints, 1);
        QCOMPARE(panel.paints, 0);
        QCOMPARE(panel.layoutRequests, 0);
        QVERIFY(panel.settle());
    }

    // A state is no business of the panel's, either.
    key->setDown(true);
    QTRY_COMPARE(key->paints, 1);
    QCOMPARE(panel.paints, 0);
    QCOMPARE(panel.layoutRequests, 0);
}

void tst_K7DropButtonPainting::keysShareAPictureUntilTheApplicationsSheetChanges()
{
    qApp->setStyleSheet(QStringLiteral("QLabel { color: red; }"));
    Panel panel;
    for (Key *key : panel.keys)
        key->setStyleSheet(sheet("key.png"));
    QVERIFY(panel.isShown());
    QCOMPARE(pictureOn(panel.keys[0]), picture);

    save("key.png", Qt::cyan, Qt::transparent);
    QCOMPARE(pictureOn(panel.keys[1]), picture); // the file was read for the first one
    panel.keys[0]->setStyleSheet(sheet("other.png"));
    QCOMPARE(pictureOn(panel.keys[0]), QColor(Qt::blue));
    panel.keys[0]->setStyleSheet(sheet("key.png"));
    QCOMPARE(pictureOn(panel.keys[0]), picture);

    QVERIFY(panel.settle());
    qApp->setStyleSheet(QStringLiteral("QLabel { color: blue; }"));
    QTRY_VERIFY(panel.keys[0]->paints > 0);
    for (Key *key : panel.keys)
        QCOMPARE(pictureOn(key), QColor(Qt::cyan));
}

void tst_K7DropButtonPainting::aPressIsToldBeforeItIsPainted_data()
{
    addWays();
}

void tst_K7DropButtonPainting::aPressIsToldBeforeItIsPainted()
{
    QFETCH(int, way);
    Panel panel;
    Key *key = panel.keys[0];
    key->setCheckable(true);
    key->setStyleSheet(sheet("key.png"));
    QVERIFY(panel.isShown());
    Hand hand(&panel, way);
    const QStringList pressed = {QStringLiteral("pressed"), QStringLiteral("group pressed")};
    const QStringList released = {QStringLiteral("released"), QStringLiteral("group released")};
    if (way == Click) {
        hand.press();
        QCOMPARE(key->log, pressed + released);
        QTRY_COMPARE(key->log, pressed + released + QStringList(QStringLiteral("painted up")));
        return;
    }

    hand.press();
    QCOMPARE(key->log.mid(0, 2), pressed);
    QTRY_COMPARE(key->log, pressed + QStringList(QStringLiteral("painted down")));
    QVERIFY(panel.settle());
    hand.lift();
    QCOMPARE(key->log.mid(0, 2), released);
    QTRY_COMPARE(key->log, released + QStringList(QStringLiteral("painted up")));
}

void tst_K7DropButtonPainting::anEventLoopOfAReceiverPaintsTheKeyPressed_data()
{
    addWays();
}

void tst_K7DropButtonPainting::anEventLoopOfAReceiverPaintsTheKeyPressed()
{
    QFETCH(int, way);
    Panel panel;
    Key *key = panel.keys[0];
    key->setStyleSheet(sheet("key.png"));
    QVERIFY(panel.isShown());
    Hand hand(&panel, way);
    QStringList during;
    if (way == Click)
        key->update(); // it asks for no painting before it comes up
    const auto loop = [&] {
        key->log.clear();
        QTRY_VERIFY(!key->log.isEmpty());
        during << key->log;
    };
    const auto atPress = connect(key, &QAbstractButton::pressed, this, loop);
    hand.press();
    QCOMPARE(during, QStringList(QStringLiteral("painted down")));
    if (way == Click)
        return;

    disconnect(atPress);
    during.clear();
    connect(key, &QAbstractButton::released, this, loop);
    hand.lift();
    QCOMPARE(during, QStringList(QStringLiteral("painted up")));
}

void tst_K7DropButtonPainting::aReceiverMayDeleteAKeyThatPaintsItself_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("isAtPress");
    for (const bool isAtPress : {true, false}) {
        for (const int way : {Mouse, Finger, Keyboard, Click})
            QTest::addRow("%s, %s", wayNames[way], isAtPress ? "pressed" : "released") << way << isAtPress;
    }
}

void tst_K7DropButtonPainting::aReceiverMayDeleteAKeyThatPaintsItself()
{
    QFETCH(int, way);
    QFETCH(bool, isAtPress);
    Panel panel;
    const QPointer<Key> key = panel.keys[0];
    key->setStyleSheet(sheet("key.png"));
    QVERIFY(panel.isShown());
    panel.group.removeButton(key);
    Hand hand(&panel, way);
    if (isAtPress)
        connect(key.data(), &QAbstractButton::pressed, this, [&key] { delete key; });
    else
        connect(key.data(), &QAbstractButton::released, this, [&key] { delete key; });
    hand.press();
    QCOMPARE(key.isNull(), isAtPress || way == Click);
    hand.lift();
    QVERIFY(key.isNull());
    QCoreApplication::processEvents();
    QVERIFY(panel.updatesEnabled());
    QCOMPARE(imageOf(&panel).pixelColor(30, 40), behind);
}

void tst_K7DropButtonPainting::whoStopsPaintingStopsIt_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<QByteArray>("when");
    QTest::addColumn<bool>("isWindow"); // rather than the key
    for (const int way : {Mouse, Finger, Keyboard, Click}) {
        for (const char *when : {"before", "pressed", "toggled", "released", "clicked"}) {
            for (const bool isWindow : {false, true})
                QTest::addRow("%s, %s, %s", wayNames[way], when, isWindow ? "window" : "key")
                    << way << QByteArray(when) << isWindow;
        }
    }
}

void tst_K7DropButtonPainting::whoStopsPaintingStopsIt()
{
    QFETCH(int, way);
    QFETCH(QByteArray, when);
    QFETCH(bool, isWindow);
    Panel panel;
    Key *key = panel.keys[0];
    key->setCheckable(true);
    key->setStyleSheet(sheet("key.png"));
    QVERIFY(panel.isShown());
    key->setFocus();
    QVERIFY(panel.settle());
    QWidget *stopped = isWindow ? static_cast<QWidget *>(&panel) : key;
    const auto stop = [stopped] { stopped->setUpdatesEnabled(false); };
    if (when == "before")
        stop();
    else if (when == "pressed")
        connect(key, &QAbstractButton::pressed, this, stop);
    else if (when == "toggled")
        connect(key, &QAbstractButton::toggled, this, stop);
    else if (when == "released")
        connect(key, &QAbstractButton::released, this, stop);
    else
        connect(key, &QAbstractButton::clicked, this, stop);

    Hand hand(&panel, way);
    hand.press();
    QVERIFY(key->log.contains(QStringLiteral("pressed")));
    QCOMPARE(key->updatesEnabled(), !(when == "before" || when == "pressed" || way == Click));
    hand.lift();
    QCOMPARE(stopped->updatesEnabled(), false);
    QCOMPARE(key->updatesEnabled(), false);
    QVERIFY(panel.settle()); // what was asked for before
    key->update();
    QCoreApplication::processEvents();
    QCOMPARE(key->paints, 0);

    stopped->setUpdatesEnabled(true);
    QVERIFY(key->updatesEnabled());
    key->repaint();
    QVERIFY(key->paints > 0);
}

void tst_K7DropButtonPainting::aKeyInASceneIsPainted_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("smaller") << 0.6;
    QTest::newRow("as large") << 1.0;
    QTest::newRow("larger") << 1.7;
    QTest::newRow("twice") << 2.0;
}

void tst_K7DropButtonPainting::aKeyInASceneIsPainted()
{
    QFETCH(qreal, factor);
    auto *panel = new Panel;
    Key *key = panel->keys[0];
    key->setStyleSheet(sheet("key.png"));
    QGraphicsScene scene;
    scene.addWidget(panel);
    QGraphicsView view(&scene);
    view.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    view.setFrameShape(QFrame::NoFrame);
    view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setTransform(QTransform::fromScale(factor, factor));
    view.resize(panel->size() * factor);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTRY_VERIFY(key->paints > 0);

    const auto shown = [&](const QPoint &pos) {
        return imageOf(view.viewport()).pixelColor(view.mapFromScene(key->mapTo(panel, pos)));
    };
    QCOMPARE(shown(QPoint(15, 24)), picture);
    QCOMPARE(shown(QPoint(45, 24)), well);
    QCOMPARE(shown(QPoint(-8, 24)), behind);
    key->setDown(true);
    QTRY_COMPARE(shown(QPoint(45, 24)), pressedGround);
    key->setDown(false);
    key->paints = 0;
    panel->paints = 0;
    key->setStyleSheet(sheet("other.png"));
    QTRY_COMPARE(shown(QPoint(15, 24)), QColor(Qt::blue));

    // Opaque up to its edges, where pixels are shared with what lies around.
    const QImage image = imageOf(view.viewport());
    const QRect inside =
        QRectF(key->x() * factor, key->y() * factor, key->width() * factor, key->height() * factor)
            .toAlignedRect()
            .adjusted(2, 2, -2, -2);
    QCOMPARE(count(image.copy(inside), behind), 0);
}

QTEST_MAIN(tst_K7DropButtonPainting)

#include "tst_k7dropbuttonpainting.moc"
