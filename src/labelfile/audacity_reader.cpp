// audacity_reader.cpp - lines "start<tab>end<tab>text", times in seconds.
#include "labelfile/format_readers.h"
#include "labelfile/lines.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

// Takes what stands before the next tab, or all, off the front of `rest`, and the tab.
std::string_view TakeToTab(std::string_view& rest) {
  const std::size_t tab = rest.find('\t');
  const std::string_view field = rest.substr(0, tab);
  rest.remove_prefix(tab == std::string_view::npos ? rest.size() : tab + 1);
  return field;
}

double TimeIn(std::string_view field, std::size_t line) {
  const auto time = ParseNumber(Trimmed(field));
  if (!time) RefuseLine(line, Quoted(field) + " is no time");
  return *time;
}

}  // namespace

LabelFile ReadAudacity(std::string_view text, const LabelReading&) {
  LabelFile file;
  LabelFileTier& tier = file.tiers.emplace_back();
  Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    // Behind a label may stand the frequencies that it was set between.
    if (line.empty() || line.starts_with('\\')) continue;
    TimedLabel label;
    label.startS = TimeIn(TakeToTab(line), lines.number());
    label.endS = TimeIn(TakeToTab(line), lines.number());
    label.text = line;
    tier.intervals = tier.intervals || label.endS > label.startS;
    tier.labels.push_back(std::move(label));
  }
  return file;
}

}  // namespace cantorix
