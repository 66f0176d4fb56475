#pragma once

#include "core/OspraModel.h"
#include "platform/MemorySettingsStore.h"
#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <map>
#include <memory>
#include <semaphore>
#include <set>
#include <string>

namespace ospra {

/// Folder access that does what a test tells it to. A handle is the path itself.
class FakeFolderAccess : public FolderAccess {
public:
    std::optional<std::string> makeHandle(const std::filesystem::path& folder) override
    {
        ++handlesMade;
        return unreachable.contains(folder) ? std::nullopt : std::optional(folder.native());
    }
    std::optional<ResolvedFolder> resolve(const std::string& handle) override
    {
        if (unreachable.contains(handle))
            return std::nullopt;
        return ResolvedFolder{.path = handle, .isStale = stale.contains(handle)};
    }
    bool start(const std::filesystem::path& folder) override
    {
        if (refused.contains(folder))
            return false;
        ++running[folder];
        return true;
    }
    void stop(const std::filesystem::path& folder) override { --running[folder]; }

    std::set<std::filesystem::path> unreachable, refused, stale;
    std::map<std::filesystem::path, int> running;
    int handlesMade = 0;
};

/// A jump that is like the default one but for its beginning.
inline JumpPlan later(double seconds)
{
    return {.startSeconds = JumpPlan{}.startSeconds + seconds};
}

/// A model on services of the test's own, with a folder that goes with the test.
class ModelTestBed {
public:
    ModelTestBed();
    ~ModelTestBed();

    /// The model; made at the first call, from the settings as they are then.
    [[nodiscard]] OspraModel& model();
    /// Ends the model as the end of the program does; the settings stay.
    void restart() { m_model.reset(); }

    /// A folder for logs, made if it is not there.
    [[nodiscard]] std::filesystem::path folder(const std::string& name);
    /// Writes a version 1 log of a jump. @return its path
    std::filesystem::path addLog(const std::string& folderName, const std::string& fileName, const JumpPlan& plan = {});
    /// Writes any file. @return its path
    std::filesystem::path addFile(const std::string& folderName, const std::string& fileName, const std::string& text);

    /// Opens the folders, and waits until they are scanned.
    void openFolders(const std::string& primary, std::initializer_list<std::string> companions = {});
    /// Selects the next jump of the list and loads it.
    void openNextJump();
    /// The jump of the list whose primary log has this name.
    [[nodiscard]] const JumpGroup& jump(const std::string& name);

    /// Runs the event loop's part until nothing is loading any more.
    void settle();
    /// Waits until all background work that was begun has posted its result, and leaves the results in the mailbox.
    void awaitBackground();
    void deliverMail() { m_services.mailbox->drain(); }

    MemorySettingsStore& settings() { return *m_settings; }
    FakeFolderAccess& access() { return *m_access; }
    bool localeIsMetric = true;

private:
    std::filesystem::path m_root;
    std::shared_ptr<MemorySettingsStore> m_settings = std::make_shared<MemorySettingsStore>();
    std::shared_ptr<FakeFolderAccess> m_access = std::make_shared<FakeFolderAccess>();
    std::binary_semaphore m_mail{0};
    ModelServices m_services;
    std::unique_ptr<OspraModel> m_model;
};

/// A test of one model that needs nothing to be there before it.
class ModelTest : public ::testing::Test {
protected:
    ModelTestBed bed;
    OspraModel& model = bed.model();
};

} // namespace ospra
