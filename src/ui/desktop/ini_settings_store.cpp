#include "ui/desktop/ini_settings_store.h"

#include <QStandardPaths>
#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "common/one_line.h"
#include "common/text.h"
#include "common/text_file.h"

namespace corvane::ui {

namespace {

bool IsSetting(std::string_view line, std::string_view name) {
    const std::size_t equals = line.find('=');
    return equals != std::string_view::npos && common::Trim(line.substr(0, equals)) == name;
}

}  // namespace

IniSettingsStore::IniSettingsStore(std::string path) : path_(std::move(path)) {}

std::string IniSettingsStore::UserPath() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder.toStdString() + "/Corvane/Corvane.ini";
}

std::optional<std::string> IniSettingsStore::Read(std::string_view name) {
    const std::string text = common::ReadTextFile(path_).value.value_or("");
    for (const std::string_view line : common::SplitLines(text)) {
        if (IsSetting(line, name)) {
            return common::FromOneLine(common::Trim(line.substr(line.find('=') + 1)));
        }
    }
    return std::nullopt;
}

void IniSettingsStore::Write(std::string_view name, std::string_view value) {
    std::error_code ignored;
    const common::Result<std::string> stored = common::ReadTextFile(path_);
    if (!stored && std::filesystem::exists(path_, ignored)) {
        return;  // the other settings would be lost
    }
    const std::string text = stored.value.value_or("[Corvane]\n");
    const std::string setting = std::string(name) + "=" + common::OneLine(value) + "\n";
    std::string changed;
    bool isWritten = false;
    for (const std::string_view line : common::SplitLines(text)) {
        if (!IsSetting(line, name)) {
            changed += std::string(line) + "\n";
        } else if (!std::exchange(isWritten, true)) {
            changed += setting;
        }
    }
    if (!isWritten) {
        changed += setting;
    }
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ignored);
    common::WriteTextFile(path_, changed);
}

}  // namespace corvane::ui
