#pragma once

#include "platform/Mailbox.h"
#include "tilemap/client/TileStore.h"

#include <QObject>

#include <memory>
#include <thread>

namespace ospra {

/// The tiles that all maps of the process share, as the list of sources on this machine says. While there is no such
/// object, or no list, maps show the bare ground.
class MapImagery : public QObject {
    Q_OBJECT

public:
    /// Has the list read in the background.
    MapImagery();
    /// With tiles of one's own.
    explicit MapImagery(std::unique_ptr<TileStore> store);
    ~MapImagery() override;

    /// The one that there is; null where there is none.
    [[nodiscard]] static MapImagery* current() { return s_current; }

    /// Null until the list has been read.
    [[nodiscard]] TileStore* store() const { return m_store.get(); }

signals:
    void storeChanged();

private:
    void open(std::vector<MapSource> sources);

    static MapImagery* s_current;

    std::unique_ptr<TileStore> m_store;
    std::shared_ptr<Mailbox> m_mailbox;
    std::jthread m_reading; // last, so that it is joined before what it uses goes
};

} // namespace ospra
