// The windows that remember their position, by the numbers under which the settings know them.
#pragma once

#include <array>
#include <cstdint>

#include "models/catalogue.h"

namespace corvane::app {

enum class Window : std::uint8_t {
    Main = 1,
    ProgramMemoryViewer = 4,
    EepromMemoryViewer = 6,
    HardwareStackViewer = 7,
    Disassembler = 9,
    BreakpointsManager = 11,
    ChipView18 = 12,  // PIC16F83, PIC16F84
    ChipView28 = 14,  // PIC16F873, PIC16F876
    ChipView40 = 15,  // PIC16F874, PIC16F877
    BasicCompiler = 16,
    Assembler = 17,
    ChipView62x = 22,  // PIC16F627, PIC16F628
};

// In the order in which they are closed when the application ends.
inline constexpr std::array kSecondaryWindows = {
    Window::ProgramMemoryViewer, Window::EepromMemoryViewer, Window::HardwareStackViewer,
    Window::Disassembler,        Window::BreakpointsManager, Window::ChipView18,
    Window::ChipView28,          Window::ChipView40,         Window::BasicCompiler,
    Window::Assembler,           Window::ChipView62x,
};

// The Microcontroller View of the models of this family.
Window ChipViewOf(models::ModelFamily family);

}  // namespace corvane::app
