#include "app/source_file.h"

#include <filesystem>

#include "common/text.h"
#include "common/text_file.h"

namespace corvane::app {

namespace fs = std::filesystem;

const FileKind kAssemblerSource = {
    .caption = "Assembler - ",
    .openTitle = "Open Assembler Source File",
    .saveTitle = "Save Assembler Source As",
    .filters = "Assembler ASM files (*.asm)|*.asm|All files (*.*)|*.*",
    .extension = ".asm",
};
const FileKind kBasicSource = {
    .caption = "BASIC Compiler - ",
    .openTitle = "Open BASIC Source File",
    .saveTitle = "Save BASIC Source As",
    .filters = "BASIC BAS files (*.bas)|*.bas|All files (*.*)|*.*",
    .extension = ".bas",
};
const FileKind kDisassemblerListing = {
    .caption = "",
    .openTitle = "",
    .saveTitle = "Save Disassembler Listing As",
    .filters = "Listing LST files (*.lst)|*.lst|All files (*.*)|*.*",
    .extension = ".lst",
};

namespace {

std::string FileNameOf(std::string_view path) {
    return fs::path(path).filename().string();
}

bool FileExists(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error);
}

// Asks before a file that is there is lost; true when it may be written.
bool MayOverwrite(Dialogs& dialogs, const std::string& path) {
    return !FileExists(path) || dialogs.Ask("Do you want to overwrite existing file " + path + "?");
}

}  // namespace

std::optional<std::string> ReadFileOrInform(Dialogs& dialogs, const std::string& path) {
    common::Result<std::string> text = common::ReadTextFile(path);
    if (!text) {
        dialogs.Inform("File '" + path + "' could not be opened.");
    }
    return std::move(text.value);
}

bool WriteFileOrInform(Dialogs& dialogs, const std::string& path, std::string_view text) {
    const std::optional<std::string> reason = common::WriteTextFile(path, common::WithCrLf(text));
    if (reason) {
        dialogs.Inform("File '" + path + "' could not be written.\r\n" + *reason + ".");
    }
    return !reason;
}

std::string WithExtension(std::string_view fileName, std::string_view extension) {
    return std::string(fileName.substr(0, fileName.find('.'))) + std::string(extension);
}

std::optional<std::string> AskSavePath(Dialogs& dialogs, AppSettings& settings,
                                       const FileKind& kind) {
    const std::optional<std::string> chosen = dialogs.SaveFile(
        {.title = kind.saveTitle, .filters = kind.filters, .folder = settings.LastPath()});
    if (!chosen || chosen->empty()) {
        return std::nullopt;
    }
    settings.SetLastPathOf(*chosen);
    std::string path = settings.LastPath() + WithExtension(FileNameOf(*chosen), kind.extension);
    return MayOverwrite(dialogs, path) ? std::optional(std::move(path)) : std::nullopt;
}

std::string SourceFile::Caption() const {
    return std::string(kind_->caption) + (IsUntitled() ? "UNTITLED" : name_);
}

std::string SourceFile::PathWithExtension(std::string_view extension) const {
    return settings_->LastPath() + WithExtension(name_, extension);
}

std::optional<std::string> SourceFile::Open() {
    const std::optional<std::string> chosen = dialogs_->OpenFile(
        {.title = kind_->openTitle, .filters = kind_->filters, .folder = settings_->LastPath()});
    return chosen && !chosen->empty() ? OpenPath(*chosen) : std::nullopt;
}

std::optional<std::string> SourceFile::OpenPath(const std::string& path) {
    settings_->SetLastPathOf(path);
    std::optional<std::string> text = ReadFileOrInform(*dialogs_, path);
    if (text) {
        BecomeFile(path);
    }
    return text;
}

bool SourceFile::Save(const TextToSave& text) {
    if (IsUntitled()) {
        return SaveAs(text);
    }
    const bool isElsewhere = settings_->LastPath() != folder_;
    return (!isElsewhere || MayOverwrite(*dialogs_, Path())) && Write(Path(), text);
}

bool SourceFile::SaveAs(const TextToSave& text) {
    const std::optional<std::string> path = AskSavePath(*dialogs_, *settings_, *kind_);
    return path && Write(*path, text);
}

bool SourceFile::Write(const std::string& path, const TextToSave& text) {
    if (!WriteFileOrInform(*dialogs_, path, text())) {
        return false;
    }
    BecomeFile(path);
    return true;
}

void SourceFile::BecomeFile(const std::string& path) {
    name_ = FileNameOf(path);
    folder_ = settings_->LastPath();
}

bool SourceFile::IsReady(bool textIsEmpty) {
    if (IsUntitled()) {
        dialogs_->Inform("Please save the file first.");
        return false;
    }
    if (textIsEmpty) {
        dialogs_->Inform("The editor is empty.");
        return false;
    }
    return true;
}

}  // namespace corvane::app
