#include "platform/settingsText.h"

#include "fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Whatever is in the settings file, what is read of it is written so that it is read again as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace ospra;
    const SettingsValues values = parseSettings({reinterpret_cast<const char*>(data), size});
    for (const auto& [key, list] : values) {
        require(!key.empty() && !key.starts_with('/') && !key.ends_with('/') && key.find("//") == key.npos,
                "a key of which a part is empty");
        require(!list.empty(), "a value that is no list");
    }
    const std::string text = settingsText(values);
    require(parseSettings(text) == values, "what is written is read as something else");
    require(settingsText(parseSettings(text)) == text, "what is read is written as something else");
    return 0;
}
