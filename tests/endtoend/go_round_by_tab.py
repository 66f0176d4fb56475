"""The Tab key goes round through all that can be used on the screen of a jump, and shows where it is."""

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for


def focused(program):
    """What has the focus: role, name and place; the innermost where it is told of several."""
    nodes = [node for node in program.window.walk() if node.has("focused") and node.role != "frame"]
    return (nodes[-1].role, nodes[-1].name, nodes[-1].extents) if nodes else None


def press_for_focus(program, key):
    """Presses a key that moves the focus. The control that loses it must look different then."""
    before = focused(program)
    box = grown(before) if before else None
    picture = screen.Picture(box) if box else None
    screen.key(key)
    wait_for(lambda: focused(program) not in (None, before), f"the focus to leave {before}")
    if picture:
        wait_for(lambda: screen.Picture(box).changed_box(picture), f"the ring to leave {before}")
    return focused(program)


def grown(stop):
    """A control's place with the ring around it, as far as it is in the window."""
    x, y, width, height = stop[2]
    left, top = max(x - 5, 100), max(y - 5, 107)
    return left, top, min(x + width + 5, 1300) - left, min(y + height + 5, 807) - top


def go_round(program):
    sidebar.open_jump(program, "10-24-16")
    stops = [press_for_focus(program, "Tab")]
    while True:
        stop = press_for_focus(program, "Tab")
        if stop == stops[0]:
            break
        expect(stop not in stops, f"the way round does not come back to {stop} early")
        stops.append(stop)
    names = [name for _, name, _ in stops]
    wanted = ["Folders", "Data Series", "All", "FF+Canopy", "Freefall", "Canopy", "Me", "Jonas", "Maya", "Charts",
              "Map"]
    expect_equal([name for name in names if name in wanted], wanted, "stops in their order")
    expect_equal(len([name for name in names if name.startswith("Exit ")]), 3, "bars with a stop")
    back = press_for_focus(program, "shift+Tab")
    expect_equal(back, stops[-1], "stop before the first")


def main():
    samples.remembered()
    with Program() as program:
        go_round(program)


if __name__ == "__main__":
    main()
