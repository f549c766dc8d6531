// How a path comes to a place, as notes for a person.
#pragma once

#include <vector>

#include "check/rules.h"

namespace corvane::check {

// The places of the path to a place, that place last. It begins at the place whose instruction
// gave a part of the state (RP0 and RP1, say) the value that it has at the end; calls that leave
// the part alone are left out. part returns that part.
using StatePart = KnownByte (*)(const ChipState& state);
std::vector<std::uint32_t> TrailSince(const Paths& paths, std::uint32_t place, StatePart part);

// The places of the path from the reset (or from the interrupt) to a place, without the calls that
// have returned.
std::vector<std::uint32_t> TrailFromStart(const Paths& paths, std::uint32_t place);

// A note for each place of the trail from which the path did not go on to the next word. Of a long
// trail the last ones.
std::vector<Note> TurnsOf(const Subject& subject, const std::vector<std::uint32_t>& trail);

// The part of the state is what it is since the trail's first place: a note there, in front of the
// trail's turns. what says of which register, "PCLATH is 08".
std::vector<Note> NotesSince(const Subject& subject, const std::vector<std::uint32_t>& trail,
                             StatePart part, const std::string& what);

}  // namespace corvane::check
