// The settings store on disk: one line "Name=value" for each setting. Lines that are no setting
// (headings, comments, damage) are passed over and kept, and so is what a person has changed in the
// file meanwhile.
#pragma once

#include "common/settings_store.h"

namespace corvane::ui {

class IniSettingsStore final : public common::SettingsStore {
  public:
    // The folder is made when the first setting is written.
    explicit IniSettingsStore(std::string path);

    // The user's own file: Corvane/Corvane.ini in the configuration folder.
    static std::string UserPath();

    std::optional<std::string> Read(std::string_view name) override;
    void Write(std::string_view name, std::string_view value) override;

  private:
    std::string path_;
};

}  // namespace corvane::ui
