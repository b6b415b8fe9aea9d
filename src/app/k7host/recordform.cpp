// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "recordform.h"

#include "networkaddress.h"
#include "recordfields.h"
#include "ui_recordform.h"

#include <QColorDialog>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QValidator>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <utility>

namespace K7Host {

namespace {

/// Lets nobody type more than a record has room for.
class OledTextValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int & /*position*/) const override
    {
        return text.toUtf8().size() <= int(sizeof(Korvo::ECOLEDText::OledText)) ? Acceptable : Invalid;
    }
};

class AddressValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int & /*position*/) const override
    {
        if (addressFromText(text))
            return Acceptable;
        const auto belongs = [](QChar character) {
            return character == QLatin1Char('.') ||
                   (character >= QLatin1Char('0') && character <= QLatin1Char('9'));
        };
        return std::all_of(text.cbegin(), text.cend(), belongs) ? Intermediate : Invalid;
    }
};

/// Makes an editor for each field of a record, which outlives the editors: they write what is edited to it.
class EditorMaker
{
public:
    /// \a changed is called after each change.
    EditorMaker(QFormLayout *layout, RecordForm *form, std::function<void()> changed)
        : m_layout(layout)
        , m_form(form)
        , m_changed(std::move(changed))
    {
    }

    template <typename Number>
    void operator()(const char *name, Number &number) const
    {
        auto *editor = new QDoubleSpinBox; // a QSpinBox has no room for a quint32
        editor->setDecimals(0);
        editor->setButtonSymbols(QAbstractSpinBox::NoButtons);
        editor->setMaximum(double(std::numeric_limits<Number>::max()));
        editor->setValue(double(number));
        add(name, editor, QOverload<double>::of(&QDoubleSpinBox::valueChanged),
            [&number](double value) { number = static_cast<Number>(value); });
    }
    void operator()(const char *name, AddressField<quint32> address) const
    {
        auto *editor = new QLineEdit(addressText(address.value));
        editor->setValidator(new AddressValidator(editor));
        add(name, editor, &QLineEdit::textChanged, [&number = address.value](const QString &text) {
            number = addressFromText(text).value_or(number);
        });
    }
    void operator()(const char *name, TextField<char> text) const
    {
        const auto length = static_cast<int>(qstrnlen(text.bytes, sizeof text.bytes));
        auto *editor = new QLineEdit(QString::fromUtf8(text.bytes, length));
        editor->setValidator(new OledTextValidator(editor));
        add(name, editor, &QLineEdit::textChanged, [&bytes = text.bytes](const QString &entered) {
            const QByteArray utf8 = entered.toUtf8().left(int(sizeof bytes));
            std::memset(bytes, 0, sizeof bytes);
            std::memcpy(bytes, utf8.constData(), static_cast<std::size_t>(utf8.size()));
        });
    }

private:
    template <typename Editor, typename Signal, typename Write>
    void add(const char *name, Editor *editor, Signal edited, const Write &write) const
    {
        editor->setObjectName(QLatin1String(name));
        editor->setProperty("inspectorField", true); // style sheets select on it
        m_layout->addRow(QLatin1String(name), editor);
        QObject::connect(editor, edited, m_form, [changed = m_changed, write](const auto &value) {
            write(value);
            changed();
        });
    }

    QFormLayout *const m_layout;
    RecordForm *const m_form;
    const std::function<void()> m_changed;
};

/// Calls visit(record) with the record of \a call, unless it is a call without one.
template <typename Call, typename Visitor>
void visitRecord(Call &call, const Visitor &visit)
{
    const auto visitKind = [&visit](auto &kind) {
        if constexpr (!std::is_empty_v<std::decay_t<decltype(kind)>>)
            visit(kind);
    };
    std::visit(visitKind, call);
}

HostCall withOwnRecord(HostCall call)
{
    visitRecord(call,
                [](auto &record) { record = std::make_shared<std::decay_t<decltype(*record)>>(*record); });
    return call;
}

HostCall withoutRecord(HostCall call)
{
    visitRecord(call, [](auto &record) { record.reset(); });
    return call;
}

bool isWithoutRecord(const HostCall &call)
{
    bool isNull = false;
    visitRecord(call, [&isNull](const auto &record) { isNull = !record; });
    return isNull;
}

bool takesRecord(const HostCall &call)
{
    bool takesOne = false;
    visitRecord(call, [&takesOne](const auto & /*record*/) { takesOne = true; });
    return takesOne;
}

QIcon swatch(const QColor &color, const QSize &size)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

bool isEnter(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

RecordForm::RecordForm(QWidget *parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui::RecordForm>())
{
    m_ui->setupUi(this);
    m_ui->operationBox->addItems(operationNames());
    m_ui->jsonEdit->installEventFilter(this);
    connect(m_ui->operationBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &RecordForm::startOperation);
    connect(m_ui->halfBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RecordForm::showCall);
    connect(m_ui->nullBox, &QCheckBox::toggled, this, &RecordForm::showCall);
    connect(m_ui->colorButton, &QPushButton::clicked, this, &RecordForm::chooseColor);
    connect(m_ui->jsonEdit, &QPlainTextEdit::textChanged, this, &RecordForm::readJson);
    connect(m_ui->sendButton, &QPushButton::clicked, this, &RecordForm::send);
    startOperation();
}

RecordForm::~RecordForm() = default;

void RecordForm::setLine(const ScenarioLine &line)
{
    const auto *call = std::get_if<CallLine>(&line.content);
    if (!call)
        return;
    takeCall(*call);
    showCall();
}

void RecordForm::setKey(quint32 id)
{
    setId(QStringLiteral("updateECButtonColor"), QStringLiteral("ButtonKey"), id);
}

void RecordForm::setLabel(quint32 id)
{
    setId(QStringLiteral("updateECOledText"), QStringLiteral("OledKey"), id);
}

bool RecordForm::eventFilter(QObject *watched, QEvent *event)
{
    // A line has no second one: Enter sends it, as in the fields.
    if (watched == m_ui->jsonEdit && event->type() == QEvent::KeyPress) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (isEnter(keyEvent)) {
            keyPressEvent(keyEvent);
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void RecordForm::keyPressEvent(QKeyEvent *event)
{
    if (isEnter(event))
        m_ui->sendButton->click();
    else
        QFrame::keyPressEvent(event);
}

void RecordForm::startOperation()
{
    m_call = *callOf(m_ui->operationBox->currentText());
    makeEditors();
    showCall();
}

void RecordForm::chooseColor()
{
    auto *dialog = new QColorDialog(color(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, &RecordForm::setColor);
    dialog->open();
}

void RecordForm::setColor(const QColor &color)
{
    setNumber(QStringLiteral("R"), color.red());
    setNumber(QStringLiteral("G"), color.green());
    setNumber(QStringLiteral("B"), color.blue());
}

void RecordForm::readJson()
{
    QString error;
    const auto line = scenarioLineFromJson(m_ui->jsonEdit->toPlainText().toUtf8(), &error);
    const auto *call = line ? std::get_if<CallLine>(&line->content) : nullptr;
    if (call)
        takeCall(*call);
    else if (line)
        error = QStringLiteral("this line is no record");
    showFault(error);
}

void RecordForm::send()
{
    const CallLine line = callLine();
    emit callRequested(line.call, line.half);
}

void RecordForm::showCall()
{
    showRecordState();
    const QString fault = fieldFault();
    showFault(fault);
    if (!fault.isEmpty())
        return;
    const QSignalBlocker blocker(m_ui->jsonEdit); // what is shown is not read again
    m_ui->jsonEdit->setPlainText(QString::fromUtf8(toJson({{}, {}, callLine()})));
}

CallLine RecordForm::callLine() const
{
    CallLine line;
    line.call = m_ui->nullBox->isChecked() ? withoutRecord(m_call) : withOwnRecord(m_call);
    if (m_ui->halfBox->currentIndex() > 0) // the first is both
        line.half = m_ui->halfBox->currentIndex() == 1 ? Half::Left : Half::Right;
    return line;
}

void RecordForm::takeCall(const CallLine &line)
{
    const QString operation = operationName(line.call);
    const bool isNull = isWithoutRecord(line.call);
    m_call = isNull ? *callOf(operation) : withOwnRecord(line.call);
    const QSignalBlocker operationBlocker(m_ui->operationBox);
    const QSignalBlocker halfBlocker(m_ui->halfBox);
    const QSignalBlocker nullBlocker(m_ui->nullBox);
    m_ui->operationBox->setCurrentText(operation);
    m_ui->halfBox->setCurrentIndex(line.half ? static_cast<int>(*line.half) + 1 : 0);
    m_ui->nullBox->setChecked(isNull);
    makeEditors();
    showRecordState();
}

void RecordForm::setId(const QString &operation, const QString &field, quint32 id)
{
    m_ui->operationBox->setCurrentText(operation);
    m_ui->nullBox->setChecked(false);
    setNumber(field, id);
}

void RecordForm::setNumber(const QString &field, quint32 number)
{
    if (auto *editor = m_ui->fields->findChild<QDoubleSpinBox *>(field))
        editor->setValue(number);
}

void RecordForm::makeEditors()
{
    while (m_ui->fieldsLayout->rowCount() > 0)
        m_ui->fieldsLayout->removeRow(0);
    const EditorMaker maker(m_ui->fieldsLayout, this, [this] { showCall(); });
    visitRecord(m_call, [&maker](const auto &record) { visitFields(*record, maker); });
}

void RecordForm::showRecordState()
{
    const bool isNull = m_ui->nullBox->isChecked();
    m_ui->nullBox->setEnabled(takesRecord(m_call));
    m_ui->fields->setDisabled(isNull);
    m_ui->colorButton->setDisabled(isNull);
    m_ui->colorButton->setVisible(color().isValid());
    m_ui->colorButton->setIcon(swatch(color(), m_ui->colorButton->iconSize()));
}

void RecordForm::showFault(const QString &fault)
{
    m_ui->faultLabel->setText(fault);
    m_ui->sendButton->setEnabled(fault.isEmpty());
}

QString RecordForm::fieldFault() const
{
    const auto editors = m_ui->fields->findChildren<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QLineEdit *editor : editors) {
        if (!editor->hasAcceptableInput())
            return QStringLiteral("\"%1\" is to be four numbers from 0 to 255").arg(editor->objectName());
    }
    return {};
}

QColor RecordForm::color() const
{
    const auto *record = std::get_if<std::shared_ptr<Korvo::ECButtonColor>>(&m_call);
    return record ? QColor((*record)->R, (*record)->G, (*record)->B) : QColor();
}

} // namespace K7Host
