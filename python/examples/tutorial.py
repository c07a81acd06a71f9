"""A first hour in Python: open, measure, plot, a vowel chart, a table for statistics.

Run it cell by cell in a notebook, or as a whole: tutorial.py RECORDING FOLDER_FOR_PICTURES
"""

# %% Open a recording: its content decides how it is read.
import sys
from pathlib import Path

import numpy as np
from matplotlib.figure import Figure

import cantorix
from cantorix import corpus

recording = Path(sys.argv[1])
folder = Path(sys.argv[2])
rec = cantorix.open(recording)
print(rec, rec.format)

# %% Measure. Names are those of cantorix-batch; what is not given comes from the settings.
track = rec.pitch(method="cepstral", low=75)
print(track, "mean", track.pitch_hz[track.pitch_hz > 0].mean().round(1), "Hz")
level = rec.intensity(window=30)
print(level.to_pandas().describe())

# %% Plot. In a notebook a result draws itself.
figure = Figure(figsize=(8, 6), layout="constrained")
above, below = figure.subplots(2, sharex=True)
rec.spectrogram(points=256, formants=True, lpc="auto").plot(above)
track.plot(below)
figure.savefig(folder / "speech.png")

# %% A vowel chart: the formants of each labelled vowel, F2 to the left, F1 downward.
vowels = {}
for tier in rec.tiers.values():
    labels = sorted(tier, key=lambda label: label.time_ms)
    ends = [label.time_ms for label in labels[1:]] + [rec.duration_ms]
    for label, end in zip(labels, ends):
        # The middle half of the stretch up to the next label.
        margin = (end - label.time_ms) / 4
        part = rec.select(label.time_ms + margin, end - margin)
        formants = part.formants(step=10, lpc="auto").formants_hz[:, :2]
        voiced = formants[np.all(formants > 0, axis=1)]
        if len(voiced):
            vowels[f"{label.text} {label.time_ms:.0f}"] = np.median(voiced, axis=0)
figure = Figure(figsize=(5, 4), layout="constrained")
chart = figure.subplots()
for name, (f1, f2) in vowels.items():
    chart.text(f2, f1, name.split()[0])
    print(f"{name:12} F1 {f1:5.0f} Hz  F2 {f2:5.0f} Hz")
chart.set(xlim=(2600, 600), ylim=(900, 200), xlabel="F2 (Hz)", ylabel="F1 (Hz)")
figure.savefig(folder / "vowels.png")

# %% A table for a mixed model: a row for each label, with the columns of the manifest.
(folder / "speakers.tsv").write_text(f"file\tspeaker\n{recording.resolve()}\tsynthetic\n")
tables = corpus.measure(folder / "speakers.tsv", ["pitch", "formants"], folder, lpc="auto")
print(tables["formants"].read_text().splitlines()[0])

# In R: d <- read.delim("formants.tsv", na.strings = "-", quote = "")
#       lme4::lmer(F1_mean ~ label + (1 | speaker), d)
