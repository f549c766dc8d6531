"""Bad input of every kind gets one message and the right status, and changes no other file."""

import os
import shutil
import subprocess
import unittest

from cli_case import CLI, REFUSED, SOURCE, CliCase, hex_record

PROGRAM = "        MOVLW 0x55\nAGAIN:  GOTO AGAIN\n"
MISSING = "error: No such file or directory"
FOLDER = "error: Is a directory"
FULL = "error: No space left on device"


class Files(CliCase):
    def test_files_that_cannot_be_read(self):
        (self.folder / "d.asm").mkdir()
        self.write("a.asm", PROGRAM)
        self.write("empty.asm", "")
        self.write("empty.bas", "")
        for error, arguments in [
            (f"no.asm: {MISSING}", ["assemble", "no.asm"]), (f"d.asm: {FOLDER}", ["build", "d.asm"]),
            (f"no.bas: {MISSING}", ["compile", "no.bas"]), (f"no.bas: {MISSING}", ["format", "no.bas"]),
            (f"no.hex: {MISSING}", ["disassemble", "no.hex"]), (f"no.hex: {MISSING}", ["run", "no.hex"]),
            (f"no: {MISSING}", ["run", "a.asm", "-s", "no"]),
            ("empty.asm: error: The editor is empty.", ["assemble", "empty.asm"]),
            ("empty.bas: error: The editor is empty.", ["format", "empty.bas", "-i"]),
            ("empty.bas: error: The editor is empty.", ["run", "empty.bas"]),
        ]:
            self.cli(*arguments, status=REFUSED, errors=error)
        self.assertEqual(self.files(), ["a.asm", "d.asm", "empty.asm", "empty.bas"])

    def test_files_that_cannot_be_written(self):
        self.write("a.asm", PROGRAM)
        self.write("a.bas", "dim a as byte")
        (self.folder / "d").mkdir()
        run = ["run", "a.asm", "-n", 9, "-q"]
        for error, arguments in [
            (f"no/a.hex: {MISSING}", ["assemble", "a.asm", "-l", "/dev/null", "-o", "no/a.hex"]),
            (f"d: {FOLDER}", ["assemble", "a.asm", "-o", "/dev/null", "-l", "d"]),
            (f"/dev/full: {FULL}", ["assemble", "a.asm", "-l", "/dev/null", "-o", "/dev/full"]),
            (f"d: {FOLDER}", ["compile", "a.bas", "-o", "d"]),
            (f"/dev/full: {FULL}", run + ["-t", "/dev/full"]),
            (f"/dev/full: {FULL}", ["run", "a.asm", "-q", "-t", "/dev/full"]),  # amid the run
            (f"/dev/full: {FULL}", run + ["--state", "/dev/full"]),
            (f"no/t: {MISSING}", ["run", "a.asm", "-t", "no/t"]),  # before the endless run
            (f"d: {FOLDER}", ["run", "a.asm", "-t", "t", "--state", "d"]),
        ]:
            self.cli(*arguments, status=REFUSED, errors=error)
        self.assertEqual(self.files(), ["a.asm", "a.bas", "d"])

    def test_a_failed_replacement_leaves_the_old_file(self):
        self.write("a.asm", PROGRAM)
        self.write("a.hex", "older")
        (self.folder / ".a.hex.part" / "in the way").mkdir(parents=True)
        self.cli("assemble", "a.asm", status=REFUSED, errors=f"a.hex: {FOLDER}")
        self.assertEqual(self.read("a.hex"), "older")

    def test_standard_output_that_fails(self):
        self.write("a.asm", PROGRAM)
        self.write("a.bas", "dim a as byte")
        for arguments in (["--help"], ["--version"], ["models"], ["format", "a.bas"],
                          ["assemble", "a.asm", "-l", "/dev/null", "-o", "-"],
                          ["run", "a.asm", "-n", 9], ["run", "a.asm", "-n", 9, "-t", "-"],
                          ["run", "a.asm", "-q", "-t", "-"],
                          ["run", "a.asm", "-n", 9, "-q", "--state", "-"]):
            with open("/dev/full", "w", encoding="ascii") as full:
                reader, writer = os.pipe()
                os.close(reader)
                for output, reason in (full, "No space left on device"), (writer, "Broken pipe"):
                    done = subprocess.run([CLI, *map(str, arguments)], cwd=self.folder,
                                          stdout=output, stderr=subprocess.PIPE)
                    self.assertEqual((done.returncode, done.stderr.decode()),
                                     (REFUSED, f"standard output: error: {reason}\n"), arguments)
                os.close(writer)


class Contents(CliCase):
    def test_hex_files(self):
        good = hex_record(0, 0, "5530")
        for line, error in [
            ("hello", "The record does not begin with ':' simbol."),
            (":00", "The record is too short."), ("\0" * 20, "The record does not begin with ':' simbol."),
            (":020000005530FF", "Invalid 'checksum' field in the record."),
            (hex_record(3, 0, "0000"), "Invalid 'record type' field in the record."),
            (hex_record(4, 0, "00"), "Invalid '04 type' record."),
            (hex_record(0, 0, "550"[:2]), "Field 'number of bytes' in the record must contain an even value."),
            (hex_record(0, 1, "5530"), "Field 'address' in the record must contain an even value."),
            (hex_record(0, 0, "0040"), "Invalid data byte in the record."),
            (":" + "A" * 1_000_000, "Invalid 'checksum' field in the record."),
        ]:
            self.write("a.hex", good + "\n" + line)
            for command in "run", "disassemble":
                self.cli(command, "a.hex", status=REFUSED, errors=f"a.hex:3: error: {error}")

    def test_sources_of_any_form_assemble(self):
        expected = None
        for source in (PROGRAM, PROGRAM.replace("\n", "\r\n"), PROGRAM.replace("\n", "\r"),
                       PROGRAM.rstrip(), PROGRAM.replace("0x55", "0x55 ;\0\x80\xff"),
                       PROGRAM + ";" + 1_000_000 * "x"):
            self.write("a.asm", source.encode("latin-1"))
            text = self.cli("assemble", "a.asm", "-o", "-", "-l", "/dev/null")
            expected = expected or text
            self.assertEqual(text, expected)

    def test_bad_sources_are_errors_of_their_lines(self):
        for source, error in [(b"\n \x80\xff", "2: error: Unrecognized instruction."),
                              (b" NOP\r NOP\0", "2: error: Unrecognized instruction."),
                              (b" GOTO " + b"x" * 1_000_000,
                               "1: error: Invalid argument of the instruction."),
                              (b"\n" + b"x" * 1_000_000,
                               "2: error: Labels can't be longer than 32 characters.")]:
            self.write("a.asm", source)
            self.cli("assemble", "a.asm", status=REFUSED, errors=f"a.asm:{error}")
            self.cli("run", "a.asm", status=REFUSED, errors=f"a.asm:{error}")

    def test_basic_of_any_form_is_answered(self):
        for source in (b"\0", b"\x80\xff\n", b"x" * 1_000_000, b"dim a as byte\ra=" + b"(" * 100_000,
                       b"'" + b"\n" * 5000, b"if\nwhile\nfor\nnext\nwend"):
            self.write("a.bas", source)
            done = subprocess.run([CLI, "compile", "a.bas", "-o", "-"], cwd=self.folder,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            self.assertIn(done.returncode, (0, REFUSED), source[:20])
            if done.returncode == REFUSED:
                self.assertRegex(done.stderr, rb"^a\.bas:[0-9]+: error: .+\n$")


class ModelFiles(CliCase):
    def setUp(self):
        super().setUp()
        self.write("a.asm", PROGRAM)
        self.write("a.bas", "dim a as byte")

    def test_missing_and_corrupted_files(self):
        self.cli("assemble", "a.asm", "--model-dir", ".", status=REFUSED,
                 errors="File 'pic16f84.cfg' could not be found.")
        section = "***** Section 1 *****\n"
        for content in section, section + "00C,00C,RAM,00,ff", section + "x" * 1_000_000:
            self.write("pic16f84.cfg", content + "\n\n")
            line = content.count("\n") + 1
            for command in ["assemble", "a.asm"], ["run", "a.asm"], ["format", "a.bas"]:
                self.cli(*command, "--model-dir", ".", status=REFUSED,
                         errors="File 'pic16f84.cfg' corrupted.\n"
                                f"./pic16f84.cfg:{line}: error: "
                                "Not a line ADDRESS,CELL,NAME,RESET,MASK.")
        (self.folder / "d" / "pic16f84.cfg").mkdir(parents=True)
        self.cli("run", "a.asm", "--model-dir", "d", status=REFUSED,
                 errors=f"d/pic16f84.cfg: {FOLDER}")

    def test_bad_symbol_lines_are_warnings(self):
        text = (SOURCE / "data/models/pic16f84.cfg").read_text(encoding="ascii")
        text = text.replace("***** Section 2 *****\n", "***** Section 2 *****\n1X EQU 1\n")
        text = text.replace("***** Section 3 *****\n", "***** Section 3 *****\nX EQU Y\n")
        self.write("pic16f84.cfg", text)
        warning = "./pic16f84.cfg:{}: warning: Invalid argument of the EQU directive."
        line = {name: text.splitlines().index(name) + 1 for name in ("1X EQU 1", "X EQU Y")}
        self.cli("assemble", "a.asm", "--model-dir", ".", errors=warning.format(line["1X EQU 1"]))
        self.cli("compile", "a.bas", "--model-dir", ".", errors=warning.format(line["X EQU Y"]))

    def test_the_files_are_found_beside_the_executable_or_in_the_data_folder(self):
        for folder, models in ("beside", "."), ("prefix/bin", "../share/corvane/models"):
            executable = self.folder / folder
            (executable / models).mkdir(parents=True)
            shutil.copy(CLI, executable)
            shutil.copy(SOURCE / "data/models/pic16f84.cfg", executable / models)
            done = subprocess.run([executable / "corvane-cli", "assemble", "a.asm"], cwd=self.folder)
            self.assertEqual(done.returncode, 0)
            os.remove(executable / models / "pic16f84.cfg")
            done = subprocess.run([executable / "corvane-cli", "assemble", "a.asm"], cwd=self.folder,
                                  stderr=subprocess.PIPE)
            self.assertEqual(done.stderr, b"File 'pic16f84.cfg' could not be found.\n")


if __name__ == "__main__":
    unittest.main()
