// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "guicalls.h"

#include <korvo/keyboard/records.h>

#include <QFuture>
#include <QFutureWatcher>
#include <QList>
#include <QMap>
#include <QMutex>
#include <QPoint>
#include <QPointer>
#include <QQueue>
#include <QSemaphore>
#include <QVector>
#include <QWidget>

#include <atomic>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QButtonGroup;
class QLineEdit;
class QPushButton;
class QSettings;
class QTimer;
QT_END_NAMESPACE

namespace Korvo::Widgets {
class SliderEditFrame;
class WaitingDialog;
} // namespace Korvo::Widgets

namespace Ui {
class ConsoleFloatWidget;
}

namespace Korvo::Internal {

class InternetThread;

/// The settings panel of the console: lamps, peripheral screens, network ports, date and time, power.
///
/// It touches no hardware: whatever it sets leaves it as a signal. Its own choices are kept in the user's
/// settings file of "LUMETRA", "korvoeckeyboardk7", written on each change; a file that cannot be read or
/// written is warned of once, and the panel goes on with the defaults.
///
/// GUI thread only, except where a function says otherwise. Destroying the panel waits for its work in other
/// threads.
class ConsoleFloatWidget : public QWidget
{
    Q_OBJECT

public:
    enum CHANGEIPSTYLE { Manual = 0, DHCP = 1 };

    /// How long background work may take, or takes; in ms. Tests have no time for what ships.
    struct Delays
    {
        int networkTimeout = 90000;
        int timeSetting = 3000;
    };

    explicit ConsoleFloatWidget(QWidget *parent = nullptr);
    ~ConsoleFloatWidget() override;

    /// Holds from the next change of network or time on.
    void setDelays(const Delays &delays) { m_delays = delays; }

    /// Puts the stored settings into the controls.
    void initParm();
    void initStyleSheet() {}
    void retranslateUi();
    void enterWindow() {}
    /// Shows or hides the settings of the peripheral screens.
    void initPeripheralModule(bool visible);

    /// Takes the address of a port, from any thread: the table holds it at once, all else waits for the GUI
    /// thread. Null is logged.
    void updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip);
    /// Asks the host for the address of \a port and reads what is known now; true when anything is. What is
    /// not known leaves its argument alone.
    bool getECDeviceIP(const int &port, QString &ip, QString &mask, QString &gateway, int &status);
    /// Tells what is known of both ports by signalIPStatusChanged() and signalUpdateIPText().
    void refreshNetStatus();
    /// Shows an address in the fields.
    void setNetParm(const QString &ip, const QString &mask, const QString &gateway);
    /// Prepares typing the address of \a port; a negative port keeps the selected one.
    void setNetInfoFocus(int port);
    bool isInternetInfoVaild() const;

    /// Turns the wheels to the present time.
    void initCurrentTime();
    /// Tells the present time by signalTimeChanged().
    void refreshTime();

    /// Asks the host for the address mode \a style of the interface \a eth, from any thread. An unknown
    /// interface asks for nothing. Always 1.
    int setETHMode(const QString &eth, int style);
    /// Asks the host for a date and time and waits a while, on a thread other than the GUI's. Always 0.
    int setSystemTime(QString &date, QString &time);

    /// Makes a button for each screen that the box counts. No screen is the operation screen afterwards.
    void initScreenButtonGroup();
    /// Sends the peripheral screens; false, with nothing sent, when a screen has no button.
    bool updateConsoleData();
    /// 0: brightness has no ticks on this console.
    int getValueByTick(int value) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    void slotGrooseneckLightStatusChanged(bool checked);
    void slotFrontLightStatusChanged(bool checked);
    void slotLogoLightStatusChanged(bool checked);
    void slotGrooseneckValueChanged(int value);
    void slotFrontValueChanged(int value);
    void slotSiderValueChanged(int value);

    void slotSetPeripheralData();
    void slotPanelCheckStateChanged(int state);
    void slotScreenButtonToggled(int id, bool checked);
    void slotScreenFrameChanged(int value);

    void slotRefreshNetStatus();
    void slotWANToggled(int id, bool checked);
    void slotInternetGroupToggled(int id, bool checked);
    void slotInternetInfoChanged();
    void slotSetEthModeFinished(const QString &eth, int result);

    void handleTimeout();
    void slotTimeDisplayChanged(int id, bool checked);
    void slotTimeChanged();
    void slotChangeTimeFinished();

    void slotRestart();
    void slotShutdown();

Q_SIGNALS:
    /// Brightness is 1 to 15.
    void signalGrooseneckLightStatusChanged(bool on, quint8 brightness);
    void signalFrontLightStatusChanged(bool on, quint8 brightness);
    /// Carries the brightness of the LCD; always on.
    void signalSideLightStatusChanged(bool on, quint8 brightness);
    void signalLogoLightStatusChanged(bool on, quint8 brightness);
    /// \a resolutions holds width and height of each of \a count screens, in pixels.
    void signalSetPeripheralDataChange(int count, int operationScreen, QVector<quint16> resolutions);

    void signalReqECDeviceIP(quint8 port);
    void signalUpdateSystemIP(QString interface, QString ip, QString mask, QString gateway);
    /// Emitted on the worker thread.
    void signalIPModeChanged(quint8 port, quint8 mode);
    void signalUpdateIPText(int port, QString ip);
    void signalIPStatusChanged(QString interface, int status);
    void signalNetModeChanged(int mode, QString ip, QString mask);

    /// The clock's text, once a second.
    void signalTimeChanged(QString text);
    /// 0 is 24 hours, 1 is 12 hours.
    void signalTimeTypeChanged(int type);
    /// Emitted on a pool thread: year-month-day, and hour:minute:second without leading zeros.
    void signalUpdateSystemTime(QString date, QString time);

    /// \a type is one of eECRestartType.
    void signalRestartControlEvent(quint8 type);

private:
    struct PortAddress
    {
        QString ip = QStringLiteral("0.0.0.0");
        QString mask = QStringLiteral("255.255.255.0");
        QString gateway = QStringLiteral("0.0.0.0");
        int status = 0;
    };

    struct NetworkRequest
    {
        quint32 number = 0;
        bool hasTimedOut = false;
    };

    void initWidget();
    void initIPWidget();
    void createConnects();
    void hideUnusedSettings();
    void setMarkers();
    void nameControls();
    void nameScreenButton(QAbstractButton *button);

    QVariant stored(const QString &key, const QVariant &fallback) const;
    void store(const QString &key, const QVariant &value);
    void warnOfSettings();

    void beginScroll(const QPoint &position);
    void scrollTo(const QPoint &position);
    void placeCursor(QLineEdit *octet);

    void initLamps();
    void connectBrightness();
    void loadBrightness();
    int storedBrightness(const QString &key) const;

    void initPeripheralData();
    void removeLastScreenButton();
    void addScreenButton();
    void markOperationScreen(bool isOperationScreen);

    void initNetPort();
    void updateNetStatus();
    void updateIPParam();
    PortAddress readPort(int port);
    std::optional<ECDeviceIPData> storedPort(int port);
    void storePort(int port, const PortAddress &address);
    void showAddress(const QString &ip, const QString &mask, const QString &gateway);
    bool isAddressBeingEdited() const;
    QString refusalOf(int port, const PortAddress &address);
    void refuseAddress(const QString &reason);
    void sendAddress(int port, const PortAddress &address);
    void startNetworkChange(const QString &eth);
    void networkTimedOut(quint32 number);

    void initTimeDisplay();
    void startTimeSetting(const QString &date, const QString &time);

    void confirmPowerEvent(eECRestartType type, const QString &question, const QString &waiting);
    void showWaiting(const QString &text);
    void hideWaiting();

    Ui::ConsoleFloatWidget *ui;
    InternetThread *m_pInternetThread = nullptr;
    QButtonGroup *m_pWANGroup = nullptr;
    QButtonGroup *m_pInternetGroup = nullptr;
    QButtonGroup *m_pTimeTypeGroup = nullptr;
    QTimer *m_pRefreshTimeTimer = nullptr;
    QTimer *m_pNetTimer = nullptr;
    QSettings *m_pSettings = nullptr;
    bool m_getetIpStyleChanged = false;
    int m_lastGroosenceTick = 0;
    QPoint m_beginPoint;   // where a drag of the form began, global
    QPoint m_pscrollPoint; // what the scroll bars showed then
    bool m_IsFinished = false;
    QFutureWatcher<int> *m_pWatcher = nullptr;
    QFuture<int> m_timeFuture;
    bool m_bIsNeedSelectedAll = true;
    QButtonGroup *m_pScreenButtonGroup = nullptr;
    int m_currentScreeButtonIndex = -1;
    QPointer<Widgets::WaitingDialog> m_pWaitingDialog;
    QPushButton *m_pShutdownButton = nullptr;
    std::atomic<bool> m_isRefreshStatus{false};

    ECKeyboard::K7::Internal::GuiCalls m_calls;
    QMutex m_deviceIPMtx;
    QMap<int, ECDeviceIPData> m_ecDeviceIPData; // by port; m_deviceIPMtx

    Delays m_delays;
    bool m_isSettingsFaultTold = false;
    bool m_isFocusGiven = false;    // to a field of the address, and nobody has touched it yet
    bool m_isAddressEdited = false; // and not yet applied
    quint32 m_lastNetworkRequest = 0;
    QQueue<NetworkRequest> m_networkRequests; // under way, oldest first
    QList<QFuture<int>> m_timeRuns;
    QSemaphore m_isLeaving; // released when the panel goes: no run need wait on
};

} // namespace Korvo::Internal
