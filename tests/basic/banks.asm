; Begin
        R0L EQU 0x20
        R0H EQU 0x21
        R1L EQU 0x22
        R1H EQU 0x23
        R2L EQU 0x24
        R2H EQU 0x25
        R3L EQU 0x26
        R3H EQU 0x27
        R4L EQU 0x28
        R4H EQU 0x29
; 1: 
; 2: 
; 3: Dim f As Bit
;       The address of 'f' is 0x2A,0
; 4: Dim a0 As Byte
;       The address of 'a0' is 0x2B
; 5: Dim b1 As Byte
;       The address of 'b1' is 0xA0
; 6: Dim w1 As Word
;       The address of 'w1' is 0xA1
; 7: Dim v1 As Word
;       The address of 'v1' is 0xA3
; 8: Dim b2 As Byte
;       The address of 'b2' is 0x120
; 9: Dim w2 As Word
;       The address of 'w2' is 0x121
; 10: Dim v2 As Word
;       The address of 'v2' is 0x123
; 11: Dim b3 As Byte
;       The address of 'b3' is 0x1A0
; 12: Dim w3 As Word
;       The address of 'w3' is 0x1A1
; 13: Dim v3 As Word
;       The address of 'v3' is 0x1A3
; 14: b3 = b1
        BSF STATUS,RP0
        MOVF 0x20,W
        BSF STATUS,RP1
        MOVWF 0x20
        BCF STATUS,RP1
        BCF STATUS,RP0
; 15: w2 = w3
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x21,W
        BCF STATUS,RP0
        MOVWF 0x21
        BSF STATUS,RP0
        MOVF 0x22,W
        BCF STATUS,RP0
        MOVWF 0x22
        BCF STATUS,RP1
; 16: w3 = 0x1234
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVLW 0x34
        MOVWF 0x21
        MOVLW 0x12
        MOVWF 0x22
        BCF STATUS,RP1
        BCF STATUS,RP0
; 17: b1 = b2 + b3
        BSF STATUS,RP1
        MOVF 0x20,W
        BSF STATUS,RP0
        ADDWF 0x20,W
        BCF STATUS,RP1
        MOVWF 0x20
        BCF STATUS,RP0
; 18: w1 = w2 - v3
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x23,W
        BCF STATUS,RP0
        SUBWF 0x21,W
        BCF STATUS,RP1
        BSF STATUS,RP0
        MOVWF 0x21
        BSF STATUS,RP1
        MOVF 0x24,W
        BTFSS STATUS,C
        ADDLW 0x01
        BCF STATUS,RP0
        SUBWF 0x22,W
        BCF STATUS,RP1
        BSF STATUS,RP0
        MOVWF 0x22
        BCF STATUS,RP0
; 19: w2 = w1 * w3
        BSF STATUS,RP0
        MOVF 0x21,W
        BCF STATUS,RP0
        MOVWF R3L
        BSF STATUS,RP0
        MOVF 0x22,W
        BCF STATUS,RP0
        MOVWF R3H
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x21,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        MOVWF R1L
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x22,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        MOVWF R1H
        CALL M001
        BSF STATUS,RP1
        MOVWF 0x21
        BCF STATUS,RP1
        MOVF R2H,W
        BSF STATUS,RP1
        MOVWF 0x22
        BCF STATUS,RP1
; 20: b1.0 = b1.7
        BSF STATUS,RP0
        BTFSC 0x20,7
        BSF 0x20,0
        BTFSS 0x20,7
        BCF 0x20,0
        BCF STATUS,RP0
; 21: EEDATA.1 = TRISB.0 Xor EEDATA.3
        CLRW
        BSF STATUS,RP0
        BTFSC 0x06,0
        ADDLW 0x01
        BSF STATUS,RP1
        BCF STATUS,RP0
        BTFSC 0x0C,3
        XORLW 0x01
        BTFSC STATUS,Z
        BCF 0x0C,1
        BTFSS STATUS,Z
        BSF 0x0C,1
        BCF STATUS,RP1
; 22: While TRISB.0
L0001:  NOP
        BSF STATUS,RP0
        BTFSS 0x06,0
        GOTO L0002
        BCF STATUS,RP0
; 23: If Not EEDATA.7 Then
        BSF STATUS,RP1
        BTFSC 0x0C,7
        GOTO L0003
        BCF STATUS,RP1
; 24: a0 = 1
        MOVLW 0x01
        MOVWF 0x2B
; 25: Else
        GOTO L0004
L0003:  NOP
        BCF STATUS,RP1
; 26: a0 = 2
        MOVLW 0x02
        MOVWF 0x2B
; 27: Endif
L0004:  NOP
; 28: If EECON1.0 Then
        BSF STATUS,RP0
        BSF STATUS,RP1
        BTFSS 0x0C,0
        GOTO L0005
        BCF STATUS,RP1
        BCF STATUS,RP0
; 29: Endif
L0005:  NOP
        BCF STATUS,RP1
        BCF STATUS,RP0
; 30: Wend
        GOTO L0001
L0002:  NOP
        BCF STATUS,RP0
; 31: If TRISB.0 = EEDATA.1 Then
        CLRW
        BSF STATUS,RP0
        BTFSC 0x06,0
        ADDLW 0x01
        BSF STATUS,RP1
        BCF STATUS,RP0
        BTFSC 0x0C,1
        SUBLW 0x01
        BCF STATUS,RP1
        BTFSS STATUS,Z
        GOTO L0006
; 32: Endif
L0006:  NOP
; 33: If b1 < b2 Then
        BSF STATUS,RP1
        MOVF 0x20,W
        BCF STATUS,RP1
        BSF STATUS,RP0
        SUBWF 0x20,W
        BCF STATUS,RP0
        BTFSC STATUS,C
        GOTO L0007
; 34: Endif
L0007:  NOP
; 35: If a0 >= b3 Then
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x20,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        SUBWF 0x2B,W
        BTFSS STATUS,C
        GOTO L0008
; 36: Endif
L0008:  NOP
; 37: While w1 > w3
L0009:  NOP
        BSF STATUS,RP0
        MOVF 0x21,W
        BCF STATUS,RP0
        MOVWF R0L
        BSF STATUS,RP0
        MOVF 0x22,W
        BCF STATUS,RP0
        MOVWF R0H
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x22,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        MOVWF R1H
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x21,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        CALL C003
        BTFSS STATUS,Z
        GOTO L0010
; 38: Wend
        GOTO L0009
L0010:  NOP
; 39: For b1 = a0 To b2 Step b3
        MOVF 0x2B,W
        BSF STATUS,RP0
        MOVWF 0x20
L0011:  NOP
        MOVF 0x20,W
        BSF STATUS,RP1
        BCF STATUS,RP0
        SUBWF 0x20,W
        BCF STATUS,RP1
        BSF STATUS,RP0
        BTFSS STATUS,C
        GOTO L0012
        BCF STATUS,RP0
; 40: Next b1
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x20,W
        BCF STATUS,RP1
        ADDWF 0x20,F
        BTFSS STATUS,C
        GOTO L0011
L0012:  NOP
        BCF STATUS,RP0
; 41: For b2 = b3 To 1 Step -a0
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x20,W
        BCF STATUS,RP0
        MOVWF 0x20
L0013:  NOP
        MOVLW 0x01
        SUBWF 0x20,W
        BTFSS STATUS,C
        GOTO L0014
        BCF STATUS,RP1
; 42: Next b2
        MOVF 0x2B,W
        BSF STATUS,RP1
        SUBWF 0x20,F
        BTFSC STATUS,C
        GOTO L0013
L0014:  NOP
        BCF STATUS,RP1
; 43: For a0 = 1 To b1
        MOVLW 0x01
        MOVWF 0x2B
L0015:  NOP
        MOVF 0x2B,W
        BSF STATUS,RP0
        SUBWF 0x20,W
        BCF STATUS,RP0
        BTFSS STATUS,C
        GOTO L0016
; 44: Next a0
        MOVLW 0x01
        ADDWF 0x2B,F
        BTFSS STATUS,C
        GOTO L0015
L0016:  NOP
; 45: For w1 = w2 To v3 Step v2
        BSF STATUS,RP1
        MOVF 0x21,W
        BCF STATUS,RP1
        BSF STATUS,RP0
        MOVWF 0x21
        BSF STATUS,RP1
        BCF STATUS,RP0
        MOVF 0x22,W
        BCF STATUS,RP1
        BSF STATUS,RP0
        MOVWF 0x22
L0017:  NOP
        MOVF 0x21,W
        BCF STATUS,RP0
        MOVWF R0L
        BSF STATUS,RP0
        MOVF 0x22,W
        BCF STATUS,RP0
        MOVWF R0H
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x24,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        MOVWF R1H
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x23,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        CALL C006
        BTFSS STATUS,Z
        GOTO L0018
; 46: Next w1
        BSF STATUS,RP1
        MOVF 0x23,W
        BCF STATUS,RP1
        BSF STATUS,RP0
        ADDWF 0x21,F
        BSF STATUS,RP1
        BCF STATUS,RP0
        MOVF 0x24,W
        BTFSC STATUS,C
        ADDLW 0x01
        BCF STATUS,RP1
        BSF STATUS,RP0
        BTFSC STATUS,C
        GOTO L0018
        ADDWF 0x22,F
        BTFSS STATUS,C
        GOTO L0017
L0018:  NOP
        BCF STATUS,RP0
; 47: For w3 = 5 To w2 Step -v1
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVLW 0x05
        MOVWF 0x21
        MOVLW 0x00
        MOVWF 0x22
L0019:  NOP
        MOVF 0x21,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        MOVWF R0L
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x22,W
        BCF STATUS,RP1
        BCF STATUS,RP0
        MOVWF R0H
        BSF STATUS,RP1
        MOVF 0x22,W
        BCF STATUS,RP1
        MOVWF R1H
        BSF STATUS,RP1
        MOVF 0x21,W
        BCF STATUS,RP1
        CALL C005
        BTFSS STATUS,Z
        GOTO L0020
; 48: Next w3
        BSF STATUS,RP0
        MOVF 0x23,W
        BSF STATUS,RP1
        SUBWF 0x21,F
        BCF STATUS,RP1
        MOVF 0x24,W
        BSF STATUS,RP1
        BTFSC STATUS,C
        GOTO L0021
        ADDLW 0x01
        BTFSC STATUS,C
        GOTO L0020
L0021:  SUBWF 0x22,F
        BTFSC STATUS,C
        GOTO L0019
L0020:  NOP
        BCF STATUS,RP1
        BCF STATUS,RP0
; 49: Read b1, b2
        BSF STATUS,RP0
        MOVF 0x20,W
        BSF STATUS,RP1
        BCF STATUS,RP0
        MOVWF EEADR
        BSF STATUS,RP0
        BSF EECON1,RD
        BCF STATUS,RP0
        MOVF EEDATA,W
        MOVWF 0x20
        BCF STATUS,RP1
; 50: Write b3, b1
        BSF STATUS,RP0
        BSF STATUS,RP1
        MOVF 0x20,W
        BCF STATUS,RP0
        MOVWF EEADR
        BCF STATUS,RP1
        BSF STATUS,RP0
        MOVF 0x20,W
        BSF STATUS,RP1
        BCF STATUS,RP0
        MOVWF EEDATA
        BSF STATUS,RP0
        BSF EECON1,WREN
        MOVLW 0x55
        MOVWF EECON2
        MOVLW 0xAA
        MOVWF EECON2
        BSF EECON1,WR
L0022:  BTFSC EECON1,WR
        GOTO L0022
        BCF EECON1,WREN
        BCF STATUS,RP1
        BCF STATUS,RP0
; End
L0023:  GOTO L0023
; Multiplication Routine
; Comparison Routine
; End of listing
        END
