; Pulse width
;
; Dims a lamp on RB0: in each round of 1,024 cycles the pin is high for four times DUTY cycles. DUTY
; is 64 at the start, a quarter of 256. Any value from 1 to 253 will do.
;
; Model:  PIC16F84
; Run:    corvane-cli test pulse_width.test
DUTY    EQU 0x0C                ; 1..253
LEFT    EQU 0x0D

        BSF STATUS,RP0          ; bank 1
        BCF TRISB,RB0
        BCF STATUS,RP0          ; bank 0
        MOVLW 64
        MOVWF DUTY
ROUND:  MOVF DUTY,W
        MOVWF LEFT
        BSF PORTB,RB0
ON:     NOP                     ; four cycles a turn, three the last one
        DECFSZ LEFT,F
        GOTO ON
        BCF PORTB,RB0           ; it was high for 4 x DUTY cycles
        MOVF DUTY,W
        SUBLW 254               ; the other instructions of a round last two turns
        MOVWF LEFT
OFF:    NOP
        DECFSZ LEFT,F
        GOTO OFF
        NOP
        GOTO ROUND
        END
