#include "disasm/decoder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::disasm {
namespace {

std::string Texts(const std::vector<int>& words) {
    std::string texts;
    for (const int word : words) {
        texts += (texts.empty() ? "" : "; ") + DecodeInstruction(word);
    }
    return texts;
}

TEST(Decoder, TextOfAWord) {
    EXPECT_EQ(Texts({0x0000, 0x0060, 0x0008, 0x0009, 0x0063, 0x0064, 0x0100, 0x017F}),
              "NOP; NOP; RETURN; RETFIE; SLEEP; CLRWDT; CLRW; CLRW");
    EXPECT_EQ(Texts({0x0180, 0x0082, 0x0083, 0x0084, 0x018A, 0x008B, 0x0086, 0x00FF}),
              "CLRF INDF; MOVWF PCL; MOVWF STATUS; MOVWF FSR; CLRF PCLATH; MOVWF INTCON; "
              "MOVWF 0x06; MOVWF 0x7F");
    EXPECT_EQ(Texts({0x0803, 0x0A8C, 0x0E8B}), "MOVF STATUS,W; INCF 0x0C,F; SWAPF INTCON,F");
    EXPECT_EQ(Texts({0x1386, 0x1683, 0x1803, 0x170B, 0x1F8B, 0x158A}),
              "BCF 0x06,7; BSF STATUS,RP0; BTFSC STATUS,C; BSF INTCON,PEIE; BTFSS INTCON,GIE; "
              "BSF PCLATH,3");
    EXPECT_EQ(Texts({0x2005, 0x2FFF, 0x3355, 0x3400, 0x3AFF, 0x3C00, 0x3FFF}),
              "CALL 0x005; GOTO 0x7FF; MOVLW 0x55; RETLW 0x00; XORLW 0xFF; SUBLW 0x00; ADDLW 0xFF");
    EXPECT_EQ(Texts({0x0001, 0x3B00, 0x4000, -1}),
              "UNRECOGNIZED; UNRECOGNIZED; UNRECOGNIZED; UNRECOGNIZED");
}

TEST(Decoder, OperandNames) {
    std::string status;
    std::string intcon;
    std::string other;
    for (int b = 0; b < 8; ++b) {
        status += BitName(b, 0x03) + " ";
        intcon += BitName(b, 0x0B) + " ";
        other += BitName(b, 0x0A) + " ";
    }
    EXPECT_EQ(status, "C DC Z NOT_PD NOT_TO RP0 RP1 IRP ");
    EXPECT_EQ(intcon, "RBIF INTF T0IF RBIE INTE T0IE PEIE GIE ");
    EXPECT_EQ(other, "0 1 2 3 4 5 6 7 ");
    EXPECT_EQ(RegisterName(0x01), "0x01");
    EXPECT_EQ(DestinationName(2), "");
}

}  // namespace
}  // namespace corvane::disasm
