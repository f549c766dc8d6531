#include "app/source_file.h"

#include <algorithm>
#include <filesystem>

#include "common/same_file.h"
#include "common/text.h"
#include "common/text_file.h"
#include "project/program_kind.h"

namespace corvane::app {

namespace fs = std::filesystem;

const FileKind kAssemblerSource = {
    .caption = "Assembler - ",
    .openTitle = "Open Assembler Source File",
    .saveTitle = "Save Assembler Source As",
    .filters = "Assembler ASM files (*.asm)|*.asm|All files (*.*)|*.*",
    .extension = ".asm",
    .recentFiles = "Recent Assembler File",
};
const FileKind kBasicSource = {
    .caption = "BASIC Compiler - ",
    .openTitle = "Open BASIC Source File",
    .saveTitle = "Save BASIC Source As",
    .filters = "BASIC BAS files (*.bas)|*.bas|All files (*.*)|*.*",
    .extension = ".bas",
    .recentFiles = "Recent BASIC File",
};
const FileKind kDisassemblerListing = {
    .caption = "",
    .openTitle = "",
    .saveTitle = "Save Disassembler Listing As",
    .filters = "Listing LST files (*.lst)|*.lst|All files (*.*)|*.*",
    .extension = ".lst",
};

const FileKind kFirmwareTest = {
    .caption = "",
    .openTitle = "Open Firmware Test",
    .saveTitle = "Save Session as Test",
    .filters = "Firmware tests (*.test)|*.test|All files (*.*)|*.*",
    .extension = ".test",
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
        dialogs.Inform(NotWrittenMessage(path, *reason));
    }
    return !reason;
}

std::string NotWrittenMessage(const std::string& path, const std::string& reason) {
    return "File '" + path + "' could not be written.\r\n" + reason + ".";
}

std::optional<std::string> AskSavePath(Dialogs& dialogs, AppSettings& settings,
                                       const FileKind& kind, const std::string& offeredName) {
    const std::optional<std::string> chosen = dialogs.SaveFile({.title = kind.saveTitle,
                                                                .filters = kind.filters,
                                                                .folder = settings.LastPath(),
                                                                .fileName = offeredName});
    if (!chosen || chosen->empty()) {
        return std::nullopt;
    }
    settings.SetLastPathOf(*chosen);
    std::string path =
        settings.LastPath() + project::NameBeside(FileNameOf(*chosen), kind.extension);
    return MayOverwrite(dialogs, path) ? std::optional(std::move(path)) : std::nullopt;
}

std::string SourceFile::Caption() const {
    return std::string(kind_->caption) + (IsUntitled() ? "UNTITLED" : Name());
}

std::string SourceFile::Name() const {
    return FileNameOf(path_);
}

std::string SourceFile::PathWithExtension(std::string_view extension) const {
    return project::NameBeside(path_, extension);
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
        BecomeFile(path, *text);
        Recent().Add(path);
    }
    return text;
}

void SourceFile::Recover(const std::string& path) {
    path_ = path;
    bytes_.reset();
}

bool SourceFile::Save(EditedText& text) {
    if (IsUntitled()) {
        return SaveAs(text);
    }
    EnterFolder();
    return MayReplace(text) && Write(path_, text);
}

bool SourceFile::SaveAs(EditedText& text) {
    const std::optional<std::string> path = AskSavePath(*dialogs_, *settings_, *kind_, Name());
    if (!path || !Write(*path, text)) {
        return false;
    }
    Recent().Add(*path);
    return true;
}

bool SourceFile::MayReplace(EditedText& text) {
    std::error_code error;
    if (!fs::is_regular_file(path_, error)) {
        return true;  // there is nothing to be lost
    }
    if (!bytes_) {
        return MayOverwrite(*dialogs_, path_);
    }
    common::Result<std::string> now = common::ReadTextFile(path_);
    if (now && *now == bytes_) {
        return true;
    }
    if (now && !text.IsModified()) {
        bytes_ = std::move(now.value);
        return text.LoadAnew(*bytes_);
    }
    return dialogs_->Ask("File '" + path_ +
                         "' has been changed by another program. Do you want to overwrite it?");
}

bool SourceFile::Write(const std::string& path, EditedText& text) {
    std::string bytes = common::WithCrLf(text.TextToSave());
    if (!WriteFileOrInform(*dialogs_, path, bytes)) {
        return false;
    }
    BecomeFile(path, std::move(bytes));
    return true;
}

void SourceFile::BecomeFile(const std::string& path, std::string bytes) {
    path_ = path;
    bytes_ = std::move(bytes);
}

void SourceFile::EnterFolder() {
    const std::string folder = fs::path(path_).replace_filename("").string();
    if (folder != settings_->LastPath()) {
        settings_->SetLastPathOf(path_);
    }
}

bool SourceFile::MayWriteBeside(std::initializer_list<std::string_view> extensions) {
    const bool isSource = std::ranges::any_of(extensions, [this](std::string_view extension) {
        return common::IsSameFile(PathWithExtension(extension), path_);
    });
    if (isSource) {
        dialogs_->Inform("The source file would be overwritten by the output.");
    }
    return !isSource;
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
