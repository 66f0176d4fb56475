#pragma once

#include <cstddef>

namespace ospra {

/// Tells the system that much memory will be filled from its start on, so that it may hand it out in large pages. On
/// Linux this halves the price of first touching the samples of a very long log; elsewhere nothing happens. Memory
/// that is never touched still costs nothing, but for the rest of the last page.
void preferLargePages(void* memory, std::size_t size) noexcept;

} // namespace ospra
