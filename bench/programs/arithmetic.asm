; Register arithmetic and branches (PIC16F877): a 24-bit pseudo-random generator whose bytes are
; summed up, compared and counted for ever.
ACCL    EQU 0x20
ACCM    EQU 0x21
ACCH    EQU 0x22
SUML    EQU 0x23
SUMH    EQU 0x24
COUNT   EQU 0x25
SMALL   EQU 0x26
        MOVLW 0x5A
        MOVWF ACCL
        MOVLW 0x3C
        MOVWF ACCM
        MOVLW 0xC3
        MOVWF ACCH
AGAIN:  BCF STATUS,C
        RLF ACCL,F
        RLF ACCM,F
        RLF ACCH,F
        BTFSS STATUS,C
        GOTO NOTAP
        MOVLW 0x1B
        XORWF ACCL,F
NOTAP:  MOVF ACCM,W
        ADDWF SUML,F
        BTFSC STATUS,C
        INCF SUMH,F
        SWAPF ACCH,W
        ANDLW 0x0F
        SUBLW 0x07
        BTFSS STATUS,C
        GOTO LARGE
        INCF SMALL,F
        CALL MIX
LARGE:  DECFSZ COUNT,F
        GOTO AGAIN
        COMF SUMH,W
        IORWF SMALL,F
        GOTO AGAIN
MIX:    MOVF SUML,W
        SUBWF ACCL,F
        ADDLW 0x35
        XORWF ACCM,F
        RETURN
