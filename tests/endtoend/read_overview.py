"""The overview: its numbers, a day of the heatmap as a filter of the list, the monthly numbers, and opening a jump."""

import datetime
import re

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for

# Of the heatmap, in pixels: from one square to the next, the height above the first row, half a square.
PITCH = 14
GRID_TOP = 17
HALF = 6

NOW = datetime.datetime.now(datetime.timezone.utc).date()


def days_of(folder):
    """The day of each log with a date, oldest first. The samples' files and folders are named after it."""
    paths = samples.logs(f"{folder}/Logbook").values()
    found = [re.search(r"\d{4}-\d\d-\d\d", path) for path in paths]
    return sorted(datetime.date.fromisoformat(match.group()) for match in found if match)


def card(program, title):
    """The value of a headline card."""
    node = program.window.await_node(None, re.compile(re.escape(title) + ": .*"))
    return node.name.removeprefix(title + ": ")


def choose(program, label, option):
    button = program.window.await_node("panel", label).await_node("radio-button", option)
    button.click()
    wait_for(lambda: button.has("checked"), f"{option} to be chosen")


def see_cards(program, days):
    choose(program, "Range", "All")
    wait_for(lambda: card(program, "Visible Jumps") == str(len(days)), f"{len(days)} visible jumps")
    month = [day for day in days if (day.year, day.month) == (NOW.year, NOW.month)]
    expect_equal(card(program, "This Month"), str(len(month)), "This Month")
    newest = next(row for row in sidebar.rows(program) if row != "Overview")
    expect(newest.startswith(card(program, "Last Jump") + ", "), f"the list begins with the last jump: {newest}")
    choose(program, "Range", "3M")
    wait_for(lambda: int(card(program, "Visible Jumps")) < len(days), "fewer visible jumps in three months")
    choose(program, "Range", "All")


def click_oldest_day(program, days):
    """In the first column of the heatmap, whose weeks begin on Sundays in this locale. Gives the filter's row."""
    x, y, _, _ = program.window.await_node("table").await_resting()
    screen.click(x + HALF, y + GRID_TOP + (days[0].isoweekday() % 7) * PITCH + HALF)
    return program.window.await_node("list", "Jumps").await_node("list-item", re.compile("Showing .*"))


def filter_by_day(program, days):
    everything = sidebar.logs(program)
    count = days.count(days[0])
    day = f"{days[0]:%b} {days[0].day}, {days[0].year}"
    row = click_oldest_day(program, days)
    expect_equal(row.name, f"Showing {day}", "filter")
    wait_for(lambda: len(sidebar.logs(program)) == count, f"{count} jumps of that day in the list")
    chosen = program.window.await_node("list", "Selected Day")
    chosen.await_node("label", f"{count} jump{'s' if count != 1 else ''} on {day}")
    expect_equal(len(chosen.find_all("push-button")), count, "jumps of the selected day")
    row.click()
    wait_for(lambda: sidebar.logs(program) == everything, "all jumps in the list")
    program.window.await_gone("list", "Selected Day")
    click_oldest_day(program, days)
    program.window.await_node("push-button", "Clear Day Filter").click()
    wait_for(lambda: sidebar.logs(program) == everything, "all jumps in the list again")
    program.window.await_gone("push-button", "Clear Day Filter")


def see_months(program, days):
    choose(program, "Mode", "Stats")
    months = program.window.await_node("list", "Monthly Stats").find_all("list-item")
    shown = sum(int(re.search(r", (\d+) jumps, ", node.name).group(1)) for node in months)
    expect_equal(shown, len(days), "jumps of all months")
    expect_equal(len(months), len({(day.year, day.month) for day in days}), "months with jumps")
    program.window.await_gone("table")
    choose(program, "Mode", "Heatmap")
    program.window.await_node("table")


def open_recent(program):
    recent = program.window.await_node("list", "Recent Jumps").find_all("push-button")
    log = recent[1].name.split(", ")[-1]
    recent[1].click()
    program.window.await_node("label", log)
    wait_for(lambda: sidebar.log_of(sidebar.selected(program)) == log, "its row to be selected")


def main():
    folder = samples.make("--small", "--end", str(NOW - datetime.timedelta(days=1)))
    days = days_of(folder)
    samples.remember(f"{folder}/Logbook")
    with Program() as program:
        program.window.await_node("list-item", "Overview").click()
        see_cards(program, days)
        filter_by_day(program, days)
        see_months(program, days)
        open_recent(program)


if __name__ == "__main__":
    main()
