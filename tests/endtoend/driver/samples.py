"""Sample jumps, and folders that the program remembers from an earlier run."""

import csv
import hashlib
import os
import subprocess

HOME = os.environ["HOME"]
BIN = os.environ["OSPRA_BIN"]


def make(*options):
    """Makes sample jumps and gives their folder, in which each jumper has one: "Logbook" and those of companions."""
    folder = f"{HOME}/samples"
    subprocess.run([f"{BIN}/make-sample-jumps", folder, *(options or ["--small"])], check=True)
    return folder


def companions(folder):
    """The folders of the companions, in the order of their names."""
    names = sorted(name for name in os.listdir(folder) if os.path.isdir(f"{folder}/{name}") and name != "Logbook")
    return [f"{folder}/{name}" for name in names]


def remember(primary, *others):
    """Makes settings in which these folders were open when the program was last closed."""
    settings = f"{os.environ['XDG_CONFIG_HOME']}/Ospra/Ospra.conf"
    os.makedirs(os.path.dirname(settings), exist_ok=True)
    subprocess.run([f"{BIN}/remember-folders", settings, primary, *others], check=True)


def remembered():
    """Makes small samples that were all open when the program was last closed, and gives their folder."""
    folder = make()
    remember(f"{folder}/Logbook", *companions(folder))
    return folder


def logs(folder):
    """The path of each log of a jumper by the name that the program gives it: that of the file, or of its folder where
    the logger has made one for each jump."""
    found = {}
    for path, _, names in os.walk(folder):
        for name in names:
            if name == "TRACK.CSV":
                found[os.path.basename(path)] = f"{path}/{name}"
            elif name != "SENSOR.CSV":
                found[os.path.splitext(name)[0]] = f"{path}/{name}"
    return found


def highest(log):
    """The greatest altitude above the sea in a log, in m."""
    with open(log, encoding="ascii") as lines:
        rows = list(csv.reader(lines))
    columns = next(row for row in rows if "hMSL" in row)
    if columns[0] == "$COL":
        columns = columns[1:]
        rows = [row for row in rows if row[0] == "$GNSS"]
    else:
        rows = rows[2:]
    return max(float(row[columns.index("hMSL")]) for row in rows)


def fingerprints(folder):
    """Of each file below a folder its content, times, size and rights."""
    found = {}
    for path, _, names in os.walk(folder):
        for name in names:
            file = os.path.join(path, name)
            status = os.stat(file)
            with open(file, "rb") as content:
                digest = hashlib.sha256(content.read()).hexdigest()
            found[os.path.relpath(file, folder)] = (digest, status.st_mtime_ns, status.st_size, status.st_mode)
    return found
