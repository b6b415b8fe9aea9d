// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QTcpSocket>

/// A remote screen and its mouse, over the RFB protocol: version 3.3, no security, raw pixels.
///
/// The picture follows the screen as long as the event loop runs. The first thing that goes wrong ends the
/// connection, and is told by fault().
class RfbClient : public QObject
{
    Q_OBJECT

public:
    explicit RfbClient(QObject *parent = nullptr);
    ~RfbClient() override;

    /// Connects to a server on this machine. One that does not listen yet is asked again until it does.
    void connectToPort(quint16 port);
    QString fault() const { return m_fault; } ///< empty when there is none

    /// The screen as of the last whole update, in the size that the server gave; null before the first.
    QImage picture() const { return m_picture; }

    /// Puts the mouse at \a position, in pixels of the screen, with \a buttons held: left, middle, right.
    void sendPointer(const QPoint &position, Qt::MouseButtons buttons);

private:
    using Handler = void (RfbClient::*)(const QByteArray &);

    // What the server sends is cut into pieces of known length; each piece's handler says what comes next.
    void expect(qint64 size, Handler handler);
    void readPieces();
    void readVersion(const QByteArray &version);
    void readSecurity(const QByteArray &type);
    void readScreen(const QByteArray &description);
    void readName(const QByteArray &name);
    void readMessageType(const QByteArray &type);
    void readUpdate(const QByteArray &header);
    void readRectangle(const QByteArray &header);
    void readPixels(const QByteArray &pixels);

    void expectMessage() { expect(1, &RfbClient::readMessageType); }
    void expectRectangle();
    void requestUpdate(bool isIncremental);
    void handleError(QAbstractSocket::SocketError error);
    void fail(const QString &text);

    QTcpSocket m_socket;
    quint16 m_port = 0;
    QString m_fault;
    qint64 m_size = 0;
    Handler m_handler = nullptr;
    QImage m_picture;
    QImage m_screen;            // may be half updated
    QRect m_rectangle;          // that the next pixels are for
    int m_rectanglesToCome = 0; // of the current update
};
