#include "disasm/listing.h"

#include <cstddef>

#include "common/number_text.h"
#include "disasm/decoder.h"

namespace corvane::disasm {

namespace {

constexpr std::size_t kTypicalLineLength = 40;

// Without opcodes the listing is assembler source, and its heading a comment.
std::string Heading(bool withOpcodes) {
    const std::string begin = withOpcodes ? "" : ";";
    const std::string rule = begin + std::string(35, '-') + "\r\n";
    return rule + begin + std::string(kTitle) + "\r\n" + begin +
           (withOpcodes ? "Address Opcode  " : "") + "Instruction\r\n" + rule;
}

}  // namespace

std::optional<int> ListedAddress(std::string_view line) {
    constexpr std::size_t kDigits = 4;
    const int address = common::ParseHex4(line.substr(0, kDigits));
    return address < 0 ? std::nullopt : std::optional(address);
}

std::string DisassembleProgram(std::span<const std::uint16_t> words, ListingFormat format,
                               const common::ProgressCallback& progress) {
    constexpr std::string_view kGap = "    ";
    const bool withOpcodes = format == ListingFormat::WithOpcodes;
    std::string listing = Heading(withOpcodes);
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
