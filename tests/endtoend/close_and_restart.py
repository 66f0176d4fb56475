"""Ending the program and starting it again: what was open comes back, what has gone or was closed does not."""

import os
import re

from driver import samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect, expect_equal, wait_for


def companion_names(program):
    """Those that the menu offers to remove."""
    program.window.await_node("menu-bar").await_node("menu-item", "Companions").click()
    menu = program.window.await_node("popup-menu", "Companions")
    menu.await_node("menu-item", "Add Companion Folder...")
    names = [node.name.removeprefix("Remove ") for node in menu.find_all("menu-item", re.compile("Remove .*"))]
    screen.key("Escape")
    program.window.await_gone("popup-menu")
    return names


def quit_by_key(program):
    screen.key("ctrl+q")
    program.expect_end()


def see_jumps(program, folder):
    wanted = sorted(samples.logs(f"{folder}/Logbook"))
    wait_for(lambda: sorted(sidebar.logs(program)) == wanted, "all jumps in the list")


def see_welcome(program):
    program.window.await_node("label", "Welcome to Ospra")
    expect_equal(sidebar.rows(program), [], "rows of the list")
    expect(not program.window.find(None, "Unable to Load Jump Data"), "no alert")


def restore(folder):
    """A folder named on the command line is as good as one that was opened before."""
    with Program(f"{folder}/Logbook") as program:
        see_jumps(program, folder)
        quit_by_key(program)
    with Program() as program:
        see_jumps(program, folder)
        expect_equal(companion_names(program), [], "companions")
        quit_by_key(program)
    samples.remember(f"{folder}/Logbook", *samples.companions(folder))
    with Program() as program:
        see_jumps(program, folder)
        expect_equal(companion_names(program), ["Jonas", "Maya"], "companions")
        quit_by_key(program)


def miss_a_folder(folder):
    os.rename(f"{folder}/Jonas", f"{folder}/gone")
    with Program() as program:
        see_jumps(program, folder)
        expect_equal(companion_names(program), ["Maya"], "companions that are left")
        quit_by_key(program)
    os.rename(f"{folder}/Logbook", f"{folder}/gone too")
    with Program() as program:
        see_welcome(program)
        quit_by_key(program)
    os.rename(f"{folder}/gone too", f"{folder}/Logbook")
    os.rename(f"{folder}/gone", f"{folder}/Jonas")


def close_folder(folder):
    samples.remember(f"{folder}/Logbook")
    with Program() as program:
        see_jumps(program, folder)
        screen.key("ctrl+shift+w")
        see_welcome(program)
        quit_by_key(program)
    with Program() as program:
        see_welcome(program)
        quit_by_key(program)


def end_while_scanning():
    """A scan that would take minutes is given up at once: a long log without a jump, under thousands of names."""
    folder = f"{samples.HOME}/endless"
    os.mkdir(folder)
    log = f"{folder}/0.csv"
    with open(log, "w", encoding="ascii") as file:
        file.write("time,lat,lon,hMSL,velN,velE,velD,hAcc,vAcc,sAcc,heading,cAcc,gpsFix,numSV\n")
        file.write(",(deg),(deg),(m),(m/s),(m/s),(m/s),(m),(m),(m/s),(deg),(deg),,\n")
        file.write("2026-09-20T10:24:16.00Z,47.0,7.0,430.0,0.1,0.1,0.1,1.0,1.0,0.3,0.0,90.0,3,12\n" * 100_000)
    for index in range(1, 4000):
        os.link(log, f"{folder}/{index}.csv")
    samples.remember(folder)
    with Program() as program:
        program.window.await_node("label", "Loading jumps...")
        program.terminate()
        program.expect_end()


def main():
    folder = samples.make()
    restore(folder)
    miss_a_folder(folder)
    close_folder(folder)
    end_while_scanning()


if __name__ == "__main__":
    main()
