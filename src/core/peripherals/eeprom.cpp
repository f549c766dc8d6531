// The data EEPROM. Data sheet: "Data EEPROM Memory".

#include "core/peripherals/peripherals.h"
#include "core/registers.h"
#include "core/schedule.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

constexpr int kFirstUnlockByte = 0x55;

bool IsMovlw(int word, int literal) {
    return isa::Classify(word) == isa::Operation::Movlw && isa::Literal8Field(word) == literal;
}

// The bank does not show in the word: a MOVWF to the same file address elsewhere passes too.
bool IsMovwfEecon2(int word, const models::FamilyTraits& traits) {
    return isa::Classify(word) == isa::Operation::Movwf &&
           isa::RegisterField(word) == (traits.eecon2 & 0x7F);
}

struct Eeprom {
    ProcessorState& state;
    const models::Model& model;
    const models::FamilyTraits& traits;
    int writeTime;  // clock cycles

    std::uint8_t& Register(int address) {
        return state.dataMemory[static_cast<std::size_t>(address)];
    }
    std::uint8_t& Eecon1() { return Register(traits.eecon1); }

    // EEPGD points RD and WR at program memory, which is neither read nor written.
    bool IsDataMemorySelected() { return !traits.hasEepgd || !AnySet(Eecon1(), eecon1::kEepgd); }

    void Read() {
        if (!AnySet(Eecon1(), eecon1::kRd)) {
            return;
        }
        ClearBits(Eecon1(), eecon1::kRd);
        if (state.eeWriteBusy) {
            return;
        }
        ClearBits(Eecon1(), eecon1::kWr);
        const std::uint8_t address = Register(traits.eeadr);
        if (address < model.eepromBytes && IsDataMemorySelected()) {
            Register(traits.eedata) = state.eepromMemory[address];
        }
    }

    void WatchUnlock() {
        const int word = state.lastInstruction;
        bool advances = false;
        switch (state.eeUnlockState) {
            case 0:
                advances = IsMovlw(word, kFirstUnlockByte);
                break;
            case 2:
                advances = IsMovlw(word, 0xAA);
                break;
            case 1:
            case 3:
                advances = IsMovwfEecon2(word, traits);
                break;
            default:
                BeginWrite();
                break;
        }
        state.eeUnlockState = advances ? state.eeUnlockState + 1 : 0;
    }

    // The instruction right behind the sequence must have set WR.
    void BeginWrite() {
        constexpr int kEnabledWrite = eecon1::kWren | eecon1::kWr;
        if ((Eecon1() & kEnabledWrite) != kEnabledWrite || !IsDataMemorySelected()) {
            ClearBits(Eecon1(), eecon1::kWr);
            return;
        }
        state.eeWriteAddress = Register(traits.eeadr);
        state.eeWriteData = Register(traits.eedata);
        state.eeWriteBusy = true;
        state.eeWriteElapsed = 0;
    }

    void AdvanceWrite() {
        state.eeWriteElapsed += kClocksPerCycle;
        SetBits(Eecon1(), eecon1::kWr);
        if (traits.hasEepgd) {
            ClearBits(Eecon1(), eecon1::kEepgd);
        }
        if (state.eeWriteElapsed < writeTime) {
            return;
        }
        ClearBits(Eecon1(), eecon1::kWr | eecon1::kWrerr);
        SetBits(Register(traits.eeifRegister), traits.eeifMask);
        state.eeWriteBusy = false;
        state.eeWriteElapsed = 0;
        if (state.eeWriteAddress < model.eepromBytes) {
            state.eepromMemory[static_cast<std::size_t>(state.eeWriteAddress)] =
                static_cast<std::uint8_t>(state.eeWriteData);
        }
    }
};

bool WatchesLiteral(int literal) {
    return literal == kFirstUnlockByte;
}

void ClaimCells(CellTable& cells, const models::FamilyTraits& traits) {
    cells.Claim(static_cast<std::size_t>(traits.eecon1), {.asksForLook = true});
}

// Each step of the unlock sequence, or the end of a write.
std::int64_t NextDue(const Processor& processor) {
    const ProcessorState& state = processor.state;
    if (state.eeUnlockState != 0) {
        return 1;
    }
    return state.eeWriteBusy ? StepsUntil(processor.eepromWriteTime, state.eeWriteElapsed) : kNever;
}

void Advance(Processor& processor, std::int64_t steps) {
    ProcessorState& state = processor.state;
    Eeprom eeprom = {state, *processor.model, *processor.traits, processor.eepromWriteTime};
    if (state.eeWriteBusy) {
        state.eeWriteElapsed += static_cast<int>(steps - 1) * kClocksPerCycle;
    }
    eeprom.Read();
    if (!state.eeWriteBusy) {
        eeprom.WatchUnlock();
    }
    if (state.eeWriteBusy) {
        eeprom.AdvanceWrite();
    }
}

}  // namespace

const Peripheral kEeprom = {
    .claimCells = ClaimCells,
    .unit = TimeUnit::Steps,
    .nextDue = NextDue,
    .advance = Advance,
    .watchesLiteral = WatchesLiteral,
};

}  // namespace corvane::core
