' PIC16F84 4
dim x as bit
dim a as bit
dim b as bit
x=not a
portb.0=not porta.4
x=a and b
x=a or b
x=a xor b
x=a nand b
x=a nor b
x=a nxor b
trisb.7=trisb.0 and trisb.1
