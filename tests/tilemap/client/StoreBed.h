#pragma once

#include "tests/support/TileServer.h"
#include "tilemap/client/TileStore.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ospra {

/// Runs the event loop until the condition holds, for at most ten seconds.
[[nodiscard]] inline bool waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 10'000);
}

/// Tile stores that ask a server of the test's own. A second of waiting is 50 ms unless told otherwise.
class StoreBed {
public:
    StoreBed();

    [[nodiscard]] MapSource imagery() const;
    /// Ends the store there was, and makes one.
    TileStore& start(const std::vector<MapSource>& sources);
    TileStore& start() { return start({imagery()}); }
    void stop() { m_store.reset(); }

    [[nodiscard]] TileStore& store() { return *m_store; }
    /// Wants one tile and waits until it is ready or missing.
    [[nodiscard]] TileState fetch(const TileKey& key);
    /// The same in another run.
    [[nodiscard]] TileState fetchAnew(const TileKey& key);
    [[nodiscard]] bool becomes(TileState state, const TileKey& key);

    TileServer server;
    TileStoreOptions options;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<TileStore> m_store;
};

/// A test with one bed.
class StoreTest : public testing::Test, protected StoreBed {};

/// A tile at zoom 12; every `x` is another one.
[[nodiscard]] inline TileKey tileAt(int x)
{
    return {.tile = {.zoom = 12, .x = x, .y = 1400}};
}

/// The tiles at zoom 12 from `first` on.
[[nodiscard]] std::vector<TileKey> tilesFrom(int first, int count);

[[nodiscard]] std::string pathOf(const TileKey& key);

} // namespace ospra
