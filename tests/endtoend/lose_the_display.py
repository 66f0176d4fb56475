"""The display goes away under the running program, as when a session breaks down."""

import os
import subprocess
import time

from driver import samples, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for

LIMIT = 10.0  # s, on a busy machine


def start_display():
    """One beside that of the stories, so that it can be ended. Gives the server and the name of the display."""
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1400x900x24", "-nolisten", "tcp", "-noreset"],
        pass_fds=[writing], stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as numbers:
        return server, ":" + numbers.readline().strip()


def main():
    folder = samples.make()
    samples.remember(f"{folder}/Logbook", *samples.companions(folder))
    settings = samples.fingerprints(os.environ["XDG_CONFIG_HOME"])
    server, os.environ["DISPLAY"] = start_display()
    with Program() as program:
        wait_for(lambda: "Overview" in sidebar.rows(program), "the list of jumps")
        begin = time.monotonic()
        server.kill()
        server.wait()
        code, complaints = program.await_end()
        expect(time.monotonic() - begin < LIMIT, f"the end within {LIMIT:.0f} s")
        expect_equal(code, 1, "exit code, which is no crash")
        expect(complaints, "a word about it, of the toolkit or of the driver, whichever notices first")
    expect_equal(samples.fingerprints(os.environ["XDG_CONFIG_HOME"]), settings, "settings")


if __name__ == "__main__":
    main()
