"""Programs that gpasm and gplink make: their .cod files, and gpasm itself behind --assembler."""

import os
import re
import shutil
import signal
import subprocess
import unittest

from cli_case import CLI, DONE, FAILED, INTERRUPTED, REFUSED, WRONG_USAGE, CliCase

MAIN = """\
        list p=16f877a
        include "p16f877a.inc"
        extern far
        udata 0x20
count   res 1
reset   code 0
        pagesel main
        goto main
program code
main    clrf count
        pagesel far
        call far
        clrf count
loop    goto loop
        end
"""
FAR = """\
        list p=16f877a
        include "p16f877a.inc"
        global far
other   code 0x900
far     banksel TRISB
        clrf TRISB
        call far
        return
        end
"""
ONE_FILE = """\
        list p=16f84
        include "p16f84.inc"
select  macro reg
        banksel reg
        endm
i       set 0
        org 0
        bsf STATUS,RP0 ; a register of bank 0 follows
        clrf PORTB
        select PORTB
        clrf TRISB ; this line is so long that the listing breaks it into several lines, each of \
which gets an entry of its own in the file of the lines, and so does the message before it
        while i < 2
        nop
i       set i + 1
        endw
        include "tail.inc"
        end
"""
TAIL = "tail    clrf TRISB^0x80\n        clrf TRISB\n        goto tail+1\n"


class Gpasm(CliCase):
    def run_tool(self, *arguments):
        subprocess.run(arguments, cwd=self.folder, stdout=subprocess.DEVNULL, check=True)

    def test_words_lead_to_their_lines_through_macros_loops_and_included_files(self):
        self.write("one.asm", ONE_FILE)
        self.write("tail.inc", TAIL)
        self.run_tool("gpasm", "-L", "one.asm")
        told = self.cli("check", "one.hex", "--rules", "all", status=FAILED)
        self.assertEqual(told, """\
one.asm:9: warning: PORTB (006h) is not reached, because RP0 is 1 and RP1 is 0; this is TRISB (086h). [bank]
one.asm:8: note: RP0 is 1 and RP1 is 0 from here on
one.asm:11: warning: TRISB (086h) is not reached, because RP0 is 0 and RP1 is 0; this is PORTB (006h). [bank]
one.asm:4: note: RP0 is 0 and RP1 is 0 from here on
tail.inc:2: warning: TRISB (086h) is not reached, because RP0 is 0 and RP1 is 0; this is PORTB (006h). [bank]
one.asm:4: note: RP0 is 0 and RP1 is 0 from here on
""")

    def test_a_linked_program_has_lines_in_all_its_files(self):
        for name, text in {"main.asm": MAIN, "far.asm": FAR}.items():
            self.write(name, text)
            self.run_tool("gpasm", "-c", name)
        self.run_tool("gplink", "-o", "linked.hex", "main.o", "far.o")
        told = self.cli("check", "linked.hex", "-m", "PIC16F877", "--rules", "stack", status=FAILED)
        self.assertEqual(told, """\
far.asm:7: warning: The subroutine at 0900 can be called again before it has returned. [stack]
main.asm:12: note: calls 0900
far.asm:7: note: calls 0900
""")

    def test_a_source_that_makes_other_words_is_not_the_programs(self):
        self.write("one.asm", ONE_FILE)
        self.write("tail.inc", TAIL)
        self.run_tool("gpasm", "-L", "one.asm")
        cod = (self.folder / "one.cod").read_bytes()
        self.cli("check", "one.hex", status=FAILED)
        self.cli("check", "one.hex", "--no-source")  # numbers are not judged
        for other in (cod[:700], cod.replace(b"\x83\x16", b"\x83\x12"), b""):
            self.write("one.cod", other)
            self.cli("check", "one.hex")
        # A source of our own beside a file of its words.
        self.write("own.asm", "        BSF   STATUS,RP0\n        CLRF  PORTB\nLOOP:   GOTO  LOOP\n")
        self.cli("assemble", "own.asm")
        self.assertIn("own.asm:2: warning: ", self.cli("check", "own.hex", status=FAILED))
        self.write("own.asm", "        BSF   STATUS,RP0\n        CLRF  PORTA\nLOOP:   GOTO  LOOP\n")
        self.cli("check", "own.hex")


class Assembler(CliCase):
    """Everything happens in a folder with a blank; what lies about elsewhere is seen in TMPDIR."""

    def setUp(self):
        super().setUp()
        self.temporary = self.folder / "temporary"
        self.temporary.mkdir()
        (self.folder / "a b").mkdir()
        self.write("a b/one.asm", ONE_FILE)
        self.write("a b/tail.inc", TAIL)

    def tearDown(self):
        self.assertEqual(list(self.temporary.iterdir()), [], "left behind")

    def gpasm(self, *arguments, status=DONE, **environment):
        """Runs a command with --assembler gpasm; returns what it says on standard error."""
        done = subprocess.run([CLI, *arguments, "--assembler", "gpasm"], cwd=self.folder,
                              env={**os.environ, "TMPDIR": str(self.temporary), **environment},
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.assertEqual(done.returncode, status, done.stderr)
        return done.stderr

    def beside(self):
        return sorted(path.name for path in (self.folder / "a b").iterdir())

    def test_results_and_messages_are_those_of_gpasm_itself(self):
        told = self.gpasm("assemble", "a b/one.asm")
        ours = {suffix: (self.folder / f"a b/one.{suffix}").read_bytes()
                for suffix in ("hex", "lst", "cod")}
        messages = subprocess.run(["gpasm", "-L", "one.asm"], cwd=self.folder / "a b",
                                  capture_output=True, text=True).stdout
        theirs = {suffix: (self.folder / f"a b/one.{suffix}").read_bytes() for suffix in ours}
        self.assertEqual(ours["hex"], theirs["hex"].replace(b"\n", b"\r\n"))

        def listing(text):
            return [line for line in text.replace(b"\r\n", b"\n").split(b"\n")
                    if b"gpasm-" not in line]  # the heading has the time

        self.assertEqual(listing(ours["lst"]), listing(theirs["lst"]))
        self.assertEqual(len(ours["cod"]), len(theirs["cod"]))
        expected = [re.sub(r"^one.asm:", "a b/one.asm:",
                           re.sub(r":Message\[(\d+)\] *(.*)$", r": note: \2 [\1]", line))
                    for line in messages.splitlines()]
        self.assertEqual(told.splitlines(), expected)
        self.assertEqual(self.cli("run", "a b/one.hex", "-n", 9, "-t", "-", "-q", "-m", "PIC16F84"),
                         self.cli("run", "a b/one.asm", "-n", 9, "-t", "-", "-q", "--assembler",
                                  "gpasm", "-m", "PIC16F84", errors="\n".join(expected)))

    def test_errors_leave_the_listing_alone(self):
        self.gpasm("build", "a b/one.asm", "-m", "16f84")
        self.write("a b/one.asm", ONE_FILE.replace("clrf PORTB", "clrf NOTHING\n label nop"))
        self.write("a b/tail.inc", "tail    frobnicate\n")
        told = self.gpasm("build", "a b/one.asm", status=REFUSED)
        self.assertIn('a b/one.asm:9: error: Symbol not previously defined: "NOTHING" [113]\n', told)
        self.assertIn("\ntail.inc:1: error: ", told)
        self.assertEqual(self.beside(), ["one.asm", "one.lst", "tail.inc"])
        self.assertIn(b"Error[113]", (self.folder / "a b/one.lst").read_bytes())

    def test_a_program_that_is_no_gpasm_is_told_about(self):
        for script, message in {
                "": "gpasm could not be started as 'MISSING' (No such file or directory). Install "
                    "the package gputils (apt install gputils), or name the program in "
                    "CORVANE_GPASM.",
                "sleep 1000 & sleep 1000": "gpasm has not ended within 1 s.",
                "kill -SEGV $$": "gpasm was ended by a signal: Segmentation fault.",
                "yes": "gpasm has printed more than 16 MB.",
                "echo hello; echo :00000001FF > $3": "gpasm has left no .cod file that can be read. "
                                                     "This is no .cod file.",
                "echo; echo hello; exit 1": "gpasm has failed: hello",
                "echo hello": "gpasm has left no HEX file: hello"}.items():
            program = self.folder / "MISSING"
            if script:
                program = self.folder / "fake"
                program.write_text("#!/bin/sh\n" + script + "\n", encoding="utf-8")
                program.chmod(0o755)
            told = self.gpasm("assemble", "a b/one.asm", status=REFUSED, CORVANE_GPASM=str(program),
                              CORVANE_GPASM_TIMEOUT="1")
            self.assertEqual(told.replace(str(program), "MISSING"),
                             f"a b/one.asm: error: {message}\n", script)

    def test_the_processor_decides_about_the_model(self):
        self.write("other.asm", " list p=16f88\n nop\n end\n")
        self.assertEqual(self.gpasm("run", "other.asm", status=REFUSED),
                         "other.asm: error: There is no model for the processor '16f88'; 'models' "
                         "lists them.\n")
        self.write("big.asm", " list p=16f876\n bsf 0x0A,3\n goto 0x100\n org 0x900\n"
                   " goto 0x100\n end\n")
        self.assertEqual(self.gpasm("assemble", "big.asm"), "")
        self.cli("check", "big.hex")
        skipped = ("big.hex: warning: 1 word at 0400 and beyond does not fit PIC16F84 and was "
                   "skipped.")
        self.cli("check", "big.hex", "--no-source", status=FAILED, errors=skipped)
        self.assertIn("does not fit PIC16F84", self.gpasm("assemble", "big.asm", "-m", "16f84"))
        self.gpasm("assemble", "big.asm", "--config", "3FFF", status=WRONG_USAGE)
        self.write("later.asm", " list p=16f84a\n goto 0\n end\n")
        warning = "PIC16F84A runs as PIC16F84: a program sees no difference."
        self.assertEqual(self.gpasm("check", "later.asm"), f"later.asm: warning: {warning}\n")
        self.write("big.asm", " nop\n ifdef FAST\n error fast\n endif\n end\n")
        self.assertEqual(self.gpasm("assemble", "big.asm", "-m", "PIC16F83"), "")
        self.assertIn("big.asm:3: error: ", self.gpasm("assemble", "big.asm", "-m", "PIC16F83",
                                                       "--assembler-option=-DFAST", status=REFUSED))

    def test_two_at_once_do_not_meet_and_ctrl_c_ends_both_programs(self):
        for name, word in {"x": "nop", "y": "clrw"}.items():
            self.write(f"{name}.asm", f" list p=16f84\n fill ({word}), 0x100\n end\n")
        environment = {**os.environ, "TMPDIR": str(self.temporary)}
        command = [CLI, "assemble", "--assembler", "gpasm"]
        for _ in range(5):
            running = [subprocess.Popen([*command, name + ".asm"], cwd=self.folder, env=environment)
                       for name in "xy"]
            self.assertEqual([process.wait() for process in running], [DONE, DONE])
            self.assertIn("0000" * 8, self.read("x.hex"))
            self.assertIn("0301" * 8, self.read("y.hex"))
        fake = self.folder / "fake"
        fake.write_text("#!/bin/sh\necho $$ > started\nexec sleep 1000\n", encoding="utf-8")
        fake.chmod(0o755)
        process = subprocess.Popen([*command, "x.asm"], cwd=self.folder,
                                   env={**environment, "CORVANE_GPASM": str(fake)})
        started = self.folder / "started"
        while not (started.exists() and started.read_text()):
            os.sched_yield()
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(), INTERRUPTED)
        with self.assertRaises(ProcessLookupError):
            os.kill(int(started.read_text()), 0)

    def test_our_own_assembler_says_for_whom_a_source_is(self):
        told = self.cli("assemble", "tail.asm", status=REFUSED,
                        errors="tail.asm: error: No such file or directory")
        self.assertEqual(told, "")
        for line, is_told in {" #include <p16f84.inc>": True, "LIST P=16F84": True,
                              "\tprocessor 16f84": True, " include x": True,
                              " NOP ; list": False, "LISTS: NOP": False}.items():
            self.write("own.asm", line + "\n BAD\n")
            done = subprocess.run([CLI, "check", "own.asm"], cwd=self.folder, capture_output=True,
                                  text=True)
            note = "own.asm: note: this source is written for gpasm; use --assembler gpasm.\n"
            self.assertEqual(done.stderr.endswith(note), is_told, line)


if __name__ == "__main__":
    if shutil.which("gpasm"):
        unittest.main()
