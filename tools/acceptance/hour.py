#!/usr/bin/python3
"""An hour of a student with a stereo recording at 44.1 kHz and with one at 8 kHz, from the first
start to the saved log: acceptance.sh OUT hour runs it. Each step leaves a picture; what must be so
after a step is looked at, and that no window covers what the next step needs.

usage: hour.py OUT WIDTHxHEIGHT
"""

import os
import re
import sys

import recordings
from desk import Desk
from points import NotHeld, canvases, hold, hover_line


class Hour:
    def __init__(self, desk, name):
        self.desk = desk
        self.name = name
        self.step = 0

    def picture(self, what):
        self.step += 1
        self.desk.shoot(f"{self.name}-{self.step:02}-{what}")

    def area(self, letter="M"):
        return canvases(self.desk)[letter]

    def at(self, part, letter="M", down=0.3):
        x, y, width, height = self.area(letter)
        return round(x + 40 + part * (width - 60)), round(y + down * height)


def open_by_dialog(desk, path):
    desk.keys("ctrl+o")
    desk.wait(lambda: desk.tree().has("dialog|file chooser", "Open"), 10, "the question for a file")
    desk.type(path)
    desk.keys("Return")


def save_as(desk, path):
    if os.path.exists(path):
        os.remove(path)
    desk.keys("ctrl+a")
    desk.type(path)
    desk.keys("Return")
    desk.wait(lambda: os.path.exists(path), 10, path)


def look(hour, channels):
    """Open, pitch, spectrogram, and what the hint offers."""
    desk = hour.desk
    desk.begin()
    hour.picture("start")
    open_by_dialog(desk, os.path.join(desk.work, hour.name + ".wav"))
    if channels > 1:
        desk.wait(lambda: desk.tree().has("dialog", "channel"), 10, "the question for a channel")
        hour.picture("channel")
        desk.keys("Return")
    desk.wait(lambda: desk.tree().has("frame", "^" + hour.name), 10, "the recording")
    hour.picture("open")
    desk.keys("ctrl+l", "ctrl+g")
    desk.rest(1.0)
    tree = desk.tree()
    if tree.has("push button", "^Use"):
        desk.press(tree.find("push button", "^Use"))
        desk.rest(1.0)
    hour.picture("spectrogram")
    m, s = hour.area("M"), hour.area("S")
    hold(s[1] >= m[1] + m[3], "the spectrogram covers the main view")


def measure(hour):
    """F1 and F2 at three places, by the pointer and into the log."""
    desk = hour.desk
    desk.menu("Log", "^New")
    desk.press(desk.tree().find("toggle button|check box|push button", "^D?&?ock$|^Dock$"))
    desk.rest(1.0)
    hour.picture("log")
    seen = []
    for part in (0.22, 0.45, 0.855):  # in vowels
        desk.press(desk.tree().find("frame", "^Spectrogram"))
        x, y = hour.at(part, "S", 0.5)
        desk.hover(x, y)
        seen.append(hover_line(desk))
        desk.click(x, y)
        desk.keys("ctrl+shift+m")
    # A column whose level is below half the dynamic range has no formants.
    measured = [line for line in seen if re.search(r"F1 [0-9]+ +F2 [0-9]+", line)]
    hold(len(measured) >= 2, f"readouts {seen}")
    hour.picture("measured")
    return seen


def phrase(hour):
    """The mean pitch of a phrase."""
    desk = hour.desk
    desk.press(desk.tree().find("frame", "^" + hour.name))
    x, y = hour.at(0.3)
    desk.drag(x, y, hour.at(0.6)[0])
    desk.keys("ctrl+i", "ctrl+d")
    hour.picture("statistics")
    desk.wait(lambda: desk.tree().has("table", "^Statistics"), 5, "the window of statistics")
    desk.keys("Escape")


def label(hour):
    """Ten words typed, all in the saved file."""
    desk = hour.desk
    desk.press(desk.tree().find("frame", "^" + hour.name))
    desk.menu("Tiers/Labels", "^Enable Label Entry Mode")
    words = [f"word{i}" for i in range(10)]
    for i, word in enumerate(words):
        desk.click(*hour.at(0.05 + 0.09 * i))
        desk.type(word)
    desk.keys("Return")
    hour.picture("labels")
    desk.menu("File", "^Save As...")
    target = os.path.join(desk.work, hour.name + ".qrv")
    save_as(desk, target)
    found = [row[1] for row in recordings.table("labels", target)]
    hold(found == words, f"labels in the file: {found}")
    desk.menu("Tiers/Labels", "^Disable Label Entry Mode")


def edit(hour):
    """A cut and its undo give the same recording."""
    desk = hour.desk
    x, y = hour.at(0.7)
    desk.drag(x, y, hour.at(0.8)[0])
    desk.keys("ctrl+x")
    hour.picture("cut")
    desk.keys("ctrl+z")
    hour.picture("undone")
    target = os.path.join(desk.work, hour.name + "2.qrv")
    desk.menu("File", "^Save Copy As...")
    save_as(desk, target)
    rows = [recordings.table("labels", os.path.join(desk.work, hour.name + end))
            for end in (".qrv", "2.qrv")]
    hold(rows[0] == rows[1], "labels after cut and undo")


def save_log(hour):
    desk = hour.desk
    target = os.path.join(desk.work, hour.name + ".log.txt")
    desk.menu("Log", "^Save$")
    save_as(desk, target)
    with open(target, encoding="utf-8", errors="replace") as file:
        rows = [line for line in file.read().splitlines() if line.strip()]
    hour.picture("saved")
    hold(len(rows) >= 4, f"rows of the log: {rows}")
    return rows


def main():
    out = os.path.abspath(sys.argv[1])
    size = tuple(map(int, sys.argv[2].split("x")))
    os.makedirs(out, exist_ok=True)
    desk = Desk(out, *size)
    failed = 0
    for name, rate, channels in (("stereo", 44100, 2), ("telephone", 8000, 1)):
        hour = Hour(desk, name)
        desk.forget()
        try:
            recordings.speech(os.path.join(desk.work, name + ".wav"), rate, 7, channels)
            look(hour, channels)
            seen = measure(hour)
            phrase(hour)
            label(hour)
            edit(hour)
            rows = save_log(hour)
            print(f"{sys.argv[2]} {name}: {hour.step} pictures; read {seen}; {len(rows)} log rows",
                  flush=True)
        except (NotHeld, LookupError, TimeoutError) as fault:
            failed += 1
            hour.picture("FAILED")
            print(f"{sys.argv[2]} {name}: NOT HELD: {fault}", flush=True)
        finally:
            desk.end()
    desk.close()
    return failed


sys.exit(main())
