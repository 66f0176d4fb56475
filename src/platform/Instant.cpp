#include "platform/Instant.h"

#include <chrono>

namespace ospra {

Instant currentInstant()
{
    using namespace std::chrono;
    const auto sinceEpoch = duration_cast<milliseconds>(system_clock::now().time_since_epoch());
    return Instant{.seconds = static_cast<double>(sinceEpoch.count()) / 1000.0};
}

} // namespace ospra
