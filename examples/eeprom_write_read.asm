; Data EEPROM: write a byte, read it back
;
; A write takes milliseconds on the chip and starts only after the sequence 55h, AAh to EECON2, so
; that a program that has gone astray cannot destroy data. The program waits until the hardware
; clears WR, then reads the cell into RESULT.
;
; Model:  PIC16F84
; Run:    corvane-cli run eeprom_write_read.asm --state -
;         (with --eeprom-write-time 40 the wait is short enough to follow in a trace)

CELL    EQU 0x10                ; EEPROM address
VALUE   EQU 0x5A
RESULT  EQU 0x0C

        MOVLW CELL
        MOVWF EEADR
        MOVLW VALUE
        MOVWF EEDATA
        BSF STATUS,RP0          ; bank 1, where EECON1 and EECON2 are
        BSF EECON1,WREN         ; allow writes
        MOVLW 0x55              ; the unlock sequence: exactly these five instructions,
        MOVWF EECON2            ; with interrupts off (they are, after a reset)
        MOVLW 0xAA
        MOVWF EECON2
        BSF EECON1,WR           ; the write begins
WAIT:   BTFSC EECON1,WR         ; the hardware clears WR when the byte is written
        GOTO WAIT
        BCF EECON1,WREN         ; no more writes
        BCF EECON1,EEIF         ; the flag that would have interrupted

        BCF STATUS,RP0
        CLRF EEDATA             ; so that the value below can only come from the EEPROM
        BSF STATUS,RP0
        BSF EECON1,RD           ; EEADR still holds the address
        BCF STATUS,RP0
        MOVF EEDATA,W           ; the data is there in the next cycle
        MOVWF RESULT
        SLEEP
        END
