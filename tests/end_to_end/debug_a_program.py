#!/usr/bin/python3
"""An example is assembled and loaded, breakpoints are set in its listing with the keyboard, it is run
from one to the next, stepped over one, and run to its end."""

import pathlib
import shutil

import desktop

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"

CALL = "0004    2006            CALL DOWN"
DOWN = "0006    0A8D    DOWN:   INCF CALLS,F"
AFTER_DOWN = "0007    0B8C            DECFSZ LEFT,F"


def script(executable):
    with desktop.Desktop(executable, ["--model", "PIC16F84"]) as person:
        shutil.copy(EXAMPLES / "deep_calls.asm", person.folder)
        person.activate("Corvane")
        person.press("alt+t", "a")
        person.activate("Assembler - UNTITLED")
        person.press("ctrl+o")
        person.choose_file("Open Assembler Source File", person.folder / "deep_calls.asm")
        person.activate("Assembler - deep_calls.asm")
        person.press("F7")
        person.wait_for_text("Number of errors = 0")
        person.activate("Corvane")
        person.press("ctrl+l")
        person.choose_file("Select Program File", person.folder / "deep_calls.hex")
        person.answer("Operation completed.")

        person.press("alt+t", "b")
        person.answer(f"Do you want to use existing listing file {person.folder}/deep_calls.lst?")
        person.activate("Breakpoints Manager")
        person.press("End", *["Up"] * 7, "space")
        person.wait_for_name(DOWN + ", breakpoint")
        person.press(*["Up"] * 3, "space")
        person.wait_for_name(CALL + ", breakpoint")
        person.wait_for_value("Breakpoint 1", "0004")
        person.wait_for_value("Breakpoint 2", "0006")

        person.press("ctrl+5", "F5")
        person.wait_for_name(CALL + ", breakpoint, current instruction")
        person.press("ctrl+5")
        person.wait_for_name(DOWN + ", breakpoint, current instruction")
        person.press("F8")
        person.wait_for_name(AFTER_DOWN + ", current instruction")
        person.click("Breakpoints Manager", "Clear All Breakpoints")
        person.wait_for_name(DOWN)
        person.press("ctrl+5")
        person.answer("Total number of executed instructions is ")
        person.wait_for_value("Last Instruction", "SLEEP")

        person.activate("Corvane")
        person.press("alt+t", "d")
        person.wait_for_text("Disassembling in progress...")
        person.wait_for_text("0005    0063    SLEEP")
        person.activate("Corvane")
        person.press("ctrl+l")
        person.answer("Please close Disassembler window first.")
        person.press("ctrl+q")
        assert person.exit_status() == 0
        settings = person.settings().read_text(encoding="utf-8")
        assert "Window9 Left=" in settings and "Window11 Left=" in settings, settings


desktop.main(script)
