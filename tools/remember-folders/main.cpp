#include "platform/FolderAccess.h"
#include "platform/SettingsStore.h"

#include <QCoreApplication>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// Writes settings in which the given folders are the opened ones, so that the program starts on them: for
/// demonstrations and tests, with a settings file of their own.
int main(int argc, char** argv)
{
    using namespace ospra;
    const QCoreApplication application(argc, argv);
    if (argc < 3) {
        std::fputs("usage: remember-folders SETTINGS-FILE PRIMARY [COMPANION...]\n", stderr);
        return 2;
    }
    const std::unique_ptr<FolderAccess> access = makeFolderAccess();
    std::vector<std::string> handles;
    for (int index = 2; index < argc; ++index) {
        const std::optional<std::string> handle = access->makeHandle(std::filesystem::absolute(argv[index]));
        if (!handle) {
            std::fprintf(stderr, "remember-folders: cannot reach the folder %s\n", argv[index]);
            return 1;
        }
        handles.push_back(*handle);
    }
    const std::unique_ptr<SettingsStore> settings = makeFileSettingsStore(argv[1]);
    settings->setBytes("directoryBookmark", handles.front());
    settings->setByteList("companionBookmarks", {handles.begin() + 1, handles.end()});
    return 0;
}
