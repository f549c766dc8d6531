// Building an assembler source with gpasm instead of Corvane's own assembler.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "loader/intel_hex.h"
#include "project/gpasm.h"
#include "project/messages.h"
#include "project/model_files.h"

namespace corvane::project {

enum class AssemblerKind : std::uint8_t { Corvane, Gpasm };

struct AssemblerChoice {
    AssemblerKind kind = AssemblerKind::Corvane;
    std::vector<std::string> passedOn{};  // options of gpasm
    std::function<bool()> isCancelled{};  // asked while gpasm runs
};

// Whether the source is for gpasm: BASIC and Intel HEX never are.
bool IsForGpasm(const AssemblerChoice& assembler, const std::string& file);

struct GpasmProgram {
    ModelFile modelFile;  // the person's choice, else of the processor that the source names
    loader::Program image;
};

struct GpasmBuild {
    GpasmResult files;                    // the listing is there also after errors
    std::optional<GpasmProgram> program;  // nothing when it failed
};

// The processor is the chosen model's, else the one that the source names. The messages are those
// of gpasm and what else is to be told.
GpasmBuild BuildWithGpasm(const std::string& source, const ModelChoice& model,
                          const AssemblerChoice& assembler, Messages& messages);

}  // namespace corvane::project
