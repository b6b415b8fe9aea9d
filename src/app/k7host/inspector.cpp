// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inspector.h"

#include "savedscenario.h"
#include "trafficfilter.h"
#include "trafficmodel.h"
#include "ui_inspector.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QSaveFile>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>
#include <numeric>

using Korvo::IKorvoECKeyboard;

namespace K7Host {

namespace {

constexpr int TimeWidth = 84;
constexpr int DirectionWidth = 88;
constexpr int NameWidth = 210;
constexpr int HalfWidth = 52;
constexpr int ResultWidth = 60;

} // namespace

Inspector::Inspector(const QList<QWeakPointer<IKorvoECKeyboard>> &halves, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_ui(std::make_unique<Ui::Inspector>())
    , m_model(new TrafficModel(KeyNames(halves), TrafficModel::DefaultLineCount, this))
    , m_filter(new TrafficFilter(this))
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_QuitOnClose, false);
    m_filter->setSourceModel(m_model);
    m_ui->keyMap->setHalves(halves);
    setUpView();
    followLines();
    connectTools();
    connectPages();
    showStatus();
}

Inspector::~Inspector() = default;

TrafficListener *Inspector::listener() const
{
    return m_model;
}

void Inspector::addPage(QWidget *page, const QString &title)
{
    m_ui->pages->addTab(page, title);
}

void Inspector::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    emit closed();
}

void Inspector::copy()
{
    QByteArray text;
    const QVector<ScenarioLine> lines = chosenLines();
    for (const ScenarioLine &line : lines)
        text += toJson(line) + '\n';
    QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
}

void Inspector::askWhereToSave()
{
    auto *dialog = new QFileDialog(this, QStringLiteral("Save as scenario"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({QStringLiteral("Scenarios (*.jsonl)"), QStringLiteral("All files (*)")});
    dialog->setDefaultSuffix(QStringLiteral("jsonl"));
    // What is shown now, not what has come when the file has its name.
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, text = savedScenario(chosenLines())](const QString &fileName) { save(fileName, text); });
    dialog->open();
}

void Inspector::showLine(const QModelIndex &index)
{
    m_ui->recordForm->setLine(index.data(TrafficModel::LineRole).value<ScenarioLine>());
}

void Inspector::showStatus()
{
    QString text = QStringLiteral("%1 of %2 lines").arg(m_filter->rowCount()).arg(m_model->rowCount());
    if (m_waitingCount > 0)
        text += QStringLiteral(", %1 more wait").arg(m_waitingCount);
    m_ui->statusLabel->setText(text);
}

void Inspector::flashKeys(const QModelIndex & /*parent*/, int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const auto line = m_model->index(row, 0).data(TrafficModel::LineRole).value<ScenarioLine>();
        if (const auto item = itemOf(line))
            m_ui->keyMap->flash(item->kind, item->id);
    }
}

void Inspector::setUpView()
{
    QTableView *view = m_ui->trafficView;
    view->setModel(m_filter);
    QHeaderView *header = view->horizontalHeader();
    header->resizeSection(TrafficModel::TimeColumn, TimeWidth);
    header->resizeSection(TrafficModel::DirectionColumn, DirectionWidth);
    header->resizeSection(TrafficModel::NameColumn, NameWidth);
    header->resizeSection(TrafficModel::HalfColumn, HalfWidth);
    header->resizeSection(TrafficModel::ResultColumn, ResultWidth);
    header->setSectionResizeMode(TrafficModel::FieldsColumn, QHeaderView::Stretch);
    connect(view, &QTableView::doubleClicked, this, &Inspector::showLine);
}

void Inspector::followLines()
{
    QScrollBar *bar = m_ui->trafficView->verticalScrollBar();
    const auto remember = [this, bar] { m_isAtEnd = bar->value() == bar->maximum(); };
    connect(m_filter, &TrafficFilter::rowsAboutToBeInserted, this, remember);
    connect(m_filter, &TrafficFilter::rowsAboutToBeRemoved, this, remember);
    connect(m_filter, &TrafficFilter::rowsInserted, this, [this] {
        if (m_isAtEnd)
            m_ui->trafficView->scrollToBottom();
    });
    connect(m_filter, &TrafficFilter::rowsRemoved, this,
            [this, bar](const QModelIndex & /*parent*/, int first, int last) {
                // What is looked at stands still when the oldest go.
                if (!m_isAtEnd && first == 0)
                    bar->setValue(bar->value() - (last - first + 1));
            });
}

void Inspector::connectTools()
{
    connect(m_ui->filterEdit, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filter->setText(text);
        showStatus();
    });
    connectKind(m_ui->recordsBox, RecordTraffic);
    connectKind(m_ui->signalsBox, SignalTraffic);
    connectKind(m_ui->inputBox, InputTraffic);
    connectKind(m_ui->messagesBox, MessageTraffic);
    connect(m_ui->pauseButton, &QPushButton::toggled, m_model, &TrafficModel::setPaused);
    connect(m_ui->clearButton, &QPushButton::clicked, m_model, &TrafficModel::clear);
    connect(m_ui->copyButton, &QPushButton::clicked, this, &Inspector::copy);
    connect(m_ui->saveButton, &QPushButton::clicked, this, &Inspector::askWhereToSave);
    connect(m_model, &TrafficModel::waitingChanged, this, [this](int lineCount) {
        m_waitingCount = lineCount;
        showStatus();
    });

    auto *copyKeys = new QShortcut(QKeySequence::Copy, m_ui->trafficView);
    copyKeys->setContext(Qt::WidgetWithChildrenShortcut);
    connect(copyKeys, &QShortcut::activated, this, &Inspector::copy);
    auto *findKeys = new QShortcut(QKeySequence::Find, this);
    connect(findKeys, &QShortcut::activated, m_ui->filterEdit, [edit = m_ui->filterEdit] {
        edit->setFocus();
        edit->selectAll();
    });
}

void Inspector::connectKind(QAbstractButton *box, TrafficKind kind)
{
    connect(box, &QAbstractButton::toggled, this, [this, kind](bool isShown) {
        m_filter->setKindShown(kind, isShown);
        showStatus();
    });
}

void Inspector::connectPages()
{
    connect(m_ui->recordForm, &RecordForm::callRequested, this, &Inspector::callRequested);
    connect(m_model, &TrafficModel::rowsInserted, this, &Inspector::flashKeys);
    connect(m_ui->keyMap, &KeyMap::keyClicked, this, [this](quint32 id, const QString &name) {
        m_ui->recordForm->setKey(id);
        m_ui->filterEdit->setText(name);
    });
    connect(m_ui->keyMap, &KeyMap::labelClicked, this, [this](quint32 id, const QString &name) {
        m_ui->recordForm->setLabel(id);
        m_ui->filterEdit->setText(name);
    });
}

QVector<int> Inspector::chosenRows() const
{
    QVector<int> rows;
    const QModelIndexList selected = m_ui->trafficView->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty()) {
        rows.resize(m_filter->rowCount());
        std::iota(rows.begin(), rows.end(), 0);
    }
    return rows;
}

QVector<ScenarioLine> Inspector::chosenLines() const
{
    QVector<ScenarioLine> lines;
    const QVector<int> rows = chosenRows();
    for (const int row : rows)
        lines << m_filter->index(row, 0).data(TrafficModel::LineRole).value<ScenarioLine>();
    return lines;
}

void Inspector::save(const QString &fileName, const QByteArray &text)
{
    QSaveFile file(fileName);
    const bool isSaved = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    m_ui->faultLabel->setText(
        isSaved ? QString() : QStringLiteral("Cannot save %1: %2").arg(fileName, file.errorString()));
}

} // namespace K7Host
