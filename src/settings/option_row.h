// option_row.h - a row of an option dialog as a value: its text, the members of the settings that
// it fills and reads, what it takes and the message when it does not. The tables of rows are in
// option_forms.h; the desktop builds its dialogs from them. A refusal is the message to show: the
// dialog then stays open with its values as typed.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace cantorix {

struct OptionLimits {
  double least = 0.0;
  double most = 0.0;
};
// For a number that only the row's own refusal judges.
inline constexpr OptionLimits kAnyWhole{-2147483647.0, 2147483647.0};

// The sizes of a transform as a list that starts at 32 points.
template <typename S>
struct OptionSizes {
  std::int32_t S::*index = nullptr;
  std::int32_t S::*points = nullptr;
  std::int32_t firstIndex = 0;  // stored for 32 points
  int count = 0;                // of entries
  bool chosenByPoints = false;  // false: the stored index says which entry is shown
};

// A row counts only while a choice of the dialog stands at a value.
template <typename S>
struct OptionNeed {
  std::int32_t S::*choice = nullptr;
  std::int32_t value = 0;
};

// One row; what it has says how it looks. `text` with `number`: a labelled number. With `on`: a
// switch, whose number, if any, counts only while it is on. With `on` and `second`: two buttons,
// whose index `on` holds and whose number counts with the first one. With `sizes`: a list.
template <typename S>
struct OptionRow {
  const char* text = "";
  const char* second = nullptr;
  const char* caption = "";  // before two buttons
  std::int32_t S::*on = nullptr;
  std::variant<std::monostate, std::int32_t S::*, double S::*> number{};
  OptionLimits limits{};
  bool fraction = false;  // false: the number is shown truncated and entered whole
  OptionSizes<S> sizes{};
  OptionNeed<S> needs{};
  // What the number is shown as at most at a rate in Hz; at 0 the row is out of use.
  std::int32_t (*cap)(double rateHz) = nullptr;
  // Judges the number beyond its limits, by the rows up to this one and the recording's rate.
  std::optional<std::string> (*refusal)(const S& entered, double rateHz) = nullptr;
  bool beside = false;     // stands in the line of the row before it
  bool printSize = false;  // "Default size" restores it
};

template <typename S>
struct OptionGroup {
  const char* title = "";
  std::span<const OptionRow<S>> rows{};
  const char* note = nullptr;
  bool newColumn = false;
  // A line below the rows that goes by what they hold; empty while there is nothing to say.
  std::string (*remark)(const S& entered, double rateHz) = nullptr;
};

template <typename S>
struct OptionForm {
  const char* title = "";
  std::span<const OptionGroup<S>> groups{};
  const char* restore = nullptr;  // text of the button that restores defaults
  bool restoresSizeOnly = false;
  // What was entered with the values suggested for a recording's rate; null suggests nothing.
  S (*suggested)(S entered, double rateHz) = nullptr;
};

// "Enter an integer between 1 and 100." and the like.
std::string LimitsMessage(const OptionLimits& limits, bool fraction);

// The number of a row, or 0 without one, as it is stored.
template <typename S>
double NumberOf(const OptionRow<S>& row, const S& settings) {
  if (const auto* const whole = std::get_if<std::int32_t S::*>(&row.number)) {
    return settings.*(*whole);
  }
  const auto* const real = std::get_if<double S::*>(&row.number);
  return real == nullptr ? 0.0 : settings.*(*real);
}

template <typename S>
void SetNumber(const OptionRow<S>& row, S& settings, double value) {
  if (const auto* const whole = std::get_if<std::int32_t S::*>(&row.number)) {
    settings.*(*whole) = static_cast<std::int32_t>(value);
  } else if (const auto* const real = std::get_if<double S::*>(&row.number)) {
    settings.*(*real) = value;
  }
}

template <typename S>
bool HasNumber(const OptionRow<S>& row) {
  return !std::holds_alternative<std::monostate>(row.number);
}

// Whether the number of a row counts beside the other values of `settings`.
template <typename S>
bool NumberCounts(const OptionRow<S>& row, const S& settings, double rateHz) {
  if (!HasNumber(row)) return false;
  if (row.needs.choice != nullptr && (settings.*row.needs.choice != 0) != (row.needs.value != 0)) {
    return false;
  }
  if (row.cap != nullptr && row.cap(rateHz) == 0) return false;
  if (row.on == nullptr) return true;
  return (settings.*row.on != 0) == (row.second == nullptr);
}

// The message for the number of a row, judged with the rows before it; nothing when it is taken.
template <typename S>
std::optional<std::string> RowRefusal(const OptionRow<S>& row, const S& entered, double rateHz) {
  if (!NumberCounts(row, entered, rateHz)) return std::nullopt;
  const double value = NumberOf(row, entered);
  if (!(value >= row.limits.least && value <= row.limits.most)) {
    return LimitsMessage(row.limits, row.fraction);
  }
  return row.refusal == nullptr ? std::nullopt : row.refusal(entered, rateHz);
}

// The message of the first row that refuses what was entered for a recording of `rateHz`.
template <typename S>
std::optional<std::string> FormRefusal(const OptionForm<S>& form, const S& entered, double rateHz) {
  for (const OptionGroup<S>& group : form.groups) {
    for (const OptionRow<S>& row : group.rows) {
      if (auto refusal = RowRefusal(row, entered, rateHz)) return refusal;
    }
  }
  return std::nullopt;
}

}  // namespace cantorix
