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
; 2: Dim i As Byte
;       The address of 'i' is 0x16
; 3: Dim a As Byte
;       The address of 'a' is 0x17
; 4: Dim s As Byte
;       The address of 's' is 0x18
; 5: Dim w As Word
;       The address of 'w' is 0x19
; 6: Dim v As Word
;       The address of 'v' is 0x1B
; 7: Dim t As Word
;       The address of 't' is 0x1D
; 8: For i = 1 To 10
        MOVLW 0x01
        MOVWF 0x16
L0001:  NOP
        MOVF 0x16,W
        SUBLW 0x0A
        BTFSS STATUS,C
        GOTO L0002
; 9: For a = i To s Step s
        MOVF 0x16,W
        MOVWF 0x17
L0003:  NOP
        MOVF 0x17,W
        SUBWF 0x18,W
        BTFSS STATUS,C
        GOTO L0004
; 10: Next a
        MOVF 0x18,W
        ADDWF 0x17,F
        BTFSS STATUS,C
        GOTO L0003
L0004:  NOP
; 11: Next i
        MOVLW 0x01
        ADDWF 0x16,F
        BTFSS STATUS,C
        GOTO L0001
L0002:  NOP
; 12: For i = 10 To 0 Step -1
        MOVLW 0x0A
        MOVWF 0x16
L0005:  NOP
        MOVLW 0x00
        SUBWF 0x16,W
        BTFSS STATUS,C
        GOTO L0006
; 13: Next i
        MOVLW 0x01
        SUBWF 0x16,F
        BTFSC STATUS,C
        GOTO L0005
L0006:  NOP
; 14: For i = a To s Step -s
        MOVF 0x17,W
        MOVWF 0x16
L0007:  NOP
        MOVF 0x18,W
        SUBWF 0x16,W
        BTFSS STATUS,C
        GOTO L0008
; 15: Next i
        MOVF 0x18,W
        SUBWF 0x16,F
        BTFSC STATUS,C
        GOTO L0007
L0008:  NOP
; 16: For w = 1 To 1000
        MOVLW 0x01
        MOVWF 0x19
        MOVLW 0x00
        MOVWF 0x1A
L0009:  NOP
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVLW 0x03
        MOVWF R1H
        MOVLW 0xE8
        CALL C006
        BTFSS STATUS,Z
        GOTO L0010
; 17: For v = w To t Step 300
        MOVF 0x19,W
        MOVWF 0x1B
        MOVF 0x1A,W
        MOVWF 0x1C
L0011:  NOP
        MOVF 0x1B,W
        MOVWF R0L
        MOVF 0x1C,W
        MOVWF R0H
        MOVF 0x1E,W
        MOVWF R1H
        MOVF 0x1D,W
        CALL C006
        BTFSS STATUS,Z
        GOTO L0012
; 18: Next v
        MOVLW 0x2C
        ADDWF 0x1B,F
        MOVLW 0x01
        BTFSC STATUS,C
        ADDLW 0x01
        BTFSC STATUS,C
        GOTO L0012
        ADDWF 0x1C,F
        BTFSS STATUS,C
        GOTO L0011
L0012:  NOP
; 19: Next w
        MOVLW 0x01
        ADDWF 0x19,F
        MOVLW 0x00
        BTFSC STATUS,C
        ADDLW 0x01
        BTFSC STATUS,C
        GOTO L0010
        ADDWF 0x1A,F
        BTFSS STATUS,C
        GOTO L0009
L0010:  NOP
; 20: For w = 1000 To 1 Step -1
        MOVLW 0xE8
        MOVWF 0x19
        MOVLW 0x03
        MOVWF 0x1A
L0013:  NOP
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVLW 0x00
        MOVWF R1H
        MOVLW 0x01
        CALL C005
        BTFSS STATUS,Z
        GOTO L0014
; 21: Next w
        MOVLW 0x01
        SUBWF 0x19,F
        MOVLW 0x00
        BTFSC STATUS,C
        GOTO L0015
        ADDLW 0x01
        BTFSC STATUS,C
        GOTO L0014
L0015:  SUBWF 0x1A,F
        BTFSC STATUS,C
        GOTO L0013
L0014:  NOP
; 22: For w = v To t Step -t
        MOVF 0x1B,W
        MOVWF 0x19
        MOVF 0x1C,W
        MOVWF 0x1A
L0016:  NOP
        MOVF 0x19,W
        MOVWF R0L
        MOVF 0x1A,W
        MOVWF R0H
        MOVF 0x1E,W
        MOVWF R1H
        MOVF 0x1D,W
        CALL C005
        BTFSS STATUS,Z
        GOTO L0017
; 23: Next w
        MOVF 0x1D,W
        SUBWF 0x19,F
        MOVF 0x1E,W
        BTFSC STATUS,C
        GOTO L0018
        ADDLW 0x01
        BTFSC STATUS,C
        GOTO L0017
L0018:  SUBWF 0x1A,F
        BTFSC STATUS,C
        GOTO L0016
L0017:  NOP
; End
L0019:  GOTO L0019
; Comparison Routine
; End of listing
        END
