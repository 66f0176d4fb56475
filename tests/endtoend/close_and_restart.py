"""Ending the program and starting it again: what was open comes back, what has gone or was closed does not."""

import os

from driver import menus, samples, screen, sidebar
from driver.program import Program
from driver.waiting import expect_equal


def restore(folder):
    """A folder named on the command line is as good as one that was opened before."""
    with Program(f"{folder}/Logbook") as program:
        sidebar.see_jumps(program, f"{folder}/Logbook")
    with Program() as program:
        sidebar.see_jumps(program, f"{folder}/Logbook")
        expect_equal(menus.companions(program), [], "companions")
    samples.remember(f"{folder}/Logbook", *samples.companions(folder))
    with Program() as program:
        sidebar.see_jumps(program, f"{folder}/Logbook")
        expect_equal(menus.companions(program), ["Jonas", "Maya"], "companions")


def miss_a_folder(folder):
    os.rename(f"{folder}/Jonas", f"{folder}/gone")
    with Program() as program:
        sidebar.see_jumps(program, f"{folder}/Logbook")
        expect_equal(menus.companions(program), ["Maya"], "companions that are left")
    os.rename(f"{folder}/Logbook", f"{folder}/gone too")
    with Program() as program:
        sidebar.see_welcome(program)
    os.rename(f"{folder}/gone too", f"{folder}/Logbook")
    os.rename(f"{folder}/gone", f"{folder}/Jonas")


def close_folder(folder):
    samples.remember(f"{folder}/Logbook")
    with Program() as program:
        sidebar.see_jumps(program, f"{folder}/Logbook")
        screen.key("ctrl+shift+w")
        sidebar.see_welcome(program)
    with Program() as program:
        sidebar.see_welcome(program)


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
