BASE EQU 0x10
    ORG BASE
    MOVLW 1 ; gives way to a later line with the same address
    MOVLW 2
    ORG 16
    MOVLW 3
    ORG BASE,2 ; a number behind a symbol is let pass
    ORG BASE,NOWHERE
    ORG %10001,
    MOVLW 256 ; leaves the word of the earlier line
HERE ORG 0x14 ; the label is the new address
    GOTO HERE
    ORG LATER ; labels are still 0 here
    CALL HERE
LATER
    CALL LATER
    ORG 0x18
    NOP ; zeros behind the last other word are not written
    END
    DW 0
