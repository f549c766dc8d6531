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
; 4: Dim w As Word
;       The address of 'w' is 0x2B
; 5: late: Dim v As Byte
L0001:  NOP
;       The address of 'v' is 0xA1
; 6: TRISB.0 = f
        BTFSC 0x2A,0
        BSF STATUS,RP0
        BSF 0x06,0
        BCF STATUS,RP0
        BTFSS 0x2A,0
        BSF STATUS,RP0
        BCF 0x06,0
        BCF STATUS,RP0
; 7: f = TRISB.0 And TRISB.1
        CLRW
        BSF STATUS,RP0
        BTFSS 0x06,0
        ADDLW 0x01
        BTFSS 0x06,1
        ADDLW 0x01
        BTFSC STATUS,Z
        BCF STATUS,RP0
        BSF 0x2A,0
        BTFSS STATUS,Z
        BCF 0x2A,0
; 8: TRISB.0 = TRISB.1
        BSF STATUS,RP0
        BTFSC 0x06,1
        BSF 0x06,0
        BTFSS 0x06,1
        BCF 0x06,0
        BCF STATUS,RP0
; 9: f = Not EEDATA.0
        CLRW
        BSF STATUS,RP1
        BTFSS 0x0C,0
        ADDLW 0x01
        BTFSC STATUS,Z
        BCF STATUS,RP1
        BCF 0x2A,0
        BTFSS STATUS,Z
        BSF 0x2A,0
; 10: w = 7
        MOVLW 0x07
        MOVWF 0x2B
        CLRF 0x2C
; End
L0002:  GOTO L0002
; End of listing
        END
