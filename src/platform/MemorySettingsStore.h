#pragma once

#include "platform/SettingsStore.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace ospra {

/// Settings that are forgotten at the end of the program, for tools and tests. The observer is told at `deliver`, as
/// there need be no event loop.
class MemorySettingsStore : public SettingsStore {
    using Texts = std::vector<std::string>;

public:
    [[nodiscard]] bool contains(std::string_view key) const override { return m_values.contains(key); }
    [[nodiscard]] bool boolean(std::string_view key) const override { return value<bool>(key).value_or(false); }
    [[nodiscard]] std::optional<std::vector<std::string>> texts(std::string_view key) const override
    {
        return value<Texts>(key);
    }
    [[nodiscard]] std::optional<std::string> bytes(std::string_view key) const override
    {
        return value<std::string>(key);
    }
    [[nodiscard]] std::optional<std::vector<std::string>> byteList(std::string_view key) const override
    {
        return value<Texts>(key);
    }

    void setBoolean(std::string_view key, bool flag) override { store(key, flag); }
    void setTexts(std::string_view key, const Texts& texts) override { store(key, texts); }
    void setBytes(std::string_view key, const std::string& bytes) override { store(key, bytes); }
    void setByteList(std::string_view key, const Texts& list) override { store(key, list); }
    void remove(std::string_view key) override
    {
        m_values.erase(std::string(key));
        ++m_writes;
    }
    void observe(std::function<void()> changed) override { m_changed = std::move(changed); }

    /// Tells the observer, if anything was written since the last time.
    void deliver()
    {
        if (std::exchange(m_pending, 0) > 0 && m_changed)
            m_changed();
    }
    /// How often something was written.
    [[nodiscard]] int writes() const { return m_writes; }

private:
    using Value = std::variant<bool, std::string, Texts>;

    template <typename Kind>
    [[nodiscard]] std::optional<Kind> value(std::string_view key) const
    {
        const auto entry = m_values.find(key);
        if (entry == m_values.end() || !std::holds_alternative<Kind>(entry->second))
            return std::nullopt;
        return std::get<Kind>(entry->second);
    }

    void store(std::string_view key, Value value)
    {
        m_values.insert_or_assign(std::string(key), std::move(value));
        ++m_writes;
        ++m_pending;
    }

    std::map<std::string, Value, std::less<>> m_values;
    std::function<void()> m_changed;
    int m_writes = 0;
    int m_pending = 0;
};

} // namespace ospra
