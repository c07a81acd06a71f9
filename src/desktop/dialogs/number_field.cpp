// number_field.cpp - numbers are read and shown with a decimal point in every locale.
#include "desktop/dialogs/number_field.h"

#include <QLocale>

#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr int kWidestDigits = 9;  // that a field shows at once

}  // namespace

NumberField::NumberField(const OptionLimits& limits, bool fraction)
    : limits_(limits), fraction_(fraction) {
  setAlignment(Qt::AlignRight);
  setMaximumWidth(fontMetrics().horizontalAdvance(QString(kWidestDigits + 2, '0')));
}

void NumberField::SetValue(double value) {
  setText(fraction_ ? QLocale::c().toString(value, 'g', QLocale::FloatingPointShortest)
                    : QString::number(TruncateToInt32(value)));
}

std::optional<double> NumberField::Value() const {
  bool isNumber = false;
  const QString typed = text().trimmed();
  const double value =
      fraction_ ? QLocale::c().toDouble(typed, &isNumber) : QLocale::c().toInt(typed, &isNumber);
  const bool fits = isNumber && value >= limits_.least && value <= limits_.most;
  return fits ? std::optional(value) : std::nullopt;
}

}  // namespace cantorix
