// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "consoletexts.h"
#include "internetthread.h"
#include "logging.h"
#include "ui_consolefloatwidget.h"

#include <ovo/widgets/framelessmessagebox.h>

#include <QButtonGroup>
#include <QMutexLocker>
#include <QTimer>

#include <algorithm>

namespace Korvo::Internal {

using ECKeyboard::lcPlugin;
using Ovo::Widgets::FramelessMessageBox;

namespace {

// A port's number is its index in records and signals and the id of its button.
constexpr int Eth2Port = 0;
constexpr int Eth0Port = 1;

QString interfaceOf(int port)
{
    switch (port) {
    case Eth2Port:
        return QStringLiteral("eth2");
    case Eth0Port:
        return QStringLiteral("eth0");
    default:
        return QString();
    }
}

int portOf(const QString &interface)
{
    for (const int port : {Eth2Port, Eth0Port}) {
        if (interface == interfaceOf(port))
            return port;
    }
    return -1;
}

} // namespace

// The table of addresses.

void ConsoleFloatWidget::updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip)
{
    if (!ip) {
        qCWarning(lcPlugin, " ECDevice IP data error .");
        return;
    }
    {
        const QMutexLocker locker(&m_deviceIPMtx);
        m_ecDeviceIPData.insert(ip->Index, *ip);
    }
    const bool isRefresh = m_isRefreshStatus;
    m_calls.run([this, isRefresh] { isRefresh ? updateNetStatus() : updateIPParam(); });
}

bool ConsoleFloatWidget::getECDeviceIP(const int &port, QString &ip, QString &mask, QString &gateway,
                                       int &status)
{
    m_isRefreshStatus = false; // the answer is meant for the fields
    Q_EMIT signalReqECDeviceIP(static_cast<quint8>(port));

    const std::optional<ECDeviceIPData> entry = storedPort(port);
    if (!entry)
        return false;
    ip = ipv4ToQString(entry->IP);
    mask = ipv4ToQString(entry->Mask);
    gateway = ipv4GatewayToQString(entry->Gateway);
    status = entry->Status;
    return true;
}

ConsoleFloatWidget::PortAddress ConsoleFloatWidget::readPort(int port)
{
    PortAddress address;
    getECDeviceIP(port, address.ip, address.mask, address.gateway, address.status);
    return address;
}

std::optional<ECDeviceIPData> ConsoleFloatWidget::storedPort(int port)
{
    const QMutexLocker locker(&m_deviceIPMtx);
    const auto entry = m_ecDeviceIPData.constFind(port);
    if (entry == m_ecDeviceIPData.cend())
        return {};
    return *entry;
}

void ConsoleFloatWidget::storePort(int port, const PortAddress &address)
{
    const QMutexLocker locker(&m_deviceIPMtx);
    ECDeviceIPData &entry = m_ecDeviceIPData[port];
    entry.Index = static_cast<quint8>(port);
    entry.IP = ipv4StringToInt(address.ip);
    entry.Mask = ipv4StringToInt(address.mask);
    entry.Gateway = ipv4StringToInt(address.gateway);
}

// The status strip.

void ConsoleFloatWidget::slotRefreshNetStatus()
{
    m_isRefreshStatus = true; // the answers are meant for the strip
    Q_EMIT signalReqECDeviceIP(Eth2Port);
    Q_EMIT signalReqECDeviceIP(Eth0Port);
}

void ConsoleFloatWidget::updateNetStatus()
{
    if (!m_pWANGroup)
        return;
    // A copy that shares nothing with the table, which may be written while it is read.
    QList<ECDeviceIPData> ports;
    {
        const QMutexLocker locker(&m_deviceIPMtx);
        ports = m_ecDeviceIPData.values();
    }
    for (const ECDeviceIPData &entry : qAsConst(ports)) {
        const QString interface = interfaceOf(entry.Index);
        if (interface.isEmpty())
            continue;
        Q_EMIT signalIPStatusChanged(interface, entry.Status);
        Q_EMIT signalUpdateIPText(entry.Index, ipv4GatewayToQString(entry.IP));
    }
}

void ConsoleFloatWidget::refreshNetStatus()
{
    const PortAddress eth0 = readPort(Eth0Port);
    const PortAddress eth2 = readPort(Eth2Port);
    Q_EMIT signalIPStatusChanged(interfaceOf(Eth0Port), eth0.status);
    Q_EMIT signalIPStatusChanged(interfaceOf(Eth2Port), eth2.status);
    Q_EMIT signalUpdateIPText(Eth2Port, eth2.ip);
    Q_EMIT signalUpdateIPText(Eth0Port, eth0.ip);
}

// The fields.

void ConsoleFloatWidget::initNetPort()
{
    const PortAddress eth0 = readPort(Eth0Port);
    const PortAddress eth2 = readPort(Eth2Port);
    QString interface = stored(QStringLiteral("netPort"), QString()).toString();
    if (interface.isEmpty())
        interface = interfaceOf(Eth0Port);

    const int port = portOf(interface);
    QString ip;
    QString mask;
    if (QAbstractButton *button = m_pWANGroup->button(port)) {
        const PortAddress &address = port == Eth0Port ? eth0 : eth2;
        button->setChecked(true);
        setNetParm(address.ip, address.mask, address.gateway);
        ip = address.ip;
        mask = address.mask;
    }
    Q_EMIT signalNetModeChanged(1, ip, mask);
}

void ConsoleFloatWidget::slotWANToggled(int id, bool checked)
{
    const QString interface = interfaceOf(id);
    if (!checked || interface.isEmpty())
        return;
    const PortAddress address = readPort(id);
    store(QStringLiteral("netPort"), interface);
    setNetParm(address.ip, address.mask, address.gateway);
}

void ConsoleFloatWidget::slotInternetGroupToggled(int id, bool checked)
{
    if (auto *button = qobject_cast<QPushButton *>(m_pInternetGroup->button(id)))
        button->setFlat(checked);
    if (!checked)
        return;
    for (QWidget *field : {ui->lineEdit_IP, ui->lineEdit_mask, ui->lineEdit_gateWay})
        field->setEnabled(id != DHCP);

    const int port = m_pWANGroup->checkedId();
    const QString interface = interfaceOf(port);
    if (!interface.isEmpty()) {
        const PortAddress address = readPort(port);
        Q_EMIT signalIPStatusChanged(interface, address.status);
        showAddress(address.ip, address.mask, address.gateway);
        store(QStringLiteral("ethMode"), id);
    }
    m_getetIpStyleChanged = true;
}

void ConsoleFloatWidget::updateIPParam()
{
    const std::optional<ECDeviceIPData> entry = storedPort(m_pWANGroup->checkedId());
    if (!entry || isAddressBeingEdited())
        return;
    setNetParm(ipv4ToQString(entry->IP), ipv4ToQString(entry->Mask), ipv4GatewayToQString(entry->Gateway));
    if (m_isFocusGiven)
        ui->lineEdit_IP->setIPFocus(); // selects anew
}

bool ConsoleFloatWidget::isAddressBeingEdited() const
{
    if (m_isAddressEdited || m_isFocusGiven)
        return m_isAddressEdited;
    const QWidget *focused = window()->focusWidget();
    return focused && focused->hasFocus() &&
           (ui->lineEdit_IP->isAncestorOf(focused) || ui->lineEdit_mask->isAncestorOf(focused) ||
            ui->lineEdit_gateWay->isAncestorOf(focused));
}

void ConsoleFloatWidget::setNetParm(const QString &ip, const QString &mask, const QString &gateway)
{
    // The mask is compared with the gateway's field, on purpose: in practice the fields are always written.
    const QString shownGateway = ui->lineEdit_gateWay->text();
    if (ui->lineEdit_IP->text() == ip && shownGateway == gateway && shownGateway == mask) {
        qCDebug(lcPlugin, "Current ip not change");
        return;
    }
    showAddress(ip, mask, gateway);
}

void ConsoleFloatWidget::showAddress(const QString &ip, const QString &mask, const QString &gateway)
{
    ui->lineEdit_IP->setText(ip);
    ui->lineEdit_mask->setText(mask);
    ui->lineEdit_gateWay->setText(gateway);
    m_isAddressEdited = false;
}

void ConsoleFloatWidget::setNetInfoFocus(int port)
{
    m_pInternetGroup->button(Manual)->setChecked(true);
    QAbstractButton *button = port >= 0 ? m_pWANGroup->button(port) : nullptr;
    if (button)
        button->setChecked(true);
    ui->scrollArea->ensureWidgetVisible(ui->label_network);
    ui->scrollArea->ensureWidgetVisible(ui->pushButton_apply);
    ui->lineEdit_IP->setIPFocus();
    m_isFocusGiven = true; // the answer to come is still to be shown
}

// A change of the addresses.

bool ConsoleFloatWidget::isInternetInfoVaild() const
{
    return isGatewayOnNetwork(ui->lineEdit_IP->text(), ui->lineEdit_mask->text(),
                              ui->lineEdit_gateWay->text());
}

void ConsoleFloatWidget::slotInternetInfoChanged()
{
    if (!m_pWANGroup) {
        qCWarning(lcPlugin, " m_pWANGroup error .");
        return;
    }
    const int port = m_pWANGroup->checkedId();
    if (interfaceOf(port).isEmpty()) {
        qCWarning(lcPlugin) << "Current selected wan type is error : " << port;
        return;
    }
    PortAddress address;
    address.ip = ui->lineEdit_IP->text();
    address.mask = ui->lineEdit_mask->text();
    address.gateway = ui->lineEdit_gateWay->text();

    const std::optional<ECDeviceIPData> entry = storedPort(port);
    if (entry && ipv4ToQString(entry->IP) == address.ip)
        qCDebug(lcPlugin, "Current ip not change");

    const QString refusal = refusalOf(port, address);
    if (!refusal.isEmpty()) {
        refuseAddress(refusal);
        return;
    }
    sendAddress(port, address);
    startNetworkChange(interfaceOf(port));
}

QString ConsoleFloatWidget::refusalOf(int port, const PortAddress &address)
{
    if (m_pInternetGroup->checkedId() != DHCP && !isInternetInfoVaild())
        return tr("The default gateway is not on the same network segment (subnet) defined by IP address "
                  "and subnet mask.");

    PortAddress other;
    if (const std::optional<ECDeviceIPData> entry = storedPort(port == Eth0Port ? Eth2Port : Eth0Port)) {
        other.ip = ipv4ToQString(entry->IP);
        other.mask = ipv4ToQString(entry->Mask);
    }
    if (isSameNetwork(address.ip, address.mask, other.ip, other.mask))
        return tr("Can't set the same segment, please retry.");
    return QString();
}

void ConsoleFloatWidget::refuseAddress(const QString &reason)
{
    FramelessMessageBox box(QMessageBox::Warning, tr("Tip"), tr("Fail to set network information."),
                            QMessageBox::Ok);
    box.setInformativeText(reason);
    box.button(QMessageBox::Ok)->setText(tr("sure"));
    box.setDefaultButton(QMessageBox::Ok);
    box.exec();
}

void ConsoleFloatWidget::sendAddress(int port, const PortAddress &address)
{
    Q_EMIT signalUpdateSystemIP(interfaceOf(port), address.ip, address.mask, address.gateway);
    storePort(port, address);
    m_isAddressEdited = false;
    Q_EMIT signalUpdateIPText(port, address.ip);
    store(QStringLiteral("k7ip"), address.ip);
    store(QStringLiteral("k7mask"), address.mask);
    store(QStringLiteral("k7gateway"), address.gateway);
}

void ConsoleFloatWidget::startNetworkChange(const QString &eth)
{
    m_IsFinished = false;
    showWaiting(tr("loading , please wait."));
    if (!m_pInternetThread) {
        m_pInternetThread = new InternetThread;
        connect(m_pInternetThread, &InternetThread::signal_setEthModeFinished, this,
                &ConsoleFloatWidget::slotSetEthModeFinished);
    }
    const quint32 number = ++m_lastNetworkRequest;
    m_networkRequests.enqueue({number, false});
    m_pInternetThread->setCurrentETH(eth);
    // DHCP whatever the mode buttons show, on purpose: hosts count on it.
    m_pInternetThread->setThreadFun([this, eth] { return setETHMode(eth, DHCP); });
    m_pInternetThread->start();
    QTimer::singleShot(m_delays.networkTimeout, this, [this, number] { networkTimedOut(number); });
}

int ConsoleFloatWidget::setETHMode(const QString &eth, int style)
{
    const int port = portOf(eth);
    if (port >= 0)
        Q_EMIT signalIPModeChanged(static_cast<quint8>(port), static_cast<quint8>(style));
    return 1;
}

void ConsoleFloatWidget::networkTimedOut(quint32 number)
{
    const auto request =
        std::find_if(m_networkRequests.begin(), m_networkRequests.end(),
                     [number](const NetworkRequest &waiting) { return waiting.number == number; });
    if (m_IsFinished || request == m_networkRequests.end())
        return;
    request->hasTimedOut = true;
    if (number == m_lastNetworkRequest) {
        m_IsFinished = true;
        hideWaiting();
    }
    const QPointer<ConsoleFloatWidget> self(this);
    FramelessMessageBox::warning(this, tr("Remind"), tr("Getting network configuration timeout."),
                                 QMessageBox::Ok);
    if (self)
        m_pInternetGroup->button(Manual)->setChecked(true);
}

void ConsoleFloatWidget::slotSetEthModeFinished(const QString &eth, int result)
{
    Q_UNUSED(result)
    // Changes end in the order in which they were started; the indicator goes with the last one.
    const bool hasTimedOut =
        m_networkRequests.isEmpty() ? m_IsFinished : m_networkRequests.dequeue().hasTimedOut;
    if (hasTimedOut)
        return;
    if (m_networkRequests.isEmpty()) {
        m_IsFinished = true;
        hideWaiting();
    }

    const int port = portOf(eth);
    if (port < 0)
        return;
    const PortAddress address = readPort(port);
    if (port == m_pWANGroup->checkedId())
        setNetParm(address.ip, address.mask, address.gateway);
    m_getetIpStyleChanged = false;
}

} // namespace Korvo::Internal
