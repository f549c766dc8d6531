#!/usr/bin/python3
"""An example in BASIC is compiled, loaded and started in one go; it stops at a breakpoint that has been
set in the margin of its editor, and tells its variables there. The breakpoint stays at its line when
the text is edited and translated again."""

import pathlib
import shutil

import desktop

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
LINE = "Write n, root"


def script(executable):
    with desktop.Desktop(executable, ["--model", "PIC16F84"]) as person:
        source = pathlib.Path(shutil.copy(EXAMPLES / "square_root_table.bas", person.folder))
        number = 1 + source.read_text(encoding="ascii").splitlines().index(LINE)
        person.activate("Corvane")
        person.press("ctrl+5", "alt+t", "c")
        person.activate("BASIC Compiler - UNTITLED")
        person.press("ctrl+o")
        person.choose_file("Open BASIC Source File", source)
        person.activate("BASIC Compiler - square_root_table.bas")
        person.press("ctrl+Home", *["Down"] * (number - 1), "F9")
        person.wait_for_value("Caret", f"Line {number}, Column 1, breakpoint")

        person.press("ctrl+F7")
        person.wait_for_value("Program of the text", f"Breakpoint: line {number}")
        person.press("ctrl+5")
        person.point_at("root = Sqr", "root = 10 (0x0A)")
        person.point_at("hundredfold", "hundredfold = 100 (0x0064)")
        person.press("F8")
        person.wait_for_value("Program of the text", f"Next: line {number}")

        person.press("shift+F5")
        person.answer("Total number of executed instructions")
        person.activate("BASIC Compiler - square_root_table.bas")
        person.press("ctrl+Home", "Return", "ctrl+5", "ctrl+F7")
        person.wait_for_value("Program of the text", f"Breakpoint: line {number + 1}")
        person.wait_for_value("Caret", f"Line {number + 1}, Column 1, breakpoint")


desktop.main(script)
