"""A small disk of a test's own. Needs root."""

import subprocess


def mount(folder, *options):
    subprocess.run(["mount", *options, str(folder)], check=True)


def fill(folder):
    with open(folder / "filler", "wb", buffering=0) as filler:
        try:
            while True:
                filler.write(b"x" * 4096)
        except OSError:
            pass
