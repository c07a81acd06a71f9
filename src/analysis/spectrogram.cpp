// spectrogram.cpp - the columns one by one, then the rules that need the whole picture.
// The highest level of each column is noted while it is at hand, so the picture is walked only
// once more, and formants alone need no picture at all.
#include "analysis/spectrogram.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <optional>
#include <stdexcept>

#include "analysis/spectrogram_column.h"
#include "analysis/spectrum_limits.h"
#include "platform/clones.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

bool CanCompute(const SpectrogramRequest& request, const SpectrogramSettings& settings) {
  return request.columns > 0 && request.rows > 0 && request.rateHz > 0.0 &&
         std::isfinite(request.rateHz) && std::isfinite(request.range.start) &&
         std::isfinite(request.range.end) && IsSpectrumSize(settings.points);
}

// The highest level of every column.
using ColumnMaxima = std::vector<double>;

class Run {
 public:
  Run(const SampleSource& samples, const SpectrogramRequest& request,
      const SpectrogramSettings& settings)
      : request_(request),
        maxHz_(std::min(settings.rangeHz, HighestRangeHz(request.rateHz))),
        levels_(samples, request, settings, maxHz_) {
    if (settings.trackFormants != 0) formants_.emplace(samples, request, settings);
  }

  // Fills everything but the reference of the levels; false when a column's formants fail.
  bool Analyse(ProgressScope& progress, Spectrogram& result, ColumnMaxima& maxima) {
    Prepare(result, maxima);
    const auto rows = static_cast<std::size_t>(request_.rows);
    const std::size_t stride = request_.keepLevels ? rows : 0;
    for (std::size_t c = 0; c < maxima.size(); ++c) {
      progress.StepOrAbandon(static_cast<double>(c));
      const double start = result.StartOf(static_cast<std::int64_t>(c));
      maxima[c] = levels_.Compute(start, {result.levels.get() + c * stride, rows});
      if (!formants_) continue;
      const auto found = formants_->Find(start);
      if (!found) return false;
      result.formants[c] = *found;
      result.formantsFound = result.formantsFound || found->front() != kNoFormantHz;
    }
    return true;
  }

 private:
  void Prepare(Spectrogram& result, ColumnMaxima& maxima) const {
    const auto columns = static_cast<std::size_t>(request_.columns);
    const auto rows = static_cast<std::size_t>(request_.rows);
    const std::size_t columnsHeld = request_.keepLevels ? columns : 1;
    if (columnsHeld > std::vector<double>().max_size() / rows) throw std::bad_alloc();
    result.range = request_.range;
    result.columns = request_.columns;
    result.rows = request_.rows;
    result.maxHz = maxHz_;
    result.levels = std::make_unique_for_overwrite<double[]>(columnsHeld * rows);
    maxima.resize(columns);
    if (formants_) result.formants.resize(columns);
  }

  const SpectrogramRequest& request_;
  double maxHz_;
  ColumnLevels levels_;
  std::optional<ColumnFormants> formants_;
};

double Referenced(double level, double highest, double dynamicRange) {
  const double v = level - highest + dynamicRange;
  return v < 0.0 ? 0.0 : v;
}

CANTORIX_CLONES void ReferenceLevels(std::span<double> levels, double highest, double range) {
  for (double& level : levels) level = Referenced(level, highest, range);
}

// Formants of a column that stays below half of the dynamic range are those of silence. No
// rounding turns the order of two levels around, so the reference of a column's highest level is
// its highest level once it is referenced.
void SilenceFormants(const ColumnMaxima& maxima, double highest, double range,
                     std::vector<FormantColumn>& formants) {
  for (std::size_t c = 0; c < formants.size(); ++c) {
    if (Referenced(maxima[c], highest, range) < range * 0.5) formants[c].fill(kSilentHz);
  }
}

std::size_t LevelCount(const Spectrogram& picture) {
  return static_cast<std::size_t>(picture.columns) * static_cast<std::size_t>(picture.rows);
}

// The levels as they were computed become the source; the picture gets a place of its own.
void TakeSource(Spectrogram& picture, ColumnMaxima maxima, double highest) {
  picture.source = std::make_unique<SpectrogramSource>();
  SpectrogramSource& source = *picture.source;
  source.levels = std::move(picture.levels);
  source.columnMaxima = std::move(maxima);
  source.highest = highest;
  source.formants = picture.formants;
  picture.levels = std::make_unique_for_overwrite<double[]>(LevelCount(picture));
}

Spectrogram Compute(const SampleSource& samples, const SpectrogramRequest& request,
                    const SpectrogramSettings& settings, ProgressScope& progress) {
  Spectrogram result;
  ColumnMaxima maxima;
  if (!Run(samples, request, settings).Analyse(progress, result, maxima)) {
    result = {};
    result.outcome = SpectrogramOutcome::kFormantFailure;
    return result;
  }
  const double highest = *std::max_element(maxima.begin(), maxima.end());
  if (request.keepLevels && request.keepSource) {
    TakeSource(result, std::move(maxima), highest);
    ApplyDynamicRange(result, settings.dynamicRangeDb);
  } else {
    const double range = settings.dynamicRangeDb;
    if (request.keepLevels) {
      ReferenceLevels({result.levels.get(), LevelCount(result)}, highest, range);
    } else {
      result.levels.reset();
    }
    SilenceFormants(maxima, highest, range, result.formants);
  }
  result.outcome = SpectrogramOutcome::kComputed;
  return result;
}

}  // namespace

void ApplyDynamicRange(Spectrogram& spectrogram, std::int32_t dynamicRangeDb) {
  if (!spectrogram.source) return;
  const SpectrogramSource& source = *spectrogram.source;
  const double range = dynamicRangeDb;
  const std::span<double> levels(spectrogram.levels.get(), LevelCount(spectrogram));
  std::copy_n(source.levels.get(), levels.size(), levels.begin());
  ReferenceLevels(levels, source.highest, range);
  spectrogram.formants = source.formants;
  SilenceFormants(source.columnMaxima, source.highest, range, spectrogram.formants);
}

Spectrogram ComputeSpectrogram(const SampleSource& samples, const SpectrogramRequest& request,
                               const SpectrogramSettings& settings, Progress& progress) {
  if (!CanCompute(request, settings)) return {};
  ProgressScope scope(progress, " Processing Spectrogram...(Press mouse to cancel)",
                      static_cast<double>(request.columns));
  try {
    return Compute(samples, request, settings, scope);
  } catch (const std::bad_alloc&) {
    throw Abandoned(AbandonReason::kOutOfMemory);
  } catch (const std::length_error&) {
    throw Abandoned(AbandonReason::kOutOfMemory);
  }
}

}  // namespace cantorix
