// number_field.cpp - numbers are read and shown with a decimal point in every locale.
#include "desktop/dialogs/number_field.h"

#include <QLocale>
#include <cmath>

namespace cantorix {
namespace {

constexpr int kWidestDigits = 9;  // that a field shows at once

QString ShortText(double value) {
  return QLocale::c().toString(value, 'g', QLocale::FloatingPointShortest);
}

}  // namespace

CheckedField::CheckedField() {
  setAlignment(Qt::AlignRight);
  setMaximumWidth(fontMetrics().horizontalAdvance(QString(kWidestDigits + 2, '0')));
}

WholeField::WholeField(WholeLimits limits) : limits_(limits) {}

void WholeField::SetValue(std::int32_t value) { setText(QString::number(value)); }

std::int32_t WholeField::Value() const { return Read().value_or(limits_.least); }

std::optional<std::string> WholeField::Refusal() const {
  if (Read()) return std::nullopt;
  return "Enter an integer between " + std::to_string(limits_.least) + " and " +
         std::to_string(limits_.most) + ".";
}

std::optional<std::int32_t> WholeField::Read() const {
  bool isNumber = false;
  const int value = QLocale::c().toInt(text().trimmed(), &isNumber);
  if (!isNumber || value < limits_.least || value > limits_.most) return std::nullopt;
  return value;
}

DecimalField::DecimalField(DecimalLimits limits) : limits_(limits) {}

void DecimalField::SetValue(double value) { setText(ShortText(value)); }

double DecimalField::Value() const { return Read().value_or(limits_.least); }

std::optional<std::string> DecimalField::Refusal() const {
  if (Read()) return std::nullopt;
  return "Enter a number between " + ShortText(limits_.least).toStdString() + " and " +
         ShortText(limits_.most).toStdString() + ".";
}

std::optional<double> DecimalField::Read() const {
  bool isNumber = false;
  const double value = QLocale::c().toDouble(text().trimmed(), &isNumber);
  const bool fits = isNumber && value >= limits_.least && value <= limits_.most;
  return fits ? std::optional(value) : std::nullopt;
}

}  // namespace cantorix
