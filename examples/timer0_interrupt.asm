; Timer0 with interrupts
;
; Timer0 counts instruction cycles through the 1:4 prescaler. Each overflow interrupts the main
; program, which does nothing; the interrupt routine counts the overflows and shows the count on
; PORTB. TMR0 is set to 256 - 3 each time, so that it overflows 3 x 4 = 12 cycles later.
;
; Model:  PIC16F84
; Run:    corvane-cli run timer0_interrupt.asm --steps 100 --trace -

TICKS   EQU 0x0C                ; overflows since the start
SAVEDW  EQU 0x0D                ; W and STATUS of the interrupted program
SAVEDST EQU 0x0E
PRELOAD EQU 0xFD                ; 256 - 3

        ORG 0x000               ; after a reset the program begins here
        GOTO MAIN

; Every interrupt leads to address 4. The hardware has saved nothing but the return address, so the
; routine saves W and STATUS itself. SWAPF moves a register without changing a flag.
        ORG 0x004
        MOVWF SAVEDW
        SWAPF STATUS,W
        MOVWF SAVEDST
        BCF INTCON,T0IF         ; the flag stays set until the program clears it
        MOVLW PRELOAD
        MOVWF TMR0              ; also clears the prescaler
        INCF TICKS,F
        MOVF TICKS,W
        MOVWF PORTB
        SWAPF SAVEDST,W         ; swapped twice: as it was
        MOVWF STATUS
        SWAPF SAVEDW,F
        SWAPF SAVEDW,W
        RETFIE                  ; returns and allows interrupts again

MAIN:   CLRF TICKS
        CLRF PORTB
        BSF STATUS,RP0          ; bank 1
        CLRF TRISB              ; all pins of PORTB are outputs
        MOVLW %00000001         ; Timer0 on the instruction clock, prescaler 1:4
        MOVWF OPTION_REG
        BCF STATUS,RP0          ; bank 0
        MOVLW PRELOAD
        MOVWF TMR0
        MOVLW %10100000         ; GIE and T0IE
        MOVWF INTCON
WAIT:   GOTO WAIT
        END
