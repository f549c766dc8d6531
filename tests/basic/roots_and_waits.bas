' PIC16F84 3.58
' All five routines are called.
dim a as byte
dim w as word
a=sqr(a)
a=sqr(w)
a=sqr(144)
w=sqr(w)
w = sqr( 65535 )
waitms 1000
waitms a
waitms w
waitms 0
w=w*w
w=w mod 7
while w>7
wend
