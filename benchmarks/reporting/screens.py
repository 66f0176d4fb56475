"""Sections about what is on screen: a jump, its charts, its map, the overview."""

from .tables import milliseconds, times


def loading(bench, report):
    report.section(
        "Loading a jump",
        """
Four tracks, from files in the page cache to the finished data of every chart and of the map. The background does the
work; the main thread only takes over the result.
""",
    )
    figures = bench.run("core_benchmark", "^BM_(LoadJump|FinishLoad)/")
    rows = []
    for rate in (5, 25, 45):
        load = figures[f"BM_LoadJump/{rate}"]
        finish = figures[f"BM_FinishLoad/{rate}/iterations:10"].time
        count = f"{load.counters['samples']:,.0f} samples a track"
        rows.append([count, milliseconds(load.time), milliseconds(finish)])
    report.headlines.append(f"Loads a jump of four tracks with 25,000 samples each in {milliseconds(load.time)}.")
    report.table(["", "background", "main thread"], rows)


def charts(bench, report):
    report.section(
        "Zoom and hover in the charts",
        """
The whole window with four tracks of 25,000 samples and all rows on, drawn by OpenGL in software on a virtual display. A
zoom counts from the choice to the frame in which every row is drawn anew. The yardstick of a hover is the same window
drawn again without a change; the two take turns, and processor time of the whole process is counted.
""",
    )
    zoom = bench.run("window_benchmark", "^BM_ZoomToFrame").popitem()[1].counters
    bare, beyond, main_thread = hover_beyond_bare_frame(bench)
    aim = report.at_most("zoom to frame", 20, zoom["median_ms"])
    main_aim = report.at_most("zoom, of that on the main thread", 8, zoom["main_thread_median_ms"])
    hover_aim = report.at_most("hover beyond a bare frame", 2, beyond)
    rows = [
        ["zoom to frame", milliseconds(zoom["median_ms"]), "", aim],
        ["of that on the main thread", milliseconds(zoom["main_thread_median_ms"]), "", main_aim],
        ["hover beyond the bare frame", milliseconds(beyond), milliseconds(bare), hover_aim],
        ["of that on the main thread", milliseconds(main_thread), "", ""],
    ]
    report.table(["", "Ospra", "bare frame", "aim"], rows)
    spent = milliseconds(zoom["median_ms"])
    report.headlines.append(f"Zooms into that jump with all charts on in {spent} to the frame.")


def hover_beyond_bare_frame(bench, arguments=()):
    """Medians of many pairs of frames that take turns. @return a bare frame, what a hover costs beyond it, and the main
    thread's part of that, each in milliseconds"""
    figures = bench.run("window_benchmark", "^BM_HoverBeyondBareFrame", rounds=1, arguments=arguments)
    counters = figures.popitem()[1].counters
    return tuple(counters[f"{name}_median_ms"] for name in ("bare", "beyond", "main_thread_beyond"))


def growth_with_jumpers(bench, report):
    report.section(
        "Growth with the jumpers",
        """
The same window and load for one to eight jumpers with 25,000 samples each. The frames are in processor time.
""",
    )
    loads = bench.run("core_benchmark", "^BM_LoadJumpers")
    rows = []
    for count in (1, 2, 4, 8):
        zoom = bench.run("window_benchmark", "^BM_ZoomToFrame", arguments=[str(count)]).popitem()[1].counters
        bare, beyond, _ = hover_beyond_bare_frame(bench, arguments=[str(count)])
        shown = [loads[f"BM_LoadJumpers/{count}"].time, zoom["median_ms"], zoom["main_thread_median_ms"], beyond, bare]
        rows.append([str(count), *map(milliseconds, shown)])
    report.table(["jumpers", "load", "zoom to frame", "of that main thread", "hover beyond bare frame", "bare frame"], rows)


def lines(bench, report):
    report.section(
        "Drawing lines",
        """
Six rows of four lines, 25,000 samples a line, 900 × 130 pixels a row, beside Qt's QPainter, which gets its points
already reduced to four a pixel column. Smooth lines look as flights do; noisy ones jump over the whole height at every
sample. QPainter takes so long over noisy lines that it is timed with them only once.
""",
    )
    figures = bench.run("plot_benchmark", "^drawRows|^paintRows/smooth")
    figures |= bench.run("plot_benchmark", "^paintRows/noisy", rounds=1)
    ours = {name: figures[f"drawRows/{name}"].time for name in _line_cases(figures, "drawRows")}
    painter = {name: figures[f"paintRows/{name}"].time for name in _line_cases(figures, "paintRows")}
    rows = []
    for shape, limit, title in (("smooth", 3, "smooth lines"), ("noisy", 6, "noisy lines")):
        base = ours[f"{shape}/25000/100"]
        theirs = next(time for name, time in painter.items() if name.startswith(shape))
        aims = [report.at_most(title, limit, base)]
        if shape == "smooth":
            report.headlines.append(
                f"Draws 24 lines of 25,000 samples in {milliseconds(base)}; Qt's painter takes {milliseconds(theirs)}."
            )
            aims.append(report.at_most("smooth lines, part of QPainter's time", 1 / 25, base / theirs, times))
        rows.append([title, milliseconds(base), milliseconds(theirs), times(base / theirs), "; ".join(aims)])
        for case, what in (("25000/200", "at scale 2"), ("250000/100", "with ten times the samples")):
            time = ours[f"{shape}/{case}"]
            aim = report.at_most(f"{title} {what}, growth", 4, time / base, times)
            rows.append([f"{title} {what}", milliseconds(time), "", "", aim])
    report.table(["", "Ospra", "QPainter", "ratio", "aim"], rows)


def _line_cases(figures, function):
    return [name.removeprefix(function + "/") for name in figures if name.startswith(function)]


def map_screen(bench, report):
    report.section(
        "The map",
        """
The map alone in a window of 800 × 600 with four tracks of 25,000 samples over aerial pictures from a server on the same
machine. The yardstick is the same map drawn again without a change.
""",
    )
    moves = bench.run("map_benchmark", "ToFrame|Bare", least_time=0.3)
    first = bench.run("map_benchmark", "LoadToPicture")
    bare = moves["BM_BareFrame/real_time"]
    rows = [["bare frame", milliseconds(bare.time), milliseconds(bare.counters["process_ms"]), times(1), ""]]
    for name, title in (("Pan", "pan"), ("Zoom", "zoom"), ("Hover", "hover")):
        figure = moves[f"BM_{name}ToFrame/real_time"]
        aim = report.at_most("map pan, a frame", 16, figure.time) if name == "Pan" else ""
        spent = milliseconds(figure.counters["process_ms"])
        rows.append([f"{title}, a frame", milliseconds(figure.time), spent, times(figure.time / bare.time), aim])
    load = first["BM_LoadToPicture/manual_time"].time
    aim = report.at_most("end of a load to the first picture of the map", 60, load)
    rows.append(["end of a load to the picture of its paths", milliseconds(load), "", "", aim])
    report.table(["", "time", "processor time", "of a bare frame", "aim"], rows)


def map_layers(bench, report):
    report.text(
        """
The layers of the map, drawn in the background: four tracks in five phases, dashed and cased as on the map, in 800 × 600
pixels; and the roads and names of a dense town in 1100 × 900.
"""
    )
    paths = bench.run("tilemap_benchmark", ".")
    town = bench.run("vector_tile_benchmark", ".")
    rows = []
    for scale in (1, 2):
        again, painter = paths[f"drawAgain/{scale}/0"].time, paths[f"paintAgain/{scale}"].time
        rows.append([f"paths, scale {scale}", milliseconds(again), milliseconds(painter), times(again / painter)])
        first = paths[f"drawFirst/{scale}/0"].time
        rows.append([f"paths for the first time, scale {scale}", milliseconds(first), "", ""])
    rows.append(["choice of the tiles of a view", milliseconds(paths["chooseTiles/1"].time), "", ""])
    rows.append(["decoding a tile of roads and names", milliseconds(town["decodeTile"].time), "", ""])
    for scale in (1, 2):
        rows.append([f"roads and names, scale {scale}", milliseconds(town[f"paintTown/{scale}"].time), "", ""])
    report.table(["", "Ospra", "QPainter", "ratio"], rows)


def overview(bench, report):
    report.section(
        "The overview",
        """
A thousand jumps a year for twenty years. The screen counts from the choice of another range to its frame. A hover is
processor time beyond the same window drawn again without a change, in turns with it.
""",
    )
    sums = bench.run("overview_benchmark", "^BM_ComputeOverview/")
    screen = bench.run("overview_screen_benchmark", ".")
    rows = []
    for count in (1_000, 20_000):
        time = sums[f"BM_ComputeOverview/{count}"].time
        aim = report.at_most(f"all aggregates of {count:,} jumps", 20, time) if count == 20_000 else ""
        if count == 20_000:
            report.headlines.append(f"Sums up 20,000 jumps for the overview in {milliseconds(time)}.")
        rows.append([f"all aggregates of {count:,} jumps", milliseconds(time), aim])
    change = screen["BM_RangeToFrame/0/manual_time"].time
    hover = screen["BM_HoverBeyondBareFrame/real_time"].counters
    aim = report.at_most("range change to frame", 50, change)
    rows.append(["change of the range to its frame", milliseconds(change), aim])
    aim = report.at_most("hover over the overview", 2, hover["beyond_ms"])
    title = f"hover beyond a bare frame of {milliseconds(hover['bare_ms'])}"
    rows.append([title, milliseconds(hover["beyond_ms"]), aim])
    report.table(["", "Ospra", "aim"], rows)
