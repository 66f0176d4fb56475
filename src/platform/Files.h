#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

/// Why a file could not be read.
enum class FileReadFailure {
    notFound,     ///< it has gone
    notPermitted, ///< no right to read it
    notAFile,     ///< a folder, FIFO, socket or device; it was not opened in a way that can block
    tooLarge,     ///< larger than half of the machine's memory, or no memory was left
    unreadable,   ///< the disk or the system refused
};

/// Reads whole files into one buffer that is used again for the next, so that reading thousands touches new memory
/// once. Files are opened read-only, without blocking, and only regular files are read.
class FileReader {
public:
    /// Reads to the end, also if the file grows or shrinks meanwhile.
    /// @return the bytes, valid until the next call; absent on failure, which `failure` then names
    [[nodiscard]] std::optional<std::string_view> read(const std::filesystem::path& path);
    [[nodiscard]] FileReadFailure failure() const { return m_failure; }

private:
    std::optional<std::string_view> fail(FileReadFailure failure);
    std::optional<std::string_view> readAll(int file, std::size_t sizeHint);
    void makeRoom(std::size_t capacity, std::size_t used);

    std::unique_ptr<char[]> m_buffer; // raw, since growing a std::string writes zeros first
    std::size_t m_capacity = 0;
    FileReadFailure m_failure = FileReadFailure::unreadable;
};

/// All entries below a folder, to any depth, the folders themselves included, in no particular order. Hidden entries
/// (a leading dot) and what lies in hidden folders are left out; symbolic links to folders are entries but are not
/// followed. What cannot be opened is passed over, and so is what lies deeper than the system's longest path; no
/// folder, no entries. Never blocks on a special file.
/// @param stop when requested, the walk ends early with what it has
[[nodiscard]] std::vector<std::filesystem::path> walkFolder(const std::filesystem::path& folder,
                                                            const std::stop_token& stop = {});

/// Whether the bytes are valid UTF-8 (RFC 3629: no overlong forms, no surrogates, nothing above U+10FFFF).
[[nodiscard]] bool isValidUtf8(std::string_view bytes) noexcept;

/// The text with every invalid byte sequence replaced by U+FFFD, for showing names of files.
[[nodiscard]] std::string toValidUtf8(std::string_view bytes);

} // namespace ospra
