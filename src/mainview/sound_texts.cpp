// sound_texts.cpp - times, levels and what was lost, in words.
#include "mainview/sound_texts.h"

#include <cmath>

#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr const char* kGap = "   ";
constexpr std::int64_t kMinute = 60;  // seconds
constexpr std::int64_t kHour = 3600;

std::string TwoDigits(std::int64_t value) {
  return (value < 10 ? "0" : "") + std::to_string(value);
}

std::string DecibelText(const char* name, double db) {
  const std::string value = std::isinf(db) ? "-\u221e" : FormatOneDecimal(db);
  return std::string(name) + ' ' + value + " dB";
}

std::string Counted(std::int64_t count, const char* one, const char* several) {
  return std::to_string(count) + (count == 1 ? one : several);
}

}  // namespace

std::string ClockText(double seconds) {
  const std::int64_t whole = Truncate(seconds);
  const std::string rest = TwoDigits(whole % kMinute);
  if (whole < kHour) return std::to_string(whole / kMinute) + ':' + rest;
  return std::to_string(whole / kHour) + ':' + TwoDigits(whole % kHour / kMinute) + ':' + rest;
}

std::string PeakText(const LevelReading& level) { return DecibelText("Peak", level.heldPeakDb); }

std::string RmsText(const LevelReading& level) { return DecibelText("RMS", level.rmsDb); }

std::string ClippedText(const InputLevel& level) {
  if (level.reading.clips == 0) return "Not clipped";
  const double seconds =
      static_cast<double>(level.reading.firstClipSample) / static_cast<double>(level.rateHz);
  return "Clipped " + Counted(level.reading.clips, " time", " times") + ", first at " +
         FormatOneDecimal(seconds) + " s";
}

std::string RecordingText(const RecordingProgress& progress, const InputLevel& level) {
  std::string text = "Recording...   press mouse to stop";
  text += kGap + ClockText(progress.seconds);
  if (progress.secondsLeft) text += kGap + ClockText(*progress.secondsLeft) + " left on the disk";
  text += kGap + PeakText(level.reading);
  text += kGap + ClippedText(level);
  text += kGap + (progress.lostSamples == 0
                      ? std::string("No gaps")
                      : Counted(progress.lostSamples, " sample lost", " samples lost"));
  return text;
}

std::string PlayingText(double ms) {
  return "Playing" + (kGap + FormatOneDecimal(ms / 1000.0)) + " s";
}

}  // namespace cantorix
