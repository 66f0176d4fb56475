"""The list of jumps beside the screens."""

from driver import samples
from driver.waiting import expect, expect_equal, wait_for


def _items(program):
    found = program.window.find("list", "Jumps")
    return found.find_all("list-item") if found else []


def rows(program):
    """The names of all rows that are on screen, without headings, from the top."""
    return [node.name for node in _items(program)]


def log_of(row):
    """The name of the log that a row shows: before the age where the row has a date, else all there is."""
    return row.split(", ")[-2] if ", " in row else row


def logs(program):
    return [log_of(row) for row in rows(program) if row != "Overview" and not row.startswith("Showing ")]


def selected(program):
    return next((node.name for node in _items(program) if node.has("selected")), None)


def open_jump(program, log):
    """Clicks the row of a log and waits for its screen."""

    def row():
        return next((node for node in _items(program) if log_of(node.name) == log), None)

    wait_for(row, f"the row of {log}").click()
    program.window.await_node("label", log)


def see_jumps(program, folder):
    """All jumps of a folder come into the list."""
    wanted = sorted(samples.logs(folder))
    wait_for(lambda: sorted(logs(program)) == wanted, f"the jumps of {folder} in the list")


def see_welcome(program):
    """No folder is open, and nothing is said against that."""
    program.window.await_node("label", "Welcome to Ospra")
    expect_equal(rows(program), [], "rows of the list")
    expect(not program.window.find(None, "Unable to Load Jump Data"), "no alert")
