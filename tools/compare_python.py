#!/usr/bin/env python3
"""Measures recordings with the Python module and with the batch program, and compares every digit.

usage: PYTHONPATH=build/python/python tools/compare_python.py BATCH_PROGRAM FOLDER... [--count N]
"""

import argparse
import itertools
import subprocess
import sys
import warnings
from pathlib import Path

import cantorix

ENDINGS = {".wav", ".qrv", ".aif", ".aiff", ".au", ".flac", ".ogg", ".mp3", ".sph", ".snd"}
# The verb, its words, the same as arguments.
MEASUREMENTS = (
    ("pitch", "", {}),
    ("pitch", "--method cepstral", {"method": "cepstral"}),
    ("intensity", "", {}),
    ("intensity", "--samples", {"samples": True}),
    ("spectrum", "--at 20 --lpc auto --fmax 3000", {"at": 20, "lpc": "auto", "fmax": 3000}),
    ("spectrogram", "--columns 50 --rows 40 --formants --fmax 3000",
     {"columns": 50, "rows": 40, "formants": True, "fmax": 3000}),
    ("formants", "--step 10 --fmax 3000 --lpc auto", {"step": 10, "fmax": 3000, "lpc": "auto"}),
)


def of_batch(program, verb, path, words):
    """The cells of the table, or None when the program gave nothing."""
    command = [program, verb, str(path), *words.split(), "--exact", "--channel", "1"]
    done = subprocess.run(command, capture_output=True, text=True)
    return [line.split("\t") for line in done.stdout.splitlines()][1:] if not done.returncode else None


def cells(row):
    return ["%.17g" % number for number in row]


def of_module(rec, verb, arguments):
    """The same of the module."""
    try:
        result = getattr(rec, verb)(**arguments)
    except (ValueError, cantorix.MeasureError):
        return None
    if verb == "spectrum":
        curves = zip(result.frequencies_hz, result.fft_db, result.lpc_db)
        formants = zip(result.formants_hz, result.bandwidths_hz)
        return ([cells(row) for row in curves] + [[""], ["formant", "frequency_hz", "bandwidth_hz"]]
                + [[f"F{i}", *cells(pair)] for i, pair in enumerate(formants, 1)])
    if verb == "pitch":
        return [cells(row) for row in zip(result.times_ms, result.pitch_hz)]
    if verb == "intensity":
        return [cells(row) for row in zip(result.times_ms, result.level_db)]
    levels = result.level_db if verb == "spectrogram" else [()] * len(result.times_ms)
    return [[*cells((time, *row)), *("-" if hz != hz else "%.17g" % hz for hz in five)]
            for time, row, five in zip(result.times_ms, levels, result.formants_hz)]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("folders", nargs="+", type=Path)
    parser.add_argument("--count", type=int, default=100)
    given = parser.parse_args()
    warnings.simplefilter("ignore")
    found = [[path for path in sorted(folder.rglob("*")) if path.suffix.lower() in ENDINGS]
             for folder in given.folders]
    in_turn = itertools.chain.from_iterable(itertools.zip_longest(*found))
    paths = list(filter(None, in_turn))[: given.count]
    tables = numbers = wrong = nothing = 0
    for path in paths:
        rec = cantorix.open(path, channel=1)
        for verb, words, arguments in MEASUREMENTS:
            wanted = of_batch(given.program, verb, path, words)
            got = of_module(rec, verb, arguments)
            tables += 1
            nothing += wanted is None
            numbers += sum(map(len, wanted or []))
            if got != wanted:
                wrong += 1
                print(f"{path}: {verb} {words}: the tables differ")
    print(f"{len(paths)} recordings, {tables} tables ({nothing} without a result on either side), "
          f"{numbers} cells: {wrong} tables differ")
    sys.exit(1 if wrong else 0)


main()
