#!/usr/bin/python3
"""Takes the pictures for script/screenshots: APPLICATION FOLDER [LOOK...]."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

TOP = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(TOP / "tests" / "end_to_end"))
import desktop  # noqa: E402

LOOKS = ("light", "dark", "light_2x", "dark_2x")
COLORS = "256"  # enough for flat colours and the edges of letters


def look_of(name):
    """What a desktop with this look has in its environment, and its scale."""
    variables = {}
    scale = 2 if name.endswith("_2x") else 1
    if name.startswith("dark"):  # the palette that KDE's settings give an application
        folder = pathlib.Path(tempfile.mkdtemp(prefix="corvane-look-"))
        shutil.copy(TOP / "script" / "lib" / "kdeglobals.dark", folder / "kdeglobals")
        variables.update(XDG_CONFIG_DIRS=str(folder), XDG_CURRENT_DESKTOP="KDE",
                         KDE_SESSION_VERSION="5", QT_QPA_PLATFORMTHEME="kde")
    if scale > 1:
        variables["QT_SCALE_FACTOR"] = str(scale)
    return variables, scale


class Photographer(desktop.Desktop):
    """Drives the application with one microcontroller and takes pictures of its windows."""

    def __init__(self, executable, folder, look, arguments):
        variables, scale = look_of(look)
        super().__init__(executable, arguments, f"{1400 * scale}x{1000 * scale}", variables)
        self.target = folder
        self.look = look

    def take(self, title, name):
        """A picture of the window, which stays as it is."""
        self.activate(title)
        desktop.xdotool("mousemove", "0", "0")
        time.sleep(0.4)  # until it is drawn
        window = desktop.xdotool("search", "--onlyvisible", "--name", f"^{title}$").split()[-1]
        self._import(window, name)

    def take_front(self, name):
        time.sleep(0.4)
        self._import(desktop.xdotool("getactivewindow"), name)

    def take_screen(self, name):
        time.sleep(0.4)
        self._import("root", name)

    def _import(self, window, name):
        subprocess.run(["import", "-silent", "-window", window, "+dither", "-colors", COLORS,
                        f"png8:{self.target}/{name}_{self.look}.png"], check=True)

    def click_beginning(self, beginning):
        """Clicks or toggles what bears a name that begins so."""
        node = desktop.wait_for(beginning, lambda: self.find(
            lambda node: (node.get_name() or "").startswith(beginning)))
        desktop.Atspi.Action.do_action(node, 0)

    def choose(self, menu_command):
        self.activate("Corvane")
        self.click("Corvane", menu_command)


def build_example(executable, name, model, folder):
    """Copies the example and assembles it; returns the HEX file."""
    source = folder / name
    shutil.copy(TOP / "examples" / name, source)
    subprocess.run([executable + "-cli", "assemble", source, "--model", model], check=True,
                   stdout=subprocess.DEVNULL)
    return str(source.with_suffix(".hex"))


def step(person, count):
    person.activate("Corvane")
    person.press("ctrl+1", "F5", *["F8"] * count)


def picture_everything(executable, folder, look, work):
    program = build_example(executable, "timer0_interrupt.asm", "PIC16F84", work)
    broken = work / "first_try.asm"
    source = (TOP / "examples" / "table_lookup.asm").read_text(encoding="ascii")
    broken.write_text(source.replace("MOVWF FSR", "MOVFW FSR"), encoding="ascii")
    basic = work / "button_counter.bas"
    shutil.copy(TOP / "examples" / "button_counter.bas", basic)
    with Photographer(executable, folder, look,
                      ["--model", "PIC16F84", program, str(broken), str(basic)]) as person:
        person.text_of_box("Operation completed.")
        person.take_front("message_loaded")
        person.answer("Operation completed.")
        person.take("BASIC Compiler - button_counter.bas", "basic_compiler")
        person.activate("Assembler - first_try.asm")
        person.press("F7")
        person.take_front("message_errors")
        person.answer("Your assembler source contains ")
        person.press("F8")
        person.take("Assembler - first_try.asm", "assembler")
        person.press("ctrl+f")
        person.type("MOVWF")
        person.take("Assembler - first_try.asm", "assembler_find")
        person.click("Assembler - first_try.asm", "Configuration Bits")
        person.take("Configuration Bits", "configuration_bits")
        person.press("Escape")
        for title in ("Assembler - first_try.asm", "BASIC Compiler - button_counter.bas"):
            person.activate(title)
            person.press("ctrl+w")
            person.wait_until_gone(title)

        person.choose("Select Microcontroller")
        person.take("Select Microcontroller", "select_microcontroller")
        person.press("Escape")
        person.choose("Change Clock Frequency")
        person.wait_for_text("Enter new clock frequency")
        person.take_front("change_clock_frequency")
        person.press("Escape")
        for title, name in (("Getting Started", "getting_started"), ("Help Topics", "help_topics"),
                            ("BASIC Compiler Help Topics", "help_basic"),
                            ("About Corvane", "about")):
            person.choose(title)
            person.take(title, name)
            person.press("Escape")

        person.choose("Disassembler")
        person.wait_for_text("RETFIE")
        time.sleep(1)  # until the progress frame has gone
        person.take("PIC Disassembler", "disassembler")
        person.press("ctrl+w")
        person.choose("Breakpoints Manager")
        person.answer("Do you want to use existing listing file")
        person.activate("Breakpoints Manager")
        person.press("Page_Down")
        for address in ("0004", "000A"):
            person.click_beginning(address)
        person.click("Breakpoints Manager", "Hold PC In Focus")
        step(person, 27)
        for command, title, name in (
                ("Program Memory Viewer", "Program Memory Viewer", "program_memory_viewer"),
                ("EEPROM Memory Viewer", "EEPROM Memory Viewer", "eeprom_memory_viewer"),
                ("Hardware Stack Viewer", "Hardware Stack Viewer", "hardware_stack_viewer"),
                ("Microcontroller View", "Microcontroller View - PIC16F84",
                 "microcontroller_view_18")):
            person.choose(command)
            person.take(title, name)
        person.take("Breakpoints Manager", "breakpoints_manager")
        person.take("Corvane", "main_window")
        person.press("alt+t")
        person.take_screen("screen_with_menu")
        person.press("Escape", "Escape", "shift+F5")
        person.wait_for_text("Total number of executed instructions")
        person.take_front("message_statistics")


def picture_chip(executable, folder, look, work, model, example, name):
    program = build_example(executable, example, model, work)
    with Photographer(executable, folder, look, ["--model", model, program]) as person:
        person.answer("Operation completed.")
        step(person, 14)
        person.choose("Microcontroller View")
        title = f"Microcontroller View - {model}"
        person.click_beginning("Toggle RA4")
        person.click(title, "AN0")
        person.activate(title)
        person.press(*["Page_Up"] * 6)
        person.take(title, f"microcontroller_view_{name}_analog")
        person.press("Return")
        person.take(title, f"microcontroller_view_{name}")
        person.take("Corvane", f"main_window_{name}")
        person.click("Corvane", "EEPROM Memory Viewer")
        person.take("EEPROM Memory Viewer", f"eeprom_memory_viewer_{name}")
        person.click("Corvane", "Assembler")
        person.activate("Assembler - UNTITLED")
        person.click("Assembler - UNTITLED", "Configuration Bits")
        person.take("Configuration Bits", f"configuration_bits_{name}")


def main():
    executable, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    work = pathlib.Path(tempfile.gettempdir(), "corvane", "examples")  # a path fit to be seen
    work.mkdir(parents=True, exist_ok=True)
    for look in sys.argv[3:] or LOOKS:
        picture_everything(executable, folder, look, work)
        for model, example, name in (("PIC16F628", "comparators.asm", "16f62x"),
                                     ("PIC16F876", "analog_digital.asm", "28"),
                                     ("PIC16F877", "analog_digital.asm", "40")):
            picture_chip(executable, folder, look, work, model, example, name)


main()
