// The listing of a whole program.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "common/progress.h"

namespace corvane::disasm {

enum class ListingFormat : std::uint8_t { WithOpcodes, WithoutOpcodes };

// The second line of a listing with opcodes.
constexpr std::string_view kTitle = "PIC DISASSEMBLER LISTING";

// The address of a line of a listing with opcodes, if it begins with one.
std::optional<int> ListedAddress(std::string_view line);

// Four heading lines, then one line a word from address 0 on; every line ends with CR LF.
// Progress is reported as "Performing pass 1." with the word's address + 1.
std::string DisassembleProgram(std::span<const std::uint16_t> words, ListingFormat format,
                               const common::ProgressCallback& progress = {});

}  // namespace corvane::disasm
