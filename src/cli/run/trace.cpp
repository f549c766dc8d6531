#include "cli/run/trace.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "isa/instruction_set.h"
#include "project/last_instruction.h"

namespace corvane::cli {

namespace {

constexpr std::size_t kLongestLine = 128;  // two 64-bit numbers, 8 hexadecimal digits, a text
constexpr std::size_t kStatus = 0x003;

char* PutDecimal(char* position, std::int64_t value) {
    constexpr std::ptrdiff_t kLongestNumber = 20;
    return std::to_chars(position, position + kLongestNumber, value).ptr;
}

char* PutHex2(char* position, unsigned value) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    position[0] = kDigits[(value >> 4U) & 0xFU];
    position[1] = kDigits[value & 0xFU];
    return position + 2;
}

char* PutText(char* position, std::string_view text) {
    std::memcpy(position, text.data(), text.size());
    return position + text.size();
}

}  // namespace

std::optional<std::string> Trace::Open(const std::string& file) {
    buffer_.resize(kBufferSize);
    textOfWord_.resize(isa::kWordCount);
    return output_.Open(file);
}

bool Trace::AfterStep(const inspect::Step& step, const inspect::Moment& moment) {
    const core::ProcessorState& state = moment.processor.state;
    if (used_ > kBufferSize - kLongestLine) {
        error_ = Flush();
    }
    char* position = PutDecimal(buffer_.data() + used_, moment.measurements.Steps());
    *position++ = ' ';
    position = PutHex2(position, static_cast<unsigned>(state.pc) >> 8U);
    position = PutHex2(position, static_cast<unsigned>(state.pc));
    *position++ = ' ';
    position = PutHex2(position, static_cast<unsigned>(state.w));
    *position++ = ' ';
    position = PutHex2(position, state.dataMemory[kStatus]);
    *position++ = ' ';
    position = PutDecimal(position, state.clockCycles);
    *position++ = ' ';
    position = PutText(position, InstructionText(state));
    used_ = static_cast<std::size_t>(position - buffer_.data());
    if (program_ != nullptr && !step.IsInterruptEntry()) {
        AddPlace(step);
    }
    used_ = static_cast<std::size_t>(PutText(buffer_.data() + used_, output_.LineEnd()) -
                                     buffer_.data());
    return false;
}

// A file's name may be longer than what the buffer keeps free for a line.
void Trace::AddPlace(const inspect::Step& step) {
    const std::string place = project::PlaceText(*program_, step.address);
    if (place.empty()) {
        return;
    }
    const std::string text = " ; " + place;
    buffer_.resize(std::max(buffer_.size(), kBufferSize + text.size()));
    used_ = static_cast<std::size_t>(PutText(buffer_.data() + used_, text) - buffer_.data());
}

std::string_view Trace::InstructionText(const core::ProcessorState& state) {
    if (state.lastInstruction < 0) {
        return otherText_ = project::LastInstructionText(state);
    }
    std::string& text = textOfWord_[static_cast<std::size_t>(state.lastInstruction)];
    if (text.empty()) {
        text = project::LastInstructionText(state);
    }
    return text;
}

std::optional<std::string> Trace::Flush() {
    const std::string_view lines(buffer_.data(), used_);
    used_ = 0;
    return error_ ? error_ : output_.Write(lines);
}

std::optional<std::string> Trace::Close() {
    std::optional<std::string> error = Flush();
    return error ? error : output_.Close();
}

}  // namespace corvane::cli
