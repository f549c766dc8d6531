#include "app/kept_texts.h"

#include <algorithm>
#include <optional>
#include <system_error>

#include "common/one_line.h"
#include "common/text.h"
#include "common/text_file.h"

namespace corvane::app {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostTexts = 10;

// The folder holds what nobody else may read.
void MakeFolder(const fs::path& folder) {
    std::error_code ignored;
    if (fs::create_directories(folder, ignored)) {
        fs::permissions(folder, fs::perms::owner_all, ignored);
    }
}

}  // namespace

KeptTexts::KeptTexts(std::string folder, std::string_view extension)
    : folder_(std::move(folder)), extension_(extension) {}

std::vector<KeptText> KeptTexts::All() const {
    std::vector<KeptText> texts;
    std::error_code error;
    for (fs::directory_iterator file(folder_, error), end; !error && file != end;
         file.increment(error)) {
        std::error_code hasGone;
        const fs::file_time_type time = file->last_write_time(hasGone);
        if (!hasGone && file->path().extension() == extension_) {
            texts.push_back(
                {.id = file->path().filename().string(),
                 .path = {},
                 .time = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
                     std::chrono::file_clock::to_sys(time))});
        }
    }
    std::ranges::sort(texts, [](const KeptText& a, const KeptText& b) {
        return std::pair(a.time, a.id) > std::pair(b.time, b.id);
    });
    return texts;
}

std::vector<KeptText> KeptTexts::Latest(const std::string& edited) const {
    std::vector<KeptText> texts = All();
    std::erase_if(texts, [&](const KeptText& text) { return text.id == edited; });
    texts.resize(std::min(texts.size(), kMostTexts));
    for (KeptText& text : texts) {
        const std::string content = common::ReadTextFile(PathOf(text.id)).value.value_or("");
        text.path = common::FromOneLine(content.substr(0, content.find('\n')));
    }
    return texts;
}

common::Result<std::string> KeptTexts::Read(const std::string& id) const {
    common::Result<std::string> content = common::ReadTextFile(PathOf(id));
    if (content) {
        content->erase(0, std::min(content->find('\n'), content->size() - 1) + 1);
    }
    return content;
}

std::string KeptTexts::NewId() const {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    auto number = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    std::error_code error;
    while (fs::exists(PathOf(std::to_string(number) + extension_), error)) {
        ++number;
    }
    return std::to_string(number) + extension_;
}

common::Status KeptTexts::Keep(const std::string& id, std::string_view path,
                               std::string_view text) const {
    MakeFolder(folder_);
    const std::string content = common::OneLine(path) + "\n" + std::string(text);
    const std::optional<std::string> reason = common::WriteTextFile(PathOf(id), content);
    return reason ? common::Status::Failure(*reason) : common::Status::Success();
}

void KeptTexts::Forget(const std::string& id) const {
    std::error_code ignored;
    fs::remove(PathOf(id), ignored);
}

void KeptTexts::ForgetOldest() const {
    const std::vector<KeptText> texts = All();
    for (std::size_t i = kMostTexts; i < texts.size(); ++i) {
        Forget(texts[i].id);
    }
}

std::string KeptTexts::PathOf(const std::string& id) const {
    return (folder_ / id).string();
}

}  // namespace corvane::app
