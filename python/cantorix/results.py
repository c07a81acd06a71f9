"""What the measurements give: arrays with their units in the names, as tables and as pictures."""

from __future__ import annotations

from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Optional

import numpy as np
import numpy.typing as npt

if TYPE_CHECKING:
    import pandas

Floats = npt.NDArray[np.float64]
FORMANTS = ("F1", "F2", "F3", "F4", "F5")


class _Result:
    """A result knows its columns; a notebook shows it as a picture where matplotlib is there."""

    def _columns(self) -> dict[str, npt.NDArray[Any]]:
        raise NotImplementedError

    def _draw(self, ax: Any) -> None:
        raise NotImplementedError

    def to_pandas(self) -> pandas.DataFrame:
        """A pandas.DataFrame with the columns of the batch program's table."""
        import pandas

        return pandas.DataFrame(self._columns())

    def plot(self, ax: Optional[Any] = None) -> Any:
        """Draws into `ax`, or into new axes, and returns them. Needs matplotlib."""
        if ax is None:
            from matplotlib.figure import Figure

            ax = Figure(figsize=(8, 3), layout="constrained").subplots()
        self._draw(ax)
        return ax

    def _repr_png_(self) -> Optional[bytes]:
        from io import BytesIO

        try:
            figure = self.plot().figure
        except ImportError:
            return None
        picture = BytesIO()
        figure.savefig(picture, format="png")
        return picture.getvalue()


def _label(ax: Any, x: str, y: str) -> None:
    ax.set_xlabel(x)
    ax.set_ylabel(y)


@dataclass(frozen=True, repr=False)
class Pitch(_Result):
    """A pitch track; arrays of shape (n,).

    times_ms: where each entry stands, ms; pitch_hz: 0 where unvoiced.
    """

    times_ms: Floats
    pitch_hz: Floats

    def __repr__(self) -> str:
        return f"<Pitch: {len(self.times_ms)} entries, {np.count_nonzero(self.pitch_hz)} voiced>"

    def _columns(self) -> dict[str, npt.NDArray[Any]]:
        return {"time_ms": self.times_ms, "pitch_hz": self.pitch_hz}

    def _draw(self, ax: Any) -> None:
        voiced = self.pitch_hz > 0
        ax.plot(self.times_ms[voiced], self.pitch_hz[voiced], ".")
        _label(ax, "time (ms)", "pitch (Hz)")


@dataclass(frozen=True, repr=False)
class Intensity(_Result):
    """A level contour; arrays of shape (n,).

    times_ms: where each frame starts, ms; level_db: re a mean square of 1 in 16-bit sample units,
    or above the quietest frame in relative mode; minus infinity for a frame of zeros.
    """

    times_ms: Floats
    level_db: Floats

    def __repr__(self) -> str:
        return f"<Intensity: {len(self.times_ms)} levels>"

    def _columns(self) -> dict[str, npt.NDArray[Any]]:
        return {"time_ms": self.times_ms, "intensity_db": self.level_db}

    def _draw(self, ax: Any) -> None:
        ax.plot(self.times_ms, self.level_db)
        _label(ax, "time (ms)", "intensity (dB)")


@dataclass(frozen=True, repr=False)
class Spectrum(_Result):
    """FFT spectrum and LPC envelope of a frame, or their average; arrays of shape (display,).

    frequencies_hz, fft_db, lpc_db: the curves; formants_hz and bandwidths_hz of shape (5,): F1 to
    F5, -1 where there is none.
    """

    frequencies_hz: Floats
    fft_db: Floats
    lpc_db: Floats
    formants_hz: Floats
    bandwidths_hz: Floats

    def __repr__(self) -> str:
        return f"<Spectrum: {len(self.frequencies_hz)} points, formants {self.formants_hz.round()}>"

    def _columns(self) -> dict[str, npt.NDArray[Any]]:
        return {"frequency_hz": self.frequencies_hz, "fft_db": self.fft_db, "lpc_db": self.lpc_db}

    def _draw(self, ax: Any) -> None:
        ax.plot(self.frequencies_hz, self.fft_db, label="FFT")
        ax.plot(self.frequencies_hz, self.lpc_db, label="LPC")
        ax.legend()
        _label(ax, "frequency (Hz)", "level (dB)")


@dataclass(frozen=True, repr=False)
class Spectrogram(_Result):
    """Levels over time and frequency.

    times_ms of shape (columns,), frequencies_hz of shape (rows,), level_db of shape (columns, rows)
    from 0 to the dynamic range; formants_hz of shape (columns, 5), or (0, 5) unless asked for: nan
    where there is none, 0 where the column is silent.
    """

    times_ms: Floats
    frequencies_hz: Floats
    level_db: Floats
    formants_hz: Floats

    def __repr__(self) -> str:
        return f"<Spectrogram: {len(self.times_ms)} columns, {len(self.frequencies_hz)} rows>"

    def _columns(self) -> dict[str, npt.NDArray[Any]]:
        columns = {"time_ms": self.times_ms}
        for row, frequency in enumerate(self.frequencies_hz):
            columns[f"{frequency:.1f}"] = self.level_db[:, row]
        if len(self.formants_hz):
            columns.update(zip(FORMANTS, self.formants_hz.T))
        return columns

    def _draw(self, ax: Any) -> None:
        ax.pcolormesh(
            self.times_ms, self.frequencies_hz, self.level_db.T, cmap="Greys", shading="nearest"
        )
        if len(self.formants_hz):
            ax.plot(self.times_ms, np.where(self.formants_hz > 0, self.formants_hz, np.nan), "r.")
        _label(ax, "time (ms)", "frequency (Hz)")


@dataclass(frozen=True, repr=False)
class Formants(_Result):
    """F1 to F5 over time.

    times_ms of shape (columns,); formants_hz of shape (columns, 5): whole Hz, nan where there is no
    such formant, 0 where the column is silent.
    """

    times_ms: Floats
    formants_hz: Floats

    def __repr__(self) -> str:
        return f"<Formants: {len(self.times_ms)} columns>"

    def _columns(self) -> dict[str, npt.NDArray[Any]]:
        return {"time_ms": self.times_ms, **dict(zip(FORMANTS, self.formants_hz.T))}

    def _draw(self, ax: Any) -> None:
        shown = np.where(self.formants_hz > 0, self.formants_hz, np.nan)
        ax.plot(self.times_ms, shown, ".")
        _label(ax, "time (ms)", "frequency (Hz)")
