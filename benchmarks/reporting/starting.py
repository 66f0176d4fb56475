"""Sections about whole programs with a window: their start and their memory."""

import re
import statistics
import subprocess
from pathlib import Path

from . import samples
from .measure import memory_of_window
from .tables import milliseconds, number, times

software = {"QT_QUICK_BACKEND": "software"}


def mebibytes(value):
    return number(value, "MiB")


def start(bench, report):
    report.section(
        "Start",
        """
From the start of the process to its first frame, beside the least that a program with a window in Qt Quick does, in
turns, files in the page cache (`benchmarks/startup`). The program opens without folders, and on a year of sample jumps.
""",
    )
    rows = []
    for backend, title in ((software, "Qt's software renderer"), ({}, "OpenGL in software")):
        taken = _start_times(bench, bench.environment | backend)
        bare = taken.pop("bare window")
        rows.append([f"bare window, {title}", milliseconds(bare), times(1), ""])
        for name, time in taken.items():
            aim = report.at_most(f"start: {name}, {title}, of a bare window", 3, time / bare, times)
            rows.append([f"{name}, {title}", milliseconds(time), times(time / bare), aim])
    report.table(["", "to the first frame", "ratio", "aim"], rows)


def _start_times(bench, environment):
    script = Path(__file__).parent.parent / "startup"
    output = subprocess.run(
        [script, str(bench.rounds), str(bench.programs)], check=True, env=environment, capture_output=True, text=True
    ).stdout
    return {name: float(time) for name, time in re.findall(r"^(\S.*?) +([\d.]+) ms", output, re.MULTILINE)}


def memory(bench, report):
    report.section(
        "Memory",
        """
The proportional set size of the process at rest, with Qt's software renderer: what it shares with other processes
counts for its part, so all figures are lower where other programs of Qt run. The career is 1,000 logs of 13,800 rows
in the list, with a jump of four tracks of 25,000 samples on screen and the charts that are on at first. The map has no
pictures here, since nothing is asked of a network.
""",
    )
    environment = bench.environment | software
    remembered = bench.work / "remembered"
    folders = samples.make_career(bench)
    settings = remembered / "Ospra" / "Ospra.conf"
    subprocess.run([bench.program("remember-folders"), settings, *folders], check=True)
    programs = {
        "bare window": ("bare-window", environment, False),
        "Ospra without folders": ("ospra", environment, False),
        "Ospra with a career": ("shown-jump", environment | {"XDG_CONFIG_HOME": str(remembered)}, True),
    }
    taken = {name: [] for name in programs}
    for _ in range(bench.rounds):
        for name, (program, variables, announces) in programs.items():
            size, line = memory_of_window([bench.program(program)], variables, announces)
            if announces and line != "shown 1000 jumps 4 tracks 25000 25000 25000 25000":
                raise RuntimeError(f"another screen was measured: {line}")
            taken[name].append(size)
    taken = {name: statistics.median(sizes) for name, sizes in taken.items()}
    rows = []
    for name, size in taken.items():
        ratio = times(size / taken["bare window"])
        aim = report.at_most("memory with a career", 150, size, mebibytes) if "career" in name else ""
        rows.append([name, mebibytes(size), ratio, aim])
    report.table(["", "memory", "ratio", "aim"], rows)
    career, bare = (mebibytes(taken[name]) for name in ("Ospra with a career", "bare window"))
    report.headlines.append(
        f"Takes {career} of memory with 1,000 jumps listed and such a jump on screen; an empty window of Qt Quick takes "
        f"{bare}."
    )
