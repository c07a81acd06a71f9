// label_import_options.h - what the user chose when labels were imported and exported last; a
// document keeps it for the next time.
#pragma once

#include <cstdint>
#include <string>

#include "document/label_alignment.h"

namespace cantorix {

enum class TimeStampUnit { kSeconds, kMilliseconds };

struct LabelImportOptions {
  TimeStampUnit unit = TimeStampUnit::kMilliseconds;
  std::int32_t alignment = kAlignLeft;  // of every label
  bool addLine = false;                 // a vertical line at every label's time
};

// Of label files of other programs. Formats go by the keys of their table.
struct LabelFileOptions {
  std::string importFormat{};   // empty: that which the file shows
  bool emptyIntervals = false;  // become labels without text
  std::string exportFormat = "textgrid";
  bool asIntervals = false;  // from label to label; else points
};

}  // namespace cantorix
