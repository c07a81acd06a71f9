// settings.h - every analysis parameter, display range and window placement, as plain values.
// The application block belongs to the program, everything else is copied into each document.
// Defaults are those of a first run at a reference rate of 11025 Hz; record.h gives each field its
// name and its place in the configuration file. Switches are 0 or 1; choices between buttons count
// from 0 in the order of the dialog.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/generic_parameters.h"
#include "settings/application_settings.h"

namespace cantorix {

struct DisplaySettings {
  std::int32_t automaticAnalysis = 0;  // pitch and intensity of the whole file after opening
  std::int32_t printUnit = 0;          // 0 inches, 1 cm
  std::int32_t recordingInput = 0;     // 0 system default
  std::int32_t trackMouse = 0;         // cursor and selection followed by all windows
  double printWidth = 6.0;
  double printHeight = 4.0;
  std::int32_t drawAudio = 1;
  std::int32_t drawIntensity = 1;
  std::int32_t timeBase = 0;  // 0 milliseconds, 1 seconds
  std::int32_t intensityInOwnPane = 0;
  std::int32_t drawPitch = 1;
  std::int32_t drawTiers = 1;
  std::int32_t drawGrids = 1;
  std::int32_t audioPanePercent = 50;  // of the client height
  std::int32_t pitchPanePercent = 50;
};

struct GainSettings {
  double gainPercent = 0.0;  // kept whole in the file
  double reference = 0.0;    // sample units, kept whole in the file
};

struct FftLpcSettings {
  std::int32_t sizeIndex = 3;  // into the list of sizes that starts at 32 points
  std::int32_t points = 256;
  std::int32_t windowMs = 23;
  std::int32_t stepMs = 10;
  std::int32_t rangeHz = 5000;
  std::int32_t relative = 1;  // 0 Absolute, 1 Relative
  std::int32_t absoluteDb = 80;
  std::int32_t blackWhite = 1;  // of prints and bitmaps: 0 Color, 1 Black / White
  double printWidth = 6.0;
  double printHeight = 4.0;
  std::int32_t printUnit = 0;  // 0 inches, 1 cm
  std::int32_t addFrequencyGrid = 1;
  std::int32_t frequencyGridHz = 1000;
  std::int32_t addPowerGrid = 1;
  std::int32_t powerGridDb = 20;
  std::int32_t lpcOrder = 14;
  std::int32_t drawLpc = 1;
};

struct IntensitySettings {
  double windowMs = 20.0;  // kept whole in the file
  double stepMs = 10.0;    // kept whole in the file
  std::int32_t relative = 0;
};

struct SpectrogramSettings {
  std::int32_t points = 64;
  std::int32_t sizeIndex = 2;  // log2(points) - 4, written together with points
  std::int32_t rangeHz = 5000;
  std::int32_t dynamicRangeDb = 35;
  double preEmphasis = 0.98;  // 0 adds nothing
  std::int32_t displayFormants = 1;
  std::int32_t lpcOrder = 14;
  std::int32_t trackFormants = 1;
  double printWidth = 6.0;
  double printHeight = 4.0;
  std::int32_t drawAudio = 0;
  std::int32_t drawIntensity = 0;
  std::int32_t drawLabels = 0;
  std::int32_t addFrequencyGrid = 1;
  std::int32_t frequencyGridHz = 1000;
  std::int32_t addTimeGrid = 1;
  std::int32_t timeGridMs = 500;  // 0: the grid follows the zoomed window
};

enum PitchMethod : std::int32_t { kCepstral = 0, kAutoCorrelation = 1 };

struct PitchSettings {
  double windowMs = 35.0;
  double stepMs = 10.0;
  double highHz = 500.0;  // calculation range
  double lowHz = 50.0;
  std::int32_t displayHighHz = 500;
  std::int32_t displayLowHz = 50;
  std::int32_t addFrequencyGrid = 1;
  std::int32_t frequencyGridHz = 20;
  std::int32_t method = kAutoCorrelation;
  double thresholdPercent = 1.0;    // cepstral: of the largest frame energy
  double deviationHz = 100.0;       // cepstral: largest step between frames
  double voicingLevel = 1.0;        // autocorrelation: used as an integer
  double tolerancePercent = 100.0;  // autocorrelation: continuity, used as an integer
  // Of the pitch window, kept with the document while it is open; the file has no place for them.
  std::int32_t addTimeGrid = 1;
  std::int32_t timeGridMs = 500;  // 0: the grid follows the zoomed window
  std::int32_t addAudio = 0;
  std::int32_t addIntensity = 0;
  std::int32_t addLabels = 1;
  double printWidth = 6.0;
  double printHeight = 4.0;
};

struct DocumentSettings {
  double referenceRateHz = 11025.0;
  DisplaySettings display;
  double zoomRangeMs = 1000.0;  // from the cursor; kept whole in the file
  GainSettings gain;
  std::int32_t carried1 = 0;  // two words without a meaning here, carried unchanged
  std::int32_t carried2 = 0;
  std::array<std::string, 10> tierNames{"tones", "words", "breaks", "misc"};  // <= 63 bytes each
  FftLpcSettings fftLpc;
  std::int32_t logStepHz = 10;  // of the entire-frame log entry
  IntensitySettings intensity;
  SpectrogramSettings spectrogram;
  PitchSettings pitch;
  GenericParameters generic;
};

struct Settings {
  ApplicationSettings application;
  DocumentSettings document;
};

// The defaults of a new document, with the FFT/LPC window, the frequency ranges and the LPC orders
// that follow from `referenceRateHz` (> 0).
DocumentSettings DefaultDocumentSettings(double referenceRateHz = 11025.0);

}  // namespace cantorix
