#include "core/coverage.h"

#include <array>
#include <cstddef>

#include "core/plain_engine.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using models::ModelFamily;

int Cell(const ProcessorState& state, int index) {
    return state.dataMemory.at(static_cast<std::size_t>(index));
}

bool Bit(const ProcessorState& state, int index, int bit) {
    return (Cell(state, index) & (1 << bit)) != 0;
}

bool Rises(const ProcessorState& before, const ProcessorState& after, int index, int mask) {
    return (Cell(before, index) & mask) == 0 && (Cell(after, index) & mask) != 0;
}

std::string Numbered(const std::string& text, int number) {
    return text + " " + std::to_string(number);
}

void Append(std::vector<std::string>& list, std::vector<std::string> more) {
    list.insert(list.end(), more.begin(), more.end());
}

void AppendNumbered(std::vector<std::string>& list, const std::string& text, int count) {
    for (int i = 0; i < count; ++i) {
        list.push_back(Numbered(text, i));
    }
}

std::vector<std::string> Wanted(const models::Model& model) {
    std::vector<std::string> wanted;
    wanted.reserve(isa::kInstructionCount);
    for (const isa::Instruction& row : isa::kInstructions) {
        wanted.emplace_back(row.mnemonic);
    }
    AppendNumbered(wanted, "direct access in bank", 4);
    AppendNumbered(wanted, "TMR0 counts cycles with prescaler rate", 8);
    AppendNumbered(wanted, "EEPROM unlock broken in state", 5);
    Append(wanted, {"indirect access in banks 0 and 1",
                    "indirect access in banks 2 and 3",
                    "word that is no instruction",
                    "skip",
                    "write to PCL",
                    "skip after a write to PCL",
                    "stack wraps upwards",
                    "stack wraps downwards",
                    "pc wraps",
                    "input level forgotten",
                    "flags meet a write to STATUS",
                    "T0IF interrupt",
                    "INTF interrupt",
                    "RBIF interrupt",
                    "EEIF interrupt",
                    "T0IF set",
                    "TMR0 counts without prescaler",
                    "TMR0 written with prescaler running",
                    "T0CKI rising edge counted",
                    "T0CKI falling edge counted",
                    "INTF set by rising edge",
                    "INTF set by falling edge",
                    "RBIF set by a pin",
                    "EEPROM read",
                    "EEPROM write begun",
                    "EEPROM write completed"});
    if (model.programWords < kProgramCounterRange) {
        wanted.emplace_back("pc past program memory");
    }
    if (model.eepromBytes < kMaxEepromBytes) {
        wanted.emplace_back("EEPROM write beyond the last byte completed");
    }
    if (models::IsPic16F87x(model.family)) {
        Append(wanted, {"PIR1 interrupt", "PIR2 interrupt", "EEPROM access refused by EEPGD",
                        "conversion completed, left", "conversion completed, right",
                        "conversion abandoned", "conversion of several steps"});
        AppendNumbered(wanted, "PCFG", 16);
        AppendNumbered(wanted, "sample of channel", 8);
    }
    if (model.family == ModelFamily::Pic16F62x) {
        Append(wanted, {"PIR1 interrupt", "C1OUT changes", "C2OUT changes",
                        "C1OUT changes inverted", "C2OUT changes inverted", "Vref in low range",
                        "Vref in high range", "Vref on RA2"});
        AppendNumbered(wanted, "comparator mode", 8);
    }
    return wanted;
}

}  // namespace

void Coverage::Count(const std::string& what, bool happened) {
    if (happened) {
        ++counts_[what];
    }
}

std::vector<std::string> Coverage::Missing() const {
    std::vector<std::string> missing;
    for (const std::string& what : Wanted(model_)) {
        if (!counts_.contains(what)) {
            missing.push_back(what);
        }
    }
    return missing;
}

std::string Coverage::Report() const {
    std::string report;
    for (const auto& [what, count] : counts_) {
        report += what + ": " + std::to_string(count) + "\n";
    }
    return report;
}

void Coverage::CountStep(const ProcessorState& before, const ProcessorState& after) {
    if (after.lastInstruction == kInterruptEntry) {
        CountInterrupt(before);
    } else {
        CountInstruction(before, after);
        CountControlFlow(before, after);
    }
    CountTimer0(before, after);
    CountEeprom(before, after);
    if (models::IsPic16F87x(model_.family)) {
        CountAdc(before, after);
    }
    if (model_.family == ModelFamily::Pic16F62x) {
        CountComparators(before, after);
    }
    for (std::size_t port = 0; port < kPortCount; ++port) {
        Count("input level forgotten", (before.pinInputs[port] & ~after.pinInputs[port]) != 0);
    }
}

void Coverage::CountInstruction(const ProcessorState& before, const ProcessorState& after) {
    const int word = after.lastInstruction;
    const isa::Operation operation = isa::Classify(word);
    if (operation == isa::Operation::Unrecognized) {
        Count("word that is no instruction");
        return;
    }
    const isa::Instruction& row = isa::InstructionOf(operation);
    Count(std::string(row.mnemonic));
    const int f = isa::RegisterField(word);
    const bool addressesRegister = row.form == isa::OperandForm::Register ||
                                   row.form == isa::OperandForm::RegisterDestination ||
                                   row.form == isa::OperandForm::RegisterBit;
    if (addressesRegister && f != 0) {
        Count(Numbered("direct access in bank", (Cell(before, plain::kStatus) >> 5) & 3));
    } else if (addressesRegister) {
        Count(Bit(before, plain::kStatus, 7) ? "indirect access in banks 2 and 3"
                                             : "indirect access in banks 0 and 1");
    }
    Count("flags meet a write to STATUS", operation == isa::Operation::Addwf &&
                                              isa::DestinationField(word) == 1 &&
                                              f == plain::kStatus);
    const int eecon1 = models::TraitsOf(model_.family).eecon1;
    const bool setsRd = operation == isa::Operation::Bsf && f == (eecon1 & 0x7F) &&
                        (Cell(before, plain::kStatus) & 0x60) * 4 == (eecon1 & 0x180) &&
                        isa::BitField(word) == 0;
    Count("EEPROM read", setsRd);
    Count("EEPROM access refused by EEPGD", setsRd && Bit(before, eecon1, 7));
}

void Coverage::CountControlFlow(const ProcessorState& before, const ProcessorState& after) {
    const isa::Operation operation = isa::Classify(after.lastInstruction);
    const bool skips = operation == isa::Operation::Decfsz || operation == isa::Operation::Incfsz ||
                       operation == isa::Operation::Btfsc || operation == isa::Operation::Btfss;
    const auto cycles = (after.clockCycles - before.clockCycles) / kClocksPerCycle;
    Count("skip", skips && cycles == 2);
    Count("skip after a write to PCL", skips && cycles == 3);
    Count("write to PCL", operation == isa::Operation::Movwf && cycles == 2);
    Count("stack wraps upwards", before.stackPointer == 8 && after.stackPointer == 1);
    Count("stack wraps downwards", before.stackPointer == 1 && after.stackPointer == 8);
    Count("pc past program memory", after.pc >= model_.programWords);
    Count("pc wraps", before.pc == kProgramCounterRange - 1 && after.pc == 0);
}

void Coverage::CountInterrupt(const ProcessorState& before) {
    const int core = Cell(before, plain::kIntcon) & (Cell(before, plain::kIntcon) >> 3) & 7;
    Count("RBIF interrupt", core == 1);
    Count("INTF interrupt", core == 2);
    Count("T0IF interrupt", core == 4);
    if (core != 0) {
        return;
    }
    const models::FamilyTraits& traits = models::TraitsOf(model_.family);
    const bool is8x = model_.family == ModelFamily::Pic16F8x;
    const int pir1 = is8x ? 0 : Cell(before, plain::kPir1) & Cell(before, plain::kPie1);
    const int pir2 = models::IsPic16F87x(model_.family)
                         ? Cell(before, plain::kPir2) & Cell(before, plain::kPie2)
                         : 0;
    const int eeif = traits.eeifRegister == plain::kPir1   ? pir1 & traits.eeifMask
                     : traits.eeifRegister == plain::kPir2 ? pir2 & traits.eeifMask
                                                           : 1;
    Count("PIR1 interrupt", pir1 != 0);
    Count("PIR2 interrupt", pir2 != 0);
    Count("EEIF interrupt", eeif != 0);
}

void Coverage::CountTimer0(const ProcessorState& before, const ProcessorState& after) {
    Count("T0IF set", Rises(before, after, plain::kIntcon, 1 << 2));
    const int option = Cell(before, plain::kOptionReg);
    if (option != Cell(after, plain::kOptionReg) || (option & 0x20) != 0) {
        return;
    }
    const bool counted = Cell(after, plain::kTmr0) == ((Cell(before, plain::kTmr0) + 1) & 0xFF);
    if ((option & 8) != 0) {
        Count("TMR0 counts without prescaler", counted);
    } else {
        Count(Numbered("TMR0 counts cycles with prescaler rate", option & 7), counted);
        Count("TMR0 written with prescaler running",
              before.prescalerCount > 1 && after.prescalerCount == 0 &&
                  isa::Classify(after.lastInstruction) == isa::Operation::Movwf &&
                  isa::RegisterField(after.lastInstruction) == plain::kTmr0);
    }
}

void Coverage::CountEeprom(const ProcessorState& before, const ProcessorState& after) {
    const bool begun = !before.eeWriteBusy && before.eeUnlockState == 4 && after.eeUnlockState == 0;
    const bool completed = before.eeWriteBusy && !after.eeWriteBusy;
    Count("EEPROM write begun", after.eeWriteBusy && !before.eeWriteBusy);
    Count("EEPROM write completed", completed);
    Count("EEPROM write beyond the last byte completed",
          completed && before.eeWriteAddress >= model_.eepromBytes);
    if (before.eeUnlockState > 0 && after.eeUnlockState == 0 && !(begun && after.eeWriteBusy)) {
        Count(Numbered("EEPROM unlock broken in state", before.eeUnlockState));
    }
    Count(Numbered("EEPROM unlock broken in state", 0),
          before.eeUnlockState == 0 && after.eeUnlockState == 0);
}

void Coverage::CountAdc(const ProcessorState& before, const ProcessorState& after) {
    Count(Numbered("PCFG", Cell(after, plain::kAdcon1) & 15));
    const bool rightJustified = Bit(after, plain::kAdcon1, 7);
    const bool converting = (Cell(after, plain::kAdcon0) & 5) == 5;
    Count(
        rightJustified ? "conversion completed, right" : "conversion completed, left",
        !converting && Rises(before, after, plain::kPir1, 1 << 6) && Bit(after, plain::kAdcon0, 0));
    Count("conversion of several steps", before.adElapsed >= 8 && after.adElapsed > 8);
    Count("conversion abandoned", before.adElapsed > 0 && after.adElapsed == 0 && !converting &&
                                      !Bit(after, plain::kPir1, 6));
    if (before.adElapsed == 0 && after.adElapsed > 0) {
        Count(Numbered("sample of channel", (Cell(after, plain::kAdcon0) >> 3) & 7));
    }
}

void Coverage::CountComparators(const ProcessorState& before, const ProcessorState& after) {
    const int cmcon = Cell(after, plain::kCmcon);
    const int changed = cmcon ^ Cell(before, plain::kCmcon);
    const bool written = (changed & 0x3F) != 0;
    Count(Numbered("comparator mode", cmcon & 7));
    Count((cmcon & 0x10) != 0 ? "C1OUT changes inverted" : "C1OUT changes",
          !written && (changed & 0x40) != 0);
    Count((cmcon & 0x20) != 0 ? "C2OUT changes inverted" : "C2OUT changes",
          !written && (changed & 0x80) != 0);
    const int vrcon = Cell(after, plain::kVrcon);
    Count((vrcon & 0x20) != 0 ? "Vref in low range" : "Vref in high range",
          after.vrefValue != before.vrefValue && (vrcon & 0x80) != 0);
    Count("Vref on RA2", after.analogPinFlags[kRa2Reference] && after.analogValues[2] != 0 &&
                             after.analogValues[2] == after.vrefValue);
}

void Coverage::CountPinToggle(const ProcessorState& before, const ProcessorState& after) {
    const int option = Cell(before, plain::kOptionReg);
    const bool counted = before.prescalerCount != after.prescalerCount ||
                         Cell(before, plain::kTmr0) != Cell(after, plain::kTmr0);
    Count((option & 0x10) != 0 ? "T0CKI falling edge counted" : "T0CKI rising edge counted",
          counted);
    Count((option & 0x40) != 0 ? "INTF set by rising edge" : "INTF set by falling edge",
          Rises(before, after, plain::kIntcon, 1 << 1));
    Count("RBIF set by a pin", Rises(before, after, plain::kIntcon, 1 << 0));
}

}  // namespace corvane::core
