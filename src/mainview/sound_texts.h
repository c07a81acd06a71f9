// sound_texts.h - what is said about a recording, a playback and a level: in the status bar and
// beside the meters.
#pragma once

#include <string>

#include "mainview/sound_desk.h"

namespace cantorix {

// "0:07", "12:34", "1:02:03": whole seconds, rounded down.
std::string ClockText(double seconds);
// "Peak -12.3 dB": below full scale; a minus and the sign for infinity in digital silence.
std::string PeakText(const LevelReading& level);
std::string RmsText(const LevelReading& level);
// "Not clipped", or how often and where it began.
std::string ClippedText(const InputLevel& level);
// Of the status bar while a recording runs.
std::string RecordingText(const RecordingProgress& progress, const InputLevel& level);
// Of the status bar while `ms` of a recording is heard.
std::string PlayingText(double ms);

}  // namespace cantorix
