// parameters.cpp - the tables, in the order in which a help text shows them.
#include "measure/parameters.h"

#include <array>

namespace cantorix {
namespace {

using enum ParameterRule;

constexpr std::array kPitch{
    Parameter{"method", "pitch.method", "cepstral or autocorrelation (default)", kPitchMethod},
    Parameter{"window", "pitch.windowMs", "Cepstral: window length, ms", kPositive},
    Parameter{"step", "pitch.stepMs", "Cepstral: step size, ms", kPositive},
    Parameter{"low", "pitch.lowHz", "Low end of the search, Hz", kPositive},
    Parameter{"high", "pitch.highHz", "High end of the search, Hz", kPositive},
    Parameter{"threshold", "pitch.thresholdPercent",
              "Cepstral: frames below this part of the largest energy are unvoiced, %"},
    Parameter{"deviation", "pitch.deviationHz", "Cepstral: largest step between frames, Hz"},
    Parameter{"level", "pitch.voicingLevel", "Autocorrelation: level of a voiced frame"},
    Parameter{"tolerance", "pitch.tolerancePercent",
              "Autocorrelation: largest step between frames, %"},
};

constexpr std::array kIntensity{
    Parameter{"window", "intensity.windowMs", "Window length, ms", kPositive},
    Parameter{"step", "intensity.stepMs", "Step size, ms", kPositive},
    Parameter{"relative", "intensity.relative", "dB above the quietest frame", kSwitch},
};

constexpr std::array kSpectrum{
    Parameter{"points", "fftlpc.points", "FFT size", kFftSize},
    Parameter{"window", "fftlpc.windowMs", "Applied window length, ms"},
    Parameter{"lpc", "fftlpc.lpcOrder",
              "LPC coefficients, and the LPC frame's length in ms; auto: one for each kHz of the "
              "recording's rate and two more",
              kLpcOrder},
    Parameter{"fmax", "fftlpc.rangeHz", "Upper frequency, Hz"},
    Parameter{"preemphasis", "spectrogram.preEmphasis", "0 to 1; 0 adds nothing"},
    Parameter{"step", "fftlpc.stepMs", "Between the frames of an average, ms", kNotNegative},
};

constexpr std::array kSpectrogram{
    Parameter{"points", "spectrogram.points", "Analysis window length", kFftSize},
    Parameter{"fmax", "spectrogram.rangeHz", "Upper frequency, Hz"},
    Parameter{"dynamic", "spectrogram.dynamicRangeDb",
              "Dynamic range, dB; columns that stay below half of it are silent"},
    Parameter{"preemphasis", "spectrogram.preEmphasis", "0 to 1; 0 adds nothing"},
    Parameter{"lpc", "spectrogram.lpcOrder",
              "LPC coefficients of the formants, and their frame's length in ms; auto: one for "
              "each kHz of the recording's rate and two more",
              kTrackingOrder},
};

}  // namespace

std::span<const Parameter> PitchParameters() { return kPitch; }
std::span<const Parameter> IntensityParameters() { return kIntensity; }
std::span<const Parameter> SpectrumParameters() { return kSpectrum; }
std::span<const Parameter> SpectrogramParameters() { return kSpectrogram; }

}  // namespace cantorix
