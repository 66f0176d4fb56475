#include "core/OspraModel.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ospra {

namespace {

constexpr std::string_view primaryKey = "directoryBookmark";
constexpr std::string_view companionsKey = "companionBookmarks";

bool isOpen(const std::vector<Jumper>& jumpers, const std::filesystem::path& folder)
{
    return std::ranges::any_of(jumpers, [standardized = standardizedPath(folder)](const Jumper& jumper) {
        return standardizedPath(jumper.directoryURL) == standardized;
    });
}

} // namespace

Jumper OspraModel::appendJumper(const std::filesystem::path& folder)
{
    Jumper jumper = makeJumper(folder, m_jumpers.size());
    m_jumperAccessingURLs.emplace(jumper.id, folder);
    m_jumpers.push_back(jumper);
    return jumper;
}

void OspraModel::stopAccess(const Uuid& jumperID)
{
    const auto access = m_jumperAccessingURLs.find(jumperID);
    if (access == m_jumperAccessingURLs.end())
        return;
    m_services.folders->stop(access->second);
    m_jumperAccessingURLs.erase(access);
}

void OspraModel::openFolder(const std::filesystem::path& folder)
{
    const bool granted = m_services.folders->start(folder);
    if (const std::optional<std::string> handle = m_services.folders->makeHandle(folder))
        m_services.settings->setBytes(primaryKey, *handle);
    for (const Jumper& jumper : m_jumpers)
        stopAccess(jumper.id);
    m_jumpers.clear();
    m_jumperAccessingURLs.clear();
    // The companions' handles stay stored: they come back at the next start.
    if (granted)
        appendJumper(folder);
    emit jumpersChanged();
    if (granted)
        rebuildGroups();
}

void OspraModel::addCompanion(const std::filesystem::path& folder)
{
    if (isOpen(m_jumpers, folder) || !m_services.folders->start(folder))
        return;
    std::vector<std::string> handles =
        m_services.settings->byteList(companionsKey).value_or(std::vector<std::string>{});
    if (std::optional<std::string> handle = m_services.folders->makeHandle(folder)) {
        handles.push_back(std::move(*handle));
        m_services.settings->setByteList(companionsKey, handles);
    }
    appendJumper(folder);
    emit jumpersChanged();
    rebuildGroups();
}

void OspraModel::removeCompanion(const Uuid& jumperID)
{
    if (m_jumpers.empty() || m_jumpers.front().id == jumperID)
        return;
    stopAccess(jumperID);
    std::erase_if(m_jumpers, [&jumperID](const Jumper& jumper) { return jumper.id == jumperID; });
    std::vector<std::string> handles;
    for (const Jumper& jumper : m_jumpers) {
        if (jumper.id == m_jumpers.front().id)
            continue;
        if (std::optional<std::string> handle = m_services.folders->makeHandle(jumper.directoryURL))
            handles.push_back(std::move(*handle));
    }
    m_services.settings->setByteList(companionsKey, handles);
    emit jumpersChanged();
    rebuildGroups();
}

void OspraModel::closeFolder()
{
    // A scan or load that ends later must not fill the emptied model again.
    ++m_jumpGroupsRevision;
    ++m_loadRevision;
    for (const auto& [id, folder] : m_jumperAccessingURLs)
        m_services.folders->stop(folder);
    m_jumpers.clear();
    m_jumperAccessingURLs.clear();
    emit jumpersChanged();
    setJumpGroups({});
    setSelection(std::nullopt, std::nullopt);
    setTracks({});
    setChartData({});
    m_distanceData.clear();
    m_horizontalDistanceData.clear();
    emit distanceDataChanged();
    clearVisibleData();
    setHiddenTrackIDs({});
    storeHoveredSeconds(std::nullopt);
    setZoomRange(std::nullopt);
    setActiveZoomMode(ZoomMode::freefallAndCanopy);
    setOverviewSelectedDay(std::nullopt);
    setErrorMessage(std::nullopt);
    setLoading(false);
    m_services.settings->remove(primaryKey);
    m_services.settings->remove(companionsKey);
}

void OspraModel::restoreFolders()
{
    if (!m_jumpers.empty())
        return;
    const std::optional<std::string> handle = m_services.settings->bytes(primaryKey);
    if (!handle)
        return;
    const std::optional<ResolvedFolder> primary = m_services.folders->resolve(*handle);
    if (!primary)
        return;
    if (primary->isStale) {
        if (const std::optional<std::string> renewed = m_services.folders->makeHandle(primary->path))
            m_services.settings->setBytes(primaryKey, *renewed);
    }
    if (!m_services.folders->start(primary->path))
        return;
    appendJumper(primary->path);
    for (const std::string& companionHandle :
         m_services.settings->byteList(companionsKey).value_or(std::vector<std::string>{})) {
        const std::optional<ResolvedFolder> companion = m_services.folders->resolve(companionHandle);
        if (companion && !isOpen(m_jumpers, companion->path) && m_services.folders->start(companion->path))
            appendJumper(companion->path);
    }
    emit jumpersChanged();
    rebuildGroups();
}

} // namespace ospra
