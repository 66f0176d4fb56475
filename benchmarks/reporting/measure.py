"""Figures from the benchmark programs and from whole programs, each the median of several rounds."""

import json
import os
import statistics
import subprocess
import time
from collections import defaultdict
from dataclasses import dataclass, field
from pathlib import Path

milliseconds_of = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


@dataclass
class Figure:
    """Medians of one benchmark: its time in milliseconds, and its counters; and what it says of itself."""

    time: float
    label: str = ""
    counters: dict = field(default_factory=dict)


@dataclass
class Bench:
    """What is measured with."""

    programs: Path  # the folder of the build's programs
    work: Path  # a folder for whatever is written
    environment: dict
    rounds: int
    is_quick: bool = False
    prefix: tuple = ()  # put before the commands of benchmarks

    def program(self, name):
        return str(self.programs / name)

    def run(self, name, wanted, rounds=None, least_time=0.1, arguments=()):
        """Runs benchmarks of one program, its rounds in mixed order. @return figures by name"""
        result = self.work / "result.json"
        command = [
            *self.prefix,
            self.program(name),
            f"--benchmark_filter={wanted}",
            f"--benchmark_repetitions={rounds or self.rounds}",
            "--benchmark_enable_random_interleaving=true",
            f"--benchmark_min_time={least_time}",
            f"--benchmark_out={result}",
            "--benchmark_out_format=json",
            *arguments,
        ]
        subprocess.run(command, check=True, env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return medians(json.loads(result.read_text())["benchmarks"])

    def time_in_turns(self, commands, rounds=None, folder=None):
        """Times whole programs, start-up included, in turns. The first turn, which fills the caches, does not count.
        @param commands by name, each a list of words
        @return the median of each in milliseconds"""
        taken = defaultdict(list)
        for turn in range((rounds or self.rounds) + 1):
            for name, command in commands.items():
                milliseconds = time_program(command, folder)
                if turn > 0:
                    taken[name].append(milliseconds)
        return {name: statistics.median(values) for name, values in taken.items()}


def medians(entries):
    known = {"iterations", "real_time", "cpu_time", "repetitions", "repetition_index", "family_index"}
    known |= {"per_family_instance_index", "threads"}
    taken = defaultdict(list)
    for entry in entries:
        if entry.get("error_occurred"):
            raise RuntimeError(f"{entry['run_name']}: {entry['error_message']}")
        if entry["run_type"] == "iteration":
            taken[entry["run_name"]].append(entry)
    figures = {}
    for name, rounds in taken.items():
        unit = milliseconds_of[rounds[0]["time_unit"]]
        counters = [key for key, value in rounds[0].items() if key not in known and isinstance(value, (int, float))]
        figures[name] = Figure(
            statistics.median(entry["real_time"] for entry in rounds) * unit,
            rounds[0].get("label", ""),
            {key: statistics.median(entry[key] for entry in rounds) for key in counters},
        )
    return figures


def time_program(command, folder=None):
    start = time.perf_counter()
    subprocess.run(command, check=True, cwd=folder, stdout=subprocess.DEVNULL)
    return (time.perf_counter() - start) * 1e3


def proportional_memory(process_id):
    """The memory of a process in MiB, what it shares with others divided among them."""
    for line in Path(f"/proc/{process_id}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError("the kernel tells no proportional memory")


def memory_of_window(command, environment, announces):
    """Starts a program with a window, waits until it rests, and asks for its memory.
    @param announces whether it says with a line when it is ready
    @return the memory in MiB and that line"""
    seconds_to_rest = 2.0
    process = subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    try:
        line = process.stdout.readline().strip() if announces else ""
        time.sleep(seconds_to_rest)
        if process.poll() is not None:
            raise RuntimeError(f"{Path(command[0]).name} ended too early")
        return proportional_memory(process.pid), line
    finally:
        process.terminate()
        process.wait()


def file_size(path):
    return os.stat(path).st_size / 2**20
