#include <algorithm>
#include <set>

#include "check/rules.h"
#include "common/number_text.h"

namespace corvane::check {

namespace {

constexpr int kStackLevels = 8;

struct Call {
    std::uint32_t place;    // of the CALL
    std::uint32_t routine;  // that is called
};

// Who calls whom, and how many calls are open at most when a routine runs.
class CallTree {
  public:
    explicit CallTree(const Paths& paths) : paths_(paths) {
        calls_.resize(paths.routines.size());
        depths_.assign(paths.routines.size(), 0);
        calledBy_.assign(paths.routines.size(), kNone);
        isOpen_.assign(paths.routines.size(), false);
        isDone_.assign(paths.routines.size(), false);
        for (std::uint32_t routine = 0; routine < paths.routines.size(); ++routine) {
            for (const std::uint32_t caller : paths.routines[routine].callers) {
                calls_[paths.places[caller].routine].push_back({caller, routine});
            }
        }
    }

    // Looks at all that a routine calls, which nothing calls itself. Returns the chains of calls in
    // which a subroutine is entered again, from its first call to the second one.
    std::vector<std::vector<Call>> Descend(std::uint32_t root) {
        std::vector<std::vector<Call>> cycles;
        std::vector<std::uint32_t> order;
        std::vector<Call> chain = {{kNone, root}};
        std::vector<std::size_t> nextCall = {0};
        isOpen_[root] = true;
        while (!chain.empty()) {
            const std::uint32_t routine = chain.back().routine;
            if (nextCall.back() == calls_[routine].size()) {
                isOpen_[routine] = false;
                isDone_[routine] = true;
                order.push_back(routine);
                chain.pop_back();
                nextCall.pop_back();
                continue;
            }
            const Call call = calls_[routine][nextCall.back()++];
            if (const auto first = FirstEntry(chain, call.routine); first != chain.cend()) {
                cycles.emplace_back(first, chain.cend());
                cycles.back().push_back(call);
                backCalls_.insert(paths_.places[call.place].address);
            } else if (!isOpen_[call.routine] && !isDone_[call.routine]) {
                isOpen_[call.routine] = true;
                chain.push_back(call);
                nextCall.push_back(0);
            }
        }
        std::reverse(order.begin(), order.end());
        Measure(order);
        return cycles;
    }

    int Depth(std::uint32_t routine) const { return depths_[routine]; }

    const std::vector<Call>& CallsIn(std::uint32_t routine) const { return calls_[routine]; }

    // The places of the calls that are open when the routine runs at its deepest.
    std::vector<std::uint32_t> Chain(std::uint32_t routine) const {
        std::vector<std::uint32_t> chain;
        while (calledBy_[routine] != kNone) {
            chain.push_back(calledBy_[routine]);
            routine = paths_.places[calledBy_[routine]].routine;
        }
        std::reverse(chain.begin(), chain.end());
        return chain;
    }

  private:
    int EntryOf(std::uint32_t routine) const {
        return paths_.places[paths_.routines[routine].entry].address;
    }

    std::vector<Call>::const_iterator FirstEntry(const std::vector<Call>& chain,
                                                 std::uint32_t routine) const {
        return std::find_if(chain.begin() + 1, chain.end(), [&](const Call& call) {
            return EntryOf(call.routine) == EntryOf(routine);
        });
    }

    // The order has each routine before those that it calls.
    void Measure(const std::vector<std::uint32_t>& order) {
        for (const std::uint32_t routine : order) {
            for (const Call& call : calls_[routine]) {
                if (depths_[call.routine] < depths_[routine] + 1 &&
                    !backCalls_.contains(paths_.places[call.place].address)) {
                    depths_[call.routine] = depths_[routine] + 1;
                    calledBy_[call.routine] = call.place;
                }
            }
        }
    }

    const Paths& paths_;
    std::vector<std::vector<Call>> calls_;
    std::vector<int> depths_;
    std::vector<std::uint32_t> calledBy_;
    std::vector<bool> isOpen_;
    std::vector<bool> isDone_;
    std::set<int> backCalls_;  // the addresses of the calls that enter a subroutine again
};

std::vector<Note> CallNotes(const Paths& paths, const std::vector<std::uint32_t>& calls) {
    std::vector<Note> notes;
    for (const std::uint32_t call : calls) {
        const Place& target = paths.places[paths.routines[paths.called[call]].entry];
        notes.push_back({paths.places[call].address, "calls " + common::Hex4(target.address)});
    }
    return notes;
}

// Each subroutine that is entered again is told once, whichever way leads into the cycle, and so
// are those that stand in the cycle with it.
void TellCycles(const Paths& paths, const std::vector<std::vector<Call>>& cycles,
                FindingList& findings, std::set<int>& told) {
    for (const std::vector<Call>& cycle : cycles) {
        std::vector<std::uint32_t> calls;
        calls.reserve(cycle.size());
        for (const Call& call : cycle) {
            calls.push_back(call.place);
        }
        const Place& target = paths.places[paths.routines[cycle.back().routine].entry];
        if (!told.contains(target.address)) {
            findings.push_back({Rule::Stack, paths.places[cycle.back().place].address,
                                "The subroutine at " + common::Hex4(target.address) +
                                    " can be called again before it has returned.",
                                CallNotes(paths, calls)});
        }
        for (const Call& call : cycle) {
            told.insert(paths.places[paths.routines[call.routine].entry].address);
        }
    }
}

void TellDeepCalls(const Paths& paths, const CallTree& tree, FindingList& findings) {
    std::set<int> told;
    for (std::uint32_t routine = 0; routine < paths.routines.size(); ++routine) {
        if (tree.Depth(routine) != kStackLevels) {
            continue;
        }
        for (const Call& call : tree.CallsIn(routine)) {
            const int address = paths.places[call.place].address;
            if (told.insert(address).second) {
                std::vector<std::uint32_t> chain = tree.Chain(routine);
                chain.push_back(call.place);
                findings.push_back({Rule::Stack, address,
                                    "This call is the ninth that is open, and the stack has 8 "
                                    "levels.",
                                    CallNotes(paths, chain)});
            }
        }
    }
}

// The routine of a set that has the most calls open, of those to which the condition applies.
template <typename Condition>
std::uint32_t Deepest(const Paths& paths, const CallTree& tree, Condition applies) {
    std::uint32_t deepest = kNone;
    for (const Place& place : paths.places) {
        if (applies(place.state) &&
            (deepest == kNone || tree.Depth(place.routine) > tree.Depth(deepest))) {
            deepest = place.routine;
        }
    }
    return deepest;
}

// The most calls that are open when an interrupt can come, together with those of its routine.
void TellDeepInterrupt(const Paths& paths, const CallTree& tree, FindingList& findings) {
    const std::uint32_t main = Deepest(paths, tree, [](const ChipState& state) {
        return state.CanInterrupt() && !state.inInterrupt;
    });
    const std::uint32_t interrupt =
        Deepest(paths, tree, [](const ChipState& state) { return state.inInterrupt; });
    if (main == kNone || interrupt == kNone || tree.Depth(main) > kStackLevels ||
        tree.Depth(interrupt) > kStackLevels) {
        return;
    }
    const int levels = tree.Depth(main) + 1 + tree.Depth(interrupt);
    if (levels <= kStackLevels) {
        return;
    }
    const std::vector<std::uint32_t> mainChain = tree.Chain(main);
    const std::vector<std::uint32_t> interruptChain = tree.Chain(interrupt);
    std::vector<Note> notes = CallNotes(paths, mainChain);
    notes.push_back({paths.places[paths.routines[paths.interrupts.front()].entry].address,
                     "an interrupt comes"});
    for (Note& note : CallNotes(paths, interruptChain)) {
        notes.push_back(std::move(note));
    }
    const std::uint32_t last = mainChain.empty() ? interruptChain.back() : mainChain.back();
    findings.push_back({Rule::Stack, paths.places[last].address,
                        std::to_string(mainChain.size()) + " calls, an interrupt and " +
                            std::to_string(interruptChain.size()) + " calls in its routine need " +
                            std::to_string(levels) + " levels of the stack, which has 8.",
                        std::move(notes)});
}

}  // namespace

void FindStackFaults(const Subject& subject, FindingList& findings) {
    const Paths& paths = subject.paths;
    if (paths.routines.empty()) {
        return;
    }
    CallTree tree(paths);
    std::set<int> told;
    TellCycles(paths, tree.Descend(0), findings, told);
    for (const std::uint32_t interrupt : paths.interrupts) {
        TellCycles(paths, tree.Descend(interrupt), findings, told);
    }
    TellDeepCalls(paths, tree, findings);
    TellDeepInterrupt(paths, tree, findings);
}

}  // namespace corvane::check
