#include "library/JumpFileEntry.h"

#include "library/Jumper.h"
#include "library/logFileName.h"
#include "platform/Files.h"

namespace ospra {

std::string logName(const std::filesystem::path& path)
{
    const std::filesystem::path fileName = path.filename();
    const std::string_view stem = splitFileName(fileName.native()).stem;
    return equalsIgnoringCase(stem, "track") ? lastPathComponent(path.parent_path()) : toValidUtf8(stem);
}

} // namespace ospra
