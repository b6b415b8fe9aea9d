// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolefloatwidget.h"
#include "settingsfolder.h"

#include <korvo/keyboard/records.h>
#include <korvo/widgets/waitingdialog.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QMutex>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

/// A text of plain letters.
inline QString operator"" _q(const char *text, size_t size)
{
    return QString::fromLatin1(text, int(size));
}

/// Takes down what a panel emits, in the order of emission; "elsewhere" is any thread but the GUI's.
class Journal : public QObject
{
public:
    explicit Journal(Korvo::Internal::ConsoleFloatWidget *panel)
    {
        using Panel = Korvo::Internal::ConsoleFloatWidget;
        const auto take = [this, panel](auto signal, auto line) {
            connect(panel, signal, this, line, Qt::DirectConnection);
        };
        take(&Panel::signalReqECDeviceIP, [this](quint8 port) { note("ask %1"_q.arg(port)); });
        take(&Panel::signalUpdateSystemIP,
             [this](const QString &eth, const QString &ip, const QString &mask, const QString &gateway) {
                 note("address %1 %2 %3 %4"_q.arg(eth, ip, mask, gateway));
             });
        take(&Panel::signalIPModeChanged,
             [this](quint8 port, quint8 mode) { note("mode %1 %2"_q.arg(port).arg(mode)); });
        take(&Panel::signalUpdateIPText,
             [this](int port, const QString &ip) { note("text %1 %2"_q.arg(port).arg(ip)); });
        take(&Panel::signalIPStatusChanged,
             [this](const QString &eth, int status) { note("status %1 %2"_q.arg(eth).arg(status)); });
        take(&Panel::signalNetModeChanged, [this](int mode, const QString &ip, const QString &mask) {
            note("net %1 '%2' '%3'"_q.arg(mode).arg(ip, mask));
        });
        take(&Panel::signalTimeTypeChanged, [this](int type) { note("type %1"_q.arg(type)); });
        take(&Panel::signalUpdateSystemTime,
             [this](const QString &date, const QString &time) { note("set %1 %2"_q.arg(date, time)); });
    }

    QStringList lines() const
    {
        const QMutexLocker locker(&m_mutex);
        return m_lines;
    }
    QStringList linesOf(const QString &start) const
    {
        QStringList found;
        const QStringList all = lines();
        for (const QString &line : all) {
            if (line.startsWith(start))
                found << line;
        }
        return found;
    }
    QStringList takeLines()
    {
        const QMutexLocker locker(&m_mutex);
        return std::exchange(m_lines, {});
    }

private:
    void note(const QString &line)
    {
        const bool isGui = QThread::currentThread() == qApp->thread();
        const QMutexLocker locker(&m_mutex);
        m_lines << (isGui ? line : line + " elsewhere"_q);
    }

    mutable QMutex m_mutex;
    QStringList m_lines;
};

/// Presses the default or, without one, the first button of every message box that opens while it lives.
class BoxAnswerer : public QObject
{
public:
    struct Seen
    {
        QString title;
        QString text;
        QString informativeText;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QStringList buttons;
        QString defaultButton;
        bool hasDefaultOk = false;
        QWidget *parent = nullptr;
    };

    /// \a whileOpen runs before the answer; a box that it destroys gets none.
    explicit BoxAnswerer(std::function<void()> whileOpen = {})
        : m_whileOpen(std::move(whileOpen))
    {
        connect(&m_timer, &QTimer::timeout, this, &BoxAnswerer::look);
        m_timer.start(5);
    }

    QList<Seen> boxes;

private:
    void look()
    {
        const QPointer<QMessageBox> box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible() || box == m_last)
            return;
        m_last = box;
        note(box);
        if (m_whileOpen)
            m_whileOpen();
        if (!box)
            return;
        QAbstractButton *button = box->defaultButton();
        QTest::mouseClick(button ? button : box->buttons().constFirst(), Qt::LeftButton);
    }

    void note(const QMessageBox *box)
    {
        Seen seen;
        seen.title = box->windowTitle();
        seen.text = box->text();
        seen.informativeText = box->informativeText();
        seen.icon = box->icon();
        const QList<QAbstractButton *> buttons = box->buttons();
        for (const QAbstractButton *button : buttons)
            seen.buttons << button->text();
        if (box->defaultButton()) {
            seen.defaultButton = box->defaultButton()->text();
            seen.hasDefaultOk = box->standardButton(box->defaultButton()) == QMessageBox::Ok;
        }
        seen.parent = box->parentWidget();
        boxes << seen;
    }

    const std::function<void()> m_whileOpen;
    QTimer m_timer;
    QPointer<QMessageBox> m_last;
};

/// The text of the busy indicator; empty while none is shown.
inline QString busyText()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        const auto *dialog = qobject_cast<const Korvo::Widgets::WaitingDialog *>(widget);
        if (dialog && !dialog->isHidden())
            return dialog->text();
    }
    return QString();
}

inline int busyIndicators()
{
    int count = 0;
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        if (qobject_cast<const Korvo::Widgets::WaitingDialog *>(widget))
            ++count;
    }
    return count;
}

/// Lets all pass that is due within \a ms.
inline bool letPass(int ms)
{
    QTimer timer;
    timer.setSingleShot(true);
    QSignalSpy spy(&timer, &QTimer::timeout);
    timer.start(ms);
    return spy.wait(ms + 5000);
}

inline quint32 address(int first, int second, int third, int fourth)
{
    return quint32(first) | quint32(second) << 8 | quint32(third) << 16 | quint32(fourth) << 24;
}

inline std::shared_ptr<Korvo::ECDeviceIPData> addressRecord(quint8 index, quint8 status, quint32 ip,
                                                            quint32 mask, quint32 gateway)
{
    auto record = std::make_shared<Korvo::ECDeviceIPData>();
    record->Index = index;
    record->Status = status;
    record->IP = ip;
    record->Mask = mask;
    record->Gateway = gateway;
    return record;
}
