"""Full and read-only disks: a clear message, status 1, and the old files as they were.

Needs root, for a small file system in memory. Usage: disks.py CORVANE-CLI
"""

import pathlib
import subprocess
import sys
import tempfile

from small_disk import fill, mount
from sources import assembler_source, basic_source

CLI = sys.argv[1]


def run(folder, *arguments):
    return subprocess.run([CLI, *arguments], cwd=folder, capture_output=True, text=True)


def snapshot(folder):
    return {p.name: p.read_bytes() for p in folder.iterdir() if p.name != "filler"}


def expect_refusal(folder, reason, *arguments):
    before = snapshot(folder)
    result = run(folder, *arguments)
    if result.returncode != 1 or reason not in result.stderr:
        sys.exit(f"{arguments}: status {result.returncode}, {result.stderr!r}")
    if snapshot(folder) != before:
        sys.exit(f"{arguments}: a file has changed")
    print(f"{' '.join(arguments)}: {result.stderr.strip()}")


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        mount(folder, "-t", "tmpfs", "-o", "size=1m", "tmpfs")
        try:
            (folder / "a.asm").write_bytes(assembler_source(200, 1).encode())
            (folder / "b.bas").write_bytes(basic_source(200, 1).lower().encode())
            if run(folder, "assemble", "a.asm").returncode + run(folder, "compile", "b.bas").returncode:
                sys.exit("the sources cannot be translated")
            (folder / "a.asm").write_bytes(assembler_source(400, 2).encode())
            commands = (["assemble", "a.asm"], ["compile", "b.bas"], ["format", "-i", "b.bas"])
            fill(folder)
            for command in commands:
                expect_refusal(folder, "No space left on device", *command)
            (folder / "filler").unlink()
            mount(folder, "-o", "remount,ro")
            for command in commands:
                expect_refusal(folder, "Read-only file system", *command)
        finally:
            subprocess.run(["umount", str(folder)], check=True)


main()
