'Blinking LED on RB0 of a PIC16F84 at 4 MHz: half a second on, half a second off
'Model: PIC16F84

TRISB.0 = 0 'RB0 is an output

again:
PORTB.0 = 1
WaitMs 500
PORTB.0 = 0
WaitMs 500
Goto again
