#include "cli/test_files.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "cli/diagnostics.h"
#include "cli/source_file.h"
#include "common/text.h"
#include "common/text_file.h"
#include "scenario/statement_reader.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

using PrepareResult = common::Result<PreparedTests>;

bool IsTestFile(const fs::path& path) {
    return common::ToLower(path.extension().string()) == ".test";
}

// The error says why the folder cannot be read.
std::optional<std::string> AddFilesBelow(const std::string& folder,
                                         std::vector<std::string>& files) {
    std::error_code error;
    std::vector<std::string> found;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code kindError;
        if (IsTestFile(entry->path()) && !entry->is_directory(kindError)) {
            found.push_back(entry->path().string());
        }
    }
    if (error) {
        return ErrorText(folder, error.message());
    }
    if (found.empty()) {
        return ErrorText(folder, "There is no test file (.test) in this folder.");
    }
    std::sort(found.begin(), found.end());
    files.insert(files.end(), found.begin(), found.end());
    return std::nullopt;
}

PrepareResult RefusedAt(const std::string& file, const scenario::ReadError& error) {
    return PrepareResult::Failure(ErrorText(file, error.line, error.message));
}

// The model that the test file names; without one that of the program's .cod file, or the default.
ModelOptions ModelOf(const scenario::Setup& setup, const std::string& modelFolder) {
    ModelOptions model;
    model.folder = modelFolder;
    if (setup.model) {
        model.model = &models::kModelCatalogue[static_cast<std::size_t>(setup.model->row)];
        model.name = setup.modelName;
    }
    return model;
}

std::optional<std::string> ReadTests(const std::string& file, const scenario::TestFile& lines,
                                     PreparedTests& prepared) {
    const inspect::Language language = {*prepared.names, lines.setup.clock};
    for (const scenario::TestLines& test : lines.tests) {
        auto read = scenario::ReadTest(test, language);
        if (!read) {
            return ErrorText(file, read.error.line, read.error.message);
        }
        prepared.tests.push_back(*std::move(read.value));
    }
    return std::nullopt;
}

}  // namespace

common::Result<std::vector<std::string>, CommandResult> FindTestFiles(
    const std::vector<std::string>& paths) {
    using FindResult = common::Result<std::vector<std::string>, CommandResult>;
    std::vector<std::string> files;
    for (const std::string& path : paths) {
        std::error_code error;
        if (fs::is_directory(path, error)) {
            if (const auto folderError = AddFilesBelow(path, files)) {
                return FindResult::Failure(Refused(*folderError));
            }
        } else if (IsTestFile(path)) {
            files.push_back(path);
        } else {
            return FindResult::Failure(
                WrongUsage(ErrorText(path, "The name must end in .test, or be that of a folder.")));
        }
    }
    return FindResult::Success(std::move(files));
}

common::Result<PreparedTests> PrepareTests(const std::string& file, const std::string& modelFolder,
                                           const AssemblerOptions& assembler) {
    const common::Result<std::string> text = common::ReadTextFile(file);
    if (!text) {
        return PrepareResult::Failure(ErrorText(file, text.error));
    }
    common::Result<scenario::TestFile, scenario::ReadError> read = scenario::ReadTestFile(*text);
    if (!read) {
        return RefusedAt(file, read.error);
    }
    scenario::Setup& setup = read->setup;
    const std::string program =
        (fs::path(file).parent_path() / setup.program).lexically_normal().string();
    if (!IsOfUnnamedKind(program) && KindOf(program) == FileKind::Unknown) {
        return RefusedAt(file, {setup.programLine, "A program ends in .hex, .asm or .bas."});
    }
    if (setup.model && !setup.model->warning.empty()) {
        ReportWarning(file, 0, setup.model->warning);
    }
    common::Result<LoadedProgram, CommandResult> loaded =
        LoadProgram({.file = {program, {}},
                     .model = ModelOf(setup, modelFolder),
                     .assembler = assembler,
                     .clockFrequency = setup.clockFrequency});
    if (!loaded) {
        return PrepareResult::Failure(loaded.error.message);
    }
    PreparedTests prepared = {std::move(setup), *std::move(loaded.value), nullptr, {}};
    const ModelFile& modelFile = prepared.loaded.modelFile;
    if (const auto error = scenario::EepromError(prepared.setup, *modelFile.model)) {
        return RefusedAt(file, *error);
    }
    prepared.names = std::make_unique<inspect::Names>(*modelFile.model, modelFile.description,
                                                      prepared.loaded.program);
    const std::optional<std::string> error = ReadTests(file, *read, prepared);
    return error ? PrepareResult::Failure(*error) : PrepareResult::Success(std::move(prepared));
}

}  // namespace corvane::cli
