"""Runs each sessions/*.txt as it stands there: files, commands of corvane-cli, and what they print.

--- NAME        begins a file, which ends at the next line that begins with --- or $; a "\\" at the end
                of a line joins it to the next one, \\r, \\0 and \\xFF are bytes
$ ARGUMENTS     runs corvane-cli, with "< FILE" last its input; $ ls and $ cat FILE show the folder
                Below it stand standard output, then standard error with "! " before each line, then
                the exit status in brackets unless it is 0. Where the output ends lines with CR LF,
                "$ cat" says so: "(CR LF)".
"""

import pathlib
import shlex
import subprocess
import unittest

from cli_case import CLI, CliCase

FOLDER = pathlib.Path(__file__).parent / "sessions"


class Sessions(CliCase):
    def command(self, line):
        arguments = shlex.split(line)
        if arguments == ["ls"]:
            return "".join(name + "\n" for name in self.files())
        if arguments[0] == "cat":
            text = self.read(arguments[1])
            is_crlf = text.count("\n") == text.count("\r\n") > 0
            return text.replace("\r\n", "\n") + ("(CR LF)\n" if is_crlf else "")
        given = b""
        if "<" in arguments:
            given = (self.folder / arguments.pop()).read_bytes()
            arguments.pop()
        done = subprocess.run([CLI, *arguments], cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, input=given)
        errors = done.stderr.decode(errors="replace").splitlines(keepends=True)
        return (done.stdout.decode(errors="replace") + "".join("! " + line for line in errors)
                + (f"[{done.returncode}]\n" if done.returncode else ""))

    def put(self, name, lines):
        text = "\n".join(lines + [""]) if lines else ""
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.encode("latin-1").decode("unicode_escape").encode("latin-1"))

    def parts(self, text):
        """Each file or command with the lines below it."""
        heading, lines = None, []
        for line in text.splitlines():
            if line.startswith(("--- ", "$ ")):
                yield heading, lines
                heading, lines = line, []
            elif heading and not line.startswith("# "):
                lines.append(line)
        yield heading, lines

    def play(self, session):
        for heading, lines in self.parts(session.read_text(encoding="utf-8")):
            while lines and not lines[-1]:
                lines.pop()
            if heading and heading.startswith("--- "):
                self.put(heading[4:], lines)
            elif heading:
                self.assertEqual(self.command(heading[2:]).rstrip("\n"), "\n".join(lines),
                                 f"{session.name}: {heading}")

    def setUp(self):
        super().setUp()
        self.top = self.folder

    def test_each_session_prints_what_it_says(self):
        sessions = sorted(FOLDER.glob("*.txt"))
        self.assertGreater(len(sessions), 3)
        for session in sessions:
            with self.subTest(session.name):
                self.folder = self.top / session.stem
                self.folder.mkdir()
                self.play(session)


if __name__ == "__main__":
    unittest.main()
