"""The running program."""

import os
import signal
import subprocess
import sys
import tempfile

from driver import nodes, screen
from driver.waiting import PATIENCE, StoryFailed, expect_equal, wait_for

BIN = os.environ["OSPRA_BIN"]


class Program:
    """The program from its start to its end. Used with `with`, it is quit at the end, which it must do without a word
    of complaint; and it is gone afterwards whatever happens."""

    def __init__(self, *arguments, tracer=()):
        self._complaints = tempfile.TemporaryFile("w+", encoding="utf-8")
        self._process = subprocess.Popen([*tracer, f"{BIN}/ospra", *arguments], stderr=self._complaints)
        self._is_traced = bool(tracer)
        self.root = None

    def __enter__(self):
        try:
            self.root = nodes.application(self._program_id())
            self.window = self.root.await_node("frame", "Ospra")
        except BaseException:
            self._kill()
            raise
        return self

    def __exit__(self, kind, error, trace):
        try:
            if error is None and self.is_running():
                screen.key("ctrl+q")
                self.expect_end()
        finally:
            if self.is_running():
                leave_traces(self.root)
            self._kill()

    def _program_id(self):
        """Of the program itself, where another one, such as a tracer, has started it."""
        if not self._is_traced:
            return self._process.pid
        children = f"/proc/{self._process.pid}/task/{self._process.pid}/children"

        def program():
            with open(children, encoding="ascii") as file:
                return next((child for child in file.read().split() if runs_program(child)), None)

        return int(wait_for(program, "the traced program"))

    def _kill(self):
        if self.is_running():
            self._process.kill()
        self._process.wait()

    def is_running(self):
        return self._process.poll() is None

    def terminate(self):
        self._process.send_signal(signal.SIGTERM)

    @property
    def process_id(self):
        return self._process.pid

    def complaints(self):
        """What it has said so far."""
        self._complaints.seek(0)
        return self._complaints.read()

    def await_end(self, seconds=PATIENCE):
        """It ends by itself. Gives its code and its complaints."""
        try:
            self._process.wait(seconds)
        except subprocess.TimeoutExpired as error:
            raise StoryFailed("the program does not end") from error
        return self._process.returncode, self.complaints()

    def expect_end(self):
        """It ends by itself, with the code of success and without a word of complaint."""
        expect_equal(self.await_end(), (0, ""), "exit code and complaints")


def runs_program(process_id):
    """Whether a process is the program; a tracer has short-lived ones of its own too."""
    try:
        return os.path.samefile(f"/proc/{process_id}/exe", f"{BIN}/ospra")
    except OSError:
        return False


def leave_traces(root):
    """Leaves what there is to see for whoever looks into the failure."""
    folder = os.environ["OSPRA_PICTURES"]
    os.makedirs(folder, exist_ok=True)
    name = os.path.splitext(os.path.basename(sys.argv[0]))[0]
    screen.save(f"{folder}/{name}.png")
    with open(f"{folder}/{name}.txt", "w", encoding="utf-8") as file:
        file.write(root.tree() + "\n")
    print(f"see {folder}/{name}.png and {name}.txt")
