#include "library/logFileName.h"

#include "library/JumpFileEntry.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(LogFileName, countsAsALogByItsExtension)
{
    struct Row {
        std::string_view fileName;
        bool isLog;
    };
    for (const auto& [fileName, isLog] :
         {Row{"jump.csv", true}, Row{"JUMP.CSV", true}, Row{"a.b.cSv", true}, Row{"a..csv", true}, Row{" .csv", true},
          Row{"sensor.csv.csv", true}, Row{"my sensor.csv", true}, Row{"csv", false}, Row{".csv", false},
          Row{"jump.csv ", false}, Row{"jump.csv.", false}, Row{"jump.csv~", false}, Row{"jump.csvx", false},
          Row{"jumpcsv", false}, Row{"jump.", false}, Row{"", false}, Row{"sensor.csv", false},
          Row{"SENSOR.CSV", false}, Row{"Sensor.Csv", false}}) {
        SCOPED_TRACE(fileName);
        EXPECT_EQ(isLogFileName(fileName), isLog);
    }
}

TEST(LogFileName, givesTheNameOnScreen)
{
    struct Row {
        std::filesystem::path path;
        std::string name;
    };
    for (const auto& [path, name] :
         {Row{"/jumps/my-jump.CSV", "my-jump"}, Row{"/jumps/20-15-30/TRACK.CSV", "20-15-30"},
          Row{"/jumps/Track.csv", "jumps"}, Row{"/jumps/24.05.2024/track.csv", "24.05.2024"},
          Row{"/jumps/Track 1.csv", "Track 1"}, Row{"/jumps/track.1.csv", "track.1"}, Row{"/jumps/a..csv", "a."},
          Row{"/jumps/K\xF6ln.csv", "K\xEF\xBF\xBDln"}, Row{"/K\xF6ln/track.csv", "K\xEF\xBF\xBDln"}}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(logName(path), name);
    }
}

} // namespace
} // namespace ospra
