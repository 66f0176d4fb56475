"""The section about what is computed behind the screens."""

from .tables import milliseconds, times


def computing(bench, report):
    report.section(
        "Computing",
        """
What a load and a list of jumps are made of, each on one thread, at two sizes: samples of a track, four tracks of so
many samples, or logs of each of six jumpers.
""",
    )
    figures = bench.run("analysis_benchmark", ".", least_time=0.05)
    figures |= bench.run("display_benchmark", "^BM_(ChartData|HorizontalDistances|CompanionDistances)", least_time=0.05)
    figures |= bench.run("library_benchmark", ".", least_time=0.05)
    titles = {
        "BM_DetectPhases": "phases of a jump",
        "BM_DetectPhasesAtRest": "phases of a logger that lies still",
        "BM_ComputeStatistics": "key numbers of a jump",
        "BM_MovingMedian": "moving median",
        "BM_ChartData": "all charts of four tracks",
        "BM_HorizontalDistances": "ways over ground of four tracks",
        "BM_CompanionDistances": "distances between four jumpers",
        "BM_GroupJumps": "list of the jumps of six jumpers",
        "BM_GroupUndatedJumps": "list of logs without dates",
    }
    rows = []
    for benchmark, title in titles.items():
        sizes = sorted(int(name.split("/")[1]) for name in figures if name.startswith(benchmark + "/"))
        cells = [f"{size:,}: {milliseconds(figures[f'{benchmark}/{size}'].time)}" for size in sizes]
        rows.append([title, *cells])
    report.table(["", "smaller", "larger"], rows)

    report.text("A zoom of the model beside its yardstick, copying every point that is then on show once.")
    zooms = bench.run("core_benchmark", "^BM_Zoom/")
    rows = []
    for seconds, title in ((10, "a moment"), (200, "the jump"), (9999, "the whole log")):
        rebuild, copy = (zooms[f"BM_Zoom/{work}/{seconds}"].time for work in ("rebuild", "copy"))
        rows.append([title, milliseconds(rebuild), milliseconds(copy), times(rebuild / copy)])
    report.table(["on show", "Ospra", "copy", "ratio"], rows)
