"""A day's worth of simulated instructions: the counters are exact at the end.

Usage: counters.py CORVANE-CLI [STEPS]
"""

import json
import pathlib
import subprocess
import sys
import tempfile

CLI = sys.argv[1]
STEPS = int(sys.argv[2]) if len(sys.argv) > 2 else 10**11

# Two steps and three instruction cycles a round; Timer0 counts every cycle.
SOURCE = """\
        BSF STATUS,RP0
        MOVLW 0x08
        MOVWF OPTION_REG
        BCF STATUS,RP0
        CLRF TMR0
AGAIN   INCF 0x0C,F
        GOTO AGAIN
"""
STEPS_BEFORE_LOOP = 5


def main():
    with tempfile.TemporaryDirectory() as name:
        source = pathlib.Path(name) / "count.asm"
        source.write_text(SOURCE)
        result = subprocess.run(
            [CLI, "run", source, "--steps", str(STEPS), "--state", "-", "--quiet"],
            check=True, capture_output=True, text=True)
    state = json.loads(result.stdout)
    rounds, odd = divmod(STEPS - STEPS_BEFORE_LOOP, 2)
    # The cycle that Start counts comes first.
    cycles = 1 + STEPS_BEFORE_LOOP + rounds * 3 + odd
    memory = bytes.fromhex(state["dataMemory"])
    expected = {
        "instructionCount": STEPS,
        "clockCycles": 4 * cycles,
        "round counter": (rounds + odd) % 256,
        "TMR0": (cycles - 1 - STEPS_BEFORE_LOOP) % 256,
    }
    found = {
        "instructionCount": state["instructionCount"],
        "clockCycles": state["clockCycles"],
        "round counter": memory[0x0C],
        "TMR0": memory[0x01],
    }
    print(found)
    if found != expected:
        sys.exit(f"expected {expected}")


main()
