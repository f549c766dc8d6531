#include "inspect/faults.h"

#include <algorithm>
#include <bit>

#include "common/number_text.h"
#include "isa/instruction_set.h"

namespace corvane::inspect {

namespace {

constexpr std::array<std::string_view, kFaultKinds> kFaultNames = {
    "stack-overflow", "stack-underflow", "uninitialised-ram", "unimplemented", "unsimulated"};

// Registers whose bits start what only the whole chip does. Several bits are a mode: it starts when
// they leave 0.
struct StarterRow {
    std::string_view name;
    int bits;
};
constexpr auto kStarters = std::to_array<StarterRow>({{"T1CON", 0x01},
                                                      {"T2CON", 0x04},
                                                      {"RCSTA", 0x80},
                                                      {"TXSTA", 0x20},
                                                      {"SSPCON", 0x20},
                                                      {"CCP1CON", 0x0F},
                                                      {"CCP2CON", 0x0F},
                                                      {"TRISE", 0x10},
                                                      {"EECON1", 0x80}});

bool Pops(int word) {
    const isa::Operation operation = isa::Classify(word);
    return operation == isa::Operation::Return || operation == isa::Operation::Retlw ||
           operation == isa::Operation::Retfie;
}

std::string StackText(const Step& step, bool isPush) {
    if (!isPush) {
        return "a return with no return address on the stack";
    }
    return step.IsInterruptEntry() ? "an interrupt with eight return addresses on the stack"
                                   : "a call with eight return addresses on the stack";
}

}  // namespace

std::string_view FaultName(FaultKind kind) {
    return kFaultNames[static_cast<std::size_t>(kind)];
}

common::Result<FaultSet> ReadFaultList(std::string_view list) {
    FaultSet kinds;
    while (true) {
        const std::string_view word = list.substr(0, list.find(','));
        const auto* const name = std::find(kFaultNames.begin(), kFaultNames.end(), word);
        if (name == kFaultNames.end()) {
            return common::Result<FaultSet>::Failure(std::string(word));
        }
        kinds.set(static_cast<std::size_t>(name - kFaultNames.begin()));
        if (word.size() == list.size()) {
            return common::Result<FaultSet>::Success(kinds);
        }
        list.remove_prefix(word.size() + 1);
    }
}

FaultFinder::FaultFinder(FaultSet kinds, const Names& names,
                         const models::ModelDescription& description)
    : kinds_(kinds), names_(&names) {
    for (const models::Gpr& gpr : description.gprList) {
        isImplemented_.set(static_cast<std::size_t>(gpr.address));
        isRam_.set(static_cast<std::size_t>(gpr.address));
    }
    for (const models::Sfr& sfr : description.sfrList) {
        if (sfr.address < models::kDataMemorySize) {
            isImplemented_.set(static_cast<std::size_t>(sfr.address));
        }
    }
    AddStarters();
    Begin();
}

void FaultFinder::AddStarters() {
    for (const StarterRow& row : kStarters) {
        const Meaning* meaning = names_->FindRegister(row.name);
        if (meaning != nullptr) {
            starters_.push_back({std::string(row.name), meaning->quantity->place, row.bits, 0});
        }
    }
}

// After a reset nothing is started.
void FaultFinder::Begin() {
    levelsInUse_ = 0;
    written_ = {};
    found_.reset();
    for (Starter& starter : starters_) {
        starter.before = 0;
    }
}

Look FaultFinder::Needs(const Chip& /*chip*/) const {
    return {.everyStep = kinds_.any()};
}

bool FaultFinder::AfterStep(const Step& step, const Moment& moment) {
    found_.reset();
    LookAtStack(step);
    if (!step.IsInterruptEntry()) {
        LookAtAccess(step);
    }
    LookAtStarters(step, moment.processor.state);
    return found_.has_value();
}

void FaultFinder::Pushed() {
    levelsInUse_ = std::min(levelsInUse_ + 1, core::kStackLevels);
}

void FaultFinder::Written(int cell, int bits) {
    written_[static_cast<std::size_t>(cell)] |= static_cast<std::uint8_t>(bits);
}

void FaultFinder::LookAtStack(const Step& step) {
    const bool isPush = step.IsInterruptEntry() || isa::Classify(step.word) == isa::Operation::Call;
    if (isPush) {
        if (levelsInUse_ == core::kStackLevels) {
            Note(FaultKind::StackOverflow, step, StackText(step, true));
        }
        Pushed();
    } else if (Pops(step.word)) {
        if (levelsInUse_ == 0) {
            Note(FaultKind::StackUnderflow, step, StackText(step, false));
        }
        levelsInUse_ = std::max(levelsInUse_ - 1, 0);
    }
}

void FaultFinder::LookAtAccess(const Step& step) {
    const Access access = AccessOf(step);
    if (access.address < 0) {
        return;
    }
    const int cell = names_->CellAt(access.address);
    const auto index = static_cast<std::size_t>(cell);
    const int missing = access.readBits & ~written_[index];
    if (isRam_[index] && missing != 0) {
        const std::string bit =
            access.readBits == missing && std::has_single_bit(access.readBits)
                ? "bit " + std::to_string(std::countr_zero(access.readBits)) + " of "
                : "";
        Note(FaultKind::UninitialisedRam, step,
             bit + RegisterText(access.address) + " is read and was never written");
    }
    if (!isImplemented_[index]) {
        Note(FaultKind::Unimplemented, step,
             std::string(names_->Model().name) + " has no register at " +
                 RegisterText(access.address));
    }
    Written(cell, access.writtenBits);
}

void FaultFinder::LookAtStarters(const Step& step, const core::ProcessorState& state) {
    for (Starter& starter : starters_) {
        const int now = state.dataMemory[static_cast<std::size_t>(starter.cell)] & starter.bits;
        if (now == starter.before) {
            continue;
        }
        if (starter.before == 0) {
            const bool isBit = std::has_single_bit(static_cast<unsigned>(starter.bits));
            const std::string what =
                isBit ? starter.name + "." +
                            std::to_string(std::countr_zero(static_cast<unsigned>(starter.bits))) +
                            " is set"
                      : starter.name + " selects mode " + std::to_string(now);
            Note(FaultKind::Unsimulated, step,
                 what + ", which does nothing on the basic chip (see --chip full)");
        }
        starter.before = now;
    }
}

// The first fault of a step is the one that is told.
void FaultFinder::Note(FaultKind kind, const Step& step, std::string text) {
    if (kinds_[static_cast<std::size_t>(kind)] && !found_) {
        found_ = {kind, step.address, std::move(text)};
    }
}

std::string FaultFinder::RegisterText(int address) const {
    const std::string name = names_->NameOfCell(names_->CellAt(address));
    const std::string text = common::Hex3(address) + "h";
    return name.empty() ? text : text + " (" + name + ")";
}

}  // namespace corvane::inspect
