// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "latencypage.h"

#include "latencymeter.h"
#include "ui_latencypage.h"

#include <QTimer>

namespace K7Host {

namespace {

constexpr int FollowMs = 250;

} // namespace

LatencyPage::LatencyPage(LatencyMeter *meter, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::LatencyPage>())
    , m_meter(meter)
    , m_timer(new QTimer(this))
{
    m_ui->setupUi(this);
    setUpTable();
    m_timer->setInterval(FollowMs);
    connect(m_timer, &QTimer::timeout, this, &LatencyPage::showFigures);
    connect(meter, &LatencyMeter::changed, this, &LatencyPage::followSoon);
    connect(m_ui->resetButton, &QPushButton::clicked, meter, [this] {
        m_meter->reset();
        showFigures();
    });
    showFigures();
}

LatencyPage::~LatencyPage() = default;

void LatencyPage::showEvent(QShowEvent *event)
{
    showFigures();
    QWidget::showEvent(event);
}

// Here and not in the form: what is made of the form's items has names that are reserved.
void LatencyPage::setUpTable()
{
    QTableWidget *const table = m_ui->latencyTable;
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->setHorizontalHeaderLabels(
        {QStringLiteral("Count"), QStringLiteral("Median"), QStringLiteral("99 %"), QStringLiteral("Worst")});
    QStringList names;
    for (const LatencyMeter::Row &row : m_meter->rows())
        names << row.name.at(0).toUpper() + row.name.mid(1);
    table->setRowCount(names.size());
    table->setVerticalHeaderLabels(names);
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column) {
            auto *item = new QTableWidgetItem; // the table's
            item->setTextAlignment(Qt::AlignCenter);
            table->setItem(row, column, item);
        }
    }
}

void LatencyPage::followSoon()
{
    if (isVisible() && !m_timer->isActive())
        m_timer->start();
}

void LatencyPage::showFigures()
{
    m_timer->stop();
    const std::vector<LatencyMeter::Row> rows = m_meter->rows();
    for (std::size_t i = 0; i < rows.size(); ++i)
        showRow(static_cast<int>(i), *rows[i].figures);
    m_ui->recordsLabel->setText(m_meter->recordsText());
    m_ui->ratesLabel->setText(m_meter->ratesText());
}

void LatencyPage::showRow(int row, const LatencyFigures &figures)
{
    const auto text = [&figures](qint64 nanoseconds) {
        return figures.count() == 0 ? QStringLiteral("\u2013") : millisecondsText(nanoseconds);
    };
    const QStringList texts{QString::number(figures.count()), text(figures.median()),
                            text(figures.percentile99()), text(figures.worst())};
    for (int column = 0; column < texts.size(); ++column)
        m_ui->latencyTable->item(row, column)->setText(texts.at(column));
}

} // namespace K7Host
