// spectrogram_column.h - the analysis of a single column of a spectrogram.
// Each part owns the frame buffer and the working memory of a run, so a column allocates nothing
// and the levels do not depend on whether formants are tracked.
#pragma once

#include <span>
#include <sstream>
#include <string>

#include "analysis/formant_batch.h"
#include "analysis/frame_reader.h"
#include "analysis/framer.h"
#include "analysis/power_spectrum.h"
#include "analysis/spectrogram.h"

namespace cantorix {

// Samples that a frame takes beyond its length.
inline constexpr std::size_t kColumnMargin = 10;

class ColumnLevels {
 public:
  ColumnLevels(const SampleSource& samples, const SpectrogramRequest& request,
               const SpectrogramSettings& settings, double maxHz);

  // Writes the column's levels in dB re a power of 1 and returns the highest of them.
  double Compute(double start, std::span<double> levels);
  // Whether the column there owes nothing to the one before it.
  bool IsFree(double start) const { return buffer_.IsFree(start, totalSamples_); }

 private:
  FrameReader reader_;
  FrameBuffer buffer_;
  PowerSpectrumPlan spectrum_;
  double totalSamples_;
};

class ColumnFormants {
 public:
  ColumnFormants(const SampleSource& samples, const SpectrogramRequest& request,
                 const SpectrogramSettings& settings);

  // Takes the next column into account, at `start`.
  void Add(double start);
  // Finds the formants of the columns that were added since the last call, into as many places;
  // false when a polynomial cannot be factored, which errors() then says.
  bool Find(std::span<FormantColumn> columns);
  std::string errors() const { return errors_.str(); }
  bool IsFree(double start) const { return buffer_.IsFree(start, totalSamples_); }

 private:
  FrameReader reader_;
  Framer framer_;
  FrameBuffer buffer_;
  FormantBatch batch_;
  double totalSamples_;
  std::ostringstream errors_;
};

// The kept formants in whole Hz. What 16 bits cannot hold is no formant.
FormantColumn InWholeHz(const SelectedFormants& selected);

}  // namespace cantorix
