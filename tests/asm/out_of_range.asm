    ORG 0x7FFF
    NOP
    MOVLW 1
FAR MOVLW 256,1 ; counts once
    DW 1
    FOO
NAME EQU 1 ; needs no word
    ORG 65535
    NOP
    NOP
    END
    ORG 0
    RETLW NAME
    GOTO FAR
