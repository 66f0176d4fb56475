"""Minutes of random use, with folders and map servers that misbehave, and a look at the program every half minute."""

import contextlib
import os
import random
import time

from disk import Disk
from driver import samples, screen
from driver.nodes import Atspi
from driver.program import Program, leave_traces
from driver.tiles import TileServer, list_sources
from driver.waiting import expect
from hands import Hands
from rest import Rest, steady

BETWEEN_RESTS = 25  # s
MUCH_GROUND = 150  # s; more tiles than the program keeps
FAILURES = ["serve", "serve", "serve", "status 500", "status 503", "status 404", "silence", "drip 200", "html", "svg",
            "truncated", "broken", "empty", "huge", "endless", "redirect", "reset", "serve 3000"]
# After these a server is left alone until the program ends, so that only one server in four fails so.
REFUSALS = ["status 403", "status 429", "vanish", "back"]


class Servers:
    def __init__(self, rng, servers):
        self._rng = rng
        self._servers = servers
        self._has_vanished = False

    def act(self):
        number = self._rng.randrange(len(self._servers))
        manner = self._rng.choice(FAILURES + (REFUSALS if number == 3 else []))
        if manner in ("vanish", "back"):
            if self._has_vanished == (manner == "vanish"):
                return
            self._has_vanished = manner == "vanish"
        self._servers[number].tell(manner)


def open_no_pages():
    """Links end here."""
    folder = f"{os.environ['HOME']}/bin"
    os.mkdir(folder)
    with open(f"{folder}/xdg-open", "w", encoding="ascii") as file:
        file.write("#!/bin/sh\n")
    os.chmod(f"{folder}/xdg-open", 0o755)
    os.environ["PATH"] = folder + ":" + os.environ["PATH"]


def use(seconds, hands, disk, servers, rng, rest):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        pause = time.monotonic() + BETWEEN_RESTS
        while time.monotonic() < pause:
            hands.act()
            if rng.random() < 0.15:
                disk.act()
            if rng.random() < 0.1:
                servers.act()
        hands.leave_all()
        disk.put_back()
        screen.key("ctrl+r")
        steady(rest.check)
        told = rest.memory[-1]
        print(f"{told[0] / 60:5.1f} min: {hands.events} events, {told[1]:.0f} MiB", flush=True)


def tell(seed, minutes, hands, rest):
    print(f"seed {seed}, {minutes:g} minutes, {hands.events} events, {rest.checks} rests checked")
    print(f"slowest answer {rest.slowest:.1f} s")
    level = rest.level_and_end()
    print(f"memory {level[0]:.0f} MiB after 5 min, {level[1]:.0f} MiB at the end" if level else
          f"memory {rest.memory[-1][1]:.0f} MiB; too short a run for a level")
    print("sanitizer reports 0, leaks 0", flush=True)


def main():
    seed = os.environ["SOAK_SEED"]
    minutes = float(os.environ["SOAK_MINUTES"])
    print(f"seed {seed}, to be repeated by: tests/soak/run {minutes:g} {seed}", flush=True)
    # Apart, so that what one of them does changes nothing for the others.
    parts = ("hand", "disk", "server", "mix")
    hand_rng, disk_rng, server_rng, rng = (random.Random(f"{seed} {part}") for part in parts)
    open_no_pages()
    os.environ["QT_SCALE_FACTOR"] = rng.choice(["1", "1.25"])
    Atspi.set_timeout(10_000, 60_000)
    folder = samples.make()
    disk = Disk(disk_rng, folder)
    samples.remember(*disk.folders())
    with contextlib.ExitStack() as stack:
        servers = [stack.enter_context(TileServer()) for _ in range(4)]
        list_sources(*(server.address for server in servers))
        program = stack.enter_context(Program())
        hands = Hands(hand_rng, program, disk)
        rest = Rest(program)
        if minutes > 10:  # else it is too short a run for a level of the memory
            hands.see_much_ground(MUCH_GROUND)
        use(minutes * 60, hands, disk, Servers(server_rng, servers), rng, rest)
        screen.key("ctrl+q")
        code, complaints = program.await_end(180)
        expect(code == 0, f"the program ends well, not with {code}\n" + complaints[-8000:])
        rest.see_end()
    rest.see_level()
    tell(seed, minutes, hands, rest)


if __name__ == "__main__":
    main()
