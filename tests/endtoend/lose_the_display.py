"""The display goes away under the running program, as when a session breaks down."""

import os
import time

from driver import samples, sidebar
from driver.display import start_display
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for

LIMIT = 10.0  # s, on a busy machine


def main():
    samples.remembered()
    settings = samples.fingerprints(os.environ["XDG_CONFIG_HOME"])
    server = start_display(os.environ)  # beside that of the stories, so that it can be ended
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
