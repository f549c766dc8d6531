' PIC16F84 4
dim f as bit
dim g as bit
dim a as byte
dim b as byte
dim w as word
dim v as word
while f
while not f
while f=g
while f<>g
wend
wend
wend
wend
if a=b then
else
if a<>5 then
end if
end if
if a>b then
if a>5 then
if 5>a then
end if
end if
end if
if a<b then
if a<5 then
endif
endif
if a>=b then
if a>=5 then
endif
endif
if a<=b then
if 5<=a then
endif
endif
if w=v then
while w<>1000
while 1000>w
while w<v
wend
wend
wend
else
if w>=v then
if w<=300 then
end if
else
end if
end if
