#!/usr/bin/env python3
"""Kills saves: tools/kill_saves.py batch|desktop PROGRAM [KILLS [SEED]]

batch: cantorix-batch, twice at a time, saves one of two recordings over the same file and is killed at
a random moment of its run, which is drawn so that about three in four come before its end. The file must be the one or the other, byte for byte, and the new one when the program
had ended with exit code 0 before. What killed runs leave behind is gone after one more run.
desktop: on a virtual display (Xvfb, xdotool) the desktop pastes, saves, and is killed at a random
moment; the file must open with cantorix-batch, which lies in the same build.
Ends with 0 when no file was damaged and no save lost. As many as 10000 and 1000 take an hour.
"""
import os
import random
import signal
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SAMPLE = Path(__file__).resolve().parent.parent / "samples" / "vowels.qrv"


def kill_batch(program, kills, chance, place):
    # Long enough that the saving takes a good part of the run.
    long = place / "long.qrv"
    paste = ["select:0:5000", "copy"] + ["cursor:0", "paste"] * 12
    subprocess.run([program, "edit", SAMPLE, "-o", long, *paste], check=True)
    sources = [long, place / "other.qrv"]
    subprocess.run([program, "convert", long, sources[1], "--from", "1000"], check=True)
    jobs = [Saves(program, sources, place / f"saved{job}", random.Random(chance.random())) for job in range(2)]
    with ThreadPoolExecutor(len(jobs)) as pool:
        for done in [pool.submit(job.kill, kills // len(jobs)) for job in jobs]:
            done.result()
    tally = {what: sum(job.tally[what] for job in jobs) for what in jobs[0].tally}
    left = [name for job in jobs for name in job.left()] + os.listdir(place / "tmp")
    print(f"batch: {kills} kills: " + ", ".join(f"{n} {what}" for what, n in tally.items()) +
          f"; left after one more run: {left or 'nothing'}")
    return not left and tally["damaged"] == tally["lost"] == 0


class Saves:
    """Saves of one of two recordings over the same file, one after the other."""

    def __init__(self, program, sources, folder, chance):
        self.program, self.sources, self.folder, self.chance = program, sources, folder, chance
        folder.mkdir()
        self.target = folder / "talk.qrv"
        self.tally = {"replaced": 0, "kept": 0, "ended": 0, "hidden": 0, "damaged": 0, "lost": 0}
        self.versions = []
        for source in sources:
            self.save(source).wait()
            self.versions.append(self.target.read_bytes())
        self.longest = 0.05

    def save(self, source):
        return subprocess.Popen([self.program, "convert", source, self.target], stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)

    def kill(self, kills):
        stands = 1
        for i in range(kills):
            new = i % 2
            run = self.save(self.sources[new])
            # The moments run from before the save to its end, as long as it takes at present.
            time.sleep(self.chance.uniform(0.1, 1.0) * self.longest)
            run.kill()
            ended = run.wait() == 0
            # A run that ended was killed too late, one that did not perhaps too early.
            self.longest = max(0.004, self.longest * (0.97 if ended else 1.01))
            stands = self.judge(new, stands, ended)

    def judge(self, new, stands, ended):
        found = self.target.read_bytes()
        self.tally["hidden"] += len(list(self.folder.iterdir())) > 1
        if ended and found in self.versions and found != self.versions[new]:
            self.tally["lost"] += 1
        elif found not in (self.versions[new], self.versions[stands]):
            self.tally["damaged"] += 1
        else:
            now = self.versions.index(found)
            self.tally["ended" if ended else "replaced" if now == new != stands else "kept"] += 1
            return now
        return stands

    def left(self):
        self.save(self.sources[0]).wait()
        return [path.name for path in self.folder.iterdir() if path != self.target]


def keys(window, *names):
    subprocess.run(["xdotool", "windowfocus", window, "key", *names], stderr=subprocess.DEVNULL)


def kill_desktop(program, kills, chance, place):
    batch = program.parent.parent / "batch" / "cantorix-batch"
    target = place / "talk.qrv"
    display, other = os.pipe()
    server = subprocess.Popen(["Xvfb", "-noreset", "-displayfd", str(other), "-screen", "0", "1280x800x24"],
                              pass_fds=[other], stderr=subprocess.DEVNULL)
    os.environ["DISPLAY"] = ":" + os.read(display, 10).decode().strip()
    damaged = replaced = 0
    for _ in range(kills):
        target.write_bytes(SAMPLE.read_bytes())
        # What it would offer to restore.
        for left in (place / "tmp").glob("*.journal"):
            left.unlink()
        run = subprocess.Popen([program, target], cwd=place, stderr=subprocess.DEVNULL,
                               start_new_session=True)
        window = ""
        while not window and run.poll() is None:
            window = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "talk.qrv"],
                                    capture_output=True, text=True).stdout.split("\n")[0]
        keys(window, "ctrl+a", "ctrl+c", "Home", "ctrl+v", "ctrl+v")
        saving = subprocess.Popen(["xdotool", "key", "ctrl+s"])
        time.sleep(chance.uniform(0, 0.05))
        if run.poll() is not None:
            print(f"the desktop ended by itself with {run.returncode}")
            return False
        os.killpg(run.pid, signal.SIGKILL)
        run.wait()
        saving.wait()
        replaced += target.stat().st_size != SAMPLE.stat().st_size
        opened = subprocess.run([batch, "info", target], capture_output=True, text=True)
        if opened.returncode != 0:
            damaged += 1
            print("damaged: " + opened.stderr)
    server.terminate()
    print(f"desktop: {kills} kills, {replaced} with the new file in place, {damaged} damaged")
    return damaged == 0


def main():
    program = Path(sys.argv[2]).absolute()
    kills = int(sys.argv[3]) if len(sys.argv) > 3 else 200
    seed = int(sys.argv[4]) if len(sys.argv) > 4 else 1
    print(f"seed {seed}", flush=True)
    with tempfile.TemporaryDirectory() as folder:
        place = Path(folder)
        for name in ("tmp", "home"):
            (place / name).mkdir()
        os.environ.update(TMPDIR=str(place / "tmp"), HOME=str(place / "home"), XDG_CONFIG_HOME=str(place / "home"),
                          XDG_RUNTIME_DIR=str(place / "home"))
        kill = kill_batch if sys.argv[1] == "batch" else kill_desktop
        return 0 if kill(program, kills, random.Random(seed), place) else 1


if __name__ == "__main__":
    sys.exit(main())
