#include "tests/support/TileServer.h"

#include "tests/support/sampleVectorTile.h"

#include <QCoreApplication>

#include <cstdio>
#include <string>

/// Serves painted ground and an invented country's roads on this machine, prints its address, and goes on until its
/// standard input ends. The number of requests that it has had goes to its standard output then.
int main(int argc, char** argv)
{
    using namespace ospra;
    const QCoreApplication application(argc, argv);
    const auto vectorTile = [](const TileID& tile) { return QByteArray::fromStdString(sampleVectorTile(tile)); };
    const TileServer server(TileServer::Options{.vectorTile = vectorTile});
    std::printf("%s\n", server.address().c_str());
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    std::printf("%d\n", server.count());
    return 0;
}
