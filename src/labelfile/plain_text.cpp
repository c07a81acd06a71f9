// plain_text.cpp - one label per line that begins like a number.
#include "labelfile/plain_text.h"

#include <cmath>
#include <cstddef>
#include <string>

#include "labelfile/format_readers.h"
#include "labelfile/format_writers.h"
#include "labelfile/lines.h"
#include "labelfile/time_text.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace cantorix {
namespace {

constexpr std::size_t kTooLong = 1000;  // bytes of a line
constexpr double kMsPerSecond = 1000.0;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";  // at the start of many text files

bool BeginsLikeANumber(std::string_view line) {
  return (line.front() >= '0' && line.front() <= '9') || line.front() == '.';
}

std::string Written(const LabelFile& file, double unitsPerSecond, int decimals) {
  std::string out;
  for (const LabelFileTier& tier : file.tiers) {
    for (const TimedLabel& label : tier.labels) {
      out += FormatSeconds(label.startS * unitsPerSecond, decimals) + '\t' + label.text + '\n';
    }
  }
  return out;
}

}  // namespace

double LeadingTime(std::string_view time) {
  return LeadingNumber(std::string(time.substr(0, time.find_first_not_of("0123456789.eE+-"))));
}

void ForEachPlainLine(std::string_view bytes, const std::function<void(const PlainLine&)>& take) {
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  for (std::string_view line; !(line = TakeLine(bytes)).empty();) {
    if (line.size() >= kTooLong || !BeginsLikeANumber(line)) continue;
    const std::size_t tab = line.find('\t');
    const bool tabbed = tab != std::string_view::npos;
    take({line.substr(0, tab), tabbed ? line.substr(tab + 1) : std::string_view()});
  }
}

LabelFile ReadPlainText(std::string_view text, const LabelReading& how) {
  LabelFile file;
  LabelFileTier& tier = file.tiers.emplace_back();
  ForEachPlainLine(text, [&](const PlainLine& line) {
    // A whole number may have a decimal comma; what only begins like one ends before it.
    const auto whole = ParseNumber(Trimmed(line.time));
    const double number = whole ? *whole : LeadingTime(line.time);
    const double seconds = how.milliseconds ? number / kMsPerSecond : number;
    if (std::isfinite(seconds)) tier.labels.push_back({seconds, seconds, std::string(line.text)});
  });
  return file;
}

std::string WritePlainText(const LabelFile& file) { return Written(file, 1.0, 6); }

std::string WritePlainTextMs(const LabelFile& file) { return Written(file, kMsPerSecond, 3); }

}  // namespace cantorix
