// The instructions of the plain engine. Data sheet: "Instruction Set Summary".
#include <cstddef>

#include "core/plain_engine.h"

namespace corvane::core::plain {

namespace {

// Fields of a word.
int F(int word) {
    return word & 127;
}

bool DestinationIsRegister(int word) {
    return (word & 128) != 0;
}

int BitMask(int word) {
    return 1 << ((word >> 7) & 7);
}

int K8(int word) {
    return word & 255;
}

int K11(int word) {
    return word & 2047;
}

constexpr int kC = 1;
constexpr int kDc = 2;
constexpr int kZ = 4;

}  // namespace

struct Engine::Row {
    int firstWord, lastWord;
    void (Engine::*execute)(int word);
};

const std::array<Engine::Row, 38> Engine::kRows = {{
    {0x0000, 0x0000, &Engine::Nop},    {0x0020, 0x0020, &Engine::Nop},
    {0x0040, 0x0040, &Engine::Nop},    {0x0060, 0x0060, &Engine::Nop},
    {0x0008, 0x0008, &Engine::Return}, {0x0009, 0x0009, &Engine::Retfie},
    {0x0063, 0x0063, &Engine::Sleep},  {0x0064, 0x0064, &Engine::Clrwdt},
    {0x0080, 0x00FF, &Engine::Movwf},  {0x0100, 0x017F, &Engine::Clrw},
    {0x0180, 0x01FF, &Engine::Clrf},   {0x0200, 0x02FF, &Engine::Subwf},
    {0x0300, 0x03FF, &Engine::Decf},   {0x0400, 0x04FF, &Engine::Iorwf},
    {0x0500, 0x05FF, &Engine::Andwf},  {0x0600, 0x06FF, &Engine::Xorwf},
    {0x0700, 0x07FF, &Engine::Addwf},  {0x0800, 0x08FF, &Engine::Movf},
    {0x0900, 0x09FF, &Engine::Comf},   {0x0A00, 0x0AFF, &Engine::Incf},
    {0x0B00, 0x0BFF, &Engine::Decfsz}, {0x0C00, 0x0CFF, &Engine::Rrf},
    {0x0D00, 0x0DFF, &Engine::Rlf},    {0x0E00, 0x0EFF, &Engine::Swapf},
    {0x0F00, 0x0FFF, &Engine::Incfsz}, {0x1000, 0x13FF, &Engine::Bcf},
    {0x1400, 0x17FF, &Engine::Bsf},    {0x1800, 0x1BFF, &Engine::Btfsc},
    {0x1C00, 0x1FFF, &Engine::Btfss},  {0x2000, 0x27FF, &Engine::Call},
    {0x2800, 0x2FFF, &Engine::Goto},   {0x3000, 0x33FF, &Engine::Movlw},
    {0x3400, 0x37FF, &Engine::Retlw},  {0x3800, 0x38FF, &Engine::Iorlw},
    {0x3900, 0x39FF, &Engine::Andlw},  {0x3A00, 0x3AFF, &Engine::Xorlw},
    {0x3C00, 0x3DFF, &Engine::Sublw},  {0x3E00, 0x3FFF, &Engine::Addlw},
}};

void Engine::ExecuteInstruction() {
    state_.instructionCount += 1;
    InstructionCycle();
    const int word =
        state_.programMemory.at(static_cast<std::size_t>(state_.pc % chip_.model->programWords));
    state_.lastInstruction = word;
    bool matched = false;
    for (const Row& row : kRows) {
        if (!matched && word >= row.firstWord && word <= row.lastWord) {
            (this->*row.execute)(word);
            matched = true;
        }
    }
    if (!matched) {
        state_.stopRequested = true;
    }
    SetCell(kStatus, (Cell(kStatus) & 0xE7) | powerFlags_);
}

// Flags.

void Engine::StoreFlags() {
    SetCell(kStatus, (Cell(kStatus) & 0xF8) | statusFlags_);
}

void Engine::SetZeroFlag(int r) {
    statusFlags_ = (statusFlags_ & ~kZ) | (r == 0 ? kZ : 0);
    StoreFlags();
}

void Engine::SetAddFlags(int a, int b) {
    const bool carry = a + b >= 256;
    const bool digitCarry = (a & 15) + (b & 15) >= 16;
    statusFlags_ = (statusFlags_ & kZ) | (carry ? kC : 0) | (digitCarry ? kDc : 0);
    StoreFlags();
}

void Engine::SetSubtractFlags(int a, int b) {
    const bool noBorrow = a >= b;
    const bool noDigitBorrow = (a & 15) >= (b & 15);
    statusFlags_ = (statusFlags_ & kZ) | (noBorrow ? kC : 0) | (noDigitBorrow ? kDc : 0);
    StoreFlags();
}

// Common ends.

void Engine::Store(int word, int value) {
    if (DestinationIsRegister(word)) {
        WriteRegister(F(word), value);
    } else {
        state_.w = value;
    }
}

void Engine::Skip() {
    IncrementPc();
    InstructionCycle();
}

// Control.

void Engine::Nop(int /*word*/) {
    IncrementPc();
}

void Engine::Return(int /*word*/) {
    InstructionCycle();
    SetPc(Pop());
}

void Engine::Retfie(int /*word*/) {
    InstructionCycle();
    SetPc(Pop());
    SetBit(kIntcon, 7, true);
}

void Engine::Sleep(int /*word*/) {
    powerFlags_ = 0x10;
    state_.stopRequested = true;
}

void Engine::Clrwdt(int /*word*/) {
    IncrementPc();
    powerFlags_ = 0x18;
}

// Registers.

void Engine::Movwf(int word) {
    IncrementPc();
    WriteRegister(F(word), state_.w);
}

void Engine::Clrw(int /*word*/) {
    IncrementPc();
    state_.w = 0;
    SetZeroFlag(0);
}

void Engine::Clrf(int word) {
    IncrementPc();
    WriteRegister(F(word), 0);
    SetZeroFlag(0);
}

void Engine::Subwf(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int w = state_.w;
    int r = a - w;
    if (r < 0) {
        r += 256;
    }
    Store(word, r);
    SetSubtractFlags(a, w);
    SetZeroFlag(r);
}

void Engine::Decf(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int r = a == 0 ? 255 : a - 1;
    Store(word, r);
    SetZeroFlag(r);
}

void Engine::Iorwf(int word) {
    IncrementPc();
    const int r = ReadRegister(F(word)) | state_.w;
    Store(word, r);
    SetZeroFlag(r);
}

void Engine::Andwf(int word) {
    IncrementPc();
    const int r = ReadRegister(F(word)) & state_.w;
    Store(word, r);
    SetZeroFlag(r);
}

void Engine::Xorwf(int word) {
    IncrementPc();
    const int r = ReadRegister(F(word)) ^ state_.w;
    Store(word, r);
    SetZeroFlag(r);
}

void Engine::Addwf(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int w = state_.w;
    int r = a + w;
    if (r > 255) {
        r -= 256;
    }
    Store(word, r);
    SetAddFlags(a, w);
    SetZeroFlag(r);
}

void Engine::Movf(int word) {
    IncrementPc();
    const int r = ReadRegister(F(word));
    Store(word, r);
    SetZeroFlag(r);
}

void Engine::Comf(int word) {
    IncrementPc();
    const int r = 255 - ReadRegister(F(word));
    Store(word, r);
    SetZeroFlag(r);
}

void Engine::Incf(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int r = a == 255 ? 0 : a + 1;
    Store(word, r);
    SetZeroFlag(r);
}

void Engine::Decfsz(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int r = a == 0 ? 255 : a - 1;
    Store(word, r);
    if (r == 0) {
        Skip();
    }
}

void Engine::Rrf(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int oldC = statusFlags_ & kC;
    statusFlags_ = (statusFlags_ & ~kC) | (a & 1);
    const int r = a / 2 + oldC * 128;
    Store(word, r);
    StoreFlags();
}

void Engine::Rlf(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int oldC = statusFlags_ & kC;
    statusFlags_ = (statusFlags_ & ~kC) | (a >= 128 ? kC : 0);
    const int r = (a & 127) * 2 + oldC;
    Store(word, r);
    StoreFlags();
}

void Engine::Swapf(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    Store(word, a / 16 + (a & 15) * 16);
}

void Engine::Incfsz(int word) {
    IncrementPc();
    const int a = ReadRegister(F(word));
    const int r = a == 255 ? 0 : a + 1;
    Store(word, r);
    if (r == 0) {
        Skip();
    }
}

// Bits.

void Engine::Bcf(int word) {
    IncrementPc();
    WriteRegister(F(word), ReadRegister(F(word)) & (255 - BitMask(word)));
}

void Engine::Bsf(int word) {
    IncrementPc();
    WriteRegister(F(word), ReadRegister(F(word)) | BitMask(word));
}

void Engine::Btfsc(int word) {
    IncrementPc();
    if ((ReadRegister(F(word)) & BitMask(word)) == 0) {
        Skip();
    }
}

void Engine::Btfss(int word) {
    IncrementPc();
    if ((ReadRegister(F(word)) & BitMask(word)) != 0) {
        Skip();
    }
}

// Jumps.

void Engine::Call(int word) {
    InstructionCycle();
    IncrementPc();
    Push(state_.pc);
    SetPc((Cell(kPclath) & 0x18) * 256 + K11(word));
}

void Engine::Goto(int word) {
    InstructionCycle();
    SetPc((Cell(kPclath) & 0x18) * 256 + K11(word));
}

// Literals.

void Engine::Movlw(int word) {
    IncrementPc();
    state_.w = K8(word);
}

void Engine::Retlw(int word) {
    InstructionCycle();
    SetPc(Pop());
    state_.w = K8(word);
}

void Engine::Iorlw(int word) {
    IncrementPc();
    state_.w = state_.w | K8(word);
    SetZeroFlag(state_.w);
}

void Engine::Andlw(int word) {
    IncrementPc();
    state_.w = state_.w & K8(word);
    SetZeroFlag(state_.w);
}

void Engine::Xorlw(int word) {
    IncrementPc();
    state_.w = state_.w ^ K8(word);
    SetZeroFlag(state_.w);
}

void Engine::Sublw(int word) {
    IncrementPc();
    const int old = state_.w;
    state_.w = K8(word) - old;
    if (state_.w < 0) {
        state_.w += 256;
    }
    SetSubtractFlags(K8(word), old);
    SetZeroFlag(state_.w);
}

void Engine::Addlw(int word) {
    IncrementPc();
    const int old = state_.w;
    state_.w = old + K8(word);
    if (state_.w > 255) {
        state_.w -= 256;
    }
    SetAddFlags(K8(word), old);
    SetZeroFlag(state_.w);
}

}  // namespace corvane::core::plain
