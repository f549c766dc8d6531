' PIC16F84 4
' Bits share bytes below all other variables, wherever they are declared.
dim a as byte
dim f0 as bit
DIM	w   As WORD		'tabs, blanks and case do not matter
dim f1 as bit
dim f2 as bit
dim f3 as bit
dim f4 as bit
dim f5 as bit
dim f6 as bit
dim f7 as bit
dim f8 as bit
dim _x9 as byte

f8=1
a=_x9
start:
again: w = a

goto start
