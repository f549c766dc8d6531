; Every check of a line counts, the last message stays.
    FOO 1
5 NOP
    ADDWF 0x200
    INCF 0x20
    BSF 3
    BSF 512
    BSF 512,8
    MOVF 0x20,2
    MOVWF 512
    CLRF 1,0
    MOVLW 0x100
    MOVLW 256,1
    GOTO 0x2000
    DW 0x4000
    DW 1,2
    NOP 5
    SLEEP 5,6
    MOVLW NOWHERE
    MOVF NOWHERE,NOWHERE
    MOVF 1 2,W
    MOVF 1,W,F
    END 1
    END 1,2
    END NOWHERE
    ORG NOWHERE
    ORG 5,5
    ORG
NAME EQU
NAME2 EQU 0x10000
NAME NOP
HERE GOTO HERE ; words go on at the right address
