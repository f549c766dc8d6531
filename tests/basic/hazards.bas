' PIC16F877 4 020-02B 0A0-0A2
' What the code cannot do is told, and the code is generated all the same.
dim f as bit
dim w as word
late: dim v as byte
trisb.0=f
f=trisb.0 and trisb.1
trisb.0=trisb.1
f=not eedata.0
w=7
