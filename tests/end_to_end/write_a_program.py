#!/usr/bin/python3
"""From typing to the HEX file on disk: a program with a mistake is written in the Assembler window,
the mistake is found and mended, and the program is loaded."""

import desktop

PROGRAM = """        bsf STATUS,RP0
        clrf TRISB  ; all outputs
        bfc STATUS,RP0
LOOP    comf PORTB,F
        goto LOOP"""

HEX = """:0A0000008316860183128609032887
:02400E00F13F80
:00000001FF
"""


def script(executable):
    with desktop.Desktop(executable, ["--model", "PIC16F84"]) as person:
        person.activate("Corvane")
        person.press("alt+t", "a")
        person.activate("Assembler - UNTITLED")
        person.type(PROGRAM)
        person.press("F7")
        person.answer("Please save the file first.")
        person.press("ctrl+s")
        person.choose_file("Save Assembler Source As", person.folder / "toggle")
        person.activate("Assembler - toggle.asm")
        person.press("F7")
        person.answer("Your assembler source contains 1 errors.")
        assert not (person.folder / "toggle.hex").exists()
        person.wait_for_text("0003 Error: Unrecognized instruction.")

        person.press("F4", "shift+End")
        person.type("        bcf STATUS,RP0")
        person.press("F7")
        person.wait_for_text("Number of errors = 0")
        written = (person.folder / "toggle.hex").read_text(encoding="ascii")
        assert written == HEX, written

        person.activate("Corvane")
        person.press("ctrl+l")
        person.choose_file("Select Program File", person.folder / "toggle.hex")
        person.answer("Operation completed.")
        person.wait_for_text("toggle.hex")


desktop.main(script)
