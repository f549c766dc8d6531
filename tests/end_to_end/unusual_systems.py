#!/usr/bin/python3
"""The application works where decimal points are commas, file names have umlauts and blanks, there is
one font, no folder for settings, or a settings file that is none."""

import pathlib
import random
import shutil
import subprocess
import tempfile

import desktop
from desktop import Atspi

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf"
FONTS_FILE = """<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><dir>{0}</dir><cachedir>{0}/cache</cachedir></fontconfig>
"""
STATISTICS = """Total number of executed instructions is 146.
{} seconds elapsed.
Real-time duration of the simulation is 748 clock cycles or 208.93 µs at 3.58 MHz."""


def load(person, path):
    person.activate("Corvane")
    person.press("ctrl+l")
    title = "Select Program File"
    person.window(title)
    # Not typed: the keys of a plain keyboard give no umlauts.
    name = desktop.wait_for("the field for the name", lambda: person.find(
        lambda node: node.get_name() == "File name:" and node.get_role() == Atspi.Role.TEXT))
    Atspi.EditableText.set_text_contents(name, str(path))
    person.press("Return")
    person.wait_until_gone(title)
    person.answer("Operation completed.")


def quit_application(person):
    person.activate("Corvane")
    person.press("ctrl+q")
    assert person.exit_status() == 0


def german(executable, folder):
    subprocess.run(["localedef", "--no-archive", "-i", "de_DE", "-f", "UTF-8",
                    folder / "de_DE.UTF-8"], check=True)
    source = folder / "Größe 1.asm"
    shutil.copy(EXAMPLES / "table_lookup.asm", source)
    variables = {"LOCPATH": str(folder), "LC_ALL": "de_DE.UTF-8"}
    arguments = ["--model", "PIC16F84", source]
    with desktop.Desktop(executable, arguments, variables=variables) as person:
        person.activate("Assembler - Größe 1.asm")
        person.press("F7")
        person.wait_for_text("Number of errors = 0")
        person.press("ctrl+w")
        person.wait_until_gone("Assembler - Größe 1.asm")
        load(person, folder / "Größe 1.hex")
        person.activate("Corvane")
        person.press("alt+o", "Down", "Down", "Return")
        person.wait_for_text("Enter new clock frequency [MHz].")
        person.type("3.58")
        person.press("Return")
        person.wait_until_gone("Enter new clock frequency [MHz].")
        person.press("ctrl+5", "F5")
        statistics = person.text_of_box("Total number of executed instructions")
        seconds = statistics.splitlines()[1].split()[0]
        assert statistics == STATISTICS.format(seconds) and "," not in statistics, statistics
        person.press("Return")
        quit_application(person)
        assert "Clock Frequency=3.58" in person.settings().read_text(encoding="utf-8").splitlines()


def one_font(executable, folder):
    shutil.copy(FONT, folder)
    (folder / "fonts.conf").write_text(FONTS_FILE.format(folder), encoding="utf-8")
    variables = {"FONTCONFIG_FILE": str(folder / "fonts.conf")}
    with desktop.Desktop(executable, [folder / "Größe 1.hex"], variables=variables) as person:
        person.answer("Operation completed.")
        person.activate("Corvane")
        person.press("alt+t", "v")
        person.window("Microcontroller View - PIC16F84")
        quit_application(person)


def no_settings(executable, _):
    nowhere = {"HOME": "/proc/nowhere", "XDG_CONFIG_HOME": "/proc/nowhere"}
    with desktop.Desktop(executable, variables=nowhere) as person:
        person.activate("Corvane")
        person.press("alt+t", "a")
        person.activate("Assembler - UNTITLED")
        quit_application(person)


def damaged_settings(executable, folder):
    store = folder / "Corvane" / "Corvane.ini"
    store.parent.mkdir()
    for seed in range(3):
        store.write_bytes(random.Random(seed).randbytes(4000))
        variables = {"XDG_CONFIG_HOME": str(folder)}
        with desktop.Desktop(executable, variables=variables) as person:
            person.activate("Corvane")
            person.press("ctrl+3")
            quit_application(person)
        assert b"\nSimulation Rate=3\n" in store.read_bytes()


def script(executable):
    with tempfile.TemporaryDirectory(prefix="corvane-") as name:
        for scene in (german, one_font, no_settings, damaged_settings):
            scene(executable, pathlib.Path(name))


desktop.main(script)
