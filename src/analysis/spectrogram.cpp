// spectrogram.cpp - the columns one by one, then the rules that need the whole picture.
// The highest level of each column is noted while it is at hand, so the picture is walked only
// once more, and formants alone need no picture at all.
#include "analysis/spectrogram.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>

#include "analysis/spectrogram_column.h"
#include "analysis/spectrum_limits.h"
#include "platform/clones.h"
#include "platform/workers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

bool CanCompute(const SpectrogramRequest& request, const SpectrogramSettings& settings) {
  return request.columns > 0 && request.rows > 0 && request.rateHz > 0.0 &&
         std::isfinite(request.rateHz) && std::isfinite(request.range.start) &&
         std::isfinite(request.range.end) && IsSpectrumSize(settings.points);
}

// What a thread computes at a time, half a ms or so: enough for formants to be found side by side.
constexpr std::size_t kPartColumns = 64;

// The highest level of every column.
using ColumnMaxima = std::vector<double>;

// A column whose polynomial could not be factored ends the run.
struct FormantFailure {
  std::string words;
};

// What a thread computes columns with.
class Columns {
 public:
  Columns(const SampleSource& samples, const SpectrogramRequest& request,
          const SpectrogramSettings& settings, double maxHz)
      : levels_(samples, request, settings, maxHz), spare_(static_cast<std::size_t>(request.rows)) {
    if (settings.trackFormants != 0) formants_.emplace(samples, request, settings);
  }

  bool IsFree(double start) const {
    return levels_.IsFree(start) && (!formants_ || formants_->IsFree(start));
  }

  // `levels` has a place for each row, or none when nobody wants them. The formants follow with
  // those of other columns.
  void Compute(std::size_t column, std::span<double> levels, Spectrogram& result,
               ColumnMaxima& maxima) {
    const double start = result.StartOf(static_cast<std::int64_t>(column));
    maxima[column] = levels_.Compute(start, levels.empty() ? std::span(spare_) : levels);
    if (formants_) formants_->Add(start);
  }

  // Of the columns of `part`, which are those computed since the last call.
  void FindFormants(const Part& part, Spectrogram& result) {
    if (!formants_) return;
    const auto places = std::span(result.formants).subspan(part.first, part.end - part.first);
    if (!formants_->Find(places)) throw FormantFailure{formants_->errors()};
  }

 private:
  ColumnLevels levels_;
  std::vector<double> spare_;  // for levels that nobody wants
  std::optional<ColumnFormants> formants_;
};

// Some columns of a picture and the place of their levels.
struct Stripe {
  std::size_t first, end;
  double* levels;  // of the column `first` on; null: nobody wants them
  Spectrogram& result;
  ColumnMaxima& maxima;

  void Compute(Columns& columns, const Part& part, ProgressScope& progress) const {
    for (std::size_t c = part.first; c < part.end; c += kPartColumns) {
      ComputePart(columns, {c, std::min(c + kPartColumns, part.end)}, progress);
    }
  }

  void ComputePart(Columns& columns, const Part& part, ProgressScope& progress) const {
    const auto rows = static_cast<std::size_t>(result.rows);
    for (std::size_t c = part.first; c < part.end; ++c) {
      progress.StepOrAbandon(static_cast<double>(c));
      std::span<double> place;
      if (levels != nullptr) place = {levels + (c - first) * rows, rows};
      columns.Compute(c, place, result, maxima);
    }
    columns.FindFormants(part, result);
  }
};

class Run {
 public:
  Run(const SampleSource& samples, const SpectrogramRequest& request,
      const SpectrogramSettings& settings)
      : samples_(samples),
        request_(request),
        settings_(settings),
        maxHz_(std::min(settings.rangeHz, HighestRangeHz(request.rateHz))) {}

  // Fills everything but the reference of the levels; false when a column's formants fail.
  bool Analyse(ProgressScope& progress, Workers* workers, Spectrogram& result,
               ColumnMaxima& maxima) {
    const auto own = NewColumns();
    const std::size_t stripe = Prepare(result, maxima);
    const std::size_t free = FreeFrames(maxima.size(), [&](std::size_t c) {
      return own->IsFree(result.StartOf(static_cast<std::int64_t>(c)));
    });
    try {
      for (std::size_t first = 0; first < maxima.size(); first += stripe) {
        const std::size_t end = std::min(first + stripe, maxima.size());
        const Stripe columns{first, end, result.levels.get(), result, maxima};
        ComputeFree(columns, std::min(free, end), progress, workers);
        columns.Compute(*own, {std::max(free, first), end}, progress);
        if (request_.takeLevels) request_.takeLevels(LevelsOf(columns));
      }
    } catch (const FormantFailure& failure) {
      std::cerr << failure.words;
      return false;
    }
    if (request_.takeLevels) result.levels.reset();
    result.formantsFound = std::any_of(result.formants.begin(), result.formants.end(),
                                       [](const auto& f) { return f.front() != kNoFormantHz; });
    return true;
  }

 private:
  static std::span<const double> LevelsOf(const Stripe& stripe) {
    return {stripe.levels,
            (stripe.end - stripe.first) * static_cast<std::size_t>(stripe.result.rows)};
  }

  std::shared_ptr<Columns> NewColumns() const {
    return std::make_shared<Columns>(samples_, request_, settings_, maxHz_);
  }

  // The columns of a stripe before `end`.
  void ComputeFree(const Stripe& stripe, std::size_t end, ProgressScope& progress,
                   Workers* workers) const {
    if (end <= stripe.first) return;
    ComputeParts(workers, end - stripe.first, kPartColumns, progress, [&]() -> PartWork {
      return [&stripe, columns = NewColumns()](const Part& part, ProgressScope& scope) {
        stripe.Compute(*columns, {stripe.first + part.first, stripe.first + part.end}, scope);
      };
    });
  }

  // Gives the number of columns whose levels there is room for.
  std::size_t Prepare(Spectrogram& result, ColumnMaxima& maxima) const {
    constexpr std::size_t kTakenValues = std::size_t{1} << 19U;  // levels given away at a time
    const auto columns = static_cast<std::size_t>(request_.columns);
    const auto rows = static_cast<std::size_t>(request_.rows);
    const std::size_t stripe =
        request_.takeLevels ? std::min(columns, kTakenValues / rows + 1) : columns;
    result.range = request_.range;
    result.columns = request_.columns;
    result.rows = request_.rows;
    result.maxHz = maxHz_;
    if (request_.keepLevels) {
      if (stripe > std::vector<double>().max_size() / rows) throw std::bad_alloc();
      result.levels = std::make_unique_for_overwrite<double[]>(stripe * rows);
    }
    maxima.resize(columns);
    if (settings_.trackFormants != 0) result.formants.resize(columns);
    return stripe;
  }

  const SampleSource& samples_;
  const SpectrogramRequest& request_;
  const SpectrogramSettings& settings_;
  double maxHz_;
};

double Referenced(double level, double highest, double dynamicRange) {
  const double v = level - highest + dynamicRange;
  return v < 0.0 ? 0.0 : v;
}

CANTORIX_CLONES void Reference(std::span<double> levels, double highest, double range) {
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
                    const SpectrogramSettings& settings, ProgressScope& progress,
                    Workers* workers) {
  Spectrogram result;
  ColumnMaxima maxima;
  if (!Run(samples, request, settings).Analyse(progress, workers, result, maxima)) {
    result = {};
    result.outcome = SpectrogramOutcome::kFormantFailure;
    return result;
  }
  const double highest = *std::max_element(maxima.begin(), maxima.end());
  result.highest = highest;
  if (result.levels && request.keepSource) {
    TakeSource(result, std::move(maxima), highest);
    ApplyDynamicRange(result, settings.dynamicRangeDb);
  } else {
    const double range = settings.dynamicRangeDb;
    if (result.levels) Reference({result.levels.get(), LevelCount(result)}, highest, range);
    SilenceFormants(maxima, highest, range, result.formants);
  }
  result.outcome = SpectrogramOutcome::kComputed;
  return result;
}

}  // namespace

void ReferenceLevels(std::span<double> levels, const Spectrogram& spectrogram,
                     std::int32_t dynamicRangeDb) {
  Reference(levels, spectrogram.highest, dynamicRangeDb);
}

void ApplyDynamicRange(Spectrogram& spectrogram, std::int32_t dynamicRangeDb) {
  if (!spectrogram.source) return;
  const SpectrogramSource& source = *spectrogram.source;
  const double range = dynamicRangeDb;
  const std::span<double> levels(spectrogram.levels.get(), LevelCount(spectrogram));
  std::copy_n(source.levels.get(), levels.size(), levels.begin());
  Reference(levels, source.highest, range);
  spectrogram.formants = source.formants;
  SilenceFormants(source.columnMaxima, source.highest, range, spectrogram.formants);
}

Spectrogram ComputeSpectrogram(const SampleSource& samples, const SpectrogramRequest& request,
                               const SpectrogramSettings& settings, Progress& progress,
                               Workers* workers) {
  if (!CanCompute(request, settings)) return {};
  ProgressScope scope(progress, " Processing Spectrogram...(Press mouse to cancel)",
                      static_cast<double>(request.columns));
  try {
    return Compute(samples, request, settings, scope, workers);
  } catch (const std::bad_alloc&) {
    throw Abandoned(AbandonReason::kOutOfMemory);
  } catch (const std::length_error&) {
    throw Abandoned(AbandonReason::kOutOfMemory);
  }
}

}  // namespace cantorix
