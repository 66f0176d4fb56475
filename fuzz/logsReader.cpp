#include "logs/FlySightFile.h"
#include "tests/logs/NaiveLogs.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// Whatever the bytes are, the fast reader must give what the plain one gives.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string difference = ospra::naive::difference(ospra::naive::parseFast(text), ospra::naive::parse(text));
    if (!difference.empty()) {
        std::fprintf(stderr, "The readers differ: %s\n", difference.c_str());
        std::abort();
    }
    return 0;
}
