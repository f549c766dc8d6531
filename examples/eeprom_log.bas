'Logs the inputs on PORTA sixteen times, every 10 ms, in the data EEPROM
'Then shows the largest logged value on PORTB
'Model: PIC16F84
'Stimulus: eeprom_log.stim

Dim i As Byte
Dim value As Byte
Dim largest As Byte

TRISB = 0

For i = 0 To 15
value = PORTA
Write i, value
WaitMs 10
Next i

largest = 0
For i = 0 To 15
Read i, value
If value > largest Then
largest = value
Endif
Next i
PORTB = largest
