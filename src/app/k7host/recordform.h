// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "scenarioline.h"

#include <QColor>
#include <QFrame>

#include <memory>

namespace Ui {
class RecordForm;
}

namespace K7Host {

/// Makes up any call of a console half: by its fields, or as the line of a scenario.
class RecordForm : public QFrame
{
    Q_OBJECT

public:
    explicit RecordForm(QWidget *parent = nullptr);
    ~RecordForm() override;

public Q_SLOTS:
    /// Shows the call of \a line; nothing changes when it holds none.
    void setLine(const K7Host::ScenarioLine &line);
    /// The call is about the key \a id: a colour for it, if it was about something else.
    void setKey(quint32 id);
    /// The call is about the label \a id: a text for it, if it was about something else.
    void setLabel(quint32 id);

Q_SIGNALS:
    /// \a call is to be handed to \a half, or to both. Its record is nobody else's, and may be null.
    void callRequested(const K7Host::HostCall &call, std::optional<K7Host::Half> half);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void startOperation();
    void chooseColor();
    void setColor(const QColor &color);
    void readJson();
    void send();
    void showCall();

private:
    Q_DISABLE_COPY(RecordForm)

    CallLine callLine() const;
    void takeCall(const CallLine &line);
    void setId(const QString &operation, const QString &field, quint32 id);
    void setNumber(const QString &field, quint32 number);
    void makeEditors();
    void showRecordState();
    void showFault(const QString &fault);
    QString fieldFault() const;
    QColor color() const;

    const std::unique_ptr<Ui::RecordForm> m_ui;
    HostCall m_call; // its record is never null; the editors write it
};

} // namespace K7Host
