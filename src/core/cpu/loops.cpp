#include "core/cpu/loops.h"

#include <algorithm>
#include <optional>

#include "core/cpu/core.h"
#include "core/cpu/decoded_program.h"
#include "core/cpu/instructions.h"
#include "core/cpu/slice.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using isa::Operation;

constexpr int kLongestWatch = 250;             // steps
constexpr std::int64_t kWorthTheTrouble = 40;  // steps that are done in one go
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

bool IsAsItWas(const ProcessorState& state, const Passage& passage) {
    return state.w == passage.w && state.dataMemory[kStatus] == passage.status &&
           (!passage.usesStack || (state.stackPointer == passage.stackPointer &&
                                   state.hardwareStack == passage.hardwareStack)) &&
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

// How many passages end before something is due, where the steps since the last slice count as
// done.
std::int64_t PassagesBeforeDue(const Processor& processor, const Passage& passage,
                               std::int64_t stepsDone, std::int64_t maxSteps) {
    const Dispatch& dispatch = processor.dispatch;
    const std::int64_t clocks = dispatch.clockDue - 1 - processor.state.clockCycles;
    const std::int64_t stepsToDue = dispatch.stepDue - 1 - dispatch.steps;
    const std::int64_t steps = std::min(maxSteps, stepsToDue) - stepsDone;
    return std::min(clocks / passage.clockCycles, steps / passage.steps);
}

struct Repeats {
    const Passage* passage = nullptr;
    std::int64_t times = 0;
    bool areUsedUp = false;  // whatever is due next leaves room for no more

    std::int64_t Steps() const { return passage == nullptr ? 0 : times * passage->steps; }
};

// The passage whose repeats lead farthest.
Repeats FindRepeats(const Processor& processor, const Loop& loop, std::int64_t stepsDone,
                    std::int64_t maxSteps) {
    Repeats best;
    for (const Passage& passage : loop.passages) {
        if (!IsAsItWas(processor.state, passage)) {
            continue;
        }
        const std::int64_t room = PassagesBeforeDue(processor, passage, stepsDone, maxSteps);
        std::int64_t times = room;
        for (const Passage::Counter& counter : passage.counters) {
            times = std::min(times, CountsBeforeZero(processor.state, counter));
        }
        const Repeats found = {&passage, times, times == room};
        if (best.passage == nullptr || found.Steps() > best.Steps()) {
            best = found;
        }
    }
    return best;
}

void Repeat(ProcessorState& state, const Passage& passage, std::int64_t times) {
    for (const Passage::Counter& counter : passage.counters) {
        std::uint8_t& cell = state.dataMemory[counter.cell];
        cell = static_cast<std::uint8_t>(cell + times * counter.change);
    }
    state.instructionCount += times * passage.steps;
    state.clockCycles += times * passage.clockCycles;
}

// ---- watching ----------------------------------------------------------------------------------

// How a passage uses a byte of the state.
struct Use {
    std::size_t place;
    int ups = 0;
    int downs = 0;
    bool isTested = false;  // for 0, without being counted
    bool isOther = false;
};

class Watch {
  public:
    Watch(Processor& processor, DecodedWord* closing, std::int64_t maxSteps)
        : processor_(processor),
          closing_(closing),
          maxSteps_(maxSteps),
          clockDue_(processor.dispatch.clockDue),
          before_(processor.state) {
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
    std::optional<Passage> Passed() const;

    Processor& processor_;
    DecodedWord* closing_;
    std::int64_t maxSteps_;
    std::int64_t clockDue_;  // as the watch began: reading what counts moves it
    ProcessorState before_;
    std::vector<Use> uses_;
    bool usesStack_ = false;
    std::int64_t steps_ = 0;
};

Use& Watch::UseOf(std::size_t place) {
    const auto found = std::ranges::find(uses_, place, &Use::place);
    return found != uses_.end() ? *found : uses_.emplace_back(Use{.place = place});
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
    if (cell == kTmr0 || (writes && (effects & kWriteEffect) != 0 && !isDigitalPort)) {
        return false;
    }
    if (cell >= kPortA && cell < kPortA + kPortCount) {
        NotePort(cell - kPortA);
        return true;
    }
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
    usesStack_ = usesStack_ || operation == Operation::Call || operation == Operation::Return ||
                 operation == Operation::Retlw;
    return operation != Operation::Sleep && operation != Operation::Retfie;
}

bool Watch::SomethingHappened() const {
    const Dispatch& dispatch = processor_.dispatch;
    const ProcessorState& state = processor_.state;
    return dispatch.attention != 0 || state.clockCycles >= clockDue_ ||
           dispatch.steps + steps_ >= dispatch.stepDue ||
           dispatch.stopMarks[static_cast<std::size_t>(state.pc)] != 0;
}

std::optional<Passage> Watch::Execute() {
    for (int watched = 0; watched < kLongestWatch; ++watched) {
        if (steps_ >= maxSteps_ || uses_.size() > kMostCells) {
            return std::nullopt;
        }
        DecodedWord* const at = EntryAtPc(processor_);
        if (!NoteUses(*at)) {
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
        processor_.dispatch.closedLoop = nullptr;
        if (at == closing_) {
            return Passed();
        }
        RepeatKnown(at);
    }
    return std::nullopt;
}

void Watch::RepeatKnown(const DecodedWord* closing) {
    Dispatch& dispatch = processor_.dispatch;
    const auto loop = dispatch.loops.find(closing - dispatch.code.data());
    if (loop == dispatch.loops.end()) {
        return;
    }
    const Repeats repeats = FindRepeats(processor_, loop->second, steps_, maxSteps_);
    if (repeats.times <= 0) {
        return;
    }
    const Passage& passage = *repeats.passage;
    Repeat(processor_.state, passage, repeats.times);
    steps_ += repeats.Steps();
    usesStack_ = usesStack_ || passage.usesStack;
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
}

// A cell that was only counted in one direction and met no 0 on its way.
std::optional<Passage::Counter> CounterOf(const Use& use, int before, int after) {
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

std::optional<Passage> Watch::Passed() const {
    const ProcessorState& state = processor_.state;
    Passage passage = {.w = state.w,
                       .status = state.dataMemory[kStatus],
                       .usesStack = usesStack_,
                       .stackPointer = state.stackPointer,
                       .hardwareStack = state.hardwareStack,
                       .inputs = {},
                       .counters = {},
                       .steps = steps_,
                       .clockCycles = state.clockCycles - before_.clockCycles};
    if (!IsAsItWas(before_, passage)) {
        return std::nullopt;
    }
    for (const Use& use : uses_) {
        const std::uint8_t before = ByteAt(before_, use.place);
        const std::uint8_t after = ByteAt(state, use.place);
        if (before == after) {
            passage.inputs.push_back({use.place, after});
        } else if (const auto counter = CounterOf(use, before, after)) {
            passage.counters.push_back(*counter);
        } else {
            return std::nullopt;
        }
    }
    return passage;
}

// ---- looking -----------------------------------------------------------------------------------

// False for one that is known already.
bool Remember(Loop& loop, const Passage& passage) {
    if (std::ranges::find(loop.passages, passage) != loop.passages.end()) {
        return false;
    }
    if (loop.passages.size() < kMostPassages) {
        loop.passages.push_back(passage);
    } else {
        loop.passages[loop.oldest] = passage;
        loop.oldest = (loop.oldest + 1) % kMostPassages;
    }
    return true;
}

// Watches a passage, which may be one of an outer loop that the same GOTO closes.
std::int64_t WatchLoop(Processor& processor, DecodedWord* closing, Loop& loop,
                       std::int64_t maxSteps) {
    Watch watch(processor, closing, maxSteps);
    watch.RepeatKnown(closing);
    const auto passage = watch.Execute();
    if (passage && Remember(loop, *passage)) {
        closing->patience = 1;
    } else {
        loop.looksBetween = std::min(2 * loop.looksBetween, kMostLooksBetween);
    }
    loop.looksToWatch = loop.looksBetween;
    return watch.StepsDone();
}

}  // namespace

std::int64_t FollowLoop(Processor& processor, std::int64_t maxSteps) {
    Dispatch& dispatch = processor.dispatch;
    DecodedWord* const closing = dispatch.closedLoop;
    dispatch.closedLoop = nullptr;
    if (!processor.repeatsLoops) {
        closing->patience = kMostPatience;
        return 0;
    }
    if (dispatch.attention != 0) {
        return 0;
    }
    Loop& loop = dispatch.loops[closing - dispatch.code.data()];
    const Repeats repeats = FindRepeats(processor, loop, 0, maxSteps);
    const bool isWorthIt = repeats.Steps() >= kWorthTheTrouble;
    if (!isWorthIt) {
        loop.patience = std::min(2 * loop.patience, kMostPatience);
    } else {
        loop.patience = repeats.areUsedUp ? 2 : 1;  // the next passage meets what is due
    }
    closing->patience = static_cast<std::uint16_t>(loop.patience);
    if (!repeats.areUsedUp && (!isWorthIt || --loop.looksToWatch <= 0)) {
        return WatchLoop(processor, closing, loop, maxSteps);
    }
    if (repeats.times <= 0) {
        return 0;
    }
    Repeat(processor.state, *repeats.passage, repeats.times);
    return repeats.Steps();
}

}  // namespace corvane::core
