; Nothing but zeros: no data record.
    NOP
    DW 0
