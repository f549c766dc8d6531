// Which register an instruction reaches, and what it does there.
#pragma once

#include <cstdint>

#include "inspect/measurements.h"

namespace corvane::inspect {

// Of an instruction without register the address is -1.
struct Access {
    int address = -1;           // data memory, 0..1FFh; of INDF where FSR points
    std::uint8_t readBits = 0;  // BSF and BCF read none, BTFSC and BTFSS one, the others all
    std::uint8_t writtenBits = 0;
};

// What the instruction of a step has done to a register.
Access AccessOf(const Step& step);

}  // namespace corvane::inspect
