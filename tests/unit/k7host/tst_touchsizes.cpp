// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "stillstyle.h"
#include "wholeconsole.h"

#include <applytheme.h>
#include <hardwarepanel.h>
#include <keypad.h>
#include <languagemenu.h>
#include <powercover.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/slidereditframe.h>
#include <korvo/widgets/switchcontrol.h>
#include <korvo/widgets/tbar.h>
#include <ovo/widgets/framelessmessagebox.h>
#include <ovo/widgets/iplineedit.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QBoxLayout>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMenu>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QStyleOptionSlider>
#include <QTableView>

using namespace K7Host;
using Ovo::Widgets::FramelessMessageBox;

namespace {

/// A key's cap of 64 pixels is 16 mm wide, and a finger wants 9 mm.
constexpr int FingerSize = 36;

QString nameOf(const QWidget *widget)
{
    const QString className = QString::fromLatin1(widget->metaObject()->className());
    return widget->objectName().isEmpty() ? className : className + QLatin1Char(' ') + widget->objectName();
}

QRect handleOf(const QSlider *slider)
{
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.subControls = QStyle::SC_All;
    option.orientation = slider->orientation();
    option.state.setFlag(QStyle::State_Horizontal, slider->orientation() == Qt::Horizontal);
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = slider->sliderPosition();
    option.sliderValue = slider->value();
    return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider);
}

/// Whether a finger touches it: also what takes the touch for what it stands in.
bool isControl(const QWidget *widget)
{
    if (qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget) ||
        qobject_cast<const QComboBox *>(widget) || qobject_cast<const QAbstractSlider *>(widget) ||
        qobject_cast<const Ovo::Widgets::IPLineEdit *>(widget) ||
        qobject_cast<const Korvo::Widgets::SwitchControl *>(widget) ||
        widget->inherits("Korvo::Widgets::TumblerWheel")) {
        // The panel's page is moved by hand, the row of screens by its bar.
        const auto *bar = qobject_cast<const QScrollBar *>(widget);
        return !bar || bar->orientation() == Qt::Horizontal;
    }
    const auto *field = qobject_cast<const QLineEdit *>(widget);
    return field && !qobject_cast<const QAbstractSpinBox *>(field->parentWidget());
}

/// Notes what is too small for a finger.
class Ruler
{
public:
    void measure(const QWidget *window)
    {
        const auto widgets = window->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (!widget->isVisibleTo(window) || widget->window() != window->window() || !isControl(widget))
                continue;
            // An octet is met anywhere in the height of its field.
            const QWidget *field = widget->parentWidget();
            const bool isOctet = qobject_cast<const Ovo::Widgets::IPLineEdit *>(field);
            measure(nameOf(widget), {widget->width(), isOctet ? field->height() : widget->height()});
            if (const auto *slider = qobject_cast<QSlider *>(widget))
                measure(nameOf(widget) + QStringLiteral("'s handle"), handleOf(slider).size());
        }
    }
    void measure(const QString &name, const QSize &size)
    {
        ++m_count;
        if (size.expandedTo({FingerSize, FingerSize}) != size)
            m_small << QStringLiteral("%1 is %2x%3").arg(name).arg(size.width()).arg(size.height());
    }

    int count() const { return m_count; }
    const QStringList &small() const { return m_small; }
    QByteArray list() const { return "too small for a finger:\n" + m_small.join(QLatin1Char('\n')).toUtf8(); }

private:
    int m_count = 0;
    QStringList m_small;
};

/// Pixels that tell two pictures of one size apart at a glance.
int difference(const QImage &before, const QImage &after)
{
    int count = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            const QColor a(before.pixel(x, y));
            const QColor b(after.pixel(x, y));
            const int distance =
                qAbs(a.red() - b.red()) + qAbs(a.green() - b.green()) + qAbs(a.blue() - b.blue());
            count += distance > 40 ? 1 : 0;
        }
    }
    return count;
}

QImage pictureOf(QWidget *widget)
{
    return widget->grab().toImage();
}

} // namespace

/// Every control is large enough for a finger, and shows at once that it is pressed.
class tst_TouchSizes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void controlsAreLargeEnough();
    void rowsOfTheListAreLargeEnough();
    void daysOfTheCalendarAreLargeEnough();
    void answersToMessagesAreLargeEnough();
    void leverIsTakenByAFinger();
    void keysOfTheKeypadAreLargeEnough();
    void hostsOwnControlsAreLargeEnough();
    void smallControlIsFound();
    void pressShowsAtOnce_data();
    void pressShowsAtOnce();
    void pressOnAListShowsAtOnce();

private:
    QScopedPointer<WholeConsole> m_console;
};

void tst_TouchSizes::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("korvo.k7.*.debug=false"));
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
    QApplication::setStyle(new StillStyle);
    m_console.reset(new WholeConsole(QStringLiteral(KORVO_PLUGINS)));
    QVERIFY(m_console->show());
    m_console->child<QComboBox>("screenNumberCombox")->setCurrentIndex(15);
    m_console->child<QAbstractButton>("pushButton_12")->setChecked(true);
    QCoreApplication::processEvents();
}

void tst_TouchSizes::controlsAreLargeEnough()
{
    // Also those that this console does not show.
    for (const char *name : {"pushButton_DHCP", "pushButton_Manual", "pushButton_restart"})
        m_console->child(name)->show();
    QCoreApplication::processEvents();
    Ruler ruler;
    ruler.measure(m_console->window.data());
    for (const char *name : {"pushButton_DHCP", "pushButton_Manual", "pushButton_restart"})
        m_console->child(name)->hide();

    QVERIFY2(ruler.count() > 200, qPrintable(QString::number(ruler.count())));
    QVERIFY2(ruler.small().isEmpty(), ruler.list());
}

void tst_TouchSizes::rowsOfTheListAreLargeEnough()
{
    auto *box = m_console->child<QComboBox>("screenNumberCombox");
    box->showPopup();
    Ruler ruler;
    for (int row = 0; row < box->count(); ++row)
        ruler.measure(box->itemText(row), box->view()->visualRect(box->model()->index(row, 0)).size());
    box->hidePopup();

    QCOMPARE(ruler.count(), 16);
    QVERIFY2(ruler.small().isEmpty(), ruler.list());
}

void tst_TouchSizes::daysOfTheCalendarAreLargeEnough()
{
    m_console->panel()->findChild<Korvo::Widgets::DateWidget *>()->click();
    QWidget *popup = QApplication::activePopupWidget();
    QVERIFY(popup);
    Ruler ruler;
    ruler.measure(popup);
    auto *days = popup->findChild<QTableView *>();
    for (int row = 1; row < days->model()->rowCount(); ++row) {
        for (int column = 0; column < days->model()->columnCount(); ++column)
            ruler.measure(QStringLiteral("day"), days->visualRect(days->model()->index(row, column)).size());
    }
    popup->close();

    QVERIFY(ruler.count() >= 6 * 7 + 4);
    QVERIFY2(ruler.small().isEmpty(), ruler.list());
}

void tst_TouchSizes::answersToMessagesAreLargeEnough()
{
    FramelessMessageBox box(QMessageBox::Question, QStringLiteral("Remind"), QStringLiteral("?"),
                            QMessageBox::Yes | QMessageBox::No, m_console->panel());
    box.show();
    Ruler ruler;
    ruler.measure(&box);

    QCOMPARE(ruler.count(), 2);
    QVERIFY2(ruler.small().isEmpty(), ruler.list());
}

/// Where a press takes the lever as it stands, rather than calling it there.
void tst_TouchSizes::leverIsTakenByAFinger()
{
    Korvo::Widgets::tbar lever(nullptr, Qt::WindowFlags());
    lever.setDirectionEnable(true);
    lever.setFixedSize(152, 380);
    lever.show();
    lever.setCurValue(50);
    QRect handle;
    for (int y = 0; y < lever.height(); y += 2) {
        for (int x = 0; x < lever.width(); x += 2) {
            QMouseEvent press(QEvent::MouseButtonPress, QPoint(x, y), Qt::LeftButton, Qt::LeftButton, {});
            QApplication::sendEvent(&lever, &press);
            if (press.isAccepted() && qFuzzyCompare(lever.curValue(), 50))
                handle |= QRect(x, y, 1, 1);
            QMouseEvent release(QEvent::MouseButtonRelease, QPoint(x, y), Qt::LeftButton, {}, {});
            QApplication::sendEvent(&lever, &release);
            lever.setCurValue(50);
        }
    }
    Ruler ruler;
    ruler.measure(QStringLiteral("handle"), handle.size());
    QVERIFY2(handle.isValid() && ruler.small().isEmpty(), ruler.list());
}

void tst_TouchSizes::keysOfTheKeypadAreLargeEnough()
{
    QWidget window;
    Keypad keypad(&window);
    keypad.adjustSize();
    keypad.show();
    window.show();
    Ruler ruler;
    ruler.measure(&window);

    QVERIFY(ruler.count() > 12);
    QVERIFY2(ruler.small().isEmpty(), ruler.list());
}

void tst_TouchSizes::hostsOwnControlsAreLargeEnough()
{
    LanguageMenu menu(m_console->language.data());
    PowerCover cover;
    cover.resize(800, 600);
    cover.setPower(Power::Off);
    cover.show();
    QCoreApplication::processEvents();
    Ruler ruler;
    ruler.measure(m_console->window->hardwarePanel());
    ruler.measure(&cover);
    menu.popup(QPoint());
    const QList<QAction *> choices = menu.actions();
    for (QAction *choice : choices)
        ruler.measure(choice->text(), menu.actionGeometry(choice).size());
    menu.close();

    QVERIFY2(ruler.count() >= 9, qPrintable(QString::number(ruler.count())));
    QVERIFY2(ruler.small().isEmpty(), ruler.list());
}

void tst_TouchSizes::smallControlIsFound()
{
    QWidget window;
    Korvo::EC::K7DropButton key(&window);
    key.setFixedSize(64, 20);
    QSlider slider(Qt::Horizontal, &window);
    slider.setStyleSheet(QStringLiteral("QSlider::handle { width: 8px }"));
    slider.setGeometry(0, 30, 200, 40);
    QLineEdit field(&window);
    field.setGeometry(0, 80, 200, 36);
    window.show();
    Ruler ruler;
    ruler.measure(&window);

    QCOMPARE(ruler.small().size(), 2);
}

void tst_TouchSizes::pressShowsAtOnce_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPoint>("at");

    QTest::newRow("key") << QStringLiteral("toolButton_252") << QPoint(32, 32);
    QTest::newRow("key with a text") << QStringLiteral("clearPresetToolButton") << QPoint(32, 32);
    QTest::newRow("double key") << QStringLiteral("takeToolButton") << QPoint(50, 30);
    QTest::newRow("page key") << QStringLiteral("pageUpToolButton") << QPoint(32, 32);
    QTest::newRow("number key") << QStringLiteral("toolButton_107") << QPoint(32, 32);
    QTest::newRow("push button") << QStringLiteral("peripheralApply") << QPoint(40, 18);
    QTest::newRow("checked button") << QStringLiteral("pushButton_12") << QPoint(40, 18);
    QTest::newRow("unchecked button") << QStringLiteral("pushButton_24") << QPoint(40, 18);
    QTest::newRow("tool button") << QStringLiteral("toolButton_2") << QPoint(20, 18);
    QTest::newRow("date") << QStringLiteral("toolButton") << QPoint(40, 18);
    QTest::newRow("combo box") << QStringLiteral("screenNumberCombox") << QPoint(40, 18);
    QTest::newRow("check box") << QStringLiteral("currentPanelCheckBox") << QPoint(18, 18);
    QTest::newRow("switch") << QStringLiteral("switch_logo") << QPoint(20, 18);
    QTest::newRow("slider's handle") << QStringLiteral("slider") << QPoint(-1, 18);
    QTest::newRow("panel's handle") << QStringLiteral("panelHandle") << QPoint(20, 60);
}

void tst_TouchSizes::pressShowsAtOnce()
{
    QFETCH(QString, name);
    QFETCH(QPoint, at);

    QWidget *widget = name == QLatin1String("toolButton") ? m_console->panel()->findChild<QWidget *>(name)
                                                          : m_console->window->findChild<QWidget *>(name);
    if (name == QLatin1String("panelHandle")) {
        const auto handles = m_console->panel()->parentWidget()->findChildren<QToolButton *>(
            QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(handles.size(), 1);
        widget = handles.constFirst();
    }
    QVERIFY(widget);
    m_console->panelArea()->ensureWidgetVisible(widget);
    if (const auto *slider = qobject_cast<QSlider *>(widget))
        at = handleOf(slider).center();
    // What has the focus looks as it did when it is pressed.
    widget->setFocus();
    QCoreApplication::processEvents();

    const QImage before = pictureOf(widget);
    QTest::mousePress(widget, Qt::LeftButton, {}, at);
    const bool isList = qobject_cast<QComboBox *>(widget);
    const QImage after = pictureOf(widget);
    if (isList)
        qobject_cast<QComboBox *>(widget)->hidePopup();
    QTest::mouseMove(widget, {-50, -50}); // not meant
    QTest::mouseRelease(widget, Qt::LeftButton, {}, {-50, -50});

    QCOMPARE(after.size(), before.size());
    const int changed = difference(before, after);
    QVERIFY2(changed >= 60, qPrintable(QStringLiteral("%1 pixels").arg(changed)));
}

/// The row that the finger is on.
void tst_TouchSizes::pressOnAListShowsAtOnce()
{
    auto *box = m_console->child<QComboBox>("screenNumberCombox");
    box->showPopup();
    QWidget *rows = box->view()->viewport();
    const QPoint third = box->view()->visualRect(box->model()->index(2, 0)).center();
    const QImage before = pictureOf(rows);
    QTest::mouseMove(rows, third);
    QTest::mousePress(rows, Qt::LeftButton, {}, third);
    const QImage after = pictureOf(rows);
    box->hidePopup();

    QVERIFY(difference(before, after) >= 60);
}

QTEST_MAIN(tst_TouchSizes)

#include "tst_touchsizes.moc"
