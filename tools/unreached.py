#!/usr/bin/env python3
"""Tells which lines of the own parsers no input of the fuzz targets reaches.

usage: tools/unreached.py COVERAGE.lcov

A row for each file, with the part of its lines that is reached, then the others as they stand.
"""
import os
import re
import sys

PARSERS = re.compile(
    r"src/(document/(readers/|decoding/|native_|wav_|riff|open_pipeline|reader_table|sample_conversion"
    r"|sample_loader|interleaved|foreign|file_window)|labelfile/|journal/|settings/(record|field)"
    r"|app/log_file|mainview/(label_import|undo_file)|platform/(text|bytes|numbers)|batch/(json|table\.|option_texts|grammar))"
)


def lines_of(path):
    """Executions of each line that can be executed, by file."""
    files, current = {}, None
    for line in open(path, encoding="utf-8"):
        if line.startswith("SF:"):
            current = files.setdefault(os.path.relpath(line[3:].strip()), {})
        elif line.startswith("DA:"):
            number, count = line[3:].split(",")[:2]
            current[int(number)] = max(current.get(int(number), 0), int(count))
    return files


def main():
    reached = lines = 0
    for path, counts in sorted(lines_of(sys.argv[1]).items()):
        if not PARSERS.search(path) or not counts:
            continue
        source = open(path, encoding="utf-8").read().splitlines()
        missed = [number for number, count in sorted(counts.items()) if count == 0]
        reached += len(counts) - len(missed)
        lines += len(counts)
        print(f"{path}: {len(counts) - len(missed)} of {len(counts)}")
        for number in missed:
            print(f"    {number}: {source[number - 1].strip()}")
    print(f"reached: {reached} of {lines} lines")


if __name__ == "__main__":
    main()
