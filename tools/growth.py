#!/usr/bin/env python3
"""Whether a program grows: tools/growth.py SAMPLES [AFTER]

SAMPLES has a line for each sample: second, number of the start, kB of memory, open descriptors. Looks
at the start with the most samples, leaves out its first AFTER seconds (600), and takes the median of
the slopes between all pairs of the rest (Theil-Sen), which a few odd samples do not move. Ends with
1 when memory grows by more than 1 MB an hour, or descriptors by any, with 3 when there are fewer
than 20 samples or they span less than 30 minutes: that tells nothing.
"""
import sys
from itertools import combinations
from statistics import median

MOST_MB_AN_HOUR = 1.0
LEAST_SAMPLES = 20
LEAST_SECONDS = 1800


def slope_an_hour(points):
    """The median slope between two points, and a quarter of all slopes lies below and above these."""
    slopes = sorted((b[1] - a[1]) / (b[0] - a[0]) * 3600 for a, b in combinations(points, 2) if b[0] > a[0])
    return median(slopes), slopes[len(slopes) // 4], slopes[len(slopes) * 3 // 4]


def longest_start(lines):
    starts = {}
    for line in lines:
        second, start, kilobytes, descriptors = (int(word) for word in line.split())
        starts.setdefault(start, []).append((second, kilobytes / 1024, descriptors))
    return max(starts.values(), key=len, default=[])


def main():
    after = float(sys.argv[2]) if len(sys.argv) > 2 else 600
    with open(sys.argv[1], encoding="ascii") as file:
        samples = longest_start(file)
    samples = [sample for sample in samples if sample[0] - samples[0][0] >= after]
    if len(samples) < LEAST_SAMPLES or samples[-1][0] - samples[0][0] < LEAST_SECONDS:
        print(f"growth: {len(samples)} samples are too few to tell")
        return 3
    memory, low, high = slope_an_hour([(s[0], s[1]) for s in samples])
    descriptors = slope_an_hour([(s[0], s[2]) for s in samples])[0]
    print(f"growth: {len(samples)} samples in {(samples[-1][0] - samples[0][0]) / 60:.0f} minutes: "
          f"memory {median(s[1] for s in samples):.1f} MB, {memory:+.2f} MB/h (half of the slopes between "
          f"{low:+.2f} and {high:+.2f}); descriptors {median(s[2] for s in samples):.0f}, {descriptors:+.1f}/h")
    return 1 if memory > MOST_MB_AN_HOUR or descriptors > 0 else 0


if __name__ == "__main__":
    sys.exit(main())
