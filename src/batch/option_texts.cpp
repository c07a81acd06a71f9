// option_texts.cpp - texts taken apart, with an error that names the option.
#include "batch/option_texts.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "labelfile/label_formats.h"

namespace cantorix::batch {
namespace {

struct StepForm {
  std::string_view word;
  EditStep::Kind kind;
  std::size_t parts;  // with the word
  const char* form;
};

constexpr std::array kStepForms{
    StepForm{"select", EditStep::kSelect, 3, "select:MS:MS"},
    StepForm{"cursor", EditStep::kCursor, 2, "cursor:MS"},
    StepForm{"cut", EditStep::kCut, 1, "cut"},
    StepForm{"copy", EditStep::kCopy, 1, "copy"},
    StepForm{"paste", EditStep::kPaste, 1, "paste"},
    StepForm{"clear", EditStep::kClear, 1, "clear"},
    StepForm{"gain", EditStep::kGain, 3, "gain:PERCENT:REFERENCE"},
    StepForm{"smooth", EditStep::kSmooth, 1, "smooth"},
    StepForm{"undo", EditStep::kUndo, 1, "undo"},
    StepForm{"label", EditStep::kLabel, 4, "label:TIER:MS:TEXT"},
};

double StepNumber(const StepForm& form, const std::string& part) {
  double number = 0.0;
  if (!CLI::detail::lexical_cast(part, number) || !std::isfinite(number)) {
    throw CLI::ValidationError("STEP",
                               std::string("expected ") + form.form + ", not a number: " + part);
  }
  return number;
}

}  // namespace

std::vector<std::string> Split(std::string_view text, char separator, std::size_t most) {
  std::vector<std::string> parts;
  while (parts.size() + 1 < most) {
    const std::size_t end = text.find(separator);
    if (end == std::string_view::npos) break;
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.emplace_back(text);
  return parts;
}

bool HasEnding(std::string_view path, std::string_view ending) {
  const auto same = [](char small, char any) {
    return small == (any >= 'A' && any <= 'Z' ? any - 'A' + 'a' : any);
  };
  return path.size() >= ending.size() &&
         std::equal(ending.begin(), ending.end(), path.end() - std::ssize(ending), same);
}

double NumberOrNan(const std::string& text) {
  double number = 0.0;
  return CLI::detail::lexical_cast(text, number) ? number
                                                 : std::numeric_limits<double>::quiet_NaN();
}

Assignment ParseAssignment(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    throw CLI::ValidationError("--set", "expected GROUP.FIELD=VALUE, not " + text);
  }
  return {text.substr(0, equals), text.substr(equals + 1)};
}

GenericParameters ParseGeneric(const std::string& text) {
  const auto parts = Split(text, ',', 6);
  GenericParameters parameters;
  const auto oneOf = [](const std::string& part, const char* no, const char* yes) {
    if (part != no && part != yes) throw CLI::ValidationError("--generic", "not known: " + part);
    return part == yes ? 1 : 0;
  };
  if (parts.size() != 5) {
    throw CLI::ValidationError("--generic", "expected HEADER,RATE,8|16,low|high,binary|ascii");
  }
  if (!CLI::detail::lexical_cast(parts[0], parameters.headerBytes) || parameters.headerBytes < 0) {
    throw CLI::ValidationError("--generic", "not a header size in bytes: " + parts[0]);
  }
  if (!CLI::detail::lexical_cast(parts[1], parameters.rateHz) || parameters.rateHz <= 0) {
    throw CLI::ValidationError("--generic", "not a rate in Hz: " + parts[1]);
  }
  parameters.sixteenBit = oneOf(parts[2], "8", "16");
  parameters.highByteFirst = oneOf(parts[3], "low", "high");
  parameters.binary = oneOf(parts[4], "ascii", "binary");
  return parameters;
}

EditStep ParseEditStep(const std::string& text) {
  const std::string word = text.substr(0, text.find(':'));
  const auto* form = std::find_if(kStepForms.begin(), kStepForms.end(),
                                  [&](const StepForm& other) { return other.word == word; });
  if (form == kStepForms.end()) throw CLI::ValidationError("STEP", "not known: " + text);
  // The text of a label may hold the separator; what is too much elsewhere is no number.
  const auto parts = Split(text, ':', std::max<std::size_t>(form->parts, 2));
  if (parts.size() != form->parts) {
    throw CLI::ValidationError("STEP", std::string("expected ") + form->form + ", not " + text);
  }
  EditStep step{text, form->kind};
  if (step.kind == EditStep::kLabel) {
    step.tier = parts[1];
    step.first = StepNumber(*form, parts[2]);
    step.label = parts[3];
    return step;
  }
  if (parts.size() > 1) step.first = StepNumber(*form, parts[1]);
  if (parts.size() > 2) step.second = StepNumber(*form, parts[2]);
  return step;
}

std::string LabelFormatKeys() {
  std::string keys;
  for (const LabelFormat& format : LabelFormats()) {
    keys += (keys.empty() ? "" : ", ") + std::string(format.key);
  }
  return keys;
}

std::string IsLabelFormat(const std::string& key) {
  return LabelFormatOf(key) != nullptr ? "" : key + " is none of: " + LabelFormatKeys();
}

}  // namespace cantorix::batch
