// Cells of the special function registers that the engine reaches by fixed index, and their bits.
// Data sheet: "Special Function Registers".
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/processor_state.h"

namespace corvane::core {

constexpr std::size_t kTmr0 = 0x001;
constexpr std::size_t kPcl = 0x002;
constexpr std::size_t kStatus = 0x003;
constexpr std::size_t kFsr = 0x004;
constexpr std::size_t kPortA = 0x005;  // ports B to E follow
constexpr std::size_t kPclath = 0x00A;
constexpr std::size_t kIntcon = 0x00B;
constexpr std::size_t kPir1 = 0x00C;
constexpr std::size_t kPir2 = 0x00D;
constexpr std::size_t kOptionReg = 0x081;
constexpr std::size_t kTrisA = 0x085;  // TRISB to TRISE follow
constexpr std::size_t kPie1 = 0x08C;
constexpr std::size_t kPie2 = 0x08D;
constexpr std::size_t kAdresh = 0x01E;  // PIC16F87x
constexpr std::size_t kAdcon0 = 0x01F;
constexpr std::size_t kAdresl = 0x09E;
constexpr std::size_t kAdcon1 = 0x09F;
constexpr std::size_t kCmcon = 0x01F;  // PIC16F62x
constexpr std::size_t kVrcon = 0x09F;

namespace status {
constexpr int kC = 0x01;
constexpr int kDc = 0x02;
constexpr int kZ = 0x04;
constexpr int kFlags = 0x07;
constexpr int kPowerFlags = 0x18;  // NOT_TO and NOT_PD
constexpr int kBankSelect = 0x60;  // RP1:RP0
constexpr int kIrp = 0x80;
}  // namespace status

namespace option_reg {
constexpr int kPrescalerSelect = 0x07;
constexpr int kPsa = 0x08;
constexpr int kT0se = 0x10;
constexpr int kT0cs = 0x20;
constexpr int kIntedg = 0x40;
}  // namespace option_reg

namespace intcon {
constexpr int kRbif = 0x01;
constexpr int kIntf = 0x02;
constexpr int kT0if = 0x04;
constexpr int kCoreFlags = 0x07;
constexpr int kPeie = 0x40;  // EEIE on PIC16F8x
constexpr int kGie = 0x80;
}  // namespace intcon

namespace eecon1 {
constexpr int kRd = 0x01;
constexpr int kWr = 0x02;
constexpr int kWren = 0x04;
constexpr int kWrerr = 0x08;
constexpr int kEepgd = 0x80;  // PIC16F87x
}  // namespace eecon1

// Bits of a cell, by mask.
inline void SetBits(std::uint8_t& cell, int bits) {
    cell = static_cast<std::uint8_t>(cell | bits);
}
inline void ClearBits(std::uint8_t& cell, int bits) {
    cell = static_cast<std::uint8_t>(cell & ~bits);
}
inline bool AnySet(std::uint8_t cell, int bits) {
    return (cell & bits) != 0;
}

}  // namespace corvane::core
