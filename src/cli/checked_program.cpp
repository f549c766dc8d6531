#include "cli/checked_program.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "cli/program_file.h"
#include "cli/source_file.h"
#include "cli/translation.h"
#include "common/text_file.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

using project::SourcedProgram;
using ReadResult = common::Result<SourcedProgram>;

// Errors of compiled text are found where the compiler would have written it.
ReadResult FromBasic(const std::string& file, const std::string& text, const ModelFile& modelFile,
                     float clockFrequency) {
    const auto compilation = CompileText(file, text, modelFile, clockFrequency);
    if (!compilation) {
        return ReadResult::Failure(compilation.error);
    }
    const models::Model& model = *modelFile.model;
    const std::string assemblerFile = NameBeside(file, ".asm");
    const assembler::Assembly assembly = AssembleText(assemblerFile, compilation->assembler,
                                                      modelFile, model.defaultConfigurationWord);
    if (assembly.errorCount > 0) {
        return ReadResult::Failure(AssemblyErrors(assemblerFile, assembly));
    }
    return ReadResult::Success(project::FromCompiledAssembly(assembly, compilation->sourceLines,
                                                             text, file, model.programWords));
}

ReadResult FromAssembler(const std::string& file, const std::string& text,
                         const ModelFile& modelFile) {
    const models::Model& model = *modelFile.model;
    const assembler::Assembly assembly =
        AssembleText(file, text, modelFile, model.defaultConfigurationWord);
    if (assembly.errorCount > 0) {
        return ReadResult::Failure(AssemblyErrors(file, assembly));
    }
    return ReadResult::Success(project::FromAssembly(assembly, text, file, model.programWords));
}

ReadResult FromSource(const std::string& file, FileKind kind, const ModelFile& modelFile,
                      float clockFrequency) {
    const common::Result<std::string> text = ReadSource(file);
    if (!text) {
        return ReadResult::Failure(text.error);
    }
    return kind == FileKind::Basic ? FromBasic(file, *text, modelFile, clockFrequency)
                                   : FromAssembler(file, *text, modelFile);
}

std::optional<SourcedProgram> FromCodBeside(const fs::path& path, const SourcedProgram& words) {
    const auto bytes = common::ReadTextFile(path);
    if (!bytes) {
        return std::nullopt;
    }
    const auto cod = project::ReadCodFile(*bytes);
    if (!cod) {
        return std::nullopt;
    }
    const fs::path folder = path.parent_path();
    const int programWords = static_cast<int>(words.program.words.size());
    SourcedProgram source =
        project::FromCod(*cod, folder, programWords,
                         [&folder](const std::string& file) { return (folder / file).string(); });
    return project::HaveSameWords(source.program, words.program) ? std::optional(std::move(source))
                                                                 : std::nullopt;
}

std::optional<SourcedProgram> FromSourceBeside(const fs::path& path, const SourcedProgram& words,
                                               const ModelFile& modelFile, float clockFrequency) {
    const std::optional<QuietBuild> build = BuildQuietly(path.string(), modelFile, clockFrequency);
    const int programWords = modelFile.model->programWords;
    if (!build ||
        !project::HaveSameWords(project::FromImage(build->image).program, words.program)) {
        return std::nullopt;
    }
    return build->compilation
               ? project::FromCompiledAssembly(build->assembly, build->compilation->sourceLines,
                                               build->text, path.string(), programWords)
               : project::FromAssembly(build->assembly, build->text, path.string(), programWords);
}

ReadResult FromHex(const ProgramSource& source, const ModelFile& modelFile) {
    const std::string& file = source.file.name;
    const common::Result<loader::Program> image = ReadHexFile(file, *modelFile.model);
    if (!image) {
        return ReadResult::Failure(image.error);
    }
    SourcedProgram words = project::FromImage(*image);
    for (const char* extension : {".cod", ".bas", ".asm"}) {
        const fs::path path = fs::path(file).replace_extension(extension);
        std::optional<SourcedProgram> beside;
        if (!source.withoutSource) {
            beside = path.extension() == ".cod"
                         ? FromCodBeside(path, words)
                         : FromSourceBeside(path, words, modelFile, source.clockFrequency);
        }
        if (beside) {
            return ReadResult::Success(*std::move(beside));
        }
    }
    return ReadResult::Success(std::move(words));
}

// Messages name the source as the person did, and other files as gpasm does.
SourcedProgram FromGpasm(const std::string& file, const GpasmBuild& build) {
    const fs::path path(file);
    return project::FromCod(
        build.files.cod, path.parent_path(), build.modelFile.model->programWords,
        [&](const std::string& named) { return named == path.filename().string() ? file : named; });
}

}  // namespace

common::Result<CheckedProgram, CommandResult> ReadCheckedProgram(const ProgramSource& source) {
    using CheckedResult = common::Result<CheckedProgram, CommandResult>;
    const std::string& file = source.file.name;
    if (IsForGpasm(source.assembler, file)) {
        auto build = BuildWithGpasm(file, source.model, source.assembler);
        if (!build) {
            return CheckedResult::Failure(std::move(build.error.result));
        }
        SourcedProgram program = FromGpasm(file, *build);
        return CheckedResult::Success({std::move(build->modelFile), std::move(program)});
    }
    const common::Result<ModelOptions> model =
        ModelOfHexFile(file, source.model, source.withoutSource);
    if (!model) {
        return CheckedResult::Failure(Refused(model.error));
    }
    common::Result<ModelFile> modelFile = ReadModelFile(*model);
    if (!modelFile) {
        return CheckedResult::Failure(Refused(modelFile.error));
    }
    const FileKind kind = KindOf(file);
    ReadResult program = kind == FileKind::Hex
                             ? FromHex(source, *modelFile)
                             : FromSource(file, kind, *modelFile, source.clockFrequency);
    return program
               ? CheckedResult::Success({*std::move(modelFile.value), *std::move(program.value)})
               : CheckedResult::Failure(Refused(program.error));
}

}  // namespace corvane::cli
