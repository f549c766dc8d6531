' PIC16F84 4
dim i as byte
dim a as byte
dim s as byte
dim w as word
dim v as word
dim t as word
for i=1 to 10
for a=i to s step s
next a
next i
for i=10 to 0 step -1
next i
for i=a to s step - s
next i
for w=1 to 1000
for v=w to t step 300
next v
next w
for w=1000 to 1 step -1
next w
for w=v to t step -t
next w
