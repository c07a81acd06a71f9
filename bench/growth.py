#!/usr/bin/env python3
"""Shows how time and memory grow with the length of a recording, of our programs alone.

usage: bench/growth.py [--build FOLDER] [--rounds N] [--minutes N,N...] [ROW...]

Prints a row of Markdown for each kind of work: for each length the processor time in seconds (the
median of the rounds) and the most memory, then by how much the longest recording's time is off the
straight line through the two lengths before it, where it takes longer than what can be measured.
Needs sox and the speech that bench/peers.sh installs.
"""
import argparse
import os
import statistics
import tempfile

import peers

SHORTEST_S = 0.05  # below it, starting and the clock are most of what is measured


def commands(folder, minutes):
    """Our words of each row of peers.py, without the rows that differ in the peer alone."""
    return {name: work.ours for name, work in peers.rows(folder, minutes).items()
            if name not in ("cepstral-praat", "intensity-praat", "spectrogram-minute", "cut-sox")}


def measure(command, rounds):
    runs = [peers.run(command, os.devnull) for _ in range(rounds)]
    return statistics.median(run[1] for run in runs), max(run[2] for run in runs)


def off_line(minutes, seconds):
    """Of the last length, in percent of what the line through the two before it gives."""
    if len(minutes) < 3 or seconds[-2] < SHORTEST_S:
        return "-"
    slope = (seconds[-2] - seconds[-3]) / (minutes[-2] - minutes[-3])
    line = seconds[-2] + slope * (minutes[-1] - minutes[-2])
    return f"{100 * (seconds[-1] / line - 1):+.0f} %"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", default=os.path.join(peers.ROOT, "build/release"))
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--minutes", default="1,10,60,600")
    parser.add_argument("row", nargs="*")
    options = parser.parse_args()
    peers.BATCH = os.path.join(options.build, "src/batch/cantorix-batch")
    peers.DESKTOP = os.path.join(options.build, "src/desktop/cantorix")
    lengths = [int(text) for text in options.minutes.split(",")]
    cells = {}
    for minutes in lengths:
        with tempfile.TemporaryDirectory(prefix="cantorix-growth-") as folder:
            peers.make_speech(folder, minutes)
            rows = commands(folder, minutes)
            for name in options.row or rows:
                cells.setdefault(name, []).append(measure(rows[name], options.rounds))
    print("| work | " + " | ".join(f"{minutes} min" for minutes in lengths) + " | off the line |\n" +
          "|---" * (len(lengths) + 2) + "|")
    for name, measured in cells.items():
        each = [f"{seconds:.3f} s, {memory:.0f} MB" for seconds, memory in measured]
        off = off_line(lengths, [seconds for seconds, _ in measured])
        print(f"| {name} | " + " | ".join(each + [off]) + " |")


if __name__ == "__main__":
    main()
