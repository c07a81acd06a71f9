// field_text.cpp - strict parsing: the whole text must be the number, without blanks or signs that
// the format does not know.
#include "settings/field_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "settings/record.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using Reason = std::optional<std::string>;

template <typename Number>
Reason ParseNumber(std::string_view text, const char* kind, Number& value) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error == std::errc::result_out_of_range && stop == end) return "is out of range";
  if (error != std::errc() || stop != end) return std::string("is not ") + kind;
  return std::nullopt;
}

Reason ParseText(std::string_view text, std::string& value) {
  if (text.size() >= kFieldTextBytes) {
    return "is longer than " + std::to_string(kFieldTextBytes - 1) + " bytes";
  }
  if (text.find('\0') != std::string_view::npos) return "holds a zero byte";
  value = text;
  return std::nullopt;
}

Reason ParseValue(std::string_view text, FieldValue value) {
  if (auto* const integer = std::get_if<std::int32_t*>(&value)) {
    return ParseNumber(text, "a whole number", **integer);
  }
  if (auto* const real = std::get_if<double*>(&value)) {
    Reason reason = ParseNumber(text, "a number", **real);
    if (!reason && !std::isfinite(**real)) return "is not a finite number";
    return reason;
  }
  return ParseText(text, *std::get<std::string*>(value));
}

template <typename Number>
std::string ShortestText(Number value) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return std::string(text.data(), end);
}

}  // namespace

std::string FieldText(const Settings& settings, const Field& field) {
  const ConstFieldValue value = field.place.of(settings);
  if (const auto* integer = std::get_if<const std::int32_t*>(&value)) {
    return ShortestText(**integer);
  }
  if (const auto* real = std::get_if<const double*>(&value)) return ShortestText(**real);
  return *std::get<const std::string*>(value);
}

std::optional<std::string> SetFieldFromText(Settings& settings, std::string_view fullName,
                                            std::string_view text) {
  const std::string name(fullName);
  const Field* const field = FindField(fullName);
  if (field == nullptr) return "There is no setting \"" + name + "\".";

  Settings changed = settings;
  Reason reason = ParseValue(text, field->place.in(changed));
  if (!reason) {
    // What a configuration file may not hold, the command line may not either.
    const std::string wanted = FieldText(changed, *field);
    GuardSettings(changed);
    if (FieldText(changed, *field) != wanted) reason = "is not a possible value";
  }
  if (reason) return name + ": \"" + std::string(text) + "\" " + *reason + ".";
  settings = std::move(changed);
  return std::nullopt;
}

}  // namespace cantorix
