; Indirect addressing (PIC16F877): fills a buffer, copies it upwards and sums it up, for ever.
VALUE   EQU 0x70
LEFT    EQU 0x71
SUM     EQU 0x72
AGAIN:  MOVLW 0x20
        MOVWF FSR
        MOVLW 0x28
        MOVWF LEFT
FILL:   INCF VALUE,F
        MOVF VALUE,W
        MOVWF INDF
        INCF FSR,F
        DECFSZ LEFT,F
        GOTO FILL
        MOVLW 0x28
        MOVWF LEFT
COPY:   MOVLW 0x1F
        ADDWF LEFT,W
        MOVWF FSR
        MOVF INDF,W
        BSF FSR,7
        MOVWF INDF
        DECFSZ LEFT,F
        GOTO COPY
        MOVLW 0x28
        MOVWF LEFT
        MOVLW 0xA0
        MOVWF FSR
        CLRF SUM
ADDUP:  MOVF INDF,W
        ADDWF SUM,F
        INCF FSR,F
        DECFSZ LEFT,F
        GOTO ADDUP
        GOTO AGAIN
