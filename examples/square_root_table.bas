'A table of square roots in the data EEPROM: address n holds ten times the root of n
'Model: PIC16F84

Dim n As Byte
Dim hundredfold As Word
Dim root As Byte

For n = 0 To 63
hundredfold = n
hundredfold = hundredfold * 100
root = Sqr(hundredfold) 'ten times the root, since 100 is ten squared
Write n, root
Next n
