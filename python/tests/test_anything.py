"""Whatever Python can pass, the answer is a result or an exception of Python."""

from __future__ import annotations

import os
import warnings
from typing import Any

import numpy as np
from hypothesis import HealthCheck, given, settings
from hypothesis import strategies as st

import cantorix

ANYTHING: st.SearchStrategy[Any] = st.one_of(
    st.none(), st.booleans(), st.integers(), st.integers(-5, 600), st.floats(),
    st.floats(-10, 1000), st.text(max_size=5), st.binary(max_size=5), st.lists(st.integers()),
    st.sampled_from(["auto", "cepstral", np.float32(100), np.int64(64), np.zeros(3), object()]),
)
ARGUMENTS = {
    "pitch": ["method", "window", "step", "low", "high", "threshold", "deviation", "level",
              "tolerance", "from_ms", "to_ms", "settings", "progress"],
    "intensity": ["window", "step", "relative", "samples", "from_ms", "to_ms", "settings"],
    "spectrum": ["at", "from_ms", "to_ms", "points", "window", "lpc", "fmax", "preemphasis",
                 "step", "settings"],
    "spectrogram": ["rows", "points", "fmax", "dynamic", "preemphasis", "formants", "lpc",
                    "from_ms", "to_ms", "settings"],
    "formants": ["step", "rows", "points", "fmax", "lpc", "from_ms", "to_ms"],
}
TAKEN = (ValueError, TypeError, OSError, MemoryError, OverflowError, cantorix.MeasureError)
QUICK = settings(max_examples=int(os.environ.get("CANTORIX_EXAMPLES", "150")), deadline=None, database=None,
                 suppress_health_check=list(HealthCheck))


def short() -> cantorix.Recording:
    noise = np.random.default_rng(1).integers(-9000, 9000, 4000)
    return cantorix.from_samples(noise.astype(np.int16), 11025)


@QUICK
@given(st.data())
def test_measurements_take_anything(data: st.DataObject) -> None:
    verb = data.draw(st.sampled_from(sorted(ARGUMENTS)))
    names = st.sampled_from(ARGUMENTS[verb])
    given_ = data.draw(st.dictionaries(names, ANYTHING, max_size=4))
    rec = short()
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        try:
            getattr(rec, verb)(**given_)
        except TAKEN:
            pass
    assert len(rec.intensity().level_db) > 0


@QUICK
@given(ANYTHING, ANYTHING, ANYTHING, ANYTHING)
def test_opening_labels_and_settings_take_anything(a: Any, b: Any, c: Any, d: Any) -> None:
    rec = short()
    for call in (
        lambda: cantorix.open(a, b, c, d),
        lambda: cantorix.from_samples(a, b),
        lambda: cantorix.Settings(pitch_lowHz=a, display_timeBase=b),
        lambda: rec.select(a, b),
        lambda: rec.tiers.add(a).append(cantorix.Label(b, c, d)),
        lambda: rec.tiers.add("t").append(cantorix.Label(1, "x", "left", a, b, c, d)),
        lambda: rec.tiers.add("t").append(cantorix.Label(1, "x", label_box=a, font=b)),
        lambda: rec.import_labels(a, b, c, d),
        lambda: rec.export_labels("/dev/null/x", a, b, c),
    ):
        try:
            call()  # type: ignore[no-untyped-call]
        except TAKEN:
            pass
    assert len(rec.samples) == 4000
