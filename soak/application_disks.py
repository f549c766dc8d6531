"""Saving in the editors onto full and read-only disks: a clear message, the text still in the editor,
the old file as it was; once there is room, the text is saved.

Needs root, for a small file system in memory. Usage: application_disks.py CORVANE
"""

import pathlib
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/end_to_end"))
import desktop  # noqa: E402
from small_disk import fill, mount  # noqa: E402
from sources import assembler_source, basic_source  # noqa: E402

APPLICATION = sys.argv[1]
LINES = 300
# file: (text, title, what is typed)
EDITORS = {
    "a.asm": (assembler_source(LINES, 1), "Assembler - a.asm", "; typed"),
    "b.bas": (basic_source(LINES, 1), "BASIC Compiler - b.bas", "'typed"),
}


def edit_on(folder, name):
    text, title, typed = EDITORS[name]
    path = folder / name
    path.write_bytes(text.encode())
    with desktop.Desktop(APPLICATION, ["--model", "PIC16F84", path]) as person:

        def expect_refusal(reason):
            person.activate(title)
            person.press("ctrl+s")
            person.answer(f"File '{path}' could not be written.\n{reason}.")
            assert path.read_bytes() == text.encode(), "the old file is not whole"
            person.wait_for_text(typed + "\n")

        person.activate(title)
        person.type(typed + "\n")
        fill(folder)
        expect_refusal("No space left on device")
        (folder / "filler").unlink()
        mount(folder, "-o", "remount,ro")
        expect_refusal("Read-only file system")
        mount(folder, "-o", "remount,rw")
        person.activate(title)
        person.press("ctrl+s")
        desktop.wait_for("the new file", lambda: typed.encode() in path.read_bytes())
    path.unlink()
    print(f"{name}: refused on a full and on a read-only disk, then saved")


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        mount(folder, "-t", "tmpfs", "-o", "size=1m", "tmpfs")
        try:
            for editor in EDITORS:
                edit_on(folder, editor)
        finally:
            subprocess.run(["umount", str(folder)], check=True)


main()
