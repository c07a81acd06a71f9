"""Recordings: their samples, their stretches, their files; interrupts and progress."""

from __future__ import annotations

import os
import signal
import threading
import time
from pathlib import Path

import numpy as np
import pytest

import cantorix
from conftest import SAMPLE


def tone(seconds: float, rate: int = 16000) -> cantorix.Recording:
    t = np.arange(int(seconds * rate)) / rate
    return cantorix.from_samples((8000 * np.sin(t * 880)).astype(np.int16), rate)


def test_samples_are_a_view_that_cannot_be_written(sample: cantorix.Recording) -> None:
    samples = sample.samples
    assert samples.dtype == np.int16 and len(samples) == 59646
    assert samples.ctypes.data == sample.samples.ctypes.data
    with pytest.raises(ValueError):
        samples[0] = 1
    del sample
    assert samples.any()  # the view keeps them
    on_disk = cantorix.open(SAMPLE, memory_minutes=0)
    assert on_disk.on_disk and np.array_equal(on_disk.samples, samples)
    assert np.array_equal(on_disk.select(100.02, 200.02).samples, samples[1102:2204])


def test_stretches_and_copies_hold_what_was_chosen(
    sample: cantorix.Recording, tmp_path: Path
) -> None:
    part = sample.select(1000, 2000.5)
    assert part.duration_ms == 1000.5
    assert 1000 <= part.pitch().times_ms[0] < part.pitch().times_ms[-1] < 2000.5
    part.save(tmp_path / "part.qrv")
    part.export_wave(tmp_path / "part.wav")
    for name in ("part.qrv", "part.wav"):
        assert np.array_equal(cantorix.open(tmp_path / name).samples, part.samples)
    again = cantorix.from_samples(part.samples, part.rate)
    assert np.array_equal(again.intensity().level_db, part.intensity().level_db)


def test_an_interrupt_ends_a_long_call_at_once() -> None:
    rec = tone(600)
    pressed: list[float] = []

    def press() -> None:
        pressed.append(time.monotonic())
        os.kill(os.getpid(), signal.SIGINT)

    timer = threading.Timer(0.3, press)
    timer.start()
    with pytest.raises(KeyboardInterrupt):
        rec.spectrogram(columns=1000000, rows=1)
    assert time.monotonic() - pressed[0] < 1.0  # 0.1 s on a machine that is at rest
    assert len(rec.intensity().level_db) > 0  # and the recording is as good as before


def test_progress_is_told_and_may_end_the_call() -> None:
    seen: list[tuple[str, float]] = []

    def told(text: str, fraction: float) -> None:
        seen.append((text, fraction))
        if len(seen) == 3:
            raise RuntimeError("enough")

    with pytest.raises(RuntimeError, match="enough"):
        tone(600).spectrogram(columns=1000000, rows=1, progress=told)
    assert len(seen) == 3 and seen[0][0].startswith("Processing")
    assert 0 <= seen[0][1] < seen[1][1] < seen[2][1] <= 1


def test_a_callback_cannot_ask_the_recording_that_is_at_work() -> None:
    rec = tone(600)
    with pytest.raises(RuntimeError, match="is at work"):
        rec.spectrogram(columns=1000000, rows=1, progress=lambda text, part: rec.pitch())
