#include "check/paths.h"

#include <algorithm>
#include <array>
#include <functional>
#include <unordered_map>
#include <utility>

#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

using isa::Operation;

constexpr int kInterruptVector = 4;
constexpr int kSetGieWord = 0x178B;           // BSF INTCON,GIE
constexpr int kLongestRow = 256;              // words that a jump by an 8-bit number can reach
constexpr std::size_t kManyPlaces = 100'000;  // from here on W and PCLATH's low bits are given up
constexpr std::size_t kMostPlaces = 250'000;
constexpr int kMostVariants = 8;  // states that differ in W and PCLATH's low bits alone
constexpr std::size_t kMostInterrupts = 8;

struct PlaceKey {
    std::uint64_t state;  // with the address
    std::uint32_t routine;

    bool operator==(const PlaceKey&) const = default;
};

struct PlaceHash {
    std::size_t operator()(const PlaceKey& key) const {
        constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
        const std::uint64_t mixed = (key.state ^ (key.state >> 29U)) * kMultiplier + key.routine;
        return static_cast<std::size_t>((mixed ^ (mixed >> 32U)) * kMultiplier);
    }
};

PlaceKey KeyOf(std::uint32_t routine, int address, const ChipState& state) {
    auto packed = static_cast<std::uint64_t>(address);
    const auto add = [&packed](int bits, int value) {
        packed = (packed << static_cast<unsigned>(bits)) | static_cast<std::uint64_t>(value);
    };
    for (const KnownByte byte : {state.w, state.pclath}) {
        add(8, byte.known);
        add(8, byte.value);
    }
    add(2, state.bank.known >> kBankBit);
    add(2, state.bank.value >> kBankBit);
    add(1, state.gie ? 1 : 0);
    add(1, state.byReturn ? 1 : 0);
    add(1, state.enables ? 1 : 0);
    add(1, state.inInterrupt ? 1 : 0);
    return {packed, routine};
}

template <typename Value>
using PlaceMap = std::unordered_map<PlaceKey, Value, PlaceHash>;

// Keeps the number of states at one place small: when too many differ in W alone, W counts as
// unknown there, and then PCLATH's low bits, which only jumps into tables need.
class Variants {
  public:
    ChipState Narrowed(std::uint32_t routine, int address, ChipState state, bool areMany) {
        ChipState common = state;
        common.w = {};
        common.pclath = Bits(state.pclath, kPageBits);
        int& count = counts_[KeyOf(routine, address, common)];
        if (areMany || count >= kMostVariants) {
            state.w = {};
        }
        if (areMany || count >= 2 * kMostVariants) {
            state.pclath = common.pclath;
        }
        ++count;
        return state;
    }

  private:
    PlaceMap<int> counts_;
};

class Explorer {
  public:
    explicit Explorer(const Program& program) : program_(program) {
        mayRestoreGie_ = std::any_of(program.words.begin(), program.words.end(), [](int word) {
            return word == kSetGieWord || isa::Classify(word) == Operation::Retfie;
        });
    }

    Paths Explore() {
        if (IsFilled(program_, 0)) {
            AddRoutine(0, StateAfterReset(), kNone);
        } else {
            paths_.exits.push_back({kNone, 0});
        }
        FollowAll();
        std::vector<std::uint32_t> interrupted = InterruptedPlaces(kPclathBits);
        const bool isMany = interrupted.size() > kMostInterrupts;
        if (isMany) {
            interrupted = InterruptedPlaces(kPageBits);
        }
        for (const std::uint32_t place : interrupted) {
            Interrupt(place, isMany ? kPageBits : 0xFF);
        }
        FollowAll();
        return std::move(paths_);
    }

  private:
    void FollowAll() {
        for (; followed_ < paths_.places.size(); ++followed_) {
            if (paths_.places.size() > kMostPlaces) {
                paths_.isComplete = false;
                return;
            }
            Follow(static_cast<std::uint32_t>(followed_));
        }
    }

    bool AreMany() const { return paths_.places.size() > kManyPlaces; }

    void Follow(std::uint32_t place) {
        const int address = paths_.places[place].address;
        const int word = program_.words[static_cast<std::size_t>(address)];
        const Step step = StepOver(word, address, paths_.places[place].state, mayRestoreGie_);
        switch (step.flow) {
            case Flow::Next:
                Go(place, address + 1, step.next);
                break;
            case Flow::Skip:
                FollowSkip(place, step);
                break;
            case Flow::Goto:
                for (const int target : Targets(place)) {
                    Go(place, target, step.next);
                }
                break;
            case Flow::Call:
                for (const int target : Targets(place)) {
                    Call(place, target, step.next);
                }
                break;
            case Flow::Return:
                Return(place, step.next);
                break;
            case Flow::Computed:
                FollowComputed(place, step);
                break;
            case Flow::Sleep:
                if (IsFilled(program_, address + 1)) {
                    Go(place, address + 1, step.next);
                }
                break;
            case Flow::End:
                break;
        }
    }

    void FollowSkip(std::uint32_t place, const Step& step) {
        const int address = paths_.places[place].address;
        if (step.canGoOn) {
            Go(place, address + 1, step.next);
        }
        if (step.canSkip) {
            Go(place, address + 2, step.skipped);
        }
    }

    // The place at an address inside a routine; a new one has been reached from another.
    std::uint32_t PlaceAt(std::uint32_t routine, int address, const ChipState& exactState,
                          std::uint32_t from, std::uint32_t call) {
        const PlaceKey exact = KeyOf(routine, address, exactState);
        if (const auto known = placeOf_.find(exact); known != placeOf_.end()) {
            return known->second;
        }
        const ChipState state = variants_.Narrowed(routine, address, exactState, AreMany());
        const auto index = static_cast<std::uint32_t>(paths_.places.size());
        const auto [found, isNew] = placeOf_.emplace(KeyOf(routine, address, state), index);
        if (isNew) {
            paths_.places.push_back({state, address, routine, from, call});
            paths_.next.emplace_back();
            paths_.called.push_back(kNone);
        }
        return found->second;
    }

    void Go(std::uint32_t from, int address, const ChipState& state) {
        if (!IsFilled(program_, address)) {
            paths_.exits.push_back({from, address});
            return;
        }
        const std::uint32_t to = PlaceAt(paths_.places[from].routine, address, state, from, kNone);
        paths_.next[from].push_back(to);
    }

    std::uint32_t AddRoutine(int address, const ChipState& state, std::uint32_t from) {
        const auto routine = static_cast<std::uint32_t>(paths_.routines.size());
        paths_.routines.emplace_back();
        results_.emplace_back();
        const std::uint32_t entry = PlaceAt(routine, address, state, from, kNone);
        paths_.routines[routine].entry = entry;
        return routine;
    }

    void Call(std::uint32_t caller, int address, const ChipState& exactState) {
        if (!IsFilled(program_, address)) {
            paths_.exits.push_back({caller, address});
            return;
        }
        const ChipState state = RoutineState(address, exactState);
        const auto [found, isNew] = routineOf_.emplace(KeyOf(0, address, state), 0);
        if (isNew) {
            found->second = AddRoutine(address, state, caller);
        }
        const std::uint32_t routine = found->second;
        paths_.called[caller] = routine;
        paths_.routines[routine].callers.push_back(caller);
        for (std::size_t i = 0; i < results_[routine].size(); ++i) {
            ReturnTo(caller, paths_.routines[routine].returns[i], results_[routine][i]);
        }
    }

    ChipState RoutineState(int address, const ChipState& state) {
        return routineOf_.contains(KeyOf(0, address, state))
                   ? state
                   : routineVariants_.Narrowed(0, address, state, AreMany());
    }

    void Return(std::uint32_t place, const ChipState& exactState) {
        const std::uint32_t routine = paths_.places[place].routine;
        const auto& known = results_[routine];
        const auto isKnown = [&known](const ChipState& state) {
            return std::find(known.begin(), known.end(), state) != known.end();
        };
        if (isKnown(exactState)) {
            return;
        }
        const ChipState state = resultVariants_.Narrowed(routine, 0, exactState, AreMany());
        if (isKnown(state)) {
            return;
        }
        results_[routine].push_back(state);
        paths_.routines[routine].returns.push_back(place);
        const std::vector<std::uint32_t> callers = paths_.routines[routine].callers;
        for (const std::uint32_t caller : callers) {
            ReturnTo(caller, place, state);
        }
    }

    void ReturnTo(std::uint32_t caller, std::uint32_t from, const ChipState& state) {
        const int address = paths_.places[caller].address + 1;
        if (!IsFilled(program_, address)) {
            paths_.exits.push_back({caller, address});
            return;
        }
        const std::uint32_t to =
            PlaceAt(paths_.places[caller].routine, address, state, from, caller);
        paths_.next[caller].push_back(to);
    }

    // Where GOTO or CALL leads: to its label, even when PCLATH is wrong, which is told then; else
    // where PCLATH says, or to the pages that have a word there.
    std::vector<int> Targets(std::uint32_t place) {
        const int address = paths_.places[place].address;
        const int field = isa::Address11Field(program_.words[static_cast<std::size_t>(address)]);
        const KnownByte pclath = paths_.places[place].state.pclath;
        const auto canBePage = [pclath](int target) {
            return Bits(pclath, kPageBits).CanBe(target / kPageWords << 3);
        };
        const std::optional<Operand>& operand =
            program_.operands[static_cast<std::size_t>(address)];
        if (operand && isa::Address11Field(operand->value) == field) {
            if (!canBePage(operand->value)) {
                paths_.wrongPages.push_back(place);
            }
            return {operand->value};
        }
        std::vector<int> targets;
        for (int target = field; target < 4 * kPageWords; target += kPageWords) {
            if (canBePage(target) && IsFilled(program_, target)) {
                targets.push_back(target);
            }
        }
        const int inOwnPage = address / kPageWords * kPageWords + field;
        if (std::find(targets.begin(), targets.end(), inOwnPage) != targets.end()) {
            return {inOwnPage};
        }
        if (targets.empty() &&
            (std::cmp_greater(program_.words.size(), kPageWords) || !canBePage(field))) {
            paths_.wrongPages.push_back(place);
        } else if (targets.empty()) {
            targets.push_back(field);
        }
        return targets;
    }

    void FollowComputed(std::uint32_t place, const Step& step) {
        const int address = paths_.places[place].address;
        const int word = program_.words[static_cast<std::size_t>(address)];
        const KnownByte w = paths_.places[place].state.w;
        const bool isAddition = isa::Classify(word) == Operation::Addwf;
        const std::vector<int> row = isAddition ? Row(address + 1, w) : std::vector<int>();
        if (!row.empty()) {
            paths_.jumps.push_back({place, row.front(), row.back()});
            for (const int target : row) {
                Go(place, target, step.next);
            }
        } else if (step.counter.IsComplete() && step.next.pclath.IsComplete()) {
            Go(place, step.next.pclath.value * kBlockWords + step.counter.value, step.next);
        } else {
            paths_.hasUnknownJump = true;
        }
    }

    // The addresses in the row of RETLW or GOTO words from here on that W can lead to.
    std::vector<int> Row(int begin, KnownByte w) const {
        std::vector<int> row;
        for (int i = 0; i < kLongestRow && IsRowWord(begin + i); ++i) {
            if (w.CanBe(i)) {
                row.push_back(begin + i);
            }
        }
        return row;
    }

    bool IsRowWord(int address) const {
        if (!IsFilled(program_, address)) {
            return false;
        }
        const Operation operation =
            isa::Classify(program_.words[static_cast<std::size_t>(address)]);
        return operation == Operation::Retlw || operation == Operation::Goto;
    }

    // A place for each content of these bits of PCLATH with which an interrupt can come.
    std::vector<std::uint32_t> InterruptedPlaces(int pclathBits) const {
        std::vector<std::uint32_t> found;
        for (std::size_t i = 0; i < paths_.places.size(); ++i) {
            const ChipState& state = paths_.places[i].state;
            const bool isNew = std::none_of(found.begin(), found.end(), [&](std::uint32_t other) {
                return Bits(paths_.places[other].state.pclath, pclathBits) ==
                       Bits(state.pclath, pclathBits);
            });
            if (state.CanInterrupt() && isNew) {
                found.push_back(static_cast<std::uint32_t>(i));
            }
        }
        return found;
    }

    void Interrupt(std::uint32_t place, int pclathBits) {
        if (!IsFilled(program_, kInterruptVector)) {
            paths_.exits.push_back({place, kInterruptVector, true});
            return;
        }
        ChipState state;
        state.pclath = Bits(paths_.places[place].state.pclath, pclathBits);
        state.enables = true;
        state.inInterrupt = true;
        paths_.interrupts.push_back(AddRoutine(kInterruptVector, state, place));
    }

    const Program& program_;
    bool mayRestoreGie_ = false;
    Paths paths_;
    std::size_t followed_ = 0;
    PlaceMap<std::uint32_t> placeOf_;
    PlaceMap<std::uint32_t> routineOf_;
    Variants variants_;
    Variants routineVariants_;
    Variants resultVariants_;
    std::vector<std::vector<ChipState>> results_;  // by routine: of each return
};

}  // namespace

bool IsFilled(const Program& program, int address) {
    constexpr int kErasedWord = 0x3FFF;
    const auto index = static_cast<std::size_t>(address);
    return std::cmp_less(address, program.words.size()) && program.isProgrammed[index] &&
           program.words[index] != kErasedWord;
}

Paths FollowPaths(const Program& program) {
    return Explorer(program).Explore();
}

}  // namespace corvane::check
