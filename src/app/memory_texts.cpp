#include "app/memory_texts.h"

#include <cstddef>

#include "common/number_text.h"

namespace corvane::app {

namespace {

constexpr int kBytesPerRow = 16;

void AppendLine(std::string& text, const std::string& line) {
    if (!text.empty()) {
        text += "\r\n";
    }
    text += line;
}

std::string EepromRow(const core::ProcessorState& state, int row) {
    std::string line;
    for (int offset = kBytesPerRow - 1; offset >= 0; --offset) {
        const auto address = static_cast<std::size_t>(row * kBytesPerRow + offset);
        line += common::Hex2(state.eepromMemory.at(address)) + " ";
    }
    return line;
}

}  // namespace

std::string ProgramMemoryText(const core::Processor& processor, int scrollValue) {
    std::string text;
    for (int address = scrollValue - 1; address < scrollValue - 1 + kProgramMemoryRows; ++address) {
        const int word = processor.programMemory.at(static_cast<std::size_t>(address));
        AppendLine(text, common::Hex4(address) + "h   " + common::Hex4(word) + "h   " +
                             common::Binary14(word));
    }
    return text;
}

int LargestProgramMemoryScrollValue(int programWords) {
    return programWords - kProgramMemoryRows + 1;
}

std::string EepromText(const core::ProcessorState& state, int eepromBytes) {
    std::string text;
    for (int row = 0; row < eepromBytes / kBytesPerRow; ++row) {
        AppendLine(text, EepromRow(state, row));
    }
    return text;
}

std::string EepromRowHeading(int eepromBytes) {
    std::string text;
    for (int address = 0; address < eepromBytes; address += kBytesPerRow) {
        AppendLine(text, common::Hex2(address) + "h");
    }
    return text;
}

std::string StackText(const core::ProcessorState& state) {
    std::string text;
    for (int level = 1; level <= core::kStackLevels; ++level) {
        const int entry = state.hardwareStack.at(static_cast<std::size_t>(level));
        AppendLine(text, "Level " + std::to_string(level) + ":  " + common::Hex4(entry) + "h   " +
                             common::Binary13(entry));
    }
    return text;
}

std::string StackPointerText(const core::ProcessorState& state) {
    return "Level " + std::to_string(state.stackPointer);
}

}  // namespace corvane::app
