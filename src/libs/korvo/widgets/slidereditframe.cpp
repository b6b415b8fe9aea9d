// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "slidereditframe.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QToolButton>
#include <QWheelEvent>

namespace Korvo::Widgets {

namespace {

class Slider;
class Editor;

const int fingerSize = 36; // pixels
const int shortestSlider = 96;
const int defaultGap = 8;
const int buttonGap = 4;

} // namespace

class SliderEditFramePrivate
{
    Q_DISABLE_COPY(SliderEditFramePrivate)

public:
    explicit SliderEditFramePrivate(SliderEditFrame *frame)
        : q(frame)
    {
    }

    void addParts();
    QToolButton *addButton(const QString &text, const QString &name, int direction);
    void arrange();

    void setRange(int minimum, int maximum);
    void apply(int asked);
    void enableButtons();
    void count(qint64 difference);
    void wheel(const QWidget *part, QWheelEvent *event);

    SliderEditFrame *const q;
    int value = 0;
    bool hasSlider = true;
    bool hasButtons = true;
    int beforeSlider = defaultGap;
    int afterSlider = defaultGap;
    int wheelRest = 0; // of a notch, in eighths of a degree

    // Children of the frame.
    QHBoxLayout *layout = nullptr;
    QLabel *label = nullptr;
    Slider *slider = nullptr;
    Editor *editor = nullptr;
    QToolButton *minus = nullptr;
    QToolButton *plus = nullptr;
};

namespace {

class Slider : public QSlider
{
public:
    Slider(SliderEditFramePrivate *frame, QWidget *parent)
        : QSlider(Qt::Horizontal, parent)
        , m_frame(frame)
    {
        setObjectName(QStringLiteral("slider"));
        setFocusPolicy(Qt::StrongFocus); // not by the wheel
        setMinimumSize(shortestSlider, fingerSize);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override { m_frame->wheel(this, event); }

private:
    QRect part(QStyle::SubControl control) const;
    int valueAt(int x) const;

    SliderEditFramePrivate *const m_frame;
};

void Slider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || part(QStyle::SC_SliderHandle).contains(event->pos())) {
        QSlider::mousePressEvent(event);
        return;
    }
    setValue(valueAt(event->pos().x()));
    // The drag goes on as if the handle had been taken by its middle, also where it stands off the press: a
    // handle of few values.
    QMouseEvent onHandle(event->type(), part(QStyle::SC_SliderHandle).center(), event->windowPos(),
                         event->screenPos(), event->button(), event->buttons(), event->modifiers());
    QSlider::mousePressEvent(&onHandle);
    event->setAccepted(onHandle.isAccepted());
}

QRect Slider::part(QStyle::SubControl control) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, control, this);
}

int Slider::valueAt(int x) const
{
    const QRect groove = part(QStyle::SC_SliderGroove);
    const int handle = part(QStyle::SC_SliderHandle).width();
    QStyleOptionSlider option;
    initStyleOption(&option);
    return QStyle::sliderValueFromPosition(minimum(), maximum(), x - handle / 2 - groove.left(),
                                           groove.width() - handle, option.upsideDown);
}

class Editor : public QSpinBox
{
public:
    Editor(SliderEditFramePrivate *frame, QWidget *parent);

    void fixup(QString &text) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override { m_frame->wheel(this, event); }

private:
    bool dropTyped();

    SliderEditFramePrivate *const m_frame;
    bool m_isEntered = false; // by a press that is still held
};

Editor::Editor(SliderEditFramePrivate *frame, QWidget *parent)
    : QSpinBox(parent)
    , m_frame(frame)
{
    setObjectName(QStringLiteral("editor"));
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAlignment(Qt::AlignCenter);
    setKeyboardTracking(false);
    setMinimumHeight(fingerSize);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    lineEdit()->installEventFilter(this);
}

void Editor::fixup(QString &text) const
{
    bool isNumber = false;
    const int number = locale().toInt(text, &isNumber);
    if (isNumber)
        text = textFromValue(qBound(minimum(), number, maximum()));
}

// The press that brings the focus also places the cursor, so the digits are selected after it.
bool Editor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_isEntered) {
        m_isEntered = false;
        if (!lineEdit()->hasSelectedText())
            selectAll();
    }
    return QSpinBox::eventFilter(watched, event);
}

void Editor::focusInEvent(QFocusEvent *event)
{
    QSpinBox::focusInEvent(event);
    m_isEntered = event->reason() == Qt::MouseFocusReason;
    if (!m_isEntered && event->reason() != Qt::PopupFocusReason)
        selectAll();
}

void Editor::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int key = isPlain ? event->key() : 0;
    if (key == Qt::Key_PageUp)
        m_frame->count(m_frame->q->pageStep());
    else if (key == Qt::Key_PageDown)
        m_frame->count(-qint64(m_frame->q->pageStep()));
    else if (key != Qt::Key_Escape || !dropTyped())
        QSpinBox::keyPressEvent(event);
}

// Whether there was anything to drop.
bool Editor::dropTyped()
{
    if (text() == textFromValue(value()))
        return false;
    setValue(value());
    selectAll();
    return true;
}

} // namespace

void SliderEditFramePrivate::addParts()
{
    label = new QLabel(q);
    label->setObjectName(QStringLiteral("label"));
    label->setTextFormat(Qt::PlainText);
    slider = new Slider(this, q);
    editor = new Editor(this, q);
    minus = addButton(QString(QChar(0x2212)), SliderEditFrame::tr("Decrease"), -1);
    minus->setObjectName(QStringLiteral("minus"));
    plus = addButton(QStringLiteral("+"), SliderEditFrame::tr("Increase"), 1);
    plus->setObjectName(QStringLiteral("plus"));

    layout = new QHBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    arrange();

    QObject::connect(slider, &QSlider::valueChanged, q, [this](int moved) { apply(moved); });
    QObject::connect(editor, QOverload<int>::of(&QSpinBox::valueChanged), q,
                     [this](int typed) { apply(typed); });
}

QToolButton *SliderEditFramePrivate::addButton(const QString &text, const QString &name, int direction)
{
    auto *button = new QToolButton(q);
    button->setText(text);
    button->setAccessibleName(name);
    button->setAutoRepeat(true);
    button->setMinimumSize(fingerSize, fingerSize);
    QObject::connect(button, &QToolButton::clicked, q,
                     [this, direction] { count(qint64(direction) * q->singleStep()); });
    return button;
}

/// Leaves alone what shows with the frame anyway: showing it by itself polishes it, before the frame is where
/// it belongs, and once more there.
void setShown(QWidget *part, bool isShown)
{
    if (part->isHidden() == isShown)
        part->setVisible(isShown);
}

// A gap shows only between parts that show, so the row is laid anew whenever one comes or goes.
void SliderEditFramePrivate::arrange()
{
    const bool hasLabel = !label->text().isEmpty();
    setShown(label, hasLabel);
    setShown(slider, hasSlider);
    setShown(minus, hasButtons);
    setShown(plus, hasButtons);

    while (QLayoutItem *item = layout->takeAt(0))
        delete item;
    layout->addWidget(label);
    layout->addSpacing(hasLabel ? beforeSlider : 0);
    layout->addWidget(slider, 1);
    layout->addSpacing(hasSlider ? afterSlider : 0);
    layout->addWidget(editor);
    layout->addSpacing(hasButtons ? buttonGap : 0);
    layout->addWidget(minus);
    layout->addSpacing(hasButtons ? buttonGap : 0);
    layout->addWidget(plus);
    if (!hasSlider)
        layout->addStretch();
    q->setFocusProxy(hasSlider ? static_cast<QWidget *>(slider) : editor);
}

void SliderEditFramePrivate::setRange(int minimum, int maximum)
{
    {
        const QSignalBlocker sliderBlocker(slider);
        const QSignalBlocker editorBlocker(editor);
        slider->setRange(minimum, maximum);
        editor->setRange(minimum, slider->maximum());
    }
    editor->updateGeometry();
    apply(value);
}

void SliderEditFramePrivate::apply(int asked)
{
    const int previous = value;
    value = qBound(slider->minimum(), asked, slider->maximum());
    {
        const QSignalBlocker sliderBlocker(slider);
        const QSignalBlocker editorBlocker(editor);
        slider->setValue(value);
        editor->setValue(value);
    }
    enableButtons();
    if (value != previous)
        emit q->valueChanged(value);
}

void SliderEditFramePrivate::enableButtons()
{
    const bool canGoDown = value > slider->minimum();
    const bool canGoUp = value < slider->maximum();
    // A button that is disabled would hand the focus on to whatever comes after the frame.
    if ((!canGoDown && minus->hasFocus()) || (!canGoUp && plus->hasFocus()))
        q->setFocus();
    minus->setEnabled(canGoDown);
    plus->setEnabled(canGoUp);
}

// From the number that is being typed, if any, as one change.
void SliderEditFramePrivate::count(qint64 difference)
{
    {
        const QSignalBlocker blocker(editor);
        editor->interpretText();
    }
    const qint64 target = editor->value() + difference;
    apply(int(qBound(qint64(slider->minimum()), target, qint64(slider->maximum()))));
}

void SliderEditFramePrivate::wheel(const QWidget *part, QWheelEvent *event)
{
    if (!part->hasFocus() || event->angleDelta().y() == 0) {
        event->ignore();
        return;
    }
    event->accept();
    wheelRest += event->angleDelta().y();
    const int notches = wheelRest / QWheelEvent::DefaultDeltasPerStep;
    wheelRest -= notches * QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0)
        count(qint64(notches) * q->singleStep());
}

SliderEditFrame::SliderEditFrame(QWidget *parent)
    : QFrame(parent)
    , d(new SliderEditFramePrivate(this))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    d->addParts();
    setRange(0, 99);
}

// The slider and the field report to the private part until they are gone, so they go before it.
SliderEditFrame::~SliderEditFrame()
{
    delete d->slider;
    delete d->editor;
}

void SliderEditFrame::setRange(int minimum, int maximum)
{
    d->setRange(minimum, maximum);
}

int SliderEditFrame::minimum() const
{
    return d->slider->minimum();
}

int SliderEditFrame::maximum() const
{
    return d->slider->maximum();
}

int SliderEditFrame::value() const
{
    return d->value;
}

void SliderEditFrame::setPageStep(int step)
{
    d->slider->setPageStep(qMax(1, step));
}

int SliderEditFrame::pageStep() const
{
    return d->slider->pageStep();
}

void SliderEditFrame::setSingleStep(int step)
{
    d->slider->setSingleStep(qMax(1, step));
    d->editor->setSingleStep(qMax(1, step));
}

int SliderEditFrame::singleStep() const
{
    return d->slider->singleStep();
}

void SliderEditFrame::setButtonVisible(bool visible)
{
    d->hasButtons = visible;
    d->arrange();
}

void SliderEditFrame::setSliderVisible(bool visible)
{
    d->hasSlider = visible;
    d->arrange();
}

void SliderEditFrame::setHorizontalSpacing(const int &beforeSlider, const int &afterSlider)
{
    d->beforeSlider = qMax(0, beforeSlider);
    d->afterSlider = qMax(0, afterSlider);
    d->arrange();
}

void SliderEditFrame::setLabelText(const QString &text)
{
    d->label->setText(text);
    d->slider->setAccessibleName(text);
    d->editor->setAccessibleName(text);
    d->arrange();
}

QString SliderEditFrame::labelText() const
{
    return d->label->text();
}

void SliderEditFrame::setValue(int value)
{
    if (qBound(minimum(), value, maximum()) != d->value)
        d->apply(value);
}

} // namespace Korvo::Widgets
