#include "disasm/listing.h"

#include <cstddef>
#include <string_view>

#include "common/number_text.h"
#include "disasm/decoder.h"

namespace corvane::disasm {

namespace {

constexpr std::string_view kHeadingWithOpcodes =
    "-----------------------------------\r\n"
    "PIC DISASSEMBLER LISTING\r\n"
    "Address Opcode  Instruction\r\n"
    "-----------------------------------\r\n";

constexpr std::string_view kHeadingWithoutOpcodes =
    ";-----------------------------------\r\n"
    ";PIC DISASSEMBLER LISTING\r\n"
    ";Instruction\r\n"
    ";-----------------------------------\r\n";

constexpr std::size_t kTypicalLineLength = 40;

}  // namespace

std::string DisassembleProgram(std::span<const std::uint16_t> words, ListingFormat format,
                               const common::ProgressCallback& progress) {
    constexpr std::string_view kGap = "    ";
    const bool withOpcodes = format == ListingFormat::WithOpcodes;
    std::string listing(withOpcodes ? kHeadingWithOpcodes : kHeadingWithoutOpcodes);
    listing.reserve(listing.size() + words.size() * kTypicalLineLength);
    int address = 0;
    for (const int word : words) {
        if (progress) {
            progress("Performing pass 1.", address + 1);
        }
        if (withOpcodes) {
            listing.append(common::Hex4(address)).append(kGap);
            listing.append(common::Hex4(word)).append(kGap);
        }
        listing.append(DecodeInstruction(word)).append("\r\n");
        ++address;
    }
    return listing;
}

}  // namespace corvane::disasm
