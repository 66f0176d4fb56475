"""The program as a screen reader sees it."""

import os
import re

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from driver import screen  # noqa: E402
from driver.waiting import wait_for  # noqa: E402


class Node:
    """One entry of the accessibility tree, asked anew for everything: nothing is kept but the entry itself."""

    def __init__(self, accessible):
        self._accessible = accessible

    @property
    def role(self):
        """For instance "push-button"."""
        return self._accessible.get_role().value_nick

    @property
    def name(self):
        return self._accessible.get_name()

    @property
    def description(self):
        return self._accessible.get_description()

    @property
    def extents(self):
        """Left, top, width and height on the screen, in its pixels; the toolkit tells them in its own, before scaling."""
        box = self._accessible.get_extents(Atspi.CoordType.SCREEN)
        scale = float(os.environ.get("QT_SCALE_FACTOR", "1"))
        return tuple(round(side * scale) for side in (box.x, box.y, box.width, box.height))

    def has(self, state):
        """Whether it has a state, for instance "focused"."""
        return self._accessible.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    def is_shown(self):
        states = self._accessible.get_state_set()
        return states.contains(Atspi.StateType.SHOWING) and states.contains(Atspi.StateType.VISIBLE)

    def text(self):
        """What stands in a field of text."""
        return Atspi.Text.get_text(self._accessible, 0, -1)

    def children(self):
        count = self._accessible.get_child_count()
        children = (self._accessible.get_child_at_index(index) for index in range(count))
        return [Node(child) for child in children if child is not None]

    def walk(self):
        """All that is shown, itself included, parents first."""
        pending = [self]
        while pending:
            node = pending.pop()
            try:
                if not node.is_shown() and node.role not in ("application", "filler"):
                    continue
                children = node.children()
            except GLib.Error:  # it has gone meanwhile
                continue
            yield node
            pending.extend(reversed(children))

    def find_all(self, role, name=None):
        """All that are shown with a role and a name: a text, a pattern that fits the whole name, or any."""
        return [node for node in self.walk() if node.matches(role, name)]

    def find(self, role, name=None):
        return next((node for node in self.walk() if node.matches(role, name)), None)

    def matches(self, role, name=None):
        try:
            if role is not None and self.role != role:
                return False
            if isinstance(name, re.Pattern):
                return name.fullmatch(self.name) is not None
            return name is None or self.name == name
        except GLib.Error:
            return False

    def await_node(self, role, name=None):
        return wait_for(lambda: self.find(role, name), f"a shown {role or 'thing'} named {name}")

    def await_gone(self, role, name=None):
        wait_for(lambda: not self.find(role, name), f"the {role} named {name} to go")

    def await_resting(self):
        """Its extents, once they are the same at two looks: what opens with a movement has come to rest."""
        last = None

        def rests():
            nonlocal last
            before, last = last, self.extents
            return last == before and last[2] > 0

        wait_for(rests, f"{self.name} to rest")
        return last

    def middle(self):
        x, y, width, height = self.await_resting()
        return x + width // 2, y + height // 2

    def click(self):
        screen.click(*self.middle())

    def tree(self, depth=0):
        """All of it as text, for whoever has to find out why a story failed."""
        try:
            shown = "" if self.is_shown() else " (not shown)"
            line = f"{'  ' * depth}{self.role} {self.name!r} {self.extents}{shown}"
            focused = " focused" if self.has("focused") else ""
            children = self.children()
        except GLib.Error:
            return ""
        return "\n".join([line + focused] + [child.tree(depth + 1) for child in children])


def application(process_id):
    """The root of a program's tree, as soon as it is there."""
    desktop = Atspi.get_desktop(0)
    desktop.set_cache_mask(Atspi.Cache.NONE)

    def look():
        for index in range(desktop.get_child_count()):
            try:
                child = desktop.get_child_at_index(index)
                if child is not None and child.get_process_id() == process_id:
                    child.set_cache_mask(Atspi.Cache.NONE)
                    return Node(child)
            except GLib.Error:
                continue
        return None

    return wait_for(look, "the program among the accessible ones")
