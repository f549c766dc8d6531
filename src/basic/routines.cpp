#include "basic/routines.h"

#include <array>
#include <string_view>

#include "common/text.h"

namespace corvane::basic {

namespace {

// Shifts and adds: sixteen rounds, one for each bit of the multiplier R3.
constexpr std::string_view kMultiplication = R"(; Multiplication Routine
M001:   MOVLW 0x10
        MOVWF R4L
        CLRF R0H
        CLRF R0L
M002:   RRF R3H,F
        RRF R3L,F
        BTFSS STATUS,C
        GOTO M003
        MOVF R1L,W
        ADDWF R0L,F
        MOVF R1H,W
        BTFSC STATUS,C
        INCFSZ R1H,W
        ADDWF R0H,F
M003:   RRF R0H,F
        RRF R0L,F
        RRF R2H,F
        RRF R2L,F
        DECFSZ R4L,F
        GOTO M002
        MOVF R2L,W
        RETURN
)";

// Restoring division: sixteen rounds shift the dividend R0 into the remainder R2 and quotient bits
// into R0.
constexpr std::string_view kDivision = R"(; Division Routine
D001:   MOVLW 0x10
        MOVWF R3L
        CLRF R2H
        CLRF R2L
D002:   RLF R0H,W
        RLF R2L,F
        RLF R2H,F
        MOVF R1L,W
        SUBWF R2L,F
        MOVF R1H,W
        BTFSS STATUS,C
        INCFSZ R1H,W
        SUBWF R2H,F
        BTFSC STATUS,C
        GOTO D003
        MOVF R1L,W
        ADDWF R2L,F
        MOVF R1H,W
        BTFSC STATUS,C
        INCFSZ R1H,W
        ADDWF R2H,F
        BCF STATUS,C
D003:   RLF R0L,F
        RLF R0H,F
        DECFSZ R3L,F
        GOTO D002
        MOVF R0L,W
        RETURN
)";

// Each entry loads a mask of the relations under which its condition is false: 4 for less, 2 for
// equal, 1 for greater.
constexpr std::string_view kComparison = R"(; Comparison Routine
C001:   MOVWF R1L
        MOVLW 0x05
        GOTO C007
C002:   MOVWF R1L
        MOVLW 0x02
        GOTO C007
C003:   MOVWF R1L
        MOVLW 0x06
        GOTO C007
C004:   MOVWF R1L
        MOVLW 0x03
        GOTO C007
C005:   MOVWF R1L
        MOVLW 0x04
        GOTO C007
C006:   MOVWF R1L
        MOVLW 0x01
        GOTO C007
C007:   MOVWF R4L
        MOVF R1H,W
        SUBWF R0H,W
        BTFSS STATUS,Z
        GOTO C008
        MOVF R1L,W
        SUBWF R0L,W
C008:   MOVLW 0x04
        BTFSC STATUS,C
        MOVLW 0x01
        BTFSC STATUS,Z
        MOVLW 0x02
        ANDWF R4L,W
        BTFSS STATUS,Z
        MOVLW 0xFF
        RETURN
)";

// Eight rounds: two bits of the argument R0 into the remainder R2, one bit of the root into R1.
constexpr std::string_view kSquareRoot = R"(; Square Root Routine
S001:   MOVWF R0L
        CLRF R1L
        CLRF R1H
        CLRF R2L
        CLRF R2H
        MOVLW 0x08
        MOVWF R3L
S002:   BSF STATUS,C
        RLF R1L,F
        RLF R1H,F
        RLF R0L,F
        RLF R0H,F
        RLF R2L,F
        RLF R2H,F
        RLF R0L,F
        RLF R0H,F
        RLF R2L,F
        RLF R2H,F
        MOVF R1L,W
        SUBWF R2L,W
        MOVF R1H,W
        BTFSS STATUS,C
        INCFSZ R1H,W
        SUBWF R2H,W
        BTFSS STATUS,C
        GOTO S003
        MOVWF R2H
        MOVF R1L,W
        SUBWF R2L,F
        INCF R1L,F
        BTFSC STATUS,Z
        INCF R1H,F
        GOTO S004
S003:   MOVLW 0x01
        SUBWF R1L,F
        BTFSS STATUS,C
        SUBWF R1H,F
S004:   DECFSZ R3L,F
        GOTO S002
        RRF R1H,W
        RRF R1L,W
        RETURN
)";

// A millisecond is 50 x R1H + 100 instruction cycles, with the calls and loops of all levels.
constexpr std::string_view kWaitMs = R"(; Waitms Routine
W001:   MOVF R0L,F
        BTFSC STATUS,Z
        GOTO W002
        CALL W003
        DECF R0L,F
        NOP
        NOP
        NOP
        NOP
        NOP
        GOTO W001
W002:   MOVF R0H,F
        BTFSC STATUS,Z
        RETURN
        CALL W003
        DECF R0H,F
        DECF R0L,F
        GOTO W001
W003:   MOVLW 0x0C
        MOVWF R2H
W004:   DECFSZ R2H,F
        GOTO W004
        NOP
        NOP
        MOVF R1H,W
        MOVWF R1L
W005:   DECFSZ R1L,F
        GOTO W006
        CALL W007
        CALL W007
        NOP
        NOP
        RETURN
W006:   CALL W007
        GOTO W005
W007:   MOVLW 0x0D
        MOVWF R2L
W008:   DECFSZ R2L,F
        GOTO W008
        NOP
        RETURN
)";

// Indexed by Routine.
constexpr std::array<std::string_view, kRoutineCount> kRoutines = {
    kMultiplication, kDivision, kComparison, kSquareRoot, kWaitMs};

}  // namespace

void AppendRoutines(const RoutineFlags& flags, CodeWriter& code) {
    for (std::size_t i = 0; i < kRoutineCount; ++i) {
        if (!flags.test(i)) {
            continue;
        }
        for (const std::string_view line : common::SplitLines(kRoutines[i])) {
            if (line.starts_with(';')) {
                code.Line(line);
            } else {
                code.InstructionLine(line);
            }
        }
    }
}

}  // namespace corvane::basic
