#include "logs/probeLogDates.h"
#include "tests/logs/NaiveLogs.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Whatever the bytes are, the fast probe must give what the plain one gives.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (ospra::probeLogDates(bytes) != ospra::naive::probe(bytes)) {
        std::fputs("The probes differ\n", stderr);
        std::abort();
    }
    return 0;
}
