#include "core/cpu/loops.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/cpu/core.h"
#include "core/cpu/decoded_program.h"
#include "core/cpu/instructions.h"
#include "core/cpu/slice.h"
#include "core/schedule.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using isa::Operation;

constexpr int kLongestWatch = 250;             // steps
constexpr std::int64_t kWorthTheTrouble = 20;  // steps that are done in one go
constexpr int kMostPatience = 4096;
constexpr int kMostLooksBetween = 1024;
constexpr std::size_t kMostPassages = 4;
constexpr std::size_t kMostCells = 24;

// The bytes of the state that an instruction can depend on: the cells, then levels and inputs of
// the ports.
constexpr std::size_t kLevels = models::kDataMemorySize;
constexpr std::size_t kInputs = kLevels + kPortCount;

std::uint8_t ByteAt(const ProcessorState& state, std::size_t place) {
    return place < kLevels   ? state.dataMemory[place]
           : place < kInputs ? state.portValues[place - kLevels]
                             : state.pinInputs[place - kInputs];
}

// ---- repeating ---------------------------------------------------------------------------------

bool RegistersAreAsTheyWere(const ProcessorState& state, const Passage& passage) {
    return state.w == passage.w && state.dataMemory[kStatus] == passage.status &&
           (!passage.usesStack || (state.stackPointer == passage.stackPointer &&
                                   state.hardwareStack == passage.hardwareStack));
}

bool IsAsItWas(const ProcessorState& state, const Passage& passage) {
    return RegistersAreAsTheyWere(state, passage) &&
           std::ranges::all_of(passage.inputs, [&state](const Passage::Input& input) {
               return ByteAt(state, input.place) == input.value;
           });
}

// How often a counter can be counted on before it becomes 0: then the loop does something else.
std::int64_t CountsBeforeZero(const ProcessorState& state, const Passage::Counter& counter) {
    const int value = state.dataMemory[counter.cell];
    if (value == 0 && counter.isTested) {
        return 0;
    }
    return counter.change > 0 ? (0xFF - value) / counter.change
                              : (value == 0 ? 0xFF : value - 1) / -counter.change;
}

struct Repeats {
    const Passage* passage = nullptr;
    std::int64_t times = 0;
    std::int64_t steps = 0;
    bool areUsedUp = false;  // there is room for no more
};

Repeats RepeatsOf(const ProcessorState& state, const Passage& passage, const Room& room) {
    const std::int64_t roomFor =
        std::min(room.clockCycles / passage.clockCycles, room.steps / passage.steps);
    std::int64_t times = roomFor;
    for (const Passage::Counter& counter : passage.counters) {
        times = std::min(times, CountsBeforeZero(state, counter));
    }
    return {&passage, times, times * passage.steps, times == roomFor};
}

// The passage whose repeats lead farthest, when so many steps have been made since dispatch counted
// them.
Repeats FindRepeats(Processor& processor, const Loop& loop, std::int64_t stepsMade) {
    const Room room = RoomToRepeat(processor, loop.readOwners, stepsMade);
    Repeats best;
    for (const Passage& passage : loop.passages) {
        if (IsAsItWas(processor.state, passage)) {
            const Repeats found = RepeatsOf(processor.state, passage, room);
            best = best.passage == nullptr || found.steps > best.steps ? found : best;
        }
    }
    return best;
}

void Repeat(ProcessorState& state, const Passage& passage, std::int64_t times) {
    for (const Passage::Counter& counter : passage.counters) {
        std::uint8_t& cell = state.dataMemory[counter.cell];
        cell = static_cast<std::uint8_t>(cell + times * counter.change);
    }
    state.clockCycles += times * passage.clockCycles;
}

Loop& LoopOf(Dispatch& dispatch, const DecodedWord* closing) {
    return dispatch.loops[closing->bitOrLoop - 1U];
}

// ---- watching ----------------------------------------------------------------------------------

// How a passage uses a byte of the state.
struct Use {
    std::size_t place;
    std::uint8_t before;  // its value as the passage began
    int ups = 0;
    int downs = 0;
    bool isTested = false;  // for 0, without being counted
    bool isOther = false;
};

class Watch {
  public:
    Watch(Processor& processor, DecodedWord* closing)
        : processor_(processor),
          closing_(closing),
          reschedules_(processor.dispatch.reschedules),
          start_(processor.state.clockCycles),
          passage_{.w = processor.state.w,
                   .status = processor.state.dataMemory[kStatus],
                   .stackPointer = processor.state.stackPointer,
                   .hardwareStack = processor.state.hardwareStack} {
        CatchUpClocks(processor);
        uses_.reserve(kMostCells);
        UseOf(kPclath).isOther = true;
    }

    // Executes until the closing GOTO comes by again, and gives the passage if it can be repeated.
    std::optional<Passage> Execute();

    std::int64_t StepsDone() const { return steps_; }

    // Does passages of the loop that a GOTO closes in one go.
    void RepeatKnown(const DecodedWord* closing);

  private:
    Use& UseOf(std::size_t place);
    bool NoteUses(const DecodedWord& decoded);
    bool NoteRegister(const DecodedWord& decoded, Operation operation);
    void NotePort(std::size_t port);
    bool SomethingHappened() const;
    std::optional<Passage> Passed();

    Processor& processor_;
    DecodedWord* closing_;
    std::uint64_t reschedules_;  // as the watch began
    std::int64_t start_;         // in clock cycles
    Passage passage_;
    std::vector<Use> uses_;
    TimedReads timedReads_;
    std::int64_t steps_ = 0;
};

Use& Watch::UseOf(std::size_t place) {
    const auto found = std::ranges::find(uses_, place, &Use::place);
    if (found != uses_.end()) {
        return *found;
    }
    return uses_.emplace_back(Use{.place = place, .before = ByteAt(processor_.state, place)});
}

// What an access to a port depends on: its levels, which follow from latch, TRIS and inputs.
void Watch::NotePort(std::size_t port) {
    for (const std::size_t place : {kPortA + port, kTrisA + port, kLevels + port, kInputs + port}) {
        UseOf(place).isOther = true;
    }
}

// False for what is more than reading or storing a value, but for digital ports.
bool Watch::NoteRegister(const DecodedWord& decoded, Operation operation) {
    const Processor& processor = processor_;
    std::size_t cell = decoded.operand;
    if (cell == kIndirectCell) {
        UseOf(kFsr).isOther = true;
        cell = IndirectCell(processor, processor.state.dataMemory[kStatus]);
    }
    if (cell == kStatus || cell == kPcl) {
        return true;  // STATUS is compared anyway, and PCL follows from where the passage goes
    }
    const bool tests = operation == Operation::Btfsc || operation == Operation::Btfss;
    const bool sets = operation == Operation::Bcf || operation == Operation::Bsf ||
                      operation == Operation::Movwf || operation == Operation::Clrf;
    const bool writes = sets || (!tests && isa::DestinationField(decoded.word) != 0);
    const std::uint8_t effects = processor.dispatch.cells.EffectsOf(cell);
    const bool isDigitalPort = (effects & kDigitalPortEffect) != 0;
    if (writes && (effects & kWriteEffect) != 0 && !isDigitalPort) {
        return false;
    }
    if (cell >= kPortA && cell < kPortA + kPortCount) {
        NotePort(cell - kPortA);
        return true;
    }
    if (processor.dispatch.cells.EntryOf(cell).access.read != nullptr) {
        return false;
    }
    NoteRead(processor, cell, timedReads_);
    Use& use = UseOf(cell);
    const bool isPlain = effects == 0 && processor.description.writeMask[cell] == 0xFF;
    const bool counts = isPlain && writes;
    if (counts && (operation == Operation::Incf || operation == Operation::Incfsz)) {
        ++use.ups;
    } else if (counts && (operation == Operation::Decf || operation == Operation::Decfsz)) {
        ++use.downs;
    } else if (counts && operation == Operation::Movf) {
        use.isTested = true;
    } else {
        use.isOther = true;
    }
    return true;
}

// Notes what the instruction will use; false if it does more than a passage may.
bool Watch::NoteUses(const DecodedWord& decoded) {
    const Operation operation = isa::Classify(decoded.word);
    if (operation == Operation::Unrecognized) {
        return false;
    }
    switch (isa::InstructionOf(operation).form) {
        case isa::OperandForm::Register:
        case isa::OperandForm::RegisterDestination:
        case isa::OperandForm::RegisterBit:
            return NoteRegister(decoded, operation);
        default:
            break;
    }
    passage_.usesStack = passage_.usesStack || operation == Operation::Call ||
                         operation == Operation::Return || operation == Operation::Retlw;
    return operation != Operation::Sleep && operation != Operation::Retfie;
}

bool Watch::SomethingHappened() const {
    const Dispatch& dispatch = processor_.dispatch;
    const ProcessorState& state = processor_.state;
    return dispatch.attention != 0 || dispatch.reschedules != reschedules_ ||
           state.clockCycles >= dispatch.clockDue || dispatch.steps + steps_ >= dispatch.stepDue ||
           dispatch.stopMarks[static_cast<std::size_t>(state.pc)] != 0;
}

std::optional<Passage> Watch::Execute() {
    for (int watched = 0; watched < kLongestWatch; ++watched) {
        if (processor_.dispatch.steps + steps_ >= processor_.dispatch.lastStep ||
            uses_.size() > kMostCells) {
            return std::nullopt;
        }
        DecodedWord* const at = EntryAtPc(processor_);
        if (!NoteUses(*at) || !timedReads_.areBounded) {
            return std::nullopt;
        }
        const std::uint16_t patience = at->patience;
        ExecuteInstruction(processor_);
        at->patience = patience;  // who watches need not be asked to look
        ++steps_;
        if (SomethingHappened()) {
            return std::nullopt;
        }
        if (!ClosesLoop(*at)) {
            continue;
        }
        if (at == closing_) {
            return Passed();
        }
        RepeatKnown(at);
    }
    return std::nullopt;
}

void Watch::RepeatKnown(const DecodedWord* closing) {
    if (closing->bitOrLoop == 0) {
        return;
    }
    const Loop& loop = LoopOf(processor_.dispatch, closing);
    const Repeats repeats = FindRepeats(processor_, loop, steps_);
    if (repeats.times <= 0) {
        return;
    }
    const Passage& passage = *repeats.passage;
    passage_.usesStack = passage_.usesStack || passage.usesStack;
    timedReads_.owners |= loop.readOwners;
    for (const Passage::Input& input : passage.inputs) {
        UseOf(input.place).isOther = true;
    }
    for (const Passage::Counter& counter : passage.counters) {
        const int counts = static_cast<int>(repeats.times) * counter.change;
        Use& use = UseOf(counter.cell);
        use.ups += std::max(counts, 0);
        use.downs += std::max(-counts, 0);
        use.isTested = use.isTested || counter.isTested;
    }
    Repeat(processor_.state, passage, repeats.times);
    processor_.state.instructionCount += repeats.steps;
    steps_ += repeats.steps;
}

// A cell that was only counted in one direction and met no 0 on its way.
std::optional<Passage::Counter> CounterOf(const Use& use, int after) {
    const int before = use.before;
    if (use.isOther || (use.ups != 0 && use.downs != 0) || (use.isTested && before == 0)) {
        return std::nullopt;
    }
    const bool goesUp = use.ups != 0;
    const int end = goesUp ? before + use.ups : (before == 0 ? 0x100 : before) - use.downs;
    if (end != after || end == 0) {
        return std::nullopt;
    }
    return Passage::Counter{use.place, use.ups - use.downs, use.isTested};
}

std::optional<Passage> Watch::Passed() {
    const ProcessorState& state = processor_.state;
    if (!RegistersAreAsTheyWere(state, passage_)) {
        return std::nullopt;
    }
    CatchUpClocks(processor_);
    passage_.inputs.reserve(uses_.size());
    for (const Use& use : uses_) {
        const std::uint8_t after = ByteAt(state, use.place);
        if (use.before == after) {
            passage_.inputs.push_back({use.place, after});
        } else if (const auto counter = CounterOf(use, after)) {
            passage_.counters.push_back(*counter);
        } else {
            return std::nullopt;
        }
    }
    passage_.readOwners = timedReads_.owners;
    passage_.steps = steps_;
    passage_.clockCycles = state.clockCycles - start_;
    return std::move(passage_);
}

// ---- looking -----------------------------------------------------------------------------------

// False for one that is known already.
bool Remember(Loop& loop, Passage&& passage) {
    if (std::ranges::find(loop.passages, passage) != loop.passages.end()) {
        return false;
    }
    loop.readOwners |= passage.readOwners;
    if (loop.passages.size() < kMostPassages) {
        loop.passages.push_back(std::move(passage));
    } else {
        loop.passages[loop.oldest] = std::move(passage);
        loop.oldest = (loop.oldest + 1) % kMostPassages;
    }
    return true;
}

// As a part of the present slice.
void RepeatInSlice(Processor& processor, const Repeats& repeats) {
    const Passage& passage = *repeats.passage;
    Repeat(processor.state, passage, repeats.times);
    processor.dispatch.extraCycles +=
        repeats.times * (CyclesOf(passage.clockCycles) - passage.steps);
}

}  // namespace

void ForgetLoops(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    for (const Loop& loop : dispatch.loops) {
        dispatch.code[static_cast<std::size_t>(loop.closing)].bitOrLoop = 0;
    }
    dispatch.loops.clear();
}

void LookAtLoop(Processor& processor, DecodedWord* closing) {
    Dispatch& dispatch = processor.dispatch;
    closing->patience = 1;
    if (IsLastStep(dispatch)) {
        return;
    }
    if (!processor.repeatsLoops) {
        closing->patience = kMostPatience;
        return;
    }
    if (closing->bitOrLoop == 0) {
        dispatch.loops.push_back({.closing = closing - dispatch.code.data()});
        closing->bitOrLoop = static_cast<std::uint16_t>(dispatch.loops.size());
    }
    Loop& loop = LoopOf(dispatch, closing);
    const Repeats repeats = FindRepeats(processor, loop, StepsOfSlice(processor));
    const bool isWorthIt = repeats.steps >= kWorthTheTrouble;
    if (!isWorthIt) {
        loop.patience = std::min(2 * loop.patience, kMostPatience);
    } else {
        loop.patience = repeats.areUsedUp ? 2 : 1;  // the next passage meets what is due
    }
    closing->patience = static_cast<std::uint16_t>(loop.patience);
    if (!repeats.areUsedUp && (!isWorthIt || --loop.looksToWatch <= 0)) {
        dispatch.loopToWatch = closing;
        EndSlice(dispatch);
    } else if (repeats.times > 0) {
        RepeatInSlice(processor, repeats);
    }
}

// The passage may be one of an outer loop that the same GOTO closes.
std::int64_t WatchLoop(Processor& processor, DecodedWord* closing) {
    Loop& loop = LoopOf(processor.dispatch, closing);
    Watch watch(processor, closing);
    watch.RepeatKnown(closing);
    auto passage = watch.Execute();
    if (passage && Remember(loop, std::move(*passage))) {
        closing->patience = 1;
    } else {
        loop.looksBetween = std::min(2 * loop.looksBetween, kMostLooksBetween);
    }
    loop.looksToWatch = loop.looksBetween;
    return watch.StepsDone();
}

}  // namespace corvane::core
