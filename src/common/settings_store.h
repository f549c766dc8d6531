// One flat set of named text values that outlives the application.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::common {

// Nothing here reports an error: what cannot be read is missing, what cannot be written is lost.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    virtual std::optional<std::string> Read(std::string_view name) = 0;
    virtual void Write(std::string_view name, std::string_view value) = 0;
};

// A store that lasts as long as the object.
class MapSettingsStore final : public SettingsStore {
  public:
    std::optional<std::string> Read(std::string_view name) override;
    void Write(std::string_view name, std::string_view value) override;

    std::map<std::string, std::string, std::less<>> values;
};

// The stored value. One that is missing, or 255 bytes or longer, is replaced in the store by the
// default, which is returned.
std::string ReadSetting(SettingsStore& store, std::string_view name, std::string_view defaultValue);

// The same for a whole number: rounded, 0 for a text that is no number. A value that no int holds
// counts as the default.
int ReadNumberSetting(SettingsStore& store, std::string_view name, int defaultValue);
void WriteNumberSetting(SettingsStore& store, std::string_view name, int value);

// The same for "ON" or "OFF", where OFF is the default and every other text counts as OFF.
bool ReadSwitchSetting(SettingsStore& store, std::string_view name);
void WriteSwitchSetting(SettingsStore& store, std::string_view name, bool on);

}  // namespace corvane::common
