#include "core/OspraModel.h"
#include "fuzz/require.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace ospra {
namespace {

using Texts = std::vector<std::string>;

constexpr std::array keys{"useMetric",         "useAGL", "enabledSeries", "enabledDistanceSeries", "directoryBookmark",
                          "companionBookmarks"};

/// Finds folders as the program does, but opens none.
class ClosedFolders final : public FolderAccess {
public:
    std::optional<std::string> makeHandle(const std::filesystem::path& folder) override
    {
        return m_access->makeHandle(folder);
    }
    std::optional<ResolvedFolder> resolve(const std::string& handle) override { return m_access->resolve(handle); }
    bool start(const std::filesystem::path&) override { return false; }
    void stop(const std::filesystem::path&) override {}

private:
    std::shared_ptr<FolderAccess> m_access = makeFolderAccess();
};

/// All that can be had of one key.
struct Value {
    bool isThere = false;
    bool boolean = false;
    std::optional<Texts> texts{};
    std::optional<std::string> bytes{};
    std::optional<Texts> byteList{};

    friend bool operator==(const Value&, const Value&) = default;
};

Value valueOf(const SettingsStore& store, const char* key)
{
    const Value value{.isThere = store.contains(key),
                      .boolean = store.boolean(key),
                      .texts = store.texts(key),
                      .bytes = store.bytes(key),
                      .byteList = store.byteList(key)};
    const int kinds = value.boolean + value.texts.has_value() + value.bytes.has_value() + value.byteList.has_value();
    require(kinds <= 1, "a value is of two kinds");
    require(kinds == 0 || value.isThere, "a value is there and is not");
    return value;
}

std::array<Value, keys.size()> allValues(const SettingsStore& store)
{
    std::array<Value, keys.size()> values;
    std::ranges::transform(keys, values.begin(), [&](const char* key) { return valueOf(store, key); });
    return values;
}

/// A store reads a file once for all stores of that name, so that each needs a name of its own.
QString nextPath()
{
    static const QTemporaryDir folder;
    static int number = 0;
    return folder.filePath(QString::number(++number));
}

/// What is written comes back, and all else stays, here and in the file.
void checkWriting(const QString& path, SettingsStore& store, const std::string& bytes)
{
    const std::string text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).toStdString();
    std::array<Value, keys.size()> expected = allValues(store);
    expected[2] = {.isThere = true, .texts = Texts{text, "", text}};
    expected[4] = {.isThere = true, .bytes = bytes};
    expected[5] = {.isThere = true, .byteList = Texts{bytes, ""}};
    store.setTexts(keys[2], *expected[2].texts);
    store.setBytes(keys[4], bytes);
    store.setByteList(keys[5], *expected[5].byteList);
    require(allValues(store) == expected, "what was written does not come back");
    const QString copy = nextPath();
    require(QFile::copy(path, copy), "the settings are not on the disk");
    require(allValues(*makeFileSettingsStore(copy.toStdString())) == expected, "the file holds something else");
    QFile::remove(copy);
}

/// Whatever the settings say, the model begins, and with something to show.
void checkModel(const std::shared_ptr<SettingsStore>& store)
{
    static const auto pool = std::make_shared<TaskPool>(1);
    static const auto mailbox = std::make_shared<Mailbox>([] {});
    static const std::shared_ptr<const NaturalOrder> names = makeNaturalOrder("en_US");
    OspraModel model({.settings = store,
                      .folders = std::make_shared<ClosedFolders>(),
                      .pool = pool,
                      .mailbox = mailbox,
                      .names = names});
    model.restoreFolders();
    require(!model.enabledSeries().empty(), "there is no series to show");
    require(!model.hasJumpers() && !model.isLoading(), "a folder is open that cannot be");
}

} // namespace
} // namespace ospra

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    static QCoreApplication application(*count, *arguments);
    return 0;
}

/// Whatever is in the settings file, it can be read, the model begins with it, and it can be written over.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const QString path = ospra::nextPath();
    QFile file(path);
    ospra::require(file.open(QIODevice::WriteOnly) && file.write(bytes.data(), static_cast<qint64>(size)) >= 0,
                   "the disk is full");
    file.close();
    const std::shared_ptr<ospra::SettingsStore> store = ospra::makeFileSettingsStore(path.toStdString());
    ospra::checkModel(store);
    ospra::checkWriting(path, *store, bytes);
    QFile::remove(path);
    return 0;
}
