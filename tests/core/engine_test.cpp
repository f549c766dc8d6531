// What single instructions and short programs do, derived by hand from the data sheets. Each case
// runs on the engine and on the plain one.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/engine_pair.h"

namespace corvane::core {
namespace {

constexpr int kC = 1;
constexpr int kDc = 2;
constexpr int kZ = 4;

constexpr Pin kRa0 = {0, 0};
constexpr Pin kRa4 = {0, 4};
constexpr Pin kRb0 = {1, 0};
constexpr Pin kRb5 = {1, 5};
constexpr Pin kRb7 = {1, 7};

// A chip with a program, started.
class Chip {
  public:
    Chip(std::string_view model, std::initializer_list<std::string_view> program)
        : pair_(ModelNamed(model)) {
        pair_.Load(Words(program));
        pair_.Start();
    }

    void Step(int count = 1) {
        for (int i = 0; i < count; ++i) {
            pair_.Step();
            ASSERT_TRUE(pair_.plainState() == pair_.fastState()) << pair_.Report();
        }
    }
    void Toggle(Pin pin, bool running = true) {
        pair_.Toggle(pin, running);
        EXPECT_TRUE(pair_.plainState() == pair_.fastState()) << pair_.Report();
    }
    void SetAnalog(int channel, int value) { pair_.SetAnalog(channel, value); }
    void SetTimes(int eeprom, int ad) { pair_.SetTimes(eeprom, ad); }
    void SetCell(std::size_t cell, int value) {
        pair_.Edit(
            [&](ProcessorState& s) { s.dataMemory.at(cell) = static_cast<std::uint8_t>(value); });
    }
    void Edit(const std::function<void(ProcessorState&)>& edit) { pair_.Edit(edit); }
    void SetPc(int pc) {
        pair_.Edit([&](ProcessorState& s) {
            s.pc = pc;
            s.dataMemory[2] = static_cast<std::uint8_t>(pc & 255);
        });
    }

    const ProcessorState& state() const { return pair_.fastState(); }
    int Cell(std::size_t cell) const { return state().dataMemory.at(cell); }
    std::string LastText() const { return LastInstructionText(state()); }

  private:
    EnginePair pair_;
};

// Instructions at address 0 of a PIC16F84, on the general purpose register 20h.

struct InstructionCase {
    const char* text;
    int f, w, flags;
    int expectedF, expectedW, expectedFlags;
    int expectedPc = 1;
    int expectedCycles = 1;
};

constexpr InstructionCase kInstructionCases[] = {
    {"SUBWF 0x20,F", 0x05, 0x06, 7, 0xFF, 0x06, 0},
    {"SUBWF 0x20,W", 0x06, 0x06, 0, 0x06, 0x00, kC | kDc | kZ},
    {"SUBWF 0x20,W", 0x10, 0x01, 0, 0x10, 0x0F, kC},
    {"SUBWF 0x20,W", 0x0F, 0x1E, 0, 0x0F, 0xF1, kDc},
    {"SUBLW 0x10", 0, 0x01, 0, 0, 0x0F, kC},
    {"SUBLW 0x00", 0, 0x01, 7, 0, 0xFF, 0},
    {"ADDWF 0x20,F", 0x08, 0x08, 0, 0x10, 0x08, kDc},
    {"ADDWF 0x20,W", 0xF0, 0x20, 0, 0xF0, 0x10, kC},
    {"ADDWF 0x20,F", 0x80, 0x80, 0, 0x00, 0x80, kC | kZ},
    {"ADDLW 0x01", 0, 0xFF, 0, 0, 0x00, kC | kDc | kZ},
    {"ADDLW 0x01", 0, 0x7F, 7, 0, 0x80, kDc},
    {"RRF 0x20,F", 0x01, 0, kC, 0x80, 0, kC},
    {"RRF 0x20,W", 0x02, 0xFF, kZ | kDc, 0x02, 0x01, kZ | kDc},
    {"RLF 0x20,F", 0x80, 0, 0, 0x00, 0, kC},
    {"RLF 0x20,F", 0x80, 0, kZ, 0x00, 0, kC | kZ},
    {"RLF 0x20,W", 0x41, 0, kC, 0x41, 0x83, 0},
    {"DECF 0x20,F", 0x00, 0, kZ | kC, 0xFF, 0, kC},
    {"DECF 0x20,W", 0x01, 9, kDc, 0x01, 0x00, kDc | kZ},
    {"INCF 0x20,F", 0xFF, 0, kC | kDc, 0x00, 0, 7},
    {"DECFSZ 0x20,W", 0x01, 0x33, 0, 0x01, 0x00, 0, 2, 2},
    {"DECFSZ 0x20,F", 0x00, 0, 0, 0xFF, 0, 0},
    {"INCFSZ 0x20,F", 0xFF, 0, 0, 0x00, 0, 0, 2, 2},
    {"INCFSZ 0x20,F", 0x00, 0, 0, 0x01, 0, 0},
    {"BTFSC 0x20,3", 0xF7, 0, 0, 0xF7, 0, 0, 2, 2},
    {"BTFSC 0x20,3", 0x08, 0, 0, 0x08, 0, 0},
    {"BTFSS 0x20,7", 0x80, 0, 0, 0x80, 0, 0, 2, 2},
    {"BTFSS 0x20,7", 0x7F, 0, 0, 0x7F, 0, 0},
    {"BCF 0x20,7", 0xFF, 0, 7, 0x7F, 0, 7},
    {"BSF 0x20,0", 0x00, 0, 0, 0x01, 0, 0},
    {"COMF 0x20,W", 0xF0, 0, 3, 0xF0, 0x0F, 3},
    {"COMF 0x20,F", 0xFF, 0, 0, 0x00, 0, kZ},
    {"SWAPF 0x20,F", 0xA5, 0, 7, 0x5A, 0, 7},
    {"SWAPF 0x20,W", 0x00, 1, 0, 0x00, 0, 0},
    {"MOVF 0x20,F", 0x00, 5, 0, 0x00, 5, kZ},
    {"MOVF 0x20,W", 0x80, 0, kZ, 0x80, 0x80, 0},
    {"MOVWF 0x20", 0x12, 0x00, 0, 0x00, 0x00, 0},
    {"CLRF 0x20", 0x12, 0x34, kC | kDc, 0x00, 0x34, 7},
    {"CLRW", 0x12, 0x34, kC, 0x12, 0x00, kC | kZ},
    {"IORWF 0x20,F", 0x50, 0x05, kZ, 0x55, 0x05, 0},
    {"ANDWF 0x20,W", 0x0F, 0xF0, kC, 0x0F, 0x00, kC | kZ},
    {"XORWF 0x20,W", 0xFF, 0x0F, 0, 0xFF, 0xF0, 0},
    {"IORLW 0x00", 0, 0x00, 0, 0, 0x00, kZ},
    {"ANDLW 0x3C", 0, 0xF0, kZ, 0, 0x30, 0},
    {"XORLW 0xFF", 0, 0xFF, kDc, 0, 0x00, kDc | kZ},
    {"MOVLW 0x00", 0, 0x55, 0, 0, 0x00, 0},
    {"NOP", 1, 2, 3, 1, 2, 3},
    {"CLRWDT", 1, 2, 3, 1, 2, 3},
    {"GOTO 0x123", 1, 2, 3, 1, 2, 3, 0x123, 2},
    {"CALL 0x3FF", 1, 2, 3, 1, 2, 3, 0x3FF, 2},
    {"RETURN", 1, 2, 3, 1, 2, 3, 0, 2},  // of an empty stack
    {"RETLW 0x77", 1, 2, 3, 1, 0x77, 3, 0, 2},
    {"MOVF PCL,W", 0, 0x55, kZ, 0, 0x01, 0},
};

TEST(Instruction, ComputesResultFlagsAndCycles) {
    for (const InstructionCase& c : kInstructionCases) {
        SCOPED_TRACE(std::string(c.text) + " with f = " + std::to_string(c.f) +
                     ", w = " + std::to_string(c.w) + ", flags = " + std::to_string(c.flags));
        Chip chip("PIC16F84", {c.text});
        chip.Edit([&](ProcessorState& s) {
            s.w = c.w;
            s.dataMemory[0x20] = static_cast<std::uint8_t>(c.f);
            s.dataMemory[3] = static_cast<std::uint8_t>(0x18 | c.flags);
        });
        chip.Step();
        EXPECT_EQ(chip.LastText(), c.text);
        EXPECT_EQ(chip.Cell(0x20), c.expectedF);
        EXPECT_EQ(chip.state().w, c.expectedW);
        EXPECT_EQ(chip.Cell(3), 0x18 | c.expectedFlags);
        EXPECT_EQ(chip.state().pc, c.expectedPc);
        EXPECT_EQ(chip.Cell(2), c.expectedPc & 0xFF);
        EXPECT_EQ(chip.state().clockCycles, 4 + 4 * c.expectedCycles);
        EXPECT_EQ(chip.state().instructionCount, 1);
        EXPECT_FALSE(chip.state().stopRequested);
    }
}

TEST(Status, ResultIsWrittenBeforeTheFlags) {
    struct Case {
        const char* text;
        int w, status, expectedStatus;
    };
    constexpr Case kCases[] = {
        {"CLRF STATUS", 0, 0xFF, 0x18 | kC | kDc | kZ},  // C and DC stay, Z is set
        {"CLRF STATUS", 0, 0x18, 0x18 | kZ},
        {"MOVWF STATUS", 0x00, 0x1F, 0x18},  // NOT_TO and NOT_PD stay
        {"MOVWF STATUS", 0xFF, 0x00, 0xE7},
        {"BCF STATUS,C", 0, 0x1F, 0x1E},
        {"BSF STATUS,NOT_PD", 0, 0x10, 0x10},
        {"IORWF STATUS,F", 0x87, 0x18, 0x98},  // 9Fh, then Z from it; C and DC stay clear
        {"ADDWF STATUS,F", 0xE8, 0x18, 0x18 | kC | kDc | kZ},
        {"SWAPF STATUS,F", 0, 0x1A, 0xB9},     // A1h with bits 4 and 3 kept
        {"RRF STATUS,F", 0, 0x19, 0x98 | kC},  // 8Ch, C from bit 0, DC and Z as before
        {"CLRWDT", 0, 0x07, 0x1F},
        {"SLEEP", 0, 0x0F, 0x17},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.text);
        Chip chip("PIC16F877", {c.text});
        chip.Edit([&](ProcessorState& s) {
            s.w = c.w;
            s.dataMemory[3] = static_cast<std::uint8_t>(c.status);
        });
        chip.Step();
        EXPECT_EQ(chip.Cell(3), c.expectedStatus);
    }
}

TEST(Step, SleepAndUnknownWordsStopWhereTheyStand) {
    for (const char* text : {"SLEEP", "UNRECOGNIZED"}) {
        Chip chip("PIC16F84", {"NOP", text});
        chip.Step();
        EXPECT_FALSE(chip.state().stopRequested);
        chip.Step();
        EXPECT_TRUE(chip.state().stopRequested);
        EXPECT_EQ(chip.LastText(), text);
        EXPECT_EQ(chip.state().pc, 1);
        EXPECT_EQ(chip.state().instructionCount, 2);
        EXPECT_EQ(chip.state().clockCycles, 12);
    }
}

TEST(ProgramCounter, JumpsThroughPclathAndStopsPastTheProgram) {
    Chip chip("PIC16F84", {"MOVLW 0x02", "MOVWF PCLATH", "MOVLW 0x10", "MOVWF PCL"});
    chip.Step(4);
    EXPECT_EQ(chip.state().pc, 0x210);
    EXPECT_EQ(chip.Cell(2), 0x10);
    EXPECT_EQ(chip.state().clockCycles, 4 + 4 * 5);

    Chip far("PIC16F84", {"MOVLW 0x18", "MOVWF PCLATH", "GOTO 0x005"});
    far.Step(2);
    EXPECT_FALSE(far.state().stopRequested);
    far.Step();
    EXPECT_EQ(far.state().pc, 0x1805);
    EXPECT_TRUE(far.state().stopRequested);

    // PCL reads 1 in the first instruction, so DECFSZ jumps to 0000h and then skips.
    Chip skipping("PIC16F84", {"DECFSZ PCL,F"});
    skipping.Step();
    EXPECT_EQ(skipping.state().pc, 1);
    EXPECT_EQ(skipping.state().clockCycles, 4 + 4 * 3);

    Chip wrapping("PIC16F877", {"NOP"});
    wrapping.SetPc(8191);
    wrapping.Step();
    EXPECT_EQ(wrapping.state().pc, 0);
    EXPECT_FALSE(wrapping.state().stopRequested);
}

TEST(Stack, IsARingOfEight) {
    // Nine calls from 0, 1, .. 8, each to the next address, then returns.
    Chip chip("PIC16F84", {"CALL 0x001", "CALL 0x002", "CALL 0x003", "CALL 0x004", "CALL 0x005",
                           "CALL 0x006", "CALL 0x007", "CALL 0x008", "CALL 0x009", "RETURN"});
    chip.Step(8);
    EXPECT_EQ(chip.state().stackPointer, 8);
    EXPECT_EQ(chip.state().hardwareStack[1], 1);
    chip.Step();
    EXPECT_EQ(chip.state().stackPointer, 1);
    EXPECT_EQ(chip.state().hardwareStack[1], 9);  // in place of the first return address
    chip.Step();
    EXPECT_EQ(chip.state().pc, 9);
    EXPECT_EQ(chip.state().stackPointer, 8);
}

TEST(DataMemory, FollowsBanksMirrorsAndMasks) {
    Chip bank1("PIC16F84", {"BSF STATUS,RP0", "CLRF 0x05"});
    bank1.Step(2);
    EXPECT_EQ(bank1.Cell(0x85), 0);

    Chip indirect("PIC16F877", {"MOVLW 0x20", "MOVWF FSR", "BSF STATUS,IRP", "MOVWF INDF"});
    indirect.Step(4);
    EXPECT_EQ(indirect.Cell(0x120), 0x20);

    Chip mirror("PIC16F84", {"MOVLW 0xA5", "MOVWF 0x20", "BSF STATUS,RP0", "INCF 0x20,F"});
    mirror.Step(4);
    EXPECT_EQ(mirror.Cell(0x20), 0xA6);

    Chip masked("PIC16F84", {"MOVLW 0xFF", "MOVWF PCLATH", "MOVWF INDF"});  // FSR is 0
    masked.Step(3);
    EXPECT_EQ(masked.Cell(0x0A), 0x1F);
    EXPECT_EQ(masked.Cell(0), 0);
}

TEST(Ports, ReadPinsOfInputsAndLatchesOfOutputs) {
    Chip chip("PIC16F84",
              {"BSF STATUS,RP0", "MOVLW 0xF0", "MOVWF 0x06", "BCF STATUS,RP0", "MOVLW 0x0F",
               "MOVWF 0x06", "MOVF 0x06,W", "BSF 0x06,6", "BSF STATUS,RP0", "CLRF 0x06",
               "COMF 0x06,F", "BCF STATUS,RP0", "MOVF 0x06,W"});
    chip.Step(6);
    chip.Toggle(kRb7);
    chip.Toggle(kRb5);
    chip.Toggle({1, 2});  // outputs forget what they are given
    chip.Toggle({1, 0});
    EXPECT_EQ(chip.state().pinInputs[1], 0xA0);
    chip.Step();
    EXPECT_EQ(chip.state().w, 0xAF);
    chip.Step();  // writes the levels of the inputs into the latch
    EXPECT_EQ(chip.Cell(6), 0xEF);
    chip.Step(5);
    EXPECT_EQ(chip.state().w, 0x00);
}

TEST(Ports, AnalogPinsReadAsZero) {
    Chip chip("PIC16F877", {"MOVF 0x05,W", "BSF STATUS,RP0", "MOVLW 0x06", "MOVWF 0x1F",
                            "BCF STATUS,RP0", "NOP", "MOVF 0x05,W"});
    chip.Toggle(kRa0);
    chip.Step();
    EXPECT_EQ(chip.state().w, 0);
    chip.Step(4);
    chip.Toggle(kRa0);
    EXPECT_EQ(chip.state().analogValues[0], 1023);
    chip.Step(2);
    EXPECT_EQ(chip.state().w, 1);
}

// Timer0.

TEST(Timer0, CountsCyclesThroughThePrescaler) {
    struct Case {
        int optionReg, steps, tmr0, prescalerCount;
    };
    // Start itself counts one cycle, with the prescaler at the watchdog; NOPs follow.
    constexpr Case kCases[] = {{0x08, 1, 2, 0}, {0x08, 10, 11, 0},   {0x00, 1, 1, 1},
                               {0x00, 2, 2, 0}, {0x00, 5, 3, 1},     {0x02, 7, 1, 7},
                               {0x02, 8, 2, 0}, {0x07, 255, 1, 255}, {0x07, 256, 2, 0},
                               {0x28, 9, 1, 0}, {0x07, 1000, 4, 232}};
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.optionReg);
        Chip chip("PIC16F84", {"NOP"});
        chip.SetCell(0x81, c.optionReg);
        chip.SetCell(0x01, 1);
        chip.Step(c.steps);
        EXPECT_EQ(chip.Cell(1), c.tmr0);
        EXPECT_EQ(chip.state().prescalerCount, c.prescalerCount);
    }
}

TEST(Timer0, TwoCycleInstructionsCountTwice) {
    Chip chip("PIC16F84", {"GOTO 0x005"});
    chip.SetCell(0x81, 0x08);
    chip.Step();
    EXPECT_EQ(chip.Cell(1), 2);
}

TEST(Timer0, WriteClearsThePrescalerThatItHas) {
    for (const bool assigned : {true, false}) {
        Chip chip("PIC16F84", {"CLRF 0x01"});
        chip.Edit([&](ProcessorState& s) {
            s.dataMemory[0x81] = assigned ? 0x07 : 0x0F;
            s.prescalerCount = 100;
        });
        chip.Step();
        EXPECT_EQ(chip.state().prescalerCount, assigned ? 0 : 100);
        EXPECT_EQ(chip.Cell(1), 0);
    }
}

TEST(Timer0, OverflowInterrupts) {
    // Also in a step that itself reads or writes the timer.
    for (const char* text : {"NOP", "MOVF 0x01,W", "CLRF 0x01", "MOVF INTCON,F"}) {
        SCOPED_TRACE(text);
        Chip chip("PIC16F84", {text, "NOP"});
        chip.Edit([](ProcessorState& s) {
            s.dataMemory[0x81] = 0x08;
            s.dataMemory[0x01] = 0xFF;
            s.dataMemory[0x0B] = 0xA0;  // GIE, T0IE
            s.dataMemory[0x0A] = 0x02;
        });
        chip.Step();
        EXPECT_EQ(chip.Cell(1), 0);
        EXPECT_EQ(chip.Cell(0x0B), 0xA4);
        chip.Step();
        EXPECT_EQ(chip.LastText(), "INTERRUPT!");
        EXPECT_EQ(chip.state().pc, 4);
        EXPECT_EQ(chip.Cell(2), 4);
        EXPECT_EQ(chip.Cell(0x0A), 2);
        EXPECT_EQ(chip.Cell(0x0B), 0x24);
        EXPECT_EQ(chip.state().hardwareStack[1], 1);
        EXPECT_EQ(chip.state().instructionCount, 1);
        EXPECT_EQ(chip.state().clockCycles, 12);
    }
}

TEST(Pins, EdgesOfT0ckiCount) {
    struct Case {
        int optionReg;
        bool running;
        int afterRising, afterFalling;
    };
    constexpr Case kCases[] = {{0x28, true, 1, 1},  // T0CS
                               {0x38, true, 0, 1},  // T0CS and T0SE
                               {0x08, true, 0, 0},  // the instruction clock
                               {0x28, false, 0, 0}};
    for (const Case& c : kCases) {
        for (const char* model : {"PIC16F83", "PIC16F873", "PIC16F877", "PIC16F628"}) {
            SCOPED_TRACE(std::string(model) + " " + std::to_string(c.optionReg));
            Chip chip(model, {"NOP"});
            chip.SetCell(0x81, c.optionReg);
            chip.SetCell(0x01, 0);
            chip.Toggle(kRa4, c.running);
            EXPECT_EQ(chip.Cell(1), c.afterRising);
            chip.Toggle(kRa4, c.running);
            EXPECT_EQ(chip.Cell(1), c.afterFalling);
        }
    }
}

TEST(Pins, EdgesOfPortBRaiseFlags) {
    struct Case {
        Pin pin;
        int optionReg;
        bool running;
        int afterRising, afterFalling;  // INTCON, which is cleared in between
    };
    constexpr Case kCases[] = {{kRb0, 0x40, true, 2, 0},  {kRb0, 0x00, true, 0, 2},
                               {kRb0, 0x40, false, 0, 0}, {kRb5, 0x00, true, 1, 1},
                               {kRb7, 0x40, true, 1, 1},  {kRb5, 0x00, false, 0, 0},
                               {{1, 3}, 0x00, true, 0, 0}};
    for (const Case& c : kCases) {
        Chip chip("PIC16F84", {"NOP"});
        chip.SetCell(0x81, c.optionReg);
        chip.Toggle(c.pin, c.running);
        EXPECT_EQ(chip.Cell(0x0B), c.afterRising);
        chip.SetCell(0x0B, 0);
        chip.Toggle(c.pin, c.running);
        EXPECT_EQ(chip.Cell(0x0B), c.afterFalling);
    }
    Chip output("PIC16F84", {"NOP"});
    output.SetCell(0x86, 0x00);
    output.Toggle(kRb7);
    EXPECT_EQ(output.Cell(0x0B), 1);
    EXPECT_EQ(output.state().pinInputs[1], 0);
}

TEST(Interrupt, ComesFromEachEnabledSource) {
    struct Case {
        const char* model;
        int intcon, pir1, pie1, pir2, pie2;
        bool taken;
    };
    constexpr Case kCases[] = {
        {"PIC16F877", 0xA4, 0, 0, 0, 0, true},         // T0IF
        {"PIC16F877", 0x92, 0, 0, 0, 0, true},         // INTF
        {"PIC16F877", 0x89, 0, 0, 0, 0, true},         // RBIF
        {"PIC16F877", 0x3F, 0, 0, 0, 0, false},        // no GIE
        {"PIC16F877", 0x87, 0, 0, 0, 0, false},        // flags alone
        {"PIC16F877", 0x80, 0x40, 0x40, 0, 0, false},  // ADIF without PEIE
        {"PIC16F877", 0xC0, 0x40, 0x40, 0, 0, true},
        {"PIC16F877", 0xC0, 0x40, 0xBF, 0, 0, false},
        {"PIC16F877", 0xC0, 0, 0, 0x10, 0x10, true},   // EEIF
        {"PIC16F877", 0xC0, 0, 0, 0x06, 0x06, false},  // no source of PIR2
        {"PIC16F628", 0xC0, 0x80, 0x80, 0, 0, true},   // EEIF
        {"PIC16F628", 0xC0, 0x08, 0x08, 0, 0, false},  // no source of PIR1
        {"PIC16F84", 0xC0, 0xFF, 0xFF, 0xFF, 0xFF, false},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(std::string(c.model) + " INTCON " + std::to_string(c.intcon));
        Chip chip(c.model, {"NOP"});
        chip.Edit([&](ProcessorState& s) {
            s.dataMemory[0x0B] = static_cast<std::uint8_t>(c.intcon);
            s.dataMemory[0x0C] = static_cast<std::uint8_t>(c.pir1);
            s.dataMemory[0x8C] = static_cast<std::uint8_t>(c.pie1);
            s.dataMemory[0x0D] = static_cast<std::uint8_t>(c.pir2);
            s.dataMemory[0x8D] = static_cast<std::uint8_t>(c.pie2);
        });
        chip.Step();
        EXPECT_EQ(chip.LastText() == "INTERRUPT!", c.taken);
    }
}

// Data EEPROM. The registers of the three families: EECON1's bank bits, and its and EECON2's file
// addresses.

struct EepromCase {
    const char* model;
    std::size_t eecon1, eedata, eeadr, flagCell;
    int flagMask;
    const char* moveToEecon2;
    const char* setWr;
    int eepromBytes;
};

constexpr EepromCase kEepromCases[] = {
    {"PIC16F84", 0x088, 0x008, 0x009, 0x088, 0x10, "MOVWF 0x09", "BSF 0x08,1", 64},
    {"PIC16F874", 0x18C, 0x10C, 0x10D, 0x00D, 0x10, "MOVWF 0x0D", "BSF 0x0C,1", 128},
    {"PIC16F628", 0x09C, 0x09A, 0x09B, 0x00C, 0x80, "MOVWF 0x1D", "BSF 0x1C,1", 128}};

void PrepareEeprom(Chip& chip, const EepromCase& c, int address) {
    chip.SetTimes(20, 100);
    chip.Edit([&](ProcessorState& s) {
        s.dataMemory[3] = c.eecon1 == 0x18C ? 0x78 : 0x38;  // RP1 and RP0, or RP0
        s.dataMemory[c.eecon1] = 0x04;                      // WREN
        s.dataMemory[c.eeadr] = static_cast<std::uint8_t>(address);
        s.dataMemory[c.eedata] = 0x5A;
        s.eepromMemory[1] = 0xC3;
    });
}

TEST(Eeprom, WritesAfterTheWholeSequence) {
    for (const EepromCase& c : kEepromCases) {
        SCOPED_TRACE(c.model);
        Chip chip(c.model, {"MOVLW 0x55", c.moveToEecon2, "MOVLW 0xAA", c.moveToEecon2, c.setWr});
        PrepareEeprom(chip, c, 7);
        chip.Step(4);
        EXPECT_EQ(chip.state().eeUnlockState, 4);
        chip.Step(4);  // four of five steps
        EXPECT_TRUE(chip.state().eeWriteBusy);
        EXPECT_EQ(chip.Cell(c.eecon1) & 2, 2);
        EXPECT_EQ(chip.state().eepromMemory[7], 0);
        chip.Step();
        EXPECT_FALSE(chip.state().eeWriteBusy);
        EXPECT_EQ(chip.Cell(c.eecon1) & 2, 0);
        EXPECT_EQ(chip.Cell(c.flagCell) & c.flagMask, c.flagMask);
        EXPECT_EQ(chip.state().eepromMemory[7], 0x5A);
    }
}

TEST(Eeprom, WritesNothingAfterABrokenSequence) {
    const EepromCase& c = kEepromCases[0];
    Chip inside("PIC16F84",
                {"MOVLW 0x55", "NOP", "MOVWF 0x09", "MOVLW 0xAA", "MOVWF 0x09", "BSF 0x08,1"});
    PrepareEeprom(inside, c, 7);
    inside.Step(20);
    EXPECT_EQ(inside.Cell(c.eecon1), 0x06);  // WR stays set
    EXPECT_FALSE(inside.state().eeWriteBusy);

    Chip afterwards("PIC16F84",
                    {"MOVLW 0x55", "MOVWF 0x09", "MOVLW 0xAA", "MOVWF 0x09", "NOP", "BSF 0x08,1"});
    PrepareEeprom(afterwards, c, 7);
    afterwards.Step(5);
    EXPECT_EQ(afterwards.state().eeUnlockState, 0);
    afterwards.Step(15);
    EXPECT_EQ(afterwards.Cell(c.eecon1), 0x06);

    Chip repeated("PIC16F84", {"MOVLW 0x55", "MOVLW 0x55", "MOVWF 0x09", "MOVLW 0xAA", "MOVWF 0x09",
                               "BSF 0x08,1"});
    PrepareEeprom(repeated, c, 7);
    repeated.Step(2);
    EXPECT_EQ(repeated.state().eeUnlockState, 0);  // the mismatch is not tried as a new beginning
}

TEST(Eeprom, BeyondTheLastByteNothingIsReadOrWritten) {
    for (const EepromCase& c : kEepromCases) {
        SCOPED_TRACE(c.model);
        Chip chip(c.model, {"MOVLW 0x55", c.moveToEecon2, "MOVLW 0xAA", c.moveToEecon2, c.setWr});
        PrepareEeprom(chip, c, c.eepromBytes);
        chip.Step(9);
        EXPECT_EQ(chip.Cell(c.flagCell) & c.flagMask, c.flagMask);
        for (const int byte : chip.state().eepromMemory) {
            EXPECT_TRUE(byte == 0 || byte == 0xC3);
        }
        Chip reader(c.model, {"NOP"});
        PrepareEeprom(reader, c, c.eepromBytes);
        reader.SetCell(c.eecon1, 0x03);
        reader.Step();
        EXPECT_EQ(reader.Cell(c.eedata), 0x5A);
        EXPECT_EQ(reader.Cell(c.eecon1), 0);  // reading clears RD and WR
    }
}

TEST(Eeprom, ReadsDataUnlessProgramMemoryIsSelected) {
    for (const bool eepgd : {false, true}) {
        const EepromCase& c = kEepromCases[1];
        Chip chip(c.model, {"BSF 0x0C,0"});
        PrepareEeprom(chip, c, 1);
        chip.SetCell(c.eecon1, eepgd ? 0x80 : 0x00);
        chip.Step();
        EXPECT_EQ(chip.Cell(c.eedata), eepgd ? 0x5A : 0xC3);
        EXPECT_EQ(chip.Cell(c.eecon1), eepgd ? 0x80 : 0x00);
    }
}

// A/D converter, comparators.

TEST(Adc, StoresTheSampleLeftOrRightJustified) {
    struct Case {
        int value, adcon1, adresh, adresl;
    };
    constexpr Case kCases[] = {{1023, 0x00, 0xFF, 0xC0},
                               {1023, 0x80, 0x03, 0xFF},
                               {0x155, 0x00, 0x55, 0x40},
                               {0x155, 0x80, 0x01, 0x55},
                               {0, 0x80, 0x00, 0x00}};
    for (const Case& c : kCases) {
        Chip chip("PIC16F877", {"BSF 0x1F,2", "NOP", "NOP", "NOP"});
        chip.SetTimes(1000, 12);
        chip.SetAnalog(3, c.value);
        chip.SetCell(0x1F, 0x19);  // AN3, ADON
        chip.SetCell(0x9F, c.adcon1);
        chip.Step();
        chip.SetAnalog(3, 500);  // the sample is taken already
        chip.Step();
        EXPECT_EQ(chip.Cell(0x1F), 0x1D);
        chip.Step();
        EXPECT_EQ(chip.Cell(0x1F), 0x19);
        EXPECT_EQ(chip.Cell(0x0C), 0x40);
        EXPECT_EQ(chip.Cell(0x1E), c.adresh);
        EXPECT_EQ(chip.Cell(0x9E), c.adresl);
    }
}

TEST(Adc, CompletesAtOnceOrIsAbandoned) {
    Chip chip("PIC16F873", {"BSF 0x1F,2", "BSF 0x1F,2", "BCF 0x1F,0"});
    chip.SetCell(0x1F, 0x01);
    chip.SetTimes(1000, 4);
    chip.Step();
    EXPECT_EQ(chip.Cell(0x1F), 0x01);
    EXPECT_EQ(chip.Cell(0x0C), 0x40);
    chip.SetTimes(1000, 100);
    chip.Step();
    EXPECT_EQ(chip.state().adElapsed, 4);
    chip.Step();
    EXPECT_EQ(chip.state().adElapsed, 0);
    EXPECT_EQ(chip.Cell(0x1F), 0x04);
}

TEST(Adc, ReferencePinsAreDerived) {
    Chip chip("PIC16F877", {"NOP", "NOP"});
    chip.SetCell(0x9F, 0x0F);  // AN0, VREF- and VREF+
    chip.Step();
    EXPECT_EQ(chip.state().analogValues[2], 0);
    EXPECT_EQ(chip.state().analogValues[3], 1023);
    EXPECT_TRUE(chip.state().analogPinFlags[kRa2Reference]);
    EXPECT_TRUE(chip.state().analogPinFlags[kRa3Reference]);
}

TEST(VoltageReference, RoundsHalvesToEven) {
    struct Case {
        int vrcon, vrefValue;
    };
    constexpr Case kCases[] = {{0xAC, 250}, {0x80, 125}, {0x2C, 0},   {0xA3, 62}, {0xA9, 188},
                               {0x84, 188}, {0x8C, 312}, {0x8F, 359}, {0xAF, 312}};
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.vrcon);
        Chip chip("PIC16F628", {"NOP"});
        chip.SetCell(0x9F, c.vrcon);
        chip.Step();
        EXPECT_EQ(chip.state().vrefValue, c.vrefValue);
    }
}

TEST(Comparators, CompareTheInputsOfTheMode) {
    struct Case {
        int cmcon, ra0, ra1, ra2, ra3, expectedOutputs;  // C2OUT and C1OUT as bits 7 and 6
    };
    // Vref is 250.
    constexpr Case kCases[] = {
        {0x00, 400, 0, 100, 500, 0x00},   {0x01, 100, 200, 300, 400, 0xC0},
        {0x09, 100, 200, 300, 400, 0x80}, {0x02, 100, 400, 0, 0, 0x40},
        {0x0A, 100, 400, 0, 300, 0x80},   {0x42, 250, 300, 0, 0, 0x40},  // equal: stays
        {0x03, 100, 400, 300, 0, 0x40},   {0x06, 400, 100, 300, 0, 0x80},
        {0x04, 100, 100, 50, 200, 0x40},  {0x05, 0, 100, 300, 0, 0x80},
        {0x45, 0, 400, 300, 0, 0x40},     {0x32, 100, 400, 0, 0, 0x80},  // both inverted
        {0xC7, 100, 200, 300, 400, 0xC0}};
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.cmcon);
        Chip chip("PIC16F627", {"NOP", "NOP"});
        chip.SetAnalog(0, c.ra0);
        chip.SetAnalog(1, c.ra1);
        chip.SetAnalog(2, c.ra2);
        chip.SetAnalog(3, c.ra3);
        chip.SetCell(0x9F, 0xAC);
        chip.SetCell(0x1F, c.cmcon);
        chip.Step();
        EXPECT_EQ(chip.Cell(0x1F) & 0xC0, c.expectedOutputs);
    }
}

}  // namespace
}  // namespace corvane::core
