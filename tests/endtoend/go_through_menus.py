"""The menus by keys alone: each has a letter, F10 goes to the first, and the arrows reach every entry of all of them."""

import re

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect_equal, wait_for

LETTERS = {"alt+f": "File", "alt+e": "Edit", "alt+c": "Companions", "alt+j": "Jump"}
ENABLED = {
    "Ospra": ["About Ospra", "Settings…", "Quit"],
    "File": ["Open Folder...", "Add Companion Folder...", "Refresh", "Close Current Folder"],
    "Companions": ["Add Companion Folder...", "Remove Jonas", "Remove Maya"],
    "Jump": ["Zoom to Freefall", "Zoom to Canopy", "Show All"],
}


def open_menu(program):
    """The one menu that is open, inside its frame, which has no name."""
    frames = [child for child in program.window.children() if child.matches("popup-menu")]
    return frames[0].find("popup-menu", re.compile(".+")) if len(frames) == 1 else None


def await_menu(program, title):
    def menu():
        found = open_menu(program)
        return found if found and found.name == title else None

    return wait_for(menu, f"the menu {title} alone")


def leave(program):
    screen.key("Escape")
    wait_for(lambda: not any(child.matches("popup-menu") for child in program.window.children()), "the menu to go")


def focused_entry(program):
    """The entry that the arrows have reached."""
    menu = open_menu(program)
    return next((node.name for node in menu.find_all("menu-item") if node.has("focused")), None) if menu else None


def see_letters(program):
    """While Alt is held the titles tell their letters."""
    x, y, width, height = program.window.find("menu-bar").extents
    at_rest = screen.Picture((x, y, width, height))
    screen.hold("alt")
    wait_for(lambda: screen.Picture((x, y, width, height)).changed_box(at_rest), "the letters in the titles")
    screen.let_go("alt")
    wait_for(lambda: not screen.Picture((x, y, width, height)).changed_box(at_rest), "the letters to go")


def open_by_letters(program):
    for key, title in LETTERS.items():
        screen.key(key)
        await_menu(program, title)
        leave(program)


def walk_entries(program, title):
    """From the top to the bottom by the arrow."""
    for name in ENABLED.get(title, []):
        screen.key("Down")
        wait_for(lambda wanted=name: focused_entry(program) == wanted, f"the arrow at {name}")


def walk_menus(program):
    screen.key("F10")
    for title in ["Ospra", "File", "Edit", "Companions", "Jump"]:
        await_menu(program, title)
        walk_entries(program, title)
        screen.key("Right")
    await_menu(program, "Ospra")
    leave(program)


def main():
    samples.remembered()
    with Program() as program:
        sidebar.open_jump(program, "10-24-16")
        wait_for(lambda: program.window.find("canvas", "Map"), "the map")
        before = sidebar.selected(program)
        see_letters(program)
        open_by_letters(program)
        walk_menus(program)
        expect_equal(sidebar.selected(program), before, "jump that is selected")
        screen.key("Down")
        wait_for(lambda: sidebar.selected(program) not in (None, before), "the arrows to move through the jumps again")
        screen.key("alt+f")
        await_menu(program, "File")
        walk_entries(program, "File")
        screen.key("Return")
        program.window.await_node("label", "Welcome to Ospra")


if __name__ == "__main__":
    main()
