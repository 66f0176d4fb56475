#pragma once

#include "tests/support/AerialPicture.h"

#include <QByteArray>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class QTcpServer;
class QTcpSocket;

namespace ospra {

[[nodiscard]] QByteArray jpegOf(const QImage& picture);

/// How the server answers.
struct ServerManner {
    enum class Kind {
        serve,       ///< tiles and documents as they are
        status,      ///< the status with a short text
        silence,     ///< nothing, ever
        drip,        ///< the headers, then a byte now and then
        endless,     ///< a body without end
        html,        ///< a page that says it is a picture
        svg,         ///< a picture of a kind that no tile has, said to be JPEG
        truncated,   ///< half a picture, whole as HTTP goes
        brokenOff,   ///< half of the body that was announced
        empty,       ///< no body
        hugePicture, ///< a PNG header of 20,000 x 20,000 pixels
        redirect,    ///< to `target`
        reset,       ///< the connection goes without an answer
    };
    Kind kind = Kind::serve;
    int status = 200;
    QByteArray headers{"Cache-Control: max-age=86400\r\n"}; ///< further lines, each ended
    QByteArray target{};                                    ///< of a redirect
    std::chrono::milliseconds delay{0};                     ///< before the answer; of `drip` between bytes
    int times = -1; ///< requests that are answered so, then as usual; all where negative
};

struct ServerRequest {
    std::string path{};
    std::map<std::string, std::string> headers{}; ///< names in small letters
};

/// A tile server on this machine, in a thread of its own: `/imagery/{z}/{x}/{y}.jpg` is painted ground,
/// `/vector/{z}/{x}/{y}` comes from a function, and documents can be put anywhere. It can be told to behave badly, and
/// remembers what it was asked. All functions may be called from any thread.
class TileServer {
public:
    struct Options {
        /// The bytes of a vector tile; empty where there is none. Called in the server's thread.
        std::function<QByteArray(const TileID&)> vectorTile{};
        std::vector<PaintedAirfield> airfields{{.middle = {.latitude = 47.0892, .longitude = 7.2861}, .bearing = 50.0}};
    };

    TileServer();
    explicit TileServer(Options options);
    ~TileServer();

    TileServer(const TileServer&) = delete;
    TileServer& operator=(const TileServer&) = delete;

    /// "http://127.0.0.1:" and the port, which stays the same.
    [[nodiscard]] std::string address() const;

    /// From now on, for paths that begin so; the longest beginning holds.
    void behave(const ServerManner& manner, const std::string& beginning = "/");
    /// Puts a document at a path.
    void put(const std::string& path, const QByteArray& body, const QByteArray& type = "application/json");

    /// No port, no connection, until it comes back.
    void vanish();
    void comeBack();

    [[nodiscard]] std::vector<ServerRequest> requests() const;
    /// The number of requests for paths that begin so.
    [[nodiscard]] int count(const std::string& beginning = "/") const;

private:
    class Listener;
    struct Answer {
        int status = 200;
        QByteArray type{"image/jpeg"};
        QByteArray body{};
    };

    void listen();
    void accept(QTcpSocket* socket);
    void read(QTcpSocket* socket);
    void answer(QTcpSocket* socket, const ServerRequest& request);
    void send(QTcpSocket* socket, const ServerRequest& request, const ServerManner& manner);
    void drip(QTcpSocket* socket, std::chrono::milliseconds pause);
    [[nodiscard]] ServerManner mannerFor(const std::string& path);
    [[nodiscard]] Answer usualAnswer(const std::string& path);
    [[nodiscard]] Answer answerOf(const ServerManner& manner, const std::string& path);
    void inThread(std::function<void()> work);
    void doWork();

    const Options m_options;
    mutable std::mutex m_mutex;
    std::map<std::string, ServerManner> m_manners{};
    std::map<std::string, Answer> m_documents{};
    std::vector<ServerRequest> m_requests{};

    std::function<void()> m_work{}; ///< for the thread; empty when it is done
    std::condition_variable m_workDone{};

    quint16 m_port = 0;
    QThread m_thread{};
    Listener* m_server = nullptr; ///< lives in the thread
};

} // namespace ospra
