#include "inspect/coverage.h"

#include <cstddef>
#include <map>

#include "core/registers.h"
#include "inspect/access.h"
#include "isa/instruction_set.h"

namespace corvane::inspect {

namespace {

bool IsSkip(int word) {
    switch (isa::Classify(word)) {
        case isa::Operation::Btfsc:
        case isa::Operation::Btfss:
        case isa::Operation::Decfsz:
        case isa::Operation::Incfsz:
            return true;
        default:
            return false;
    }
}

// A skip takes a cycle more, and so does a write to PCL.
bool HasSkipped(const Step& step) {
    constexpr int kFileAddressMask = 0x7F;
    const Access access = AccessOf(step);
    const bool writesPcl = access.writtenBits != 0 &&
                           (access.address & kFileAddressMask) == static_cast<int>(core::kPcl);
    return step.clocks > (writesPcl ? 2 : 1) * core::kClocksPerCycle;
}

using AddressesOfLine = std::map<int, std::vector<std::size_t>>;

AddressesOfLine LinesOf(const project::Program& program, int file) {
    AddressesOfLine lines;
    for (std::size_t address = 0; address < program.places.size(); ++address) {
        const std::optional<project::Place>& place = program.places[address];
        if (place && place->file == file) {
            lines[place->line].push_back(address);
        }
    }
    return lines;
}

std::string BranchLine(int line, int branch, std::int64_t executed, std::int64_t taken) {
    return "BRDA:" + std::to_string(line) + ",0," + std::to_string(branch) + "," +
           (executed == 0 ? "-" : std::to_string(taken)) + "\n";
}

std::string CountLine(const char* name, std::int64_t count) {
    return name + std::to_string(count) + "\n";
}

}  // namespace

Coverage::Coverage()
    : executed_(core::kProgramCounterRange), skipped_(core::kProgramCounterRange) {}

Look Coverage::Needs(const Chip& /*chip*/) const {
    return {.everyStep = true};
}

bool Coverage::AfterStep(const Step& step, const Moment& /*moment*/) {
    if (!step.IsInterruptEntry()) {
        const auto address = static_cast<std::size_t>(step.address);
        ++executed_[address];
        if (IsSkip(step.word) && HasSkipped(step)) {
            ++skipped_[address];
        }
    }
    return false;
}

std::string Coverage::LcovText(const project::Program& program) const {
    std::string text;
    for (std::size_t file = 0; file < program.files.size(); ++file) {
        text += LcovRecord(program, static_cast<int>(file));
    }
    return text;
}

std::string Coverage::LcovRecord(const project::Program& program, int file) const {
    const AddressesOfLine lines = LinesOf(program, file);
    std::string counts;
    std::string branches;
    std::int64_t hitLines = 0;
    std::int64_t branchCount = 0;
    std::int64_t hitBranches = 0;
    for (const auto& [line, addresses] : lines) {
        const std::int64_t count = executed_[addresses.front()];
        counts += "DA:" + std::to_string(line) + "," + std::to_string(count) + "\n";
        hitLines += count > 0 ? 1 : 0;
        for (const std::size_t address : addresses) {
            if (IsSkip(program.image.words[address])) {
                const std::int64_t executed = executed_[address];
                const std::int64_t skipped = skipped_[address];
                branches += BranchLine(line, 0, executed, executed - skipped);
                branches += BranchLine(line, 1, executed, skipped);
                branchCount += 2;
                hitBranches += (executed > skipped ? 1 : 0) + (skipped > 0 ? 1 : 0);
            }
        }
    }
    return "TN:\nSF:" + program.files[static_cast<std::size_t>(file)] + "\n" + branches +
           CountLine("BRF:", branchCount) + CountLine("BRH:", hitBranches) + counts +
           CountLine("LF:", static_cast<std::int64_t>(lines.size())) + CountLine("LH:", hitLines) +
           "end_of_record\n";
}

}  // namespace corvane::inspect
