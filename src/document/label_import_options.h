// label_import_options.h - what the user chose when labels were imported last; a document keeps it
// for the next import.
#pragma once

#include <cstdint>

#include "document/label_alignment.h"

namespace cantorix {

enum class TimeStampUnit { kSeconds, kMilliseconds };

struct LabelImportOptions {
  TimeStampUnit unit = TimeStampUnit::kMilliseconds;
  std::int32_t alignment = kAlignLeft;  // of every label
  bool addLine = false;                 // a vertical line at every label's time
};

}  // namespace cantorix
