#include "common/settings_store.h"

#include "common/decimal_text.h"

namespace corvane::common {

namespace {

constexpr std::size_t kLongestValue = 254;  // bytes

}  // namespace

std::optional<std::string> MapSettingsStore::Read(std::string_view name) {
    const auto found = values.find(std::string(name));
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

void MapSettingsStore::Write(std::string_view name, std::string_view value) {
    values.insert_or_assign(std::string(name), std::string(value));
}

std::string ReadSetting(SettingsStore& store, std::string_view name,
                        std::string_view defaultValue) {
    std::optional<std::string> value = store.Read(name);
    if (value && value->size() <= kLongestValue) {
        return *std::move(value);
    }
    store.Write(name, defaultValue);
    return std::string(defaultValue);
}

int ReadNumberSetting(SettingsStore& store, std::string_view name, int defaultValue) {
    const std::string text = ReadSetting(store, name, std::to_string(defaultValue));
    return RoundToInt(LeadingNumber(text)).value_or(defaultValue);
}

void WriteNumberSetting(SettingsStore& store, std::string_view name, int value) {
    store.Write(name, std::to_string(value));
}

bool ReadSwitchSetting(SettingsStore& store, std::string_view name) {
    return ReadSetting(store, name, "OFF") == "ON";
}

void WriteSwitchSetting(SettingsStore& store, std::string_view name, bool on) {
    store.Write(name, on ? "ON" : "OFF");
}

}  // namespace corvane::common
