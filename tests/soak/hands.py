"""A user without a plan."""

import os
import re
import time

from gi.repository import Gio, GLib

from driver import screen, sidebar
from driver.nodes import Atspi
from driver.waiting import StoryFailed, wait_for

KEYS = ["Down", "Up", "space", "Tab", "shift+Tab", "Return", "Escape", "Home", "End", "Left", "Right", "Page_Up",
        "Page_Down", "plus", "minus", "ctrl+1", "ctrl+2", "ctrl+3", "ctrl+r", "ctrl+c", "ctrl+comma"]
BUTTONS = {"push-button", "radio-button", "check-box", "toggle-button", "page-tab", "list-item", "table-cell"}
LOOKS = [("color-scheme", "u", 0, 1, 2), ("contrast", "u", 0, 1), ("reduced-motion", "u", 0, 1)]
ENDING = re.compile(r"Quit|Open Folder\.\.\.|Add Companion Folder\.\.\.|About.*")


class Hands:
    """Uses the program at random. What opens a panel or ends something is only done on purpose."""

    def __init__(self, rng, program, disk):
        self._rng = rng
        self._program = program
        self._disk = disk
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.events = 0

    def act(self):
        screen.bring_back("Ospra")  # a click may have hit the sign that makes it an icon
        actions = {self._click: 24, self._press_keys: 24, self._hover: 16, self._drag: 14, self._roll: 14,
                   self._press_something: 10, self._resize: 3, self._change_look: 3, self._choose_from_menu: 4,
                   self._add_companion: 2, self._remove_companion: 2, self._open_folder: 1, self._close_folder: 0.3}
        action, = self._rng.choices(list(actions), list(actions.values()))
        try:
            action()
        except GLib.Error:  # what was meant has gone meanwhile
            pass
        self.events += 1
        self._leave_panels()

    def see_much_ground(self, seconds):
        """Drags the map of a jump to and fro over new ground. The store of map tiles grows until it is full, and the
        memory has no level before."""
        sidebar.open_jump(self._program, sidebar.logs(self._program)[0])
        left, top, width, height = self._program.window.await_node("canvas", "Map").await_resting()
        end = time.monotonic() + seconds
        near, far = left + 20, left + width - 20
        while time.monotonic() < end:
            for _ in range(12):
                self._drag_over((far, top + height // 2), (near, top + height // 2))
            near, far = far, near
            self._drag_over((left + width // 2, top + height - 60), (left + width // 2, top + 60))

    def _drag_over(self, start, stop):
        screen.press(*start)
        screen.hover(*stop)
        screen.release()
        time.sleep(0.2)

    def leave_all(self):
        """Closes whatever stands open, and stops touching."""
        screen.release()
        screen.bring_back("Ospra")
        self._leave_panels()
        for frame in self._program.root.children():
            if frame.role == "frame" and frame.name != "Ospra" and frame.is_shown():
                left, top, width, _ = frame.extents
                screen.click(left + width // 2, top + 4)
                screen.key("Escape")
        for _ in range(3):
            screen.key("Escape")
        screen.hover(1399, 899)

    def _leave_panels(self):
        for child in self._program.root.children():
            try:
                if child.role in ("dialog", "file-chooser") and child.is_shown():
                    self._answer_panel(child, None)
            except GLib.Error:
                pass

    def _answer_panel(self, panel, folder):
        """Types a folder and confirms, or leaves the panel without an answer."""
        title = panel.name
        if folder:
            edit = panel.await_node("text")
            edit.click()
            screen.key("ctrl+a")
            screen.type_text(folder)
            screen.key("Return")
        else:
            left, top, width, _ = panel.extents
            screen.click(left + width // 2, top + 2)
            screen.key("Escape")

        def has_gone():
            gone = not any(child.role == "dialog" and child.name == title and child.is_shown()
                           for child in self._program.root.children())
            if not gone:
                screen.key("Escape")
            return gone

        wait_for(has_gone, f"the panel {title} to go")

    def _point(self):
        """Anywhere in the window but its menu bar."""
        left, top, width, height = self._program.window.extents
        return (left + self._rng.randrange(max(1, width)), top + 36 + self._rng.randrange(max(1, height - 36)))

    def _click(self):
        screen.click(*self._point())

    def _press_keys(self):
        screen.key(*self._rng.choices(KEYS, k=self._rng.randrange(1, 6)))

    def _hover(self):
        for _ in range(self._rng.randrange(1, 10)):
            screen.hover(*self._point())

    def _drag(self):
        screen.press(*self._point())
        for _ in range(self._rng.randrange(1, 6)):
            screen.hover(*self._point())
        screen.release()

    def _roll(self):
        screen.hover(*self._point())
        screen.roll(self._rng.choice([-1, 1]) * self._rng.randrange(1, 12))

    def _press_something(self):
        nodes = [node for node in self._program.window.walk() if node.role in BUTTONS]
        if nodes:
            left, top, width, height = self._rng.choice(nodes).extents
            screen.click(left + width // 2, top + height // 2)

    def _resize(self):
        screen.resize_window("Ospra", self._rng.randrange(700, 1390), self._rng.randrange(450, 860))

    def _change_look(self):
        """As the desktop tells that its user now wants a dark screen, more contrast or less movement."""
        key, kind, *values = self._rng.choice(LOOKS)
        value = GLib.Variant(kind, self._rng.choice(values))
        change = GLib.Variant("(ssv)", ("org.freedesktop.appearance", key, value))
        self._bus.emit_signal(None, "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                              "SettingChanged", change)

    def _menu(self, title):
        """Opens a menu. A click closes the one that the pointer has opened on its way, so that it can take another."""
        screen.key("Escape", "Escape")
        item = self._program.window.find("menu-bar").find("menu-item", title)
        left, top, width, height = item.extents
        for _ in range(5):
            screen.click(left + width // 2, top + height // 2)
            try:
                return wait_for(lambda: self._program.window.find("popup-menu", title), f"the menu {title}", 10)
            except StoryFailed:
                screen.hover(1399, 899)
                screen.key("Escape", "Escape")
        raise StoryFailed(f"the menu {title} does not open")

    def _choose(self, title, pattern):
        """Clicks an item of a menu whose name fits. @return whether there was one"""
        if self._program.window.find("dialog") or self._program.window.find("alert"):
            return False  # it holds the keyboard and the pointer
        menu = self._menu(title)
        items = [node for node in menu.find_all("menu-item") if re.fullmatch(pattern, node.name)]
        if items:
            self._rng.choice(items).click()
        screen.key("Escape")
        return bool(items)

    def _choose_from_menu(self):
        title = self._rng.choice(["Edit", "Companions", "Jump", "File"])
        self._choose(title, rf"(?!{ENDING.pattern}|Close.*).*")

    def _open_panel(self, keys, folder):
        screen.key("Escape", "Escape")
        self._program.window.await_gone("popup-menu")  # which takes all keys until then
        screen.key(keys)
        panel = wait_for(lambda: self._program.root.find("dialog", re.compile("Select a folder.*")) or
                         self._program.window.find("push-button", "OK"), "the panel", 60)
        if panel.role == "dialog":
            self._answer_panel(panel, folder)

    def _add_companion(self):
        welcome = self._program.window.find("push-button", "Open Jumps Folder...")
        if welcome and welcome.is_shown():
            self._open_folder()  # before there is a jumper there are no companions
        else:
            self._open_panel("ctrl+shift+a", self._rng.choice(self._folders()))

    def _remove_companion(self):
        self._choose("Companions", "Remove .*")

    def _open_folder(self):
        self._open_panel("ctrl+o", self._rng.choice(self._folders() + [None]))

    def _close_folder(self):
        screen.key("Escape", "ctrl+shift+w")
        self._open_panel("ctrl+o", self._rng.choice(self._folders()))

    def _folders(self):
        return self._disk.folders()
