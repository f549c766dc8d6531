// The files of one kind that were opened or saved last, in the settings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/settings_store.h"

namespace corvane::app {

class RecentFiles {
  public:
    // The settings are called "Recent Assembler File 1" to "10" when the name is the text before
    // the number.
    RecentFiles(common::SettingsStore& store, std::string_view name)
        : store_(&store), name_(name) {}

    // Full paths, the newest first, at most ten.
    std::vector<std::string> Paths() const;
    // Puts the file first. A path too long for a setting is left out.
    void Add(const std::string& path);

  private:
    std::string SettingName(std::size_t index) const;

    common::SettingsStore* store_;
    std::string name_;
};

}  // namespace corvane::app
