#!/usr/bin/env python3
"""tools/growth.py tells growth from noise: growth_test.py FOLDER_OF_TOOLS"""
import random
import subprocess
import sys
import tempfile

NOISY, FLAT, GROWS, SHORT = random.Random(1), 0, 1, 3
# name, minutes, memory in kB and descriptors at a minute, ends with
ROWS = [
    ("noise", 60, lambda m: 90000 + NOISY.randint(-900, 900), lambda m: 40 + NOISY.choice([0, 0, 0, 3]), FLAT),
    ("0.9 MB/h", 60, lambda m: 90000 + m * 0.9 * 1024 / 60, lambda m: 40, FLAT),
    ("1.1 MB/h", 60, lambda m: 90000 + m * 1.1 * 1024 / 60, lambda m: 40, GROWS),
    ("warming up", 60, lambda m: 90000 + min(m, 10) * 5000, lambda m: 30 + min(m, 10), FLAT),
    ("odd samples", 60, lambda m: 90000 + (m % 5 == 4) * m * 1000, lambda m: 40, FLAT),
    ("a descriptor in 5 minutes", 60, lambda m: 90000, lambda m: 40 + m // 5, GROWS),
    ("half an hour", 39, lambda m: 90000, lambda m: 40, SHORT),
]


def main():
    wrong = 0
    for name, minutes, memory, descriptors, wanted in ROWS:
        with tempfile.NamedTemporaryFile("w") as file:
            file.write("5 1 50000 20\n")  # an earlier start
            for minute in range(minutes + 1):
                file.write(f"{minute * 60 + 9} 2 {memory(minute):.0f} {descriptors(minute)}\n")
            file.flush()
            done = subprocess.run([sys.argv[1] + "/growth.py", file.name], capture_output=True, text=True)
        if done.returncode != wanted:
            wrong += 1
            print(f"{name}: {done.returncode} instead of {wanted}: {done.stdout}{done.stderr}")
    return wrong


if __name__ == "__main__":
    sys.exit(main())
