"""Programs that gpasm and gplink make: their .cod files, and gpasm itself behind --assembler."""

import shutil
import subprocess
import unittest

from cli_case import FAILED, CliCase

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
        list p=16f84a
        include "p16f84a.inc"
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


if __name__ == "__main__":
    if shutil.which("gpasm"):
        unittest.main()
