; Deep calls
;
; The hardware stack holds eight return addresses. A subroutine that calls itself uses all eight
; and finds its way back: CALLS and RETURNS are both 8 at the end. With DEPTH 9 the ninth call would
; overwrite the oldest return address, without a warning, and the program would never reach SLEEP.
;
; Model:  PIC16F84
; Run:    corvane-cli run deep_calls.asm --trace -

DEPTH   EQU 8
LEFT    EQU 0x0C
CALLS   EQU 0x0D
RETURNS EQU 0x0E

        MOVLW DEPTH
        MOVWF LEFT
        CLRF CALLS
        CLRF RETURNS
        CALL DOWN
        SLEEP

DOWN:   INCF CALLS,F
        DECFSZ LEFT,F           ; the last one does not call
        CALL DOWN
        INCF RETURNS,F
        RETURN
        END
