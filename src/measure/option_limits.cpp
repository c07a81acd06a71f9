// option_limits.cpp - the tables of the dialogs, asked for the groups that options touched.
#include "measure/option_limits.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "measure/wrong_usage.h"
#include "settings/field_text.h"
#include "settings/option_forms.h"

namespace cantorix {
namespace {

// High enough for every frequency range; what a recording's own rate forbids shows when it is open.
constexpr double kAnyRateHz = 1e9;

std::optional<std::string> GroupRefusal(std::string_view group, const DocumentSettings& settings) {
  if (group == "fftlpc") return FormRefusal(FftLpcForm(), settings.fftLpc, kAnyRateHz);
  if (group == "intensity") return FormRefusal(IntensityForm(), settings.intensity, kAnyRateHz);
  if (group == "pitch") return FormRefusal(PitchForm(), settings.pitch, kAnyRateHz);
  if (group == "spectrogram") {
    return FormRefusal(SpectrogramForm(), settings.spectrogram, kAnyRateHz);
  }
  if (group == "zoom") return FormRefusal(ZoomForm(), settings, kAnyRateHz);
  if (group == "log") return FormRefusal(LogForm(), settings, kAnyRateHz);
  if (group == "gain") return FormRefusal(GainForm(), settings.gain, kAnyRateHz);
  return std::nullopt;
}

void RequireDialogLimits(const MeasureOptions& options, const DocumentSettings& settings) {
  std::map<std::string, std::string> touched;  // the fields of each group
  for (const Assignment& assignment : options.assignments) {
    std::string& fields = touched[assignment.field.substr(0, assignment.field.find('.'))];
    fields += (fields.empty() ? "" : ", ") + assignment.field;
  }
  for (const auto& [group, fields] : touched) {
    if (const auto refusal = GroupRefusal(group, settings)) {
      throw WrongUsage(fields + ": " + *refusal);
    }
  }
}

}  // namespace

void ApplyAssignments(const MeasureOptions& options, Settings& settings) {
  for (const Assignment& assignment : options.assignments) {
    const auto refusal = SetFieldFromText(settings, assignment.field, assignment.text);
    if (refusal) throw WrongUsage(*refusal);
  }
  RequireDialogLimits(options, settings.document);
}

void RequireSpectrogramRange(const MeasureOptions& options, const CSonadexDoc& document) {
  const auto& assignments = options.assignments;
  const bool asked = std::any_of(assignments.begin(), assignments.end(), [](const auto& given) {
    return given.field == "spectrogram.rangeHz";
  });
  if (!asked) return;
  const auto refusal = FormRefusal(SpectrogramForm(), document.settings.spectrogram,
                                   document.channel().sampleRateHz);
  if (refusal) throw WrongUsage(*refusal);
}

}  // namespace cantorix
