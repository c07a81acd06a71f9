// print_size_group.h - the group of fields for the size of a print or bitmap, which several dialogs
// have.
#pragma once

#include <cstdint>

class QButtonGroup;

namespace cantorix {

class DecimalField;
class FormDialog;

enum class PrintUnits { kInches, kInchesOrCm };

struct PrintSize {
  double width = 6.0;
  double height = 4.0;
  std::int32_t unit = 0;  // 0 inches, 1 cm
};

// The fields of the group, which belong to their dialog.
struct PrintSizeGroup {
  DecimalField* width = nullptr;
  DecimalField* height = nullptr;
  QButtonGroup* unit = nullptr;  // null where the size is always in inches

  void Fill(const PrintSize& size) const;
  PrintSize Entered() const;
};

}  // namespace cantorix
