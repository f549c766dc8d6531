; Begin
        R0L EQU 0xC
        R0H EQU 0xD
        R1L EQU 0xE
        R1H EQU 0xF
        R2L EQU 0x10
        R2H EQU 0x11
        R3L EQU 0x12
        R3H EQU 0x13
        R4L EQU 0x14
        R4H EQU 0x15
; 1: 
; 2: 
; 3: Dim a As Byte
;       The address of 'a' is 0x16
; 4: Dim w As Word
;       The address of 'w' is 0x17
; 5: a = Sqr(a)
        MOVF 0x16,W
        CLRF R0H
        CALL S001
        MOVWF 0x16
; 6: a = Sqr(w)
        MOVF 0x18,W
        MOVWF R0H
        MOVF 0x17,W
        CALL S001
        MOVWF 0x16
; 7: a = Sqr(144)
        MOVLW 0x00
        MOVWF R0H
        MOVLW 0x90
        CALL S001
        MOVWF 0x16
; 8: w = Sqr(w)
        MOVF 0x18,W
        MOVWF R0H
        MOVF 0x17,W
        CALL S001
        MOVWF 0x17
        CLRF 0x18
; 9: w = Sqr(65535)
        MOVLW 0xFF
        MOVWF R0H
        MOVLW 0xFF
        CALL S001
        MOVWF 0x17
        CLRF 0x18
; 10: WaitMs 1000
        MOVLW 0xE8
        MOVWF R0L
        MOVLW 0x03
        MOVWF R0H
        MOVLW 0x10
        MOVWF R1H
        CALL W001
; 11: WaitMs a
        MOVF 0x16,W
        MOVWF R0L
        CLRF R0H
        MOVLW 0x10
        MOVWF R1H
        CALL W001
; 12: WaitMs w
        MOVF 0x17,W
        MOVWF R0L
        MOVF 0x18,W
        MOVWF R0H
        MOVLW 0x10
        MOVWF R1H
        CALL W001
; 13: WaitMs 0
        MOVLW 0x00
        MOVWF R0L
        MOVLW 0x00
        MOVWF R0H
        MOVLW 0x10
        MOVWF R1H
        CALL W001
; 14: w = w * w
        MOVF 0x17,W
        MOVWF R3L
        MOVF 0x18,W
        MOVWF R3H
        MOVF 0x17,W
        MOVWF R1L
        MOVF 0x18,W
        MOVWF R1H
        CALL M001
        MOVWF 0x17
        MOVF R2H,W
        MOVWF 0x18
; 15: w = w Mod 7
        MOVF 0x17,W
        MOVWF R0L
        MOVF 0x18,W
        MOVWF R0H
        MOVLW 0x07
        MOVWF R1L
        MOVLW 0x00
        MOVWF R1H
        CALL D001
        MOVF R2L,W
        MOVWF 0x17
        MOVF R2H,W
        MOVWF 0x18
; 16: While w > 7
L0001:  NOP
        MOVF 0x17,W
        MOVWF R0L
        MOVF 0x18,W
        MOVWF R0H
        MOVLW 0x00
        MOVWF R1H
        MOVLW 0x07
        CALL C003
        BTFSS STATUS,Z
        GOTO L0002
; 17: Wend
        GOTO L0001
L0002:  NOP
; End
L0003:  GOTO L0003
; Multiplication Routine
; Division Routine
; Comparison Routine
; Square Root Routine
; Waitms Routine
; End of listing
        END
