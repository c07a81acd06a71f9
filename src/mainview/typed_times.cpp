// typed_times.cpp - numbers, units and what stands between two times.
#include "mainview/typed_times.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace cantorix {
namespace {

constexpr double kMsOfSecond = 1000.0;

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool AtEnd() {
    SkipBlanks();
    return rest_.empty();
  }
  bool Take(char mark) {
    SkipBlanks();
    if (rest_.empty() || rest_.front() != mark) return false;
    rest_.remove_prefix(1);
    return true;
  }
  // A number with its unit, in ms.
  std::optional<double> Time() {
    SkipBlanks();
    double number = 0.0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number,
                                              std::chars_format::fixed);
    if (error != std::errc() || !std::isfinite(number)) return std::nullopt;
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    SkipBlanks();
    if (TakeUnit("ms")) return number;
    return TakeUnit("s") ? number * kMsOfSecond : number;
  }

 private:
  void SkipBlanks() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) {
      rest_.remove_prefix(1);
    }
  }
  bool TakeUnit(std::string_view unit) {
    if (!rest_.starts_with(unit)) return false;
    rest_.remove_prefix(unit.size());
    return true;
  }

  std::string_view rest_;
};

}  // namespace

TypedTimes ReadTypedTimes(std::string_view text) {
  Reader reader(text);
  const auto first = reader.Time();
  if (!first) return {};
  if (reader.AtEnd()) return {1, *first, 0.0};
  const bool isLength = reader.Take('+');
  if (!isLength) reader.Take(';');
  const auto second = reader.Time();
  if (!second || !reader.AtEnd()) return {};
  return {2, *first, isLength ? *first + *second : *second};
}

}  // namespace cantorix
