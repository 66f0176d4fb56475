#include "platform/SettingsStore.h"

#include "EventLoop.h"
#include "surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>

namespace ospra {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

class SettingsStoreTest : public EventLoop {
protected:
    [[nodiscard]] std::string path() const { return m_folder.path() / "sub/Ospra.conf"; }
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
};

TEST_F(SettingsStoreTest, valuesComeBackAsTheyWereAlsoFromTheFile)
{
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte)
        allBytes += static_cast<char>(byte);
    const std::map<std::string, Texts> texts{{"noTexts", {}},
                                             {"emptyText", {""}},
                                             {"texts", {"texts", "a, b", "@Invalid()", "H\xC3\xB6he"}},
                                             {"control", {std::string("a\nb\r\n\tc\0d", 9)}}};
    const std::map<std::string, Texts> byteLists{{"noBytes", {}}, {"emptyBytes", {""}}, {"lists", {"", allBytes, ","}}};
    const auto store = makeFileSettingsStore(path());
    for (const auto& [key, value] : texts)
        store->setTexts(key, value);
    for (const auto& [key, value] : byteLists)
        store->setByteList(key, value);
    store->setBytes("bytes", allBytes);
    store->setBoolean("on", true);
    store->setBoolean("off", false);
    store->setBytes("removed", "x");
    store->remove("removed");
    const std::filesystem::path copy = folder().path() / "copy"; // stores of one file share what they have read
    std::filesystem::copy_file(path(), copy);
    const auto reread = makeFileSettingsStore(copy);
    for (const SettingsStore* const read : {store.get(), reread.get()}) {
        for (const auto& [key, value] : texts)
            EXPECT_EQ(read->texts(key), value) << key;
        for (const auto& [key, value] : byteLists)
            EXPECT_EQ(read->byteList(key), value) << key;
        EXPECT_EQ(read->bytes("bytes"), allBytes);
        EXPECT_TRUE(read->boolean("on"));
        EXPECT_TRUE(!read->boolean("off") && read->contains("off"));
        EXPECT_FALSE(read->contains("removed"));
        EXPECT_FALSE(read->bytes("texts") || read->texts("lists") || read->byteList("on")) << "of another kind";
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
        EXPECT_TRUE(runUntil([&] { return calls > 0; }));
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
    EXPECT_TRUE(runUntil([&] { return calls > 0; }));
    EXPECT_FALSE(runUntil([&] { return calls > 1; }, 300ms)) << "the own change of the file is no second change";
    store->setBoolean("a", true);
    store->observe({});
    store->setBoolean("a", false);
    EXPECT_FALSE(runUntil([&] { return calls > 1; }, 100ms));
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
    EXPECT_TRUE(runUntil([&] { return calls == 3; }));
    EXPECT_FALSE(runUntil([&] { return calls > 3; }, 100ms));
}

TEST_F(SettingsStoreTest, changesByOthersAreNoticed)
{
    const auto store = makeFileSettingsStore(path());
    int calls = 0;
    store->observe([&] { ++calls; });
    const auto expectNoticed = [&](bool useMetric, bool hasOther) {
        EXPECT_TRUE(runUntil([&] {
            return store->boolean("useMetric") == useMetric && store->contains("other") == hasOther && calls > 0;
        }));
        calls = 0;
    };
    const auto second = makeFileSettingsStore(path()); // the file does not exist yet
    second->setBoolean("useMetric", true);
    expectNoticed(true, false);
    folder().write("sub/Ospra.conf", "[General]\nuseMetric=false\nother=true\n"); // in place, as an editor may do
    expectNoticed(false, true);
    std::filesystem::rename(folder().write("sub/new", "[General]\nuseMetric=true\n"),
                            path()); // as another program does
    expectNoticed(true, false);
    folder().write("sub/Ospra.conf", "[General]\nuseMetric=off\n"); // in place, in the file that is a new one now
    expectNoticed(false, false);
}

} // namespace
} // namespace ospra
