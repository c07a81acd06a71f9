// esps_labels.cpp - the label files of ESPS/xwaves: a head that ends with a line "#", then lines
// "seconds colour text". The head does not say whether a time is the end of a segment or a point.
#include <cstddef>

#include "labelfile/format_readers.h"
#include "labelfile/format_writers.h"
#include "labelfile/lines.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

constexpr const char* kColour = "121";

std::string_view FirstField(std::string_view line) { return TakeField(line); }

// Behind the head.
Lines PassHead(std::string_view text) {
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    if (Trimmed(line) == "#") return lines;
  }
  throw LabelFileError("the line \"#\" at the end of the head is missing");
}

TimedLabel LabelIn(std::string_view line, std::size_t number) {
  const std::string_view field = TakeField(line);
  const auto time = ParseNumber(field);
  if (!time) RefuseLine(number, Quoted(field) + " is no time");
  if (ParseCount(FirstField(line))) TakeField(line);  // the colour
  return {*time, *time, std::string(Trimmed(line))};
}

LabelFile ReadEsps(std::string_view text, bool segments) {
  LabelFile file;
  LabelFileTier& tier = file.tiers.emplace_back();
  tier.intervals = segments;
  double reachedS = 0.0;
  Lines lines = PassHead(text);
  for (std::string_view line; lines.Next(line);) {
    if (Trimmed(line).empty()) continue;
    TimedLabel label = LabelIn(line, lines.number());
    if (segments) label.startS = reachedS;
    reachedS = label.endS;
    tier.labels.push_back(std::move(label));
  }
  return file;
}

std::string Line(double seconds, const std::string& text) {
  return "    " + FormatSeconds(seconds, 6, 6) + "  " + kColour + ' ' + text + '\n';
}

std::string Head(const LabelFile& file) {
  return "signal " + file.recordingName + "\ntype 0\ncolor " + kColour +
         "\ncomment \nseparator ;\nnfields 1\n#\n";
}

}  // namespace

LabelFile ReadEspsSegments(std::string_view text, const LabelReading&) {
  return ReadEsps(text, true);
}

LabelFile ReadEspsPoints(std::string_view text, const LabelReading&) {
  return ReadEsps(text, false);
}

std::string WriteEspsSegments(const LabelFile& file) {
  std::string out = Head(file);
  for (const LabelFileTier& tier : file.tiers) {
    double reachedS = 0.0;
    for (const TimedLabel& label : tier.labels) {
      // A segment begins where the last one ended.
      if (label.startS > reachedS) out += Line(label.startS, {});
      out += Line(label.endS, label.text);
      reachedS = label.endS;
    }
  }
  return out;
}

std::string WriteEspsPoints(const LabelFile& file) {
  std::string out = Head(file);
  for (const LabelFileTier& tier : file.tiers) {
    for (const TimedLabel& label : tier.labels) out += Line(label.startS, label.text);
  }
  return out;
}

}  // namespace cantorix
