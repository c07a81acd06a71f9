// autocorrelation_pitch.h - pitch by the average magnitude difference of an 8-bit copy of the
// signal: one value every 100 samples, in integers throughout.
// Relies on a sample source and a progress scope. The driver in pitch.cpp chooses the stretch and
// turns negative values into 0.
//
//   u[n] = x[n] / 256 + 128                                 16-bit samples x, 8-bit copy u
//   s[n] = mean of u over 1 ms around n
//   A(l) = sum of |s[c - l / 2] - s[c - l / 2 + l]| over places c of the frame
//   f0 = rate / l Hz,  l the lag in samples where A is least, rate / high < l < rate / low
//
// A is searched over a table of lags that grow by 5 %, then at every lag around the best of them; a
// half or a third of that lag is taken when its A is below 3/2 of the least. A continuity rule over
// whole runs of frames follows (pitch_continuity.h).
// Source: [1] M. J. Ross, H. L. Shaffer, A. Cohen, R. Freudberg, H. J. Manley, "Average magnitude
// difference function pitch extractor", 1974.
#pragma once

#include <cstdint>
#include <span>

#include "platform/progress.h"
#include "platform/sample_source.h"

namespace cantorix {

class Workers;

struct AutoCorrelationOptions {
  std::int32_t rateHz;            // sampling rate
  std::int32_t lowHz, highHz;     // calculation range, both ends excluded
  std::int32_t tolerancePercent;  // largest change between neighbouring frames
  std::int32_t voicingLevel;      // least level of a voiced frame, see amdf_search.h
};

// Tracks the samples [start, end). `out` has (end - start) / 100 + 1 entries (one entry when end
// is before start); entry f, in Hz, belongs to the frame centred on sample start + 100 f, and
// unvoiced entries are negative. `progress` counts frames and is asked between blocks of them,
// which `workers` may share.
// A range of lags without an inside or with one above 2^24 samples, a rate below 1000 Hz and a
// stretch too short for one frame give unvoiced entries only; samples outside the stretch or the
// recording count as silence. Returns 0, or -1 when working memory cannot be had. Throws Abandoned
// when the user cancels, FileError when the store cannot be read, std::out_of_range when `out` has
// another size.
int AutoCorrelationPitch(const SampleSource& samples, std::int64_t start, std::int64_t end,
                         const AutoCorrelationOptions& options, std::span<double> out,
                         ProgressScope& progress, Workers* workers = nullptr);

}  // namespace cantorix
