#include "app/session_recording.h"

#include <algorithm>

#include "common/number_text.h"
#include "scenario/outcome.h"

namespace corvane::app {

namespace {

std::string PinName(core::Pin pin) {
    return std::string("R") + static_cast<char>('A' + pin.port) + std::to_string(pin.bit);
}

// As a test file has it: in quotes where it would not be read as it is.
std::string FileNameText(const std::string& path) {
    const bool isPlain = !path.empty() && path.find_first_of("#\"\\") == std::string::npos &&
                         path.front() != ' ' && path.back() != ' ';
    if (isPlain) {
        return path;
    }
    std::string quoted = "\"";
    for (const char c : path) {
        quoted += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
    }
    return quoted + "\"";
}

std::string EepromLines(const std::vector<std::uint8_t>& eeprom) {
    constexpr std::size_t kBytesInLine = 8;
    std::string lines;
    for (std::size_t begin = 0; begin < eeprom.size(); begin += kBytesInLine) {
        const std::size_t end = std::min(begin + kBytesInLine, eeprom.size());
        std::string bytes;
        bool isEmpty = true;
        for (std::size_t i = begin; i < end; ++i) {
            bytes += " 0x" + common::Hex2(eeprom[i]);
            isEmpty = isEmpty && eeprom[i] == 0;
        }
        if (!isEmpty) {
            lines += "eeprom 0x" + common::Hex2(static_cast<int>(begin)) + ":" + bytes + "\n";
        }
    }
    return lines;
}

std::string Heading(const SessionRecording& recording, const TestedProgram& program) {
    return "program " + FileNameText(program.path) + "\nmodel " + std::string(program.model.name) +
           "\nclock " + program.clockFrequency + " MHz\neeprom-write-time " +
           std::to_string(program.eepromWriteTime) + "\nad-conversion-time " +
           std::to_string(program.adConversionTime) + "\n" + EepromLines(recording.eeprom);
}

std::string EventLine(const PinEvent& event) {
    return event.pin ? "    toggle " + PinName(*event.pin) + "\n"
                     : "    analog AN" + std::to_string(event.channel) + " " +
                           std::to_string(event.value) + "\n";
}

// One line for each port that the model has pins of.
std::string PinLines(const SessionEnd& end, const models::Model& model) {
    std::string lines;
    for (int port = 0; port < models::kPortCount; ++port) {
        std::string levels;
        for (int bit = 0; bit < 8; ++bit) {
            const std::string name = PinName({port, bit});
            if (core::FindPin(model, name)) {
                const bool isHigh =
                    (end.portValues[static_cast<std::size_t>(port)] >> bit & 1) != 0;
                levels +=
                    (levels.empty() ? "" : " and ") + std::string(isHigh ? "" : "not ") + name;
            }
        }
        lines += levels.empty() ? "" : "    expect " + levels + "\n";
    }
    return lines;
}

}  // namespace

SessionRecording BeginRecording(const core::Processor& processor) {
    const auto& eeprom = processor.state.eepromMemory;
    return {.eeprom = {eeprom.begin(), eeprom.begin() + processor.model->eepromBytes},
            .events = {},
            .hasChangedValues = false,
            .end = std::nullopt};
}

SessionEnd EndOf(const core::Processor& processor) {
    const core::ProcessorState& state = processor.state;
    return {.clocks = state.clockCycles,
            .portValues = state.portValues,
            .isAsleep = state.stopRequested && scenario::EndText(processor) == "SLEEP"};
}

std::string SessionAsTest(const SessionRecording& recording, const SessionEnd& end,
                          const TestedProgram& program) {
    std::string text = Heading(recording, program) + "\ntest \"session\"\n";
    std::int64_t now = core::kClocksPerCycle;  // of a chip that has just been started
    const auto waitUntil = [&](std::int64_t clocks) {
        if (clocks > now) {
            text += "    wait " + std::to_string(clocks - now) + " clocks\n";
            now = clocks;
        }
    };
    for (const PinEvent& event : recording.events) {
        waitUntil(event.clocks);
        text += EventLine(event);
    }
    if (end.isAsleep) {
        text += "    within " + std::to_string(end.clocks - now) + " clocks end\n";
    } else {
        waitUntil(end.clocks);
    }
    return text + PinLines(end, program.model);
}

}  // namespace corvane::app
