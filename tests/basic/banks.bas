' PIC16F877 20 020-02B 0A0-0A4 120-124 1A0-1A4
' Every variable has its bank selected, and every jump arrives in the bank that its target expects.
dim f as bit
dim a0 as byte
dim b1 as byte
dim w1 as word
dim v1 as word
dim b2 as byte
dim w2 as word
dim v2 as word
dim b3 as byte
dim w3 as word
dim v3 as word
b3=b1
w2=w3
w3=0x1234
b1=b2+b3
w1=w2-v3
w2=w1*w3
b1.0=b1.7
eedata.1=trisb.0 xor eedata.3
while trisb.0
if not eedata.7 then
a0=1
else
a0=2
end if
if eecon1.0 then
end if
wend
if trisb.0=eedata.1 then
end if
if b1<b2 then
end if
if a0>=b3 then
end if
while w1>w3
wend
for b1=a0 to b2 step b3
next b1
for b2=b3 to 1 step -a0
next b2
for a0=1 to b1
next a0
for w1=w2 to v3 step v2
next w1
for w3=5 to w2 step -v1
next w3
read b1,b2
write b3,b1
