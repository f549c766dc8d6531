"""What the tests of the command line share: a folder of their own and ways to run corvane-cli."""

import json
import os
import pathlib
import subprocess
import tempfile
import unittest

CLI = os.environ["CORVANE_CLI"]
SOURCE = pathlib.Path(os.environ["CORVANE_SOURCE"])
DONE, REFUSED, WRONG_USAGE, PROGRAM_FAULT, INTERRUPTED, FAILED = range(6)


class CliCase(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, name, content):
        data = content if isinstance(content, bytes) else content.encode()
        (self.folder / name).write_bytes(data)
        return name

    def read(self, name):
        return (self.folder / name).read_bytes().decode()

    def files(self):
        return sorted(path.name for path in self.folder.iterdir())

    def cli(self, *arguments, status=DONE, errors="", **options):
        """Runs a command in the folder; returns standard output. Standard error must be exactly the
        errors, lines without the last line end."""
        done = subprocess.run([CLI, *map(str, arguments)], cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, **options)
        told = done.stderr.decode(errors="replace")
        self.assertEqual(told, errors + "\n" if errors else "", arguments)
        self.assertEqual(done.returncode, status, arguments)
        return done.stdout.decode()

    def state(self, *arguments, **options):
        """The final state of a quiet run."""
        return json.loads(self.cli("run", *arguments, "-q", "--state", "-", **options))


def register(state, address):
    return int(state["dataMemory"][2 * address:2 * address + 2], 16)


def hex_record(kind, address, data=""):
    body = f"{len(data) // 2:02X}{address:04X}{kind:02X}{data}"
    return f":{body}{-sum(bytes.fromhex(body)) & 0xFF:02X}\n"
