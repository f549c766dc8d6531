// Building an assembler source with gpasm instead of Corvane's own assembler.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_result.h"
#include "cli/model_files.h"
#include "common/result.h"
#include "loader/intel_hex.h"
#include "project/gpasm.h"

namespace corvane::cli {

enum class AssemblerKind : std::uint8_t { Corvane, Gpasm };

struct AssemblerOptions {
    AssemblerKind kind = AssemblerKind::Corvane;
    std::vector<std::string> passedOn;  // options of gpasm
};

// Whether the source is for gpasm: BASIC and Intel HEX never are.
bool IsForGpasm(const AssemblerOptions& assembler, const std::string& file);

struct GpasmBuild {
    ModelFile modelFile;  // the person's choice, else of the processor that the source names
    loader::Program image;
    project::GpasmResult files;
};

// The listing is there also after errors.
struct GpasmFailure {
    CommandResult result;
    std::string listing;
};

// Messages go to standard error at once, the errors among them too.
common::Result<GpasmBuild, GpasmFailure> BuildWithGpasm(const std::string& source,
                                                        const ModelOptions& model,
                                                        const AssemblerOptions& assembler);

// The model that a name of another tool means, with a warning for a person where its chip has more.
// The error says that it is none of the eight.
common::Result<ModelOptions> ModelOfProcessor(const std::string& file, const std::string& processor,
                                              const ModelOptions& model);

}  // namespace corvane::cli
