#!/usr/bin/python3
"""An example in BASIC is translated and loaded, and stops at a breakpoint that has been set in the
margin of its editor."""

import pathlib
import shutil
import subprocess

import desktop

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
LINE = "PORTB.0 = 1"


def script(executable):
    with desktop.Desktop(executable, ["--model", "PIC16F84"]) as person:
        source = pathlib.Path(shutil.copy(EXAMPLES / "blinking_led.bas", person.folder))
        number = 1 + source.read_text(encoding="ascii").splitlines().index(LINE)
        translator = pathlib.Path(executable).with_name("corvane-cli")
        program = person.folder / "blinking_led.hex"
        subprocess.run([translator, "build", "--model", "PIC16F84", "-o", program, source],
                       check=True, stdout=subprocess.DEVNULL)

        person.activate("Corvane")
        person.press("alt+t", "c")
        person.activate("BASIC Compiler - UNTITLED")
        person.press("ctrl+o")
        person.choose_file("Open BASIC Source File", source)
        person.activate("BASIC Compiler - blinking_led.bas")
        person.press("ctrl+Home", *["Down"] * (number - 1), "F9")
        person.wait_for_value("Caret", f"Line {number}, Column 1, breakpoint")
        person.activate("Corvane")
        person.press("ctrl+l")
        person.choose_file("Select Program File", program)
        person.answer("Operation completed.")
        person.wait_for_value("Program of the text", "Loaded")

        person.activate("BASIC Compiler - blinking_led.bas")
        person.press("ctrl+5", "F5")
        person.wait_for_value("Program of the text", f"Breakpoint: line {number}")
        person.wait_for_text("PORTB bit 0: 0")
        person.press("F8", "F8")
        person.wait_for_text("PORTB bit 0: 1")
        person.press("shift+F5")
        person.answer("Total number of executed instructions")


desktop.main(script)
