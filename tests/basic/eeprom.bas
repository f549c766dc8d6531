' PIC16F84 4
dim a as byte
dim d as byte
read a,d
read 0x3f , portb
write a,d
write 5,255
