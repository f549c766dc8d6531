#include "core/state_difference.h"

#include <cstddef>
#include <cstdint>

#include "common/number_text.h"

namespace corvane::core {

namespace {

class Differences {
  public:
    template <typename Value>
    void Compare(const std::string& field, const Value& plain, const Value& fast) {
        if (plain != fast) {
            text_ += field + ": plain " + Text(plain) + ", fast " + Text(fast) + "\n";
        }
    }

    template <typename Array>
    void CompareEach(const std::string& field, const Array& plain, const Array& fast) {
        for (std::size_t i = 0; i < plain.size(); ++i) {
            Compare(field + "[" + common::Hex3(static_cast<int>(i)) + "h]", plain[i], fast[i]);
        }
    }

    const std::string& text() const { return text_; }

  private:
    static std::string Text(std::int64_t value) { return std::to_string(value); }
    static std::string Text(bool value) { return value ? "true" : "false"; }
    static std::string Text(std::uint8_t value) { return common::Hex2(value) + "h"; }
    static std::string Text(std::uint16_t value) { return common::Hex4(value) + "h"; }
    static std::string Text(int value) {
        return std::to_string(value) + " (" + common::HexText(value) + "h)";
    }

    std::string text_;
};

}  // namespace

std::string Difference(const ProcessorState& plain, const ProcessorState& fast) {
    Differences differences;
    differences.Compare("pc", plain.pc, fast.pc);
    differences.Compare("w", plain.w, fast.w);
    differences.CompareEach("dataMemory", plain.dataMemory, fast.dataMemory);
    differences.CompareEach("programMemory", plain.programMemory, fast.programMemory);
    differences.CompareEach("eepromMemory", plain.eepromMemory, fast.eepromMemory);
    differences.CompareEach("hardwareStack", plain.hardwareStack, fast.hardwareStack);
    differences.Compare("stackPointer", plain.stackPointer, fast.stackPointer);
    differences.Compare("instructionCount", plain.instructionCount, fast.instructionCount);
    differences.Compare("clockCycles", plain.clockCycles, fast.clockCycles);
    differences.Compare("lastInstruction", plain.lastInstruction, fast.lastInstruction);
    differences.Compare("prescalerCount", plain.prescalerCount, fast.prescalerCount);
    differences.Compare("stopRequested", plain.stopRequested, fast.stopRequested);
    differences.CompareEach("pinInputs", plain.pinInputs, fast.pinInputs);
    differences.CompareEach("portValues", plain.portValues, fast.portValues);
    differences.CompareEach("analogValues", plain.analogValues, fast.analogValues);
    differences.CompareEach("analogPinFlags", plain.analogPinFlags, fast.analogPinFlags);
    differences.Compare("vrefValue", plain.vrefValue, fast.vrefValue);
    differences.Compare("eeWriteBusy", plain.eeWriteBusy, fast.eeWriteBusy);
    differences.Compare("eeWriteElapsed", plain.eeWriteElapsed, fast.eeWriteElapsed);
    differences.Compare("eeWriteAddress", plain.eeWriteAddress, fast.eeWriteAddress);
    differences.Compare("eeWriteData", plain.eeWriteData, fast.eeWriteData);
    differences.Compare("eeUnlockState", plain.eeUnlockState, fast.eeUnlockState);
    differences.Compare("adElapsed", plain.adElapsed, fast.adElapsed);
    differences.Compare("adSample", plain.adSample, fast.adSample);
    return differences.text();
}

}  // namespace corvane::core
