// label_file_fuzz.cpp - arbitrary bytes as a label file of the formats named by
// CANTORIX_LABEL_KEYS: they are refused or read, and what was read can be made fit for the format,
// written and read again with as many labels and the same texts. The first byte chooses among
// several formats. With an empty key the format is the one that bytes and name show, and what was
// read is made fit for all.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "document/label.h"
#include "labelfile/fit_to_format.h"
#include "labelfile/text_decoding.h"
#include "platform/bytes.h"
#include "platform/text.h"

namespace {

using namespace cantorix;

constexpr double kLengthS = 1000.0;
const LabelReading kHow{8000.0, false, "talk"};

void Require(bool holds) {
  if (!holds) std::abort();
}

// Null for an empty key.
const LabelFormat* FormatFor(std::uint8_t byte) {
  static const char* const kKeys[] = {CANTORIX_LABEL_KEYS};
  return LabelFormatOf(kKeys[byte % std::size(kKeys)]);
}

std::string NameFor(std::uint8_t byte) {
  static const char* const kNames[] = {"talk.lab", "talk.txt",      "talk.tones", "talk.rec",
                                       "talk.phn", "talk.TextGrid", "talk.csv",   "talk"};
  return kNames[byte % std::size(kNames)];
}

// The labels as points of a recording, without what a recording does not hold.
LabelFile AsPoints(LabelFile file) {
  file.lengthS = kLengthS;
  file.rateHz = kHow.rateHz;
  file.recordingName = "talk.wav";
  for (LabelFileTier& tier : file.tiers) {
    tier.intervals = false;
    for (TimedLabel& label : tier.labels) label.text = CutText(label.text, kMaxLabelBytes);
    std::erase_if(tier.labels, [](const TimedLabel& label) {
      return label.startS < 0.0 || label.startS > kLengthS || label.text.empty();
    });
  }
  return file;
}

std::size_t TextsIn(const LabelFile& file, std::size_t& bytes) {
  std::size_t count = 0;
  for (const LabelFileTier& tier : file.tiers) {
    Require(IsUtf8(tier.name));
    for (const TimedLabel& label : tier.labels) {
      Require(std::isfinite(label.startS) && std::isfinite(label.endS) && IsUtf8(label.text));
      count += label.text.empty() ? 0U : 1U;
      bytes += label.text.size();
    }
  }
  return count;
}

void RequireRoundTrip(const LabelFile& file, const LabelFormat& format, bool intervals) {
  const FittedLabels fitted = FitToFormat(AsPoints(file), format, intervals);
  const LabelFile back = format.read(format.write(fitted.file), kHow);
  std::size_t sent = 0;
  std::size_t came = 0;
  Require(TextsIn(fitted.file, sent) == TextsIn(back, came));
  Require(sent == came);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const LabelFormat* const format = FormatFor(data[0]);
  const std::string bytes(data + 1, data + size);
  LabelFile file;
  try {
    const std::string name = format != nullptr ? "talk.lab" : NameFor(data[0]);
    file = ReadLabelFile(bytes, name, format, kHow).file;
  } catch (const LabelFileError&) {
    return 0;
  }
  std::size_t ignored = 0;
  TextsIn(file, ignored);
  for (const LabelFormat& target : LabelFormats()) {
    if (format != nullptr && format != &target) continue;
    RequireRoundTrip(file, target, false);
    RequireRoundTrip(file, target, true);
  }
  return 0;
}
