#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace ospra {

/// What a stored folder handle stands for now.
struct ResolvedFolder {
    std::filesystem::path path;
    bool isStale = false; ///< the handle still works but no longer describes the folder, and should be made anew
};

/// Grants of access to folders that outlive the program. All calls answer at once: a folder on a disk that does not
/// answer within a fraction of a second counts as one that is not there. Main thread only.
class FolderAccess {
public:
    virtual ~FolderAccess() = default;

    /// An opaque handle to keep in the settings; absent if the folder cannot be reached.
    [[nodiscard]] virtual std::optional<std::string> makeHandle(const std::filesystem::path& folder) = 0;
    /// The folder of a handle; absent if the handle is damaged or its folder is not there now.
    [[nodiscard]] virtual std::optional<ResolvedFolder> resolve(const std::string& handle) = 0;
    /// Begins access. @return false if it is refused; then `stop` must not be called
    [[nodiscard]] virtual bool start(const std::filesystem::path& folder) = 0;
    /// Ends access that `start` granted.
    virtual void stop(const std::filesystem::path& folder) = 0;
};

[[nodiscard]] std::unique_ptr<FolderAccess> makeFolderAccess();

/// The path without ".", ".." and a trailing slash, by its text alone.
[[nodiscard]] std::filesystem::path standardizedPath(const std::filesystem::path& path);

} // namespace ospra
