#!/usr/bin/python3
"""Runs the first program of README.md and compares what README.md promises with what is printed.

Usage: readme_test.py README CORVANE-CLI
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import textwrap


def blocks(text, language):
    return re.findall(rf"^```{language}\n(.*?)^```", text, flags=re.MULTILINE | re.DOTALL)


def check(console, command_line, folder):
    """Compares one console block; returns whether the command printed what follows it."""
    command, expected = console.split("\n", 1)
    arguments = command.removeprefix("$ ").split()
    result = subprocess.run([command_line, *arguments[1:]], cwd=folder, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if result.stdout == expected:
        return True
    print(f"{command}\nprints\n{result.stdout}\ninstead of\n{expected}")
    return False


def workflow_passes(workflow, command_line, source, folder):
    """Whether the workflow's commands succeed with this source, run as the build server runs them."""
    commands = textwrap.dedent(workflow.split("run: |\n")[1].split("      - if")[0])
    (pathlib.Path(folder) / "countdown.asm").write_text(source, encoding="utf-8")
    path = f"{pathlib.Path(command_line).parent}:{os.environ['PATH']}"
    return subprocess.run(["sh", "-e", "-c", commands], cwd=folder, env={**os.environ, "PATH": path},
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0


def check_workflow(workflow, command_line, source, test, folder):
    (pathlib.Path(folder) / "countdown.test").write_text(test, encoding="utf-8")
    # Sources and whether they are sound.
    sources = {
        source: True,
        source.replace("GOTO    LOOP", "GOTO    LOP"): False,       # does not assemble
        source.replace("GOTO    LOOP", "GOTO    $"): False,         # never ends
        source.replace("DECFSZ  COUNT,F", "DECFSZ  COUNT,W"): False,  # the same
        source.replace("SLEEP  ", "GOTO    0x200"): False,          # runs onto nothing
        source.replace("MOVF    COUNT,W", "COMF    COUNT,W"): False,  # shows something else
    }
    assert len(sources) == 6, "a change that changes nothing"
    good = True
    for changed, is_sound in sources.items():
        if workflow_passes(workflow, command_line, changed, folder) != is_sound:
            print(f"the workflow should {'pass' if is_sound else 'fail'} with\n{changed}")
            good = False
    return good


def main():
    readme = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    command_line = str(pathlib.Path(sys.argv[2]).resolve())
    [source] = blocks(readme, "asm")
    [workflow, gitlab] = blocks(readme, "yaml")
    [test] = blocks(readme, "text")
    assert "- corvane-cli test . --junit report.xml\n" in gitlab
    [run, mistake] = blocks(readme, "console")
    assert source.splitlines()[11].split()[:2] == ["GOTO", "LOOP"], "the mistake is in line 12"
    with tempfile.TemporaryDirectory() as folder:
        program = pathlib.Path(folder) / "countdown.asm"
        program.write_text(source, encoding="utf-8")
        good = check(run, command_line, folder)
        program.write_text(source.replace("GOTO    LOOP", "GOTO    LOP"), encoding="utf-8")
        good = check(mistake, command_line, folder) and good
        good = check_workflow(workflow, command_line, source, test, folder) and good
    return 0 if good else 1


sys.exit(main())
