#!/usr/bin/env python3
"""Kills the desktop program in the middle of work and restores it at the next start:
tools/recovery_trial.py [--program FILE] [--batch FILE] [--tries N] [--seed N] [--picture FILE]

On a virtual display, N tries of labelling a recording of ten minutes and N of pasting into it:
work by keys, `kill -9` at a moment of chance, a new start, Yes, Save As. A label counts as done
when the program has come to rest after its key; the table says how old the oldest work was that the
restored recording lacks, and whether every sample is the one that the pastes found there give.
Exits 1 when work of more than a second is missing anywhere. Needs Xvfb, openbox and xdotool
(tools/setup.sh pictures).
"""
import argparse
import array
import os
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import wave

HERE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
RATE_HZ = 16000
SECONDS = 600
MEMORY_MINUTES_AT = 16  # of the configuration file


def make_recording(path):
    """Ten minutes in which no second is like another."""
    state, samples = 1, array.array("h")
    block = array.array("h")
    for _ in range(RATE_HZ):
        state = (state * 1664525 + 1013904223) & 0xFFFFFFFF
        block.append((state >> 18) - 8192)
    for second in range(SECONDS):
        samples.extend((x * (second % 97 + 3)) // 100 for x in block)
    with wave.open(path, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE_HZ)
        out.writeframes(samples.tobytes())
    return samples


class Desk:
    """The display and the program on it."""

    def __init__(self, options, work):
        self.options, self.work, self.children = options, work, []
        read, write = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24"], fds=(write,))
        os.close(write)
        number = b""
        while not number.endswith(b"\n"):
            number += os.read(read, 16)
        home = os.path.join(work, "home")
        run = os.path.join(work, "run")
        os.makedirs(home, exist_ok=True)
        os.makedirs(run, mode=0o700, exist_ok=True)
        self.environment = dict(os.environ, DISPLAY=":" + number.decode().strip(), HOME=home,
                                XDG_CONFIG_HOME=home, XDG_RUNTIME_DIR=run,
                                ASAN_OPTIONS="detect_leaks=0", PULSE_SERVER="unix:/nowhere")
        self.start(["openbox"])
        time.sleep(1)
        self.program = None

    def start(self, command, fds=()):
        child = subprocess.Popen(command, cwd=self.work, pass_fds=fds, stderr=subprocess.DEVNULL,
                                 stdout=subprocess.DEVNULL,
                                 env=getattr(self, "environment", None))
        self.children.append(child)
        return child

    def end(self):
        for child in reversed(self.children):
            if child.poll() is None:
                child.kill()
            child.wait()

    def open(self, *files):
        self.program = self.start([self.options.program, "-style", "fusion", *files])
        self.wait_for_window("^Cantorix")
        self.rest()

    def windows(self, name):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name],
                               env=self.environment, capture_output=True, text=True)
        return found.stdout.split()

    def wait_for_window(self, name, seconds=60):
        end = time.monotonic() + seconds
        while not self.windows(name):
            if time.monotonic() > end or self.program.poll() is not None:
                raise RuntimeError("no window " + name)
            time.sleep(0.05)

    def busy_ticks(self):
        with open("/proc/%d/stat" % self.program.pid, encoding="ascii") as stat:
            fields = stat.read().rpartition(")")[2].split()
        return fields[0], int(fields[11]) + int(fields[12])

    def rest(self, quiet=3):
        """Waits until the program sleeps and has used next to nothing for a while."""
        still, before = 0, self.busy_ticks()[1]
        while still < quiet:
            time.sleep(0.02)
            state, now = self.busy_ticks()
            still = still + 1 if state == "S" and now - before <= 1 else 0
            before = now

    def keys(self, *keys):
        subprocess.run(["xdotool", "key", "--delay", "15", *keys], env=self.environment, check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "15", text], env=self.environment, check=True)

    def kill(self):
        self.program.kill()
        self.program.wait()
        return time.monotonic()


def label(desk, number):
    desk.keys("ctrl+Right", "ctrl+t")
    desk.type("L%d" % number)
    desk.keys("Return")


def paste(desk, _):
    desk.keys("ctrl+v")


def restore_and_save(desk, out, picture):
    """Starts anew, answers Yes and saves; the path of what was restored, or nothing."""
    if os.path.exists(out):
        os.remove(out)
    desk.program = desk.start([desk.options.program, "-style", "fusion"])
    desk.wait_for_window("^Cantorix")
    for _ in range(100):
        if len(desk.windows("Cantorix")) > 1:
            break
        time.sleep(0.1)
    desk.rest()
    if picture:
        subprocess.run(["import", "-window", "root", "PNG8:" + picture], env=desk.environment,
                       check=True)
    desk.keys("alt+y")
    desk.rest(10)
    desk.keys("ctrl+s")
    desk.wait_for_window("Save file As", 20)
    desk.rest()
    desk.keys("ctrl+a")
    desk.type(out)
    desk.keys("Return")
    end = time.monotonic() + 60
    while not os.path.exists(out) and time.monotonic() < end:
        time.sleep(0.1)
    desk.rest(10)
    desk.kill()
    return out if os.path.exists(out) else None


def labels_of(desk, path):
    table = subprocess.run([desk.options.batch, "labels", path], capture_output=True, text=True,
                           env=desk.environment, check=True).stdout
    return {cell for line in table.splitlines() for cell in line.split("\t")
            if cell.startswith("L") and cell[1:].isdigit()}


def samples_of(path):
    with open(path, "rb") as file:
        content = file.read()
    length = int(struct.unpack_from("<d", content, 512 + 16)[0])
    return array.array("h", content[len(content) - 2 * length:])


def work_until_killed(desk, act, chance):
    """Gives the moments at which each action was done, and that of the kill."""
    done, number = [], 0
    end = time.monotonic() + chance.uniform(1.0, 4.0)
    while time.monotonic() < end or not done:
        number += 1
        act(desk, number)
        if time.monotonic() < end or not done:
            desk.rest()
            done.append(time.monotonic())
    if chance.random() < 0.5:
        time.sleep(chance.uniform(0.0, 1.2))
    return done, desk.kill()


def try_labels(desk, chance, picture):
    desk.open("long.wav")
    desk.keys("Home")
    done, killed = work_until_killed(desk, label, chance)
    out = restore_and_save(desk, os.path.join(desk.work, "restored.qrv"), picture)
    found = labels_of(desk, out) if out else set()
    missing = [killed - when for i, when in enumerate(done) if "L%d" % (i + 1) not in found]
    return len(done), len(found), max(missing, default=0.0), True


def try_pastes(desk, chance, original):
    desk.open("long.wav")
    # Home, then a selection to the right by keys; what it holds is seen in what is restored.
    desk.keys("Home", "shift+Right", "shift+Right", "ctrl+c", "Home")
    desk.rest()
    done, killed = work_until_killed(desk, paste, chance)
    out = restore_and_save(desk, os.path.join(desk.work, "restored.qrv"), None)
    samples = samples_of(out) if out else array.array("h")
    added = len(samples) - len(original)
    length = try_pastes.length = try_pastes.length or next(
        (n for n in range(1, max(added, 1) + 1)
         if added % n == 0 and added // n <= len(done) + 1 and samples[:n] == original[:n]
         and samples == original[:n] * (added // n) + original), 0)
    pasted = added // length if length and added > 0 else 0
    expected = original[:length] * pasted + original
    missing = [killed - when for i, when in enumerate(done) if i >= pasted]
    return len(done), pasted, max(missing, default=0.0), samples == expected


try_pastes.length = 0


def allow_memory(desk):
    """Ten minutes are to be edited, so they have to be in memory."""
    path = os.path.join(desk.work, "CantorixConf.cfg")
    with open(path, "r+b") as file:
        file.seek(MEMORY_MINUTES_AT)
        file.write(struct.pack("<i", 30))


def clear(desk):
    for name in os.listdir(os.path.join(desk.work, "tmp")):
        os.remove(os.path.join(desk.work, "tmp", name))


def main():
    parser = argparse.ArgumentParser()
    build = os.path.join(HERE, "build", "release", "src")
    parser.add_argument("--program", type=os.path.abspath,
                        default=os.path.join(build, "desktop", "cantorix"))
    parser.add_argument("--batch", type=os.path.abspath,
                        default=os.path.join(build, "batch", "cantorix-batch"))
    parser.add_argument("--tries", type=int, default=25, help="of each kind")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--picture", help="of the question")
    options = parser.parse_args()
    chance = random.Random(options.seed)
    work = tempfile.mkdtemp(prefix="recovery-")
    desk = Desk(options, work)
    worst = good = 0
    try:
        original = make_recording(os.path.join(work, "long.wav"))
        desk.open()
        desk.kill()
        print("kind\ttry\tdone\tfound\tmissing_s\tsamples")
        for kind in ("label", "paste"):
            if kind == "paste":
                allow_memory(desk)
            for number in range(1, options.tries + 1):
                clear(desk)
                if kind == "label":
                    row = try_labels(desk, chance, options.picture if number == 1 else None)
                else:
                    row = try_pastes(desk, chance, original)
                good += row[2] <= 1.0 and row[3] and row[1] > 0
                worst = max(worst, row[2])
                print("%s\t%d\t%d\t%d\t%.2f\t%s" %
                      (kind, number, *row[:3], "same" if row[3] else "OTHER"), flush=True)
        print("%d of %d tries lost at most 1 s; most %.2f s" % (good, 2 * options.tries, worst))
    finally:
        desk.end()
        shutil.rmtree(work, ignore_errors=True)
    return 0 if good == 2 * options.tries else 1


if __name__ == "__main__":
    sys.exit(main())
