"""Recordings for the trials, made of the spoken channel names of alsa-utils."""

import glob
import os
import subprocess
import wave

import numpy

from desk import BATCH

SPEECH = "/usr/share/sounds/alsa"


def speech(path, rate, seconds, channels=1):
    """The words one after another, over and over, at another rate; the second channel is softer."""
    parts = []
    for name in sorted(glob.glob(os.path.join(SPEECH, "*_*.wav"))):
        with wave.open(name) as file:
            parts.append(numpy.frombuffer(file.readframes(file.getnframes()), "<i2"))
            source = file.getframerate()
    words = numpy.concatenate(parts).astype(float)
    count = int(seconds * rate)
    at = (numpy.arange(count) * (source / rate)) % (len(words) - 1)
    samples = numpy.interp(at, numpy.arange(len(words)), words)
    frames = numpy.stack([samples / (channel + 1) for channel in range(channels)], axis=1)
    with wave.open(path, "wb") as file:
        file.setnchannels(channels)
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes(frames.round().astype("<i2").tobytes())


def with_tiers(path, source, count):
    """The recording with so many tiers in use, two labels in each."""
    words = path + ".txt"
    with open(words, "w", encoding="utf-8") as file:
        file.write("100 one\n900 two\n")
    for i in range(count):
        subprocess.run([BATCH, "import-labels", source if i == 0 else path, words, "--tier",
                        f"tier{i}", "--unit", "ms", "--force", "-o", path], check=True,
                       stdout=subprocess.DEVNULL)


def table(*words):
    """Rows of a table of the batch program, without its heading."""
    done = subprocess.run([BATCH, *words], check=True, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL)
    return [line.split("\t") for line in done.stdout.decode().splitlines()[1:]]
