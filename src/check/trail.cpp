#include "check/trail.h"

#include <algorithm>

#include "common/number_text.h"
#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

constexpr std::size_t kMostTurns = 8;

std::uint32_t Before(const Paths& paths, std::uint32_t place) {
    const Place& last = paths.places[place];
    return last.call != kNone ? last.call : last.from;
}

std::string TurnText(const Subject& subject, const Place& from, const Place& to) {
    const int word = subject.program.words[static_cast<std::size_t>(from.address)];
    const std::string target = common::Hex4(to.address);
    if (!from.state.inInterrupt && to.state.inInterrupt) {
        return "an interrupt can come before this instruction";
    }
    switch (isa::Classify(word)) {
        case isa::Operation::Call:
            return "calls " + target;
        case isa::Operation::Return:
        case isa::Operation::Retlw:
        case isa::Operation::Retfie:
            return "returns to " + target;
        case isa::Operation::Goto:
            return "goes to " + target;
        case isa::Operation::Btfsc:
        case isa::Operation::Btfss:
        case isa::Operation::Decfsz:
        case isa::Operation::Incfsz:
            return "skips the next instruction";
        default:
            return "jumps to " + target;
    }
}

}  // namespace

std::vector<std::uint32_t> TrailSince(const Paths& paths, std::uint32_t place, StatePart part) {
    const auto partAt = [&](std::uint32_t i) { return part(paths.places[i].state); };
    std::vector<std::uint32_t> trail = {place};
    while (paths.places[place].from != kNone) {
        const Place& last = paths.places[place];
        const bool isCallAside = last.call != kNone && partAt(last.call) == part(last.state);
        const std::uint32_t before = isCallAside ? last.call : last.from;
        trail.push_back(before);
        if (partAt(before) != part(last.state)) {
            break;
        }
        place = before;
    }
    std::reverse(trail.begin(), trail.end());
    return trail;
}

std::vector<std::uint32_t> TrailFromStart(const Paths& paths, std::uint32_t place) {
    std::vector<std::uint32_t> trail;
    for (; place != kNone; place = Before(paths, place)) {
        trail.push_back(place);
    }
    std::reverse(trail.begin(), trail.end());
    return trail;
}

std::vector<Note> TurnsOf(const Subject& subject, const std::vector<std::uint32_t>& trail) {
    const std::vector<Place>& places = subject.paths.places;
    std::vector<Note> notes;
    for (std::size_t i = 0; i + 1 < trail.size(); ++i) {
        const Place& from = places[trail[i]];
        const Place& to = places[trail[i + 1]];
        const bool isCallAside = to.call == trail[i];
        if (to.address != from.address + 1 && !isCallAside) {
            notes.push_back({from.address, TurnText(subject, from, to)});
        }
    }
    if (notes.size() > kMostTurns) {
        notes.erase(notes.begin(), notes.end() - static_cast<std::ptrdiff_t>(kMostTurns));
    }
    return notes;
}

std::vector<Note> NotesSince(const Subject& subject, const std::vector<std::uint32_t>& trail,
                             StatePart part, const std::string& what) {
    const std::vector<Place>& places = subject.paths.places;
    const Place& first = places[trail.front()];
    const bool isSinceStart =
        trail.size() == 1 || part(first.state) == part(places[trail[1]].state);
    std::vector<Note> notes = {
        {first.address, what + (isSinceStart ? " since the reset" : " from here on")}};
    for (Note& turn : TurnsOf(subject, trail)) {
        notes.push_back(std::move(turn));
    }
    return notes;
}

}  // namespace corvane::check
