#include "app/edited_program.h"

#include <utility>

#include "loader/intel_hex.h"
#include "project/loaded_program.h"

namespace corvane::app {

namespace {

// Where the HEX file is silent, the loader leaves 0 and other tools write 3FFF.
bool IsLoaded(const std::string& hex, const Workbench& workbench) {
    const auto image = loader::ReadIntelHex(hex, workbench.Model().programWords);
    const auto& memory = workbench.Processor().programMemory;
    for (std::size_t address = 0; image && address < image->words.size(); ++address) {
        const int loaded = memory.at(address);
        if (image->isWritten[address] ? loaded != image->words[address]
                                      : loaded != 0 && loaded != project::kErasedWord) {
            return false;
        }
    }
    return image.value.has_value();
}

}  // namespace

common::Result<project::Program> EditedProgram(const Workbench& workbench, const std::string& file,
                                               project::ProgramKind kind, const std::string& text) {
    using Found = common::Result<project::Program>;
    if (workbench.LoadedWords() == 0) {
        return Found::Failure("");
    }
    project::ModelFile modelFile{
        .model = &workbench.Model(), .path = {}, .description = workbench.Processor().description};
    project::Messages untold;
    std::optional<project::Build> build = project::BuildText(
        file, kind, text, modelFile, workbench.Settings().ClockFrequency(), untold);
    if (!build) {
        return Found::Failure("Not loaded: the text has errors");
    }
    if (!IsLoaded(build->assembly.hex, workbench)) {
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
