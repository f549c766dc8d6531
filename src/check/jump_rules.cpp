#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "check/rules.h"
#include "check/trail.h"
#include "common/number_text.h"
#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

KnownByte PagePart(const ChipState& state) {
    return Bits(state.pclath, kPageBits);
}

KnownByte PclathPart(const ChipState& state) {
    return state.pclath;
}

int BlockOf(int address) {
    return address / kBlockWords;
}

// Where the word with this address field leads when PCLATH is completely known.
std::string LedTo(int field, KnownByte page) {
    return (page.known & kPageBits) == kPageBits
               ? " to " + common::Hex4((page.value & kPageBits) / 8 * kPageWords + field)
               : "";
}

Finding WrongPage(const Subject& subject, std::uint32_t place) {
    const Place& at = subject.paths.places[place];
    const auto index = static_cast<std::size_t>(at.address);
    const int word = subject.program.words[index];
    const int field = isa::Address11Field(word);
    const std::string mnemonic(isa::InstructionOf(isa::Classify(word)).mnemonic);
    const std::string bits = "PCLATH is " + common::Hex2(PagePart(at.state).value) + "h";
    const std::optional<Operand>& operand = subject.program.operands[index];
    std::string text;
    if (operand && isa::Address11Field(operand->value) == field) {
        text = mnemonic + " does not reach " + operand->name + " (" + common::Hex4(operand->value) +
               "), because " + bits + "; it leads" + LedTo(field, PagePart(at.state)) + " instead.";
    } else {
        text = mnemonic + " leads" + LedTo(field, PagePart(at.state)) +
               ", where the program has no word; " + bits + ".";
    }
    const std::vector<std::uint32_t> trail = TrailSince(subject.paths, place, PagePart);
    return {Rule::Page, at.address, text, NotesSince(subject, trail, PagePart, bits)};
}

// All that comes to one jump by a write to PCL.
struct TableJump {
    std::vector<ComputedJump> jumps;
    int firstTarget = 0;
    int lastTarget = 0;
};

std::map<int, TableJump> JumpsByAddress(const Paths& paths) {
    std::map<int, TableJump> tables;
    for (const ComputedJump& jump : paths.jumps) {
        TableJump& table = tables[paths.places[jump.place].address];
        table.firstTarget =
            table.jumps.empty() ? jump.firstTarget : std::min(table.firstTarget, jump.firstTarget);
        table.lastTarget = std::max(table.lastTarget, jump.lastTarget);
        table.jumps.push_back(jump);
    }
    return tables;
}

bool CanBeBlock(const Paths& paths, const ComputedJump& jump, int block) {
    return paths.places[jump.place].state.pclath.CanBe(block);
}

// A path on which PCLATH leads to none of the blocks that it should lead to.
const ComputedJump* JumpIntoOtherBlock(const Paths& paths, const TableJump& table) {
    for (const ComputedJump& jump : table.jumps) {
        bool canBeRight = false;
        for (int block = BlockOf(jump.firstTarget); block <= BlockOf(jump.lastTarget); ++block) {
            canBeRight = canBeRight || CanBeBlock(paths, jump, block);
        }
        if (!canBeRight) {
            return &jump;
        }
    }
    return nullptr;
}

// A program that adds the carry to PCLATH comes with one content of it for each block.
bool IsCrossingProvidedFor(const Paths& paths, const TableJump& table) {
    for (int block = BlockOf(table.firstTarget); block <= BlockOf(table.lastTarget); ++block) {
        const bool isReached =
            std::any_of(table.jumps.begin(), table.jumps.end(), [&](const ComputedJump& jump) {
                const KnownByte pclath = paths.places[jump.place].state.pclath;
                return pclath.IsComplete() && pclath.CanBe(block);
            });
        if (!isReached) {
            return false;
        }
    }
    return true;
}

Finding WrongTable(const Subject& subject, const ComputedJump& jump, const std::string& text) {
    const Place& at = subject.paths.places[jump.place];
    const std::vector<std::uint32_t> trail = TrailSince(subject.paths, jump.place, PclathPart);
    std::vector<Note> notes;
    if (at.state.pclath.IsComplete()) {
        notes = NotesSince(subject, trail, PclathPart,
                           "PCLATH is " + common::Hex2(at.state.pclath.value) + "h");
    }
    return {Rule::Table, at.address, text, std::move(notes)};
}

std::string ExitText(const Subject& subject, const Exit& exit) {
    if (std::cmp_greater_equal(exit.target, subject.program.words.size())) {
        return "The program runs past the end of program memory.";
    }
    return (exit.byInterrupt ? "An interrupt leads to " : "The program runs to ") +
           common::Hex4(exit.target) + ", which none of its words fills.";
}

Finding ExitFinding(const Subject& subject, const Exit& exit) {
    const std::string text = ExitText(subject, exit);
    if (exit.place == kNone) {
        return {Rule::RunsOff, exit.target, text, {}};
    }
    return {Rule::RunsOff, subject.paths.places[exit.place].address, text,
            TurnsOf(subject, TrailFromStart(subject.paths, exit.place))};
}

}  // namespace

void FindWrongPages(const Subject& subject, FindingList& findings) {
    std::set<int> told;
    for (const std::uint32_t place : subject.paths.wrongPages) {
        if (told.insert(subject.paths.places[place].address).second) {
            findings.push_back(WrongPage(subject, place));
        }
    }
}

void FindWrongTables(const Subject& subject, FindingList& findings) {
    for (const auto& [address, table] : JumpsByAddress(subject.paths)) {
        const std::string target = common::Hex4(table.firstTarget);
        if (const ComputedJump* wrong = JumpIntoOtherBlock(subject.paths, table)) {
            const KnownByte pclath = subject.paths.places[wrong->place].state.pclath;
            findings.push_back(WrongTable(
                subject, *wrong,
                "The jump leads into the words at " + common::Hex4(pclath.value * kBlockWords) +
                    " and not to those behind it, at " + target + ", because PCLATH is " +
                    common::Hex2(pclath.value) + "h."));
        } else if (BlockOf(table.firstTarget) != BlockOf(table.lastTarget) &&
                   !IsCrossingProvidedFor(subject.paths, table)) {
            findings.push_back(WrongTable(
                subject, table.jumps.front(),
                "The table at " + target + " to " + common::Hex4(table.lastTarget) +
                    " crosses into another block of 256 words, which the jump does not reach."));
        }
    }
}

void FindExits(const Subject& subject, FindingList& findings) {
    if (subject.paths.hasUnknownJump) {
        return;
    }
    std::set<std::pair<int, int>> told;
    for (const Exit& exit : subject.paths.exits) {
        const int address = exit.place == kNone ? 0 : subject.paths.places[exit.place].address;
        if (told.emplace(address, exit.target).second) {
            findings.push_back(ExitFinding(subject, exit));
        }
    }
}

void FindUnreachable(const Subject& subject, FindingList& findings) {
    if (subject.paths.hasUnknownJump || !subject.paths.isComplete) {
        return;
    }
    const int words = static_cast<int>(subject.program.words.size());
    std::vector<bool> isOpen(subject.program.words.size());
    for (int address = 0; address < words; ++address) {
        isOpen[static_cast<std::size_t>(address)] = IsFilled(subject.program, address);
    }
    for (const Place& place : subject.paths.places) {
        isOpen[static_cast<std::size_t>(place.address)] = false;
    }
    const auto begin = isOpen.begin();
    for (auto first = std::find(begin, isOpen.end(), true); first != isOpen.end();) {
        const auto last = std::find(first, isOpen.end(), false);
        findings.push_back({Rule::Unreachable,
                            static_cast<int>(first - begin),
                            std::to_string(last - first) + " words that no path reaches",
                            {}});
        first = std::find(last, isOpen.end(), true);
    }
}

}  // namespace corvane::check
