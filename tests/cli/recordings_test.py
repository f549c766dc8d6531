"""What a run records: waveform, coverage and profile agree with its trace, and the tools that people
use on such files read them."""

import pathlib
import re
import shutil
import subprocess
import unittest
import xml.etree.ElementTree

from cli_case import CLI, FAILED, SOURCE, CliCase

EXAMPLES = {"timer0_interrupt": ["-n", 300], "deep_calls": [], "table_lookup": [],
            "indirect_addressing": [], "port_change_interrupt": ["-n", 150]}


def waveform_of(text):
    """The times and the values of the signals from then on."""
    names = {code: name for name, code in
             ((m[2], m[1]) for m in re.finditer(r"\$var wire \d+ (\S+) (\S+)", text))}
    values, times = {}, []
    for line in text.splitlines():
        if line.startswith("#"):
            times.append((int(line[1:]), {}))
        elif times and (m := re.fullmatch(r"(?:b([01]+) |([01]))(\S+)", line)):
            values[names[m[3]]] = int(m[1] or m[2], 2)
        if times:
            times[-1][1].update(values)
    return times


class Recordings(CliCase):
    def tool(self, *arguments):
        done = subprocess.run(arguments, cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True)
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout

    def record(self, name):
        program = shutil.copy(SOURCE / f"examples/{name}", self.folder).rsplit("/", 1)[-1]
        stimulus = (SOURCE / f"examples/{name}").with_suffix(".stim")
        events = ["-s", stimulus] if stimulus.exists() else []
        self.cli("run", program, *events, *EXAMPLES.get(name[:-4], ["-n", 3000]), "-q", "-t", "t",
                 "--source", "--vcd", "w.vcd", "--signals", "W,PC,STATUS.Z,PORTB,RB0", "--coverage", "c.info",
                 "--profile", "p.out", "--state", "s.json")
        return [re.fullmatch(r"\d+ (\w+) (\w+) (\w+) (\d+) (.*?)(?: ; (\S+):(\d+))?", line).groups()
                for line in self.read("t").splitlines()]

    def test_recordings_agree_with_the_trace(self):
        for name in EXAMPLES:
            with self.subTest(name):
                trace = self.record(f"{name}.asm")
                cycles = (int(trace[-1][3]) - 4) // 4
                self.assertIn(f"\ntotals: {cycles}\n", self.read("p.out"))
                executed = [int(line) for *_, line in trace if line]
                self.assertEqual(len(executed), sum(t[4] != "INTERRUPT!" for t in trace))
                counts = dict(re.findall(r"^DA:(\d+),(\d+)$", self.read("c.info"), re.M))
                for line in counts:
                    self.assertEqual(int(counts[line]), executed.count(int(line)), line)
                moments = waveform_of(self.read("w.vcd"))
                self.assertEqual(moments[-1][0], int(trace[-1][3]) * 250_000)
                for pc, w, status, clocks, *_ in trace:
                    shown = [v for time, v in moments if time <= int(clocks) * 250_000][-1]
                    self.assertEqual((shown["PC"], shown["W"], shown["STATUS.Z"]),
                                     (int(pc, 16), int(w, 16), int(status, 16) >> 2 & 1), clocks)

    def test_branches_and_calls(self):
        self.write("a.asm", "N EQU 0x0C\n MOVLW 3\n MOVWF N\nL CALL S\n DECFSZ N,F\n GOTO L\n"
                            " SLEEP\n BTFSS N,0\nS RETURN\n")
        self.cli("run", "a.asm", "-q", "--coverage", "c.info", "--profile", "p.out")
        self.assertEqual(re.findall("BR.*", self.read("c.info")),
                         ["BRDA:5,0,0,2", "BRDA:5,0,1,1", "BRDA:8,0,0,-", "BRDA:8,0,1,-", "BRF:4",
                          "BRH:2"])
        self.assertIn("fn=(main)\n2 1\n3 1\n4 6\n5 4\n6 4\n7 1\ncfl=a.asm\ncfn=S\ncalls=3 9\n4 6\n"
                      "\nfl=a.asm\nfn=S\n9 6\n\ntotals: 23\n", self.read("p.out"))

    def test_the_tools_read_them(self):
        for name in "timer0_interrupt.asm", "deep_calls.asm", "square_root_table.bas":
            self.record(name)
            self.tool("vcd2fst", "w.vcd", "w.fst")
            self.assertEqual(dict(waveform_of(self.tool("fst2vcd", "w.fst"))),
                             dict(waveform_of(self.read("w.vcd"))))
            bits = self.tool("sigrok-cli", "-i", "w.vcd", "-I", "vcd:downsample=1000000", "-O", "bits")
            self.assertIn("RB0:", bits)
            self.tool("genhtml", "--branch-coverage", "--quiet", "-o", "html", "c.info")
            self.assertIn(name, (self.folder / "html/index.html").read_text() + "".join(
                path.name for path in (self.folder / "html").rglob("*.html")))
            annotated = self.tool("callgrind_annotate", "p.out")
            self.assertRegex(annotated, r"\(100\.0%\)  PROGRAM TOTALS")
            self.assertRegex(annotated, rf"{name}:\(main\)")

    def test_the_tools_read_what_is_told_of_tests(self):
        self.write("a.asm", "N EQU 0x0C\n BSF STATUS,RP0\n CLRF TRISB\n BCF STATUS,RP0\nL: INCF PORTB,F\n GOTO L\n")
        self.write("a.test", 'program a.asm\ntest "<good> & \'quick\'"\n within 20 us PORTB == 2\n'
                             'test "bad: #1"\n for 50 us PORTB < 3\n')
        self.cli("test", "a.test", "--junit", "r.xml", "--vcd-on-failure", "v", "--coverage", "c.info",
                 status=FAILED)
        self.tool("xmllint", "--noout", "--relaxng", pathlib.Path(__file__).parent / "junit.rng", "r.xml")
        suite = xml.etree.ElementTree.parse(self.folder / "r.xml").find("testsuite")
        self.assertEqual((suite.get("tests"), suite.get("failures"), suite[0].get("name")),
                         ("2", "1", "<good> & 'quick'"))
        self.assertIn("is 0, after 8 steps", suite[1].find("failure").get("message"))
        [waveform] = (self.folder / "v").iterdir()
        self.tool("vcd2fst", waveform, "w.fst")
        self.assertEqual(waveform_of(self.tool("fst2vcd", "w.fst"))[-1][1]["RB0"], 1)
        self.tool("genhtml", "--quiet", "-o", "html", "c.info")
        self.write("r.tap", self.cli("test", "a.test", "--tap", status=FAILED))
        told = self.tool("perl", "-MTAP::Parser", "-e", "my $p = TAP::Parser->new({source => 'r.tap'}); "
                         "$p->run; print join ' ', $p->version, $p->passed, 'of', $p->tests_planned, "
                         "$p->parse_errors")
        self.assertEqual(told, "13 1 of 2")

    def test_a_failure_names_the_way_to_it_in_the_debugger(self):
        self.write("my a.asm", "COUNT EQU 0x0C\nL INCF COUNT,F\n BTFSC PORTA,1\n INCF COUNT,F\n GOTO L\n")
        self.write("a.test", 'program my a.asm\nclock 8 MHz\ntest "pins on the way"\n set RA0 1\n wait 20 us\n'
                             ' press RA1 for 5 us\n wait 20 us\n expect COUNT == 200\n')
        told = self.cli("test", "a.test", status=FAILED)
        count = re.search(r"COUNT = (\d+)", told)[1]
        way = re.search(r"^ +(\(.*)", told, re.MULTILINE)[1]
        self.assertIn("echo set RA1 1; echo goto ", way)
        command = way.replace("cat)", "echo print COUNT)").replace("corvane-cli", CLI)
        self.assertIn(f"\n{count} 0x", self.tool("sh", "-c", command))


if __name__ == "__main__":
    unittest.main()
