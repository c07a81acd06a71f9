"""Recordings: opened, made of samples, measured, saved."""

from __future__ import annotations

import math
from collections.abc import Callable
from typing import Literal, Optional, Union

import numpy as np
import numpy.typing as npt

from . import _engine
from ._paths import Path, encoded
from .labels import Tiers
from .results import Formants, Intensity, Pitch, Spectrogram, Spectrum
from .settings import Settings

Progress = Callable[[str, float], object]
Order = Union[int, Literal["auto"]]
GenericRead = tuple[int, int, Literal[8, 16], Literal["low", "high"], Literal["binary", "ascii"]]


def _number(name: str, value: object) -> float:
    if isinstance(value, (int, float, np.integer, np.floating)) and not isinstance(value, bool):
        return float(value)
    raise ValueError(f"{name} must be a number, not {value!r}")


def _whole(name: str, value: object, least: int, most: int) -> int:
    if isinstance(value, (int, np.integer)) and not isinstance(value, bool):
        if least <= int(value) <= most:
            return int(value)
    raise ValueError(f"{name} must be a whole number, {least} to {most}, not {value!r}")


def _record(settings: Optional[Settings]) -> Optional[_engine.Settings]:
    if settings is None or isinstance(settings, Settings):
        return None if settings is None else settings._record
    raise ValueError(f"settings must be a cantorix.Settings, not {settings!r}")


def _generic(given: Optional[GenericRead]) -> Optional[_engine.Generic]:
    if given is None:
        return None
    try:
        header, rate, bits, order, kind = given
    except (TypeError, ValueError):
        raise ValueError(
            f"generic must be (header, rate, 8|16, 'low'|'high', 'binary'|'ascii'), not {given!r}"
        ) from None
    for value, choices in ((bits, (8, 16)), (order, ("low", "high")), (kind, ("binary", "ascii"))):
        if value not in choices:
            raise ValueError(f"generic must hold one of {choices}, not {value!r}")
    return _engine.Generic(
        _whole("generic[0]", header, 0, 2**31 - 1),
        _whole("generic[1]", rate, 1, 2**31 - 1),
        bits == 16,
        order == "high",
        kind == "binary",
    )


def open(
    path: Path,
    channel: Optional[int] = None,
    generic: Optional[GenericRead] = None,
    memory_minutes: Optional[int] = None,
    *,
    settings: Optional[Settings] = None,
    progress: Optional[Progress] = None,
) -> Recording:
    """Opens a recording of any format that Cantorix reads; its content decides which.

    channel: which one to read of a file with several, counted from 1.
    generic: how to read a file of no known kind: (header bytes, rate in Hz, 8 or 16 bits,
        "low" or "high" byte first, "binary" or "ascii").
    memory_minutes: recordings of this length and more stay on the disk.
    settings: of the measurements of this recording; the defaults without.
    progress: called as progress(text, fraction) some thirty times a second.

    Raises OSError when the file cannot be read, ValueError for an argument that does not fit.
    """
    record = _engine.Settings(_record(settings) or _engine.Settings())
    if memory_minutes is not None:
        minutes = _whole("memory_minutes", memory_minutes, 0, 2**31 - 1)
        record.set("application.memoryMinutes", minutes)
    if channel is not None:
        channel = _whole("channel", channel, 1, 65535)
    if progress is not None and not callable(progress):
        raise ValueError(f"progress must be callable, not {progress!r}")
    raw = encoded(path)
    return Recording(_engine.open(raw, channel, _generic(generic), record, progress))


def from_samples(
    samples: npt.NDArray[np.int16], rate: float, *, settings: Optional[Settings] = None
) -> Recording:
    """A recording of `samples`, an int16 array of shape (n,), n > 0, at `rate` Hz; copies them.

    Raises ValueError for another type or shape, and for a rate that no recording can have.
    """
    if not isinstance(samples, np.ndarray) or samples.dtype != np.int16:
        kind = getattr(samples, "dtype", type(samples).__name__)
        raise ValueError(f"samples must be an array of int16, not of {kind}")
    if samples.ndim != 1 or samples.size == 0:
        raise ValueError(f"samples must have the shape (n,), n > 0, not {samples.shape}")
    hz = _number("rate", rate)
    if not (math.isfinite(hz) and hz > 0):
        raise ValueError(f"rate must be above 0 Hz, not {rate!r}")
    record = _record(settings) or _engine.Settings()
    return Recording(_engine.from_samples(np.ascontiguousarray(samples), hz, record))


class Recording:
    """An open recording, or a stretch of one.

    Several threads may measure different recordings at once; those of one recording take turns.
    Each measurement takes the names of the batch program's options; None means the value of the
    settings. Each raises ValueError for an argument outside its range, before any work,
    cantorix.MeasureError when nothing comes of it, OSError when the file has changed meanwhile.
    """

    def __init__(
        self,
        engine: _engine.Recording,
        from_ms: Optional[float] = None,
        to_ms: Optional[float] = None,
    ) -> None:
        self._engine = engine
        self._from_ms = from_ms
        self._to_ms = to_ms
        self._info = engine.info()

    def __repr__(self) -> str:
        return f"<Recording: {self.duration_ms:.1f} ms at {self.rate:g} Hz>"

    @property
    def rate(self) -> float:
        """Samples in a second, Hz."""
        return float(self._info["rate_hz"])

    @property
    def duration_ms(self) -> float:
        """Of the recording, or of the stretch, ms."""
        end = self._info["duration_ms"] if self._to_ms is None else self._to_ms
        return float(end - (self._from_ms or 0.0))

    @property
    def format(self) -> str:
        """Of the file, with the coding of its samples where that is known."""
        return ", ".join(word for word in (self._info["format"], self._info["encoding"]) if word)

    @property
    def channels(self) -> int:
        """How many the file has; one of them was read."""
        return int(self._info["channels"])

    @property
    def on_disk(self) -> bool:
        """Whether the samples stay on the disk: `memory_minutes` of open()."""
        return bool(self._info["on_disk"])

    @property
    def samples(self) -> npt.NDArray[np.int16]:
        """The samples, read-only: a view without a copy, or a copy of those on the disk."""
        end = self._info["duration_ms"] if self._to_ms is None else self._to_ms
        return self._engine.samples(self._from_ms or 0.0, end)

    @property
    def tiers(self) -> Tiers:
        """The tiers in use by name, each a list of labels that can be changed."""
        return Tiers(self._engine)

    def import_labels(
        self,
        path: Path,
        format: Optional[str] = None,
        tier: Optional[str] = None,
        empty_intervals: bool = False,
    ) -> None:
        """Adds the labels of another program's file; what does not come in is a warning.

        format: a key of the batch program's label formats; else the one that the file shows.
        tier: the only one to take, or the name for a file without tiers.
        """
        self._engine.import_labels(encoded(path), format or "", tier or "", bool(empty_intervals))

    def export_labels(
        self, path: Path, format: str, tier: Optional[str] = None, intervals: bool = False
    ) -> None:
        """Writes the labels as a file for another program; what it cannot hold is a warning.

        intervals: labels become intervals up to the next label instead of points.
        """
        self._engine.export_labels(encoded(path), format, tier or "", bool(intervals))

    def select(self, from_ms: Optional[float] = None, to_ms: Optional[float] = None) -> Recording:
        """The stretch between two times of the recording, ms; what is measured in it keeps the
        times of the recording. ValueError when it holds no sample or lies outside."""
        start = None if from_ms is None else _number("from_ms", from_ms)
        end = None if to_ms is None else _number("to_ms", to_ms)
        self._engine.require_stretch(start, end)
        return Recording(self._engine, start, end)

    def save(self, path: Path) -> None:
        """Writes a native file: samples, tiers, labels. A failed save leaves an earlier file."""
        self._engine.write(encoded(path), False, self._from_ms, self._to_ms)

    def export_wave(self, path: Path) -> None:
        """Writes a WAV file, mono of 16 bits, without labels."""
        self._engine.write(encoded(path), True, self._from_ms, self._to_ms)

    def pitch(
        self,
        *,
        method: Optional[Literal["cepstral", "autocorrelation"]] = None,
        window: Optional[float] = None,
        step: Optional[float] = None,
        low: Optional[float] = None,
        high: Optional[float] = None,
        threshold: Optional[float] = None,
        deviation: Optional[float] = None,
        level: Optional[float] = None,
        tolerance: Optional[float] = None,
        from_ms: Optional[float] = None,
        to_ms: Optional[float] = None,
        settings: Optional[Settings] = None,
        progress: Optional[Progress] = None,
    ) -> Pitch:
        """The fundamental frequency, by a cepstral peak or by average magnitude differences.

        Cepstral: window and step in ms, threshold (frames below this part of the largest energy
        are unvoiced, %), deviation (largest step between frames, Hz). Autocorrelation, 100 samples
        a step: level of a voiced frame, tolerance (largest step between frames, %). Both search
        from low to high, Hz.
        """
        given = _given(locals())
        return Pitch(*self._engine.pitch(self._arguments(given, settings, progress)))

    def intensity(
        self,
        *,
        window: Optional[float] = None,
        step: Optional[float] = None,
        relative: Optional[bool] = None,
        samples: Optional[bool] = None,
        from_ms: Optional[float] = None,
        to_ms: Optional[float] = None,
        settings: Optional[Settings] = None,
        progress: Optional[Progress] = None,
    ) -> Intensity:
        """The level of the mean square of each window, ms, every step, ms.

        relative: dB above the quietest frame; samples: one level for each sample, not each frame.
        L. R. Rabiner, R. W. Schafer, "Digital Processing of Speech Signals", 1978.
        """
        given = _given(locals())
        return Intensity(*self._engine.intensity(self._arguments(given, settings, progress)))

    def spectrum(
        self,
        *,
        at: Optional[float] = None,
        from_ms: Optional[float] = None,
        to_ms: Optional[float] = None,
        points: Optional[int] = None,
        window: Optional[int] = None,
        lpc: Optional[Order] = None,
        fmax: Optional[int] = None,
        preemphasis: Optional[float] = None,
        step: Optional[int] = None,
        display: Optional[int] = None,
        settings: Optional[Settings] = None,
        progress: Optional[Progress] = None,
    ) -> Spectrum:
        """FFT spectrum, LPC envelope and formants of the frame at a time, ms, or the running
        average of frames `step` ms apart over a stretch.

        points: FFT size, a power of two from 32 to 8192; window in ms; lpc: coefficients, or
        "auto" for one for each kHz of the rate and two more; fmax: upper frequency, Hz;
        display: points of the curves. Linear prediction by the autocorrelation method:
        J. D. Markel, A. H. Gray, "Linear Prediction of Speech", 1976.
        """
        given = _given(locals())
        arguments = self._arguments(given, settings, progress)
        place = arguments[0]
        if at is not None and (from_ms is not None or to_ms is not None):
            raise ValueError("at must be given without from_ms and to_ms")
        if at is None and "from_ms" not in place and "to_ms" not in place:
            raise ValueError("at must be given, or from_ms or to_ms")
        return Spectrum(*self._engine.spectrum(arguments))

    def spectrogram(
        self,
        *,
        columns: Optional[int] = None,
        rows: Optional[int] = None,
        points: Optional[int] = None,
        fmax: Optional[int] = None,
        dynamic: Optional[int] = None,
        preemphasis: Optional[float] = None,
        formants: Optional[bool] = None,
        lpc: Optional[Order] = None,
        from_ms: Optional[float] = None,
        to_ms: Optional[float] = None,
        settings: Optional[Settings] = None,
        progress: Optional[Progress] = None,
    ) -> Spectrogram:
        """Levels over time (columns, 500 unless given) and frequency (rows, 200 unless given).

        points: FFT size; fmax: upper frequency, Hz; dynamic: range, dB, below half of which a
        column is silent; formants: F1 to F5 as well, with `lpc` coefficients or "auto".
        """
        given = _given(locals())
        return Spectrogram(*self._engine.spectrogram(self._arguments(given, settings, progress)))

    def formants(
        self,
        *,
        step: Optional[float] = None,
        columns: Optional[int] = None,
        rows: Optional[int] = None,
        points: Optional[int] = None,
        fmax: Optional[int] = None,
        dynamic: Optional[int] = None,
        preemphasis: Optional[float] = None,
        lpc: Optional[Order] = None,
        from_ms: Optional[float] = None,
        to_ms: Optional[float] = None,
        settings: Optional[Settings] = None,
        progress: Optional[Progress] = None,
    ) -> Formants:
        """F1 to F5 every `step` ms, or in so many columns: the poles of linear prediction.

        rows: of the picture that decides which columns are silent; the others as in spectrogram().
        """
        if (step is None) == (columns is None):
            raise ValueError("step or columns must be given, and not both")
        given = _given(locals())
        return Formants(*self._engine.formants(self._arguments(given, settings, progress)))

    def _arguments(
        self,
        given: dict[str, object],
        settings: Optional[Settings],
        progress: Optional[Progress],
    ) -> tuple[dict[str, object], Optional[_engine.Settings], Optional[Progress]]:
        """With the ends of the stretch where no others are given."""
        if "at" not in given:
            for name, end in (("from_ms", self._from_ms), ("to_ms", self._to_ms)):
                if name not in given and end is not None:
                    given[name] = end
        return given, _record(settings), progress


def _given(arguments: dict[str, object]) -> dict[str, object]:
    """The arguments of a measurement that have a value."""
    others = ("self", "settings", "progress")
    return {name: value for name, value in arguments.items()
            if name not in others and value is not None}
