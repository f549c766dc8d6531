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
; 2: Dim x As Bit
;       The address of 'x' is 0x16,0
; 3: Dim a As Bit
;       The address of 'a' is 0x16,1
; 4: Dim b As Bit
;       The address of 'b' is 0x16,2
; 5: x = Not a
        CLRW
        BTFSS 0x16,1
        ADDLW 0x01
        BTFSC STATUS,Z
        BCF 0x16,0
        BTFSS STATUS,Z
        BSF 0x16,0
; 6: PORTB.0 = Not PORTA.4
        CLRW
        BTFSS 0x05,4
        ADDLW 0x01
        BTFSC STATUS,Z
        BCF 0x06,0
        BTFSS STATUS,Z
        BSF 0x06,0
; 7: x = a And b
        CLRW
        BTFSS 0x16,1
        ADDLW 0x01
        BTFSS 0x16,2
        ADDLW 0x01
        BTFSC STATUS,Z
        BSF 0x16,0
        BTFSS STATUS,Z
        BCF 0x16,0
; 8: x = a Or b
        CLRW
        BTFSC 0x16,1
        ADDLW 0x01
        BTFSC 0x16,2
        IORLW 0x01
        BTFSC STATUS,Z
        BCF 0x16,0
        BTFSS STATUS,Z
        BSF 0x16,0
; 9: x = a Xor b
        CLRW
        BTFSC 0x16,1
        ADDLW 0x01
        BTFSC 0x16,2
        XORLW 0x01
        BTFSC STATUS,Z
        BCF 0x16,0
        BTFSS STATUS,Z
        BSF 0x16,0
; 10: x = a Nand b
        CLRW
        BTFSS 0x16,1
        ADDLW 0x01
        BTFSS 0x16,2
        ADDLW 0x01
        BTFSC STATUS,Z
        BCF 0x16,0
        BTFSS STATUS,Z
        BSF 0x16,0
; 11: x = a Nor b
        CLRW
        BTFSC 0x16,1
        ADDLW 0x01
        BTFSC 0x16,2
        IORLW 0x01
        BTFSC STATUS,Z
        BSF 0x16,0
        BTFSS STATUS,Z
        BCF 0x16,0
; 12: x = a Nxor b
        CLRW
        BTFSC 0x16,1
        ADDLW 0x01
        BTFSC 0x16,2
        XORLW 0x01
        BTFSC STATUS,Z
        BSF 0x16,0
        BTFSS STATUS,Z
        BCF 0x16,0
; 13: TRISB.7 = TRISB.0 And TRISB.1
        CLRW
        BSF STATUS,RP0
        BTFSS 0x06,0
        ADDLW 0x01
        BTFSS 0x06,1
        ADDLW 0x01
        BTFSC STATUS,Z
        BSF 0x06,7
        BTFSS STATUS,Z
        BCF 0x06,7
        BCF STATUS,RP0
; End
L0001:  GOTO L0001
; End of listing
        END
