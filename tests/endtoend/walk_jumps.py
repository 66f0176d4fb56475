"""Walking through the list with keys: the screen of the jump follows, with its numbers, zooms, series and units."""

import re

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for

LABELS = ["Exit", "Pitch", "Saddle", "Freefall", "Canopy", "Max V.Spd", "Max H.Spd", "Avg F.Spd", "Deploy Spd"]


def press_for_row(program, key):
    """Presses a key and waits for another row to be selected and on screen."""
    before = sidebar.selected(program)
    screen.key(key)
    row = wait_for(lambda: sidebar.selected(program) not in (None, before) and sidebar.selected(program), "another row")
    log = sidebar.log_of(row)
    program.window.await_node("label", log)
    return log


def numbers(program):
    """The nine key numbers of the first bar as texts, without their labels."""
    texts = [program.window.await_node(None, re.compile(re.escape(label) + r" -?\d.*")).name for label in LABELS]
    return [text.removeprefix(label + " ") for text, label in zip(texts, LABELS)]


def toggle(program, name):
    return program.window.await_node("push-button", name)


def await_on(program, name):
    wait_for(lambda: toggle(program, name).has("checked"), f"{name} to be on")
    for other in {"All", "FF+Canopy", "Freefall", "Canopy"} - {name}:
        expect(not toggle(program, other).has("checked"), f"{other} is off while {name} is on")


def walk(program, folder):
    first = press_for_row(program, "Down")
    second = press_for_row(program, "Down")
    expect(first != second, "each row is another jump")
    shown = numbers(program)
    expect_equal(press_for_row(program, "Up"), first, "log after going up again")
    wait_for(lambda: numbers(program) != shown, "the numbers of the other jump")
    exit_altitude = numbers(program)[0]
    expect(exit_altitude.endswith(" ft"), f"feet where the locale has them: {exit_altitude}")
    true_altitude = samples.highest(samples.logs(f"{folder}/Logbook")[first]) * 3.28084
    expect(abs(float(exit_altitude.split()[0]) - true_altitude) < 200, f"{exit_altitude} is near {true_altitude}")


def zoom(program):
    await_on(program, "FF+Canopy")
    for key, name in (("space", "All"), ("space", "FF+Canopy"), ("ctrl+1", "Freefall"), ("ctrl+2", "Canopy"),
                      ("ctrl+3", "All")):
        screen.key(key)
        await_on(program, name)
    for name in ("Freefall", "Canopy", "FF+Canopy"):
        toggle(program, name).click()
        await_on(program, name)


def charts(program):
    return [node.name for node in program.window.find_all("chart")]


def switch_series(program, name):
    program.window.await_node("push-button", "Data Series").click()
    program.window.await_node("popup-menu", "Data Series").await_node("menu-item", name).click()
    program.window.await_gone("popup-menu")


def series(program):
    before = charts(program)
    expect("Elevation" in before, f"Elevation is among {before}")
    switch_series(program, "Elevation")
    wait_for(lambda: charts(program) == [name for name in before if name != "Elevation"], "Elevation to go")
    switch_series(program, "Elevation")
    wait_for(lambda: charts(program) == before, "Elevation to come back to its place")


def elevation_at_pointer(program, unit):
    """The number that is read out in the middle of the chart, in a unit, once it stands."""
    row = program.window.await_node("chart", "Elevation")
    screen.hover(*row.middle())
    pattern = re.compile(rf"Me (\d+) {unit} AGL")
    looks = []

    def standing():
        looks.append(row.description)
        return pattern.fullmatch(looks[-1]) if looks[-3:] == 3 * looks[-1:] else None

    return float(wait_for(standing, f"an elevation in {unit}").group(1))


def units(program):
    """All numbers change with the units, those of the screen as well as those of the charts."""
    imperial = numbers(program)
    feet = elevation_at_pointer(program, "ft")
    screen.key("ctrl+comma")
    settings = program.root.await_node("frame", "Settings")
    expect(settings.await_node("radio-button", "Imperial").has("checked"), "the locale's units are chosen")
    settings.await_node("radio-button", "Metric").click()
    wait_for(lambda: numbers(program)[0].endswith(" m"), "metres")
    screen.key("Escape")
    program.root.await_gone("frame", "Settings")
    metres = elevation_at_pointer(program, "m")
    expect(abs(metres * 3.28084 - feet) < 3, f"{feet} ft are {metres} m")
    for label, before, after in zip(LABELS, imperial, numbers(program)):
        factor = {"ft": 3.28084, "mph": 1 / 1.609344}.get(before.split()[-1])
        if factor is None:
            expect_equal(after, before, label)
            continue
        unit = {"ft": "m", "mph": "km/h"}[before.split()[-1]]
        expect(after.endswith(" " + unit), f"{label} in {unit}: {after}")
        expect(abs(float(before.split()[0]) - float(after.split()[0]) * factor) <= factor / 2 + 0.51,
               f"{label}: {before} is {after}")


def main():
    folder = samples.make()
    samples.remember(f"{folder}/Logbook")
    with Program() as program:
        program.window.await_node("list-item", "Overview")
        walk(program, folder)
        zoom(program)
        series(program)
        units(program)


if __name__ == "__main__":
    main()
