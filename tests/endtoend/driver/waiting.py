"""Waiting for what a story expects."""

import time

PATIENCE = 30.0  # s; a busy machine is slow, and a wait that succeeds costs nothing
PAUSE = 0.05  # s between two looks


class StoryFailed(Exception):
    """What a story expected has not come true."""


def wait_for(condition, what, seconds=PATIENCE):
    """Looks until the condition gives something true, and gives that."""
    end = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise StoryFailed(f"waited {seconds:.0f} s in vain for {what}")
        time.sleep(PAUSE)


def expect(condition, what):
    if not condition:
        raise StoryFailed(f"not so: {what}")


def expect_equal(actual, expected, what):
    if actual != expected:
        raise StoryFailed(f"{what}: expected {expected!r}, but it is {actual!r}")
