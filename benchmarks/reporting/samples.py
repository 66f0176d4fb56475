"""Sample logs, made by the program's own generator."""

import os
import shutil
import subprocess

jump_rows = 13_800  # a long jump, 1.5 MB
most_rows = 1_000_000  # of one log of the generator


def make_logs(bench, name, count, rows, seed=1):
    """A folder of plain logs of so many rows. @return the folder"""
    folder = bench.work / name
    options = ["--files", str(count), "--rows", str(rows), "--seed", str(seed)]
    subprocess.run([bench.program("make-sample-jumps"), folder, *options], check=True, stdout=subprocess.DEVNULL)
    return folder


def log_of(folder):
    return folder / "jump-00001.CSV"


def make_log(bench, rows):
    """One log. The rows of one that is longer than the generator's longest are written several times.
    @return its path"""
    log = log_of(make_logs(bench, f"log-{rows}", 1, min(rows, most_rows)))
    if rows > most_rows:
        with open(log, "rb") as source:
            heads = [source.readline(), source.readline()]
            body = source.read()
        with open(log, "wb") as target:
            target.writelines(heads)
            for _ in range(rows // most_rows):
                target.write(body)
    return log


def link_logs(bench, source, count):
    """A folder of so many logs that are second names of the logs of another."""
    folder = bench.work / f"links-{count}"
    folder.mkdir()
    logs = sorted(source.glob("*.CSV"))
    for i in range(count):
        os.link(logs[i % len(logs)], folder / f"{i:05}.CSV")
    return folder


def make_career(bench):
    """A folder of 1,000 logs, and those of three companions whose only log is of the first of these jumps; the four
    logs of that jump have 25,000 samples each. @return the folders"""
    rows = 25_000
    career = make_logs(bench, "Career", 1000, jump_rows)
    shutil.copyfile(log_of(make_logs(bench, "long", 1, rows)), log_of(career))
    names = ["Ann", "Ben", "Cleo"]
    return [career] + [make_logs(bench, name, 1, rows, seed) for seed, name in enumerate(names, 2)]
