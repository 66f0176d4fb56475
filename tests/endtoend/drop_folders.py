"""Folders that are dragged from another program onto the window."""

import os
import subprocess

from driver import menus, samples, screen, sidebar
from driver.program import BIN, Program
from driver.waiting import expect_equal, wait_for

SOURCE = (30, 30)  # a place in the other program's window


def tremble(x, y):
    """A hand is never quite still, and a drag on a busy machine may need one more move to be noticed."""
    screen.hover(x + 3, y)
    screen.hover(x, y)


def drag(program, path, is_folder=True):
    """Drags a path from another program into the middle of the window, and gives what that program was told."""
    with subprocess.Popen([f"{BIN}/drag-source", path], stdout=subprocess.PIPE, text=True) as source:
        try:
            wait_for(lambda: screen.Picture((*SOURCE, 1, 1)).colors() == [(0, 128, 128)], "the window with the files")
            x, y, width, height = program.window.extents
            edge = (x, y + height // 2, 12, 4)  # where the frame around what takes a drop crosses
            before = screen.Picture(edge)
            screen.press(*SOURCE)
            for step in range(1, 10):
                screen.hover(SOURCE[0] + step * width // 20, SOURCE[1] + step * height // 20)
            if is_folder:
                wait_for(lambda: tremble(width // 2, height // 2) or screen.Picture(edge).changed_box(before),
                         "the frame that offers a drop")
            screen.hover(x + width // 2, y + height // 2)
            screen.release()
            outcome = source.stdout.readline().strip()
            wait_for(lambda: not screen.Picture(edge).changed_box(before), "the frame to go")
            return outcome
        finally:
            source.kill()


def main():
    folder = samples.make()
    logbook = f"{folder}/Logbook"
    companion = samples.companions(folder)[0]
    with Program() as program:
        sidebar.see_welcome(program)
        a_file = next(iter(samples.logs(logbook).values()))
        expect_equal(drag(program, a_file, is_folder=False), "ignored", "what became of a file")
        sidebar.see_welcome(program)
        expect_equal(drag(program, logbook), "copy", "what became of a folder")
        sidebar.see_jumps(program, logbook)
        expect_equal(menus.companions(program), [], "companions")
        screen.hold("shift")
        expect_equal(drag(program, companion), "copy", "what became of a folder with Shift")
        screen.let_go("shift")
        wait_for(lambda: menus.companions(program) == [os.path.basename(companion)], "the companion in its menu")
        expect_equal(sorted(sidebar.logs(program)), sorted(samples.logs(logbook)), "jumps of the list")


if __name__ == "__main__":
    main()
