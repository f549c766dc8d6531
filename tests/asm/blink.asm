; Blinks the LEDs on PORTB with a software delay.
COUNT   EQU 0x20
    Delay equ %11111111 ; a constant may be indented

        ORG 0x0000
        goto START          ; defined further down
        ORG 0x0004
        retfie
START:  bsf STATUS,RP0
        clrf TRISB          ; the bank is not part of the word
        bcf STATUS , RP0
        movlw 0x55
        movwf PORTB
LOOP    comf PORTB,F
        call wait
        goto Loop
WAIT
        movlw DELAY
        movwf COUNT
AGAIN:  decfsz COUNT,F
        goto AGAIN
        return
        END
