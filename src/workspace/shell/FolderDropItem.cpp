#include "workspace/shell/FolderDropItem.h"

#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace ospra {

namespace {

std::vector<std::filesystem::path> localPaths(const QMimeData& data)
{
    std::vector<std::filesystem::path> paths;
    const QList<QUrl> addresses = data.urls();
    for (const QUrl& address : addresses) {
        if (address.isLocalFile())
            paths.emplace_back(QFile::encodeName(address.toLocalFile()).toStdString());
    }
    return paths;
}

/// May take long: the folder may lie on a disk that sleeps or a server that is gone.
std::optional<std::filesystem::path> firstFolder(const std::vector<std::filesystem::path>& paths)
{
    const auto folder = std::ranges::find_if(paths, [](const std::filesystem::path& path) {
        std::error_code error;
        return std::filesystem::is_directory(path, error);
    });
    return folder == paths.end() ? std::nullopt : std::optional(*folder);
}

/// Answers another program's offer. The folder is only looked at, whatever is proposed: it shall not be removed there
/// as if it were moved. Each answer says so, as some programs go by the last one before the drop.
void takeAsCopy(QDropEvent& event, bool isTaken)
{
    event.setAccepted(isTaken);
    if (isTaken)
        event.setDropAction(Qt::CopyAction);
}

} // namespace

FolderDropItem::FolderDropItem(QQuickItem* parent) : QQuickItem(parent), m_answers(makeEventLoopMailbox())
{
    setFlag(ItemAcceptsDrops);
}

void FolderDropItem::dragEnterEvent(QDragEnterEvent* event)
{
    std::vector<std::filesystem::path> paths = localPaths(*event->mimeData());
    takeAsCopy(*event, !paths.empty());
    if (paths.empty())
        return;
    lookFor(std::move(paths));
    setInside(true);
}

void FolderDropItem::dragMoveEvent(QDragMoveEvent* event)
{
    takeAsCopy(*event, m_isLooking || m_folder);
}

void FolderDropItem::dragLeaveEvent(QDragLeaveEvent*)
{
    setInside(false);
}

void FolderDropItem::dropEvent(QDropEvent* event)
{
    const Role role = roleFor(*event);
    takeAsCopy(*event, m_isLooking || m_folder);
    setInside(false);
    if (m_folder)
        open(*m_folder, role);
    else if (m_isLooking)
        m_awaited = role;
}

void FolderDropItem::lookFor(std::vector<std::filesystem::path> paths)
{
    if (!m_pool)
        m_pool = std::make_unique<TaskPool>(1);
    m_folder.reset();
    m_awaited.reset();
    m_isLooking = true;
    const int revision = ++m_revision;
    m_pool->post([answers = m_answers, item = QPointer(this), revision,
                  paths = std::move(paths)](const std::stop_token& /*stop*/) {
        answers->post([item, revision, folder = firstFolder(paths)] {
            if (item)
                item->finishLooking(revision, folder);
        });
    });
}

void FolderDropItem::finishLooking(int revision, const std::optional<std::filesystem::path>& folder)
{
    if (revision != m_revision)
        return;
    m_isLooking = false;
    m_folder = folder;
    emit isOfferedChanged();
    if (const std::optional<Role> role = std::exchange(m_awaited, std::nullopt); role && m_folder)
        open(*m_folder, *role);
}

void FolderDropItem::setInside(bool isInside)
{
    m_isInside = isInside;
    emit isOfferedChanged();
}

void FolderDropItem::open(const std::filesystem::path& folder, Role role)
{
    if (!m_source)
        return;
    if (role == Role::companion && m_source->hasJumpers())
        m_source->addCompanion(folder);
    else
        m_source->openFolder(folder);
}

FolderDropItem::Role FolderDropItem::roleFor(const QDropEvent& event)
{
    const bool isShiftHeld = event.modifiers().testFlag(Qt::ShiftModifier) ||
                             QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
    return isShiftHeld ? Role::companion : Role::primary;
}

} // namespace ospra
