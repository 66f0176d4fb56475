#include "tools/make-sample-jumps/Person.h"

#include <array>

namespace ospra {

std::vector<Person> makePeople(int companions, Random random)
{
    constexpr std::array<const char*, maxCompanions + 1> names{
        "Logbook", "Maya", "Jonas", "Priya", "Tom", "Ines", "Luca", "Hanna", "Omar", "Freya", "Diego", "Mei", "Noah"};
    std::vector<Person> people;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(companions); ++i) {
        Random own = random.fork(i);
        people.push_back({.name = names.at(i),
                          .fallRate = own.between(51.5, 54.0),
                          .canopyDrive = own.between(10.8, 13.2),
                          .canopySink = own.between(3.6, 4.4),
                          .version = i == 2 || i == 5 || i == 9 ? LogVersion::one : LogVersion::two,
                          .rate = i % 4 == 3 ? 10 : 5});
    }
    return people;
}

} // namespace ospra
