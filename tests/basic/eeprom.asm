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
; 3: Dim d As Byte
;       The address of 'd' is 0x17
; 4: Read a, d
        MOVF 0x16,W
        MOVWF EEADR
        BSF STATUS,RP0
        BSF EECON1,RD
        BCF STATUS,RP0
        MOVF EEDATA,W
        MOVWF 0x17
; 5: Read 0x3f, PORTB
        MOVLW 0x3F
        MOVWF EEADR
        BSF STATUS,RP0
        BSF EECON1,RD
        BCF STATUS,RP0
        MOVF EEDATA,W
        MOVWF 0x06
; 6: Write a, d
        MOVF 0x16,W
        MOVWF EEADR
        MOVF 0x17,W
        MOVWF EEDATA
        BSF STATUS,RP0
        BSF EECON1,WREN
        MOVLW 0x55
        MOVWF EECON2
        MOVLW 0xAA
        MOVWF EECON2
        BSF EECON1,WR
L0001:  BTFSC EECON1,WR
        GOTO L0001
        BCF EECON1,WREN
        BCF STATUS,RP0
; 7: Write 5, 255
        MOVLW 0x05
        MOVWF EEADR
        MOVLW 0xFF
        MOVWF EEDATA
        BSF STATUS,RP0
        BSF EECON1,WREN
        MOVLW 0x55
        MOVWF EECON2
        MOVLW 0xAA
        MOVWF EECON2
        BSF EECON1,WR
L0002:  BTFSC EECON1,WR
        GOTO L0002
        BCF EECON1,WREN
        BCF STATUS,RP0
; End
L0003:  GOTO L0003
; End of listing
        END
