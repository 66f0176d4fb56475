#include "tools/make-sample-jumps/OutputFolder.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <vector>

namespace ospra {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view firstLine =
    "Files that make-sample-jumps wrote into this folder. It replaces them when it runs again.";

[[noreturn]] void refuse(const fs::path& path, std::string_view why)
{
    throw OutputError(path.string() + ": " + std::string(why));
}

bool isThere(const fs::path& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

std::vector<std::string> listedFiles(const fs::path& list)
{
    std::ifstream stream(list);
    std::string line;
    if (!std::getline(stream, line) || line != firstLine)
        refuse(list, "is not a list of sample files; remove it by hand if the folder holds nothing of value");
    std::vector<std::string> names;
    while (std::getline(stream, line))
        names.push_back(line);
    return names;
}

} // namespace

OutputFolder::OutputFolder(fs::path root) : m_root(std::move(root)), m_list(m_root / ".ospra-samples")
{
    std::error_code error;
    if (fs::exists(m_root, error) && !fs::is_directory(m_root, error))
        refuse(m_root, "is not a folder");
    fs::create_directories(m_root, error);
    if (!fs::is_directory(m_root))
        refuse(m_root, "cannot be made");
    m_root = fs::canonical(m_root);
    m_list = m_root / ".ospra-samples";

    if (isThere(m_list))
        removeListed();
    else if (!fs::is_empty(m_root, error) || error)
        refuse(m_root, "holds files that are not samples; choose a new folder");
    append(m_list, std::string(firstLine) + "\n");
}

/// Whether a path stays inside the folder, links and all.
bool OutputFolder::holds(const fs::path& path) const
{
    std::error_code error;
    const fs::path parent = fs::weakly_canonical(path.parent_path(), error);
    return !error && std::ranges::mismatch(m_root, parent).in1 == m_root.end();
}

void OutputFolder::removeListed()
{
    std::error_code ignored;
    for (const std::string& name : listedFiles(m_list)) {
        const fs::path file = m_root / name;
        if (!holds(file) || fs::is_directory(fs::symlink_status(file, ignored)))
            continue;
        fs::remove(file, ignored);
        // A folder that still holds something refuses to go, which ends the way up.
        for (fs::path folder = file.parent_path(); folder != m_root && fs::remove(folder, ignored);)
            folder = folder.parent_path();
    }
    fs::remove(m_list, ignored);
}

void OutputFolder::write(std::string_view name, std::string_view content)
{
    const fs::path file = m_root / name;
    std::error_code error;
    if (isThere(file))
        refuse(file, "is there already and is not a sample file");
    if (!holds(file))
        refuse(file, "lies outside the folder of the samples");
    fs::create_directories(file.parent_path(), error);
    // Listed first: a run that is cut short leaves nothing that the next run would take for somebody else's.
    append(m_list, std::string(name) + "\n");
    append(file, content);
}

void OutputFolder::append(const fs::path& path, std::string_view content) const
{
    std::ofstream stream(path, std::ios::binary | std::ios::app);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream)
        refuse(path, "cannot be written");
}

} // namespace ospra
