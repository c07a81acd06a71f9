#!/usr/bin/env python3
"""Makes a corpus by cutting the speech of some folders, and looks whether its tables are the same
from the batch program, from a run killed twenty times and resumed, from a Dask cluster of two
processes, and from one that loses a worker on the way.

usage: PYTHONPATH=build/python/python tools/check_corpus.py BATCH_PROGRAM WORK_FOLDER FOLDER...
       [--count N]
"""

import argparse
import filecmp
import os
import random
import shutil
import signal
import subprocess
import sys
import threading
import time
from pathlib import Path

import cantorix
from cantorix import corpus

TABLES = ["pitch", "intensity", "formants", "labels"]
PIECE_MS = 3000


def make(folders, work, count):
    """A manifest of pieces of speech with two labels each; every hundredth file is none."""
    recordings = work / "recordings"
    recordings.mkdir(parents=True)
    sources = sorted(path for folder in folders for path in folder.rglob("*.wav"))
    longs = [rec for rec in map(cantorix.open, sources) if rec.duration_ms > PIECE_MS]
    chance = random.Random(1)
    with (work / "corpus.tsv").open("w") as manifest:
        manifest.write("file\tspeaker\n")
        for number in range(count):
            rec = longs[number % len(longs)]
            start = chance.uniform(0, rec.duration_ms - PIECE_MS)
            name = f"recordings/{number:05d}.qrv"
            if number % 100 == 99:
                (work / name).write_text("no sound")
            else:
                part = cantorix.from_samples(rec.select(start, start + PIECE_MS).samples, rec.rate)
                tier = part.tiers.add("words")
                tier.extend([cantorix.Label(100, "a"), cantorix.Label(chance.uniform(200, 500), "b")])
                part.save(work / name)
            manifest.write(f"{name}\ts{number % 7}\n")


def batch(program, work, out, *words):
    command = [program, "corpus", str(work / "corpus.tsv"), "--do", ",".join(TABLES),
               "-o", str(work / out), "-j", "2", *words]
    return subprocess.Popen(command, stderr=subprocess.DEVNULL)


def killed(program, work, local):
    """Kills a run at twenty places and goes on with it; how many of them end with other tables."""
    others = 0
    for number in range(20):
        run = batch(program, work, "killed", "--force")
        time.sleep(local * (number + 0.5) / 20)
        run.send_signal(signal.SIGKILL)
        run.wait()
        batch(program, work, "killed", "--resume").wait()
        others += not same(work, "killed")
    return others


def on_cluster(work, out, kill_s):
    from distributed import Client, LocalCluster

    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster:
        with Client(cluster) as client:
            if kill_s:
                pid = next(iter(cluster.workers.values())).pid
                threading.Timer(kill_s, os.kill, (pid, signal.SIGKILL)).start()
            begun = time.monotonic()
            corpus.measure(work / "corpus.tsv", TABLES, work / out, client=client)
            return time.monotonic() - begun


def same(work, out):
    names = [f"{table}.tsv" for table in (*TABLES, "failed")]
    return filecmp.cmpfiles(work / "local", work / out, names, shallow=False) == (names, [], [])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("work", type=Path)
    parser.add_argument("folders", nargs="+", type=Path)
    parser.add_argument("--count", type=int, default=2000)
    given = parser.parse_args()
    shutil.rmtree(given.work, ignore_errors=True)
    make(given.folders, given.work, given.count)
    begun = time.monotonic()
    batch(given.program, given.work, "local").wait()
    local = time.monotonic() - begun
    print(f"local: {local:.1f} s", flush=True)
    verdicts = {"killed": killed(given.program, given.work, local) == 0}
    for out, kill_s in (("cluster", None), ("lost", local / 3)):
        seconds = on_cluster(given.work, out, kill_s)
        verdicts[out] = same(given.work, out)
        print(f"{out}: {seconds:.1f} s, {seconds / local:.2f} of the local run", flush=True)
    for out, verdict in verdicts.items():
        print(f"{out}: {'the same tables' if verdict else 'OTHER TABLES'}")
    sys.exit(0 if all(verdicts.values()) else 1)


if __name__ == "__main__":
    main()
