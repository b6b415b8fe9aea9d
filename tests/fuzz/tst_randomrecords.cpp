// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consoleparts.h"
#include "fingers.h"
#include "leftkeyboardframe.h"
#include "rightkeyboardframe.h"

#include <korvo/widgets/tbar.h>

#include <QAbstractButton>
#include <QBoxLayout>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <limits>
#include <random>

using namespace Korvo;
using namespace Korvo::ECKeyboard::K7;

namespace {

constexpr int recordCount = 10000;
constexpr quint32 broadcast = 255;
constexpr int fingerCount = 5;
constexpr int settleEvery = 100; // steps between complete comparisons

/// Numbers that are the same wherever the seed is.
class Dice
{
public:
    explicit Dice(quint32 seed)
        : m_generator(seed)
    {
    }
    quint32 any() { return static_cast<quint32>(m_generator()); }
    int below(int limit) { return static_cast<int>(any() % static_cast<quint32>(limit)); }
    bool oneIn(int chances) { return below(chances) == 0; }
    quint8 byte() { return static_cast<quint8>(below(256)); }
    template <typename List>
    typename List::value_type of(const List &list)
    {
        return list.at(below(list.size()));
    }

private:
    std::mt19937 m_generator;
};

/// Both halves in one window.
class Console : public QWidget
{
public:
    Console()
        : left(new LeftKeyboardFrame(this))
        , right(new RightKeyboardFrame(this))
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(left);
        layout->addWidget(right);
    }
    // Keys that are still held say so: while there is someone to tell it to.
    ~Console() override { hide(); }

    LeftKeyboardFrame *const left;
    RightKeyboardFrame *const right;
};

quint32 seedOfThisRun()
{
    bool isGiven = false;
    const uint seed = qgetenv("K7_FUZZ_SEED").toUInt(&isGiven);
    return isGiven ? seed : 20260117u;
}

} // namespace

/// Hands random records to both halves while random hands use them, and checks what must hold all the while.
/// Every run with the same K7_FUZZ_SEED is the same.
class tst_RandomRecords : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void whateverComesKeysAndLabelsKeepTheirPromises();

private:
    // Each of these is one step.
    void handInRecord();
    void handInColor();
    void handInText();
    void handInLeverPosition();
    void handInForTheStrip();
    void useHands();
    void useMouse();
    void useFinger();
    void takeAway();
    void giveBack();
    void activateOther();
    void callForStyleOrMode();

    IKorvoECKeyboard *anyHalf();
    const ConsoleParts &partsIn(const IKorvoECKeyboard *half) const
    {
        return half == m_console->left ? m_left : m_right;
    }
    quint32 anyId();
    QPoint anyPointIn(const QSize &size);
    QPoint anyPlace();
    void keyWentDown(quint32 code);
    void keyCameUp(quint32 code);
    void verifyHeldKeys();
    void verifyLooks();
    void complain(const QString &what)
    {
        if (m_complaint.isEmpty())
            m_complaint = what;
    }
    bool isAround(const QWidget *container, const ConsolePart &part) const
    {
        return container->isAncestorOf(part.widget);
    }

    QTemporaryDir m_configDir;
    LivePlugin m_live;
    std::unique_ptr<Dice> m_dice;
    std::unique_ptr<Console> m_console;
    std::unique_ptr<Fingers> m_fingers;
    std::unique_ptr<QWidget> m_other;
    Widgets::tbar *m_lever = nullptr;
    QVector<QWidget *> m_containers; // that are hidden and disabled
    ConsoleParts m_left;
    ConsoleParts m_right;
    ConsoleParts m_all;
    QHash<const QWidget *, QString> m_looks; // that parts must have
    QSet<quint32> m_held;                    // codes
    int m_presses = 0;
    bool m_isMouseDown = false;
    QString m_complaint;
};

/// The console remembers its settings: not where it does for whoever runs the test.
void tst_RandomRecords::initTestCase()
{
    QVERIFY(m_configDir.isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_configDir.path());
}

void tst_RandomRecords::init()
{
    const quint32 seed = seedOfThisRun();
    qInfo("K7_FUZZ_SEED=%u", seed);
    m_dice = std::make_unique<Dice>(seed);
    m_console = std::make_unique<Console>();
    m_other = std::make_unique<QWidget>();
    m_other->show();
    m_console->show();
    m_console->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_console.get()));
    m_fingers = std::make_unique<Fingers>(m_console.get());

    m_left = partsOf(m_console->left, leftSections());
    m_right = partsOf(m_console->right, rightSections());
    m_all = m_left + m_right;
    m_lever = m_console->right->findChild<Widgets::tbar *>();
    QVERIFY(m_lever);
    m_containers = {m_console->left, m_console->right};
    const QVector<PlacedSection> sections = leftSections() + rightSections();
    for (const PlacedSection &section : sections)
        m_containers << m_console->findChild<QWidget *>(QLatin1String(section.name));
    for (const ConsolePart &part : qAsConst(m_all))
        m_looks.insert(part.widget, part.look());
    QCOMPARE(m_looks.size(), m_all.size());

    for (const IKorvoECKeyboard *half : {static_cast<IKorvoECKeyboard *>(m_console->left),
                                         static_cast<IKorvoECKeyboard *>(m_console->right)}) {
        connect(half, &IKorvoECKeyboard::ecButtonPressed, this, &tst_RandomRecords::keyWentDown);
        connect(half, &IKorvoECKeyboard::ecButtonRelease, this, &tst_RandomRecords::keyCameUp);
    }
    connect(m_console->right, &IKorvoECKeyboard::ecTBarValueChanged, this,
            [this] { complain(QStringLiteral("the lever's position was told back")); });
}

void tst_RandomRecords::cleanup()
{
    m_fingers.reset();
    m_console.reset();
    m_other.reset();
}

void tst_RandomRecords::whateverComesKeysAndLabelsKeepTheirPromises()
{
    const LogKeeper log;
    int records = 0;
    for (int step = 0; records < recordCount; ++step) {
        if (!m_dice->oneIn(4)) {
            handInRecord();
            ++records;
        } else {
            useHands();
            verifyHeldKeys();
        }
        if (step % settleEvery == 0) {
            QCoreApplication::processEvents();
            verifyLooks();
        }
        QVERIFY2(m_complaint.isEmpty(), qPrintable(QStringLiteral("step %1: %2").arg(step).arg(m_complaint)));
    }

    verifyLooks();
    giveBack();
    m_fingers->liftAll();
    QTest::mouseRelease(m_console->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    verifyHeldKeys();
    QVERIFY2(m_complaint.isEmpty(), qPrintable(m_complaint));
    QCOMPARE(m_held, QSet<quint32>());
    const QStringList lines = log.lines();
    for (const QString &line : lines) {
        const bool isOfLever = line.contains(QLatin1String("is not within 0 to 100"));
        const bool isOfPlatform =
            line.contains(QLatin1String("propagateSizeHints")); // offscreen has no sizes
        const bool isOfAddress = line == QLatin1String(" ECDevice IP data error .");
        QVERIFY2(isOfLever || isOfPlatform || isOfAddress, qPrintable(line));
    }
    QVERIFY2(m_presses > recordCount / 50, qPrintable(QString::number(m_presses))); // hands did hit keys
}

void tst_RandomRecords::keyWentDown(quint32 code)
{
    ++m_presses;
    if (m_held.contains(code))
        complain(QStringLiteral("%1 went down twice").arg(code, 0, 16));
    m_held << code;
}

void tst_RandomRecords::keyCameUp(quint32 code)
{
    if (!m_held.remove(code))
        complain(QStringLiteral("%1 came up without a press").arg(code, 0, 16));
}

/// What the host was told is what is seen.
void tst_RandomRecords::verifyHeldKeys()
{
    QSet<quint32> down;
    for (const ConsolePart &part : qAsConst(m_all)) {
        if (part.sends() && qobject_cast<QAbstractButton *>(part.widget)->isDown())
            down << part.code();
    }
    if (down != m_held)
        complain(QStringLiteral("%1 keys are down, %2 are told to be").arg(down.size()).arg(m_held.size()));
    if (m_held.size() > fingerCount + 1)
        complain(QStringLiteral("more keys are held than there are fingers"));
}

void tst_RandomRecords::verifyLooks()
{
    for (const ConsolePart &part : qAsConst(m_all)) {
        if (part.look() != m_looks.value(part.widget))
            complain(QStringLiteral("%1 looks like %2").arg(part.name(), part.look()));
    }
}

IKorvoECKeyboard *tst_RandomRecords::anyHalf()
{
    if (m_dice->oneIn(2))
        return m_console->left;
    return m_console->right;
}

/// Mostly ids of the console, else numbers around its ranges and beyond.
quint32 tst_RandomRecords::anyId()
{
    static const QVector<quint32> boundaries{
        0,      17,        18,        35,          36,          53,          54,         105,       106,
        119,    120,       131,       132,         137,         138,         254,        broadcast, 256,
        0xffff, 0xff0000u, 0xff00ffu, 0x7fffffffu, 0x80000000u, 0xffffff01u, 0xffffffffu};
    switch (m_dice->below(8)) {
    case 0:
        return m_dice->of(boundaries);
    case 1:
        return m_dice->any();
    default:
        return static_cast<quint32>(m_dice->below(140));
    }
}

QPoint tst_RandomRecords::anyPointIn(const QSize &size)
{
    const int x = m_dice->below(size.width());
    const int y = m_dice->below(size.height());
    return {x, y};
}

/// Within a section, mostly on a key.
QPoint tst_RandomRecords::anyPlace()
{
    const QWidget *on = m_dice->oneIn(4) ? m_dice->of(m_containers) : m_dice->of(m_all).widget;
    const bool isHalf = on == m_console->left || on == m_console->right;
    const QSize size = isHalf ? QSize(1, 1) : on->size();
    return on->mapTo(m_console.get(), anyPointIn(size));
}

void tst_RandomRecords::handInRecord()
{
    switch (m_dice->below(10)) {
    case 0:
        handInLeverPosition();
        break;
    case 1:
        handInForTheStrip();
        break;
    case 2:
    case 3:
    case 4:
        handInText();
        break;
    default:
        handInColor();
        break;
    }
}

void tst_RandomRecords::handInColor()
{
    std::shared_ptr<ECButtonColor> record;
    IKorvoECKeyboard *half = anyHalf();
    if (!m_dice->oneIn(20)) {
        const auto level = [this] { return m_dice->of(QVector<quint8>{0, 0, 72, 255, 255, m_dice->byte()}); };
        // One throw a statement: compilers evaluate arguments in orders of their own.
        const quint32 id = anyId();
        const bool isRare = m_dice->oneIn(3);
        const quint8 red = level();
        const quint8 green = level();
        const quint8 blue = level();
        record = colorRecord(id == broadcast && !isRare ? 0 : id, red, green, blue);
        record->ECKey = static_cast<quint16>(m_dice->any());
        record->ButtonState = m_dice->byte();
        record->brightness = m_dice->byte();
    }
    if (!half->updateECButtonColor(record))
        complain(QStringLiteral("a colour was not taken"));
    if (!record)
        return;

    const ECKeyboard::K7Plugin &plugin = m_live.plugin;
    const bool isBroadcast = record->ButtonKey == broadcast;
    for (const ConsolePart &part : partsIn(half)) {
        if (isBroadcast ? !part.takesBroadcast() : !part.takesColor() || part.id() != record->ButtonKey)
            continue;
        const QString look = isBroadcast         ? plugin.ecButtonBorderImageCSS(record)
                             : part.isPageUp()   ? plugin.ecPageUpButtonBorderImageCSS(record)
                             : part.isPageDown() ? plugin.ecPageDownButtonBorderImageCSS(record)
                                                 : plugin.ecButtonBorderImageCSS(record);
        m_looks[part.widget] = look;
        if (part.look() != look)
            complain(QStringLiteral("%1 was not painted").arg(part.name()));
    }
}

void tst_RandomRecords::handInText()
{
    std::shared_ptr<ECOLEDText> record;
    IKorvoECKeyboard *half = anyHalf();
    if (!m_dice->oneIn(20)) {
        // Of all lengths, some without a closing zero, some with one in the middle, some not UTF-8.
        QByteArray bytes(m_dice->below(33), '\0');
        const bool isWild = m_dice->oneIn(3);
        for (char &byte : bytes)
            byte = static_cast<char>(isWild ? m_dice->below(256) : 32 + m_dice->below(95));
        record = textRecord(anyId(), bytes);
        record->ECKey = static_cast<quint16>(m_dice->any());
    }
    if (!half->updateECOledText(record))
        complain(QStringLiteral("a text was not taken"));
    if (!record)
        return;

    const QByteArray bytes(record->OledText, sizeof(record->OledText));
    const int end = bytes.indexOf('\0');
    const QString text = QString::fromUtf8(end < 0 ? bytes : bytes.left(end));
    for (const ConsolePart &part : partsIn(half)) {
        if (!part.takesText() || part.id() != record->OledKey)
            continue;
        m_looks[part.widget] = text;
        if (part.look() != text)
            complain(QStringLiteral("%1 was not written").arg(part.name()));
    }
}

void tst_RandomRecords::handInLeverPosition()
{
    static const QVector<quint32> boundaries{
        0, 1, 11, 12, 1199, 1200, 1201, 0x7fffffffu, std::numeric_limits<quint32>::max()};
    std::shared_ptr<ECTBarValue> record;
    IKorvoECKeyboard *half = anyHalf();
    if (!m_dice->oneIn(20)) {
        record = std::make_shared<ECTBarValue>();
        record->Value = m_dice->oneIn(3)   ? m_dice->of(boundaries)
                        : m_dice->oneIn(4) ? m_dice->any()
                                           : static_cast<quint32>(m_dice->below(1201));
        record->IsBottomToTop = m_dice->oneIn(2) ? 0 : m_dice->byte();
    }
    const bool isMoved = record && half == m_console->right;
    const double percent = isMoved ? qMin(record->Value / 12.0, 100.0) : m_lever->curValue();
    const int direction = isMoved ? (record->IsBottomToTop ? 0 : 1) : m_lever->getTbarDirection();

    if (!half->updateTBarValue(record))
        complain(QStringLiteral("a position was not taken"));
    const bool isThere = m_lever->curValue() == percent && m_lever->getTbarDirection() == direction;
    if (!isThere || m_lever->isEnabled())
        complain(QStringLiteral("the lever stands at %1").arg(m_lever->curValue()));
}

void tst_RandomRecords::handInForTheStrip()
{
    IKorvoECKeyboard *half = anyHalf();
    const bool isNull = m_dice->oneIn(10);
    switch (m_dice->below(3)) {
    case 0: {
        auto record = std::make_shared<ECDeviceIPData>();
        record->Index = m_dice->oneIn(2) ? quint8(m_dice->below(4)) : m_dice->byte();
        record->Status = m_dice->oneIn(2) ? quint8(m_dice->below(2)) : m_dice->byte();
        record->IP = m_dice->any();
        record->Mask = m_dice->any();
        record->Gateway = m_dice->any();
        half->updateECDeviceIP(isNull ? nullptr : record);
        break;
    }
    case 1: {
        auto record = std::make_shared<DVIInSignal>();
        record->Index = m_dice->oneIn(2) ? quint8(m_dice->below(8)) : m_dice->byte();
        record->Signal = m_dice->oneIn(2) ? quint8(m_dice->below(2)) : m_dice->byte();
        half->updateDVISignalStatus(isNull ? nullptr : record);
        break;
    }
    default: {
        auto record = std::make_shared<PeripheralControlVisibleState>();
        record->visible = m_dice->oneIn(2) ? quint8(m_dice->below(2)) : m_dice->byte();
        half->updatePeripheralVisibleState(isNull ? nullptr : record);
        break;
    }
    }
}

void tst_RandomRecords::useHands()
{
    switch (m_dice->below(40)) {
    case 0:
        takeAway();
        break;
    case 1:
    case 2:
    case 3:
        giveBack();
        break;
    case 4:
        activateOther();
        break;
    case 5:
        callForStyleOrMode();
        break;
    default:
        if (m_dice->oneIn(4))
            useMouse();
        else
            useFinger();
        break;
    }
}

void tst_RandomRecords::useMouse()
{
    QWindow *window = m_console->windowHandle();
    const QPoint place = anyPlace();
    if (m_dice->oneIn(4)) {
        QTest::mouseMove(window, place);
        return;
    }
    m_isMouseDown = !m_isMouseDown;
    if (m_isMouseDown)
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, place);
    else
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, place);
}

void tst_RandomRecords::useFinger()
{
    const int finger = m_dice->below(fingerCount);
    if (!m_fingers->isDown(finger))
        m_fingers->press(finger, anyPlace());
    else if (m_dice->oneIn(6))
        m_fingers->move(finger, anyPlace());
    else if (m_dice->oneIn(3))
        m_fingers->move(finger, m_fingers->place(finger) - QPoint(4, 4) + anyPointIn({9, 9}));
    else
        m_fingers->lift(finger);
}

/// Hides or disables a section or a half: none of its keys is held any more.
void tst_RandomRecords::takeAway()
{
    QWidget *container = m_dice->of(m_containers);
    if (m_dice->oneIn(2))
        container->hide();
    else
        container->setEnabled(false);
    for (const ConsolePart &part : qAsConst(m_all)) {
        if (part.sends() && isAround(container, part) && m_held.contains(part.code()))
            complain(QStringLiteral("%1 is held, but gone").arg(part.name()));
    }
}

void tst_RandomRecords::giveBack()
{
    for (QWidget *container : qAsConst(m_containers)) {
        container->setEnabled(true);
        container->show();
    }
}

void tst_RandomRecords::activateOther()
{
    m_other->activateWindow();
    QCoreApplication::processEvents();
    if (!m_console->isActiveWindow() && !m_held.isEmpty())
        complain(QStringLiteral("keys are held in a window that is not active"));
    m_console->activateWindow();
    QCoreApplication::processEvents();
}

void tst_RandomRecords::callForStyleOrMode()
{
    IKorvoECKeyboard *half = anyHalf();
    if (m_dice->oneIn(2)) {
        if (half->updateKeyboard() != (half == m_console->left))
            complain(QStringLiteral("updateKeyboard() answered wrongly"));
        return;
    }
    half->applyNoramlStyleSheet();
    const ECKeyboard::K7Plugin &plugin = m_live.plugin;
    for (const ConsolePart &part : partsIn(half)) {
        if (part.isKey()) {
            m_looks[part.widget] =
                plugin.ecButtonBorderImageCSS(part.isPageUp()     ? ECKeyboard::PageUpBlackButton
                                              : part.isPageDown() ? ECKeyboard::PageDownWhiteButton
                                                                  : ECKeyboard::WhiteButton);
        }
    }
    verifyLooks();
}

QTEST_MAIN(tst_RandomRecords)

#include "tst_randomrecords.moc"
