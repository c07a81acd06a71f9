// textgrid_writer.cpp - Praat's long text file.
#include <algorithm>

#include "labelfile/format_writers.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

constexpr int kDecimals = 6;

std::string InQuotes(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string TimeText(double seconds) { return FormatSeconds(seconds, kDecimals); }

// An interval tier has no gaps: what lies between labels becomes an interval without text.
std::vector<TimedLabel> WithGapsFilled(const std::vector<TimedLabel>& labels, double endS) {
  std::vector<TimedLabel> whole;
  double reachedS = 0.0;
  for (const TimedLabel& label : labels) {
    if (label.startS > reachedS) whole.push_back({reachedS, label.startS, {}});
    whole.push_back(label);
    reachedS = label.endS;
  }
  if (reachedS < endS) whole.push_back({reachedS, endS, {}});
  return whole;
}

void AppendTier(std::string& out, const LabelFileTier& tier, std::size_t number, double endS) {
  const std::string entry = tier.intervals ? "intervals" : "points";
  const auto labels = tier.intervals ? WithGapsFilled(tier.labels, endS) : tier.labels;
  out += "    item [" + std::to_string(number) + "]:\n        class = \"";
  out += tier.intervals ? "IntervalTier" : "TextTier";
  out += "\" \n        name = " + InQuotes(tier.name) + " \n        xmin = 0 \n        xmax = ";
  out +=
      TimeText(endS) + " \n        " + entry + ": size = " + std::to_string(labels.size()) + " \n";
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const TimedLabel& label = labels[i];
    out += "        " + entry + " [" + std::to_string(i + 1) + "]:\n";
    if (tier.intervals) {
      out += "            xmin = " + TimeText(label.startS) + " \n            xmax = ";
      out += TimeText(label.endS) + " \n            text = ";
    } else {
      out += "            number = " + TimeText(label.startS) + " \n            mark = ";
    }
    out += InQuotes(label.text) + " \n";
  }
}

double EndOf(const LabelFile& file) {
  double endS = file.lengthS;
  for (const LabelFileTier& tier : file.tiers) {
    if (!tier.labels.empty()) endS = std::max(endS, tier.labels.back().endS);
  }
  return endS;
}

}  // namespace

std::string WriteTextGrid(const LabelFile& file) {
  const double endS = EndOf(file);
  std::string out = "File type = \"ooTextFile\"\nObject class = \"TextGrid\"\n\nxmin = 0 \nxmax = ";
  out += TimeText(endS);
  if (file.tiers.empty()) return out + " \ntiers? <absent> \n";
  out += " \ntiers? <exists> \nsize = " + std::to_string(file.tiers.size()) + " \nitem []: \n";
  for (std::size_t i = 0; i < file.tiers.size(); ++i) AppendTier(out, file.tiers[i], i + 1, endS);
  return out;
}

}  // namespace cantorix
