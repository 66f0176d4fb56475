#include "library/Jumper.h"

#include "platform/Files.h"

#include <string_view>

namespace ospra {

Jumper makeJumper(const std::filesystem::path& folder, std::size_t index)
{
    return {.id = makeUuid(),
            .name = lastPathComponent(folder),
            .directoryURL = folder,
            .color = jumperPalette[index % jumperPalette.size()]};
}

std::string lastPathComponent(const std::filesystem::path& path)
{
    std::string_view text = path.native();
    while (text.size() > 1 && text.ends_with('/'))
        text.remove_suffix(1);
    if (text.size() > 1)
        text.remove_prefix(text.rfind('/') + 1); // npos + 1 is 0: a path without a slash is its own last component
    return toValidUtf8(text);
}

} // namespace ospra
