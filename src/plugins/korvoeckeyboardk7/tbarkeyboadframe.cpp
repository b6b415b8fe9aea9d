// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tbarkeyboadframe.h"

#include "logging.h"
#include "ui_tbarkeyboadframe.h"

#include <korvo/keyboard/records.h>
#include <korvo/widgets/tbar.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QPointer>

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

constexpr double StepsPerPercent = 12.0; // of the console's lever

class TBarKeyboadFramePrivate : public QObject
{
    Q_OBJECT

public:
    explicit TBarKeyboadFramePrivate(TBarKeyboadFrame *keyboard)
        : m_pKeyboard(keyboard)
    {
    }
    ~TBarKeyboadFramePrivate() override { delete ui; }

    void createWidgets();
    void createConnects();
    bool updateTBarValue(const std::shared_ptr<ECTBarValue> &value);

    TBarKeyboadFrame *m_pKeyboard; // owns this
    Ui::TBarKeyboadFrame *ui = nullptr;
    QPointer<Widgets::tbar> m_pTBar;
};

void TBarKeyboadFramePrivate::createWidgets()
{
    ui = new Ui::TBarKeyboadFrame;
    ui->setupUi(m_pKeyboard);
    m_pKeyboard->setProperty("contentFrame", true);

    auto *layout = new QHBoxLayout(ui->tbarframe);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);

    m_pTBar = new Widgets::tbar(nullptr, Qt::WindowFlags());
    m_pTBar->setDirectionEnable(true);
    m_pTBar->setProperty("contentFrame", true);
    m_pTBar->setEnabled(false);
    layout->addWidget(m_pTBar);
}

void TBarKeyboadFramePrivate::createConnects()
{
    connect(m_pTBar, &Widgets::tbar::percentChanged, m_pKeyboard, &TBarKeyboadFrame::slotTbarValueChanged);
}

bool TBarKeyboadFramePrivate::updateTBarValue(const std::shared_ptr<ECTBarValue> &value)
{
    if (!m_pTBar) {
        qCWarning(lcPlugin, "TBar control do not exist.");
        return false;
    }
    if (!value)
        return true;

    // Enabled for the write only: the lever mirrors the console and is not moved by hand.
    m_pTBar->setEnabled(true);
    m_pTBar->setTbarDirection(value->IsBottomToTop ? Widgets::tbar::BottomToTop : Widgets::tbar::TopToBottom);
    m_pTBar->setCurValue(value->Value / StepsPerPercent);
    m_pTBar->setEnabled(false);
    return true;
}

} // namespace Internal

TBarKeyboadFrame::TBarKeyboadFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::TBarKeyboadFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

TBarKeyboadFrame::~TBarKeyboadFrame()
{
    delete d;
    d = nullptr;
}

void TBarKeyboadFrame::applyNoramlStyleSheet() {}

bool TBarKeyboadFrame::updateTBarValue(std::shared_ptr<ECTBarValue> value)
{
    d->updateTBarValue(value);
    return true;
}

// Without a layout nobody else knows how far the lever reaches.
QSize TBarKeyboadFrame::sizeHint() const
{
    const QRect lever = d->ui->tbarframe->geometry();
    return {2 * lever.x() + lever.width(), 2 * lever.y() + lever.height()};
}

void TBarKeyboadFrame::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        d->ui->retranslateUi(this);
}

void TBarKeyboadFrame::slotTbarValueChanged(double percent, double previous)
{
    Q_UNUSED(previous)
    if (!d->m_pTBar)
        return;
    const double steps = percent * Internal::StepsPerPercent;
    const auto value = static_cast<quint16>(qBound(0.0, steps, 65535.0)); // cut off, not rounded
    Q_EMIT ecTBarValueChanged(value, d->m_pTBar->getTbarDirection() == Widgets::tbar::BottomToTop);
}

} // namespace Korvo::ECKeyboard::K7

#include "tbarkeyboadframe.moc"
