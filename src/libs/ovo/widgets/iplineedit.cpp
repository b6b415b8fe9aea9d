// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "iplineedit.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QStringList>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace Ovo::Widgets {

namespace {

class Octet;

const int octetCount = 4;
const int octetDigits = 3;

// 0 to 255 in up to three digits, or nothing yet.
QRegularExpression octetPattern()
{
    static const QRegularExpression pattern(QStringLiteral("\\A(?:[01]?[0-9]{0,2}|2[0-4][0-9]|25[0-5])\\z"));
    return pattern;
}

QString withoutLeadingZeros(const QString &octet)
{
    return octet.isEmpty() ? octet : QString::number(octet.toInt());
}

// The octets of an address, or none.
QStringList octetsOf(const QString &address)
{
    QStringList octets = address.trimmed().split(QLatin1Char('.'));
    if (octets.size() != octetCount)
        return {};
    for (QString &octet : octets) {
        if (octet.isEmpty() || !octetPattern().match(octet).hasMatch())
            return {};
        octet = withoutLeadingZeros(octet);
    }
    return octets;
}

bool isDot(const QString &text)
{
    // Number pads give a comma in many languages.
    return text == QLatin1String(".") || text == QLatin1String(",");
}

enum class Arrival { AllSelected, AtStart, AtEnd };

} // namespace

class IPLineEditPrivate
{
    Q_DISABLE_COPY(IPLineEditPrivate)

public:
    explicit IPLineEditPrivate(IPLineEdit *editor)
        : q(editor)
    {
    }

    void addOctets();
    Octet *enter(int index, Arrival arrival);
    void fill(const QStringList &texts);
    void announceText();
    void followFocus();
    int nearest(const QPoint &position) const;

    IPLineEdit *const q;
    std::array<Octet *, octetCount> octets{}; // children of the editor
    QString announcedText;
    bool isFilling = false; // several octets are to change as one
    bool isFocused = false;
};

namespace {

class Octet : public QLineEdit
{
public:
    Octet(int index, IPLineEditPrivate *editor);

    QSize sizeHint() const override { return sizeFor(octetDigits + 1); }
    QSize minimumSizeHint() const override { return sizeFor(octetDigits); }

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QSize sizeFor(int digits) const;
    void tidy();
    void take(const QString &text);
    void moveOnWhenFull();
    void moveOnByDot();
    bool leavesBackwards(int key) const;
    bool leavesForwards(int key) const;

    const int m_index;
    IPLineEditPrivate *const m_editor;
    // The third digit before has moved here; whoever types the dot as well does not mean another step.
    bool m_skipsDot = false;
};

Octet::Octet(int index, IPLineEditPrivate *editor)
    : QLineEdit(editor->q) // before it has a style sheet, with which every new parent polishes it anew
    , m_index(index)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("octet_%1").arg(index + 1));
    setAccessibleName(IPLineEdit::tr("Octet %1").arg(index + 1));
    setValidator(new QRegularExpressionValidator(octetPattern(), this));
    setAlignment(Qt::AlignCenter);
    setFrame(false);
    // The box is the editor's, also where a style sheet gives every line edit one.
    setStyleSheet(
        QStringLiteral("background: transparent; border: none; margin: 0; padding: 0; min-height: 0;"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    // The menu and drops would get round take().
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    connect(this, &QLineEdit::textEdited, this, &Octet::moveOnWhenFull);
    connect(this, &QLineEdit::returnPressed, this, &Octet::tidy);
}

QSize Octet::sizeFor(int digits) const
{
    ensurePolished();
    const QString widest(digits, QLatin1Char('0'));
    return QSize(fontMetrics().boundingRect(widest).width() + 8, QLineEdit::minimumSizeHint().height());
}

void Octet::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    m_editor->followFocus();
}

void Octet::focusOutEvent(QFocusEvent *event)
{
    m_skipsDot = false;
    tidy();
    QLineEdit::focusOutEvent(event);
    m_editor->followFocus();
}

void Octet::inputMethodEvent(QInputMethodEvent *event)
{
    const QString text = event->commitString();
    if (isDot(text))
        moveOnByDot();
    else if (text.contains(QLatin1Char('.')))
        take(text);
    else
        QLineEdit::inputMethodEvent(event);
}

void Octet::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && isDot(event->text())) {
        moveOnByDot();
        return;
    }
    m_skipsDot = false;
    if (event->matches(QKeySequence::Paste))
        take(QApplication::clipboard()->text());
    else if (isPlain && leavesBackwards(event->key()))
        m_editor->enter(m_index - 1, Arrival::AtEnd);
    else if (isPlain && leavesForwards(event->key()))
        m_editor->enter(m_index + 1, Arrival::AtStart);
    else
        QLineEdit::keyPressEvent(event);
}

void Octet::mouseReleaseEvent(QMouseEvent *event)
{
    const QClipboard *clipboard = QApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection())
        take(clipboard->text(QClipboard::Selection));
    else
        QLineEdit::mouseReleaseEvent(event);
}

void Octet::tidy()
{
    const QString plain = withoutLeadingZeros(text());
    if (plain != text())
        setText(plain);
}

void Octet::take(const QString &text)
{
    const QStringList octets = octetsOf(text);
    if (octets.isEmpty()) {
        insert(text.trimmed()); // as a whole or, when the validator refuses it, not at all
        return;
    }
    m_editor->fill(octets);
    emit textEdited(this->text());
    m_editor->enter(octetCount - 1, Arrival::AtEnd);
}

void Octet::moveOnWhenFull()
{
    if (text().size() < octetDigits || cursorPosition() < octetDigits)
        return;
    if (Octet *next = m_editor->enter(m_index + 1, Arrival::AllSelected))
        next->m_skipsDot = true;
}

void Octet::moveOnByDot()
{
    const bool isDone = m_skipsDot || text().isEmpty();
    m_skipsDot = false;
    if (!isDone)
        m_editor->enter(m_index + 1, Arrival::AllSelected);
}

bool Octet::leavesBackwards(int key) const
{
    return (key == Qt::Key_Backspace || key == Qt::Key_Left) && cursorPosition() == 0 && !hasSelectedText();
}

bool Octet::leavesForwards(int key) const
{
    return key == Qt::Key_Right && cursorPosition() == text().size() && !hasSelectedText();
}

} // namespace

void IPLineEditPrivate::addOctets()
{
    auto *layout = new QHBoxLayout(q);
    layout->setContentsMargins(2, 0, 2, 0);
    layout->setSpacing(0);
    for (int i = 0; i < octetCount; ++i) {
        if (i > 0) {
            auto *dot = new QLabel(QStringLiteral("."));
            dot->setForegroundRole(QPalette::Text);
            layout->addWidget(dot);
        }
        octets[i] = new Octet(i, this);
        layout->addWidget(octets[i]);
        QObject::connect(octets[i], &QLineEdit::textChanged, q, [this] { announceText(); });
        QObject::connect(octets[i], &QLineEdit::returnPressed, q, &IPLineEdit::editingFinished);
    }
}

// Puts the focus on an octet; null when there is none with that index.
Octet *IPLineEditPrivate::enter(int index, Arrival arrival)
{
    if (index < 0 || index >= octetCount)
        return nullptr;
    Octet *octet = octets[index];
    octet->setFocus(Qt::OtherFocusReason);
    if (arrival == Arrival::AllSelected)
        octet->selectAll();
    else
        octet->setCursorPosition(arrival == Arrival::AtStart ? 0 : octet->text().size());
    return octet;
}

void IPLineEditPrivate::fill(const QStringList &texts)
{
    isFilling = true;
    for (int i = 0; i < octetCount; ++i) {
        const QString text = texts.value(i);
        if (octets[i]->text() != text)
            octets[i]->setText(text);
    }
    isFilling = false;
    announceText();
}

void IPLineEditPrivate::announceText()
{
    const QString text = q->text();
    if (isFilling || text == announcedText)
        return;
    announcedText = text;
    emit q->textChanged(text);
}

void IPLineEditPrivate::followFocus()
{
    // Asked of the octets: in a graphics scene the application knows only the view that has the focus.
    const bool isInside = std::any_of(octets.begin(), octets.end(),
                                      [](const Octet *octet) { return octet && octet->hasFocus(); });
    if (isFocused == isInside)
        return;
    isFocused = isInside;
    q->setProperty("focused", isFocused);
    q->style()->unpolish(q);
    q->style()->polish(q);
    q->update();
    if (!isFocused)
        emit q->editingFinished();
}

int IPLineEditPrivate::nearest(const QPoint &position) const
{
    const auto distance = [&position](const Octet *octet) {
        return std::abs(octet->geometry().center().x() - position.x());
    };
    const auto *const found =
        std::min_element(octets.begin(), octets.end(),
                         [&distance](const Octet *a, const Octet *b) { return distance(a) < distance(b); });
    return int(found - octets.begin());
}

IPLineEdit::IPLineEdit(QWidget *parent)
    : QFrame(parent)
    , d(new IPLineEditPrivate(this))
{
    setProperty("focused", false);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setLayoutDirection(Qt::LeftToRight); // in every language
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    d->addOctets();
    d->announcedText = text();
    setFocusProxy(d->octets.front());
}

// The octets report their loss of focus to the private part, so they go before it.
IPLineEdit::~IPLineEdit()
{
    qDeleteAll(d->octets);
}

QString IPLineEdit::text() const
{
    QStringList texts;
    for (const Octet *octet : d->octets)
        texts << octet->text();
    return texts.join(QLatin1Char('.'));
}

void IPLineEdit::setText(const QString &text)
{
    d->fill(octetsOf(text));
}

void IPLineEdit::setIPFocus()
{
    d->enter(0, Arrival::AllSelected);
}

void IPLineEdit::mousePressEvent(QMouseEvent *event)
{
    // A finger that meets a dot or the edge means the octet beside it.
    if (event->button() == Qt::LeftButton)
        d->enter(d->nearest(event->pos()), Arrival::AllSelected);
    else
        QFrame::mousePressEvent(event);
}

void IPLineEdit::paintEvent(QPaintEvent *)
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    option.state.setFlag(QStyle::State_HasFocus, d->isFocused);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
}

} // namespace Ovo::Widgets
