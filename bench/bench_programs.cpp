#include "bench_programs.h"

#include <iostream>
#include <vector>

#include "asm/assembler.h"
#include "common/text_file.h"
#include "core/reset.h"
#include "models/symbol_lines.h"

namespace corvane::bench {

namespace {

std::string SourceFolder() {
    return CORVANE_SOURCE_DIR;
}

std::optional<std::vector<std::uint16_t>> WordsOf(const assembler::Assembly& assembly) {
    std::vector<std::uint16_t> words(static_cast<std::size_t>(assembly.highestAddress + 1));
    for (const assembler::AsmLine& line : assembly.lines) {
        if (line.hasError) {
            std::cerr << line.source << ": " << line.errorMessage << '\n';
            return std::nullopt;
        }
        if (line.opcode) {
            words[static_cast<std::size_t>(line.address)] =
                static_cast<std::uint16_t>(*line.opcode);
        }
    }
    return words;
}

}  // namespace

std::optional<core::Processor> StartBenchProgram(const BenchProgram& program) {
    const models::Model& model =
        models::kModelCatalogue[static_cast<std::size_t>(*models::FindModel(program.model))];
    const auto source = common::ReadTextFile(SourceFolder() + "/bench/programs/" +
                                             std::string(program.name) + ".asm");
    const auto cfg = common::ReadTextFile(SourceFolder() + "/data/models/" +
                                          models::DescriptionFileName(model.name));
    if (!source || !cfg) {
        std::cerr << program.name << ": " << source.error << cfg.error << '\n';
        return std::nullopt;
    }
    auto description = models::ReadModelDescription(*cfg);
    if (!description) {
        std::cerr << model.name << ": line " << description.error << " is corrupted\n";
        return std::nullopt;
    }
    const auto symbols = models::ReadSymbolLines(description->asmSymbolLines).symbols;
    const auto words =
        WordsOf(assembler::Assemble(*source, symbols, model.defaultConfigurationWord));
    if (!words) {
        return std::nullopt;
    }
    core::Processor processor = core::MakeProcessor(model, std::move(*description));
    core::FillProgramMemory(processor, *words);
    core::StartSimulation(processor);
    return processor;
}

}  // namespace corvane::bench
