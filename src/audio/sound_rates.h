// sound_rates.h - which rates sound is recorded and played at, and the buffers that they give.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace cantorix {

// Offered for recording.
inline constexpr std::array<std::uint32_t, 6> kRecordingRatesHz{11025, 16000, 22050,
                                                                32000, 44100, 48000};
inline constexpr std::uint32_t kLargestDeviceRateHz = 192000;

// What one buffer of the recorder and of the player have room for.
inline constexpr std::uint32_t kCaptureRoomSamples = 65536;
inline constexpr std::uint32_t kPlaybackRoomSamples = 32768;

// Kept: the rate is divided as a whole number, so below 10000 Hz a buffer would hold nothing.
constexpr std::uint32_t CaptureBufferSamples(std::uint32_t rateHz) { return rateHz / 10000 * 4096; }

constexpr bool CanRecordAt(std::uint32_t rateHz) {
  const std::uint32_t samples = CaptureBufferSamples(rateHz);
  return samples > 0 && samples <= kCaptureRoomSamples;
}
inline constexpr const char* kNeedsRecordingRate =
    "Recording needs a rate between 10000 and 169999 Hz.";

constexpr std::uint32_t PlaybackBufferSamples(std::uint32_t rateHz) {
  switch (rateHz) {
    case 16000:
    case 22050:
      return 4096;
    case 44100:
    case 48000:
      return 8192;
    default:
      return 2048;
  }
}

// The whole number of Hz that a device is asked for; nothing when no device can have it.
constexpr std::optional<std::uint32_t> DeviceRate(double rateHz) {
  // Written so that it refuses NaN, too.
  if (!(rateHz >= 1.0 && rateHz < kLargestDeviceRateHz + 1.0)) return std::nullopt;
  return static_cast<std::uint32_t>(rateHz);
}

}  // namespace cantorix
