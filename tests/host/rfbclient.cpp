// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "rfbclient.h"

#include <QDataStream>
#include <QHostAddress>
#include <QTimer>

#include <cstring>

namespace {

const char Version[] = "RFB 003.003\n";
constexpr int VersionSize = sizeof Version - 1;
constexpr int RetryInterval = 20; // ms between two attempts to connect

constexpr quint32 NoSecurity = 1;
constexpr qint32 RawEncoding = 0;

// What the client sends.
constexpr quint8 SetPixelFormat = 0;
constexpr quint8 SetEncodings = 2;
constexpr quint8 UpdateRequest = 3;
constexpr quint8 PointerEvent = 5;

// What the server sends; it may send more, but has no reason to.
constexpr quint8 FramebufferUpdate = 0;

/// Writes big-endian numbers, as the protocol has them.
template <typename... Numbers>
QByteArray message(Numbers... numbers)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    (stream << ... << numbers);
    return bytes;
}

/// Asks for pixels as QImage::Format_RGB32 has them. Qt's server must be asked: without, it crashes.
QByteArray pixelFormatMessage()
{
    const auto isBigEndian = quint8(QSysInfo::ByteOrder == QSysInfo::BigEndian);
    const quint8 padding = 0;
    return message(SetPixelFormat, padding, padding, padding,         //
                   quint8(32), quint8(24), isBigEndian, quint8(true), // bits, depth, order, true colour
                   quint16(255), quint16(255), quint16(255),          // most of red, green, blue
                   quint8(16), quint8(8), quint8(0),                  // where red, green, blue begin
                   padding, padding, padding);
}

} // namespace

RfbClient::RfbClient(QObject *parent)
    : QObject(parent)
{
    connect(&m_socket, &QTcpSocket::readyRead, this, &RfbClient::readPieces);
    connect(&m_socket, QOverload<QAbstractSocket::SocketError>::of(&QTcpSocket::error), this,
            &RfbClient::handleError);
}

RfbClient::~RfbClient() = default;

void RfbClient::connectToPort(quint16 port)
{
    m_port = port;
    expect(VersionSize, &RfbClient::readVersion);
    m_socket.connectToHost(QHostAddress::LocalHost, port);
}

void RfbClient::sendPointer(const QPoint &position, Qt::MouseButtons buttons)
{
    const auto mask =
        quint8((buttons.testFlag(Qt::LeftButton) ? 1 : 0) | (buttons.testFlag(Qt::MiddleButton) ? 2 : 0) |
               (buttons.testFlag(Qt::RightButton) ? 4 : 0));
    m_socket.write(message(PointerEvent, mask, quint16(position.x()), quint16(position.y())));
}

void RfbClient::expect(qint64 size, Handler handler)
{
    m_size = size;
    m_handler = handler;
}

void RfbClient::readPieces()
{
    while (m_fault.isEmpty() && m_socket.bytesAvailable() >= m_size)
        (this->*m_handler)(m_socket.read(m_size));
}

void RfbClient::readVersion(const QByteArray &version)
{
    if (!version.startsWith("RFB "))
        return fail(QStringLiteral("no RFB server"));
    m_socket.write(Version, VersionSize);
    expect(sizeof(quint32), &RfbClient::readSecurity);
}

void RfbClient::readSecurity(const QByteArray &type)
{
    if (type != message(NoSecurity))
        return fail(QStringLiteral("the server asks for security"));
    m_socket.write(message(quint8(true))); // others may watch, too
    expect(24, &RfbClient::readScreen);
}

void RfbClient::readScreen(const QByteArray &description)
{
    QDataStream stream(description);
    quint16 width = 0;
    quint16 height = 0;
    stream >> width >> height;
    stream.skipRawData(16); // the server's pixel format
    quint32 nameSize = 0;
    stream >> nameSize;

    m_screen = QImage(width, height, QImage::Format_RGB32);
    expect(nameSize, &RfbClient::readName);
}

void RfbClient::readName(const QByteArray & /*name*/)
{
    m_socket.write(pixelFormatMessage());
    m_socket.write(message(SetEncodings, quint8(0), quint16(1), RawEncoding));
    requestUpdate(false);
    expectMessage();
}

void RfbClient::readMessageType(const QByteArray &type)
{
    if (type != message(FramebufferUpdate))
        return fail(QStringLiteral("unexpected message %1").arg(type.at(0)));
    expect(3, &RfbClient::readUpdate);
}

void RfbClient::readUpdate(const QByteArray &header)
{
    QDataStream stream(header);
    stream.skipRawData(1);
    quint16 count = 0;
    stream >> count;
    m_rectanglesToCome = count;
    expectRectangle();
}

void RfbClient::expectRectangle()
{
    if (m_rectanglesToCome > 0)
        return expect(12, &RfbClient::readRectangle);
    m_picture = m_screen;
    requestUpdate(true);
    expectMessage();
}

void RfbClient::readRectangle(const QByteArray &header)
{
    QDataStream stream(header);
    quint16 left = 0;
    quint16 top = 0;
    quint16 width = 0;
    quint16 height = 0;
    qint32 encoding = RawEncoding;
    stream >> left >> top >> width >> height >> encoding;

    m_rectangle = QRect(left, top, width, height);
    if (encoding != RawEncoding || !m_screen.rect().contains(m_rectangle))
        return fail(QStringLiteral("a rectangle that was not asked for"));
    expect(qint64(width) * height * qint64(sizeof(QRgb)), &RfbClient::readPixels);
}

void RfbClient::readPixels(const QByteArray &pixels)
{
    const std::size_t lineSize = std::size_t(m_rectangle.width()) * sizeof(QRgb);
    const char *source = pixels.constData();
    for (int y = m_rectangle.top(); y <= m_rectangle.bottom(); ++y, source += lineSize)
        std::memcpy(m_screen.scanLine(y) + std::size_t(m_rectangle.left()) * sizeof(QRgb), source, lineSize);
    --m_rectanglesToCome;
    expectRectangle();
}

void RfbClient::requestUpdate(bool isIncremental)
{
    m_socket.write(message(UpdateRequest, quint8(isIncremental), quint16(0), quint16(0),
                           quint16(m_screen.width()), quint16(m_screen.height())));
}

void RfbClient::handleError(QAbstractSocket::SocketError error)
{
    if (error == QAbstractSocket::ConnectionRefusedError)
        QTimer::singleShot(RetryInterval, this, [this] { connectToPort(m_port); });
    else
        fail(m_socket.errorString());
}

void RfbClient::fail(const QString &text)
{
    if (m_fault.isEmpty())
        m_fault = text;
    m_socket.abort();
}
