// Any text is a source line, and any text is what another assembler prints.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/text.h"
#include "isa/instruction_set.h"
#include "project/gpasm.h"
#include "project/line_operand.h"
#include "require.h"

namespace {

// The first two bytes are the line's word.
void CheckLine(std::string_view text) {
    const int word =
        (static_cast<unsigned char>(text[0]) + 256 * static_cast<unsigned char>(text[1])) %
        corvane::isa::kWordCount;
    const auto operand = corvane::project::ReadLineOperand(
        text.substr(2), word, 0x123,
        [](std::string_view name) { return std::optional<int>(static_cast<int>(name.size())); });
    Require(!operand || (operand->value >= 0 && !operand->name.empty() &&
                         text.find(operand->name) != std::string_view::npos));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (size >= 2) {
        CheckLine(text);
    }
    for (const auto& message : corvane::project::ReadGpasmMessages(text, "a b/source.asm")) {
        Require(message.line >= 0 && message.text.ends_with(']') &&
                (message.file == "a b/source.asm" || text.find(message.file) != text.npos));
    }
    return 0;
}
