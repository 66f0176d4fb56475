"""Everything on every screen has a role and a name, and so has every menu."""

import re

from driver import menus, samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal

NAMED = {"push-button", "check-box", "radio-button", "menu-item", "check-menu-item", "list-item", "list", "label",
         "text", "table", "chart", "canvas", "heading", "dialog", "alert", "page-tab-list", "page-tab", "link"}


def see_names(program, where):
    nameless = []
    count = 0
    for node in program.root.walk():
        if node.role in NAMED:
            count += 1
            if not node.name.strip() or re.search(r"[<>]|&(?! )", node.name):
                nameless.append((node.role, node.name, node.extents))
        expect(not (node.has("focusable") and node.role in ("filler", "unknown")),
               f"{where}: what takes the focus has a role: {node.role} {node.name} {node.extents}")
        expect(not (node.has("focusable") and not node.name.strip() and node.role == "panel"),
               f"{where}: what takes the focus has a name: {node.role} {node.extents}")
    expect(count > 5, f"{where}: {count} things to name")
    expect_equal(nameless, [], f"{where}: things without a proper name")


def see_menus(program, where):
    titles = [node.name for node in program.window.await_node("menu-bar").find_all("menu-item")]
    expect_equal(titles, ["Ospra", "File", "Edit", "Companions", "Jump"], "menus")
    for title in titles:
        item = menus.show(program, title).find("menu-item")
        see_names(program, f"{where}, menu {title}")
        screen.hover(*item.middle())  # off the title, over which the toolkit keeps the menus ready to open
        menus.leave(program)
    for button in ("Folders", "Data Series"):
        program.window.await_node("push-button", button).click()
        program.window.await_node("popup-menu", button).await_node("menu-item")
        see_names(program, f"{where}, menu {button}")
        menus.leave(program)


def see_screens(program):
    program.window.await_node("list-item", "Overview")
    see_names(program, "overview")
    program.window.await_node("radio-button", "Stats").click()
    program.window.await_node("list", "Monthly Stats").await_node("list-item")
    see_names(program, "monthly numbers")
    sidebar.open_jump(program, "10-24-16")
    see_names(program, "jump")
    ground = program.window.await_node("canvas", "Map")
    for name in ("Jump Run", "Exit", "Landing"):
        expect(ground.find("label", name), f"the map tells of {name}")
    expect(program.window.find("label", re.compile("Exit [0-9,]+ .*")), "the key numbers are labels")
    see_menus(program, "jump")
    screen.key("ctrl+comma")
    program.root.await_node("radio-button", "Metric")
    see_names(program, "settings")
    screen.key("Escape")
    program.root.await_gone("radio-button", "Metric")
    screen.key("ctrl+shift+w")
    program.window.await_node("push-button", "Open Jumps Folder...")
    see_names(program, "welcome")


def main():
    samples.remembered()
    with Program() as program:
        see_screens(program)


if __name__ == "__main__":
    main()
