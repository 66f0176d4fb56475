#include "platform/FolderAccess.h"

#include <cassert>
#include <charconv>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace ospra {

namespace {

/// What tells one folder of a machine from another.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FolderIdentity&, const FolderIdentity&) = default;
};

/// How a folder was found.
struct FolderState {
    FolderIdentity identity{};
    bool isReadable = false; ///< its entries can be listed and opened
};

/// @return absent if there is no folder at the path. May block for as long as the disk likes.
std::optional<FolderState> lookAtFolder(const std::string& path)
{
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return std::nullopt;
    return FolderState{.identity = {.device = status.st_dev, .inode = status.st_ino},
                       .isReadable = ::faccessat(AT_FDCWD, path.c_str(), R_OK | X_OK, AT_EACCESS) == 0};
}

/// The same within a fraction of a second. A disk that does not answer, such as a network mount whose server is gone,
/// holds a thread of its own, which is left behind with its share of the answer; the caller goes on.
std::optional<FolderState> lookAtFolderBriefly(const std::string& path)
{
    constexpr auto patience = std::chrono::milliseconds(300);
    struct Answer {
        std::mutex mutex;
        std::condition_variable isThere;
        bool isGiven = false;
        std::optional<FolderState> state;
    };
    const auto answer = std::make_shared<Answer>();
    try {
        std::thread([answer, path] {
            const std::optional<FolderState> state = lookAtFolder(path);
            const std::lock_guard lock(answer->mutex);
            answer->state = state;
            answer->isGiven = true;
            answer->isThere.notify_one();
        }).detach();
    } catch (const std::system_error&) { // no thread to be had
        return std::nullopt;
    }
    std::unique_lock lock(answer->mutex);
    answer->isThere.wait_for(lock, patience, [&] { return answer->isGiven; });
    return answer->state;
}

// A handle is text in five lines: this mark, device, inode, path, check sum. Only the path can hold further line ends.
constexpr std::string_view handleMark = "Ospra folder 1\n";
constexpr std::size_t checkSumDigits = 16;

/// FNV-1a, 64 bits (Fowler, Noll and Vo), in hexadecimal digits. It finds damage; it is no protection.
std::string checkSum(std::string_view bytes)
{
    std::uint64_t sum = 0xCBF29CE484222325u;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3u;
    std::string text(checkSumDigits, '\0');
    text.resize(
        static_cast<std::size_t>(std::to_chars(text.data(), text.data() + text.size(), sum, 16).ptr - text.data()));
    return std::string(checkSumDigits - text.size(), '0') + text;
}

struct FolderHandle {
    FolderIdentity identity{};
    std::string path;
};

std::string textOf(const FolderHandle& handle)
{
    std::string text(handleMark);
    text += std::to_string(handle.identity.device) + '\n' + std::to_string(handle.identity.inode) + '\n';
    text += handle.path + '\n';
    return text + checkSum(text);
}

/// Takes a number and its line end from the front.
std::optional<std::uint64_t> takeNumberLine(std::string_view& text)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end == text.data() + text.size() || *end != '\n')
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
    return number;
}

/// @return absent if the text is no undamaged handle
std::optional<FolderHandle> handleFrom(std::string_view text)
{
    if (!text.starts_with(handleMark) || text.size() < handleMark.size() + checkSumDigits)
        return std::nullopt;
    const std::string_view checked = text.substr(0, text.size() - checkSumDigits);
    if (text.substr(checked.size()) != checkSum(checked))
        return std::nullopt;
    std::string_view rest = checked.substr(handleMark.size());
    const auto device = takeNumberLine(rest);
    const auto inode = device ? takeNumberLine(rest) : std::nullopt;
    if (!inode || !rest.starts_with('/') || !rest.ends_with('\n'))
        return std::nullopt;
    rest.remove_suffix(1);
    return FolderHandle{.identity = {.device = *device, .inode = *inode}, .path = std::string(rest)};
}

/// Folders of a system without a sandbox: a grant is the path, and access is whatever the permissions give.
class PlainFolderAccess final : public FolderAccess {
public:
    std::optional<std::string> makeHandle(const std::filesystem::path& folder) override
    {
        std::error_code error;
        const std::filesystem::path path = std::filesystem::absolute(folder, error);
        if (error || path.native().find('\0') != std::string::npos)
            return std::nullopt;
        const auto state = lookAtFolderBriefly(path.native());
        if (!state)
            return std::nullopt;
        return textOf({.identity = state->identity, .path = path.native()});
    }

    std::optional<ResolvedFolder> resolve(const std::string& handle) override
    {
        const auto stored = handleFrom(handle);
        const auto state = stored ? lookAtFolderBriefly(stored->path) : std::nullopt;
        if (!state)
            return std::nullopt;
        return ResolvedFolder{.path = stored->path, .isStale = state->identity != stored->identity};
    }

    bool start(const std::filesystem::path& folder) override
    {
        const auto state = lookAtFolderBriefly(folder.native());
        if (!state || !state->isReadable)
            return false;
        ++m_grants[standardizedPath(folder).native()];
        return true;
    }

    void stop(const std::filesystem::path& folder) override
    {
        const auto grant = m_grants.find(standardizedPath(folder).native());
        const bool isRunning = grant != m_grants.end();
        assert(isRunning); // a stop without a start
        if (isRunning && --grant->second == 0)
            m_grants.erase(grant);
    }

private:
    std::map<std::string, int> m_grants; ///< how often access is running, by path
};

} // namespace

std::unique_ptr<FolderAccess> makeFolderAccess()
{
    return std::make_unique<PlainFolderAccess>();
}

std::filesystem::path standardizedPath(const std::filesystem::path& path)
{
    const std::filesystem::path normal = path.lexically_normal();
    if (normal.has_root_directory() && !normal.has_relative_path())
        return "/"; // also for "//"
    return normal.has_filename() || normal.empty() ? normal : normal.parent_path();
}

} // namespace ospra
