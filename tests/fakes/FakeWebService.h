// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QMap>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <chrono>

namespace Tarvik {

/// A web service on this machine, at a port of the kernel's choice, that answers every request as a test wants and
/// remembers it.
class FakeWebService : public QObject {
public:
    enum class Manner {
        atOnce,
        byteByByte,
        /// The answer, then nothing more, for ever.
        unfinished,
        /// The answer, then its last byte over and over, for ever.
        endless,
        /// The answer, however short, then the end of the connection.
        hangUp,
    };

    struct Request {
        QByteArray line;
        /// By their names in lower case.
        QMap<QByteArray, QByteArray> headers;
        QByteArray body;
    };

    FakeWebService()
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] { serve(m_server.nextPendingConnection()); });
        open();
    }

    QUrl address() const { return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(m_port)); }
    int port() const { return m_port; }

    /// `body` with what a usual head says of it, and these headers.
    void answer(int status, const QByteArray& body, const QByteArrayList& headers = {})
    {
        QByteArrayList head{"HTTP/1.1 " + QByteArray::number(status) + " Whatever",
            "Content-Type: application/json",
            "Content-Length: " + QByteArray::number(body.size())};
        answer(Manner::atOnce, (head + headers).join("\r\n") + "\r\n\r\n" + body);
    }
    void answer(Manner manner, const QByteArray& bytes)
    {
        m_manner = manner;
        m_answer = bytes;
    }

    /// From then on nobody listens there.
    void close()
    {
        m_server.close();
        hangUp();
    }
    void open()
    {
        if (!m_server.listen(QHostAddress::LocalHost, m_port))
            qFatal("Port %d is not to be had.", m_port);
        m_port = m_server.serverPort();
    }
    void hangUp()
    {
        for (QTcpSocket* socket : m_server.findChildren<QTcpSocket*>())
            socket->abort();
    }

    bool isConnected() const
    {
        const QList<QTcpSocket*> sockets = m_server.findChildren<QTcpSocket*>();
        return std::ranges::any_of(
            sockets, [](const QTcpSocket* socket) { return socket->state() == QAbstractSocket::ConnectedState; });
    }

    QList<Request> requests;

private:
    void serve(QTcpSocket* socket)
    {
        connect(socket, &QTcpSocket::disconnected, socket, &QTcpSocket::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
    }

    /// Until the whole request is there.
    void read(QTcpSocket& socket)
    {
        const QByteArray bytes = socket.peek(socket.bytesAvailable());
        const qsizetype end = bytes.indexOf("\r\n\r\n");
        if (end < 0)
            return;
        Request request;
        QByteArrayList lines = bytes.left(end).split('\n');
        request.line = lines.takeFirst().trimmed();
        for (const QByteArray& line : std::as_const(lines)) {
            const qsizetype colon = line.indexOf(':');
            request.headers[line.left(colon).toLower()] = line.mid(colon + 1).trimmed();
        }
        request.body = bytes.mid(end + 4);
        if (request.body.size() < request.headers["content-length"].toInt())
            return;
        socket.readAll();
        requests.append(request);
        reply(socket);
    }

    void reply(QTcpSocket& socket)
    {
        switch (m_manner) {
        case Manner::atOnce:
        case Manner::unfinished:
            socket.write(m_answer);
            return;
        case Manner::byteByByte:
            dribble(socket);
            return;
        case Manner::endless:
            connect(&socket, &QTcpSocket::bytesWritten, &socket, [this, &socket] {
                if (socket.bytesToWrite() == 0)
                    socket.write(QByteArray(16 * 1024, m_answer.back()));
            });
            socket.write(m_answer);
            return;
        case Manner::hangUp:
            socket.write(m_answer);
            socket.disconnectFromHost();
            return;
        }
    }

    void dribble(QTcpSocket& socket)
    {
        auto* timer = new QTimer(&socket);
        connect(timer, &QTimer::timeout, &socket, [&socket, timer, rest = m_answer]() mutable {
            socket.write(rest.left(1));
            rest.remove(0, 1);
            if (rest.isEmpty())
                timer->stop();
        });
        timer->start(std::chrono::milliseconds(2));
    }

    QTcpServer m_server;
    quint16 m_port = 0;
    Manner m_manner = Manner::unfinished;
    QByteArray m_answer;
};

} // namespace Tarvik
