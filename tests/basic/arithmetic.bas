' PIC16F84 4
dim a as byte
dim b as byte
dim w as word
dim v as word
a=a+b
a=a+5
a=200+b
a=3+4
a=a-b
a=a-5
a=200-b
a=a*b
a=a*10
a=a/b
a=100/b
a=a mod 10
a=w.lb+w.hb
trisb=portb+trisa
w=w+v
w=w+0x1234
w=300+v
w=w-v
w=w-0x1234
w=300-v
w=w*v
w=w*1000
w=w/v
w=60000/v
w=w mod v
w=w mod 1000
