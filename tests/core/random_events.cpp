#include "core/random_events.h"

#include <array>
#include <cstddef>

#include "core/random_program.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using models::ModelFamily;

// Pins of PORTA to PORTE.
constexpr std::array kPins8x = {5, 8};
constexpr std::array kPins87x28 = {6, 8, 8};
constexpr std::array kPins87x40 = {6, 8, 8, 8, 3};
constexpr std::array kPins62x = {8, 8};

template <std::size_t kPorts>
Pin AnyPin(const std::array<int, kPorts>& pinCounts, Random& random) {
    const int port = random.Below(static_cast<int>(kPorts));
    return {port, random.Below(pinCounts.at(static_cast<std::size_t>(port)))};
}

Pin AnyPin(ModelFamily family, Random& random) {
    switch (family) {
        case ModelFamily::Pic16F87x28:
            return AnyPin(kPins87x28, random);
        case ModelFamily::Pic16F87x40:
            return AnyPin(kPins87x40, random);
        case ModelFamily::Pic16F62x:
            return AnyPin(kPins62x, random);
        case ModelFamily::Pic16F8x:
            break;
    }
    return AnyPin(kPins8x, random);
}

void SetPc(ProcessorState& state, int pc) {
    state.pc = pc;
    state.dataMemory[plain::kPcl] = static_cast<std::uint8_t>(pc & 255);
}

void EditRegister(const plain::Chip& chip, ProcessorState& state, Random& random) {
    const int address = random.Chance(60) ? RandomSpecialRegister(chip.model->family, random)
                                          : random.Below(models::kDataMemorySize);
    const std::size_t cell = chip.description.addressMap.at(static_cast<std::size_t>(address));
    if (cell != plain::kPcl) {
        state.dataMemory.at(cell) =
            static_cast<std::uint8_t>(random.Byte() & chip.description.writeMask.at(cell));
    }
}

void EditPeripheral(const plain::Chip& chip, ProcessorState& state, Random& random) {
    switch (random.Below(models::IsPic16F87x(chip.model->family) ? 6 : 5)) {
        case 0:
            state.eeUnlockState = random.Below(5);
            break;
        case 1:
            state.eeWriteBusy = !state.eeWriteBusy;
            state.eeWriteElapsed = 4 * random.Below(chip.eepromWriteTime / 4);
            break;
        case 2:
            state.eeWriteAddress = random.Byte();
            state.eeWriteData = random.Byte();
            break;
        case 3:
            state.prescalerCount = random.Byte();
            break;
        case 4:
            state.pinInputs.at(static_cast<std::size_t>(random.Below(2))) =
                static_cast<std::uint8_t>(random.Byte());
            break;
        default:
            state.adElapsed = 4 * random.Below(chip.adConversionTime / 4);
            break;
    }
}

void EditMemory(const plain::Chip& chip, ProcessorState& state, Random& random) {
    switch (random.Below(4)) {
        case 0: {  // mostly one that is about to be executed
            const int address = random.Chance(75) ? state.pc + random.Below(8) : random.Below(8192);
            state.programMemory.at(static_cast<std::size_t>(address % chip.model->programWords)) =
                static_cast<std::uint16_t>(random.Below(isa::kWordCount));
            break;
        }
        case 1:
            state.eepromMemory.at(static_cast<std::size_t>(random.Below(chip.model->eepromBytes))) =
                static_cast<std::uint8_t>(random.Byte());
            break;
        case 2:
            state.stackPointer = 1 + random.Below(kStackLevels);
            break;
        default:
            state.hardwareStack.at(static_cast<std::size_t>(1 + random.Below(kStackLevels))) =
                static_cast<std::uint16_t>(random.Below(chip.model->programWords));
            break;
    }
}

}  // namespace

PinToggle RandomPinToggle(const models::Model& model, Random& random) {
    const bool running = random.Chance(85);
    switch (random.Below(4)) {
        case 0:
            return {{0, 4}, running};
        case 1:
            return {{1, random.Chance(50) ? 0 : 4 + random.Below(4)}, running};
        default:
            return {AnyPin(model.family, random), running};
    }
}

AnalogInput RandomAnalogInput(const models::Model& model, const ProcessorState& state,
                              Random& random) {
    const models::FamilyTraits& traits = models::TraitsOf(model.family);
    const int channel = random.Below(traits.analogChannels);
    switch (random.Below(5)) {
        case 0:
            return {channel, traits.analogFullScale * random.Below(2)};
        case 1:
            return {channel, state.vrefValue};
        case 2:
            return {channel, random.Pick(state.analogValues)};
        default:
            return {channel, random.Below(traits.analogFullScale + 1)};
    }
}

void RandomEdit(const plain::Chip& chip, ProcessorState& state, Random& random) {
    switch (random.Below(8)) {
        case 0:
            state.w = random.Byte();
            break;
        case 1:
            EditMemory(chip, state, random);
            break;
        case 2:
        case 3:
            EditPeripheral(chip, state, random);
            break;
        default:
            EditRegister(chip, state, random);
            break;
    }
}

void RandomJump(const models::Model& model, ProcessorState& state, Random& random) {
    switch (random.Below(10)) {
        case 0:
            SetPc(state, kProgramCounterRange - 1);
            break;
        case 1:
            SetPc(state, model.programWords - 1);
            break;
        case 2:
            SetPc(state, random.Below(kProgramCounterRange));
            break;
        default:
            SetPc(state, random.Below(model.programWords));
            break;
    }
}

}  // namespace corvane::core
