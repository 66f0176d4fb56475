#include "library/Jumper.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(Jumper, isNamedAfterTheLastComponentOfTheFolder)
{
    struct Row {
        std::filesystem::path folder;
        std::string name;
    };
    for (const auto& [folder, name] :
         {Row{"/home/ann/Jumps", "Jumps"}, Row{"/home/ann/Jumps/", "Jumps"}, Row{"/home/ann/Jumps//", "Jumps"},
          Row{"Jumps", "Jumps"}, Row{"/2024.05", "2024.05"}, Row{"/", "/"}, Row{"", ""},
          Row{"/home/Z\xC3\xBCrich", "Z\xC3\xBCrich"}, Row{"/home/Z\xFCrich", "Z\xEF\xBF\xBDrich"}}) {
        SCOPED_TRACE(folder);
        EXPECT_EQ(makeJumper(folder, 0).name, name);
    }
}

} // namespace
} // namespace ospra
