"""The program writes its settings and its cache and nothing else, and never opens a log for writing."""

import os
import re
import subprocess
import sys

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for

SKIPPED = 77
TRACE = f"{samples.HOME}/trace"
CALLS = "open,openat,creat,truncate,rename,renameat,renameat2,link,linkat,symlink,symlinkat,unlink,unlinkat,rmdir," \
        "mkdir,mkdirat,mknod,mknodat,chmod,fchmodat,chown,lchown,fchownat,utime,utimes,utimensat,futimesat,setxattr"
OWN = tuple(os.environ[f"XDG_{name}_HOME"] for name in ("CONFIG", "CACHE"))
PATH = re.compile(r'(?:AT_FDCWD<([^>]*)>, |\d+<([^>]*)>, )?"((?:[^"\\]|\\.)*)"')


def can_trace():
    trial = subprocess.run(["strace", "-f", "-o", "/dev/null", "true"], capture_output=True, check=False)
    return trial.returncode == 0


def touched(call):
    """The paths that a call changes or tries to change: all that it names, unless it only opens something for reading,
    or makes what is there already."""
    if " = -1 EEXIST" in call:
        return []
    if re.match(r"open(at)?\(", call) and not re.search(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC", call):
        return []
    named = PATH.findall(call)
    return [os.path.normpath(os.path.join(one or other or os.getcwd(), path)) for one, other, path in named]


def is_allowed(path):
    # Devices and the process's own entries are no files.
    return path.startswith(OWN + ("/dev/", "/proc/"))


def use_everything(program):
    """Lets the program do what it does with files: scan, load, fail to load, change settings."""
    for log in ("10-24-16", "2025-07-05 10-34-12"):
        sidebar.open_jump(program, log)
    screen.key("ctrl+comma")
    settings = program.root.await_node(None, "Settings")
    program.root.await_node("radio-button", "Metric").click()
    wait_for(lambda: program.window.find(None, re.compile(r"Exit \d+ m")), "metres")
    screen.key("Escape")
    wait_for(lambda: not settings.is_shown(), "the settings to go")
    screen.key("ctrl+r")
    program.window.await_node("list-item", "01 packing list").click()
    program.window.await_node("push-button", "OK")
    screen.key("Return")


def main():
    if not can_trace():
        print("skipped, as no process may be traced here")
        sys.exit(SKIPPED)
    folder = samples.remembered()
    before = samples.fingerprints(folder)
    tracer = ["strace", "-f", "-qq", "-y", "-s", "4096", "--seccomp-bpf", "-e", f"trace={CALLS}", "-o", TRACE]
    with Program(tracer=tracer) as program:
        use_everything(program)
    with open(TRACE, encoding="utf-8", errors="replace") as lines:
        calls = [line.split(maxsplit=1)[1] for line in lines]
    logs = sum(1 for call in calls if f'{folder}/' in call and "O_RDONLY" in call)
    expect(logs >= len(samples.logs(f"{folder}/Logbook")), "the trace shows the logs being read")
    changed = {path for call in calls for path in touched(call)}
    expect(any(path.startswith(OWN[0]) for path in changed), "the trace shows the settings being written")
    expect_equal(sorted(path for path in changed if not is_allowed(path)), [], "files changed elsewhere")
    expect_equal(samples.fingerprints(folder), before, "the logs")


if __name__ == "__main__":
    main()
