"""The example programs do what their comments and the data sheets say. The figures were worked out by hand: every
instruction cycle is four clock cycles, and one is counted before the first instruction."""

import math
import unittest

from cli_case import SOURCE, CliCase, register

# name: (options, registers by address, members of the state, lines of the trace)
EXAMPLES = {
    # 12 steps set the chip up. TMR0 = FDh overflows 12 cycles after it was written, in the fifth
    # GOTO; each later overflow comes 20 cycles (17 steps) after the one before.
    "timer0_interrupt": (
        ["--steps", 100], {0x0C: 5}, {"portValues": [0, 5, 0, 0, 0]},
        ["17 001D A0 1C 96 GOTO 0x01D", "18 0004 A0 1C 100 INTERRUPT!",
         "35 0004 A0 1C 180 INTERRUPT!", "86 0004 A0 1C 420 INTERRUPT!"]),
    # The write lasts 250 steps, from step 11 on; 125 GOTOs and one skip take a second cycle.
    "eeprom_write_read": (
        [], {0x0C: 0x5A},
        {"eepromMemory": "00" * 16 + "5A" + "00" * 47, "instructionCount": 272,
         "clockCycles": 4 * (1 + 272 + 125 + 1)},
        ["260 000C AA 38 1540 BTFSC 0x08,1"]),
    "analog_digital": (
        ["-m", "PIC16F877"], {0x20: 0x02, 0x21: 0xBC, 0x22: 0x01, 0x23: 0x2C},
        {"portValues": [0, 0x2C, 0, 0, 0], "instructionCount": 78}, []),
    # C1OUT follows the input one step after each event; both loops test it every second step. C2
    # compares RA1, at 0 V, with the reference: its output stays 1.
    "comparators": (
        ["-m", "PIC16F628"], {0x1F: 0x82}, {"vrefValue": 250, "instructionCount": 64},
        ["32 0009 AC 1C 184 BTFSS 0x1F,6", "63 000D AC 1C 368 BCF 0x06,0"]),
    "port_change_interrupt": (
        ["--steps", 150], {0x0C: 3, 0x0D: 0b1000}, {"portValues": [0b1000, 0x80, 0, 0, 0]},
        ["21 0004 88 1C 128 INTERRUPT!", "22 0005 88 1C 132 MOVWF 0x0E"]),
    "table_lookup": (
        [], dict(zip(range(0x20, 0x2A),
                     [0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F])),
        {"clockCycles": 748, "portValues": [0, 0x6F, 0, 0, 0]},
        ["10 0200 00 1C 48 CALL 0x200", "11 0201 00 18 56 ADDWF PCL,F",
         "12 000A 3F 18 64 RETLW 0x3F"]),
    "indirect_addressing": (
        [], {0x0E: 136, 0x04: 0x20, 0x20: 1, 0x2F: 16}, {"clockCycles": 864}, []),
    # high for four times DUTY cycles of 1,024
    "pulse_width": (["-c", 4 * 1024 * 10], {0x0C: 64}, {}, []),
    # says "Hello" at 9,600 baud and waits for the button
    "serial_greeting": (["-c", 4 * 20_000], {}, {}, []),
    "deep_calls": (
        [], {0x0D: 8, 0x0E: 8},
        {"hardwareStack": [5] + [9] * 7, "stackPointer": 8, "clockCycles": 252}, []),
}


# name: (model, [(options, port B, beginning of the EEPROM)])
BASIC_EXAMPLES = {
    # half a second on, half a second off
    "blinking_led": ("PIC16F84", [(["-c", 1_950_000], 1, ""), (["-c", 2_050_000], 0, ""),
                                  (["-c", 3_950_000], 0, ""), (["-c", 4_050_000], 1, "")]),
    # presses, but not bounces and noise
    "button_counter": ("PIC16F84", [(["-n", n], count, "") for n, count in (
        (900, 0), (90000, 1), (190000, 1), (240000, 2), (390000, 2), (500000, 3))]),
    # A round takes about 6,870 steps: two of three cycles of the waits are steps of their own.
    "eeprom_log": ("PIC16F84", [(["-n", 200000], 0x13, 8 * "03" + 7 * "13" + "10")]),
    # on from 600, off below 500
    "analog_threshold": ("PIC16F877", [(["-n", n], is_on, "") for n, is_on in (
        (1900, 0), (3900, 1), (5900, 1), (7900, 0), (9900, 0), (12000, 1))]),
    "start_counter": ("PIC16F84", [(["-n", 10000], 1, "01")]),
    "square_root_table": ("PIC16F84", [(["-n", 100000], None, "".join(
        f"{math.isqrt(100 * n):02X}" for n in range(64)))]),
}


class Examples(CliCase):
    def test_every_basic_example_does_what_its_comments_say(self):
        folder = SOURCE / "examples"
        self.assertEqual(set(BASIC_EXAMPLES), {path.stem for path in folder.glob("*.bas")})
        for name, (model, runs) in BASIC_EXAMPLES.items():
            source = folder / f"{name}.bas"
            text = source.read_text(encoding="utf-8")
            self.assertIn(f"'Model: {model}\n", text)
            self.assertEqual(self.cli("format", source, "-m", model), text, "as the editor has it")
            stimulus = []
            if source.with_suffix(".stim").exists():
                self.assertIn(f"'Stimulus: {name}.stim\n", text)
                stimulus = ["-s", source.with_suffix(".stim")]
            for options, port_b, eeprom in runs:
                with self.subTest(name, options=options):
                    state = self.state(source, "-m", model, *stimulus, *options)
                    if port_b is not None:
                        mask = 1 if name == "analog_threshold" else 0xFF  # RB1 blinks
                        self.assertEqual(state["portValues"][1] & mask, port_b)
                    self.assertTrue(state["eepromMemory"].startswith(eeprom))

    def test_every_example_does_what_the_data_sheet_says(self):
        folder = SOURCE / "examples"
        self.assertEqual(set(EXAMPLES), {path.stem for path in folder.glob("*.asm")})
        for name, (options, registers, members, lines) in EXAMPLES.items():
            with self.subTest(name):
                stimulus = folder / f"{name}.stim"
                if stimulus.exists():
                    options = options + ["-s", stimulus]
                state = self.state(folder / f"{name}.asm", *options, "-t", "trace")
                self.assertEqual({a: register(state, a) for a in registers}, registers)
                self.assertEqual({m: state[m] for m in members}, members)
                trace = self.read("trace").splitlines()
                self.assertEqual([trace[int(line.split()[0]) - 1] for line in lines], lines)

    def test_every_example_passes_its_tests(self):
        folder = SOURCE / "examples"
        programs = {path.stem for path in folder.iterdir() if path.suffix in (".asm", ".bas")}
        self.assertEqual({path.stem for path in folder.glob("*.test")}, programs)
        answer = self.cli("test", folder)
        self.assertEqual({line[:4] for line in answer.splitlines()[:-1]}, {"ok  "}, answer)
        self.assertGreaterEqual(len(answer.splitlines()), len(programs))


if __name__ == "__main__":
    unittest.main()
