"""What has to be so whenever the user takes his hands away."""

import re
import time

from gi.repository import GLib

from driver import screen, sidebar
from driver.waiting import StoryFailed, expect, wait_for

# Lines that say nothing of the program: the toolkit's list took back a row that it had asked for and that its model had
# dropped already, with all that was on its way for it; the decoder of pictures says itself what is wrong with a tile of
# a server that sends broken ones.
HARMLESS = re.compile(r"DelegateModel::cancel: index out range .*|libpng error: .*")
QUIET = 120  # s; a scan of all folders under the sanitizers, on a busy machine
ANSWER = 30  # s from a click to what it shows
WARMING = 5 * 60  # s, after which the memory has found its level
LEVEL = 1.05  # how far above the level it may be at the end


class Rest:
    """Looks at the program while nobody touches it, and keeps what it saw."""

    def __init__(self, program):
        self._program = program
        self._begun = time.monotonic()
        self.memory = []  # seconds since the beginning, and MiB
        self.slowest = 0.0  # s
        self.checks = 0

    def check(self):
        self._see_no_complaint()
        self._dismiss_alerts()
        self._await_quiet()
        self._see_agreement()
        self._see_answer()
        self._see_no_complaint()
        self.memory.append((time.monotonic() - self._begun, memory_of(self._program.process_id)))
        self.checks += 1

    def level_and_end(self):
        """The memory once it had found its level and at the end, each the middle of three; None in a short run."""
        warm = [size for second, size in self.memory if second >= WARMING]
        if len(warm) < 6:
            return None
        return sorted(warm[:3])[1], sorted(warm[-3:])[1]

    def see_level(self):
        if levels := self.level_and_end():
            level, end = levels
            expect(end <= LEVEL * level, f"the memory is level: {level:.0f} MiB, then {end:.0f} MiB")

    def see_end(self):
        """The program has ended by itself, without a leak and a word of complaint."""
        said, _, report = self._program.complaints().partition("=" * 65)
        self._see_lines(said)
        leaks = [record for record in report.split("\n\n") if "leak of" in record and not is_of_gone_library(record)]
        expect(not leaks and (not report or "LeakSanitizer" in report), "nothing leaks\n" + report)

    def _see_no_complaint(self):
        expect(self._program.is_running(), "the program runs\n" + self._program.complaints()[-8000:])
        self._see_lines(self._program.complaints())

    def _see_lines(self, said):
        odd = [line for line in said.splitlines() if line.strip() and not HARMLESS.fullmatch(line)]
        expect(not odd, "the program complains of nothing\n" + "\n".join(odd[:200]))

    def _dismiss_alerts(self):
        while self._program.window.find("push-button", "OK"):
            screen.key("Escape")
            time.sleep(0.3)

    def _await_quiet(self):
        """Nothing is loading, at three looks."""
        calm = 0

        def is_quiet():
            nonlocal calm
            loads = self._program.window.find("label", re.compile(r"Loading( jumps)?\.\.\."))
            calm = 0 if loads else calm + 1
            return calm == 3

        wait_for(is_quiet, "what loads to be there", QUIET)
        self._dismiss_alerts()

    def _see_agreement(self):
        """The row that is selected and the screen beside it are of one jump."""
        row = self._selected()
        window = self._program.window
        welcome = window.find(None, "Welcome to Ospra")
        if row == "Overview":
            expect(self._overview() and not welcome, "the overview is shown")
        elif row:  # of a log that cannot be read there is nothing to show but the welcome
            expect(welcome or window.find("label", sidebar.log_of(row)), f"the screen shows the row {row}")
        elif not welcome:  # a jump stays on screen when its log has gone, and has no row any more
            expect(window.find("push-button", "Data Series"), "a jump is shown")
            twice = set(sidebar.logs(self._program)) & {label.name for label in window.find_all("label")}
            expect(not twice, f"what is shown without a row has none: {twice}")

    def _overview(self):
        return self._program.window.find("radio-button", "Stats")

    def _selected(self):
        """The selected row; the list is rolled through, as it may be out of sight."""
        rows = self._program.window.find("list", "Jumps")
        if not rows:
            return None
        left, top, width, height = rows.extents
        screen.hover(left + width // 2, top + height // 2)
        if found := sidebar.selected(self._program):
            return found
        screen.roll(-200)
        last = None
        while (names := sidebar.rows(self._program)) != last:
            if found := sidebar.selected(self._program):
                return found
            last = names
            screen.roll(4)
            time.sleep(0.3)
        return sidebar.selected(self._program)

    def _see_answer(self):
        """A click on the overview's row shows it soon."""
        rows = self._program.window.find("list", "Jumps")
        if not rows or not sidebar.rows(self._program):
            return
        left, top, width, height = rows.extents
        screen.hover(left + width // 2, top + height // 2)
        screen.roll(-200)
        row = wait_for(lambda: rows.find("list-item", "Overview"), "the row of the overview")
        row.middle()
        begun = time.monotonic()
        row.click()
        wait_for(lambda: sidebar.selected(self._program) == "Overview" and self._overview(), "the overview", ANSWER)
        self.slowest = max(self.slowest, time.monotonic() - begun)


def is_of_gone_library(record):
    """Whether a leak is that of a library which has been unloaded, so that it has no name: the drivers of Mesa keep 240
    bytes. The program's own code is never unloaded."""
    frames = [line for line in record.splitlines() if line.strip().startswith("#") and "__interceptor_" not in line]
    return bool(frames) and all("(<unknown module>)" in frame for frame in frames)


def memory_of(process_id):
    """The process's own share of memory in MiB."""
    with open(f"/proc/{process_id}/smaps_rollup", encoding="ascii") as file:
        line = next(line for line in file if line.startswith("Pss:"))
    return int(line.split()[1]) / 1024


def steady(look):
    """What a look gives; looks again where something went meanwhile."""
    for _ in range(20):
        try:
            return look()
        except GLib.Error:
            time.sleep(0.5)
    raise StoryFailed("the program does not tell what it shows")
