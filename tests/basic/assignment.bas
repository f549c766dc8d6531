' PIC16F84 4
dim f as bit
dim g as bit
dim a as byte
dim b as byte
dim w as word
dim v as word
f=g
f=portb.7
porta.0=f
f=true
f=False
f=0x1
a=b
a=w
a=w.hb
a=0
a=%11111111
a.7=a.0
w=a
w=v
w=0
w=7
w=255
w=256
w=0xffff
w.lb=w.hb
w.hb=0
w=portb
trisb=0
trisb=a
option_reg.7=0
option_reg.7=trisa.1
