"""Pointer, keys and pictures of the screen."""

import subprocess


def _xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def hover(x, y):
    """Moves the pointer there in one step, so that nothing on the way is read out."""
    _xdotool("mousemove", x, y)


def click(x, y):
    _xdotool("mousemove", x, y, "click", 1)


def key(*names):
    """Presses keys one after the other, for instance "Down" or "ctrl+shift+a"."""
    _xdotool("key", *names)


def hold(name):
    """Presses a key and keeps it down."""
    _xdotool("keydown", name)


def let_go(name):
    _xdotool("keyup", name)


def type_text(text):
    _xdotool("type", "--delay", 2, text)


def press(x, y):
    """Presses the button and keeps it down."""
    _xdotool("mousemove", x, y, "mousedown", 1)


def release():
    _xdotool("mouseup", 1)


def roll(steps):
    """Turns the wheel, away from the user where negative."""
    if steps:
        _xdotool("click", "--repeat", abs(steps), "--delay", 5, 5 if steps > 0 else 4)


def resize_window(name, width, height):
    _xdotool("search", "--onlyvisible", "--name", f"^{name}$", "windowsize", width, height)


def bring_back(name):
    """Shows a window again if it has been made an icon."""
    pattern = f"^{name}$"
    seen = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", pattern], stdout=subprocess.DEVNULL, check=False)
    if seen.returncode != 0:
        _xdotool("search", "--name", pattern, "windowactivate", "--sync", "%@")


class Picture:
    """A part of the screen as colours."""

    def __init__(self, box):
        self.left, self.top, self.width, self.height = box
        crop = f"{self.width}x{self.height}+{self.left}+{self.top}"
        command = ["import", "-silent", "-window", "root", "-crop", crop, "-depth", "8", "rgb:-"]
        self._bytes = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout

    def colors(self):
        """Each point as red, green and blue, row by row."""
        values = self._bytes
        return list(zip(values[0::3], values[1::3], values[2::3]))

    def count_near(self, color, tolerance):
        """How many points differ from a colour by no more than so much in any part."""
        return sum(1 for point in self.colors()
                   if all(abs(part - wanted) <= tolerance for part, wanted in zip(point, color)))

    def changed_box(self, other):
        """Left, top, right and bottom on the screen, the last two not included, of all points that differ; or None."""
        differing = [index for index, (one, two) in enumerate(zip(self.colors(), other.colors())) if one != two]
        if not differing:
            return None
        columns = [index % self.width for index in differing]
        rows = [index // self.width for index in differing]
        return (self.left + min(columns), self.top + min(rows), self.left + max(columns) + 1, self.top + max(rows) + 1)


def save(path):
    subprocess.run(["import", "-silent", "-window", "root", path], check=False)
