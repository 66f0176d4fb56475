#include "platform/SettingsStore.h"

#include "surroundings.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace ospra {
namespace {

using Texts = std::vector<std::string>;

class SettingsStoreTest : public testing::Test {
protected:
    [[nodiscard]] std::string path() const { return m_folder.path() / "sub/Ospra.conf"; }
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

    /// Hands control to the event loop until the condition holds, for at most `milliseconds`.
    template <typename Condition>
    static bool runEventLoopUntil(Condition condition, int milliseconds = 10'000)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
        while (!condition() && std::chrono::steady_clock::now() < end)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return condition();
    }

private:
    TemporaryFolder m_folder;
    int m_count = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_count, m_arguments};
};

std::string allBytes()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

const std::vector<Texts>& textLists()
{
    static const std::vector<Texts> lists{{},
                                          {""},
                                          {"", ""},
                                          {"Elevation"},
                                          {"Elevation", "Vertical Speed"},
                                          {"true"},
                                          {"texts"},
                                          {"a, b", " c ", "d;e=f", "\"q\"", "\\x41", "@Invalid()", "@", "%20", "100%"},
                                          {"H\xC3\xB6he", "\xE6\x97\xA5\xE6\x9C\xAC", "\xF0\x9F\xAA\x82"},
                                          {std::string("a\nb\r\n\tc\0d", 9)}};
    return lists;
}

TEST_F(SettingsStoreTest, valuesComeBackAsTheyWereAlsoFromTheFile)
{
    const std::vector<Texts> byteLists{{}, {""}, {allBytes()}, {"", allBytes(), ","}};
    const Texts byteStrings{"", "x", "@ByteArray(x)", allBytes()};
    const auto check = [&](const SettingsStore& store) {
        for (std::size_t i = 0; i < textLists().size(); ++i)
            EXPECT_EQ(store.texts("texts" + std::to_string(i)), textLists()[i]) << i;
        for (std::size_t i = 0; i < byteLists.size(); ++i)
            EXPECT_EQ(store.byteList("byteList" + std::to_string(i)), byteLists[i]) << i;
        for (std::size_t i = 0; i < byteStrings.size(); ++i)
            EXPECT_EQ(store.bytes("bytes" + std::to_string(i)), byteStrings[i]) << i;
        EXPECT_TRUE(store.boolean("on"));
        EXPECT_FALSE(store.boolean("off"));
        EXPECT_TRUE(store.contains("off"));
        EXPECT_FALSE(store.contains("removed"));
    };
    const auto store = makeFileSettingsStore(path());
    for (std::size_t i = 0; i < textLists().size(); ++i)
        store->setTexts("texts" + std::to_string(i), textLists()[i]);
    for (std::size_t i = 0; i < byteLists.size(); ++i)
        store->setByteList("byteList" + std::to_string(i), byteLists[i]);
    for (std::size_t i = 0; i < byteStrings.size(); ++i)
        store->setBytes("bytes" + std::to_string(i), byteStrings[i]);
    store->setBoolean("on", true);
    store->setBoolean("off", false);
    store->setBytes("removed", "x");
    store->remove("removed");
    check(*store);
    // A copy under another name, since stores of one file in one process share what they have read.
    std::filesystem::copy_file(path(), folder().path() / "copy.conf");
    check(*makeFileSettingsStore(folder().path() / "copy.conf"));
}

TEST_F(SettingsStoreTest, aValueOfAnotherKindIsAbsent)
{
    const auto store = makeFileSettingsStore(path());
    store->setBoolean("boolean", true);
    store->setTexts("texts", {"true"});
    store->setTexts("noTexts", {});
    store->setBytes("bytes", "1");
    store->setByteList("byteList", {"1"});
    for (const char* const key : {"boolean", "texts", "noTexts", "bytes", "byteList", "absent"}) {
        SCOPED_TRACE(key);
        const std::string name = key;
        EXPECT_EQ(store->contains(key), name != "absent");
        EXPECT_EQ(store->boolean(key), name == "boolean");
        EXPECT_EQ(store->texts(key).has_value(), name == "texts" || name == "noTexts");
        EXPECT_EQ(store->bytes(key).has_value(), name == "bytes");
        EXPECT_EQ(store->byteList(key).has_value(), name == "byteList");
    }
}

TEST_F(SettingsStoreTest, booleansAreReadGenerously)
{
    folder().write("hand.conf", "[General]\na=true\nb=1\nc=YES\nd=True\ne=2.5\nf=-1\n"
                                "n=false\no=0\np=no\nq=\nr=maybe\ns=nan\nt=true, true\nu=@Invalid()\n");
    const auto store = makeFileSettingsStore(folder().path() / "hand.conf");
    for (const char* const key : {"a", "b", "c", "d", "e", "f"})
        EXPECT_TRUE(store->boolean(key)) << key;
    for (const char* const key : {"n", "o", "p", "q", "r", "s", "t", "u"}) {
        EXPECT_FALSE(store->boolean(key)) << key;
        EXPECT_TRUE(store->contains(key)) << key;
    }
}

TEST_F(SettingsStoreTest, rubbishGivesAbsentValuesAndCanBeWrittenOver)
{
    const auto original = makeFileSettingsStore(folder().path() / "whole.conf");
    original->setByteList("list", {allBytes(), "second"});
    original->setTexts("texts", {"a", "b"});
    std::ifstream stream(folder().path() / "whole.conf", std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    std::vector<std::string> contents{allBytes() + allBytes(),
                                      "[General",
                                      "no key at all\n=\n[]\n",
                                      "[General]\nlist=",
                                      "[General]\nlist=@Variant(\\0\\0\\0\\x7f\\xff\\xff)\ntexts=@ByteArray(texts)\n",
                                      "[General]\nlist=byteList, %%%%\ntexts=@Rect(1 2 3 4)\n"};
    for (std::size_t length = 0; length < whole.size(); length += 7)
        contents.push_back(whole.substr(0, length));
    int number = 0;
    for (const std::string& content : contents) {
        SCOPED_TRACE(testing::PrintToString(content));
        const std::string name = "rubbish" + std::to_string(++number) + ".conf";
        const auto store = makeFileSettingsStore(folder().write(name, content));
        EXPECT_FALSE(store->boolean("list"));
        EXPECT_FALSE(store->bytes("list"));
        const auto list = store->byteList("list");
        EXPECT_TRUE(!list || list->size() < 2 || *list == Texts({allBytes(), "second"}) || (*list)[1] != "second");
        store->setTexts("texts", {"new"});
        EXPECT_EQ(store->texts("texts"), Texts{"new"});
        std::filesystem::copy_file(folder().path() / name, folder().path() / ("copy-" + name));
        EXPECT_EQ(makeFileSettingsStore(folder().path() / ("copy-" + name))->texts("texts"), Texts{"new"});
    }
}

TEST_F(SettingsStoreTest, objectsInTheFileAreNotUnpacked)
{
    std::string nested = "[General]\nuseAGL=false\nlist=@Variant(";
    for (int depth = 0; depth < 50'000; ++depth) // lists in lists, enough to use up a stack
        nested += R"(\0\0\0\t\0\0\0\x1)";
    const auto store = makeFileSettingsStore(folder().write("nested.conf", nested + ")\n"));
    EXPECT_TRUE(store->contains("list"));
    EXPECT_FALSE(store->byteList("list"));
    EXPECT_TRUE(store->contains("useAGL"));

    const std::string tooLarge = "[General]\nuseAGL=true\nlist=" + std::string(1 << 20, 'x') + "\n";
    EXPECT_FALSE(makeFileSettingsStore(folder().write("large.conf", tooLarge))->contains("useAGL"));
}

TEST_F(SettingsStoreTest, aStoreThatCannotBeWrittenKeepsValuesForTheRun)
{
    const auto check = [](SettingsStore& store) {
        int calls = 0;
        store.observe([&] { ++calls; });
        store.setBoolean("useMetric", true);
        store.setTexts("enabledSeries", {"Elevation"});
        EXPECT_TRUE(runEventLoopUntil([&] { return calls > 0; }));
        EXPECT_TRUE(store.boolean("useMetric"));
        EXPECT_EQ(store.texts("enabledSeries"), Texts{"Elevation"});
        store.remove("useMetric");
        EXPECT_FALSE(store.contains("useMetric"));
        EXPECT_EQ(store.texts("enabledSeries"), Texts{"Elevation"});
    };
    check(*makeFileSettingsStore(folder().write("file", "") / "below/Ospra.conf"));
    const std::filesystem::path closed = folder().write("closed/Ospra.conf", "[General]\nkept=true\n");
    using std::filesystem::perms;
    constexpr perms write = perms::owner_write | perms::group_write | perms::others_write;
    std::filesystem::permissions(closed, write, std::filesystem::perm_options::remove);
    std::filesystem::permissions(closed.parent_path(), write, std::filesystem::perm_options::remove);
    const OrdinaryUser user;
    const auto store = makeFileSettingsStore(closed);
    check(*store);
    EXPECT_TRUE(store->boolean("kept"));
}

TEST_F(SettingsStoreTest, ownWritesAreToldOncePerBurstAndLater)
{
    const auto store = makeFileSettingsStore(path());
    int calls = 0;
    store->observe([&] { ++calls; });
    store->setBoolean("a", true);
    store->setTexts("b", {"x"});
    store->remove("a");
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(runEventLoopUntil([&] { return calls > 0; }));
    EXPECT_FALSE(runEventLoopUntil([&] { return calls > 1; }, 300)) << "the own change of the file is no second change";
    store->setBoolean("a", true);
    store->observe({});
    store->setBoolean("a", false);
    EXPECT_FALSE(runEventLoopUntil([&] { return calls > 1; }, 100));
}

TEST_F(SettingsStoreTest, anObserverMayWriteAndEndItself)
{
    const auto store = makeFileSettingsStore(path());
    int calls = 0;
    store->observe([&] {
        if (++calls == 3)
            store->observe({});
        store->setBoolean("a", calls % 2 == 0);
    });
    store->setBoolean("a", true);
    EXPECT_TRUE(runEventLoopUntil([&] { return calls == 3; }));
    EXPECT_FALSE(runEventLoopUntil([&] { return calls > 3; }, 100));
}

TEST_F(SettingsStoreTest, changesByOthersAreNoticed)
{
    const auto store = makeFileSettingsStore(path());
    int calls = 0;
    store->observe([&] { ++calls; });

    const auto second = makeFileSettingsStore(path()); // the file does not exist yet
    second->setBoolean("useMetric", true);
    EXPECT_TRUE(runEventLoopUntil([&] { return store->boolean("useMetric") && calls > 0; }));

    calls = 0; // written in place, as an editor may do
    folder().write("sub/Ospra.conf", "[General]\nuseMetric=false\nother=true\n");
    EXPECT_TRUE(
        runEventLoopUntil([&] { return !store->boolean("useMetric") && store->boolean("other") && calls > 0; }));

    calls = 0; // replaced, as another program does
    std::filesystem::rename(folder().write("sub/new", "[General]\nuseMetric=true\n"), path());
    EXPECT_TRUE(
        runEventLoopUntil([&] { return store->boolean("useMetric") && !store->contains("other") && calls > 0; }));

    calls = 0; // and in place once more, in the file that is a new one now
    folder().write("sub/Ospra.conf", "[General]\nuseMetric=off\n");
    EXPECT_TRUE(runEventLoopUntil([&] { return !store->boolean("useMetric") && calls > 0; }));
}

TEST_F(SettingsStoreTest, theUsersStoreLiesInTheConfigurationFolder)
{
    const ScopedVariable variable("XDG_CONFIG_HOME", folder().path().string());
    makeUserSettingsStore()->setBoolean("useAGL", true);
    EXPECT_TRUE(makeFileSettingsStore(folder().path() / "Ospra/Ospra.conf")->boolean("useAGL"));
    EXPECT_TRUE(std::filesystem::exists(folder().path() / "Ospra/Ospra.conf"));
}

} // namespace
} // namespace ospra
