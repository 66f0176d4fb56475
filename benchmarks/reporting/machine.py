"""The machine that is measured on: what it is, and a display for the programs."""

import contextlib
import os
import platform
import re
import subprocess
from pathlib import Path


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()


def processor():
    for line in output_of("lscpu").splitlines():
        if line.startswith("Model name:"):
            return line.split(":", 1)[1].strip()
    return platform.machine()


def compiler(build):
    cache = (build / "CMakeCache.txt").read_text()
    path = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.+)$", cache, re.MULTILINE).group(1)
    name = re.sub(r"\d+$|-\d+$", "", Path(path).name)
    return f"{name} {output_of(path, '-dumpfullversion')}"


def describe(build, started):
    """Lines about the machine; nothing that tells whose it is."""
    kernel = re.match(r"[\d.]+", platform.release()).group(0)
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    load = os.getloadavg()[0]
    return [
        f"{processor()}, {os.cpu_count()} cores, {memory:.0f} GiB of memory",
        f"Linux {kernel}, {compiler(build)}, Qt {output_of('qmake6', '-query', 'QT_VERSION')}, the preset `bench`",
        f"{started:%Y-%m-%d}; the load of the machine before the run was {load:.1f}"
        + ("" if load < 0.5 else ", so **it was busy with other work and times may be too long**"),
    ]


def may_run_in_real_time():
    return subprocess.run(["chrt", "-f", "5", "true"], capture_output=True).returncode == 0


@contextlib.contextmanager
def virtual_display():
    """A display of its own on a free number, so that figures do not depend on the screen of a desktop and its rate."""
    reader, writer = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1400x900x24", "-nolisten", "tcp"],
        pass_fds=[writer],
        stderr=subprocess.DEVNULL,
    )
    os.close(writer)
    try:
        with os.fdopen(reader) as pipe:
            display = pipe.readline().strip()
        if not display:
            raise RuntimeError("Xvfb did not start")
        yield ":" + display
    finally:
        server.terminate()
        server.wait()


def environment(work, display):
    """What the programs run in: settings, cache and data of their own, and a map that asks no server."""
    runtime = work / "runtime"
    runtime.mkdir(mode=0o700)
    sources = work / "data" / "ospra" / "map-sources.json"
    sources.parent.mkdir(parents=True)
    sources.write_text('{"sources": []}\n')
    own = {
        "DISPLAY": display,
        "LC_ALL": "C.UTF-8",
        "QT_QPA_PLATFORM": "xcb",
        "TMPDIR": str(work),
        "XDG_CACHE_HOME": str(work / "cache"),
        "XDG_CONFIG_HOME": str(work / "config"),
        "XDG_DATA_HOME": str(work / "data"),
        "XDG_RUNTIME_DIR": str(runtime),
    }
    dropped = {"WAYLAND_DISPLAY", "QT_QUICK_BACKEND", "QSG_RHI_BACKEND"}
    return {name: value for name, value in os.environ.items() if name not in dropped} | own
