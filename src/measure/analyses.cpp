// analyses.cpp - options and settings turned into runs of the analysis folder.
#include "measure/analyses.h"

#include <algorithm>

#include "analysis/intensity.h"
#include "analysis/spectrum_limits.h"
#include "measure/lpc_order.h"
#include "measure/no_result.h"
#include "measure/option_limits.h"
#include "measure/stretch.h"
#include "measure/wrong_usage.h"
#include "platform/abandon.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

SpectrumPlace PlaceOf(const MeasureOptions& options, const CChannel& channel) {
  if (!options.atMs) return {0.0, StretchOf(options, channel)};
  return {channel.PointAtTime(*options.atMs).samples, {}};
}

// Throws WrongUsage, naming the option, for what does not fit the recording's rate.
void RequireFit(const CSonadexDoc& document) {
  const double rateHz = document.channel().sampleRateHz;
  const auto refuse = [&](const char* option, std::int64_t most, std::int32_t given) {
    throw WrongUsage(std::string(option) + " may be " + std::to_string(most) + " at most, not " +
                     std::to_string(given) + ", at the recording's rate of " +
                     FormatOneDecimal(rateHz) + " Hz");
  };
  const FftLpcSettings& settings = document.settings.fftLpc;
  if (settings.rangeHz > HighestRangeHz(rateHz)) {
    refuse("--fmax", HighestRangeHz(rateHz), settings.rangeHz);
  }
  if (settings.lpcOrder > MostLpcCoefficients(rateHz)) {
    refuse("--lpc", MostLpcCoefficients(rateHz), settings.lpcOrder);
  }
}

struct Division {
  SampleRange range;
  std::int64_t columns;
};

Division DivisionOf(const MeasureOptions& options, const CChannel& channel) {
  const SampleRange range = StretchOf(options, channel);
  if (!options.columnStepMs) return {range, options.columns};
  const double step = *options.columnStepMs * channel.sampleRateHz * 0.001;
  const std::int64_t columns = std::max<std::int64_t>(Truncate(range.length() / step), 1);
  return {{range.start, range.start + static_cast<double>(columns) * step}, columns};
}

}  // namespace

PitchResult MeasurePitch(CSonadexDoc& document, const MeasureOptions& options) {
  const CChannel& channel = document.channel();
  PitchResult result =
      ComputePitch(document.Samples(), StretchOf(options, channel), channel.sampleRateHz,
                   document.settings.pitch, document.host().progress, channel.totalLength,
                   document.host().workers);
  if (result.badParameters) throw NoResult(std::string(kBadParametersText));
  if (!result.PitchValid) throw NoResult(kNoPitchTrack);
  return result;
}

IntensityResult MeasureIntensity(CSonadexDoc& document, const MeasureOptions& options) {
  const CChannel& channel = document.channel();
  IntensityResult result = ComputeIntensity(document.Samples(), StretchOf(options, channel),
                                            channel.sampleRateHz, document.settings.intensity,
                                            document.host().progress, document.host().workers);
  if (!result.IntensityValid) throw NoResult(kNoIntensity);
  return result;
}

void MeasureSpectrum(CSonadexDoc& document, const MeasureOptions& options, const Remark& remark,
                     CFFTLPCView& into) {
  SettleLpcOrder(document, options, remark, document.settings.fftLpc.lpcOrder);
  RequireFit(document);
  const SpectrumPlace place = PlaceOf(options, document.channel());
  // What does not fit was said.
  if (!into.AnalyseSpectrum(place, options.displayPoints)) throw Abandoned(AbandonReason::kFailed);
}

void MeasureSpectrogram(CSonadexDoc& document, const MeasureOptions& options, const Remark& remark,
                        CSpectrogramView& into, const LevelTaker& takeLevels) {
  RequireSpectrogramRange(options, document);
  SpectrogramSettings& settings = document.settings.spectrogram;
  settings.trackFormants = options.formantColumns ? 1 : 0;
  if (options.formantColumns) SettleLpcOrder(document, options, remark, settings.lpcOrder);
  const SampleRange range = StretchOf(options, document.channel());
  if (into.ComputeSpectrogram(range, {options.columns, options.rows, true, false, takeLevels}))
    return;
  throw NoResult("no spectrogram: the recording has no sampling rate to go by");
}

void MeasureFormants(CSonadexDoc& document, const MeasureOptions& options, const Remark& remark,
                     CSpectrogramView& into) {
  RequireSpectrogramRange(options, document);
  SpectrogramSettings& settings = document.settings.spectrogram;
  settings.trackFormants = 1;
  SettleLpcOrder(document, options, remark, settings.lpcOrder);
  const Division division = DivisionOf(options, document.channel());
  if (into.ComputeSpectrogram(division.range, {division.columns, options.rows, false})) return;
  throw NoResult("no formants: the recording has no sampling rate to go by");
}

}  // namespace cantorix
