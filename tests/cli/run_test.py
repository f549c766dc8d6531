"""run: limits, stimulus, trace, state, statistics and Ctrl-C."""

import json
import re
import signal
import subprocess
import unittest

from cli_case import CLI, INTERRUPTED, SOURCE, CliCase, hex_record, register

# Steps 1, 2, then one GOTO after the other: 8 clock cycles each.
LOOP = "        MOVLW 0x55\n        MOVWF 0x0C\nAGAIN:  GOTO AGAIN\n"
LOOP_HEX = hex_record(0, 0, "55308C000228") + ":00000001FF\n"

# What every state has, in this order.
MEMBERS = ["model", "pc", "w", "dataMemory", "eepromMemory", "hardwareStack", "stackPointer",
           "instructionCount", "clockCycles", "lastInstruction", "prescalerCount", "stopRequested",
           "pinInputs", "portValues", "analogValues", "analogPinFlags", "vrefValue", "eeWriteBusy",
           "eeWriteElapsed", "eeWriteAddress", "eeWriteData", "eeUnlockState", "adElapsed",
           "adSample", "loadedWords"]


class Limits(CliCase):
    def test_a_run_ends_at_the_first_limit(self):
        self.write("a.asm", LOOP)
        # After Start 4 clock cycles have passed, then 8, 12, 20, 28, ...
        for options, instructions, clocks in [
            (["-n", 0], 0, 4), (["-n", 1], 1, 8), (["-n", 30001], 30001, 12 + 8 * 29999),
            (["-c", 0], 0, 4), (["-c", 4], 0, 4), (["-c", 5], 1, 8), (["-c", 12], 2, 12),
            (["-c", 13], 3, 20), (["-c", 20], 3, 20), (["-c", 100001], 12501, 100004),
            (["-b", "2"], 2, 12), (["-b", "7", "-b", "0002"], 2, 12), (["-b", "1"], 1, 8),
            (["-b", "0", "-n", 9], 9, 68), (["-c", 50, "-n", 4], 4, 28),
        ]:
            state = self.state("a.asm", *options)
            self.assertEqual((state["instructionCount"], state["clockCycles"]),
                             (instructions, clocks), options)
            self.assertFalse(state["stopRequested"])

    def test_limits_are_exact_for_steps_of_one_to_three_cycles(self):
        # The skip by an instruction that writes PCL takes three cycles: FFh + 1 gives 0. At 44 cycles
        # six of such steps are behind, and a look ahead of two cycles a step would pass the limit.
        self.write("a.asm", "A: GOTO 0x0FE\n GOTO 0x0FE\n ORG 0x0FE\n INCFSZ PCL,F\n")
        self.cli("run", "a.asm", "-q", "-n", 50, "-t", "trace")
        steps = [int(line.split()[4]) for line in self.read("trace").splitlines()]
        self.assertIn(12, [later - earlier for earlier, later in zip(steps, steps[1:])])
        self.assertIn(44, steps)
        for limit in range(5, 120):
            state = self.state("a.asm", "-c", limit)
            self.assertEqual(state["clockCycles"], next(s for s in steps if s >= limit), limit)


class Results(CliCase):
    def test_statistics(self):
        self.write("a.hex", LOOP_HEX)
        for clock, shown in ["4", "7.0 µs at 4 MHz"], ["3.579545", "7.82 µs at 3.579545 MHz"]:
            text = self.cli("run", "a.hex", "-n", 4, "--clock", clock)
            self.assertRegex(text, "^Total number of executed instructions is 4\\.\n"
                                   "[0-9]+\\.[0-9]+ seconds elapsed\\.\n"
                                   "Real-time duration of the simulation is 28 clock cycles or "
                                   + re.escape(shown) + "\\.\n$")
        self.assertEqual(self.cli("run", "a.hex", "-n", 4, "-q"), "")
        for option in "--state", "--trace":
            done = subprocess.run([CLI, "run", "a.hex", "-n", "4", option, "-"], cwd=self.folder,
                                  capture_output=True, text=True)
            self.assertIn("instructions is 4.\n", done.stderr)
            self.assertNotIn("instructions is", done.stdout)

    def test_a_program_may_be_a_pipe(self):
        for program in LOOP_HEX, "\n" + LOOP_HEX:
            done = subprocess.run([CLI, "run", "/dev/stdin", "-n", "3", "-q", "--state", "-"],
                                  input=program, capture_output=True, text=True)
            self.assertEqual((done.stderr, json.loads(done.stdout)["pc"]), ("", 2))

    def test_a_trace_of_more_than_a_buffer(self):
        self.write("a.hex", LOOP_HEX)
        self.cli("run", "a.hex", "-n", 20000, "-q", "-t", "t")
        steps = [int(line.split()[0]) for line in self.read("t").splitlines()]
        self.assertEqual(steps, list(range(1, 20001)))

    def test_state(self):
        self.write("a.hex", LOOP_HEX)
        state = self.state("a.hex", "-n", 3)
        self.assertEqual(list(state), MEMBERS)
        self.assertEqual([type(state[m]).__name__ for m in MEMBERS],
                         ["str", "int", "int", "str", "str", "list", "int", "int", "int", "str",
                          "int", "bool", "list", "list", "list", "list", "int", "bool"]
                         + ["int"] * 7)
        self.assertEqual([len(state[m]) for m in ("dataMemory", "eepromMemory", "hardwareStack",
                                                  "pinInputs", "portValues", "analogValues",
                                                  "analogPinFlags")],
                         [1024, 128, 8, 5, 5, 8, 10])
        self.assertEqual((state["model"], state["pc"], state["w"], state["lastInstruction"],
                          state["loadedWords"], register(state, 0x0C), register(state, 0x81)),
                         ("PIC16F84", 2, 0x55, "GOTO 0x002", 3, 0x55, 0xFF))
        self.cli("run", "a.hex", "-q", "-n", 3, "--state", "s.json")
        self.assertEqual(self.read("s.json").count("\n"), self.read("s.json").count("\r\n"))
        self.assertEqual(json.loads(self.read("s.json")), state)

    def test_the_peripheral_times(self):
        eeprom = SOURCE / "examples/eeprom_write_read.asm"
        analog = SOURCE / "examples/analog_digital.asm"
        # The wait of 250 steps becomes one of 10, the two of 25 become two of 5.
        self.assertEqual(self.state(eeprom, "--eeprom-write-time", 40)["instructionCount"], 32)
        state = self.state(analog, "-m", "pic16f877", "--ad-conversion-time", 20)
        self.assertEqual(state["instructionCount"], 38)


class Stimulus(CliCase):
    def test_events_take_place_before_the_step_that_follows(self):
        self.write("a.asm", LOOP)
        self.write("s", "# pins\n\n0 set RB0 1\n1 set RB0 1\n2\ttoggle  rb7\r\n2 toggle RA4\n3 set RB0 0\n")
        for steps, inputs in [(0, [0, 0]), (1, [0, 1]), (2, [0, 1]), (3, [0x10, 0x81]),
                              (4, [0x10, 0x80])]:
            for trace in [], ["-t", "/dev/null"]:
                state = self.state("a.asm", "-s", "s", "-n", steps, *trace)
                self.assertEqual(state["pinInputs"], inputs + [0, 0, 0], steps)
        # The edges of RB0 and RB7 set INTF and RBIF.
        self.assertEqual(register(self.state("a.asm", "-s", "s", "-n", 4), 0x0B), 0b011)


class Interruption(CliCase):
    def interrupt(self, number, trace, wait_until_it_runs):
        """Sends the signal; returns standard output as far as the wait has left it, and standard
        error."""
        process = subprocess.Popen([CLI, "run", "a.asm", "-t", trace, "--state", "s"],
                                   cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   text=True)
        wait_until_it_runs(process)
        process.send_signal(number)
        texts = process.communicate()
        self.assertEqual(process.returncode, INTERRUPTED)
        return texts

    def check_results(self, trace, statistics):
        steps = json.loads(self.read("s"))["instructionCount"]
        self.assertRegex(trace.splitlines()[-1], f"^{steps} 0002 55 18 [0-9]+ GOTO 0x002$")
        self.assertIn(f"instructions is {steps}.\n", statistics)
        self.assertEqual([name for name in self.files() if name.startswith(".")], [])

    def test_a_signal_finishes_the_step_and_writes_everything(self):
        self.write("a.asm", LOOP)
        text = self.interrupt(signal.SIGINT, "-", lambda process: process.stdout.read(1))
        self.check_results(*text)

        def until_the_trace_grows(_):
            while not any(path.stat().st_size for path in self.folder.glob(".*")):
                pass

        for number in signal.SIGTERM, signal.SIGHUP:
            statistics, errors = self.interrupt(number, "t", until_the_trace_grows)
            self.assertEqual(errors, "")
            self.check_results(self.read("t"), statistics)


if __name__ == "__main__":
    unittest.main()
