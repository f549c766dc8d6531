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
M001:   MOVLW 0x10
        MOVWF R4L
        CLRF R0H
        CLRF R0L
M002:   RRF R3H,F
        RRF R3L,F
        BTFSS STATUS,C
        GOTO M003
        MOVF R1L,W
        ADDWF R0L,F
        MOVF R1H,W
        BTFSC STATUS,C
        INCFSZ R1H,W
        ADDWF R0H,F
M003:   RRF R0H,F
        RRF R0L,F
        RRF R2H,F
        RRF R2L,F
        DECFSZ R4L,F
        GOTO M002
        MOVF R2L,W
        RETURN
; Division Routine
D001:   MOVLW 0x10
        MOVWF R3L
        CLRF R2H
        CLRF R2L
D002:   RLF R0H,W
        RLF R2L,F
        RLF R2H,F
        MOVF R1L,W
        SUBWF R2L,F
        MOVF R1H,W
        BTFSS STATUS,C
        INCFSZ R1H,W
        SUBWF R2H,F
        BTFSC STATUS,C
        GOTO D003
        MOVF R1L,W
        ADDWF R2L,F
        MOVF R1H,W
        BTFSC STATUS,C
        INCFSZ R1H,W
        ADDWF R2H,F
        BCF STATUS,C
D003:   RLF R0L,F
        RLF R0H,F
        DECFSZ R3L,F
        GOTO D002
        MOVF R0L,W
        RETURN
; Comparison Routine
C001:   MOVWF R1L
        MOVLW 0x05
        GOTO C007
C002:   MOVWF R1L
        MOVLW 0x02
        GOTO C007
C003:   MOVWF R1L
        MOVLW 0x06
        GOTO C007
C004:   MOVWF R1L
        MOVLW 0x03
        GOTO C007
C005:   MOVWF R1L
        MOVLW 0x04
        GOTO C007
C006:   MOVWF R1L
        MOVLW 0x01
        GOTO C007
C007:   MOVWF R4L
        MOVF R1H,W
        SUBWF R0H,W
        BTFSS STATUS,Z
        GOTO C008
        MOVF R1L,W
        SUBWF R0L,W
C008:   MOVLW 0x04
        BTFSC STATUS,C
        MOVLW 0x01
        BTFSC STATUS,Z
        MOVLW 0x02
        ANDWF R4L,W
        BTFSS STATUS,Z
        MOVLW 0xFF
        RETURN
; Square Root Routine
S001:   MOVWF R0L
        CLRF R1L
        CLRF R1H
        CLRF R2L
        CLRF R2H
        MOVLW 0x08
        MOVWF R3L
S002:   BSF STATUS,C
        RLF R1L,F
        RLF R1H,F
        RLF R0L,F
        RLF R0H,F
        RLF R2L,F
        RLF R2H,F
        RLF R0L,F
        RLF R0H,F
        RLF R2L,F
        RLF R2H,F
        MOVF R1L,W
        SUBWF R2L,W
        MOVF R1H,W
        BTFSS STATUS,C
        INCFSZ R1H,W
        SUBWF R2H,W
        BTFSS STATUS,C
        GOTO S003
        MOVWF R2H
        MOVF R1L,W
        SUBWF R2L,F
        INCF R1L,F
        BTFSC STATUS,Z
        INCF R1H,F
        GOTO S004
S003:   MOVLW 0x01
        SUBWF R1L,F
        BTFSS STATUS,C
        SUBWF R1H,F
S004:   DECFSZ R3L,F
        GOTO S002
        RRF R1H,W
        RRF R1L,W
        RETURN
; Waitms Routine
W001:   MOVF R0L,F
        BTFSC STATUS,Z
        GOTO W002
        CALL W003
        DECF R0L,F
        NOP
        NOP
        NOP
        NOP
        NOP
        GOTO W001
W002:   MOVF R0H,F
        BTFSC STATUS,Z
        RETURN
        CALL W003
        DECF R0H,F
        DECF R0L,F
        GOTO W001
W003:   MOVLW 0x0C
        MOVWF R2H
W004:   DECFSZ R2H,F
        GOTO W004
        NOP
        NOP
        MOVF R1H,W
        MOVWF R1L
W005:   DECFSZ R1L,F
        GOTO W006
        CALL W007
        CALL W007
        NOP
        NOP
        RETURN
W006:   CALL W007
        GOTO W005
W007:   MOVLW 0x0D
        MOVWF R2L
W008:   DECFSZ R2L,F
        GOTO W008
        NOP
        RETURN
; End of listing
        END
