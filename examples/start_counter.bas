'Counts in the data EEPROM how often the chip has been started
'PORTB shows the number
'Model: PIC16F84

Dim starts As Byte

TRISB = 0
Read 0, starts
starts = starts + 1
Write 0, starts
PORTB = starts
