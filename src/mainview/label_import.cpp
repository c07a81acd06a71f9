// label_import.cpp - one label per line that begins like a number.
#include "mainview/label_import.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "document/label.h"
#include "platform/bytes.h"
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

// The decimal number that a time text begins with; hexadecimal ones are none.
double TimeOf(std::string_view text) {
  return LeadingNumber(std::string(text.substr(0, text.find_first_not_of("0123456789.eE+-"))));
}

std::optional<Label> LabelOf(std::string_view line, const LabelImportOptions& options) {
  if (line.size() >= kTooLong || !BeginsLikeANumber(line)) return std::nullopt;

  const std::size_t tab = line.find('\t');
  Label label;
  label.timeMs = TimeOf(line.substr(0, tab));
  if (options.unit == TimeStampUnit::kSeconds) label.timeMs *= kMsPerSecond;
  if (!std::isfinite(label.timeMs)) return std::nullopt;

  if (tab != std::string_view::npos) label.text = CutText(line.substr(tab + 1), kMaxLabelBytes);
  label.alignment = options.alignment;
  label.flag = options.addLine ? 1 : 0;
  return label;
}

}  // namespace

std::vector<Label> ReadLabelLines(std::string_view bytes, const LabelImportOptions& options) {
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::vector<Label> labels;
  for (std::string_view line; !(line = TakeLine(bytes)).empty();) {
    if (auto label = LabelOf(line, options)) labels.push_back(std::move(*label));
  }
  return labels;
}

}  // namespace cantorix
