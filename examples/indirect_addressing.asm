; Indirect addressing
;
; FSR holds an address, and INDF is the register at that address. The program fills the 16 bytes
; from 20h on with 1 to 16, then walks back through them and adds them up: 136 = 88h.
;
; Model:  PIC16F84
; Run:    corvane-cli run indirect_addressing.asm --state -

LEFT    EQU 0x0C                ; bytes to go
VALUE   EQU 0x0D
SUM     EQU 0x0E
BUFFER  EQU 0x20
LENGTH  EQU 16

        MOVLW BUFFER
        MOVWF FSR
        MOVLW LENGTH
        MOVWF LEFT
        CLRF VALUE
FILL:   INCF VALUE,F
        MOVF VALUE,W
        MOVWF INDF
        INCF FSR,F              ; the next byte
        DECFSZ LEFT,F
        GOTO FILL

        MOVLW LENGTH
        MOVWF LEFT
        CLRF SUM
ADD:    DECF FSR,F              ; FSR stands behind the byte
        MOVF INDF,W
        ADDWF SUM,F
        DECFSZ LEFT,F
        GOTO ADD
        SLEEP
        END
