#include "core/readLog.h"

#include "library/Jumper.h"
#include "logs/FlySightParseError.h"

#include <new>

namespace ospra {

namespace {

std::string reasonText(FileReadFailure failure)
{
    switch (failure) {
    case FileReadFailure::notFound: return "there is no such file";
    case FileReadFailure::notPermitted: return "you don’t have permission to view it";
    case FileReadFailure::notAFile: return "it isn’t a regular file";
    case FileReadFailure::tooLarge: return "it is too large for this computer’s memory";
    case FileReadFailure::unreadable: return "it couldn’t be read";
    }
    return "it couldn’t be read";
}

ReadLog failure(const std::filesystem::path& path, const std::string& reason)
{
    return {.errorText = "The file “" + lastPathComponent(path) + "” couldn’t be opened because " + reason + "."};
}

} // namespace

ReadLog readLog(const std::filesystem::path& path, const std::string& name, FileReader& reader)
{
    try {
        const std::optional<std::string_view> text = reader.read(path);
        if (!text)
            return failure(path, reasonText(reader.failure()));
        if (!isValidUtf8(*text))
            return failure(path, "it isn’t UTF-8 text");
        return {.file = FlySightFile::parse(*text, name)};
    } catch (const FlySightParseError& error) {
        return {.errorText = error.what()};
    } catch (const std::bad_alloc&) {
        return failure(path, reasonText(FileReadFailure::tooLarge));
    }
}

} // namespace ospra
