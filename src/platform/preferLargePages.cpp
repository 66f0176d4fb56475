#include "platform/preferLargePages.h"

#include <memory>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace ospra {

void preferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) noexcept
{
#if defined(__linux__)
    constexpr std::size_t largePage = std::size_t{2} << 20;
    constexpr std::size_t worthwhile = 16 * largePage;
    if (size < worthwhile)
        return;
    void* start = memory;
    std::size_t left = size;
    if (std::align(largePage, largePage, start, left) != nullptr)
        madvise(start, left / largePage * largePage, MADV_HUGEPAGE); // a hint: where it fails, small pages do
#endif
}

} // namespace ospra
