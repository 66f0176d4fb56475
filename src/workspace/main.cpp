#include "platform/FolderAccess.h"
#include "workspace/OspraApp.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace {

constexpr const char* helpText = R"(Usage: ospra [FOLDER]

Shows skydives from FlySight GPS logs. Starts on the folders of the last run,
or on FOLDER, which then becomes the jumps folder.

Options:
  -h, --help     show this text and leave
  -v, --version  show the version and leave
)";

/// Answers the options that need no window; they are to work without a display, where making a QApplication ends the
/// program. @return whether there was one
bool answerOptions(std::span<char*> arguments)
{
    for (const std::string_view argument : arguments) {
        if (argument == "--")
            return false;
        if (argument == "-h" || argument == "--help") {
            std::fputs(helpText, stdout);
            return true;
        }
        if (argument == "-v" || argument == "--version") {
            std::printf("Ospra %s\n", qUtf8Printable(QCoreApplication::applicationVersion()));
            return true;
        }
    }
    return false;
}

/// What the arguments say that are left once Qt has taken its own.
struct Start {
    std::optional<std::filesystem::path> folder{};
    std::string complaint{}; ///< why the program cannot start that way; empty if it can
    int status = 0;          ///< to leave with after a complaint: 2 for a wrong use, else 1
};

Start readArguments(std::span<char*> arguments)
{
    if (!arguments.empty() && std::string_view(arguments.front()) == "--")
        arguments = arguments.subspan(1);
    else if (!arguments.empty() && arguments.front()[0] == '-')
        return {.complaint = std::string("unknown option ") + arguments.front() + "; see ospra --help", .status = 2};
    if (arguments.empty())
        return {};
    if (arguments.size() > 1)
        return {.complaint = "only one folder can be named; see ospra --help", .status = 2};
    // Asked here, because the model would close the folders of the last run for one that cannot be opened.
    std::error_code error;
    const std::filesystem::path folder = ospra::standardizedPath(std::filesystem::absolute(arguments.front(), error));
    const std::unique_ptr<ospra::FolderAccess> access = ospra::makeFolderAccess();
    if (error || !access->start(folder))
        return {.complaint = std::string("cannot open the folder ") + arguments.front(), .status = 1};
    access->stop(folder);
    return {.folder = folder};
}

} // namespace

int main(int argc, char** argv)
{
    ospra::prepareApplication();
    if (answerOptions(std::span(argv + 1, argv + std::max(argc, 1))))
        return 0;
    QApplication application(argc, argv);
    const Start start = readArguments(std::span(argv + 1, argv + std::max(argc, 1)));
    if (!start.complaint.empty()) {
        std::fprintf(stderr, "ospra: %s\n", start.complaint.c_str());
        return start.status;
    }
    ospra::OspraApp app;
    // Opened before the window, which restores the folders of the last run if none is open.
    if (start.folder)
        app.model().openFolder(*start.folder);
    if (!app.openWindow()) {
        std::fputs("ospra: the window could not be made; is a Qt Quick module missing?\n", stderr);
        return 1;
    }
    return QApplication::exec();
}
