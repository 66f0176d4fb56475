"""The menus of the menu bar."""

import re

from driver import screen


def show(program, title):
    """Opens a menu by the pointer and gives it."""
    program.window.await_node("menu-bar").await_node("menu-item", title).click()
    menu = program.window.await_node("popup-menu", title)
    menu.await_node("menu-item")
    return menu


def leave(program):
    """Closes a menu, which takes all keys until then."""
    screen.key("Escape")
    program.window.await_gone("popup-menu")


def companions(program):
    """The names of the companions, each of which can be removed."""
    menu = show(program, "Companions")
    menu.await_node("menu-item", "Add Companion Folder...")
    names = [node.name.removeprefix("Remove ") for node in menu.find_all("menu-item", re.compile("Remove .*"))]
    leave(program)
    return names
