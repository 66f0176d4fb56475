#include "platform/settingsText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ospra {
namespace {

using Texts = std::vector<std::string>;

TEST(SettingsText, listsAreReadAsPeopleAndOtherProgramsWriteThem)
{
    struct Row {
        std::string_view written;
        Texts list;
    };
    for (const auto& [written, list] :
         {Row{"true", {"true"}}, Row{"", {""}}, Row{" a b ,\tc\t", {"a b", "c"}}, Row{"a,,b,", {"a", "", "b", ""}},
          Row{"\"a, b\" , \" c \"", {"a, b", " c "}}, Row{"x\"y z\"w", {"xy zw"}}, Row{"\"open, end", {"open, end"}},
          Row{R"(\"q\", \\, \n\t)", {"\"q\"", "\\", "\n\t"}}, Row{R"(\x41\101\0)", {std::string("AA\0", 3)}},
          Row{R"(\xe4\x1fa82\xd800\xffffffffffff)", {"\xC3\xA4\xF0\x9F\xAA\x82\xEF\xBF\xBD\xEF\xBF\xBD"}},
          Row{R"(\x20z\x20, \xg, \)", {" z ", "g", ""}}, Row{R"(\x20\x)", {" "}}, Row{"@@, @@@x", {"@", "@@x"}},
          Row{"@Variant(\\0\\0), @Invalid()", {std::string("@Variant(\0\0)", 12), "@Invalid()"}}}) {
        SCOPED_TRACE(written);
        EXPECT_THAT(parseSettings("[General]\nkey=" + std::string(written) + "\n"),
                    testing::ElementsAre(testing::Pair("key", list)));
    }
}

TEST(SettingsText, keysCarryTheirSection)
{
    const SettingsValues values =
        parseSettings("\xEF\xBB\xBF"
                      "before=1\r\n; note=1\r\n# note=1\r\n\r\n[ General ]\rkey = 2\n"
                      "no value\n[name]\nkey=3\na\\b=4\n%41%zz%4=5\n//c//=6\n[%General]\nkey=7\n"
                      "[a/b]\nkey=8\n[]\n=9\n[open\nkey=10\n[a]b=11\n[name]\nkey=12");
    const SettingsValues expected{{"before", {"1"}},      {"key", {"10"}},        {"name/key", {"12"}},
                                  {"name/a/b", {"4"}},    {"name/A%zz%4", {"5"}}, {"name/c", {"6"}},
                                  {"General/key", {"7"}}, {"a/b/key", {"8"}},     {"[a]b", {"11"}}};
    EXPECT_EQ(values, expected);
}

TEST(SettingsText, isWrittenInSections)
{
    EXPECT_EQ(settingsText({}), "");
    EXPECT_EQ(
        settingsText({{"useAGL", {"true"}}, {"enabledSeries", {"texts", "Dive Angle", "Elevation"}}, {"x/y", {""}}}),
        "[General]\nenabledSeries=texts, \"Dive Angle\", Elevation\nuseAGL=true\n\n[x]\ny=\"\"\n");
}

} // namespace
} // namespace ospra
