#!/usr/bin/python3
"""A program is loaded, stepped, given an input, run to a breakpoint and on to its end; then the
application is closed, and its settings are on disk."""

import desktop

# Waits for a high level on RA0 before it counts and sleeps.
#   0000 BTFSS PORTA,0    0001 GOTO 0    0002 INCF 0x0C,F    0003 MOVLW 0x2A    0004 SLEEP
PROGRAM = ":0A000000051C00288C0A2A3063005A\r\n:00000001FF\r\n"

STATISTICS = """Total number of executed instructions is 6.
{} seconds elapsed.
Real-time duration of the simulation is 36 clock cycles or 9.0 µs at 4 MHz."""


def script(executable):
    with desktop.Desktop(executable, ["--model", "PIC16F84"]) as person:
        (person.folder / "wait.hex").write_text(PROGRAM, encoding="ascii")
        person.activate("Corvane")
        person.press("ctrl+l")
        person.choose_file("Select Program File", person.folder / "wait.hex")
        person.answer("Total 5 (.004K) program words loaded.")

        person.press("alt+t", "b")
        person.window("Breakpoints Manager")
        person.click("Breakpoints Manager", "0003    302A    MOVLW 0x2A")
        person.wait_for_value("Breakpoint 1", "0003")
        person.activate("Corvane")
        person.press("alt+t", "v")
        person.window("Microcontroller View - PIC16F84")

        person.activate("Corvane")
        person.press("ctrl+1", "F5", "F8")
        person.wait_for_value("Program counter", "0001")
        person.press("F8")
        person.wait_for_value("Last Instruction", "GOTO 0x000")
        person.wait_for_value("RA0, pin 17: input", "OFF")
        person.click("Microcontroller View - PIC16F84", "Toggle RA0")
        person.wait_for_value("RA0, pin 17: input", "ON")

        person.press("ctrl+5")  # the shortcuts work in the views too
        person.wait_for_value("Program counter", "0003")
        person.wait_for_value("GPR 00C", "01")
        person.wait_for_value("Instructions Counter", "4")
        person.activate("Corvane")
        person.press("F8")
        person.wait_for_value("W register", "2A")
        person.wait_for_name("W bit 5: 1")
        person.press("ctrl+4")
        statistics = person.text_of_box("Total number of executed instructions")
        seconds = statistics.splitlines()[1].split()[0]
        assert statistics == STATISTICS.format(seconds), statistics
        assert 0 < float(seconds) < 600, seconds
        person.press("Return")
        person.wait_until_gone("Total number")

        person.press("ctrl+q")
        assert person.exit_status() == 0
        settings = (person.settings()).read_text(encoding="utf-8").splitlines()
        for line in ("Simulation Rate=4", "Microcontroller Model=1",
                     f"Last Path={person.folder}/"):
            assert line in settings, settings
        for window in ("Window1", "Window11", "Window12"):
            assert any(line.startswith(window + " Left=") for line in settings), settings


desktop.main(script)
