#include "bench_programs.h"

#include <iostream>

#include "asm/assembler.h"
#include "common/text_file.h"
#include "core/reset.h"
#include "models/symbol_lines.h"

namespace corvane::bench {

namespace {

std::string SourceFolder() {
    return CORVANE_SOURCE_DIR;
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
    const assembler::Assembly assembly =
        assembler::Assemble(*source, symbols, model.defaultConfigurationWord);
    if (assembly.errorCount != 0) {
        std::cerr << assembly.listing;
        return std::nullopt;
    }
    core::Processor processor = core::MakeProcessor(model, std::move(*description));
    core::FillProgramMemory(processor, assembly.words);
    core::StartSimulation(processor);
    return processor;
}

}  // namespace corvane::bench
