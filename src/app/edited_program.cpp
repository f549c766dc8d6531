#include "app/edited_program.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "common/same_file.h"
#include "common/text.h"
#include "common/text_file.h"
#include "loader/intel_hex.h"
#include "project/loaded_program.h"

namespace corvane::app {

namespace fs = std::filesystem;

namespace {

// The words by address. Where a file is silent, the loader leaves 0 and other tools write 3FFF.
template <typename WordAt>
bool AreLoaded(const Workbench& workbench, WordAt wordAt) {
    const int count = workbench.Model().programWords;
    for (std::size_t address = 0; address < static_cast<std::size_t>(count); ++address) {
        const int loaded = workbench.Processor().programMemory.at(address);
        const std::optional<int> word = wordAt(address);
        if (word ? loaded != *word : loaded != 0 && loaded != project::kErasedWord) {
            return false;
        }
    }
    return true;
}

bool IsLoaded(const Workbench& workbench, const std::string& hex) {
    const auto image = loader::ReadIntelHex(hex, workbench.Model().programWords);
    return image && AreLoaded(workbench, [&](std::size_t address) {
               return image->isWritten[address] ? std::optional<int>(image->words[address])
                                                : std::nullopt;
           });
}

// Nothing when the file has been written since.
std::optional<project::CodFile> ReadCodOf(const std::string& file, const std::string& codFile) {
    std::error_code error;
    const auto written = fs::last_write_time(file, error);
    const auto assembled = error ? fs::file_time_type() : fs::last_write_time(codFile, error);
    const auto bytes = common::ReadTextFile(codFile);
    if (error || written > assembled || !bytes) {
        return std::nullopt;
    }
    return project::ReadCodFile(*bytes).value;
}

// The lines of other files are left out.
void KeepOnly(int file, project::Program& program) {
    for (std::optional<project::Place>& place : program.places) {
        if (place && std::exchange(place->file, 0) != file) {
            place.reset();
        }
    }
    program.files = {program.files[static_cast<std::size_t>(file)]};
}

std::optional<project::Program> ProgramOfCod(const Workbench& workbench, const std::string& file,
                                             const std::string& text) {
    const std::string codFile = project::NameBeside(workbench.ProgramPath(), ".cod");
    const std::optional<project::CodFile> cod = ReadCodOf(file, codFile);
    const auto saved = common::ReadTextFile(file);
    if (!cod || !saved || common::WithLf(*saved) != text ||
        !AreLoaded(workbench, [&](std::size_t address) { return cod->words[address]; })) {
        return std::nullopt;
    }
    const fs::path folder = fs::path(codFile).parent_path();
    const auto own = std::ranges::find_if(cod->files, [&](const std::string& name) {
        return common::IsSameFile((folder / name).string(), file);
    });
    if (own == cod->files.end()) {
        return std::nullopt;
    }
    project::Program program{
        .image = loader::ProgramOf(workbench.LoadedProgram(), workbench.Model().programWords)};
    project::AddCodSource(program, *cod, [](const std::string& name) { return name; });
    KeepOnly(static_cast<int>(own - cod->files.begin()), program);
    return program;
}

}  // namespace

common::Result<project::Program> EditedProgram(const Workbench& workbench, const std::string& file,
                                               project::ProgramKind kind, const std::string& text) {
    using Found = common::Result<project::Program>;
    if (workbench.LoadedWords() == 0) {
        return Found::Failure("");
    }
    if (auto program = ProgramOfCod(workbench, file, text)) {
        return Found::Success(*std::move(program));
    }
    project::ModelFile modelFile{
        .model = &workbench.Model(), .path = {}, .description = workbench.Processor().description};
    project::Messages untold;
    std::optional<project::Build> build = project::BuildText(
        file, kind, text, modelFile, workbench.Settings().ClockFrequency(), untold);
    if (!build) {
        const bool isForGpasm =
            common::ReadSwitchSetting(workbench.Settings().Store(), kAssembleWithGpasm);
        return Found::Failure(isForGpasm ? "Not loaded: assemble it again"
                                         : "Not loaded: the text has errors");
    }
    if (!IsLoaded(workbench, build->assembly.hex)) {
        return Found::Failure("Not loaded: another program is");
    }
    loader::Program image = build->image;
    return Found::Success(
        project::WithNames({.modelFile = std::move(modelFile),
                            .image = std::move(image),
                            .origin = project::Origin{.file = file, .build = std::move(build)}}));
}

int NextLine(const project::Program& program, const core::ProcessorState& state) {
    std::optional<project::Place> place = project::PlaceAt(program, state.pc);
    if (!place && state.pc < static_cast<int>(program.places.size())) {
        const int back = state.hardwareStack.at(static_cast<std::size_t>(state.stackPointer));
        place = project::PlaceAt(program, back - 1);
    }
    return place ? place->line : 0;
}

}  // namespace corvane::app
