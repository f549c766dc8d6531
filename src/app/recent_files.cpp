#include "app/recent_files.h"

#include <algorithm>

namespace corvane::app {

namespace {

constexpr std::size_t kMostFiles = 10;
constexpr std::size_t kLongestSetting = 254;  // bytes

}  // namespace

std::string RecentFiles::SettingName(std::size_t index) const {
    return name_ + " " + std::to_string(index + 1);
}

std::vector<std::string> RecentFiles::Paths() const {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < kMostFiles; ++i) {
        const std::string path = store_->Read(SettingName(i)).value_or("");
        if (!path.empty() && path.size() <= kLongestSetting) {
            paths.push_back(path);
        }
    }
    return paths;
}

void RecentFiles::Add(const std::string& path) {
    if (path.size() > kLongestSetting) {
        return;
    }
    const std::vector<std::string> old = Paths();
    std::vector<std::string> paths = old;
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    paths.resize(std::min(paths.size(), kMostFiles));
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (i >= old.size() || paths[i] != old[i]) {
            store_->Write(SettingName(i), paths[i]);
        }
    }
}

}  // namespace corvane::app
