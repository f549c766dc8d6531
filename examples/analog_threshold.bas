'RB0 shows a high voltage on RA0: it goes on from 600 of 1023, off below 500
'The gap between the two keeps a noisy voltage from switching at every measurement
'RB1 counts the measurements in its own way: it changes with each of them
'Model: PIC16F877
'Stimulus: analog_threshold.stim

Dim level As Word

TRISB = 0
PORTB = 0
ADCON1 = %10001110 'result at the right, RA0 analog, the others digital
ADCON0 = %01000001 'clock divided by 8, channel 0, converter on

again:
ADCON0.2 = 1 'start
While ADCON0.2 'until the converter is done
Wend
level.LB = ADRESL
level.HB = ADRESH
If level >= 600 Then
PORTB.0 = 1
Endif
If level < 500 Then
PORTB.0 = 0
Endif
PORTB.1 = Not PORTB.1
Goto again
