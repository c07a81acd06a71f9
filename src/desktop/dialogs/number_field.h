// number_field.h - a field for a typed number. It holds whatever was typed; only OK judges it, so
// that nothing a user enters is changed behind their back.
#pragma once

#include <QLineEdit>
#include <optional>

#include "settings/option_row.h"

namespace cantorix {

class NumberField : public QLineEdit {
 public:
  // `fraction`: false takes whole numbers alone.
  NumberField(const OptionLimits& limits, bool fraction);

  // A whole field shows the value truncated.
  void SetValue(double value);
  // What is typed, with a decimal point in every locale; nothing unless it is a number within the
  // limits.
  std::optional<double> Value() const;
  // The sentence for a text that has no Value.
  std::string Refusal() const { return LimitsMessage(limits_, fraction_); }

 private:
  OptionLimits limits_;
  bool fraction_;
};

}  // namespace cantorix
