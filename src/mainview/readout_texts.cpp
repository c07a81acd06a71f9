// readout_texts.cpp
#include "mainview/readout_texts.h"

#include "platform/numbers.h"

namespace cantorix {

std::array<ReadoutText, kReadoutCount> ReadoutTexts(const Readouts& readouts, double sampleRateHz,
                                                    std::int32_t timeBase) {
  const bool seconds = timeBase != 0;
  // Kept: seconds have one decimal too, as in every list of the program.
  const auto timeText = [&](double ms) { return FormatOneDecimal(seconds ? ms * 0.001 : ms); };
  return {{
      {"Sample Rate(Hz)=", std::to_string(TruncateToInt32(sampleRateHz))},
      {"Pitch(Hz)=", FormatOneDecimal(readouts.pitchHz)},
      {"Int.(dB)=", FormatOneDecimal(readouts.intensityDb)},
      {seconds ? "Duration(sec)= " : "Duration(ms)= ", timeText(readouts.durationMs)},
      {seconds ? "Cursor(sec)= " : "Cursor(ms)= ", timeText(readouts.cursorMs)},
      {"Average Pitch(Hz)=", FormatOneDecimal(readouts.averagePitchHz)},
  }};
}

}  // namespace cantorix
