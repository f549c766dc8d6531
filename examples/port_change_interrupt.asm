; Port change interrupt
;
; A change on one of the pins RB4 to RB7 interrupts the main program. The interrupt routine reads
; PORTB, keeps the four levels in the low half of KEYS, shows them on PORTA and counts the changes.
; The stimulus file moves three pins.
;
; Model:  PIC16F84
; Run:    corvane-cli run port_change_interrupt.asm -s port_change_interrupt.stim -n 150 --trace -

CHANGES EQU 0x0C
KEYS    EQU 0x0D
SAVEDW  EQU 0x0E
SAVEDST EQU 0x0F

        GOTO MAIN

        ORG 0x004
        MOVWF SAVEDW
        SWAPF STATUS,W
        MOVWF SAVEDST
        SWAPF PORTB,W           ; reading the port ends the mismatch, so that
        BCF INTCON,RBIF         ; the flag can be cleared
        ANDLW 0x0F
        MOVWF KEYS
        MOVWF PORTA
        INCF CHANGES,F
        SWAPF SAVEDST,W
        MOVWF STATUS
        SWAPF SAVEDW,F
        SWAPF SAVEDW,W
        RETFIE

MAIN:   CLRF CHANGES
        CLRF PORTA
        BSF STATUS,RP0          ; bank 1
        CLRF TRISA              ; PORTA: outputs
        MOVLW 0xF0              ; RB4 to RB7: inputs
        MOVWF TRISB
        BCF STATUS,RP0          ; bank 0
        MOVF PORTB,W            ; from here on a change is a change against these levels
        MOVLW %10001000         ; GIE and RBIE
        MOVWF INTCON
WAIT:   GOTO WAIT
        END
