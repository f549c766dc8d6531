"""Kills the desktop application at random moments of saving, assembling and compiling.

Afterwards every file is either the one that was there before or the new one, as a whole. The
assembler removes what an older source gave before it begins, so that its files may also be gone.
Usage: kill_application.py CORVANE CORVANE-CLI [ROUNDS]
"""

import pathlib
import random
import signal
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/end_to_end"))
import desktop  # noqa: E402
from sources import assembler_source, basic_source  # noqa: E402

APPLICATION, CLI = (str(pathlib.Path(name).resolve()) for name in sys.argv[1:3])
ROUNDS = int(sys.argv[3]) if len(sys.argv) > 3 else 25  # of each of the four commands
LINES = 8000

SOURCES = {"a.asm": assembler_source, "b.bas": basic_source}
TITLES = {"a.asm": "Assembler - a.asm", "b.bas": "BASIC Compiler - b.bas"}
# name: (source, what is typed before, the key, files that are written)
COMMANDS = {
    "save an assembler source": ("a.asm", "; new", "ctrl+s", ["a.asm"]),
    "save a BASIC source": ("b.bas", "'new", "ctrl+s", ["b.bas"]),
    "assemble": ("a.asm", "", "F7", ["a.hex", "a.lst"]),
    "compile": ("b.bas", "", "F7", ["b.asm"]),
}


class Round:
    """The application with a source open in its editor, beside what an older source gave."""

    def __init__(self, screen, command):
        source, typed, self.key, outputs = COMMANDS[command]
        self.files = [screen.folder / name for name in outputs]
        path = screen.folder / source
        self.write_older_results(screen.folder)
        path.write_bytes(SOURCES[source](LINES, 2).encode())
        self.old = self.contents()
        self.application = screen.start([APPLICATION, "--model", "PIC16F877", str(path)])
        desktop.wait_for(TITLES[source], lambda: self.has_focus(TITLES[source]))
        if typed:
            desktop.xdotool("type", "--delay", "5", typed)
            desktop.xdotool("key", "Return")

    @staticmethod
    def write_older_results(folder):
        for name, source in SOURCES.items():
            (folder / name).write_bytes(source(LINES, 1).encode())
        for arguments in (["assemble", "a.asm", "-m", "PIC16F877"], ["compile", "b.bas"]):
            subprocess.run([CLI, *arguments], cwd=folder, check=True, stderr=subprocess.DEVNULL)

    @staticmethod
    def has_focus(title):
        desktop.xdotool("search", "--onlyvisible", "--name", f"^{title}$", "windowactivate", "%@")
        return desktop.xdotool("getactivewindow", "getwindowname") == title

    def contents(self):
        return [path.read_bytes() if path.exists() else None for path in self.files]

    def kill(self):
        self.application.send_signal(signal.SIGKILL)
        return self.application.wait()

    def all_new(self):
        return all(now not in (old, None) for old, now in zip(self.old, self.contents()))


def whole_results(screen, command):
    """The new files and how long it takes until they are there."""
    this = Round(screen, command)
    begin = time.monotonic()
    desktop.xdotool("key", this.key)
    desktop.wait_for(command, this.all_new)
    seconds = time.monotonic() - begin
    this.kill()
    new = this.contents()
    for content, old in zip(new, this.old):
        assert abs(len(content) - len(old)) < len(old) / 10, "not a whole file"
    return new, seconds


def main():
    seed = random.randrange(1 << 32)
    generator = random.Random(seed)
    print(f"seed {seed}", flush=True)
    with desktop.Screen() as screen:
        for command in COMMANDS:
            new, seconds = whole_results(screen, command)
            changed = 0
            for _ in range(ROUNDS):
                this = Round(screen, command)
                key = subprocess.Popen(["xdotool", "key", this.key])
                time.sleep(generator.uniform(0, seconds))
                if this.kill() != -signal.SIGKILL:
                    sys.exit(f"{command}: the application had ended by itself")
                key.wait()
                now = this.contents()
                for path, found, *allowed in zip(this.files, now, this.old, new):
                    if command == "assemble":
                        allowed.append(None)
                    if found not in allowed:
                        sys.exit(f"{command}: {path.name} is neither the old nor the new one")
                changed += now != this.old
            print(f"{command}: killed {ROUNDS} times within {seconds:.2f} s, {changed} times after a "
                  "file had changed; every file whole", flush=True)


main()
