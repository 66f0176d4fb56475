#include "platform/SettingsStore.h"

#include "platform/Mailbox.h"
#include "platform/settingsText.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QIODevice>
#include <QMap>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

#include <utility>

namespace ospra {

namespace {

constexpr qint64 largestFile = 1 << 20; // bytes; what is beyond is none of ours

// The file's own form cannot tell a list of one text from a text, nor an empty list from nothing. A value that is no
// boolean is therefore written as a list that begins with the kind of what follows: "texts, Elevation". Bytes are
// written in base64.
constexpr const char* textsKind = "texts";
constexpr const char* bytesKind = "bytes";
constexpr const char* byteListKind = "byteList";

QString keyText(std::string_view key)
{
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

QString encodedBytes(const std::string& bytes)
{
    return QString::fromLatin1(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())).toBase64());
}

std::optional<std::string> decodedBytes(const QString& text)
{
    const auto decoded = QByteArray::fromBase64Encoding(text.toUtf8(), QByteArray::Base64Encoding |
                                                                           QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(decoded.decoded.toStdString()) : std::nullopt;
}

bool readValues(QIODevice& file, QSettings::SettingsMap& map)
{
    const QByteArray text = file.read(largestFile + 1);
    if (text.size() > largestFile)
        return false;
    for (const auto& [key, list] : parseSettings({text.data(), static_cast<std::size_t>(text.size())})) {
        QStringList values;
        for (const std::string& value : list)
            values += QString::fromStdString(value);
        map.insert(QString::fromStdString(key), values);
    }
    return true;
}

bool writeValues(QIODevice& file, const QSettings::SettingsMap& map)
{
    SettingsValues values;
    for (auto value = map.cbegin(); value != map.cend(); ++value) {
        std::vector<std::string>& list = values[value.key().toStdString()];
        for (const QString& text : value.value().toStringList())
            list.push_back(text.toStdString());
    }
    const std::string text = settingsText(values);
    return file.write(text.data(), static_cast<qint64>(text.size())) == static_cast<qint64>(text.size());
}

/// INI files of texts. The toolkit's own reader of INI files would also unpack whatever objects a value claims to be,
/// one in the other, until the stack is used up.
QSettings::Format fileFormat()
{
    static const QSettings::Format format = QSettings::registerFormat(QStringLiteral("conf"), readValues, writeValues);
    return format;
}

/// The settings in a file that other processes may change too.
class FileSettingsStore final : public SettingsStore {
public:
    explicit FileSettingsStore(const QString& path) : m_settings(path, fileFormat()) { m_lastSeen = allValues(); }

    bool contains(std::string_view key) const override { return m_settings.contains(keyText(key)); }

    bool boolean(std::string_view key) const override
    {
        const QStringList values = m_settings.value(keyText(key)).toStringList();
        if (values.size() != 1)
            return false;
        const QString value = values.front().trimmed().toLower();
        const double number = value.toDouble();
        return value == u"true" || value == u"yes" || value == u"on" || number > 0.0 || number < 0.0;
    }

    std::optional<std::vector<std::string>> texts(std::string_view key) const override
    {
        const auto values = valuesOf(key, textsKind);
        if (!values)
            return std::nullopt;
        std::vector<std::string> texts;
        for (const QString& value : *values)
            texts.push_back(value.toStdString());
        return texts;
    }

    std::optional<std::string> bytes(std::string_view key) const override
    {
        const auto values = valuesOf(key, bytesKind);
        return values && values->size() == 1 ? decodedBytes(values->front()) : std::nullopt;
    }

    std::optional<std::vector<std::string>> byteList(std::string_view key) const override
    {
        const auto values = valuesOf(key, byteListKind);
        if (!values)
            return std::nullopt;
        std::vector<std::string> list;
        for (const QString& value : *values) {
            std::optional<std::string> decoded = decodedBytes(value);
            if (!decoded)
                return std::nullopt;
            list.push_back(*std::move(decoded));
        }
        return list;
    }

    void setBoolean(std::string_view key, bool value) override
    {
        write(key, {value ? QStringLiteral("true") : QStringLiteral("false")});
    }

    void setTexts(std::string_view key, const std::vector<std::string>& value) override
    {
        QStringList values{textsKind};
        for (const std::string& text : value)
            values += QString::fromStdString(text);
        write(key, values);
    }

    void setBytes(std::string_view key, const std::string& value) override
    {
        write(key, {bytesKind, encodedBytes(value)});
    }

    void setByteList(std::string_view key, const std::vector<std::string>& value) override
    {
        QStringList values{byteListKind};
        for (const std::string& bytes : value)
            values += encodedBytes(bytes);
        write(key, values);
    }

    void remove(std::string_view key) override
    {
        m_settings.remove(keyText(key));
        keep();
    }

    void observe(std::function<void()> changed) override
    {
        m_changed = std::move(changed);
        ++m_observation; // what is still under way was for the observer before
        m_isMessageUnderWay = false;
        m_watcher.reset();
        if (m_changed)
            watch();
    }

private:
    using Values = QMap<QString, QStringList>;

    [[nodiscard]] Values allValues() const
    {
        Values values;
        const QStringList keys = m_settings.allKeys();
        for (const QString& key : keys) {
            if (!key.isEmpty()) // a damaged file can hold such a key, but nothing may ask for it
                values.insert(key, m_settings.value(key).toStringList());
        }
        return values;
    }

    /// What follows the kind; absent if the key is absent or holds a value of another kind.
    [[nodiscard]] std::optional<QStringList> valuesOf(std::string_view key, const char* kind) const
    {
        QStringList values = m_settings.value(keyText(key)).toStringList();
        if (values.isEmpty() || values.front() != QLatin1String(kind))
            return std::nullopt;
        values.removeFirst();
        return values;
    }

    void write(std::string_view key, const QStringList& values)
    {
        m_settings.setValue(keyText(key), values);
        keep();
    }

    /// Writes to the disk at once. If that fails, QSettings holds the values and tries again with the next one.
    void keep()
    {
        m_settings.sync();
        m_lastSeen = allValues();
        notify();
    }

    /// Sees to it that the observer is called once after control has returned to the event loop.
    void notify()
    {
        if (!m_changed || m_isMessageUnderWay)
            return;
        m_isMessageUnderWay = true;
        m_messages->post([this, observation = m_observation] {
            if (observation != m_observation)
                return;
            m_isMessageUnderWay = false;
            const std::function<void()> changed = m_changed; // a copy, since it may end the observation
            changed();
        });
    }

    /// The file itself is watched for writes in place, its folder for replacement, which is how QSettings writes.
    void watch()
    {
        const QString folder = QFileInfo(m_settings.fileName()).absolutePath();
        m_watcher = std::make_unique<QFileSystemWatcher>();
        if (QDir().mkpath(folder))
            m_watcher->addPath(folder);
        watchFile();
        QObject::connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, m_watcher.get(), [this] { look(); });
        QObject::connect(m_watcher.get(), &QFileSystemWatcher::fileChanged, m_watcher.get(), [this] { look(); });
    }

    void watchFile()
    {
        const QString file = m_settings.fileName();
        if (!m_watcher->files().contains(file) && QFileInfo::exists(file))
            m_watcher->addPath(file);
    }

    /// Something happened in the folder: the own write, another file, or another process that changed the settings.
    void look()
    {
        watchFile();
        m_settings.sync();
        Values values = allValues();
        if (values == m_lastSeen)
            return;
        m_lastSeen = std::move(values);
        notify();
    }

    QSettings m_settings;
    Values m_lastSeen;
    std::function<void()> m_changed;
    std::shared_ptr<Mailbox> m_messages = makeEventLoopMailbox(); ///< what is in it goes with the store
    int m_observation = 0;
    bool m_isMessageUnderWay = false;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
};

} // namespace

std::unique_ptr<SettingsStore> makeUserSettingsStore()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<FileSettingsStore>(folder + QStringLiteral("/Ospra/Ospra.conf"));
}

std::unique_ptr<SettingsStore> makeFileSettingsStore(const std::string& path)
{
    return std::make_unique<FileSettingsStore>(QString::fromStdString(path));
}

} // namespace ospra
