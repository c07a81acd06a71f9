// label_import_fuzz.cpp - arbitrary bytes as a file of labels: every label that comes of them is
// one that a recording can hold, and CR LF line ends give the same ones.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "document/label.h"
#include "mainview/label_import.h"

namespace {

using namespace cantorix;

void Require(bool holds) {
  if (!holds) std::abort();
}

std::string WithWindowsLineEnds(const std::string& bytes) {
  std::string text;
  for (const char c : bytes) {
    if (c == '\n') text += '\r';
    text += c;
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes(data + 1, data + size);
  LabelImportOptions options;
  options.unit = (data[0] & 1U) != 0 ? TimeStampUnit::kSeconds : TimeStampUnit::kMilliseconds;
  const auto labels = ReadLabelLines(bytes, options);
  for (const Label& label : labels) {
    Require(std::isfinite(label.timeMs) && label.timeMs >= 0.0);
    Require(label.text.size() <= kMaxLabelBytes);
    Require(label.text.find_first_of("\r\n") == std::string::npos);
  }
  Require(ReadLabelLines(WithWindowsLineEnds(bytes), options) == labels);
  return 0;
}
