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
; 2: Dim f As Bit
;       The address of 'f' is 0x16,0
; 3: Dim g As Bit
;       The address of 'g' is 0x16,1
; 4: Dim a As Byte
;       The address of 'a' is 0x17
; 5: Dim b As Byte
;       The address of 'b' is 0x18
; 6: Dim w As Word
;       The address of 'w' is 0x19
; 7: Dim v As Word
;       The address of 'v' is 0x1B
; 8: f = g
        BTFSC 0x16,1
        BSF 0x16,0
        BTFSS 0x16,1
        BCF 0x16,0
; 9: f = PORTB.7
        BTFSC 0x06,7
        BSF 0x16,0
        BTFSS 0x06,7
        BCF 0x16,0
; 10: PORTA.0 = f
        BTFSC 0x16,0
        BSF 0x05,0
        BTFSS 0x16,0
        BCF 0x05,0
; 11: f = True
        BSF 0x16,0
; 12: f = False
        BCF 0x16,0
; 13: f = 0x1
        BSF 0x16,0
; 14: a = b
        MOVF 0x18,W
        MOVWF 0x17
; 15: a = w
        MOVF 0x19,W
        MOVWF 0x17
; 16: a = w.HB
        MOVF 0x1A,W
        MOVWF 0x17
; 17: a = 0
        CLRF 0x17
; 18: a = %11111111
        MOVLW 0xFF
        MOVWF 0x17
; 19: a.7 = a.0
        BTFSC 0x17,0
        BSF 0x17,7
        BTFSS 0x17,0
        BCF 0x17,7
; 20: w = a
        MOVF 0x17,W
        MOVWF 0x19
        CLRF 0x1A
; 21: w = v
        MOVF 0x1B,W
        MOVWF 0x19
        MOVF 0x1C,W
        MOVWF 0x1A
; 22: w = 0
        CLRF 0x19
        CLRF 0x1A
; 23: w = 7
        MOVLW 0x07
        MOVWF 0x19
        CLRF 0x1A
; 24: w = 255
        MOVLW 0xFF
        MOVWF 0x19
        CLRF 0x1A
; 25: w = 256
        MOVLW 0x00
        MOVWF 0x19
        MOVLW 0x01
        MOVWF 0x1A
; 26: w = 0xffff
        MOVLW 0xFF
        MOVWF 0x19
        MOVLW 0xFF
        MOVWF 0x1A
; 27: w.LB = w.HB
        MOVF 0x1A,W
        MOVWF 0x19
; 28: w.HB = 0
        CLRF 0x1A
; 29: w = PORTB
        MOVF 0x06,W
        MOVWF 0x19
        CLRF 0x1A
; 30: TRISB = 0
        BSF STATUS,RP0
        CLRF 0x06
        BCF STATUS,RP0
; 31: TRISB = a
        MOVF 0x17,W
        BSF STATUS,RP0
        MOVWF 0x06
        BCF STATUS,RP0
; 32: OPTION_REG.7 = 0
        BSF STATUS,RP0
        BCF 0x01,7
        BCF STATUS,RP0
; 33: OPTION_REG.7 = TRISA.1
        BSF STATUS,RP0
        BTFSC 0x05,1
        BSF 0x01,7
        BTFSS 0x05,1
        BCF 0x01,7
        BCF STATUS,RP0
; End
L0001:  GOTO L0001
; End of listing
        END
