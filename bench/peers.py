#!/usr/bin/env python3
"""Times whole processes, ours and another program's in turns, on an hour of speech.

usage: bench/peers.py [--rounds N] [--minutes N] [ROW...]

Prints a row of Markdown for each kind of work: wall time and processor time in seconds, both as
the median of the rounds with the least and the greatest, the most memory, and the ratio of the
medians. bench/peers.sh installs what this needs.
"""
import argparse
import glob
import os
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BATCH = os.path.join(ROOT, "build/release/src/batch/cantorix-batch")
DESKTOP = os.path.join(ROOT, "build/release/src/desktop/cantorix")
SPEECH = "/usr/share/asterisk/sounds/en_US_f_Allison/*.wav"

PRAAT = """form Work
    sentence File x
    sentence Out x
endform
Read from file: file$
"""


class Work:
    """A row: what is done, with our words and with another program's."""

    def __init__(self, name, ours, peer_name="", peer=None, wanted=""):
        self.name, self.ours, self.peer_name, self.peer, self.wanted = (
            name, ours, peer_name, peer, wanted)


def run(command, out):
    """Wall seconds, processor seconds and MB of one process."""
    with open(out, "wb") as output:
        begun = time.perf_counter()
        child = subprocess.Popen(command, stdout=output, stderr=subprocess.PIPE)
        said = child.stderr.read()
        _, status, usage = os.wait4(child.pid, 0)
        wall = time.perf_counter() - begun
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        sys.exit(f"{' '.join(command)}: exit {child.returncode}: {said.decode(errors='replace')}")
    return wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def make_speech(folder, minutes):
    """The recordings of `minutes` and of one minute at 11025 and 44100 Hz."""
    parts = sorted(glob.glob(SPEECH))[:400]
    base = os.path.join(folder, "base.wav")
    subprocess.run(["sox", *parts, "-b", "16", base], check=True)
    for rate, letter in ((11025, "11"), (44100, "44")):
        piece = os.path.join(folder, f"piece{letter}.wav")
        subprocess.run(["sox", base, "-r", str(rate), "-c", "1", "-b", "16", piece], check=True)
        seconds = float(subprocess.check_output(["soxi", "-D", piece]))
        times = int(minutes * 60 / seconds) + 1
        subprocess.run(["sox", *[piece] * times, os.path.join(folder, f"long{letter}.wav"), "trim",
                        "0", str(minutes * 60)], check=True)
        subprocess.run(["sox", piece, os.path.join(folder, f"short{letter}.wav"), "trim", "0",
                        "60"], check=True)
        os.remove(piece)
    os.remove(base)


def praat(folder, name, steps):
    path = os.path.join(folder, name + ".praat")
    with open(path, "w", encoding="ascii") as script:
        script.write(PRAAT + steps + "Save as short text file: out$\n")
    return ["praat", "--run", path, f"{folder}/long11.wav", f"{folder}/peer.txt"]


def snack(folder):
    path = os.path.join(folder, "power.tcl")
    with open(path, "w", encoding="ascii") as script:
        script.write("package require sound\nsnack::sound s -load [lindex $argv 0]\n"
                     "puts [s power -framelength 0.01 -windowlength 220]\n")
    return ["tclsh", path, f"{folder}/long11.wav"]


def rows(folder, minutes):
    long11, long44, short11 = (f"{folder}/{name}.wav" for name in ("long11", "long44", "short11"))
    columns = str(minutes * 60 * 100)
    pda = ["pda", "-shift", "0.01", long11, "-o", f"{folder}/peer.f0"]
    ours44, peer44 = f"{folder}/ours.wav", f"{folder}/peer.wav"

    def batch(*words):
        return [BATCH, *words]

    return {
        "cepstral": Work("pitch, cepstral", batch("pitch", long11, "--method", "cepstral"), "pda",
                         pda, "wall 0.6, CPU 1.3"),
        "autocorrelation": Work("pitch, autocorrelation", batch("pitch", long11), "pda", pda,
                                "0.1"),
        "cepstral-praat": Work("pitch, cepstral, beside Praat",
                               batch("pitch", long11, "--method", "cepstral"), "Praat",
                               praat(folder, "pitch", "To Pitch: 0.01, 75, 600\n")),
        "intensity": Work("intensity", batch("intensity", long11), "Snack", snack(folder), "0.15"),
        "intensity-praat": Work("intensity, beside Praat", batch("intensity", long11), "Praat",
                                praat(folder, "intensity", "To Intensity: 100, 0.01, \"yes\"\n")),
        "formants": Work("formants, order 14, every 10 ms",
                         batch("formants", long11, "--lpc", "14", "--step", "10"), "Praat",
                         praat(folder, "formants",
                               "To Formant (burg): 0.01, 7, 5512.5, 0.025, 50\n"),
                         "wall 0.15, CPU 0.17"),
        "spectrogram": Work("spectrogram, 1600 x 230 as text",
                            batch("spectrogram", long11, "--columns", "1600", "--rows", "230"),
                            "Praat",
                            praat(folder, "picture", "To Spectrogram: 0.0464, 5500, "
                                  f"{minutes * 60 / 1600}, 24, \"Gaussian\"\n"), "0.15"),
        "spectrogram-minute": Work("the same of one minute",
                                   batch("spectrogram", short11, "--columns", "1600", "--rows",
                                         "230")),
        "columns": Work("spectrogram, a column every 10 ms",
                        batch("spectrogram", long11, "--columns", columns, "--rows", "230"),
                        "Praat",
                        praat(folder, "columns",
                              "To Spectrogram: 0.0464, 5500, 0.01, 24, \"Gaussian\"\n"),
                        "2.5 s, 64 MB"),
        "info": Work("info, 44.1 kHz", batch("info", long44), wanted="10 ms"),
        "export": Work("open and export again, 44.1 kHz",
                       batch("convert", long44, ours44), "cp and fsync",
                       ["sh", "-c", f"cp {long44} {peer44} && sync {peer44}"], "1.3"),
        "cut": Work("cut 2 s, save, 44.1 kHz",
                    batch("edit", long44, "--memory-minutes", "100000", "select:1000:3000", "cut",
                          "-o", ours44), "ffmpeg",
                    ["ffmpeg", "-v", "error", "-y", "-i", long44, "-af",
                     "aselect='not(between(t,1,3))',asetpts=N/SR/TB", peer44], "0.7"),
        "cut-sox": Work("the same beside sox",
                        batch("edit", long44, "--memory-minutes", "100000", "select:1000:3000",
                              "cut", "-o", ours44), "sox",
                        ["sox", long44, peer44, "trim", "0", "=1", "=3"]),
        "picture": Work("picture of the whole, 44.1 kHz",
                        ["env", "QT_QPA_PLATFORM=offscreen", DESKTOP, "--picture", "main",
                         f"{folder}/ours.png", long44], "ffmpeg",
                        ["ffmpeg", "-v", "error", "-y", "-i", long44, "-filter_complex",
                         "showwavespic=s=1860x900", "-frames:v", "1", f"{folder}/peer.png"],
                        "0.2"),
    }


def spread(values):
    return f"{statistics.median(values):.3f} ({min(values):.3f}-{max(values):.3f})"


def measure(work, rounds, folder):
    ours, peers = [], []
    for _ in range(rounds + 1):
        if work.peer:
            peers.append(run(work.peer, f"{folder}/peer.out"))
        ours.append(run(work.ours, f"{folder}/ours.out"))
    # The first round fills the caches of the disk.
    ours, peers = ours[1:], peers[1:]
    cells = [work.name]
    for times in (ours, peers):
        if not times:
            cells += ["-"] * 3
            continue
        wall, cpu, memory = zip(*times)
        cells += [spread(wall), spread(cpu), f"{max(memory):.0f}"]
    if peers:
        ratio = [statistics.median(o[i] for o in ours) / statistics.median(p[i] for p in peers)
                 for i in (0, 1)]
        cells += [work.peer_name, f"{ratio[0]:.3f}", f"{ratio[1]:.3f}"]
    else:
        cells += ["-", "-", "-"]
    print("| " + " | ".join(cells + [work.wanted or "-"]) + " |", flush=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--minutes", type=int, default=60)
    parser.add_argument("row", nargs="*")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="cantorix-peers-") as folder:
        make_speech(folder, options.minutes)
        table = rows(folder, options.minutes)
        print("| work | ours: wall s | CPU s | MB | other: wall s | CPU s | MB | which | wall ratio "
              "| CPU ratio | wanted |\n" + "|---" * 11 + "|")
        for name in options.row or table:
            measure(table[name], options.rounds, folder)


if __name__ == "__main__":
    main()
