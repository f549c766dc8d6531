'Counts how often the button on RA0 is pressed, with the number shown on PORTB
'Model: PIC16F84
'Stimulus: button_counter.stim

Dim count As Byte

TRISB = 0 'all outputs
count = 0
PORTB = count

again:
While Not PORTA.0 'until the button is pressed
Wend
WaitMs 20 'its contacts bounce
If PORTA.0 Then 'a shorter pulse is only noise
count = count + 1
PORTB = count
Endif
While PORTA.0 'until it is released
Wend
WaitMs 20
Goto again
