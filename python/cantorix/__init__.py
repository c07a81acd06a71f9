"""Speech measurements as arrays: the engine of Cantorix for Python.

    import cantorix
    rec = cantorix.open("samples/vowels.qrv")
    track = rec.pitch(method="cepstral", low=75)
    track.times_ms, track.pitch_hz

Every figure is digit for digit that of ``cantorix-batch --exact``. Times are in ms, frequencies in
Hz, levels in dB. The engine works without the lock of the interpreter: threads measure different
recordings at the same time, and an interrupt ends a long call.
"""

from ._engine import MeasureError
from .labels import Label, Tier
from .recording import Recording, from_samples, open
from .results import Formants, Intensity, Pitch, Spectrogram, Spectrum
from .settings import Settings

__all__ = [
    "Formants",
    "Intensity",
    "Label",
    "MeasureError",
    "Pitch",
    "Recording",
    "Settings",
    "Spectrogram",
    "Spectrum",
    "Tier",
    "from_samples",
    "open",
]
