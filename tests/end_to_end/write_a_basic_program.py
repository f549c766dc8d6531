#!/usr/bin/python3
"""A sloppy BASIC program is brought into form, compiled, assembled, loaded, and drives its pin."""

import desktop

PROGRAM = """'lights the led
dim i as byte
trisb.0=false
for i=1 to 3
portb.0=1
next i
again: go  to again"""

FORMED = """'lights the led
Dim i As Byte
TRISB.0 = False
For i = 1 To 3
PORTB.0 = 1
Next i
again: Goto again
"""


def script(executable):
    with desktop.Desktop(executable, ["--model", "PIC16F84"]) as person:
        person.activate("Corvane")
        person.press("alt+t", "c")
        person.activate("BASIC Compiler - UNTITLED")
        person.type(PROGRAM)
        person.press("ctrl+s")
        person.choose_file("Save BASIC Source As", person.folder / "led")
        person.activate("BASIC Compiler - led.bas")
        person.wait_for_text(FORMED)
        person.press("F7")
        person.answer("The compilation process was successful.")
        assert (person.folder / "led.bas").read_text(encoding="ascii") == FORMED

        person.activate("Corvane")
        person.press("alt+t", "a")
        person.activate("Assembler - UNTITLED")
        person.press("ctrl+o")
        person.choose_file("Open Assembler Source File", person.folder / "led.asm")
        person.activate("Assembler - led.asm")
        person.press("F7")
        person.wait_for_text("Number of errors = 0")

        person.activate("Corvane")
        person.press("ctrl+l")
        person.choose_file("Select Program File", person.folder / "led.hex")
        person.answer("Operation completed.")
        person.wait_for_text("PORTB bit 0: 0")
        person.press("ctrl+5", "F5")
        person.wait_for_text("PORTB bit 0: 1")
        person.press("shift+F5")
        person.answer("Total number of executed instructions")


desktop.main(script)
