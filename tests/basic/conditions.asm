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
; 8: While f
L0001:  NOP
        BTFSS 0x16,0
        GOTO L0002
; 9: While Not f
L0003:  NOP
        BTFSC 0x16,0
        GOTO L0004
; 10: While f = g
L0005:  NOP
        CLRW
        BTFSC 0x16,0
        ADDLW 0x01
        BTFSC 0x16,1
        SUBLW 0x01
        BTFSS STATUS,Z
        GOTO L0006
; 11: While f <> g
L0007:  NOP
        CLRW
        BTFSC 0x16,0
        ADDLW 0x01
        BTFSC 0x16,1
        SUBLW 0x01
        BTFSC STATUS,Z
        GOTO L0008
; 12: Wend
        GOTO L0007
L0008:  NOP
; 13: Wend
        GOTO L0005
L0006:  NOP
; 14: Wend
        GOTO L0003
L0004:  NOP
; 15: Wend
        GOTO L0001
L0002:  NOP
; 16: If a = b Then
        MOVF 0x17,W
        SUBWF 0x18,W
        BTFSS STATUS,Z
        GOTO L0009
; 17: Else
        GOTO L0010
L0009:  NOP
; 18: If a <> 5 Then
        MOVF 0x17,W
        SUBLW 0x05
        BTFSC STATUS,Z
        GOTO L0011
; 19: Endif
L0011:  NOP
; 20: Endif
L0010:  NOP
; 21: If a > b Then
        MOVF 0x17,W
        SUBWF 0x18,W
        BTFSC STATUS,C
        GOTO L0012
; 22: If a > 5 Then
        MOVF 0x17,W
        SUBLW 0x05
        BTFSC STATUS,C
        GOTO L0013
; 23: If 5 > a Then
        MOVLW 0x05
        SUBWF 0x17,W
        BTFSC STATUS,C
        GOTO L0014
; 24: Endif
L0014:  NOP
; 25: Endif
L0013:  NOP
; 26: Endif
L0012:  NOP
; 27: If a < b Then
        MOVF 0x18,W
        SUBWF 0x17,W
        BTFSC STATUS,C
        GOTO L0015
; 28: If a < 5 Then
        MOVLW 0x05
        SUBWF 0x17,W
        BTFSC STATUS,C
        GOTO L0016
; 29: Endif
L0016:  NOP
; 30: Endif
L0015:  NOP
; 31: If a >= b Then
        MOVF 0x18,W
        SUBWF 0x17,W
        BTFSS STATUS,C
        GOTO L0017
; 32: If a >= 5 Then
        MOVLW 0x05
        SUBWF 0x17,W
        BTFSS STATUS,C
        GOTO L0018
; 33: Endif
L0018:  NOP
; 34: Endif
L0017:  NOP
; 35: If a <= b Then
        MOVF 0x17,W
        SUBWF 0x18,W
        BTFSS STATUS,C
        GOTO L0019
; 36: If 5 <= a Then
        MOVLW 0x05
        SUBWF 0x17,W
        BTFSS STATUS,C
        GOTO L0020
; 37: Endif
L0020:  NOP
; 38: Endif
L0019:  NOP
; 39: If w = v Then
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVF 0x1C,W
        MOVWF R1H
        MOVF 0x1B,W
        CALL C001
        BTFSS STATUS,Z
        GOTO L0021
; 40: While w <> 1000
L0022:  NOP
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVLW 0x03
        MOVWF R1H
        MOVLW 0xE8
        CALL C002
        BTFSS STATUS,Z
        GOTO L0023
; 41: While 1000 > w
L0024:  NOP
        MOVLW 0xE8
        MOVWF R0L
        MOVLW 0x03
        MOVWF R0H
        MOVF 0x1A,W
        MOVWF R1H
        MOVF 0x19,W
        CALL C003
        BTFSS STATUS,Z
        GOTO L0025
; 42: While w < v
L0026:  NOP
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVF 0x1C,W
        MOVWF R1H
        MOVF 0x1B,W
        CALL C004
        BTFSS STATUS,Z
        GOTO L0027
; 43: Wend
        GOTO L0026
L0027:  NOP
; 44: Wend
        GOTO L0024
L0025:  NOP
; 45: Wend
        GOTO L0022
L0023:  NOP
; 46: Else
        GOTO L0028
L0021:  NOP
; 47: If w >= v Then
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVF 0x1C,W
        MOVWF R1H
        MOVF 0x1B,W
        CALL C005
        BTFSS STATUS,Z
        GOTO L0029
; 48: If w <= 300 Then
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVLW 0x01
        MOVWF R1H
        MOVLW 0x2C
        CALL C006
        BTFSS STATUS,Z
        GOTO L0030
; 49: Endif
L0030:  NOP
; 50: Else
        GOTO L0031
L0029:  NOP
; 51: Endif
L0031:  NOP
; 52: Endif
L0028:  NOP
; End
L0032:  GOTO L0032
; Comparison Routine
; End of listing
        END
