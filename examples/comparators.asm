; Comparators and voltage reference
;
; Comparator 1 watches the voltage on RA0 against the internal reference of 2.50 V: RB0 is on while
; the input is below the reference. The program ends when the voltage has fallen below the
; reference and risen above it again. The stimulus file gives the voltages, in hundredths of a volt.
;
; Model:  PIC16F628
; Run:    corvane-cli run comparators.asm -m PIC16F628 -s comparators.stim --trace -

        MOVLW %00000010         ; CM = 010: both comparators against the reference; CIS = 0: RA0
        MOVWF CMCON
        BSF STATUS,RP0          ; bank 1
        MOVLW %10101100         ; reference on, low range, VR = 12: 12/24 of 5 V
        MOVWF VRCON
        CLRF TRISB
        BCF STATUS,RP0          ; bank 0

ABOVE:  BTFSS CMCON,C1OUT       ; 1 while RA0 is below the reference
        GOTO ABOVE
        BSF PORTB,RB0
BELOW:  BTFSC CMCON,C1OUT
        GOTO BELOW
        BCF PORTB,RB0
        SLEEP
        END
