; Serial greeting
;
; Sends "Hello" and a line end at 9600 bits per second on RB7, once after each press of the button
; on RA0, and once after the start. The chip has no serial port: the program makes the bits itself,
; each 104 instruction cycles long (104.17 would be exact).
;
; Model:  PIC16F84
; Run:    corvane-cli test serial_greeting.test
BYTE    EQU 0x0C                ; what is left of the byte to be sent
BITS    EQU 0x0D
WAITS   EQU 0x0E
INDEX   EQU 0x0F                ; of the next character

        BSF PORTB,RB7           ; an idle line is high
        BSF STATUS,RP0          ; bank 1
        BCF TRISB,RB7
        BCF STATUS,RP0          ; bank 0
GREET:  CLRF INDEX
NEXT:   MOVF INDEX,W
        CALL TEXT
        IORLW 0                 ; the text ends with 0
        BTFSC STATUS,Z
        GOTO RELEASE
        CALL SEND
        INCF INDEX,F
        GOTO NEXT
RELEASE: BTFSC PORTA,RA0
        GOTO RELEASE
PRESS:  BTFSS PORTA,RA0
        GOTO PRESS
        GOTO GREET

; Sends W: a start bit, eight data bits from bit 0 on, a stop bit.
SEND:   MOVWF BYTE
        MOVLW 8
        MOVWF BITS
        BCF PORTB,RB7           ; the start bit
        CALL DELAY
BIT:    RRF BYTE,F              ; the next bit is in C
        BTFSS STATUS,C
        BCF PORTB,RB7
        BTFSC STATUS,C
        BSF PORTB,RB7
        CALL DELAY
        DECFSZ BITS,F
        GOTO BIT
        NOP
        NOP
        NOP
        BSF PORTB,RB7           ; the stop bit
        CALL DELAY
        RETURN

; 96 cycles with the CALL: with the other eight of a bit it lasts 104.
DELAY:  MOVLW 30
        MOVWF WAITS
WAIT:   DECFSZ WAITS,F
        GOTO WAIT
        NOP
        RETURN

; Character W of the text
TEXT:   ADDWF PCL,F
        RETLW 0x48              ; H
        RETLW 0x65              ; e
        RETLW 0x6C              ; l
        RETLW 0x6C              ; l
        RETLW 0x6F              ; o
        RETLW 0x0D              ; carriage return
        RETLW 0x0A              ; line feed
        RETLW 0
        END
