#!/usr/bin/env python3
"""Measures the formants of vowels in 20 recordings of speech at 44.1 and 48 kHz with cantorix-batch
and with Burg's method (Praat), and prints the median differences.

usage: tools/peers/compare_formants.py [--lpc ORDER] [--set GROUP.FIELD=VALUE]... [--ceiling HZ]
           [--places] CANTORIX-BATCH [FOLDER]

The last row takes, whatever its number, the formant of ours that is nearest to Burg's: what it has
less than the row above it comes from formants that one of the two left out, so that the next ones
bear other numbers.

The recordings come from Debian packages, which are downloaded (apt-get download) and unpacked into
FOLDER, or a temporary one; tools/setup.sh fixtures installs Praat. Of each speaker those with the
most voiced frames are taken. Places are found by vowel_formants.praat beside this file. cantorix-batch
measures with the values that its dialogs suggest: LPC order by rate, points that keep the
bandwidth, dynamic range 60 dB; the column whose frame has its middle nearest to the place is taken.
Burg's method seeks five formants below 5000 Hz for the low voices (median pitch of a speaker's
recordings 106 to 156 Hz) and below 5500 Hz for the high ones (190 to 236 Hz).
"""

import argparse
import glob
import os
import subprocess
import tempfile
import wave
from statistics import median

HERE = os.path.dirname(os.path.abspath(__file__))
TUBERLING = "usr/share/ktuberling/sounds"
FORMANTS = 3  # compared
COLUMN_MS = 1

# Package, folder in it, ceiling of the speaker in Hz, recordings.
SPEAKERS = (
    ("alsa-utils", "usr/share/sounds/alsa", 5500,
     ("Rear_Center", "Rear_Right", "Rear_Left", "Side_Right")),
    ("ktuberling-data", TUBERLING + "/ro", 5500,
     ("ochelari-de-soare", "cravata", "papion", "sprinceana", "palarie")),
    ("ktuberling-data", TUBERLING + "/es", 5500, ("pelo",)),
    ("ktuberling-data", TUBERLING + "/ga", 5000,
     ("speaclai-greine", "fainne-cluaise", "croimeal", "cuachog", "speaclai")),
    ("ktuberling-data", TUBERLING + "/fr", 5000,
     ("tv_camion-de-depannage", "noel_guirlande-lumineuse", "noel_boule-de-noel",
      "tv_benne-basculante")),
    ("puredata-doc", "usr/share/puredata/doc/sound", 5000, ("voice",)),
)


def unpack(package, folder):
    place = os.path.join(folder, package)
    if not os.path.isdir(place):
        if os.path.isdir(f"/usr/share/doc/{package}"):
            return "/"
        subprocess.run(["apt-get", "download", "-q", package], cwd=folder, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        archive = glob.glob(os.path.join(folder, package + "_*.deb"))[0]
        subprocess.run(["dpkg", "-x", archive, place], check=True)
    return place


def table(words):
    """Rows of a table that a program prints, without the caption; None for what is no number."""
    done = subprocess.run(words, check=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    for line in done.stdout.decode().splitlines()[1:]:
        yield [None if cell in ("-", "0.0") else float(cell) for cell in line.split("\t")]


def usual(rate):
    """LPC order and points as the dialogs suggest them."""
    return round(rate / 1000 + 2), 64 if rate < 15600 else 128 if rate < 31200 else 256


def ours(options, path, rate, times):
    order = options.lpc or usual(rate)[0]
    words = [options.program, "formants", path, "--step", str(COLUMN_MS), "--lpc", str(order),
             "--points", str(usual(rate)[1]), "--dynamic", "60"]
    for change in options.set:
        words += ["--set", change]
    columns = list(table(words))
    # The frame of a column begins at its time and lasts as many ms as the order.
    return [columns[max(0, round((time - order / 2) / COLUMN_MS))][1:] for time in times]


def compare(options, path, ceiling):
    """For each formant a list of (ours, the nearest of ours, Burg's) where both have one."""
    with wave.open(path) as file:
        rate = file.getframerate()
    script = os.path.join(HERE, "vowel_formants.praat")
    burg = list(table(["praat", "--run", script, path, str(ceiling), "5"]))
    mine = ours(options, path, rate, [row[0] for row in burg])
    pairs = [[] for _ in range(FORMANTS)]
    for theirs, own in zip(burg, mine):
        for f in range(FORMANTS):
            if theirs[f + 1] is not None and own[f] is not None:
                nearest = min((hz for hz in own if hz), key=lambda hz: abs(hz - theirs[f + 1]))
                pairs[f].append((own[f], nearest, theirs[f + 1]))
        if options.places:
            print("", *theirs[: FORMANTS + 1], "ours", *own[:FORMANTS], sep="\t")
    return rate, len(burg), pairs


def medians(pairs, which=0):
    return [f"{median(abs(pair[which] - pair[2]) for pair in formant):.0f}" if formant else "-"
            for formant in pairs]


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("folder", nargs="?")
    parser.add_argument("--set", action="append", default=[])
    parser.add_argument("--lpc", type=int)
    parser.add_argument("--ceiling", type=int, help="of Burg's method, for all speakers")
    parser.add_argument("--places", action="store_true", help="print every place")
    return parser.parse_args()


def main():
    options = arguments()
    options.program = os.path.abspath(options.program)
    folder = os.path.abspath(options.folder or tempfile.mkdtemp(prefix="recordings-"))
    print("recording", "rate", "ceiling", "vowels", "F1", "F2", "F3", sep="\t")
    everything = [[] for _ in range(FORMANTS)]
    places = 0
    for package, inside, ceiling, names in SPEAKERS:
        root = unpack(package, folder)
        speaker = [[] for _ in range(FORMANTS)]
        for name in names:
            path = os.path.join(root, inside, name + ".wav")
            rate, found, pairs = compare(options, path, options.ceiling or ceiling)
            places += found
            for f in range(FORMANTS):
                speaker[f] += pairs[f]
                everything[f] += pairs[f]
            print(name, rate, options.ceiling or ceiling, found, *medians(pairs), sep="\t")
        print("= " + inside.split("/")[-1], "", "", "", *medians(speaker), sep="\t")
    print("all", "", "", places, *medians(everything), sep="\t")
    print("places with both", "", "", "", *(len(formant) for formant in everything), sep="\t")
    print("to the nearest", "", "", "", *medians(everything, 1), sep="\t")


main()
