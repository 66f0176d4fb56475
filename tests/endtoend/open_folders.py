"""The first start: the welcome, opening a folder, and adding and removing a companion."""

import os
import re

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for


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


def choose(program, menu, item):
    """Opens a menu of the menu bar and clicks an item of it."""
    program.window.await_node("menu-bar").await_node("menu-item", menu).click()
    program.window.await_node("popup-menu").await_node("menu-item", item).click()


def see_welcome(program):
    program.window.await_node("label", "Welcome to Ospra")
    expect_equal(sidebar.rows(program), [], "rows of the sidebar")


def open_logbook(program, folder):
    program.window.await_node("push-button", "Open Jumps Folder...").click()
    answer_panel(program, "Select a folder containing FlySight CSV files", "Open", f"{folder}/Logbook")
    wait_for(lambda: "Overview" in sidebar.rows(program), "the overview in the list")
    expect_equal(sorted(sidebar.logs(program)), sorted(samples.logs(f"{folder}/Logbook")), "logs in the list")
    program.window.await_gone("label", "Welcome to Ospra")


def add_companion(program, folder):
    name = os.path.basename(folder)
    screen.key("ctrl+shift+a")
    answer_panel(program, "Select a folder containing a companion jumper's FlySight CSV files", "Add", folder)
    choose(program, "Companions", f"Remove {name}")
    program.window.await_gone("popup-menu")
    program.window.await_node("menu-bar").await_node("menu-item", "Companions").click()
    menu = program.window.await_node("popup-menu", re.compile("&?Companions"))
    menu.await_node("menu-item", "Add Companion Folder...")
    expect(not menu.find("menu-item", re.compile("Remove .*")), "no companion is left to remove")
    screen.key("Escape")
    program.window.await_gone("popup-menu")  # which takes all keys until then


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
        see_welcome(program)
        open_logbook(program, folder)
        add_companion(program, samples.companions(folder)[0])
        cancel_panel(program)
        screen.key("ctrl+q")
        program.expect_end()


if __name__ == "__main__":
    main()
