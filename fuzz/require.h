#pragma once

#include <cstdio>
#include <cstdlib>

namespace ospra {

/// Ends the fuzzer with what is wrong, so that it keeps the input.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "This may not be: %s\n", what);
    std::abort();
}

} // namespace ospra
