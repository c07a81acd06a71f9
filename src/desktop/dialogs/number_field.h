// number_field.h - fields for typed numbers. They hold whatever was typed; only OK judges it, so
// that nothing a user enters is changed behind their back.
#pragma once

#include <QLineEdit>
#include <cstdint>
#include <optional>
#include <string>

namespace cantorix {

struct WholeLimits {
  std::int32_t least = 0;
  std::int32_t most = 1000000;
};

struct DecimalLimits {
  double least = 0.0;
  double most = 1000.0;
};

// A field that OK asks for a refusal.
class CheckedField : public QLineEdit {
 public:
  // The sentence to show when the text cannot be taken; nothing when it can.
  virtual std::optional<std::string> Refusal() const = 0;

 protected:
  CheckedField();
};

class WholeField : public CheckedField {
 public:
  explicit WholeField(WholeLimits limits);

  void SetValue(std::int32_t value);
  // Of a field without a refusal; the least value otherwise.
  std::int32_t Value() const;
  std::optional<std::string> Refusal() const override;

 private:
  std::optional<std::int32_t> Read() const;

  WholeLimits limits_;
};

class DecimalField : public CheckedField {
 public:
  explicit DecimalField(DecimalLimits limits);

  void SetValue(double value);
  double Value() const;
  std::optional<std::string> Refusal() const override;

 private:
  std::optional<double> Read() const;

  DecimalLimits limits_;
};

}  // namespace cantorix
