// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "picturefolder.h"
#include "stillstyle.h"
#include "wholeconsole.h"

#include <applytheme.h>
#include <consolewidgets.h>
#include <keypad.h>
#include <keypadtrigger.h>

#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/switchcontrol.h>
#include <korvo/widgets/tumblertime.h>
#include <korvo/widgets/waitingdialog.h>
#include <ovo/widgets/framelessmessagebox.h>
#include <ovo/widgets/iplineedit.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QRawFont>
#include <QtEndian>

#include <cstring>

using namespace K7Host;
using Ovo::Widgets::FramelessMessageBox;

namespace {

const QLatin1String PinnedFont("DejaVu Sans");
constexpr quint32 PinnedRevision = 0x00025eb8; // 2.37

QDate fixedDate()
{
    return {2026, 11, 5};
}

QTime fixedTime()
{
    return {10, 8, 30};
}

/// The revision of the font file, 16 bits before the point and 16 after it.
quint32 fontRevision(const QFont &font)
{
    const QByteArray head = QRawFont::fromFont(font).fontTable("head");
    return head.size() < 8 ? 0 : qFromBigEndian<quint32>(head.constData() + 4);
}

QString panelText(const char *text)
{
    return QCoreApplication::translate("Korvo::Internal::ConsoleFloatWidget", text);
}

struct KeyColor
{
    quint32 key;
    QRgb color;
};

struct OledText
{
    quint32 label;
    const char *text;
};

/// A console after the first start, whose processor has told everything and says no more.
class Desk : public WholeConsole
{
public:
    Desk()
        : WholeConsole(QStringLiteral(KORVO_PLUGINS))
    {
    }

    bool start(const QString &locale)
    {
        if (!show() || !language->choose(locale) || !QTest::qWaitForWindowActive(window.data()))
            return false;
        auto *address = child<Ovo::Widgets::IPLineEdit>("lineEdit_IP");
        const bool isAnswered = QTest::qWaitFor([&] { return address->text() != QLatin1String("0.0.0.0"); });
        processor.blockSignals(true);
        settle();
        return isAnswered;
    }

    /// Each part of a layout asks those around it for room, one after the other.
    void settle() const
    {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
    }

    QAbstractButton *key(quint32 id) const
    {
        const auto buttons = window->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons) {
            if (isConsoleKey(button) && button->property("KorvoECKey").toUInt() == id)
                return button;
        }
        qFatal("no key %u", id);
        return nullptr;
    }
    QWidget *half(int index) const { return session->halves().at(index).toStrongRef().data(); }
    QWidget *strip() const { return child("logoFrame"); }

    void color(std::initializer_list<KeyColor> keys) const
    {
        for (const KeyColor &key : keys) {
            auto record = std::make_shared<Korvo::ECButtonColor>();
            record->ButtonKey = key.key;
            record->R = quint8(qRed(key.color));
            record->G = quint8(qGreen(key.color));
            record->B = quint8(qBlue(key.color));
            session->call(record);
        }
    }
    void write(std::initializer_list<OledText> texts) const
    {
        for (const OledText &text : texts) {
            auto record = std::make_shared<Korvo::ECOLEDText>();
            record->OledKey = text.label;
            std::strncpy(record->OledText, text.text, sizeof record->OledText);
            session->call(record);
        }
    }
    void moveLever(quint32 value) const
    {
        auto record = std::make_shared<Korvo::ECTBarValue>();
        record->Value = value;
        record->IsBottomToTop = 1;
        session->call(record);
    }

    /// Ports on line, both inputs with a signal, and every lamp on.
    void lightStrip() const
    {
        QMetaObject::invokeMethod(panel(), "slotRefreshNetStatus"); // the answers are meant for the strip
        const quint32 hosts[] = {0x0d02a8c0, 0x0d01a8c0};
        for (quint8 port = 0; port < 2; ++port) {
            auto address = std::make_shared<Korvo::ECDeviceIPData>();
            address->Index = port;
            address->Status = 1;
            address->IP = hosts[port];
            address->Mask = 0x00ffffff;
            address->Gateway = (hosts[port] & 0x00ffffff) | 0x01000000;
            session->call(address);
            auto signal = std::make_shared<Korvo::DVIInSignal>();
            signal->Index = port;
            signal->Signal = 1;
            session->call(signal);
        }
        for (const char *name : {"switch_groosen", "switch_front", "switch_logo"}) {
            auto *lamp = child<Korvo::Widgets::SwitchControl>(name);
            for (int i = 0; i < 2; ++i) // one that is on already tells nobody
                QTest::mouseClick(lamp, Qt::LeftButton);
        }
        settle();
    }
    void closePanel() const
    {
        const auto buttons = panel()->parentWidget()->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons) {
            if (button->property("floatButton_hide").isValid())
                button->click();
        }
        settle();
    }

    /// Of \a part, or of somewhere in it, at the fixed time. What runs on by itself has not begun to when no
    /// events were handled since it was set.
    QImage picture(const QWidget *part, const QRect &where = QRect()) const
    {
        stopClock();
        const QRect all = where.isNull() ? part->rect() : where;
        return window->picture(1).copy(all.translated(part->mapTo(window.data(), QPoint())));
    }
    /// With what lies over the halves.
    QImage grab(const QWidget *part, const QRect &where) const
    {
        stopClock();
        return window->grab(where.translated(part->mapTo(window.data(), QPoint()))).toImage();
    }

private:
    void stopClock() const
    {
        panel()->findChild<Korvo::Widgets::DateWidget *>()->setDateTime(fixedDate());
        auto *time = child<Korvo::Widgets::TumblerTime>("timeWidget");
        time->setHour(fixedTime().hour());
        time->setMin(fixedTime().minute());
        time->setSec(fixedTime().second());
        time->setAMPM(QStringLiteral("AM"));
        child<QLabel>("label_time")
            ->setText(fixedDate().toString(QStringLiteral("dd/MM/yyyy          ")) +
                      fixedTime().toString(QStringLiteral("hh:mm:ss")));
    }
};

constexpr QRgb red = qRgb(255, 0, 0);
constexpr QRgb green = qRgb(0, 255, 0);
constexpr QRgb blue = qRgb(0, 0, 255);
constexpr QRgb yellow = qRgb(255, 255, 0);
constexpr QRgb purple = qRgb(255, 0, 255);
constexpr QRgb orange = qRgb(255, 72, 0);
constexpr QRgb white = qRgb(0, 0, 0); // as the console takes it

QImage leftIdle(Desk &desk)
{
    desk.session->call(IdleLook());
    return desk.picture(desk.half(0));
}

QImage leftLit(Desk &desk)
{
    desk.color({// screens, layers and presets in all colours
                {0, red},
                {1, green},
                {2, blue},
                {3, yellow},
                {4, purple},
                {5, orange},
                {6, white},
                {18, orange},
                {19, purple},
                {20, yellow},
                {21, blue},
                {22, green},
                {23, red},
                {70, green},
                {71, red},
                {72, orange},
                {73, blue},
                {74, yellow},
                {75, purple},
                // inputs on preview and on air
                {36, green},
                {37, red},
                {38, green},
                {39, red},
                {51, red},
                // pages
                {16, red},
                {17, green},
                {34, blue},
                {35, yellow},
                {52, green},
                {53, blue},
                {86, yellow},
                {87, red},
                // commands
                {88, red},
                {89, green},
                {91, yellow},
                {92, orange},
                {95, purple},
                {99, blue},
                {100, red},
                {104, red},
                {105, green}});
    desk.write({{12, "1"},
                {15, ""},
                {14, "Camera on the long crane"},
                {13, "Ünïcødé"},
                {17, "MMMMMMMM"},
                {71, "Opening of the show"},
                {70, "Qjgy"}});
    return desk.picture(desk.half(0));
}

/// Keys in the states that the hand, the host and the keyboard put them into.
QImage keyStates(Desk &desk)
{
    const QRgb colors[] = {white, red, green, blue, yellow, purple, orange};
    quint32 column = 0;
    for (QRgb color : colors) {
        desk.color({{column, color}, {18 + column, color}, {36 + column, color}});
        desk.key(column)->setDown(true);
        desk.key(18 + column)->setEnabled(false);
        QAbstractButton *checked = desk.key(36 + column);
        checked->setCheckable(true);
        checked->setChecked(true);
        ++column;
    }
    desk.key(88)->setDown(true);
    desk.key(89)->setChecked(true);
    desk.key(91)->setEnabled(false);
    desk.key(17)->setDown(true);
    desk.key(35)->setEnabled(false);
    desk.key(94)->setDown(true);
    desk.key(95)->setEnabled(false);
    desk.color({{10, red}});
    desk.key(10)->setFocus(Qt::TabFocusReason);
    const int end = desk.key(38)->mapTo(desk.half(0), QPoint(0, 100)).y();
    return desk.picture(desk.half(0), {0, 0, desk.half(0)->width(), end});
}

QImage rightIdle(Desk &desk)
{
    desk.session->call(IdleLook());
    desk.closePanel();
    return desk.picture(desk.half(1));
}

QImage rightInTransition(Desk &desk)
{
    desk.color({{106, green},
                {111, red},
                {119, red},
                {118, yellow},
                {120, orange},
                {127, red},
                {128, green},
                {129, blue},
                {132, yellow},
                {133, white},
                {135, purple}});
    desk.write({{92, "MIX"}, {91, "Wipe from the left"}, {90, ""}, {95, "1.0 s"}, {94, "25 fr"}});
    desk.moveLever(600);
    const int end = desk.strip()->mapTo(desk.half(1), QPoint()).x();
    return desk.picture(desk.half(1), {0, 0, end, desk.half(1)->height()});
}

QImage strip(Desk &desk)
{
    desk.lightStrip();
    desk.closePanel();
    return desk.picture(desk.strip());
}

QImage right(Desk &desk)
{
    desk.lightStrip();
    desk.moveLever(600);
    return desk.picture(desk.half(1));
}

QImage panelTop(Desk &desk)
{
    return desk.picture(desk.panel());
}

/// Four screens, the second one chosen, on which the console is operated.
QImage panelScreens(Desk &desk)
{
    desk.child<QComboBox>("screenNumberCombox")->setCurrentIndex(3);
    desk.settle();
    const auto screens = desk.child("screenButtonFrame")->findChildren<QAbstractButton *>();
    for (QAbstractButton *screen : screens) {
        if (screen->text() == QLatin1String("2"))
            screen->click();
    }
    QTest::mouseClick(desk.child("currentPanelCheckBox"), Qt::LeftButton, {}, QPoint(12, 18));
    const QWidget *title = desk.child("label_peripheral");
    const QWidget *end = desk.child("peripheralApply");
    const int top = title->mapTo(desk.panel(), QPoint()).y() - 8;
    const int bottom = end->mapTo(desk.panel(), QPoint(0, end->height())).y() + 16;
    return desk.picture(desk.panel(), {0, top, desk.panel()->width(), bottom - top});
}

QImage panelEnd(Desk &desk)
{
    desk.scrollPanelTo(desk.panelArea()->verticalScrollBar()->maximum());
    desk.settle();
    return desk.picture(desk.panel());
}

QImage panelEndWith12Hours(Desk &desk)
{
    desk.child<QAbstractButton>("pushButton_12")->click();
    return panelEnd(desk);
}

QImage message(Desk &desk)
{
    FramelessMessageBox box(QMessageBox::Question, panelText("Remind"),
                            panelText("Are you sure to restart console?"), QMessageBox::Yes | QMessageBox::No,
                            desk.panel());
    box.setDefaultButton(QMessageBox::No);
    box.show();
    box.activateWindow(); // the offscreen platform leaves that to the application
    const bool isActive = QTest::qWaitFor([&] { return box.isActiveWindow(); });
    return isActive ? box.grab().toImage() : QImage();
}

QImage busy(Desk &desk)
{
    Korvo::Widgets::WaitingDialog waiting(desk.panel(), Qt::WindowFlags());
    desk.settle();
    waiting.showWaitingDialog(panelText("loading , please wait."), Korvo::Widgets::WaitingDialog::Normal);
    return desk.picture(desk.panel(), desk.panel()->rect().adjusted(0, 300, 0, -300));
}

QImage calendar(Desk &desk)
{
    auto *date = desk.panel()->findChild<Korvo::Widgets::DateWidget *>();
    date->setDateTime(fixedDate());
    date->click();
    QWidget *popup = QApplication::activePopupWidget();
    desk.settle();
    return popup ? popup->grab().toImage() : QImage();
}

QImage keypad(Desk &desk)
{
    KeypadTrigger trigger(desk.window.data());
    auto *address = desk.child<Ovo::Widgets::IPLineEdit>("lineEdit_IP");
    QTest::mouseClick(address->findChild<QLineEdit *>(), Qt::LeftButton);
    auto *keypad = desk.window->findChild<Keypad *>();
    if (!keypad || !QTest::qWaitFor([keypad] { return keypad->isVisible(); }))
        return QImage();
    const QRect field(address->mapTo(desk.window.data(), QPoint()), address->size());
    const QRect both = keypad->geometry() | field;
    return desk.grab(desk.window.data(), both.adjusted(-16, -16, 16, 16));
}

struct Scene
{
    const char *name;
    const char *theme;
    const char *language;
    QImage (*picture)(Desk &desk);
};

const Scene scenes[] = {
    {"left-idle", "k7", "en", leftIdle},
    {"left-lit", "k7", "en", leftLit},
    {"key-states", "k7", "en", keyStates},
    {"right-idle", "k7", "en", rightIdle},
    {"right-transition", "k7", "en", rightInTransition},
    {"strip", "k7", "en", strip},
    {"panel-top", "k7", "en", panelTop},
    {"panel-screens", "k7", "en", panelScreens},
    {"panel-end", "k7", "en", panelEndWith12Hours},
    {"message", "k7", "en", message},
    {"busy", "k7", "en", busy},
    {"calendar", "k7", "en", calendar},
    {"keypad", "k7", "en", keypad},
    {"german-panel", "k7", "de", panelEnd},
    {"light-left", "k7-light", "en", leftLit},
    {"light-right", "k7-light", "en", right},
    {"light-calendar", "k7-light", "en", calendar},
};

} // namespace

/// The console looks as it did when somebody last looked at its pictures and found them right.
class tst_GoldenPictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void consoleLooksAsItDid_data();
    void consoleLooksAsItDid();
    void everyGoldenPictureIsLookedAt();

private:
    QString m_theme;
};

void tst_GoldenPictures::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("korvo.k7.*.debug=false"));
    const QString family = QFontInfo(QApplication::font()).family();
    QVERIFY2(
        family == PinnedFont && fontRevision(QApplication::font()) == PinnedRevision,
        qPrintable(QStringLiteral("the pictures were made with %1 2.37 of fonts-dejavu-core; here is %2 of "
                                  "revision 0x%3: see scripts/setup")
                       .arg(PinnedFont, family)
                       .arg(fontRevision(QApplication::font()), 0, 16)));
    QApplication::setCursorFlashTime(0);
}

void tst_GoldenPictures::consoleLooksAsItDid_data()
{
    QTest::addColumn<int>("scene");
    for (int i = 0; i < int(sizeof scenes / sizeof *scenes); ++i)
        QTest::newRow(scenes[i].name) << i;
}

void tst_GoldenPictures::consoleLooksAsItDid()
{
    QFETCH(int, scene);
    const Scene &wanted = scenes[scene];
    const QString name = QLatin1String(wanted.name);

    if (m_theme != QLatin1String(wanted.theme)) {
        m_theme = QLatin1String(wanted.theme);
        QVERIFY(!applyTheme(QStringLiteral(KORVO_THEMES "/") + m_theme));
        QApplication::setStyle(new StillStyle); // in place of the theme's
    }
    Desk desk;
    QVERIFY2(!desk.fault, qPrintable(desk.fault ? desk.fault->text : QString()));
    QVERIFY(desk.start(QLatin1String(wanted.language)));
    const QImage picture = wanted.picture(desk);
    QVERIFY(!picture.isNull());

    const QString accepted = QString::fromLocal8Bit(qgetenv("KORVO_ACCEPT_PICTURES"));
    const PictureFolder golden(QStringLiteral(LOOKS_GOLDEN), QStringLiteral(LOOKS_ELSEWHERE),
                               accepted.split(QLatin1Char(' ')));
    const auto fault = golden.check(name, picture);
    QVERIFY2(!fault, qPrintable(fault ? *fault : QString()));
}

void tst_GoldenPictures::everyGoldenPictureIsLookedAt()
{
    QStringList wanted;
    for (const Scene &scene : scenes)
        wanted << QLatin1String(scene.name);
    wanted.sort();
    QStringList stored = PictureFolder(QStringLiteral(LOOKS_GOLDEN), QString(), {}).names();
    stored.sort();
    QCOMPARE(stored, wanted);
}

// What has to be settled before there is an application: the fonts, and that nobody's desktop is asked.
int main(int argc, char *argv[])
{
    qputenv("FONTCONFIG_FILE", LOOKS_FONTS);
    qputenv("QT_SCALE_FACTOR", "1");
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QGuiApplication::setDesktopSettingsAware(false);
    QApplication application(argc, argv);
    QFont font(PinnedFont);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    QApplication::setFont(font);

    tst_GoldenPictures test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_goldenpictures.moc"
