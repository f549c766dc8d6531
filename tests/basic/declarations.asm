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
;       The address of 'a' is 0x18
; 4: Dim f0 As Bit
;       The address of 'f0' is 0x16,0
; 5: Dim w As Word
;       The address of 'w' is 0x19
; 6: Dim f1 As Bit
;       The address of 'f1' is 0x16,1
; 7: Dim f2 As Bit
;       The address of 'f2' is 0x16,2
; 8: Dim f3 As Bit
;       The address of 'f3' is 0x16,3
; 9: Dim f4 As Bit
;       The address of 'f4' is 0x16,4
; 10: Dim f5 As Bit
;       The address of 'f5' is 0x16,5
; 11: Dim f6 As Bit
;       The address of 'f6' is 0x16,6
; 12: Dim f7 As Bit
;       The address of 'f7' is 0x16,7
; 13: Dim f8 As Bit
;       The address of 'f8' is 0x17,0
; 14: Dim _x9 As Byte
;       The address of '_x9' is 0x1B
; 15: 
; 16: f8 = 1
        BSF 0x17,0
; 17: a = _x9
        MOVF 0x1B,W
        MOVWF 0x18
; 18: start: 
L0001:  NOP
; 19: again: w = a
L0002:  NOP
        MOVF 0x18,W
        MOVWF 0x19
        CLRF 0x1A
; 20: 
; 21: Goto start
        GOTO L0001
; End
L0003:  GOTO L0003
; End of listing
        END
