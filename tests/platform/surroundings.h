#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <sys/types.h>
#include <unistd.h>

namespace ospra {

/// A folder of its own for a test, gone afterwards. Every user may look into it.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "ospra-test-XXXXXX").string();
        m_path = ::mkdtemp(pattern.data());
        std::filesystem::permissions(m_path, std::filesystem::perms::all);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// Writes a file, making its folder if need be. @return its path
    std::filesystem::path write(const std::string& name, const std::string& text) const
    {
        const std::filesystem::path path = m_path / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

private:
    std::filesystem::path m_path;
};

/// Sets an environment variable for a while, or takes it away.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::optional<std::string>& value) : m_name(name)
    {
        if (const char* const previous = std::getenv(name))
            m_previous = previous;
        apply(value);
    }
    ~ScopedVariable() { apply(m_previous); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

    void apply(const std::optional<std::string>& value) const
    {
        if (value)
            ::setenv(m_name, value->c_str(), 1);
        else
            ::unsetenv(m_name);
    }

private:
    const char* m_name;
    std::optional<std::string> m_previous;
};

/// Gives up the rights of the superuser for a while, to whom no file is closed. Without effect for other users.
class OrdinaryUser {
public:
    OrdinaryUser() : m_user(::geteuid())
    {
        if (m_user == 0)
            m_isSwitched = ::seteuid(65534) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_isSwitched && ::seteuid(m_user) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_user;
    bool m_isSwitched = false;
};

} // namespace ospra
