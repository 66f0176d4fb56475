#include "tests/support/TileServer.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QEvent>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace ospra {

namespace {

using Kind = ServerManner::Kind;

/// Signature and first chunk of a PNG file of 20,000 x 20,000 pixels (its checksum included), and an end.
QByteArray hugePng()
{
    return QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200004e2000004e200806000000e3704639") +
           QByteArray::fromHex("0000000049454e44ae426082");
}

ServerRequest parseRequest(const QByteArray& text)
{
    const QList<QByteArray> lines = text.split('\n');
    ServerRequest request{.path = lines.first().split(' ').value(1).toStdString()};
    for (const QByteArray& line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0)
            request.headers[line.left(colon).trimmed().toLower().toStdString()] =
                line.mid(colon + 1).trimmed().toStdString();
    }
    return request;
}

} // namespace

QByteArray jpegOf(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "JPEG", 85);
    return bytes;
}

/// Does the work of another thread when it is woken. What the threads share is behind the owner's mutex: a thread
/// sanitizer does not see the toolkit's own locks.
class TileServer::Listener : public QTcpServer {
public:
    explicit Listener(TileServer& owner) : m_owner(owner) {}

protected:
    void customEvent(QEvent* /*event*/) override { m_owner.doWork(); }

private:
    TileServer& m_owner;
};

TileServer::TileServer() : TileServer(Options{}) {}

TileServer::TileServer(Options options) : m_options(std::move(options)), m_server(new Listener(*this))
{
    m_server->moveToThread(&m_thread);
    QObject::connect(m_server, &QTcpServer::newConnection, m_server, [this] {
        while (QTcpSocket* socket = m_server->nextPendingConnection())
            accept(socket);
    });
    QObject::connect(&m_thread, &QThread::finished, m_server, &QObject::deleteLater);
    m_thread.start();
    inThread([this] { listen(); });
}

TileServer::~TileServer()
{
    vanish();
    m_thread.quit();
    m_thread.wait();
}

void TileServer::inThread(std::function<void()> work)
{
    std::unique_lock lock(m_mutex);
    m_work = std::move(work);
    QCoreApplication::postEvent(m_server, new QEvent(QEvent::User));
    m_workDone.wait(lock, [this] { return !m_work; });
}

void TileServer::doWork()
{
    std::unique_lock lock(m_mutex);
    const std::function<void()> work = m_work;
    lock.unlock();
    work();
    lock.lock();
    m_work = nullptr;
    m_workDone.notify_one();
}

void TileServer::listen()
{
    if (!m_server->listen(QHostAddress::LocalHost, m_port))
        qFatal("the tile server cannot listen");
    m_port = m_server->serverPort();
}

std::string TileServer::address() const
{
    return "http://127.0.0.1:" + std::to_string(m_port);
}

void TileServer::behave(const ServerManner& manner, const std::string& beginning)
{
    const std::lock_guard lock(m_mutex);
    m_manners[beginning] = manner;
}

void TileServer::put(const std::string& path, const QByteArray& body, const QByteArray& type)
{
    const std::lock_guard lock(m_mutex);
    m_documents[path] = {.type = type, .body = body};
}

void TileServer::vanish()
{
    inThread([this] {
        m_server->close();
        for (QTcpSocket* socket : m_server->findChildren<QTcpSocket*>())
            socket->abort();
    });
}

void TileServer::comeBack()
{
    inThread([this] { listen(); });
}

std::vector<ServerRequest> TileServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

int TileServer::count(const std::string& beginning) const
{
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(std::ranges::count_if(
        m_requests, [&](const ServerRequest& request) { return request.path.starts_with(beginning); }));
}

void TileServer::accept(QTcpSocket* socket)
{
    QObject::connect(socket, &QTcpSocket::readyRead, m_server, [this, socket] { read(socket); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

void TileServer::read(QTcpSocket* socket)
{
    const QByteArray waiting = socket->peek(socket->bytesAvailable());
    const qsizetype end = waiting.indexOf("\r\n\r\n");
    if (end < 0)
        return;
    const ServerRequest request = parseRequest(socket->read(end + 4));
    {
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(request);
    }
    answer(socket, request);
}

ServerManner TileServer::mannerFor(const std::string& path)
{
    const std::lock_guard lock(m_mutex);
    ServerManner* found = nullptr;
    for (auto& [beginning, manner] : m_manners) { // in order, so that longer ones come after
        if (path.starts_with(beginning) && manner.times != 0)
            found = &manner;
    }
    if (!found)
        return {};
    if (found->times > 0)
        --found->times;
    return *found;
}

void TileServer::answer(QTcpSocket* socket, const ServerRequest& request)
{
    const ServerManner manner = mannerFor(request.path);
    if (manner.kind == Kind::silence)
        return;
    if (manner.kind == Kind::reset)
        return socket->abort();
    const auto delay = manner.kind == Kind::drip ? std::chrono::milliseconds(0) : manner.delay;
    QTimer::singleShot(delay, socket, [this, socket, request, manner] { send(socket, request, manner); });
}

TileServer::Answer TileServer::usualAnswer(const std::string& path)
{
    {
        const std::lock_guard lock(m_mutex);
        if (const auto document = m_documents.find(path); document != m_documents.end())
            return document->second;
    }
    TileID tile;
    if (std::sscanf(path.c_str(), "/imagery/%d/%d/%d.jpg", &tile.zoom, &tile.x, &tile.y) == 3)
        return {.body = jpegOf(paintAerial(tile, m_options.airfields))};
    if (std::sscanf(path.c_str(), "/vector/%d/%d/%d", &tile.zoom, &tile.x, &tile.y) == 3 && m_options.vectorTile)
        return {.type = "application/x-protobuf", .body = m_options.vectorTile(tile)};
    return {.status = 404, .type = "text/plain", .body = "none"};
}

TileServer::Answer TileServer::answerOf(const ServerManner& manner, const std::string& path)
{
    switch (manner.kind) {
    case Kind::status: return {.status = manner.status, .type = "text/plain", .body = "no"};
    case Kind::redirect: return {.status = 302, .type = "text/plain", .body = "there"};
    case Kind::html: return {.body = "<!doctype html><html><body>Sign in to this network</body></html>"};
    case Kind::svg:
        return {.body = "<svg xmlns='http://www.w3.org/2000/svg' width='256' height='256'><rect width='9' "
                        "height='9'/></svg>"};
    case Kind::empty: return {};
    case Kind::hugePicture: return {.type = "image/png", .body = hugePng()};
    case Kind::truncated: {
        Answer answer = usualAnswer(path);
        answer.body.chop(answer.body.size() / 2);
        return answer;
    }
    case Kind::serve:
    case Kind::silence:
    case Kind::drip:
    case Kind::endless:
    case Kind::brokenOff:
    case Kind::reset: break;
    }
    return usualAnswer(path);
}

void TileServer::send(QTcpSocket* socket, const ServerRequest& request, const ServerManner& manner)
{
    Answer answer = answerOf(manner, request.path);
    const QByteArray eTag = '"' + QByteArray::number(qHash(answer.body)) + '"';
    const auto known = request.headers.find("if-none-match");
    if (answer.status == 200 && known != request.headers.end() && known->second == eTag.toStdString())
        answer = {.status = 304};
    QByteArray head =
        "HTTP/1.1 " + QByteArray::number(answer.status) + " Answer\r\nETag: " + eTag + "\r\n" + manner.headers;
    if (manner.kind == Kind::redirect)
        head += "Location: " + manner.target + "\r\n";
    if (answer.status != 304)
        head += "Content-Type: " + answer.type + "\r\n";
    const bool isEndless = manner.kind == Kind::endless;
    if (!isEndless && answer.status != 304)
        head += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n";
    socket->write(head + "\r\n");
    if (isEndless) {
        QObject::connect(socket, &QTcpSocket::bytesWritten, socket, [socket] {
            if (socket->isOpen() && socket->bytesToWrite() == 0)
                socket->write(QByteArray(1 << 16, 'x'));
        });
    } else if (manner.kind == Kind::drip) {
        drip(socket, manner.delay);
    } else if (manner.kind == Kind::brokenOff) {
        socket->write(answer.body.chopped(answer.body.size() / 2));
        socket->disconnectFromHost();
    } else {
        socket->write(answer.body);
    }
}

void TileServer::drip(QTcpSocket* socket, std::chrono::milliseconds pause)
{
    auto* timer = new QTimer(socket);
    QObject::connect(timer, &QTimer::timeout, socket, [socket] {
        if (socket->isOpen())
            socket->write("\xFF");
    });
    timer->start(pause);
}

} // namespace ospra
