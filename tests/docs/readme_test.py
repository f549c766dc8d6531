#!/usr/bin/python3
"""Runs the first program of README.md and compares what README.md promises with what is printed.

Usage: readme_test.py README CORVANE-CLI
"""

import pathlib
import re
import subprocess
import sys
import tempfile


def blocks(text, language):
    return re.findall(rf"^```{language}\n(.*?)^```", text, flags=re.MULTILINE | re.DOTALL)


def check(console, command_line, folder):
    """Compares one console block; returns whether the command printed what follows it."""
    command, expected = console.split("\n", 1)
    arguments = command.removeprefix("$ ").split()
    result = subprocess.run([command_line, *arguments[1:]], cwd=folder, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if result.stdout == expected:
        return True
    print(f"{command}\nprints\n{result.stdout}\ninstead of\n{expected}")
    return False


def main():
    readme = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    command_line = str(pathlib.Path(sys.argv[2]).resolve())
    [source] = blocks(readme, "asm")
    [run, mistake] = blocks(readme, "console")
    assert source.splitlines()[11].split()[:2] == ["GOTO", "LOOP"], "the mistake is in line 12"
    with tempfile.TemporaryDirectory() as folder:
        program = pathlib.Path(folder) / "countdown.asm"
        program.write_text(source, encoding="utf-8")
        good = check(run, command_line, folder)
        program.write_text(source.replace("GOTO    LOOP", "GOTO    LOP"), encoding="utf-8")
        good = check(mistake, command_line, folder) and good
    return 0 if good else 1


sys.exit(main())
