// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "choicekeys.h"
#include "focusinsight.h"
#include "internetthread.h"
#include "logging.h"
#include "markers.h"
#include "ui_consolefloatwidget.h"

#include <korvo/widgets/waitingdialog.h>

#include <QButtonGroup>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSettings>
#include <QTimer>

namespace Korvo::Internal {

using ECKeyboard::lcPlugin;
using ECKeyboard::K7::Internal::mark;

namespace {

constexpr int RefreshTimeMs = 1000;
constexpr int RefreshNetMs = 10000;

void hideAllOf(const QLayout *row)
{
    for (int i = 0; i < row->count(); ++i) {
        if (QWidget *widget = row->itemAt(i)->widget())
            widget->hide();
    }
}

} // namespace

ConsoleFloatWidget::ConsoleFloatWidget(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::ConsoleFloatWidget)
{
    ui->setupUi(this);
    ui->scrollArea->viewport()->installEventFilter(this);
    ui->scrollArea->setAttribute(Qt::WA_AcceptTouchEvents);
    for (QWidget *editor : {ui->lineEdit_IP, ui->lineEdit_mask, ui->lineEdit_gateWay})
        editor->setProperty("Brisa_VK", QStringLiteral("Vk_Number"));
    for (QWidget *editor : {ui->spinBox_width, ui->spinBox_height})
        editor->setProperty("Brisa_VK", QStringLiteral("Vk_NumberFloat"));

    m_pSettings = new QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("LUMETRA"),
                                QStringLiteral("korvoeckeyboardk7"), this);
    warnOfSettings();
    setFixedSize(535, 1075);
    initWidget();
    createConnects();

    m_pRefreshTimeTimer = new QTimer(this);
    connect(m_pRefreshTimeTimer, &QTimer::timeout, this, &ConsoleFloatWidget::handleTimeout);
    m_pRefreshTimeTimer->start(RefreshTimeMs);
    m_pNetTimer = new QTimer(this);
    connect(m_pNetTimer, &QTimer::timeout, this, &ConsoleFloatWidget::slotRefreshNetStatus);
    m_pNetTimer->start(RefreshNetMs);

    refreshNetStatus();
    retranslateUi();
    initIPWidget();
    hideUnusedSettings();
    initPeripheralModule(true);
}

ConsoleFloatWidget::~ConsoleFloatWidget()
{
    m_calls.close();
    // All are cancelled before any is let go: the next must not begin in its place.
    for (QFuture<int> &run : m_timeRuns)
        run.cancel();
    m_isLeaving.release(m_timeRuns.size());
    for (QFuture<int> &run : m_timeRuns)
        run.waitForFinished();
    delete m_pWatcher;
    delete m_pInternetThread;
    delete m_pWaitingDialog;
    delete m_pScreenButtonGroup;
    delete ui;
}

void ConsoleFloatWidget::initWidget()
{
    for (Widgets::SliderEditFrame *editor :
         {ui->widget_groosen, ui->widget_front, ui->widget_lcd, ui->spinBox_width, ui->spinBox_height}) {
        editor->setLabelText(QString());
        editor->setButtonVisible(false);
    }
    for (Widgets::SliderEditFrame *editor : {ui->spinBox_width, ui->spinBox_height}) {
        editor->setSliderVisible(false);
        editor->setHorizontalSpacing(0, 0);
    }
    initLamps();

    m_pShutdownButton = new QPushButton(this);
    setMarkers();
    const QList<QPushButton *> buttons = findChildren<QPushButton *>();
    for (QPushButton *button : buttons)
        button->setAutoDefault(false);

    m_pWANGroup = new QButtonGroup(this);
    m_pWANGroup->addButton(ui->pushButton_hundred, 0);
    m_pWANGroup->addButton(ui->pushButton_gigabit, 1);
    ui->pushButton_hundred->setProperty("WanType", QStringLiteral("eth2"));
    ui->pushButton_gigabit->setProperty("WanType", QStringLiteral("eth0"));
    m_pInternetGroup = new QButtonGroup(this);
    m_pInternetGroup->addButton(ui->pushButton_DHCP, DHCP);
    m_pInternetGroup->addButton(ui->pushButton_Manual, Manual);
    m_pTimeTypeGroup = new QButtonGroup(this);
    m_pTimeTypeGroup->addButton(ui->pushButton_24, 0);
    m_pTimeTypeGroup->addButton(ui->pushButton_12, 1);
    for (QAbstractButton *button :
         {ui->pushButton_hundred, ui->pushButton_gigabit, ui->pushButton_24, ui->pushButton_12})
        new ChoiceKeys(button);

    ui->screenNumberCombox->installEventFilter(this);
    ui->screenNumberCombox->setView(new QListView(ui->screenNumberCombox));
    ui->spinBox_width->setRange(800, 8192);
    ui->spinBox_height->setRange(600, 8192);
    initPeripheralData();
    new FocusInSight(ui->scrollArea);

    ui->toolButton->setDateTime(QDate::currentDate());
    initCurrentTime();
}

void ConsoleFloatWidget::setMarkers()
{
    mark(ui->toolButton, "isDateButton");
    mark(ui->scrollAreaWidgetContents, "background");
    for (QWidget *frame : {ui->frame_2, ui->frame_3, ui->screenButtonFrame})
        mark(frame, "contentFrame");
    for (QWidget *editor : {ui->spinBox_width, ui->spinBox_height})
        mark(editor, "isScreenFrameSpinbox");
    for (QWidget *button :
         {ui->pushButton_restart, ui->pushButton_apply, ui->pushButton_time, m_pShutdownButton})
        mark(button, "apply");
    for (QWidget *button : {ui->pushButton_hundred, ui->pushButton_gigabit, ui->pushButton_24,
                            ui->pushButton_12, ui->pushButton_DHCP, ui->pushButton_Manual})
        mark(button, "floatButton");
}

void ConsoleFloatWidget::createConnects()
{
    using Self = ConsoleFloatWidget;
    using Group = QButtonGroup;
    using Switch = Widgets::SwitchControl;
    using Editor = Widgets::SliderEditFrame;

    connect(ui->switch_groosen, &Switch::toggled, this, &Self::slotGrooseneckLightStatusChanged);
    connect(ui->switch_front, &Switch::toggled, this, &Self::slotFrontLightStatusChanged);
    connect(ui->switch_logo, &Switch::toggled, this, &Self::slotLogoLightStatusChanged);
    connect(ui->pushButton_time, &QPushButton::clicked, this, &Self::slotTimeChanged);
    connect(m_pWANGroup, QOverload<int, bool>::of(&Group::buttonToggled), this, &Self::slotWANToggled);
    connect(m_pInternetGroup, QOverload<int, bool>::of(&Group::buttonToggled), this,
            &Self::slotInternetGroupToggled);
    connect(ui->pushButton_apply, &QPushButton::clicked, this, &Self::slotInternetInfoChanged);
    connectBrightness();
    connect(ui->widget_lcd, &Editor::valueChanged, this, &Self::slotSiderValueChanged);
    connect(ui->pushButton_restart, &QPushButton::clicked, this, &Self::slotRestart);
    connect(m_pShutdownButton, &QPushButton::clicked, this, &Self::slotShutdown);
    connect(ui->peripheralApply, &QPushButton::clicked, this, &Self::slotSetPeripheralData);
    connect(m_pTimeTypeGroup, QOverload<int, bool>::of(&Group::buttonToggled), this,
            &Self::slotTimeDisplayChanged);
    connect(ui->currentPanelCheckBox, &QCheckBox::stateChanged, this, &Self::slotPanelCheckStateChanged);
    connect(ui->spinBox_width, &Editor::valueChanged, this, &Self::slotScreenFrameChanged);
    connect(ui->spinBox_height, &Editor::valueChanged, this, &Self::slotScreenFrameChanged);
}

void ConsoleFloatWidget::initIPWidget()
{
    for (const QWidget *editor : {ui->lineEdit_IP, ui->lineEdit_gateWay, ui->lineEdit_mask}) {
        const QLayout *layout = editor->layout();
        for (int i = 0; i < layout->count(); ++i) {
            auto *octet = qobject_cast<QLineEdit *>(layout->itemAt(i)->widget());
            if (!octet)
                continue;
            octet->installEventFilter(this);
            mark(octet, "iplineedit");
            connect(octet, &QLineEdit::textEdited, this, [this] { m_isAddressEdited = true; });
        }
    }
}

// This console leaves its address mode and its power to others.
void ConsoleFloatWidget::hideUnusedSettings()
{
    ui->label_13->hide();
    hideAllOf(ui->setupModeLayout);
    ui->restartLayout->addWidget(m_pShutdownButton);
    ui->restartLayout->addStretch();
    ui->pushButton_restart->hide();
    ui->label_restart->hide();
    m_pShutdownButton->hide();
}

void ConsoleFloatWidget::initParm()
{
    ui->switch_groosen->setToggle(stored(QStringLiteral("grooseneckStatus"), true).toBool());
    ui->switch_front->setToggle(stored(QStringLiteral("frontStatus"), true).toBool());
    ui->switch_logo->setToggle(stored(QStringLiteral("logoStatus"), true).toBool());
    loadBrightness();

    initNetPort();
    m_pInternetGroup->button(Manual)->setChecked(true);
    ui->toolButton->setDateTime(QDate::currentDate());
    initTimeDisplay();
    initCurrentTime();
}

void ConsoleFloatWidget::retranslateUi()
{
    ui->retranslateUi(this);
    m_pShutdownButton->setText(tr("ShutDown"));
    nameControls();
}

QVariant ConsoleFloatWidget::stored(const QString &key, const QVariant &fallback) const
{
    const QVariant value = m_pSettings->value(key);
    return value.isNull() ? fallback : value;
}

void ConsoleFloatWidget::store(const QString &key, const QVariant &value)
{
    m_pSettings->setValue(key, value);
    m_pSettings->sync(); // no kill loses it
    warnOfSettings();
}

void ConsoleFloatWidget::warnOfSettings()
{
    if (m_isSettingsFaultTold || m_pSettings->status() == QSettings::NoError)
        return;
    m_isSettingsFaultTold = true;
    const char *fault = m_pSettings->status() == QSettings::FormatError ? "broken" : "not accessible";
    qCWarning(lcPlugin, "The settings file %s is %s; what it cannot give is at its default.",
              qPrintable(m_pSettings->fileName()), fault);
}

bool ConsoleFloatWidget::eventFilter(QObject *watched, QEvent *event)
{
    const auto position = [event] { return static_cast<QMouseEvent *>(event)->globalPos(); };
    if (watched == ui->scrollArea->viewport()) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            beginScroll(position());
            return true;
        case QEvent::MouseMove:
            scrollTo(position());
            return true;
        case QEvent::MouseButtonDblClick: // the press of a second quick drag
            beginScroll(position());
            break;
        case QEvent::MouseButtonRelease:
            return true;
        default:
            break;
        }
    } else if (watched == ui->screenNumberCombox) {
        // The wheel is meant for the form: another number would forget the screens.
        if (event->type() == QEvent::Wheel && !ui->screenNumberCombox->hasFocus()) {
            event->ignore();
            return true;
        }
    } else if (auto *octet = qobject_cast<QLineEdit *>(watched)) {
        if (event->type() == QEvent::MouseButtonPress) {
            m_isFocusGiven = false;
            placeCursor(octet);
        } else if (event->type() == QEvent::FocusOut) {
            m_isFocusGiven = false;
            m_bIsNeedSelectedAll = true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ConsoleFloatWidget::beginScroll(const QPoint &position)
{
    m_beginPoint = position;
    m_pscrollPoint = {ui->scrollArea->horizontalScrollBar()->value(),
                      ui->scrollArea->verticalScrollBar()->value()};
}

void ConsoleFloatWidget::scrollTo(const QPoint &position)
{
    const QPoint value = m_pscrollPoint + m_beginPoint - position;
    ui->scrollArea->horizontalScrollBar()->setValue(value.x());
    ui->scrollArea->verticalScrollBar()->setValue(value.y());
}

void ConsoleFloatWidget::placeCursor(QLineEdit *octet)
{
    if (!m_bIsNeedSelectedAll || !octet->isEnabled()) {
        octet->setCursorPosition(octet->cursorPosition());
        return;
    }
    // After the press itself, which moves the cursor.
    QTimer::singleShot(0, octet, [this, octet] {
        octet->selectAll();
        m_bIsNeedSelectedAll = false;
    });
}

} // namespace Korvo::Internal
