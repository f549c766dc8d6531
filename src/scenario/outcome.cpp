#include "scenario/outcome.h"

#include "common/number_text.h"
#include "isa/instruction_set.h"

namespace corvane::scenario {

std::string LineText(std::string_view file, const Statement& statement) {
    return std::string(file) + ":" + std::to_string(statement.line) + ": " + statement.text;
}

std::string QuotedText(std::string_view bytes) {
    constexpr std::size_t kMostBytes = 60;
    constexpr std::string_view kBytes = "\r\n\t\\\"";
    constexpr std::string_view kNames = "rnt\\\"";
    constexpr char kDelete = 0x7F;
    std::string text = "\"";
    if (bytes.size() > kMostBytes) {
        bytes.remove_prefix(bytes.size() - kMostBytes);
        text = "..\"";
    }
    for (const char c : bytes) {
        const std::size_t escape = kBytes.find(c);
        if (escape != std::string_view::npos) {
            text += std::string("\\") + kNames[escape];
        } else if (c >= ' ' && c < kDelete) {
            text += c;
        } else {
            text += "\\x" + common::Hex2(static_cast<unsigned char>(c));
        }
    }
    return text + "\"";
}

std::string EndText(const core::Processor& processor) {
    const int word = processor.state.lastInstruction;
    const isa::Operation operation = isa::Classify(word);
    if (word >= 0 && operation == isa::Operation::Sleep) {
        return "SLEEP";
    }
    if (word >= 0 && operation == isa::Operation::Unrecognized) {
        return "the word " + common::Hex4(word) + " is no instruction";
    }
    return "past the end of program memory";
}

}  // namespace corvane::scenario
