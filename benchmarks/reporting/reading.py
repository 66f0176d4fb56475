"""Sections about reading and dating logs."""

import subprocess

from . import samples
from .measure import file_size
from .tables import milliseconds, number, times

record_size = 128  # bytes of a sample in memory


def against_yardsticks(bench, report):
    report.section(
        "Reading and dating logs",
        """
Texts in memory, read by one thread. The yardstick of the reader is the shortest program that fills the same records: it
knows one order of columns, one form of line ends, numbers and dates, and checks nothing. The yardstick of dating a
folder is `cat` to `/dev/null` over the same files.
""",
    )
    figures = bench.run("logs_benchmark", "^BM_ReadLog")
    rows = []
    for count, size in ((13_800, "1.5 MB"), (1_400_000, "150 MB")):
        ours = figures[f"BM_ReadLog/{count}"].time
        plain = figures[f"BM_ReadLogPlainly/{count}"].time
        speed = number(count / ours / 1000, "million rows/s")
        title = f"read {count:,} rows ({size})"
        rows.append([title, milliseconds(ours), milliseconds(plain), times(ours / plain), speed])
    folders = bench.run("logs_benchmark", "^BM_(Probe|Cat)Files", least_time=0.01)
    ours, cat = (folders[f"BM_{name}Files/real_time"].time for name in ("Probe", "Cat"))
    speed = number(500 / ours * 1000, "logs/s")
    report.headlines.append(
        f"Reads a long jump of 13,800 samples in {milliseconds(figures['BM_ReadLog/13800'].time)}, and dates "
        f"{number(500 / ours * 1000)} such logs a second, so that years of jumps are listed at once."
    )
    rows.append(["date 500 logs of 1.6 MB", milliseconds(ours), milliseconds(cat), times(ours / cat), speed])
    report.table(["", "Ospra", "yardstick", "ratio", "speed"], rows)

    report.text("Dating one log of 1.6 MB, by where the exit is; without an exit the whole log is searched.")
    probe = bench.run("logs_benchmark", "^BM_ProbeLog")
    rows = [
        [f"version {version}, {place}", milliseconds(probe[f"BM_ProbeLog/version:{version}/exit%:{part}"].time)]
        for version in (1, 2)
        for part, place in ((60, "exit after 60 % of the rows"), (200, "no exit"))
    ]
    report.table(["", "Ospra"], rows)


def against_programs(bench, report):
    report.section(
        "Beside other programs",
        """
The same files through whole programs, start-up included, files in the page cache, output to `/dev/null`, all in turns.
`wc -l` counts lines, `rg` counts the lines that begin with a date, `mawk` counts the rows that sink faster than 20 m/s.
None of them does the work of Ospra: they show what it costs to touch the bytes at all. Ospra reads with one thread.
""",
    )
    sizes = (1_380, samples.jump_rows, 138_000, samples.most_rows)
    rows = []
    for count in sizes[:2] if bench.is_quick else sizes:
        log = samples.make_log(bench, count)
        name = f"{count:,} rows, {number(file_size(log), 'MiB')}"
        rows.append([name, *_in_turns(bench, ["read", "date"], log, [log])])
    logs = samples.make_logs(bench, "programs", 100 if bench.is_quick else 250, samples.jump_rows)
    files = sorted(logs.glob("*.CSV"))
    size = sum(file_size(file) for file in files)
    rows.append([f"{len(files):,} logs, {number(size, 'MiB')}", "", *_in_turns(bench, ["scan"], logs, files)])
    report.table(["", "Ospra, read", "Ospra, date", "`cat`", "`wc -l`", "`rg`", "`mawk`"], rows)


def _in_turns(bench, works, path, files):
    program = bench.program("logs-program")
    commands = {work: [program, work, path] for work in works}
    commands["cat"] = ["cat", *files]
    commands["wc"] = ["wc", "-l", *files]
    commands["rg"] = ["rg", "--no-config", "-c", "^20[0-9]{2}-", *files]
    commands["mawk"] = ["mawk", "-F,", "$7 > 20 { ++count } END { print count }", *files]
    taken = bench.time_in_turns(commands)
    return [milliseconds(value) for value in taken.values()]


def growth_with_rows(bench, report):
    report.section(
        "Growth with the rows of a log",
        """
One log, read by a program that does nothing else, start-up included; `cat` reads the same file. The memory is the peak
of the process. It is to hold the text and the samples of 128 bytes, 5 % and 16 MiB on top, and no more. The rows of the
longest log are those of the one before it, ten times over.
""",
    )
    sizes = (samples.jump_rows, 138_000, samples.most_rows, 10 * samples.most_rows)
    rows = []
    for count in sizes[:2] if bench.is_quick else sizes:
        log = samples.make_log(bench, count)
        read = [bench.program("logs-program"), "read", log]
        taken = bench.time_in_turns({"read": read, "cat": ["cat", log]})
        found, peak = (int(word) for word in subprocess.run(read, check=True, capture_output=True).stdout.split())
        if found != count:
            raise RuntimeError(f"{found} of {count} rows were read")
        allowed = (file_size(log) + count * record_size / 2**20) * 1.05 + 16
        aim = report.at_most(f"memory of reading {count:,} rows", allowed, peak / 1024, lambda v: number(v, "MiB"))
        per_row = number(taken["read"] / count * 1e6, "ns")
        shown = [milliseconds(taken["read"]), per_row, milliseconds(taken["cat"]), number(peak / 1024, "MiB")]
        rows.append([f"{count:,}", *shown, aim])
        if count > samples.most_rows:
            log.unlink()
    report.table(["rows", "Ospra", "a row", "`cat`", "memory", "aim"], rows)


def growth_with_logs(bench, report):
    report.section(
        "Growth with the logs of a folder",
        """
A folder is searched and every log dated, by a program that does nothing else, start-up included, with the files in the
page cache; `cat` reads the same files. The logs have 1,400 rows; a folder holds many names of the same 100.
""",
    )
    source = samples.make_logs(bench, "distinct", 100, 1_400)
    rows = []
    for count in (100, 1_000) if bench.is_quick else (100, 1_000, 5_000, 20_000):
        folder = samples.link_logs(bench, source, count)
        names = sorted(path.name for path in folder.iterdir())
        scan = [bench.program("logs-program"), "scan", str(folder)]
        taken = bench.time_in_turns({"scan": scan, "cat": ["cat", *names]}, folder=folder)
        ratio = taken["scan"] / taken["cat"]
        per_log = milliseconds(taken["scan"] / count)
        rows.append([f"{count:,}", milliseconds(taken["scan"]), per_log, milliseconds(taken["cat"]), times(ratio)])
    report.table(["logs", "Ospra", "a log", "`cat`", "ratio"], rows)


def odd_files(bench, report):
    report.section(
        "Odd and damaged files",
        """
Ten million bytes of each, read and dated. No kind of file may cost many times a clean log of the same length.
""",
    )
    figures = bench.run("logs_benchmark", "OddInput", least_time=0.01)
    clean = figures["BM_ReadOddInput/0"].time
    rows = []
    for i in range(len(figures) // 2):
        read, probe = (figures[f"BM_{work}OddInput/{i}"] for work in ("Read", "Probe"))
        rows.append([read.label, milliseconds(read.time), times(read.time / clean), milliseconds(probe.time)])
    report.table(["", "read", "of a clean log", "date"], rows)
