#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

/// The user's settings: a key-value store that outlives the program. Every write is kept at once; a store that cannot
/// be written keeps the value for this run. Values of another type than asked for are absent. Main thread only.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    [[nodiscard]] virtual bool contains(std::string_view key) const = 0;
    /// The value read as a boolean: `true`, 1, "true", "yes" and the like are true, all else is false, absent too.
    [[nodiscard]] virtual bool boolean(std::string_view key) const = 0;
    /// Absent where the key is absent or holds no list of texts; an empty list is a list.
    [[nodiscard]] virtual std::optional<std::vector<std::string>> texts(std::string_view key) const = 0;
    [[nodiscard]] virtual std::optional<std::string> bytes(std::string_view key) const = 0;
    [[nodiscard]] virtual std::optional<std::vector<std::string>> byteList(std::string_view key) const = 0;

    virtual void setBoolean(std::string_view key, bool value) = 0;
    virtual void setTexts(std::string_view key, const std::vector<std::string>& value) = 0;
    virtual void setBytes(std::string_view key, const std::string& value) = 0;
    virtual void setByteList(std::string_view key, const std::vector<std::string>& value) = 0;
    virtual void remove(std::string_view key) = 0;

    /// Calls `changed` on the main thread, after control has returned to the event loop, once for one or more changes
    /// of the store, own writes included. One observer at a time; an empty function ends the observation.
    virtual void observe(std::function<void()> changed) = 0;
};

/// The store in the user's configuration folder ("Ospra/Ospra.conf" below XDG_CONFIG_HOME). Needs a QCoreApplication.
[[nodiscard]] std::unique_ptr<SettingsStore> makeUserSettingsStore();

/// A store in a file of its own, in the same form, for tests and tools.
[[nodiscard]] std::unique_ptr<SettingsStore> makeFileSettingsStore(const std::string& path);

} // namespace ospra
