"""models, assemble, compile, format, build and disassemble."""

import unittest

from cli_case import REFUSED, WRONG_USAGE, CliCase, hex_record

BLINK = "        MOVLW 0x05\n        MOVWF PORTB\nEND_:   GOTO END_\n"
BLINK_HEX = hex_record(0, 0, "053086000228")
CONFIGURATION = hex_record(0, 0x400E, "F13F")
END = ":00000001FF\n"
BASIC = "dim a as byte\nloop: a=a+1\ngoto loop"
TIDY = "Dim a As Byte\nloop: a = a + 1\nGoto loop\n"


def crlf(text):
    return text.replace("\n", "\r\n")


class General(CliCase):
    def test_help_and_version_answer_on_standard_output(self):
        self.assertEqual(self.cli("--version"), "corvane-cli 0.1.0\n")
        commands = ["models", "assemble", "compile", "format", "build", "disassemble", "run"]
        for word in commands:
            self.assertIn(word, self.cli("--help"))
            self.assertIn("--model-dir", self.cli(word, "--help"))

    def test_models_are_listed(self):
        lines = self.cli("models", "-m", "PIC16F84").splitlines()
        self.assertEqual([line.split()[0] for line in lines],
                         ["PIC16F83", "PIC16F84", "PIC16F873", "PIC16F874", "PIC16F876",
                          "PIC16F877", "PIC16F627", "PIC16F628"])
        self.assertEqual(lines[7].split(), ["PIC16F628", "2048", "128", "3F50", "PIC16F62x"])


class Assemble(CliCase):
    def test_both_files_stand_beside_the_source_in_the_applications_form(self):
        (self.folder / "sub").mkdir()
        self.write("sub/blink.old.asm", BLINK)
        self.assertEqual(self.cli("assemble", "sub/blink.old.asm"), "")
        self.assertEqual(self.read("sub/blink.hex"), crlf(BLINK_HEX + CONFIGURATION + END))
        self.assertIn("\r\n0003    0002    2802    END_:   GOTO END_\r\n",
                      self.read("sub/blink.lst"))

    def test_outputs_and_configuration_word_are_options(self):
        self.write("a.asm", BLINK)
        text = self.cli("assemble", "a.asm", "-o", "-", "-l", "b.lst", "--config", "3ff2")
        self.assertEqual(text, BLINK_HEX + hex_record(0, 0x400E, "F23F") + END)
        self.assertEqual(self.files(), ["a.asm", "b.lst"])
        self.assertIn(hex_record(0, 0x400E, "503F"),
                      self.cli("assemble", "a.asm", "-o", "-", "-m", "pic16f627"))

    def test_errors_come_in_line_order_and_leave_no_hex_file(self):
        self.write("a.asm", " foo\n nop\nnop: nop 1\n")
        self.write("a.hex", "older")
        self.cli("assemble", "./a.asm", status=REFUSED,
                 errors="./a.asm:1: error: Unrecognized instruction.\n"
                        "./a.asm:3: error: Invalid argument of the instruction.")
        self.assertEqual(self.files(), ["a.asm", "a.lst"])
        self.assertIn("Number of errors = 2", self.read("a.lst"))

    def test_a_program_that_does_not_fit_is_a_warning(self):
        self.write("a.asm", " ORG 0x400\n NOP\n SLEEP\n")
        self.cli("build", "a.asm", "-m", "PIC16F877")
        self.cli("build", "a.asm", errors="a.asm:2: warning: The program does not fit the PIC16F84: "
                 "address 0400h lies beyond its 1024 program words.")
        self.assertIn("a.hex", self.files())


class Basic(CliCase):
    def test_format_prints_or_writes_back(self):
        self.write("a.bas", BASIC)
        self.assertEqual(self.cli("format", "a.bas"), TIDY)
        self.assertEqual(self.read("a.bas"), BASIC)
        self.assertEqual(self.cli("format", "-i", "a.bas"), "")
        self.assertEqual(self.read("a.bas"), crlf(TIDY))

    def test_compile_rewrites_in_memory(self):
        self.write("a.bas", BASIC)
        self.cli("compile", "a.bas")
        self.assertEqual(self.read("a.bas"), BASIC)
        self.assertIn("\r\n; 2: loop: a = a + 1\r\n", self.read("a.asm"))
        self.assertEqual(crlf(self.cli("compile", "a.bas", "-o", "-")), self.read("a.asm"))
        self.write("w.bas", "waitms 100")
        self.assertNotEqual(self.cli("compile", "w.bas", "-o", "-"),
                            self.cli("compile", "w.bas", "-o", "-", "--clock", "10"))

    def test_an_error_changes_no_file(self):
        self.write("a.bas", "dim a as byte\n\nb=1\n")
        self.write("a.asm", "older")
        for command in "compile", "build":
            self.cli(command, "a.bas", status=REFUSED,
                     errors="a.bas:3: error: Incorrect argument.")
        self.assertEqual(self.files(), ["a.asm", "a.bas"])
        self.assertEqual(self.read("a.asm"), "older")

    def test_build_compiles_then_assembles(self):
        self.write("a.BAS", BASIC)
        self.cli("build", "a.BAS", "-o", "b.hex", "--clock", "8", "--config", "0")
        self.assertEqual(self.files(), ["a.BAS", "a.asm", "a.lst", "b.hex"])
        self.assertIn(hex_record(0, 0x400E, "0000").strip(), self.read("b.hex"))
        assembled = self.cli("assemble", "a.asm", "-o", "-", "--config", "0")
        self.assertEqual(self.read("b.hex"), crlf(assembled))


class Disassemble(CliCase):
    def test_the_listing_with_and_without_opcodes(self):
        self.write("a.hex", BLINK_HEX + END)
        listing = self.cli("disassemble", "a.hex").splitlines()
        self.assertEqual(listing[4:], ["0000    3005    MOVLW 0x05", "0001    0086    MOVWF 0x06",
                                       "0002    2802    GOTO 0x002"])
        self.cli("disassemble", "a.hex", "--no-opcodes", "-o", "a.lst")
        self.assertTrue(self.read("a.lst").endswith("-\r\nMOVLW 0x05\r\nMOVWF 0x06\r\nGOTO 0x002\r\n"))

    def test_nothing_loaded(self):
        self.write("a.hex", END)
        self.cli("disassemble", "a.hex", status=REFUSED, errors="a.hex: error: No program loaded.")


class Usage(CliCase):
    def test_wrong_usage(self):
        hexadecimal = "is not a hexadecimal number of up to four digits,"
        for message, arguments in [
            ("A subcommand is required", []),
            ("The following argument was not expected: b.asm", ["assemble", "a.asm", "b.asm"]),
            ("FILE is required", ["run"]),
            ("--model: There is no model 'PIC16F88'; 'models' lists them.",
             ["-m", "PIC16F88", "models"]),
            (f"--config: '4000' {hexadecimal} 3FFF at most.",
             ["assemble", "a.asm", "--config", "4000"]),
            (f"--break: '0x10' {hexadecimal} 1FFF at most.", ["run", "a.hex", "-b", "0x10"]),
            (f"--break: '00010' {hexadecimal} 1FFF at most.", ["run", "a.hex", "-b", "00010"]),
            ("--break: More than 10 values were given.", ["run", "a.hex"] + 11 * ["-b", "1"]),
            ("--steps: '-1' is not a whole number from 0 to 9223372036854775807.",
             ["run", "a.hex", "-n", "-1"]),
            ("--ad-conversion-time: '0' is not a whole number from 1 to 2147483647.",
             ["run", "a.hex", "--ad-conversion-time", "0"]),
            ("--eeprom-write-time: '1.5' is not a whole number from 1 to 2147483647.",
             ["run", "a.hex", "--eeprom-write-time", "1.5"]),
            ("--clock: 'nan' is not a number above 0.", ["run", "a.hex", "--clock", "nan"]),
        ]:
            with self.subTest(message):
                self.usage_error(message, *arguments)

    def test_nothing_is_written_over_an_input_or_twice(self):
        self.write("a.asm", BLINK)
        self.write("a.lst", BLINK)
        replaced = "error: The output would replace the input."
        twice = "error: Two outputs have the same name."
        for error, arguments in [
            (f"./a.asm: {replaced}", ["assemble", "a.asm", "-o", "./a.asm"]),
            (f"a.lst: {replaced}", ["assemble", "a.lst"]),
            (f"x: {twice}", ["assemble", "a.asm", "-o", "x", "-l", "x"]),
            (f"a.asm: {replaced}", ["compile", "a.asm"]),
            (f"a.asm: {replaced}", ["run", "a.asm", "-t", "a.asm"]),
            (f"x: {twice}", ["run", "a.asm", "-t", "./x", "--state", "x"]),
            ("a.hex: error: The name must end in .bas or .asm.", ["build", "a.hex"]),
            ("a.lst: error: The name must end in .hex, .asm or .bas.", ["run", "a.lst"]),
        ]:
            self.cli(*arguments, status=WRONG_USAGE, errors=error)
        self.assertEqual(self.files(), ["a.asm", "a.lst"])
        self.assertEqual(self.read("a.lst"), BLINK)


if __name__ == "__main__":
    unittest.main()
