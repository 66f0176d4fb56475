#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ospra {

/// The folder cannot take the samples; `what()` says why, for the user.
class OutputError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A folder that holds what this program wrote, and a list of it, `.ospra-samples`. A second run replaces the files of
/// that list. Files of anybody else are never written over or removed.
class OutputFolder {
public:
    /// Makes the folder, or empties it of the files of an earlier run.
    /// @throws OutputError for a folder that holds files and no list
    explicit OutputFolder(std::filesystem::path root);

    /// @param name path below the folder, with forward slashes; folders on the way are made
    /// @throws OutputError if there is a file of that name already, or it cannot be written
    void write(std::string_view name, std::string_view content);

private:
    [[nodiscard]] bool holds(const std::filesystem::path& path) const;
    void removeListed();
    void append(const std::filesystem::path& path, std::string_view content) const;

    std::filesystem::path m_root;
    std::filesystem::path m_list;
};

} // namespace ospra
