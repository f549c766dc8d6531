#include "ui/common/ini_settings_store.h"

#include <QStandardPaths>
#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "common/text.h"
#include "common/text_file.h"

namespace corvane::ui {

namespace {

// A value is one line; a path may hold what would end it.
std::string Escaped(std::string_view value) {
    std::string text;
    for (const char c : value) {
        switch (c) {
            case '\\':
                text += "\\\\";
                break;
            case '\n':
                text += "\\n";
                break;
            case '\r':
                text += "\\r";
                break;
            default:
                text += c;
        }
    }
    return text;
}

std::string Unescaped(std::string_view text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (text[i] != '\\' || (next != '\\' && next != 'n' && next != 'r')) {
            value += text[i];
            continue;
        }
        value += next == 'n' ? '\n' : next == 'r' ? '\r' : '\\';
        ++i;
    }
    return value;
}

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
            return Unescaped(common::Trim(line.substr(line.find('=') + 1)));
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
    const std::string setting = std::string(name) + "=" + Escaped(value) + "\n";
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
