#include <algorithm>
#include <array>
#include <deque>
#include <optional>

#include "check/liveness.h"
#include "check/rules.h"
#include "check/saved_context.h"
#include "common/number_text.h"
#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

// A resource with the register that a person knows it by.
struct Named {
    Resources resource;
    std::string_view registerName;
    std::string_view text;
};

// The first of a register that is found is told.
constexpr std::array<Named, 9> kNames = {{{kWorking, "W", "W"},
                                          {kZero, "STATUS", "Z in STATUS"},
                                          {kCarry, "STATUS", "C in STATUS"},
                                          {kDigitCarry, "STATUS", "DC in STATUS"},
                                          {kRp0, "STATUS", "RP0 in STATUS"},
                                          {kRp1, "STATUS", "RP1 in STATUS"},
                                          {kFileSelect, "FSR", "FSR"},
                                          {kPclathPage, "PCLATH", "PCLATH"},
                                          {kPclathBlock, "PCLATH", "PCLATH"}}};

// The end of an interrupt routine with what it has kept.
struct Ending {
    ChipState state;
    Context context;
};

// The contexts at the places of the interrupt routines, up to their ends.
class InterruptRun {
  public:
    explicit InterruptRun(const Subject& subject) : subject_(subject), paths_(subject.paths) {
        contexts_.resize(paths_.places.size());
        for (const std::uint32_t routine : paths_.interrupts) {
            Arrive(paths_.routines[routine].entry, Context());
        }
        for (; !open_.empty(); open_.pop_front()) {
            Leave(open_.front());
        }
    }

    std::vector<Ending> Endings() const {
        std::vector<Ending> endings;
        for (std::size_t i = 0; i < contexts_.size(); ++i) {
            const Place& place = paths_.places[i];
            const int word = subject_.program.words[static_cast<std::size_t>(place.address)];
            if (contexts_[i] && IsReturn(word) && IsInterrupt(place.routine)) {
                endings.push_back({place.state, *contexts_[i]});
            }
        }
        return endings;
    }

  private:
    bool IsInterrupt(std::uint32_t routine) const {
        return std::find(paths_.interrupts.begin(), paths_.interrupts.end(), routine) !=
               paths_.interrupts.end();
    }

    void Arrive(std::uint32_t place, const Context& context) {
        std::optional<Context>& known = contexts_[place];
        const Context merged = known ? Common(*known, context) : context;
        if (!known || merged != *known) {
            known = merged;
            open_.push_back(place);
        }
    }

    void Leave(std::uint32_t place) {
        const Place& at = paths_.places[place];
        const int word = subject_.program.words[static_cast<std::size_t>(at.address)];
        const Context behind = ContextBehind(*contexts_[place], word, at.address, at.state);
        if (paths_.called[place] != kNone) {
            Arrive(paths_.routines[paths_.called[place]].entry, behind);
            return;
        }
        for (const std::uint32_t next : paths_.next[place]) {
            Arrive(next, behind);
        }
        if (IsReturn(word)) {
            for (const std::uint32_t caller : paths_.routines[at.routine].callers) {
                for (const std::uint32_t next : paths_.next[caller]) {
                    Arrive(next, behind);
                }
            }
        }
    }

    const Subject& subject_;
    const Paths& paths_;
    std::vector<std::optional<Context>> contexts_;
    std::deque<std::uint32_t> open_;
};

// RP0, RP1 and PCLATH are known bits: they are lost only where they are known to differ. W may by
// chance be the same.
bool Differs(Resources resource, const ChipState& main, const ChipState& ending) {
    const auto differs = [](KnownByte a, KnownByte b, int bits) {
        return ((a.value ^ b.value) & a.known & b.known & bits) != 0;
    };
    switch (resource) {
        case kWorking:
            return !(main.w.IsComplete() && main.w == ending.w);
        case kRp0:
            return differs(main.bank, ending.bank, 1 << kBankBit);
        case kRp1:
            return differs(main.bank, ending.bank, 2 << kBankBit);
        case kPclathPage:
            return differs(main.pclath, ending.pclath, kPageBits);
        case kPclathBlock:
            return differs(main.pclath, ending.pclath, kPclathBits & ~kPageBits);
        default:
            return true;
    }
}

// A place of the main program at which an interrupt takes the resource away from it.
std::uint32_t Victim(const Subject& subject, const std::vector<Resources>& live, Resources resource,
                     const Ending& ending) {
    for (std::size_t i = 0; i < live.size(); ++i) {
        const ChipState& state = subject.paths.places[i].state;
        if ((live[i] & resource) != 0 && state.CanInterrupt() && !state.inInterrupt &&
            Differs(resource, state, ending.state)) {
            return static_cast<std::uint32_t>(i);
        }
    }
    return kNone;
}

Finding LostContext(const Subject& subject, const Named& named, const Ending& ending,
                    std::uint32_t victim) {
    const std::string name(named.text);
    std::vector<Note> notes = {
        {subject.paths.places[victim].address, "an interrupt can come before this instruction"}};
    const std::uint32_t reader = ReaderOf(subject, victim, named.resource);
    if (reader != kNone) {
        notes.push_back({subject.paths.places[reader].address,
                         "this instruction needs " + name + " as it was"});
    }
    return {Rule::IsrContext, ChangedAt(ending.context, named.resource),
            "The interrupt routine changes " + name +
                " and does not restore it, and the main program relies on it.",
            std::move(notes)};
}

}  // namespace

void FindLostContext(const Subject& subject, FindingList& findings) {
    const std::vector<Ending> endings = InterruptRun(subject).Endings();
    if (endings.empty()) {
        return;
    }
    const std::vector<Resources> live = LiveResources(subject);
    std::string_view told;
    for (const Named& named : kNames) {
        for (const Ending& ending : endings) {
            if (told == named.registerName ||
                (LostResources(ending.context) & named.resource) == 0) {
                continue;
            }
            const std::uint32_t victim = Victim(subject, live, named.resource, ending);
            if (victim != kNone) {
                findings.push_back(LostContext(subject, named, ending, victim));
                told = named.registerName;
            }
        }
    }
}

}  // namespace corvane::check
