#include "tests/support/TileServer.h"

#include "tests/support/sampleVectorTile.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

namespace {

using namespace ospra;

/// The manner of a line: its name, and where it has them the status or the milliseconds to wait.
ServerManner mannerOf(const std::string& line)
{
    using Kind = ServerManner::Kind;
    static const std::map<std::string, Kind> kinds{
        {"status", Kind::status},       {"silence", Kind::silence},   {"drip", Kind::drip},
        {"endless", Kind::endless},     {"html", Kind::html},         {"svg", Kind::svg},
        {"truncated", Kind::truncated}, {"broken", Kind::brokenOff},  {"empty", Kind::empty},
        {"huge", Kind::hugePicture},    {"redirect", Kind::redirect}, {"reset", Kind::reset}};
    std::istringstream words(line);
    std::string name;
    int number = 0;
    words >> name >> number;
    const auto kind = kinds.find(name);
    ServerManner manner{.kind = kind == kinds.end() ? Kind::serve : kind->second, .target = "http://localhost/"};
    if (manner.kind == Kind::status)
        manner.status = number;
    else
        manner.delay = std::chrono::milliseconds(number);
    return manner;
}

} // namespace

/// Serves painted ground and an invented country's roads on this machine, prints its address, and goes on until its
/// standard input ends. Each line there tells how to behave from then on: `vanish`, `back`, `serve`, a way to fail. The
/// number of requests that it has had goes to its standard output at the end.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto vectorTile = [](const TileID& tile) { return QByteArray::fromStdString(sampleVectorTile(tile)); };
    TileServer server(TileServer::Options{.vectorTile = vectorTile});
    std::printf("%s\n", server.address().c_str());
    std::fflush(stdout);
    for (std::string line; std::getline(std::cin, line);) {
        if (line == "vanish")
            server.vanish();
        else if (line == "back")
            server.comeBack();
        else
            server.behave(mannerOf(line));
    }
    std::printf("%d\n", server.count());
    return 0;
}
