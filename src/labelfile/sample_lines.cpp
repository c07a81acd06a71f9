// sample_lines.cpp - the label files beside SPHERE corpora: "start end text", in samples.
#include <cmath>

#include "labelfile/format_readers.h"
#include "labelfile/format_writers.h"
#include "labelfile/lines.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

double SecondsAt(std::string_view field, double rateHz, std::size_t line) {
  const auto sample = ParseCount(field);
  if (!sample) RefuseLine(line, Quoted(field) + " is no number of a sample");
  return static_cast<double>(*sample) / rateHz;
}

std::string SampleAt(double seconds, double rateHz) {
  return std::to_string(std::llround(seconds * rateHz));
}

}  // namespace

LabelFile ReadSampleLines(std::string_view text, const LabelReading& how) {
  LabelFile file;
  LabelFileTier& tier = file.tiers.emplace_back();
  tier.intervals = true;
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    if (Trimmed(line).empty()) continue;
    TimedLabel label;
    label.startS = SecondsAt(TakeField(line), how.rateHz, lines.number());
    label.endS = SecondsAt(TakeField(line), how.rateHz, lines.number());
    label.text = Trimmed(line);
    tier.labels.push_back(std::move(label));
  }
  return file;
}

std::string WriteSampleLines(const LabelFile& file) {
  std::string out;
  for (const LabelFileTier& tier : file.tiers) {
    for (const TimedLabel& label : tier.labels) {
      out += SampleAt(label.startS, file.rateHz) + ' ' + SampleAt(label.endS, file.rateHz) + ' ' +
             label.text + '\n';
    }
  }
  return out;
}

}  // namespace cantorix
