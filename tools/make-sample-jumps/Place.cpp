#include "tools/make-sample-jumps/Place.h"

#include <array>

namespace ospra {

std::span<const Place> allPlaces()
{
    static constexpr std::array places{
        Place{.latitude = 47.0892,
              .longitude = 7.2861,
              .elevation = 438.0,
              .runwayBearing = 50.0,
              .exitHeight = 4000.0,
              .hoursFromUtc = 1,
              .summerTime = SummerTime::european},
        Place{.latitude = 44.4523,
              .longitude = 6.0331,
              .elevation = 602.0,
              .runwayBearing = 20.0,
              .exitHeight = 4150.0,
              .hoursFromUtc = 1,
              .summerTime = SummerTime::european},
        Place{.latitude = 39.9334,
              .longitude = -3.5117,
              .elevation = 735.0,
              .runwayBearing = 110.0,
              .exitHeight = 4300.0,
              .hoursFromUtc = 1,
              .summerTime = SummerTime::european},
        Place{.latitude = 32.8043,
              .longitude = -111.5928,
              .elevation = 460.0,
              .runwayBearing = 20.0,
              .exitHeight = 4050.0,
              .hoursFromUtc = -7,
              .summerTime = SummerTime::none},
    };
    return places;
}

std::chrono::hours clockOffset(const Place& place, std::chrono::sys_days day)
{
    using namespace std::chrono;
    const hours winter{place.hoursFromUtc};
    if (place.summerTime == SummerTime::none)
        return winter;
    const year thisYear = year_month_day{day}.year();
    const sys_days begin{thisYear / March / Sunday[last]};
    const sys_days end{thisYear / October / Sunday[last]};
    return begin <= day && day < end ? winter + hours{1} : winter;
}

} // namespace ospra
