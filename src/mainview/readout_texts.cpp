// readout_texts.cpp - the six pairs as texts, and where they stand.
#include "mainview/readout_texts.h"

#include "platform/numbers.h"
#include "settings/time_base.h"

namespace cantorix {

// Kept: seconds have one decimal too; lists of measurements are read with that rounding.
std::string TimeText(double ms, std::int32_t timeBase) {
  return FormatOneDecimal(InTimeBase(ms, timeBase));
}

std::array<ReadoutText, kReadoutCount> ReadoutTexts(const Readouts& readouts, double sampleRateHz,
                                                    std::int32_t timeBase) {
  const bool seconds = timeBase != 0;
  return {{
      {"Sample Rate(Hz)=", std::to_string(TruncateToInt32(sampleRateHz))},
      {"Pitch(Hz)=", FormatOneDecimal(readouts.pitchHz)},
      {"Int.(dB)=", FormatOneDecimal(readouts.intensityDb)},
      {seconds ? "Duration(sec)= " : "Duration(ms)= ", TimeText(readouts.durationMs, timeBase)},
      {seconds ? "Cursor(sec)= " : "Cursor(ms)= ", TimeText(readouts.cursorMs, timeBase)},
      {"Average Pitch(Hz)=", FormatOneDecimal(readouts.averagePitchHz)},
  }};
}

}  // namespace cantorix
