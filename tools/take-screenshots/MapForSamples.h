#pragma once

#include "tests/support/TileServer.h"

#include <QString>

namespace ospra {

/// A map for the pictures: a server on this machine that paints airfields where the sample jumps land, with invented
/// roads and names, and tells of a release of the program. Nothing else is asked while the pictures are taken.
class MapForSamples {
public:
    MapForSamples();

    /// Writes the list of map sources as the program reads it from a user's data folder.
    /// @return false if the file could not be written
    [[nodiscard]] bool writeSources(const QString& dataFolder) const;
    /// The same with an empty list: a map of the bare ground.
    [[nodiscard]] static bool writeNoSources(const QString& dataFolder);

    /// The address of the feed of releases.
    [[nodiscard]] QString feed() const;

private:
    TileServer m_server;
};

} // namespace ospra
