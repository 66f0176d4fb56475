"""No room is left where settings and caches are kept: the program works, and the settings of before are still there."""

import os
import subprocess
import sys

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect

SKIPPED = 77
# Ends with the program in folders for settings and caches on a disk of their own that is filled to the last block.
FILL = """
mount -t tmpfs -o size=128k tmpfs "$HOME/small" &&
mkdir -p "$HOME/small/config" "$HOME/small/cache" && cp -a "$XDG_CONFIG_HOME/." "$HOME/small/config" || exit 9
cat /dev/zero >"$HOME/small/filler" 2>/dev/null
XDG_CONFIG_HOME=$HOME/small/config XDG_CACHE_HOME=$HOME/small/cache "$@"
status=$?
cmp "$XDG_CONFIG_HOME/Ospra/Ospra.conf" "$HOME/small/config/Ospra/Ospra.conf" >&2
exit $status
"""
OWN_MOUNTS = ["unshare", "--mount"]


def can_mount():
    """Only root may, and not even root in every container."""
    small = f"{os.environ['HOME']}/small"
    os.mkdir(small)
    return subprocess.run([*OWN_MOUNTS, "mount", "-t", "tmpfs", "tmpfs", small], check=False,
                          stderr=subprocess.DEVNULL).returncode == 0


def main():
    if not can_mount():
        print("skipped, as no disk can be mounted here")
        return SKIPPED
    folder = samples.remembered()
    with Program(tracer=[*OWN_MOUNTS, "sh", "-c", FILL, "sh"]) as program:
        sidebar.open_jump(program, "10-24-16")
        expect(program.window.find("label", "Pitch 5322 ft"), "the jump in feet")
        screen.key("ctrl+comma")
        program.root.await_node("radio-button", "Metric").click()
        program.window.await_node("label", "Pitch 1622 m")
        screen.key("Escape")
        program.root.await_gone("radio-button", "Metric")
    return 0


if __name__ == "__main__":
    sys.exit(main())
