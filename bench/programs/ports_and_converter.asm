; Port and A/D traffic (PIC16F877): converts AN0 again and again, shows the result on ports B and D,
; copies port C to port E, and toggles a clock pin meanwhile.
RESULT  EQU 0x20
        BSF STATUS,RP0
        CLRF TRISB
        CLRF TRISD
        CLRF TRISE
        MOVLW 0x8E
        MOVWF ADCON1
        BCF STATUS,RP0
        MOVLW 0x41
        MOVWF ADCON0
AGAIN:  BSF ADCON0,GO
WAIT:   BSF PORTD,7
        BCF PORTD,7
        BTFSC ADCON0,GO
        GOTO WAIT
        MOVF ADRESH,W
        MOVWF PORTB
        BSF STATUS,RP0
        MOVF ADRESL,W
        BCF STATUS,RP0
        MOVWF RESULT
        SWAPF RESULT,W
        ANDLW 0x0F
        MOVWF PORTD
        MOVF PORTC,W
        MOVWF PORTE
        MOVF PORTB,W
        SUBWF RESULT,W
        BTFSC STATUS,C
        INCF RESULT,F
        GOTO AGAIN
