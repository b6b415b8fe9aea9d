// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "paintedtexts.h"
#include "wholeconsole.h"

#include <applytheme.h>
#include <hardwarepanel.h>
#include <inspector.h>
#include <keypad.h>
#include <languagemenu.h>
#include <powercover.h>

#include <korvo/ec/textticker.h>
#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/waitingdialog.h>
#include <ovo/widgets/framelessmessagebox.h>
#include <ovo/widgets/iplineedit.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QBoxLayout>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMenu>
#include <QPainter>
#include <QSet>
#include <QSpinBox>

#include <algorithm>
#include <cstdio>

using namespace K7Host;
using Ovo::Widgets::FramelessMessageBox;

namespace {

const qreal factors[] = {0.5, 0.75, 1, 1.5, 2};
constexpr qreal Blur = 1; // pixels that letters may lie beyond their room without looking cut

/// Texts of the panel that stand in no form.
QString panelText(const char *text)
{
    return QCoreApplication::translate("Korvo::Internal::ConsoleFloatWidget", text);
}

QString nameOf(const QWidget *widget)
{
    return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                          : widget->objectName();
}

/// Its name, and its ancestors' up to its window's.
QString pathOf(const QWidget *widget)
{
    QStringList names{nameOf(widget)};
    for (const QWidget *child = widget; !child->isWindow(); child = child->parentWidget()) {
        const QString name = child->parentWidget()->objectName();
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
            names.prepend(name);
    }
    return names.join(QLatin1Char('/'));
}

QString signedText(qreal number)
{
    return (number < 0 ? QString() : QStringLiteral("+")) + QString::number(number);
}

/// Its size and place.
QString rectText(const QRectF &rect)
{
    return QStringLiteral("%1x%2%3%4")
        .arg(rect.width())
        .arg(rect.height())
        .arg(signedText(rect.x()), signedText(rect.y()));
}

bool isInside(const QRectF &inner, const QRectF &outer)
{
    return outer.adjusted(-Blur, -Blur, Blur, Blur).contains(inner);
}

/// A drum's rows run out of sight at its edges, and only the one in the middle is read.
bool isDrum(const QWidget *widget)
{
    return widget->inherits("Korvo::Widgets::TumblerWheel");
}

/// A ticker moves texts that it has no room for.
bool scrolls(const QWidget *widget)
{
    const auto *ticker = qobject_cast<const Korvo::EC::TextTicker *>(widget);
    return ticker &&
           ticker->fontMetrics().boundingRect(ticker->text()).width() > ticker->contentsRect().width() - 4;
}

/// A key's face has an edge of its own.
int edgeOf(const QWidget *widget)
{
    return widget->inherits("Korvo::EC::K7DropButton") ? 5 : 0;
}

/// Looks at widgets as they stand, and notes every text that does not fit.
class Reader
{
public:
    explicit Reader(const QString &language)
        : m_language(language)
    {
    }

    /// Looks at \a window and all that is seen in it.
    void read(QWidget *window);

    int textCount() const { return m_textCount; }
    QStringList faults() const;

private:
    struct Place
    {
        const QWidget *widget;
        QString text;
        QRectF ink; // in the window
    };

    void readWidget(QWidget *widget);
    void readText(QWidget *widget, const PaintedText &text);
    QRectF roomIn(const QWidget *widget, const QRectF &room) const;
    bool isScrolledAway(const QWidget *widget, const QRectF &ink) const;
    void checkOverlaps();
    void complain(const QWidget *widget, const QString &what);

    const QString m_language;
    int m_textCount = 0;
    QStringList m_faults;
    QVector<Place> m_places; // of the window that is being read
    QSet<QString> m_seen;
    QSet<QString> m_unseen;
};

void Reader::read(QWidget *window)
{
    m_places.clear();
    readWidget(window);
    const auto children = window->findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (child->isVisibleTo(window) && child->window() == window)
            readWidget(child);
    }
    checkOverlaps();
}

void Reader::readWidget(QWidget *widget)
{
    const auto texts = paintedTexts(widget);
    for (const PaintedText &text : texts) {
        const bool isMiddle = qAbs(text.ink.center().y() - widget->height() / 2.0) < text.ink.height() / 2;
        if (!isDrum(widget) || isMiddle)
            readText(widget, text);
    }
}

void Reader::readText(QWidget *widget, const PaintedText &text)
{
    const int edge = edgeOf(widget);
    QRectF room = text.room & QRectF(widget->rect()).adjusted(edge, edge, -edge, -edge);
    QRectF ink = text.ink;
    if (scrolls(widget)) {
        ink.setLeft(room.left());
        ink.setRight(room.right());
    }
    const QString seen = pathOf(widget) + text.text;
    if (isScrolledAway(widget, ink)) {
        m_unseen << seen;
        return;
    }
    m_seen << seen;
    ++m_textCount;
    m_places << Place{widget, text.text, ink.translated(widget->mapTo(widget->window(), QPoint()))};
    if (text.text.contains(QChar(0x2026)) && widget->property("text").toString() != text.text)
        complain(widget, QStringLiteral("\"%1\" is shortened").arg(text.text));

    room = roomIn(widget, room);
    const auto fits = [&](qreal factor) { return isInside(pixelsOf(ink, factor), pixelsOf(room, factor)); };
    const auto *const misfit = std::find_if_not(std::begin(factors), std::end(factors), fits);
    if (misfit != std::end(factors)) {
        complain(widget, QStringLiteral("\"%1\" at %2: needs %3 has %4")
                             .arg(text.text)
                             .arg(*misfit)
                             .arg(rectText(ink), rectText(room)));
    }
    const QPoint middle = ink.center().toPoint();
    const QWidget *above = widget->window()->childAt(widget->mapTo(widget->window(), middle));
    const bool isCovered = above && above != widget && !widget->isAncestorOf(above) &&
                           !above->isAncestorOf(widget) && room.contains(middle);
    if (isCovered)
        complain(widget, QStringLiteral("\"%1\" lies under %2").arg(text.text, pathOf(above)));
}

/// With what was only seen in parts, wherever it was scrolled to.
QStringList Reader::faults() const
{
    QStringList result = m_faults;
    const QSet<QString> unseen = m_unseen - m_seen;
    for (const QString &text : unseen)
        result << QStringLiteral("%1: %2: never seen as a whole").arg(m_language, text);
    return result;
}

/// What the ancestors leave of \a room.
QRectF Reader::roomIn(const QWidget *widget, const QRectF &room) const
{
    QRectF result = room;
    for (const QWidget *parent = widget; !parent->isWindow();) {
        parent = parent->parentWidget();
        result &= QRectF(parent->rect()).translated(-widget->mapTo(parent, QPoint()));
    }
    return result;
}

/// Whether it stands in something that can be scrolled, and not all of it is seen now.
bool Reader::isScrolledAway(const QWidget *widget, const QRectF &ink) const
{
    bool canScroll = false;
    for (const QWidget *parent = widget; !parent->isWindow();) {
        parent = parent->parentWidget();
        const auto *area = qobject_cast<const QAbstractScrollArea *>(parent->parentWidget());
        canScroll =
            canScroll ||
            (area && area->viewport() == parent &&
             (area->horizontalScrollBar()->maximum() > 0 || area->verticalScrollBar()->maximum() > 0));
        if (canScroll && !QRectF(parent->rect()).contains(ink.translated(widget->mapTo(parent, QPoint()))))
            return true;
    }
    return false;
}

void Reader::checkOverlaps()
{
    for (int i = 0; i < m_places.size(); ++i) {
        for (int j = i + 1; j < m_places.size(); ++j) {
            const Place &a = m_places.at(i);
            const Place &b = m_places.at(j);
            const QRectF both = a.ink & b.ink;
            if (a.widget == b.widget)
                continue;
            const bool isOver = both.width() > Blur && both.height() > Blur;
            const bool areSiblings = a.widget->parent() == b.widget->parent() &&
                                     a.widget->geometry().intersects(b.widget->geometry());
            if (isOver || areSiblings) {
                complain(a.widget,
                         QStringLiteral("\"%1\" meets \"%2\" of %3").arg(a.text, b.text, pathOf(b.widget)));
            }
        }
    }
}

void Reader::complain(const QWidget *widget, const QString &what)
{
    const QString fault = QStringLiteral("%1: %2: %3").arg(m_language, pathOf(widget), what);
    if (!m_faults.contains(fault))
        m_faults << fault;
}

/// Each part of a layout asks those around it for room, one after the other.
void settle()
{
    for (int i = 0; i < 4; ++i)
        QCoreApplication::processEvents();
}

/// Also printed, for QtTest cuts long messages off.
QByteArray listOf(const QStringList &faults)
{
    if (!faults.isEmpty())
        std::fputs(qPrintable(faults.join(QLatin1Char('\n')) + QLatin1Char('\n')), stderr);
    return QByteArray::number(faults.size()) + " do not fit:\n" + faults.join(QLatin1Char('\n')).toUtf8();
}

} // namespace

/// No text of the console is cut off, covered or shortened, in any language at any scale.
class tst_TextFits : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void consoleShowsAllOfItsTexts_data();
    void consoleShowsAllOfItsTexts();
    void messagesShowAllOfTheirTexts_data();
    void messagesShowAllOfTheirTexts();
    void popupsShowAllOfTheirTexts_data();
    void popupsShowAllOfTheirTexts();
    void hostsOwnPartsShowAllOfTheirTexts();
    void textThatDoesNotFitIsFound();
    void textIsWhereItIsMeasuredAtAnyScale_data();
    void textIsWhereItIsMeasuredAtAnyScale();

private:
    void fillPanel() const;
    void readPanel(Reader *reader) const;
    void readWaiting(Reader *reader, const char *text) const;
    void readMessage(Reader *reader, const char *title, const QString &text,
                     QMessageBox::StandardButtons buttons, const char *informative = nullptr) const;
    void languages() const;

    QScopedPointer<WholeConsole> m_console;
};

void tst_TextFits::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("korvo.k7.*.debug=false"));
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
    m_console.reset(new WholeConsole(QStringLiteral(KORVO_PLUGINS)));
    QVERIFY(m_console->show());
    QCOMPARE(m_console->language->available().size(), 6);
    fillPanel();
}

/// The longest that may stand in every field.
void tst_TextFits::fillPanel() const
{
    for (const char *name : {"lineEdit_IP", "lineEdit_mask", "lineEdit_gateWay"})
        m_console->child<Ovo::Widgets::IPLineEdit>(name)->setText(QStringLiteral("255.255.255.255"));
    auto *count = m_console->child<QComboBox>("screenNumberCombox");
    count->setCurrentIndex(count->count() - 1);
    for (const char *name : {"spinBox_width", "spinBox_height"})
        m_console->child(name)->findChild<QSpinBox *>()->setValue(8192);
    m_console->child<QCheckBox>("currentPanelCheckBox")->setChecked(true);
    m_console->child<QAbstractButton>("pushButton_12")->setChecked(true);
    for (const char *name : {"label_2", "label_5"}) {
        QWidget *strip = m_console->child("logoFrame");
        strip->findChild<QLabel *>(QLatin1String(name))->setText(QStringLiteral("255.255.255.255"));
    }
    m_console->child<QLabel>("label_time")->setText(QStringLiteral("28/10/2026          10:08:08 AM"));
    const auto tickers = m_console->window->findChildren<Korvo::EC::TextTicker *>();
    QVERIFY(!tickers.isEmpty());
    for (int i = 0; i < tickers.size(); i += 3)
        tickers.at(i)->setText(QStringLiteral("Qjgy ÄÇ 漢字"));
}

void tst_TextFits::languages() const
{
    QTest::addColumn<QString>("language");
    const QStringList available = m_console->language->available();
    for (const QString &language : available)
        QTest::newRow(qPrintable(language)) << language;
}

void tst_TextFits::init()
{
    QVERIFY(m_console->language->choose(QStringLiteral("en")));
}

void tst_TextFits::readPanel(Reader *reader) const
{
    const auto readScreens = [&] {
        QScrollBar *bar = m_console->child<QScrollArea>("screenScrollArea")->horizontalScrollBar();
        for (int left = 0; left <= bar->maximum(); left += bar->pageStep() / 2) {
            bar->setValue(left);
            reader->read(m_console->window.data());
        }
        bar->setValue(bar->maximum());
        reader->read(m_console->window.data());
    };
    const int step = m_console->panelArea()->viewport()->height() / 2;
    for (int top = 0; m_console->scrollPanelTo(top); top += step)
        readScreens();
    m_console->scrollPanelTo(0);
}

void tst_TextFits::consoleShowsAllOfItsTexts_data()
{
    languages();
}

void tst_TextFits::consoleShowsAllOfItsTexts()
{
    QFETCH(QString, language);

    QVERIFY(m_console->language->choose(language));
    settle();
    Reader reader(language);
    readPanel(&reader);
    QVERIFY2(reader.textCount() > 120, qPrintable(QString::number(reader.textCount())));

    // Rows that this console does not show have their places all the same.
    QList<QWidget *> hidden;
    for (const char *name :
         {"label_13", "pushButton_DHCP", "pushButton_Manual", "label_restart", "pushButton_restart"})
        hidden << m_console->panel()->findChild<QWidget *>(QLatin1String(name));
    const auto buttons = m_console->panel()->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (button->text() == panelText("ShutDown"))
            hidden << button;
    }
    QCOMPARE(hidden.size(), 6);
    for (QWidget *widget : qAsConst(hidden))
        widget->show();
    settle();
    readPanel(&reader);
    for (QWidget *widget : qAsConst(hidden))
        widget->hide();

    QVERIFY2(reader.faults().isEmpty(), listOf(reader.faults()));
}

void tst_TextFits::messagesShowAllOfTheirTexts_data()
{
    languages();
}

void tst_TextFits::messagesShowAllOfTheirTexts()
{
    QFETCH(QString, language);

    QVERIFY(m_console->language->choose(language));
    Reader reader(language);
    for (const char *text : {"Getting network configuration timeout.", "Time setting failed.",
                             "The time setting was successful."})
        readMessage(&reader, "Remind", panelText(text), QMessageBox::Ok);
    for (const char *text : {"Are you sure to restart console?", "Are you sure to shutdown console?"})
        readMessage(&reader, "Remind", panelText(text), QMessageBox::Yes | QMessageBox::No);
    readMessage(&reader, "Remind", panelText("Please select %1 operation screen.").arg(QStringLiteral("q6")),
                QMessageBox::Ok);
    for (const char *text : {"The default gateway is not on the same network segment (subnet) defined by IP "
                             "address and subnet mask.",
                             "Can't set the same segment, please retry."})
        readMessage(&reader, "Tip", panelText("Fail to set network information."), QMessageBox::Ok, text);
    for (const char *text : {"loading , please wait.", "time updating , please wait.",
                             "restarting , please wait.", "shutting down , please wait."})
        readWaiting(&reader, text);
    QVERIFY2(reader.textCount() > 30, qPrintable(QString::number(reader.textCount())));
    QVERIFY2(reader.faults().isEmpty(), listOf(reader.faults()));
}

void tst_TextFits::readMessage(Reader *reader, const char *title, const QString &text,
                               QMessageBox::StandardButtons buttons, const char *informative) const
{
    FramelessMessageBox box(QMessageBox::Warning, panelText(title), text, buttons,
                            informative ? nullptr : m_console->panel());
    if (informative) {
        box.setInformativeText(panelText(informative));
        box.button(QMessageBox::Ok)->setText(panelText("sure"));
    }
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    reader->read(&box);
}

void tst_TextFits::readWaiting(Reader *reader, const char *text) const
{
    // As its own half has it, where it hides what is below.
    QWidget half;
    half.resize(m_console->session->halves().constLast().toStrongRef()->size());
    half.show();
    Korvo::Widgets::WaitingDialog waiting(&half, Qt::WindowFlags());
    waiting.showWaitingDialog(panelText(text), Korvo::Widgets::WaitingDialog::Normal);
    reader->read(&half);
    waiting.hideWaitingDialog();
}

void tst_TextFits::popupsShowAllOfTheirTexts_data()
{
    languages();
}

void tst_TextFits::popupsShowAllOfTheirTexts()
{
    QFETCH(QString, language);

    QVERIFY(m_console->language->choose(language));
    Reader reader(language);
    auto *date = m_console->panel()->findChild<Korvo::Widgets::DateWidget *>();
    date->click();
    QWidget *popup = QApplication::activePopupWidget();
    QVERIFY(popup);
    auto *calendar = popup->findChild<QCalendarWidget *>();
    for (int month = 1; month <= 12; ++month) {
        calendar->setCurrentPage(2026, month);
        settle();
        reader.read(popup);
    }
    popup->close();

    auto *count = m_console->child<QComboBox>("screenNumberCombox");
    count->showPopup();
    settle();
    QWidget *list = count->view()->window();
    QVERIFY(list->isVisible());
    reader.read(list);
    count->hidePopup();

    QVERIFY2(reader.textCount() > 12 * 40, qPrintable(QString::number(reader.textCount())));
    QVERIFY2(reader.faults().isEmpty(), listOf(reader.faults()));
}

void tst_TextFits::hostsOwnPartsShowAllOfTheirTexts()
{
    Reader reader(QStringLiteral("host"));
    QWidget desk;
    Keypad keypad(&desk);
    keypad.setPoint(QLatin1Char(','));
    keypad.adjustSize();
    keypad.show();
    desk.resize(keypad.size());
    desk.show();
    reader.read(&desk);
    PowerCover cover;
    cover.resize(m_console->window->size());
    for (Power power : {Power::Restarting, Power::Off}) {
        cover.setPower(power);
        cover.show();
        settle();
        reader.read(&cover);
    }
    reader.read(m_console->window->hardwarePanel());
    LanguageMenu menu(m_console->language.data());
    menu.popup(QPoint());
    settle();
    reader.read(&menu);
    menu.close();

    Inspector inspector(m_console->session->halves());
    inspector.show();
    settle();
    reader.read(&inspector);

    QVERIFY2(reader.textCount() > 60, qPrintable(QString::number(reader.textCount())));
    QVERIFY2(reader.faults().isEmpty(), listOf(reader.faults()));
}

void tst_TextFits::textThatDoesNotFitIsFound()
{
    QWidget window;
    window.resize(300, 200);
    QLabel cut(QStringLiteral("Much too long for so little"), &window);
    cut.setGeometry(10, 10, 60, 30);
    QLabel low(QStringLiteral("High"), &window);
    low.setGeometry(10, 50, 60, 5);
    QLabel outside(QStringLiteral("Over the edge"), &window);
    outside.setGeometry(250, 80, 200, 30);
    QLabel below(QStringLiteral("Below"), &window);
    below.setGeometry(10, 120, 100, 30);
    QLabel above(QStringLiteral("Above"), &window);
    above.setGeometry(20, 125, 100, 30);
    QLabel fine(QStringLiteral("Fine"), &window);
    fine.setGeometry(10, 160, 100, 30);
    const QList<QLabel *> wrong{&cut, &low, &outside, &below};
    int number = 0;
    for (QLabel *label : wrong)
        label->setObjectName(QStringLiteral("label%1").arg(++number));
    fine.setObjectName(QStringLiteral("fine"));
    window.show();

    Reader reader(QString{});
    reader.read(&window);

    const QStringList faults = reader.faults();
    for (const QLabel *label : wrong)
        QVERIFY2(!faults.filter(label->objectName()).isEmpty(), qPrintable(label->text()));
    QVERIFY2(faults.filter(fine.objectName()).isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void tst_TextFits::textIsWhereItIsMeasuredAtAnyScale_data()
{
    QTest::addColumn<qreal>("factor");
    for (qreal factor : factors)
        QTest::newRow(qPrintable(QString::number(factor))) << factor;
}

void tst_TextFits::textIsWhereItIsMeasuredAtAnyScale()
{
    QFETCH(qreal, factor);

    QLabel label(QStringLiteral("Einstellungen der beiden Netzwerke 漢字"));
    label.setStyleSheet(QStringLiteral("color: black; background-color: white; font-size: 15px"));
    label.resize(420, 40);
    label.ensurePolished();
    QImage image((QSizeF(label.size()) * factor).toSize(), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.scale(factor, factor);
        label.render(&painter);
    }
    QRect dark;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 160)
                dark |= QRect(x, y, 1, 1);
        }
    }

    const QVector<PaintedText> texts = paintedTexts(&label);
    QVERIFY(!texts.isEmpty());
    QRectF ink;
    for (const PaintedText &text : texts)
        ink |= text.ink;
    const QRectF measured = pixelsOf(ink, factor);
    const auto message = rectText(measured) + QStringLiteral(" but painted ") + rectText(dark);
    QVERIFY2(measured.adjusted(-1, -1, 1, 1).contains(dark), qPrintable(message));
    // A letter stands a little off the start of its line.
    const qreal off = 2 * qMax<qreal>(1, factor);
    QVERIFY2(QRectF(dark).adjusted(-off, -off, off, off).contains(measured), qPrintable(message));
}

QTEST_MAIN(tst_TextFits)

#include "tst_textfits.moc"
