"""A display of its own."""

import os
import subprocess


def start_display(environment):
    """The server picks a free number itself, and tells it to the environment once it takes connections."""
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1400x900x24", "-nolisten", "tcp", "-noreset"],
        pass_fds=[writing], env=environment, stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as numbers:
        environment["DISPLAY"] = ":" + numbers.readline().strip()
    return server
