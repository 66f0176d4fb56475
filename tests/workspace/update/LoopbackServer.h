#pragma once

#include <QMap>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

namespace ospra {

/// A web server on this machine that answers each path with the bytes that a test gives it; a path without an answer
/// is never answered.
class LoopbackServer {
public:
    LoopbackServer()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, &m_server, [this, socket] { answer(socket); });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }

    [[nodiscard]] QUrl url(const QString& path, const QString& host = QStringLiteral("127.0.0.1")) const
    {
        return QUrl(QStringLiteral("http://%1:%2%3").arg(host).arg(m_server.serverPort()).arg(path));
    }

    void setDocument(const QString& path, const QByteArray& body, const QByteArray& status = "200 OK")
    {
        m_answers[path] = "HTTP/1.1 " + status +
                          "\r\nConnection: close\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
                          body;
    }
    void setRedirect(const QString& path, const QByteArray& target)
    {
        m_answers[path] =
            "HTTP/1.1 302 Found\r\nConnection: close\r\nContent-Length: 0\r\nLocation: " + target + "\r\n\r\n";
    }
    void setRaw(const QString& path, const QByteArray& bytes) { m_answers[path] = bytes; }

    /// What was asked for, in order.
    QStringList requests;
    QByteArray lastHeader;

private:
    void answer(QTcpSocket* socket)
    {
        lastHeader = socket->readAll();
        const QString path = QString::fromLatin1(lastHeader.split(' ').value(1));
        requests.append(path);
        if (!m_answers.contains(path))
            return;
        socket->write(m_answers.value(path));
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
    QMap<QString, QByteArray> m_answers;
};

} // namespace ospra
