"""A log that is none: one calm word about it, and everything else goes on."""

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for

TITLE = "Unable to Load Jump Data"
BROKEN = "01 packing list"


def see_alert(program):
    alert = program.window.await_node(None, TITLE)
    button = program.window.await_node("push-button", "OK")
    wait_for(lambda: button.has("focused"), "the button to have the focus")
    texts = [node.name for node in alert.find_all("label")]
    expect(any(text not in ("", TITLE) for text in texts), f"the alert says what is wrong: {texts}")


def select_broken(program):
    names = program.window.await_node("list", "Jumps").find_all("list-item", BROKEN)
    expect_equal(len(names), 1, "rows of the broken log")
    names[0].click()


def main():
    folder = samples.make()
    samples.remember(f"{folder}/Logbook")
    with Program() as program:
        sidebar.open_jump(program, "10-24-16")
        for key in ("Return", "Escape", "space"):
            select_broken(program)
            see_alert(program)
            screen.key(key)
            program.window.await_gone(None, TITLE)
            program.window.await_node("label", "Welcome to Ospra")
            expect_equal(sidebar.selected(program), BROKEN, "selected row")
            sidebar.open_jump(program, "10-24-16")


if __name__ == "__main__":
    main()
