// channel.h - one data channel of a recording: samples, time state, carried words, tiers.
// Times are in milliseconds, positions in samples, both as doubles; the sample form is the master
// and ms = samples x total duration / total length.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/intensity_track.h"
#include "document/sample_block.h"
#include "document/tier.h"

namespace cantorix {

class MemoryProbe;
class Prompts;

// A stretch or a point held in both units.
struct TimePoint {
  double samples = 0.0;
  double ms = 0.0;
};

class CChannel {
 public:
  CChannel();
  virtual ~CChannel();
  // Copies the samples (into a block of its own), the time and display fields, both texts and the
  // two work blocks. The tiers, the scratch labels and the intensity track stay as they are: an
  // assigned channel keeps its own labels. Throws Abandoned when memory runs out; the target must
  // not be used then.
  CChannel& operator=(const CChannel& other);
  CChannel(const CChannel&) = delete;
  // The time and display fields and the texts alone: what assignment copies without the blocks.
  void CopyFields(const CChannel& other);

  std::uint32_t channelTag = 0;
  SampleBlock samples;  // empty while the samples are in the disk store
  double totalDurationMs = 0.0;
  double sampleRateHz = 11025.0;
  double totalLength = 0.0;  // samples; Truncate(totalLength) of them are held
  std::int32_t bitsPerSample = 16;
  std::uint32_t channelWord1 = 0;
  std::uint32_t channelWord2 = 100;
  std::string channelName;  // at most 63 bytes in the native file
  std::uint32_t channelWord3 = 0;
  std::uint32_t channelWord5 = 0;
  std::uint32_t channelFlag = 1;
  std::uint32_t channelWord6 = 0;
  std::uint32_t channelWord7 = 0;
  std::uint32_t channelWord8 = 0;
  std::string channelComment = "mv";  // amplitude unit, at most 67 bytes in the native file
  double displayLow = 8.0;            // Hz, spectral display range
  double displayHigh = 5500.0;
  double referenceLevel = 0.0;  // sample units, subtracted from reported values
  std::uint32_t channelWord4 = 1;
  double displayBound1 = 2500.0;
  double displayBound2 = 32768.0;
  std::array<double, 4> channelValues{0.0, 0.0, 1.0, 0.0};

  TimePoint visibleStart, visibleEnd, visibleLength;
  double previousStart = 0.0;  // samples; the visible stretch before the last zoom
  double previousEnd = 0.0;
  TimePoint cursor;
  double cursorValue = 0.0;  // sample units less the reference level
  TimePoint dragPoint;
  std::int32_t dragX = 0;  // pixels
  std::int32_t dragY = 0;
  TimePoint selectionStart, selectionEnd, selectionLength;

  std::vector<std::int16_t> workBlock1;  // two optional work blocks, copied on assignment
  std::vector<std::int16_t> workBlock2;

  std::vector<Label> scratchLabels;
  IntensityResult intensity;
  Tiers tiers;
  std::array<std::int32_t, 9> trailingState{0, 0, 0, 0, 0, 0, 1, 0, 0};

  // ms per sample; 0 for an empty channel.
  double msPerSample() const;
  // Samples that exist: Truncate(totalLength), at least 0.
  std::int64_t sampleCount() const;
  // The point at a time: the samples follow from the time as it is given and are clamped to
  // [0, totalLength], the time itself to [0, totalDurationMs].
  TimePoint PointAtTime(double ms) const;
  // Recomputes the visible stretch's ms from its samples.
  void UpdateVisibleMs();
  // What every reader does with a whole new recording: the visible and the previous stretch become
  // the whole file, cursor and selection go to 0.
  void ShowWholeFile();
  // Appends a label; ignored unless 0 <= tierIndex < 10. The text is cut to 255 bytes.
  void AddLabel(int tierIndex, Label label);
};

// Assignment for commands: when memory is short, shows "Error in '=' operator in CChannel class."
// and leaves by Abandoned.
void AssignOrReport(CChannel& target, const CChannel& source, const MemoryProbe& memory,
                    Prompts& prompts);

}  // namespace cantorix
