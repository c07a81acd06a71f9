#!/usr/bin/python3
"""Ten points that the windows of a recording must hold, tried with keys and clicks: acceptance.sh
runs them. Each says what was seen; the exit status counts those that did not hold.

usage: points.py OUT WIDTHxHEIGHT [POINT...]
"""

import os
import re
import shutil
import sys
import time

import numpy

import recordings
from desk import ROOT, Desk, columns_of

KINDS = {"M": "^Recording$", "S": "^Spectrogram$", "P": "^Pitch$", "F": "^FFT/LPC$"}


class NotHeld(Exception):
    pass


def hold(condition, what):
    if not condition:
        raise NotHeld(what)


def canvases(desk):
    """The areas of the group in sight, by letter."""
    tree = desk.tree()
    return {letter: tree.find("filler|chart", name).box for letter, name in KINDS.items()
            if tree.has("filler|chart", name)}


def window(desk, name):
    return desk.tree().find("frame", name).box


def values(desk, letter):
    """What a canvas says of its marker, as name: text."""
    text = desk.tree().find("filler|chart", KINDS[letter]).text
    return dict(re.findall(r"([^\t=]+)= ([^\t]*)", text))


def hover_line(desk):
    return desk.tree().find("label", "^Under the pointer").text


def group(desk, *files, keys=("ctrl+l", "ctrl+g")):
    """A start with the analyses of the last file open."""
    desk.begin(*files)
    desk.keys(*keys)
    desk.menu("Analysis", "^Pitch Window")
    desk.rest()


def make(desk, name, rate, seconds, channels=1):
    path = os.path.join(desk.work, name)
    if not os.path.exists(path):
        recordings.speech(path, rate, seconds, channels)
    return name


def colored(desk, box, color, rows):
    """Columns of a line. A cursor has its rim, which tells it from a spectrogram as bright."""
    pixels = desk.pixels(box)
    columns = columns_of(pixels, desk.colours[color], rows)
    if color != "cursor":
        return columns
    rim = set(columns_of(pixels, desk.colours["pane"], rows))
    return [x for x in columns if x - 1 in rim and x + 1 in rim]


# 1
def edges_and_heights(desk):
    said = []
    name = make(desk, "talk.wav", 44100, 7.106)
    many = "tiers.qrv"
    recordings.with_tiers(os.path.join(desk.work, many), os.path.join(desk.work, name), 10)
    wide = desk.size[0] >= 1600
    for file, expected in ((name, (412, 331, 239) if wide else (267, 239, 196)),
                           (many, (492, 284, 206) if wide else (412, 290, 290))):
        group(desk, file)
        places = canvases(desk)
        edges = {letter: (lambda c: (c[0], c[-1]))(colored(desk, box, "frame", 40))
                 for letter, box in places.items()}
        heights = [window(desk, title + re.escape(file))[3] for title in
                   ("^", "^Spectrogram . ", "^Pitch . ") if
                   desk.tree().has("frame", title + re.escape(file))]
        desk.shoot(f"point1-{file.split('.')[0]}")
        hold(len(set(edges.values())) == 1, f"{file}: edges {edges}")
        hold(all(abs(a - b) <= 2 for a, b in zip(heights, expected)),
             f"{file}: heights {heights}, wanted {expected}")
        m = window(desk, "^" + re.escape(file))
        s = places.get("S", places.get("P"))
        hold(s[1] >= m[1] + m[3], f"{file}: {s} covers the main view {m}")
        said.append(f"{file}: edges {list(edges.values())[0]} in {'/'.join(edges)}, "
                    f"heights {heights}")
        desk.end()
    return "; ".join(said)


# 2
def linked(desk):
    group(desk, make(desk, "talk.wav", 44100, 7.106))
    desk.press(desk.tree().find("check box", "^Link$"))
    tried = 0
    for letter in ("M", "S"):
        for i in range(7):
            box = canvases(desk)[letter]
            desk.click(box[0] + 150 + 211 * i, box[1] + box[3] // 2)
            desk.mouse("mousemove", 5, 5)
            places = canvases(desk)
            columns = {other: colored(desk, places[other], "cursor", 40) for other in "MSP"}
            times = {values(desk, other)["Time(ms)"] for other in "SP"}
            hold(len({str(c) for c in columns.values()}) == 1 and len(columns["M"]) == 1,
                 f"click {i} in {letter}: cursor columns {columns}")
            hold(len(times) == 1, f"click {i} in {letter}: times {times}")
            tried += 1
    m = canvases(desk)["M"]
    desk.drag(m[0] + 300, m[1] + 60, m[0] + 700)
    desk.mouse("mousemove", 5, 5)
    # The spectrogram's cursor stands on the first one.
    edges = {o: sorted(x for color in ("edge", "cursor")
                       for x in colored(desk, canvases(desk)[o], color, 40) if 40 < x < m[2] - 8)
             for o in "MSP"}
    hold(len({str(e) for e in edges.values()}) == 1, f"edges of a drag {edges}")
    s = canvases(desk)["S"]
    desk.hover(s[0] + 900, s[1] + 100)
    dashes = {o: colored(desk, canvases(desk)[o], "pointed", 25) for o in "MSP"}
    hold(all(900 in d for d in dashes.values()), f"hover columns {dashes}")
    desk.shoot("point2")
    return f"{tried} clicks: one column and one time in M, S, P; drag {edges['M']}; hover at 900"


# 3
def in_order(desk):
    first = make(desk, "talk.wav", 44100, 7.106)
    second = make(desk, "other.wav", 8000, 5)
    group(desk, first)
    desk.keys("ctrl+o")
    desk.type(os.path.join(desk.work, second))
    desk.keys("Return")
    b = window(desk, "^other")
    before = desk.pixels(b)
    desk.menu("Window", "talk.wav")
    desk.keys("F6")
    title = desk.title()
    hold("talk.wav" in title, f"the title is {title}")
    tops = [n.name for n in desk.tree().all() if n.role == "frame" and n.showing]
    desk.shoot("point3")
    desk.menu("Window", "other.wav")
    after = desk.pixels(b)
    hold(numpy.array_equal(before, after), "the second recording is covered, or drawn otherwise")
    return f"other.wav whole again after talk.wav was in front ({title}; in sight {len(tops)})"


# 4
def follows(desk):
    group(desk, make(desk, "talk.wav", 44100, 7.106))
    s = canvases(desk)["S"]
    for turn in ["ctrl+b"] * 4 + ["ctrl+Right"]:
        desk.keys(turn)
    m = canvases(desk)["M"]
    last = desk.pixels(s)
    desk.mouse("mousemove", m[0] + 600, m[1] + 90, "keydown", "ctrl", "click", 4, "keyup", "ctrl")
    began = time.monotonic()
    while numpy.array_equal(desk.pixels(s), last):
        hold(time.monotonic() - began < 2, "S does not follow")
    seen = time.monotonic() - began
    desk.rest()
    final = desk.pixels(s)
    desk.press(desk.tree().find("frame", "^Spectrogram"))
    desk.mouse("mousemove", 5, 5)
    desk.rest()
    final = desk.pixels(s)
    desk.press(desk.tree().find("push button", "^Update$"))
    desk.mouse("mousemove", 5, 5)
    desk.rest()
    hold(numpy.array_equal(desk.pixels(s), final), "Update gives another picture")
    desk.press(desk.tree().find("check box", "^Follow View$"))
    desk.mouse("mousemove", 5, 5)
    desk.rest()
    kept = desk.pixels((s[0] + 60, s[1] + 30, s[2] - 120, 60))
    desk.click(m[0] + 600, m[1] + 90)
    desk.keys("ctrl+e", "ctrl+e")
    now = desk.pixels((s[0] + 60, s[1] + 30, s[2] - 120, 60))
    changed = int((kept != now).any(axis=2).any(axis=0).sum())
    hold(changed <= 12, f"it does not follow, but {changed} columns of S changed")
    desk.shoot("point4")
    return f"S changed within {1000 * seen:.0f} ms of the wheel (with the grab of the screen); " \
           f"Update changes nothing; without Follow View only the cursor moves"


# 5
def hints(desk):
    said = []
    for rate in (8000, 11025, 44100, 48000):
        desk.forget()
        desk.begin(make(desk, f"hint{rate}.wav", rate, 3))
        desk.keys("ctrl+g")
        tree = desk.tree()
        texts = [n.text or n.name for n in tree.all() if n.showing and "LPC order" in
                 (n.name + n.text) and "is low" in (n.name + n.text)]
        if rate < 20000:
            hold(not texts, f"{rate}: {texts}")
        else:
            usual = round(rate / 1000 + 2)
            hold(texts and f"usual: {usual}" in texts[0], f"{rate}: {texts}")
            desk.press(tree.find("push button", "^Use"))
            order = desk.tree().find("spin button", "^LPC order").text
            hold(order == str(usual), f"{rate}: order {order} after the button")
        said.append(f"{rate}: {texts[0] if texts else 'no hint'}")
        desk.shoot(f"point5-{rate}")
        desk.end()
    return "; ".join(said)


# 6
def ten_words(desk):
    desk.forget()
    name = make(desk, "words.wav", 44100, 7.106)
    desk.begin(name)
    desk.menu("Tiers/Labels", "^Enable Label Entry Mode")
    m = canvases(desk)["M"]
    words = "front center left right rear side noise one two ten".split()
    at = [m[0] + 100 + 170 * i for i in range(10)] if desk.size[0] > 1600 else \
         [m[0] + 80 + 110 * i for i in range(10)]
    windows = sum(n.role in ("frame", "dialog") for n in desk.tree().all())
    for x, word in zip(at, words):
        desk.click(x, m[1] + m[3] // 2)
        desk.type(word)
    desk.keys("Return")
    hold(sum(n.role in ("frame", "dialog") for n in desk.tree().all()) == windows, "a window opened")
    desk.shoot("point6")
    target = os.path.join(desk.work, "words.qrv")
    if os.path.exists(target):
        os.remove(target)
    desk.menu("File", "^Save As...")
    desk.keys("ctrl+a")
    desk.type(target)
    desk.keys("Return")
    rows = recordings.table("labels", target)
    left, right = colored(desk, m, "frame", 40)[0] + 1, colored(desk, m, "frame", 40)[-1]
    pixel = 7106.0 / (right - left)
    hold([row[1] for row in rows] == words, f"labels {rows}")
    off = max(abs(float(row[2]) - (x - m[0] - left) * pixel) for row, x in zip(rows, at))
    hold(off <= pixel * 1.01, f"a label stands {off / pixel:.2f} pixels off")
    desk.keys("Home", "Tab")
    seen = []
    for _ in words:
        seen.append(hover_line(desk))
        desk.keys("Tab")
    desk.type("x")
    desk.keys("Escape")
    hold(desk.tree().find("frame", "^words").name == "words.qrv", "Esc modified the file")
    return f"{len(rows)} labels of ten clicks, texts exact, at most {off / pixel:.2f} pixels off"


# 7
def statistics(desk):
    name = make(desk, "talk.wav", 44100, 7.106)
    desk.forget()
    desk.begin(name)
    desk.keys("ctrl+l")
    desk.menu("Log", "^New")
    desk.press(desk.tree().find("frame", "^talk"))
    m = canvases(desk)["M"]
    desk.drag(m[0] + 300, m[1] + 60, m[0] + 900)
    desk.keys("ctrl+i")
    desk.shoot("point7")
    cells = [n.name for n in desk.tree().all() if n.role == "table cell" and n.showing]
    shown = {name: value for name, value in zip(cells, cells[1:])}
    start, end, mean = (float(shown[name]) for name in ("Start", "End", "Pitch mean"))
    voiced = [float(hz) for ms, hz in recordings.table("pitch", os.path.join(desk.work, name))
              if start <= float(ms) <= end and float(hz) > 0.0]
    batch = sum(voiced) / len(voiced)
    rows = len(cells)
    desk.keys("ctrl+i")
    desk.shoot("point7-logged")
    added = len([n for n in desk.tree().all() if n.role == "table cell" and n.showing]) - rows
    hold(abs(mean - batch) < 0.06, f"mean {mean}, batch {batch:.3f} of {len(voiced)} entries")
    hold(added > 0, "no row in the log")
    return f"mean {mean}, cantorix-batch {batch:.3f} of {len(voiced)} voiced entries"


# 8
def pitch_seen(desk):
    said = []
    for seconds in (7, 600):
        name = make(desk, f"long{seconds}.wav", 44100, seconds)
        desk.forget()
        desk.begin(name)
        desk.keys("ctrl+l")
        desk.rest(1.0)
        m = canvases(desk)["M"]
        frame = colored(desk, m, "frame", 40)
        left, width = frame[0] + 1, frame[-1] - frame[0] - 1
        step = width / (1000.0 * seconds)
        pixels = desk.pixels(m).astype(int)
        near = (abs(pixels - numpy.array(desk.colours["pitch"])).sum(axis=2) < 150).sum(axis=0)
        columns = {left + int(float(ms) * step)
                   for ms, hz in recordings.table("pitch", os.path.join(desk.work, name))
                   if float(hz) > 0.0}
        missed = [x for x in columns if near[x - 1:x + 2].max() < 2]
        desk.shoot(f"point8-{seconds}")
        desk.end()
        hold(len(missed) <= len(columns) // 200, f"{seconds} s: {len(missed)} of {len(columns)}")
        said.append(f"{seconds} s: {len(columns) - len(missed)} of {len(columns)} columns with "
                    "voiced entries")
    return "; ".join(said)


# 9
def closed_and_tiled(desk):
    name = make(desk, "talk.wav", 44100, 7.106)
    desk.forget()
    group(desk, name)
    m = canvases(desk)["M"]
    desk.click(m[0] + 400, m[1] + 60)
    desk.keys("ctrl+f")
    arranged = {n.name: n.box for n in desk.tree().all() if n.role == "frame" and n.showing}
    for entry in ("^Cascade", "^Tile", "^Arrange Analysis Windows"):
        desk.menu("Window", entry)
        small = [n.name for n in desk.tree().all() if n.role == "frame" and n.showing
                 and n.box[2] < 400 or n.role == "frame" and n.showing and n.box[3] < 190]
        hold(not small, f"{entry}: too small {small}")
    again = {n.name: n.box for n in desk.tree().all() if n.role == "frame" and n.showing}
    hold(arranged == again, f"arranged {arranged}, then {again}")
    desk.shoot("point9")
    for title in ("Spectrogram", "Pitch", "FFT/LPC"):
        desk.press(desk.tree().find("frame", f"^{title}"))
        desk.keys("ctrl+shift+w")
    left = [n.name for n in desk.tree().all() if n.role == "frame" and n.showing]
    hold(not any("–" in name for name in left), f"still open: {left}")
    desk.menu("Window", "^Cascade")
    desk.end()
    group(desk, name)
    m2 = {n.name: n.box for n in desk.tree().all() if n.role == "frame" and n.showing}
    hold(all(m2[k][3] == v[3] for k, v in arranged.items() if k in m2 and "FFT" not in k),
         f"heights after a restart {m2}")
    return f"{len(arranged)} windows back at their places; sizes of Cascade and Tile not kept"


# 10
def keys(desk):
    desk.forget()
    group(desk, make(desk, "talk.wav", 44100, 7.106))
    m = canvases(desk)["M"]
    desk.click(m[0] + 500, m[1] + 60)

    def column():
        found = colored(desk, m, "cursor", 60)
        return found[0] if len(found) == 1 else found

    edges = colored(desk, m, "frame", 40)
    seen = {}
    for key, wanted in (("ctrl+Right", 501), ("ctrl+Left", 500), ("Home", edges[0] + 1),
                        ("ctrl+Right", edges[0] + 2)):
        desk.keys(key)
        seen[key] = column()
        hold(seen[key] == wanted, f"{key}: the cursor at {seen[key]}, wanted {wanted}")
    desk.click(m[0] + 500, m[1] + 60)
    desk.keys("shift+Right")
    desk.mouse("mousemove", 5, 5)
    pulled = [x for x in colored(desk, m, "edge", 60) if 40 < x < edges[-1]]
    hold(pulled == [500, 510], f"shift+Right: {pulled}")
    desk.keys("Escape")
    hold(not [x for x in colored(desk, m, "edge", 60) if 40 < x < edges[-1]], "Esc left a selection")
    titles = []
    for _ in range(3):
        desk.keys("F6")
        titles.append(desk.title())
    hold(len(set(titles)) == 3, f"F6: {titles}")
    desk.hover(m[0] + 700, m[1] + 60)
    line = hover_line(desk)
    hold(re.match(r"[0-9.]+ ms  amp", line), f"the line under the pointer says {line!r}")
    return f"{len(seen) + 3} keys; F6 goes round {titles}; the tree reads {line!r}"


POINTS = {1: edges_and_heights, 2: linked, 3: in_order, 4: follows, 5: hints, 6: ten_words,
          7: statistics, 8: pitch_seen, 9: closed_and_tiled, 10: keys}


def main():
    out = os.path.abspath(sys.argv[1])
    size = tuple(map(int, sys.argv[2].split("x")))
    os.makedirs(out, exist_ok=True)
    desk = Desk(out, *size)
    failed = 0
    for number in [int(word) for word in sys.argv[3:]] or sorted(POINTS):
        try:
            said = POINTS[number](desk)
            print(f"{sys.argv[2]} point {number}: held: {said}", flush=True)
        except (NotHeld, LookupError, TimeoutError) as fault:
            failed += 1
            desk.shoot(f"failed-{number}")
            print(f"{sys.argv[2]} point {number}: NOT HELD: {fault}", flush=True)
        finally:
            desk.end()
    desk.close()
    return failed


if __name__ == "__main__":
    sys.exit(main())
