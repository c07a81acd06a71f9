// readout_texts.h - the strip of readouts along the bottom edge of the main view: its six pairs of
// a label and a value, where they stand and what they say. The numbers come from the view.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace cantorix {

// The numbers of the readout strip, before they become texts.
struct Readouts {
  double pitchHz = 0.0;      // at the cursor
  double intensityDb = 0.0;  // at the cursor
  double durationMs = 0.0;   // of the selection
  double cursorMs = 0.0;
  double averagePitchHz = 0.0;  // over the selection
};

inline constexpr std::int32_t kReadoutsAboveBottom = 20;  // pixels, to the top of the strip
inline constexpr std::int32_t kReadoutHeight = 16;

// Pixels from the left edge of the view.
struct ReadoutPlace {
  std::int32_t labelX, labelWidth, valueX, valueWidth;
};

struct ReadoutText {
  std::string_view label;
  std::string value;
};

inline constexpr std::size_t kReadoutCount = 6;
// From left to right: sample rate, pitch, intensity, duration, cursor, average pitch.
inline constexpr std::array<ReadoutPlace, kReadoutCount> kReadoutPlaces{{
    {5, 90, 96, 40},
    {145, 50, 196, 40},
    {246, 45, 292, 33},
    {345, 70, 416, 70},
    {496, 60, 557, 70},
    {650, 100, 752, 40},
}};

// A time in the time base of the display settings, 0 milliseconds or 1 seconds: with one decimal in
// either, here as in every list of the program.
std::string TimeText(double ms, std::int32_t timeBase);

// The texts, in the order of the places, for a time base as above. Numbers have one decimal, in
// seconds too; the rate is cut to a whole one.
std::array<ReadoutText, kReadoutCount> ReadoutTexts(const Readouts& readouts, double sampleRateHz,
                                                    std::int32_t timeBase);

}  // namespace cantorix
