"""What cannot be is refused by name before any work, in the words of the program."""

from __future__ import annotations

import re
from pathlib import Path
from typing import Any

import numpy as np
import pytest

import cantorix
from conftest import SAMPLE

REFUSED: list[tuple[str, dict[str, Any], str]] = [
    ("pitch", {"low": -3}, "low must be above 0, not -3"),
    ("pitch", {"low": "75"}, "low must be a number, not '75'"),
    ("pitch", {"low": float("nan")}, "low must be above 0, not nan"),
    ("pitch", {"low": 40}, "low: Please select a calculation low range greater than 50 Hz"),
    ("pitch", {"method": "best"}, "method must be 'cepstral' or 'autocorrelation', not 'best'"),
    ("pitch", {"from_ms": -1},
     "from_ms is outside the recording; the recording is 5410.1 ms long"),
    ("pitch", {"to_ms": 5411}, "to_ms is outside the recording; the recording is 5410.1 ms long"),
    ("pitch", {"from_ms": 9, "to_ms": 5},
     "to_ms is before from_ms; the recording is 5410.1 ms long"),
    ("pitch", {"settings": 3}, "settings must be a cantorix.Settings, not 3"),
    ("pitch", {"progress": 3}, "progress must be callable, not 3"),
    ("intensity", {"relative": 1}, "relative must be True or False, not 1"),
    ("spectrum", {}, "at must be given, or from_ms or to_ms"),
    ("spectrum", {"at": 1, "to_ms": 2}, "at must be given without from_ms and to_ms"),
    ("spectrum", {"at": 1, "points": 100}, "points must be a power of two, 32 to 8192, not 100"),
    ("spectrum", {"at": 1, "fmax": 99000},
     "fmax may be 5000 at most, not 99000, at the recording's rate of 11025.0 Hz"),
    ("spectrogram", {"columns": 0}, "columns must be a whole number, 1 to 100000000, not 0"),
    ("formants", {}, "step or columns must be given, and not both"),
    ("formants", {"step": 10, "lpc": "best"}, "lpc must be 'auto' or a whole number, not 'best'"),
]


@pytest.mark.parametrize("verb, arguments, words", REFUSED)
def test_arguments_are_refused_by_name(
    sample: cantorix.Recording, verb: str, arguments: dict[str, Any], words: str
) -> None:
    with pytest.raises(ValueError, match="^" + re.escape(words) + r"\.?$"):
        getattr(sample, verb)(**arguments)


@pytest.mark.parametrize("samples, rate, words", [
    (np.zeros(10), 8000, "samples must be an array of int16, not of float64"),
    ([1, 2], 8000, "samples must be an array of int16, not of list"),
    (np.zeros((2, 5), np.int16), 8000, "samples must have the shape (n,), n > 0, not (2, 5)"),
    (np.zeros(0, np.int16), 8000, "samples must have the shape (n,), n > 0, not (0,)"),
    (np.zeros(9, np.int16), 0, "rate must be above 0 Hz, not 0"),
    (np.zeros(9, np.int16), "8k", "rate must be a number, not '8k'"),
])
def test_arrays_are_refused_by_name(samples: Any, rate: Any, words: str) -> None:
    with pytest.raises(ValueError, match="^" + re.escape(words) + "$"):
        cantorix.from_samples(samples, rate)


def test_files_that_cannot_be_read_are_os_errors(tmp_path: Path) -> None:
    text = tmp_path / "text.wav"
    text.write_text("no sound")
    for path, reason in ((tmp_path / "gone.wav", "No such file or directory."),
                         (text, "Its format is not known.")):
        with pytest.raises(OSError) as caught:
            cantorix.open(path)
        assert str(caught.value) == f"{path} could not be opened. {reason}"
    with pytest.raises(ValueError, match="path must be a path"):
        cantorix.open("a\0b")


def test_a_file_that_changes_while_it_is_open_is_an_os_error(tmp_path: Path) -> None:
    path = tmp_path / "a.qrv"
    path.write_bytes(SAMPLE.read_bytes())
    rec = cantorix.open(path)
    rec.save(path)  # its own change is none
    rec.pitch()
    with path.open("ab") as file:
        file.write(b"more")
    with pytest.raises(OSError, match="was changed by another program while it was open"):
        rec.pitch()


def test_nothing_to_measure_is_a_measure_error() -> None:
    with pytest.raises(cantorix.MeasureError, match="no pitch track"):
        cantorix.from_samples(np.zeros(1000, np.int16), 16000).pitch()
