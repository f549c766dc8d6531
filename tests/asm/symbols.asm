ONE EQU 1
    MOVLW one
TWO EQU ONE
    MOVLW TWO ; the value of a constant with an error is 0
THREE EQU 3,4
FOUR EQU 4, ; an empty second operand is none
    MOVLW FOUR
STATUS NOP
STATUS EQU 7
    MOVLW STATUS
TABLE:
TABLE:: ; one colon is dropped
    MOVLW TABLE:
NOP
    MOVLW NOP ; a mnemonic in column 1 is a label
AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA:
    MOVLW AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA
    MOVLW AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA ; operands are cut to 32 characters
AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA NOP
_x?! MOVLW 1,2
    MOVLW _X?!
LOST FOO
    MOVLW LOST
    MOVLW AFTER
    EQU
    EQU 5 ; reads as the label EQU
    MOVLW CUT_TO_32_CHARACTERS_PREDEFINED_
    MOVLW TWICE ; the first definition counts
LOOP: GOTO LOOP
AFTER RETLW 0
