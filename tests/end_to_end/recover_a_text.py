#!/usr/bin/python3
"""What is typed and not saved outlives the application, which is killed while it is being used."""

import pathlib
import signal

import desktop

TITLE = "Assembler - drive.asm"
TYPED = "        clrw  ; typed and never saved"


def recovered(person):
    """The files with texts that are kept."""
    return list((pathlib.Path(person.home.name) / "data" / "Corvane" / "Recovery").glob("*.asm"))


def script(executable):
    with desktop.Desktop(executable, ["--model", "PIC16F84"]) as person:
        source = person.folder / "drive.asm"
        source.write_bytes(b"        sleep\r\n")
        person.activate("Corvane")
        person.press("alt+t", "a")
        person.activate("Assembler - UNTITLED")
        person.press("ctrl+o")
        person.choose_file("Open Assembler Source File", source)
        person.activate(TITLE)
        assert not recovered(person), "nothing has been typed"
        person.type(TYPED + "\n")
        desktop.wait_for("the kept text", lambda: any(
            TYPED.encode() in path.read_bytes() for path in recovered(person)))
        person.application.send_signal(signal.SIGKILL)
        assert person.exit_status() == -signal.SIGKILL
        assert source.read_bytes() == b"        sleep\r\n"

        person.restart()
        person.activate("Corvane")
        person.press("alt+t", "a")
        person.activate("Assembler - UNTITLED")
        person.press("alt+f", "v", "1")
        person.activate(TITLE)
        person.wait_for_text(TYPED + "\n        sleep\n")
        person.wait_for_name("modified")
        person.press("ctrl+s")
        person.answer(f"Do you want to overwrite existing file {source}?", "alt+y")
        desktop.wait_for("the saved text", lambda: source.read_bytes() ==
                         TYPED.encode() + b"\r\n        sleep\r\n")
        desktop.wait_for("no kept text", lambda: not recovered(person))


desktop.main(script)
