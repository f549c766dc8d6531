"""Kills the command line at random moments of assembling, compiling and saving.

Afterwards every file is either the one that was there before or the new one, as a whole.
Usage: kills.py CORVANE-CLI [ROUNDS]
"""

import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time

from sources import assembler_source, basic_source

CLI = sys.argv[1]
ROUNDS = int(sys.argv[2]) if len(sys.argv) > 2 else 100


def write_sources(folder, variant):
    (folder / "a.asm").write_bytes(assembler_source(8000, variant).encode())
    (folder / "b.bas").write_bytes(basic_source(8000, variant).encode())
    # In no editor's form, so that format -i has something to write.
    (folder / "c.bas").write_bytes(basic_source(8000, variant).lower().encode())


COMMANDS = {
    "assemble": (["assemble", "a.asm", "-m", "PIC16F877"], ["a.hex", "a.lst"]),
    "compile": (["compile", "b.bas"], ["b.asm"]),
    "format": (["format", "-i", "c.bas"], ["c.bas"]),
}


def run(folder, arguments):
    subprocess.run([CLI, *arguments], cwd=folder, check=True, stderr=subprocess.DEVNULL)


def whole_results(folder):
    """For each command and source variant: its outputs' bytes, and how long it takes."""
    results = {}
    for variant in (1, 2):
        for name, (arguments, outputs) in COMMANDS.items():
            write_sources(folder, variant)
            begin = time.monotonic()
            run(folder, arguments)
            seconds = time.monotonic() - begin
            results[name, variant] = [(folder / o).read_bytes() for o in outputs], seconds
    return results


def kill_once(folder, name, results, generator):
    """Runs with variant 1 to its end, then with variant 2 until it is killed."""
    arguments, outputs = COMMANDS[name]
    write_sources(folder, 1)
    run(folder, arguments)
    write_sources(folder, 2)
    sources = {"c.bas": (folder / "c.bas").read_bytes()}
    process = subprocess.Popen([CLI, *arguments], cwd=folder, stderr=subprocess.DEVNULL)
    time.sleep(generator.uniform(0, results[name, 2][1] * 1.1))
    process.send_signal(signal.SIGKILL)
    status = process.wait()
    for index, output in enumerate(outputs):
        # format writes over its source, the others over what variant 1 gave.
        old = sources.get(output, results[name, 1][0][index])
        allowed = (old, results[name, 2][0][index])
        if (folder / output).read_bytes() not in allowed:
            sys.exit(f"{name}: {output} is neither the old nor the new one")
    return status == -signal.SIGKILL


def main():
    seed = random.randrange(1 << 32)
    generator = random.Random(seed)
    print(f"seed {seed}")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        results = whole_results(folder)
        for command in COMMANDS:
            killed = sum(kill_once(folder, command, results, generator) for _ in range(ROUNDS))
            print(f"{command}: {ROUNDS} rounds, killed in time {killed}, every file whole")
            if killed == 0:
                sys.exit(f"{command}: none was killed in time, which proves nothing")


main()
