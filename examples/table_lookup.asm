; Table lookup by a computed jump
;
; ADDWF PCL,F jumps forward by W, into a row of RETLW instructions: a table in program memory. The
; program shows the digits 0 to 9 on a seven-segment display on PORTB and keeps the ten patterns
; from address 20h on.
;
; A write to PCL takes the upper address bits from PCLATH, so PCLATH must hold the upper part of
; the table's address, and no table may cross a 256-word boundary.
;
; Model:  PIC16F84
; Run:    corvane-cli run table_lookup.asm --trace -

DIGIT   EQU 0x0C
CODES   EQU 0x20                ; ten patterns

        CLRF DIGIT
        BSF STATUS,RP0
        CLRF TRISB
        BCF STATUS,RP0
        MOVLW CODES
        MOVWF FSR
NEXT:   MOVLW 2                 ; the table is in 200h to 2FFh
        MOVWF PCLATH
        MOVF DIGIT,W
        CALL SEGMENTS
        MOVWF PORTB
        MOVWF INDF
        INCF FSR,F
        INCF DIGIT,F
        MOVLW 10
        SUBWF DIGIT,W           ; DIGIT - 10: C is set when there is no borrow
        BTFSS STATUS,C
        GOTO NEXT
        SLEEP

; The segments of digit W, bit 0 for segment a to bit 6 for segment g
        ORG 0x200
SEGMENTS: ADDWF PCL,F
        RETLW %00111111         ; 0
        RETLW %00000110         ; 1
        RETLW %01011011         ; 2
        RETLW %01001111         ; 3
        RETLW %01100110         ; 4
        RETLW %01101101         ; 5
        RETLW %01111101         ; 6
        RETLW %00000111         ; 7
        RETLW %01111111         ; 8
        RETLW %01101111         ; 9
        END
