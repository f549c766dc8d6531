; Analog to digital conversion
;
; Converts the voltage on RA0/AN0 twice and keeps both 10-bit results, right justified, in
; FIRSTH:FIRSTL and SECONDH:SECONDL. The stimulus file sets the input to 700 of 1023 at the start
; and to 300 while the first conversion is under way: the converter has sampled its input at the
; beginning, so the first result is still 700.
;
; Model:  PIC16F877
; Run:    corvane-cli run analog_digital.asm -m PIC16F877 -s analog_digital.stim --state -

FIRSTH  EQU 0x20                ; 700 = 02BCh
FIRSTL  EQU 0x21
SECONDH EQU 0x22                ; 300 = 012Ch
SECONDL EQU 0x23

        BSF STATUS,RP0          ; bank 1
        MOVLW %10001110         ; right justified; RA0 is analog, every other pin digital
        MOVWF ADCON1
        CLRF TRISB              ; PORTB shows the low byte; TRISA is all inputs after a reset
        BCF STATUS,RP0          ; bank 0
        MOVLW %01000001         ; clock Fosc/8, channel AN0, converter on
        MOVWF ADCON0

        CALL CONVERT
        MOVF ADRESH,W
        MOVWF FIRSTH
        BSF STATUS,RP0          ; ADRESL is in bank 1
        MOVF ADRESL,W
        BCF STATUS,RP0
        MOVWF FIRSTL
        MOVWF PORTB

        CALL CONVERT
        MOVF ADRESH,W
        MOVWF SECONDH
        BSF STATUS,RP0
        MOVF ADRESL,W
        BCF STATUS,RP0
        MOVWF SECONDL
        MOVWF PORTB
        SLEEP

; Converts once and returns when the result is there. On the real chip about 20 microseconds must
; pass between the choice of a channel and this call, while the sampling capacitor charges.
CONVERT: BSF ADCON0,GO          ; start
BUSY:   BTFSC ADCON0,GO         ; cleared when the conversion is done
        GOTO BUSY
        RETURN
        END
