"""Drives the desktop application as a person does: on a screen of its own, with the keyboard, and
reading its windows through the accessibility bus. To be run on a session bus of its own:

    tests/end_to_end/on_own_bus tests/end_to_end/SCRIPT build/dev/bin/corvane
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

DEADLINE = 60  # seconds until something that does not happen counts as a failure
EDITABLE_ROLES = (Atspi.Role.TEXT, Atspi.Role.ENTRY, Atspi.Role.DOCUMENT_TEXT)


def wait_for(what, condition, what_is_there=lambda: ""):
    """Returns what the condition gives as soon as it is true."""
    end = time.monotonic() + DEADLINE
    while time.monotonic() < end:
        try:
            value = condition()
            if value:
                return value
        except gi.repository.GLib.GError:
            pass  # the window has gone while it was being looked at
        time.sleep(0.05)
    raise AssertionError(f"never seen: {what} {what_is_there()}")


def descendants(node):
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield from descendants(child)


def xdotool(*arguments):
    return subprocess.run(["xdotool", *arguments], check=False, text=True, stderr=subprocess.DEVNULL,
                          stdout=subprocess.PIPE).stdout.strip()


class Screen:
    """A screen of its own with a window manager, and a home for settings. All of it lasts as long as
    the object."""

    def __init__(self, size="1400x1000", variables=()):
        self.size = size
        self.variables = dict(variables)
        self.processes = []

    def __enter__(self):
        self.home = tempfile.TemporaryDirectory(prefix="corvane-")
        self.folder = pathlib.Path(self.home.name) / "programs"
        self.folder.mkdir()
        try:
            self._begin()
        except BaseException:
            self.__exit__()
            raise
        return self

    def _begin(self):
        runtime = pathlib.Path(self.home.name) / "runtime"
        runtime.mkdir(mode=0o700)
        self._start_screen()
        self.environment = {
            **os.environ, "HOME": self.home.name, "XDG_CONFIG_HOME": self.home.name,
            "XDG_DATA_HOME": str(pathlib.Path(self.home.name) / "data"),
            "XDG_RUNTIME_DIR": str(runtime), "QT_QPA_PLATFORM": "xcb",
            "QT_QPA_PLATFORMTHEME": "generic", "LC_ALL": "C.UTF-8", **self.variables}
        # A window that is mapped while the window manager is still starting may never be seen by it.
        ready = runtime / "window-manager-is-ready"
        self.start(["openbox", "--startup", f"touch {ready}"])
        wait_for("the window manager", ready.exists)

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        self.home.cleanup()

    def _start_screen(self):
        reader, writer = os.pipe()
        self.processes.append(subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", self.size + "x24",
             "-noreset",  # or the screen begins anew whenever its last client goes
             "-r"],  # no key repeats by itself while the machine is too busy to let it go
            pass_fds=[writer], stderr=subprocess.DEVNULL))
        os.close(writer)
        with os.fdopen(reader) as numbers:
            os.environ["DISPLAY"] = ":" + numbers.readline().strip()

    def start(self, command):
        process = subprocess.Popen(command, env=self.environment, stderr=subprocess.DEVNULL)
        self.processes.append(process)
        return process


class Desktop(Screen):
    """The application, running on a screen of its own."""

    def __init__(self, executable, arguments=(), size="1400x1000", variables=()):
        super().__init__(size, {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", **dict(variables)})
        self.executable = executable
        self.arguments = arguments

    def _begin(self):
        super()._begin()
        self.restart()

    def restart(self):
        """Starts the application, again after it has ended."""
        self.application = self.start([self.executable, *self.arguments])
        self.window("Corvane")

    # Looking.

    def windows(self):
        bus = Atspi.get_desktop(0)
        for i in range(bus.get_child_count()):
            application = bus.get_child_at_index(i)
            if application is not None and application.get_process_id() == self.application.pid:
                for j in range(application.get_child_count()):
                    window = application.get_child_at_index(j)
                    if window is not None:  # it may have gone meanwhile
                        yield window

    def window(self, title):
        return wait_for(f"window {title}", lambda: next(
            (w for w in self.windows() if w.get_name() == title), None))

    def texts(self):
        """Every text that can be seen, with the windows' titles."""
        found = []
        for window in self.windows():
            for node in descendants(window):
                found.append(node.get_name())
                if node.get_role() in EDITABLE_ROLES:
                    found.append(Atspi.Text.get_text(node, 0, -1))
        return found

    def wait_for_text(self, text):
        wait_for(text, lambda: any(text in (seen or "") for seen in self.texts()), self.report)

    def wait_until_gone(self, text):
        wait_for(f"{text} gone", lambda: not any(text in (seen or "") for seen in self.texts()),
                 self.report)

    def report(self):
        """What stands on the screen, for the message about what does not."""
        names = [window.get_name() for window in self.windows()]
        return f"among the windows {names} with the texts {sorted({t for t in self.texts() if t})}"

    def find(self, matches):
        for window in self.windows():
            for node in descendants(window):
                if matches(node):
                    return node
        return None

    def wait_for_name(self, name):
        return wait_for(name, lambda: self.find(lambda node: node.get_name() == name))

    def wait_for_value(self, description, value):
        """The value that is described so shows this text, sooner or later."""
        wait_for(f"{description} is {value}", lambda: self.find(
            lambda node: node.get_description() == description and node.get_name() == value))

    def text_of_box(self, beginning):
        return wait_for(beginning, lambda: self.find(
            lambda node: (node.get_name() or "").startswith(beginning))).get_name()

    def settings(self):
        return pathlib.Path(self.home.name) / "Corvane" / "Corvane.ini"

    def exit_status(self):
        return self.application.wait(timeout=DEADLINE)

    # Doing.

    def click(self, window, name):
        """Clicks or toggles what bears this name in the window."""
        self.window(window)
        node = self.wait_for_name(name)
        Atspi.Action.do_action(node, 0)

    def activate(self, title):
        self.window(title)

        def is_active():
            xdotool("search", "--onlyvisible", "--name", f"^{title}$", "windowactivate", "%@")
            return xdotool("getactivewindow", "getwindowname") == title
        wait_for(f"active window {title}", is_active)

    def press(self, *keys):
        xdotool("key", "--delay", "30", *keys)

    def type(self, text):
        for i, line in enumerate(text.split("\n")):
            if i > 0:
                self.press("Return")
            if line:
                xdotool("type", "--delay", "10", line)

    def point_at(self, word, told):
        """Rests the pointer on the first letter of a word in a text until this is told of it."""
        def is_told():
            text = self.find(lambda node: node.get_role() in EDITABLE_ROLES and
                             word in Atspi.Text.get_text(node, 0, -1))
            before = Atspi.Text.get_text(text, 0, -1).partition(word)[0]
            letter = Atspi.Text.get_character_extents(text, len(before), Atspi.CoordType.SCREEN)
            # The toolkit tells of each line of a plain text that it is the first.
            middle = letter.y + letter.height * before.count("\n") + 3 * letter.height // 4
            xdotool("mousemove", str(letter.x + 1), str(middle))
            xdotool("mousemove", str(letter.x + letter.width // 2), str(middle))
            end = time.monotonic() + 5
            while time.monotonic() < end:
                if self.find(lambda node: node.get_role() == Atspi.Role.TOOL_TIP and
                             node.get_name() == told):
                    return True
                time.sleep(0.1)
            return False
        wait_for(f"{told} at {word}", is_told, self.report)

    def answer(self, message, key="Return"):
        """Reads a message box and closes it."""
        self.wait_for_text(message)
        self.press(key)
        self.wait_until_gone(message)

    def enter(self, text):
        """Types into the field that has the keyboard. A dialog that has just come up may lose the
        first keys, which a person sees and types again."""
        for _ in range(3):
            self.press("ctrl+a")
            self.type(text)
            end = time.monotonic() + 5
            while time.monotonic() < end:
                if text in self.texts():
                    return
                time.sleep(0.05)

    def choose_file(self, title, path):
        self.wait_for_text(title)
        self.enter(str(path))
        self.press("Return")
        self.wait_until_gone(title)


def main(script):
    script(sys.argv[1])
    print("1 passed, 0 failed")
