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
; 2: Dim a As Byte
;       The address of 'a' is 0x16
; 3: Dim b As Byte
;       The address of 'b' is 0x17
; 4: Dim w As Word
;       The address of 'w' is 0x18
; 5: Dim v As Word
;       The address of 'v' is 0x1A
; 6: a = a + b
        MOVF 0x16,W
        ADDWF 0x17,W
        MOVWF 0x16
; 7: a = a + 5
        MOVF 0x16,W
        ADDLW 0x05
        MOVWF 0x16
; 8: a = 200 + b
        MOVLW 0xC8
        ADDWF 0x17,W
        MOVWF 0x16
; 9: a = 3 + 4
        MOVLW 0x03
        ADDLW 0x04
        MOVWF 0x16
; 10: a = a - b
        MOVF 0x17,W
        SUBWF 0x16,W
        MOVWF 0x16
; 11: a = a - 5
        MOVLW 0x05
        SUBWF 0x16,W
        MOVWF 0x16
; 12: a = 200 - b
        MOVF 0x17,W
        SUBLW 0xC8
        MOVWF 0x16
; 13: a = a * b
        MOVF 0x16,W
        MOVWF R3L
        CLRF R3H
        MOVF 0x17,W
        MOVWF R1L
        CLRF R1H
        CALL M001
        MOVWF 0x16
; 14: a = a * 10
        MOVF 0x16,W
        MOVWF R3L
        CLRF R3H
        MOVLW 0x0A
        MOVWF R1L
        CLRF R1H
        CALL M001
        MOVWF 0x16
; 15: a = a / b
        MOVF 0x16,W
        MOVWF R0L
        CLRF R0H
        MOVF 0x17,W
        MOVWF R1L
        CLRF R1H
        CALL D001
        MOVWF 0x16
; 16: a = 100 / b
        MOVLW 0x64
        MOVWF R0L
        CLRF R0H
        MOVF 0x17,W
        MOVWF R1L
        CLRF R1H
        CALL D001
        MOVWF 0x16
; 17: a = a Mod 10
        MOVF 0x16,W
        MOVWF R0L
        CLRF R0H
        MOVLW 0x0A
        MOVWF R1L
        CLRF R1H
        CALL D001
        MOVF R2L,W
        MOVWF 0x16
; 18: a = w.LB + w.HB
        MOVF 0x18,W
        ADDWF 0x19,W
        MOVWF 0x16
; 19: TRISB = PORTB + TRISA
        MOVF 0x06,W
        BSF STATUS,RP0
        ADDWF 0x05,W
        MOVWF 0x06
        BCF STATUS,RP0
; 20: w = w + v
        MOVF 0x18,W
        ADDWF 0x1A,W
        MOVWF 0x18
        MOVF 0x19,W
        BTFSC STATUS,C
        ADDLW 0x01
        ADDWF 0x1B,W
        MOVWF 0x19
; 21: w = w + 0x1234
        MOVF 0x18,W
        ADDLW 0x34
        MOVWF 0x18
        MOVF 0x19,W
        BTFSC STATUS,C
        ADDLW 0x01
        ADDLW 0x12
        MOVWF 0x19
; 22: w = 300 + v
        MOVLW 0x2C
        ADDWF 0x1A,W
        MOVWF 0x18
        MOVLW 0x01
        BTFSC STATUS,C
        ADDLW 0x01
        ADDWF 0x1B,W
        MOVWF 0x19
; 23: w = w - v
        MOVF 0x1A,W
        SUBWF 0x18,W
        MOVWF 0x18
        MOVF 0x1B,W
        BTFSS STATUS,C
        ADDLW 0x01
        SUBWF 0x19,W
        MOVWF 0x19
; 24: w = w - 0x1234
        MOVLW 0x34
        SUBWF 0x18,W
        MOVWF 0x18
        MOVLW 0x12
        BTFSS STATUS,C
        ADDLW 0x01
        SUBWF 0x19,W
        MOVWF 0x19
; 25: w = 300 - v
        MOVF 0x1A,W
        SUBLW 0x2C
        MOVWF 0x18
        MOVF 0x1B,W
        BTFSS STATUS,C
        ADDLW 0x01
        SUBLW 0x01
        MOVWF 0x19
; 26: w = w * v
        MOVF 0x18,W
        MOVWF R3L
        MOVF 0x19,W
        MOVWF R3H
        MOVF 0x1A,W
        MOVWF R1L
        MOVF 0x1B,W
        MOVWF R1H
        CALL M001
        MOVWF 0x18
        MOVF R2H,W
        MOVWF 0x19
; 27: w = w * 1000
        MOVF 0x18,W
        MOVWF R3L
        MOVF 0x19,W
        MOVWF R3H
        MOVLW 0xE8
        MOVWF R1L
        MOVLW 0x03
        MOVWF R1H
        CALL M001
        MOVWF 0x18
        MOVF R2H,W
        MOVWF 0x19
; 28: w = w / v
        MOVF 0x18,W
        MOVWF R0L
        MOVF 0x19,W
        MOVWF R0H
        MOVF 0x1A,W
        MOVWF R1L
        MOVF 0x1B,W
        MOVWF R1H
        CALL D001
        MOVWF 0x18
        MOVF R0H,W
        MOVWF 0x19
; 29: w = 60000 / v
        MOVLW 0x60
        MOVWF R0L
        MOVLW 0xEA
        MOVWF R0H
        MOVF 0x1A,W
        MOVWF R1L
        MOVF 0x1B,W
        MOVWF R1H
        CALL D001
        MOVWF 0x18
        MOVF R0H,W
        MOVWF 0x19
; 30: w = w Mod v
        MOVF 0x18,W
        MOVWF R0L
        MOVF 0x19,W
        MOVWF R0H
        MOVF 0x1A,W
        MOVWF R1L
        MOVF 0x1B,W
        MOVWF R1H
        CALL D001
        MOVF R2L,W
        MOVWF 0x18
        MOVF R2H,W
        MOVWF 0x19
; 31: w = w Mod 1000
        MOVF 0x18,W
        MOVWF R0L
        MOVF 0x19,W
        MOVWF R0H
        MOVLW 0xE8
        MOVWF R1L
        MOVLW 0x03
        MOVWF R1H
        CALL D001
        MOVF R2L,W
        MOVWF 0x18
        MOVF R2H,W
        MOVWF 0x19
; End
L0001:  GOTO L0001
; Multiplication Routine
; Division Routine
; End of listing
        END
