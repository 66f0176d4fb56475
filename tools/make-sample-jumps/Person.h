#pragma once

#include "tools/make-sample-jumps/Random.h"

#include <string>
#include <vector>

namespace ospra {

enum class LogVersion { one, two };

/// One who jumps and wears a logger. The first of them keeps the logbook, the others are companions.
struct Person {
    std::string name{};                   ///< of the folder, and so on screen
    double fallRate = 53.0;               ///< m/s, lying flat at 2,500 m
    double canopyDrive = 12.0;            ///< m/s
    double canopySink = 4.4;              ///< m/s
    LogVersion version = LogVersion::two; ///< what the logger writes
    int rate = 5;                         ///< Hz, the logger's usual setting
};

/// @param companions at most maxCompanions
[[nodiscard]] std::vector<Person> makePeople(int companions, Random random);

constexpr int maxCompanions = 12;

} // namespace ospra
