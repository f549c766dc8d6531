; Timer0 interrupts with the prescaler at 1:2 (PIC16F84): the handler keeps W and STATUS and counts
; the overflows while the main program counts and shifts.
SAVEDW  EQU 0x0C
SAVEDS  EQU 0x0D
TICKSL  EQU 0x0E
TICKSH  EQU 0x0F
WORK    EQU 0x10
SHIFT   EQU 0x11
        GOTO START
        ORG 0x0004
        MOVWF SAVEDW
        SWAPF STATUS,W
        MOVWF SAVEDS
        BCF INTCON,T0IF
        INCF TICKSL,F
        BTFSC STATUS,Z
        INCF TICKSH,F
        SWAPF SAVEDS,W
        MOVWF STATUS
        SWAPF SAVEDW,F
        SWAPF SAVEDW,W
        RETFIE
START:  BSF STATUS,RP0
        MOVLW 0x80
        MOVWF OPTION_REG
        BCF STATUS,RP0
        MOVLW 0xA0
        MOVWF INTCON
MAIN:   INCF WORK,F
        MOVF WORK,W
        ANDLW 0x3F
        BTFSS STATUS,Z
        GOTO MAIN
        RLF SHIFT,F
        MOVF TICKSL,W
        XORWF SHIFT,F
        GOTO MAIN
