// label_import.cpp - labels of the lines that hold one.
#include "mainview/label_import.h"

#include <cmath>
#include <utility>

#include "document/label.h"
#include "labelfile/plain_text.h"
#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr double kMsPerSecond = 1000.0;

}  // namespace

std::vector<Label> ReadLabelLines(std::string_view bytes, const LabelImportOptions& options) {
  std::vector<Label> labels;
  ForEachPlainLine(bytes, [&](const PlainLine& line) {
    Label label;
    label.timeMs = LeadingTime(line.time);
    if (options.unit == TimeStampUnit::kSeconds) label.timeMs *= kMsPerSecond;
    if (!std::isfinite(label.timeMs)) return;
    label.text = CutText(line.text, kMaxLabelBytes);
    label.alignment = options.alignment;
    label.flag = options.addLine ? 1 : 0;
    labels.push_back(std::move(label));
  });
  return labels;
}

}  // namespace cantorix
