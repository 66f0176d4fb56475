"""The first start: the welcome, opening a folder, and adding and removing a companion."""

import os
import re

from driver import menus, samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect_equal, wait_for


def answer_panel(program, title, confirm, folder):
    """Types a folder into the panel and confirms."""
    panel = program.root.await_node("dialog", title)
    panel.await_node("push-button", re.compile(f"&?{confirm}"))
    edit = panel.await_node("text")
    edit.click()
    screen.key("ctrl+a")
    screen.type_text(folder)
    wait_for(lambda: edit.text() == folder, "the path in the panel")
    screen.key("Return")
    program.root.await_gone("dialog", title)


def open_logbook(program, folder):
    program.window.await_node("push-button", "Open Jumps Folder...").click()
    answer_panel(program, "Select a folder containing FlySight CSV files", "Open", f"{folder}/Logbook")
    sidebar.see_jumps(program, f"{folder}/Logbook")
    expect_equal(sidebar.rows(program)[0], "Overview", "first row")
    program.window.await_gone("label", "Welcome to Ospra")


def add_companion(program, folder):
    name = os.path.basename(folder)
    screen.key("ctrl+shift+a")
    answer_panel(program, "Select a folder containing a companion jumper's FlySight CSV files", "Add", folder)
    menus.show(program, "Companions").await_node("menu-item", f"Remove {name}").click()
    program.window.await_gone("popup-menu")
    expect_equal(menus.companions(program), [], "companions that are left")


def cancel_panel(program):
    """A panel that is left without an answer changes nothing."""
    before = sidebar.rows(program)
    screen.key("ctrl+o")
    title = "Select a folder containing FlySight CSV files"
    program.root.await_node("dialog", title)
    screen.key("Escape")
    program.root.await_gone("dialog", title)
    expect_equal(sidebar.rows(program), before, "rows of the sidebar")


def main():
    folder = samples.make()
    with Program() as program:
        sidebar.see_welcome(program)
        open_logbook(program, folder)
        add_companion(program, samples.companions(folder)[0])
        cancel_panel(program)


if __name__ == "__main__":
    main()
