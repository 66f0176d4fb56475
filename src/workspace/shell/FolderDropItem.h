#pragma once

#include "core/OspraModel.h"
#include "platform/TaskPool.h"

#include <QDropEvent>
#include <QQmlEngine>
#include <QQuickItem>

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace ospra {

/// The area that takes dropped folders. A folder becomes the primary jumper's; with Shift it becomes a companion's, if
/// there is a primary jumper. Whether what is dragged holds a folder is found out in the background while it is over
/// the area; the first folder counts, and where there is none the drop does nothing.
class FolderDropItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OspraModel* source MEMBER m_source NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(bool isOffered READ isOffered NOTIFY isOfferedChanged)

public:
    explicit FolderDropItem(QQuickItem* parent = nullptr);

    /// A folder is held over the area.
    [[nodiscard]] bool isOffered() const { return m_isInside && m_folder.has_value(); }

signals:
    void sourceChanged();
    void isOfferedChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum class Role { primary, companion };

    void lookFor(std::vector<std::filesystem::path> paths);
    void finishLooking(int revision, const std::optional<std::filesystem::path>& folder);
    void setInside(bool isInside);
    void open(const std::filesystem::path& folder, Role role);
    [[nodiscard]] static Role roleFor(const QDropEvent& event);

    OspraModel* m_source = nullptr;
    bool m_isInside = false;
    bool m_isLooking = false;
    int m_revision = 0; ///< of what is dragged; the answer about an earlier drag changes nothing
    std::optional<std::filesystem::path> m_folder;
    std::optional<Role> m_awaited; ///< dropped before the answer was there
    std::shared_ptr<Mailbox> m_answers;
    std::unique_ptr<TaskPool>
        m_pool; ///< made for the first drag, since most runs see none; last, so that it ends first
};

} // namespace ospra
