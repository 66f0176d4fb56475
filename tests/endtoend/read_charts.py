"""Reading the charts: what is under the pointer, on charts and map, and zooming by a drag."""

import re

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for

HEADER = 24  # pixels, the line above a plot
PLOT_LEFT = 60  # pixels into a row, where its plot has just begun
CYAN = (0x4F, 0xC1, 0xF0)  # the second companion's on the map


def chart(program, name="Elevation"):
    return program.window.await_node("chart", name)


def place(row, share):
    """A point of a row's plot, by its share of the row's width."""
    x, y, width, height = row.extents
    return x + int(width * share), y + height // 2


def read(program, x, y):
    """The read-out of the elevations with the pointer at a place, by jumper."""
    rest_pointer(program)
    screen.hover(x, y)
    text = wait_for(lambda: chart(program).description, "a read-out")
    pairs = [part.rsplit(" ", 3) for part in text.split(", ")]
    expect(all(part[2:] == ["ft", "AGL"] for part in pairs), f"the elevations are in feet: {text}")
    return {part[0]: float(part[1]) for part in pairs}


def rest_pointer(program):
    """Takes the pointer off the charts, after which nothing is read out and marked."""
    screen.hover(*program.window.await_node("label", sidebar_title(program)).middle())
    wait_for(lambda: not chart(program).description, "the read-out to go")
    program.window.await_node(None, "Map").await_gone("label", "Me")


def sidebar_title(program):
    return sidebar.log_of(sidebar.selected(program))


def hover(program):
    row = chart(program)
    early = read(program, *place(row, 0.15))
    expect_equal(sorted(early), ["Jonas", "Maya", "Me"], "jumpers read out")
    ground = program.window.await_node(None, "Map")
    for name in early:
        ground.await_node("label", name)
    late = read(program, *place(row, 0.9))
    expect(all(0 < late[name] < early[name] < 16000 for name in ("Me",)), f"the jumper comes down: {early} {late}")
    wait_for(lambda: program.window.find("label", re.compile(r"T\+\d+(s|:\d\d)")), "the time since the exit")


def pictures(program):
    """A hover draws the cursor and the dots in each row, the markers on the map, and nothing else."""
    rest_pointer(program)
    x, y, width, height = chart(program, "Vertical Speed").extents
    plot = (x, y + HEADER, width, height - HEADER)
    window = program.window.extents
    before_plot, before_window = still(plot), still(window)
    cursor = place(chart(program), 0.5)
    read(program, *cursor)
    left, _, right, _ = still(plot).changed_box(before_plot) or (0, 0, 0, 0)
    expect(cursor[0] - 12 <= left and 0 < right <= cursor[0] + 12, f"only {left} to {right} changed at {cursor[0]}")
    left, top, _, _ = still(window).changed_box(before_window)
    expect(left >= x and top >= chart(program).extents[1], "the list and the bars stay as they are")


def still(box):
    """A picture of a part of the screen in which nothing moves."""
    last = screen.Picture(box)

    def same():
        nonlocal last
        before, last = last, screen.Picture(box)
        return last.changed_box(before) is None

    wait_for(same, "a still picture")
    return last


def paths(program):
    """The map shows a jumper's path in that jumper's colour, until the jumper is hidden."""
    rest_pointer(program)
    ground = program.window.await_node(None, "Map").extents

    def colored():
        return still(ground).count_near(CYAN, 45)

    shown = colored()
    expect(shown > 100, f"Maya's path is cyan: {shown} points")
    name = program.window.await_node("check-box", "Maya")
    expect(name.has("checked"), "Maya is shown")
    name.click()
    wait_for(lambda: not name.has("checked"), "Maya to be hidden")
    wait_for(lambda: colored() < shown // 20, "the cyan path to go")
    name.click()
    wait_for(lambda: colored() > 100, "the cyan path to come back")


def drag(program, start, end):
    """Drags until the selection stands in all rows. The last moves come again and again, as from a hand, since the
    window system may merge those that come too fast."""
    row = chart(program, "Vertical Speed").extents
    inside = (start[0] + 20, row[1] + HEADER + 10, end[0] - start[0] - 40, 20)
    before = still(inside)
    screen.press(*start)

    def is_selected():
        for x in (end[0] - 9, end[0] - 3, end[0]):
            screen.hover(x, end[1])
        return screen.Picture(inside).count_near(before.colors()[0], 2) == 0

    wait_for(is_selected, "the selection in the next row")
    screen.release()


def drag_zoom(program):
    row = chart(program)
    start, end = place(row, 0.3), place(row, 0.6)
    tenth = (start[0] + (end[0] - start[0]) // 10, start[1])
    at_start, at_tenth = read(program, *start)["Me"], read(program, *tenth)["Me"]
    drag(program, start, end)
    wait_for(lambda: program.window.find("push-button", "All").has("checked"), "a zoom that is of no phase")
    x, y, _, height = row.extents
    now = read(program, x + PLOT_LEFT, y + height // 2)["Me"]
    expect(at_tenth <= now <= at_start, f"the drag's start is at the left: {at_start} {now} {at_tenth}")
    screen.key("ctrl+3")
    wait_for(lambda: read(program, x + PLOT_LEFT, y + height // 2)["Me"] != now, "the whole log")
    program.window.await_node("push-button", "FF+Canopy").click()
    wait_for(lambda: program.window.find("push-button", "FF+Canopy").has("checked"), "the phases' zoom")
    expect_equal(read(program, *start)["Me"], at_start, "read-out after the way back")


def keys(program):
    """A click gives the charts the keys, which then read and zoom without the pointer."""
    screen.press(*place(chart(program), 0.5))
    screen.release()
    rest_pointer(program)
    screen.key("Home")
    early = wait_for(lambda: chart(program).description, "a read-out at the start")
    screen.key("shift+ctrl+Right")
    wait_for(lambda: chart(program).description not in ("", early), "a read-out further on")
    screen.key("Return")
    wait_for(lambda: program.window.find("push-button", "All").has("checked"), "a zoom that is of no phase")
    screen.key("Escape")
    wait_for(lambda: not chart(program).description, "the cursor to go")


def main():
    samples.remembered()
    with Program() as program:
        sidebar.open_jump(program, "10-24-16")
        hover(program)
        pictures(program)
        paths(program)
        drag_zoom(program)
        keys(program)


if __name__ == "__main__":
    main()
