"""Imagery under the paths: it comes from a tile server, says whose it is, and may stay away at any time."""

import os

from driver import samples, screen, sidebar
from driver.program import Program
from driver.tiles import TileServer, list_sources
from driver.waiting import expect, expect_equal, wait_for


def color_count(program):
    """How many colours the map has: paths over the plain ground have few, over imagery there are many."""
    return len(set(screen.Picture(program.window.await_node(None, "Map").extents).colors()))


def cached_tiles():
    return [name for _, _, names in os.walk(os.environ["XDG_CACHE_HOME"]) for name in names if name.endswith(".tile")]


def see_plain_ground():
    with Program() as program:
        sidebar.open_jump(program, "10-24-16")
        program.window.await_node(None, "Map").await_node("label", "Landing")
        expect_equal(cached_tiles(), [], "tiles without a source")
        return color_count(program)


def see_imagery(program, plain):
    sidebar.open_jump(program, "10-24-16")
    program.window.await_node("label", "Painted ground · Invented roads")
    wait_for(lambda: color_count(program) > 4 * plain, "imagery")
    expect(wait_for(cached_tiles, "tiles in the cache"), "tiles are kept")


def go_on_without(program):
    """With the server gone other places stay plain, without a word."""
    sidebar.open_jump(program, "2025-07-05 10-34-12")
    screen.key("ctrl+3")
    wait_for(lambda: program.window.find("push-button", "All").has("checked"), "the whole log")
    x, y, width, height = program.window.await_node("chart", "Elevation").extents
    screen.hover(x + width // 2, y + height // 2)
    program.window.await_node(None, "Map").await_node("label", "Me")
    expect(not program.window.find(None, "Unable to Load Jump Data"), "no alert speaks of the server")
    sidebar.open_jump(program, "10-24-16")


def main():
    folder = samples.make()
    samples.remember(f"{folder}/Logbook")
    plain = see_plain_ground()
    with TileServer() as server:
        list_sources(server.address)
        with Program() as program:
            see_imagery(program, plain)
            expect(server.stop() > 0, "the server was asked")
            go_on_without(program)


if __name__ == "__main__":
    main()
