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
; 2: Dim a As Byte
;       The address of 'a' is 0x2A
; 3: Dim d As Byte
;       The address of 'd' is 0x2B
; 4: Read a, d
        MOVF 0x2A,W
        BSF STATUS,RP1
        MOVWF EEADR
        BSF STATUS,RP0
        BSF EECON1,RD
        BCF STATUS,RP0
        MOVF EEDATA,W
        BCF STATUS,RP1
        MOVWF 0x2B
; 5: Read 0x3f, PORTB
        MOVLW 0x3F
        BSF STATUS,RP1
        MOVWF EEADR
        BSF STATUS,RP0
        BSF EECON1,RD
        BCF STATUS,RP0
        MOVF EEDATA,W
        BCF STATUS,RP1
        MOVWF 0x06
; 6: Write a, d
        MOVF 0x2A,W
        BSF STATUS,RP1
        MOVWF EEADR
        BCF STATUS,RP1
        MOVF 0x2B,W
        BSF STATUS,RP1
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
        BCF STATUS,RP1
        BCF STATUS,RP0
; 7: Write 5, 255
        MOVLW 0x05
        BSF STATUS,RP1
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
        BCF STATUS,RP1
        BCF STATUS,RP0
; End
L0003:  GOTO L0003
; End of listing
        END
