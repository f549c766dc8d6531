#include "cli/run/state_json.h"

#include <cstdint>
#include <span>
#include <string_view>

#include "common/number_text.h"
#include "project/last_instruction.h"

namespace corvane::cli {

namespace {

// Writes members in the order of the calls.
class JsonObject {
  public:
    void Add(std::string_view name, std::int64_t value) { AddRaw(name, std::to_string(value)); }

    void AddBoolean(std::string_view name, bool value) { AddRaw(name, value ? "true" : "false"); }

    // The text needs no escapes: it is a name or an instruction.
    void AddText(std::string_view name, std::string_view text) {
        AddRaw(name, '"' + std::string(text) + '"');
    }

    void AddMemory(std::string_view name, std::span<const std::uint8_t> cells) {
        std::string digits;
        for (const std::uint8_t cell : cells) {
            digits += common::Hex2(cell);
        }
        AddText(name, digits);
    }

    template <typename Values>
    void AddArray(std::string_view name, const Values& values) {
        std::string list;
        for (const auto value : values) {
            list += list.empty() ? "" : ", ";
            list += ValueText(value);
        }
        AddRaw(name, '[' + list + ']');
    }

    std::string Text() const { return "{\n" + members_ + "\n}\n"; }

  private:
    static std::string ValueText(bool value) { return value ? "true" : "false"; }
    static std::string ValueText(int value) { return std::to_string(value); }

    void AddRaw(std::string_view name, std::string_view value) {
        members_ += members_.empty() ? "  \"" : ",\n  \"";
        members_.append(name).append("\": ").append(value);
    }

    std::string members_;
};

}  // namespace

std::string StateJson(const core::Processor& processor, int loadedWords) {
    const core::ProcessorState& state = processor.state;
    JsonObject json;
    json.AddText("model", processor.model->name);
    json.Add("pc", state.pc);
    json.Add("w", state.w);
    json.AddMemory("dataMemory", state.dataMemory);
    json.AddMemory("eepromMemory",
                   std::span(state.eepromMemory)
                       .first(static_cast<std::size_t>(processor.model->eepromBytes)));
    json.AddArray("hardwareStack", std::span(state.hardwareStack).subspan(1));
    json.Add("stackPointer", state.stackPointer);
    json.Add("instructionCount", state.instructionCount);
    json.Add("clockCycles", state.clockCycles);
    json.AddText("lastInstruction", project::LastInstructionText(state));
    json.Add("prescalerCount", state.prescalerCount);
    json.AddBoolean("stopRequested", state.stopRequested);
    json.AddArray("pinInputs", state.pinInputs);
    json.AddArray("portValues", state.portValues);
    json.AddArray("analogValues", state.analogValues);
    json.AddArray("analogPinFlags", state.analogPinFlags);
    json.Add("vrefValue", state.vrefValue);
    json.AddBoolean("eeWriteBusy", state.eeWriteBusy);
    json.Add("eeWriteElapsed", state.eeWriteElapsed);
    json.Add("eeWriteAddress", state.eeWriteAddress);
    json.Add("eeWriteData", state.eeWriteData);
    json.Add("eeUnlockState", state.eeUnlockState);
    json.Add("adElapsed", state.adElapsed);
    json.Add("adSample", state.adSample);
    json.Add("loadedWords", loadedWords);
    return json.Text();
}

}  // namespace corvane::cli
