#include "platform/Files.h"

#include <climits>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ospra {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

/// @param extraFlags O_NOFOLLOW for all but the folder from which the walk starts
OpenFolder openFolder(const std::string& path, int extraFlags)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC | extraFlags);
    if (descriptor < 0)
        return nullptr;
    DIR* const folder = ::fdopendir(descriptor);
    if (folder == nullptr)
        ::close(descriptor);
    return OpenFolder(folder);
}

/// Whether the entry is a folder itself, not a link to one. Some file systems do not tell in the listing.
bool isFolder(DIR* parent, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat status{};
    const int folder = ::dirfd(parent);
    return folder >= 0 && ::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::vector<std::filesystem::path> walkFolder(const std::filesystem::path& folder, const std::stop_token& stop)
{
    std::vector<std::filesystem::path> entries;
    std::vector<std::string> pending{folder.native()}; // not recursion: a tree may be deeper than the thread's stack
    int extraFlags = 0;
    while (!pending.empty()) {
        std::string prefix = std::move(pending.back());
        pending.pop_back();
        const OpenFolder open = openFolder(prefix, extraFlags);
        extraFlags = O_NOFOLLOW;
        if (!open)
            continue;
        if (!prefix.ends_with('/'))
            prefix += '/';
        while (const dirent* const entry = ::readdir(open.get())) {
            if (stop.stop_requested())
                return entries;
            if (entry->d_name[0] == '.' || prefix.size() + std::strlen(entry->d_name) >= PATH_MAX)
                continue;
            std::string path = prefix + entry->d_name;
            if (isFolder(open.get(), *entry))
                pending.push_back(path);
            entries.emplace_back(std::move(path));
        }
    }
    return entries;
}

} // namespace ospra
