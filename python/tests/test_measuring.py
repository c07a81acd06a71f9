"""The arrays are the batch program's tables digit for digit, whatever thread measures them."""

from __future__ import annotations

from collections.abc import Callable
from concurrent.futures import ThreadPoolExecutor

import numpy as np
import pytest

import cantorix
from conftest import SAMPLE, Table

# The verb, the words of the command line, and the same as arguments.
CASES: list[tuple[str, str, dict[str, object]]] = [
    ("pitch", "", {}),
    ("pitch", "--method cepstral --step 5 --low 75", {"method": "cepstral", "step": 5, "low": 75}),
    ("pitch", "--level 10 --from 830 --to 1470.5", {"level": 10, "from_ms": 830, "to_ms": 1470.5}),
    ("intensity", "", {}),
    ("intensity", "--window 30 --step 7.5 --relative",
     {"window": 30, "step": 7.5, "relative": True}),
    ("intensity", "--samples --from 100 --to 200",
     {"samples": True, "from_ms": 100, "to_ms": 200}),
    ("spectrum", "--at 410 --points 512 --lpc auto", {"at": 410, "points": 512, "lpc": "auto"}),
    ("spectrum", "--from 300 --to 500 --step 20 --display 64 --fmax 4000 --preemphasis 0.5",
     {"from_ms": 300, "to_ms": 500, "step": 20, "display": 64, "fmax": 4000, "preemphasis": 0.5}),
    ("spectrogram", "--columns 30 --rows 20 --formants --dynamic 60",
     {"columns": 30, "rows": 20, "formants": True, "dynamic": 60}),
    ("formants", "--step 25 --lpc 12", {"step": 25, "lpc": 12}),
    ("formants", "--columns 40 --points 256", {"columns": 40, "points": 256}),
]


def measured(rec: cantorix.Recording, verb: str, arguments: dict[str, object]) -> Table:
    """As the cells of the batch program's table."""
    result = getattr(rec, verb)(**arguments)
    rows = result.to_pandas().to_numpy()
    formants = getattr(result, "formants_hz", None)
    table = [[format(x, ".17g") for x in row] for row in rows]
    if verb in ("formants", "spectrogram") and formants is not None and len(formants):
        table = [row[:-5] + ["-" if c == "nan" else c for c in row[-5:]] for row in table]
    if verb == "spectrum":
        pairs = zip(result.formants_hz, result.bandwidths_hz)
        table += [[], ["formant", "frequency_hz", "bandwidth_hz"]]
        table += [[f"F{i}", *(format(x, ".17g") for x in pair)] for i, pair in enumerate(pairs, 1)]
    return [row or [""] for row in table]


@pytest.mark.filterwarnings("ignore:LPC order")
@pytest.mark.parametrize("verb, words, arguments", CASES)
def test_arrays_hold_the_digits_of_the_batch_program(
    batch: Callable[..., Table], verb: str, words: str, arguments: dict[str, object]
) -> None:
    expected = batch(verb, SAMPLE, *words.split())
    assert measured(cantorix.open(SAMPLE), verb, arguments) == expected


def test_known_pitch_and_formants_of_the_sample_are_found() -> None:
    track = cantorix.open(SAMPLE).select(1650, 2100).pitch(level=10, tolerance=20)
    assert np.median(track.pitch_hz) == pytest.approx(120, rel=0.02)
    spectrum = cantorix.open(SAMPLE).spectrum(at=410)
    assert spectrum.formants_hz[:3] == pytest.approx([300, 2200, 2950], rel=0.05)


def test_eight_threads_measure_eight_recordings_like_one() -> None:
    def track_of(rec: cantorix.Recording) -> cantorix.Pitch:
        return rec.pitch(method="cepstral")

    alone = track_of(cantorix.open(SAMPLE)).pitch_hz
    recordings = [cantorix.open(SAMPLE) for _ in range(8)]
    shared = recordings[:1] * 8
    with ThreadPoolExecutor(8) as pool:
        for given in (recordings, shared):
            for track in pool.map(track_of, given):
                assert np.array_equal(track.pitch_hz, alone)


def test_settings_give_the_defaults_and_arguments_win() -> None:
    settings = cantorix.Settings(pitch_lowHz=75, pitch_method=0)
    rec = cantorix.open(SAMPLE, settings=settings)
    by_argument = cantorix.open(SAMPLE).pitch(method="cepstral", low=75)
    assert np.array_equal(rec.pitch().pitch_hz, by_argument.pitch_hz)
    assert not np.array_equal(rec.pitch(low=200).pitch_hz, by_argument.pitch_hz)
    assert np.array_equal(rec.pitch(settings=cantorix.Settings()).pitch_hz,
                          cantorix.open(SAMPLE).pitch().pitch_hz)
