; A blinking output (PIC16F84): two nested counting loops wait for about a tenth of a second.
INNER   EQU 0x0C
OUTER   EQU 0x0D
        BSF STATUS,RP0
        BCF TRISB,0
        BCF STATUS,RP0
AGAIN:  MOVLW 0x01
        XORWF PORTB,F
        CALL DELAY
        GOTO AGAIN
DELAY:  MOVLW 0x82
        MOVWF OUTER
WAIT:   CLRF INNER
COUNT:  DECFSZ INNER,F
        GOTO COUNT
        DECFSZ OUTER,F
        GOTO WAIT
        RETURN
