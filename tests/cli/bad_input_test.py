"""Bad input of every kind gets one message and the right status, and changes no other file."""

import os
import pathlib
import resource
import shutil
import subprocess
import unittest

from cli_case import CLI, REFUSED, SOURCE, CliCase

PROGRAM = "        MOVLW 0x55\nAGAIN:  GOTO AGAIN\n"
FOLDER = "error: Is a directory"


class Files(CliCase):
    def test_help_names_every_command(self):
        for word in "models", "assemble", "compile", "format", "build", "disassemble", "run":
            self.assertIn(word, self.cli("--help"))
            self.assertIn("--model-dir", self.cli(word, "--help"))

    def test_a_file_that_grows_too_large_leaves_the_old_one(self):
        self.write("a.asm", PROGRAM)
        self.write("t", "older")

        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))

        self.cli("run", "a.asm", "-n", 100_000, "-q", "-t", "t", status=REFUSED,
                 errors="t: error: File too large", preexec_fn=limit)
        self.assertEqual((self.read("t"), self.files()), ("older", ["a.asm", "t"]))

    @unittest.skipIf(b"__asan_init" in pathlib.Path(CLI).read_bytes(), "the sanitizer needs more")
    def test_without_memory_a_message(self):
        self.write("a.asm", "".join(f"L{i}: NOP\n" for i in range(200_000)))

        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (40_000_000, 40_000_000))

        self.cli("assemble", "a.asm", status=REFUSED, errors="corvane-cli: error: Out of memory.",
                 preexec_fn=limit)
        self.assertEqual(self.files(), ["a.asm"])

    def test_what_cannot_be_read_is_refused_at_once(self):
        self.write("a.asm", PROGRAM)
        self.write("s", "")
        os.mkfifo(self.folder / "pipe.asm")
        for link, target in [("mem.hex", "/proc/self/mem"), ("m.asm", "/proc/self/mem"),
                             ("zero.asm", "/dev/zero"), ("zero.hex", "/dev/zero"),
                             ("pic16f84.cfg", "/proc/self/mem")]:
            os.symlink(target, self.folder / link)
        unreadable, no_file = "error: Input/output error", "error: Not a regular file"
        for arguments, error in [
            (["run", "mem.hex"], f"mem.hex: {unreadable}"), (["run", "zero.hex"], f"zero.hex: {no_file}"),
            (["disassemble", "mem.hex"], f"mem.hex: {unreadable}"),
            (["assemble", "m.asm", "-o", "-"], f"m.asm: {unreadable}"),
            (["assemble", "zero.asm"], f"zero.asm: {no_file}"),
            (["assemble", "pipe.asm"], f"pipe.asm: {no_file}"),
            (["run", "a.asm", "-s", "mem.hex"], f"mem.hex: {unreadable}"),
            (["run", "a.asm", "--model-dir", "."], f"./pic16f84.cfg: {unreadable}"),
        ]:
            self.cli(*arguments, status=REFUSED, errors=error)

    def test_standard_output_that_fails(self):
        self.write("a.asm", PROGRAM)
        self.write("a.bas", "dim a as byte")
        for arguments in (["--help"], ["--version"], ["models"], ["format", "a.bas"],
                          ["assemble", "a.asm", "-l", "/dev/null", "-o", "-"],
                          ["run", "a.asm", "-n", 9],
                          ["run", "a.asm", "-n", 9, "-q", "-t", "-"],
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
    def test_lines_of_a_megabyte_are_errors(self):
        for source, error in [
            (" GOTO ", "1: error: Invalid argument of the instruction.\n"
                       f"a.asm:1: note: '{32 * 'X'}' is no number and no defined name."),
            ("", "1: error: Labels can't be longer than 32 characters."),
        ]:
            self.write("a.asm", source + 1_000_000 * "x")
            self.cli("run", "a.asm", status=REFUSED, errors=f"a.asm:{error}\n1 error")
        self.write("a.hex", ":" + "A" * 1_000_000)
        self.cli("run", "a.hex", status=REFUSED,
                 errors="a.hex:1: error: Invalid 'checksum' field in the record.")

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
