#include "scenario/prepared_tests.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "common/decimal_text.h"
#include "common/text.h"
#include "common/text_file.h"
#include "scenario/statement_reader.h"

namespace corvane::scenario {

namespace fs = std::filesystem;

namespace {

// The model that the test file names; without one that of the program's .cod file, or the default.
project::ModelChoice ModelOf(const Setup& setup, const std::string& modelFolder) {
    project::ModelChoice model{.folder = modelFolder};
    if (setup.model) {
        model.model = &models::kModelCatalogue[static_cast<std::size_t>(setup.model->row)];
        model.name = setup.modelName;
    }
    return model;
}

std::string ProgramOf(const std::string& file, const Setup& setup) {
    return (fs::path(file).parent_path() / setup.program).lexically_normal().string();
}

std::optional<project::LoadedProgram> LoadProgramOf(const std::string& file, const Setup& setup,
                                                    const std::string& modelFolder,
                                                    const project::AssemblerChoice& assembler,
                                                    project::Messages& messages) {
    const std::string program = ProgramOf(file, setup);
    if (!project::IsOfUnnamedKind(program) &&
        project::KindOf(program) == project::ProgramKind::Unknown) {
        project::AddError(messages, file, setup.programLine,
                          "A program ends in .hex, .asm or .bas.");
        return std::nullopt;
    }
    if (setup.model && !setup.model->warning.empty()) {
        project::AddWarning(messages, file, 0, setup.model->warning);
    }
    return project::LoadProgram({.file = program,
                                 .model = ModelOf(setup, modelFolder),
                                 .assembler = assembler,
                                 .clockFrequency = setup.clockFrequency},
                                messages);
}

// The first error, if there is one.
std::optional<ReadError> ReadTests(const TestFile& lines, PreparedTests& prepared) {
    const inspect::Language language = {*prepared.names, lines.setup.clock};
    for (const TestLines& test : lines.tests) {
        auto read = ReadTest(test, language);
        if (!read) {
            return read.error;
        }
        prepared.tests.push_back(*std::move(read.value));
    }
    return std::nullopt;
}

// As one word of a shell's command.
std::string ShellWord(const std::string& text) {
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./";
    if (!text.empty() && text.find_first_not_of(kPlain) == std::string::npos) {
        return text;
    }
    std::string word = "'";
    for (const char c : text) {
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return word + "'";
}

std::string DebugArguments(const std::string& program, const Setup& setup,
                           const project::AssemblerChoice& assembler) {
    if (!setup.eeprom.empty() || program.starts_with('-')) {
        return "";
    }
    const Setup usual;
    std::string arguments = ShellWord(program);
    arguments += setup.modelName.empty() ? "" : " -m " + ShellWord(setup.modelName);
    if (setup.clockFrequency != usual.clockFrequency) {
        arguments += " --clock " + common::DecimalText(setup.clockFrequency);
    }
    if (setup.eepromWriteTime != usual.eepromWriteTime) {
        arguments += " --eeprom-write-time " + std::to_string(setup.eepromWriteTime);
    }
    if (setup.adConversionTime != usual.adConversionTime) {
        arguments += " --ad-conversion-time " + std::to_string(setup.adConversionTime);
    }
    if (project::IsForGpasm(assembler, program)) {
        arguments += " --assembler gpasm";
    }
    return arguments;
}

}  // namespace

bool IsTestFile(const std::string& path) {
    return common::ToLower(fs::path(path).extension().string()) == ".test";
}

common::Result<std::vector<std::string>> TestFilesBelow(const std::string& folder) {
    using FindResult = common::Result<std::vector<std::string>>;
    std::error_code error;
    std::vector<std::string> found;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code kindError;
        if (IsTestFile(entry->path().string()) && !entry->is_directory(kindError)) {
            found.push_back(entry->path().string());
        }
    }
    std::sort(found.begin(), found.end());
    return error ? FindResult::Failure(error.message()) : FindResult::Success(std::move(found));
}

std::optional<PreparedTests> PrepareTests(const std::string& file, const std::string& modelFolder,
                                          const project::AssemblerChoice& assembler,
                                          project::Messages& messages) {
    const auto refuse = [&](const ReadError& error) {
        project::AddError(messages, file, error.line, error.message);
        return std::nullopt;
    };
    const common::Result<std::string> text = common::ReadTextFile(file);
    if (!text) {
        return refuse({0, text.error});
    }
    common::Result<TestFile, ReadError> read = ReadTestFile(*text);
    if (!read) {
        return refuse(read.error);
    }
    std::optional<project::LoadedProgram> loaded =
        LoadProgramOf(file, read->setup, modelFolder, assembler, messages);
    if (!loaded) {
        return std::nullopt;
    }
    project::Program program = project::WithNames(*loaded);
    PreparedTests prepared = {read->setup,
                              *std::move(loaded),
                              std::move(program),
                              nullptr,
                              {},
                              DebugArguments(ProgramOf(file, read->setup), read->setup, assembler)};
    const project::ModelFile& modelFile = prepared.loaded.modelFile;
    if (const auto error = EepromError(prepared.setup, *modelFile.model)) {
        return refuse(*error);
    }
    prepared.names =
        std::make_unique<inspect::Names>(*modelFile.model, modelFile.description, prepared.program);
    if (const auto error = ReadTests(*read, prepared)) {
        return refuse(*error);
    }
    return prepared;
}

}  // namespace corvane::scenario
