// autocorrelation_pitch.cpp - block after block of frames through the search, then the rules that
// need the whole contour.
// Only two 16-bit values a frame are kept for the whole stretch. A second level over 76 places and
// the minima normalised by it would only scale a drawing of the search and are not computed.
#include "analysis/autocorrelation_pitch.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <vector>

#include "analysis/amdf_block.h"
#include "analysis/amdf_plan.h"
#include "analysis/amdf_search.h"
#include "analysis/pitch_continuity.h"
#include "platform/workers.h"

namespace cantorix {
namespace {

constexpr int kLevelPasses = 2;
constexpr int kPitchPasses = 4;
constexpr double kHzPerUnit = 0.1;

// One value per analysed frame.
struct Contour {
  explicit Contour(std::size_t frames) : level(frames), pitch(frames) {}
  std::vector<std::int16_t> level;
  std::vector<std::int16_t> pitch;  // tenths of Hz
};

struct Stretch {
  const SampleSource& samples;
  std::int64_t start, end;
};

// Writes the estimates of a part, which is of whole blocks but for the last one.
PartWork NewAmdfWork(const Stretch& stretch, const AmdfPlan& plan, Contour& contour) {
  return [&stretch, &plan, &contour, block = AmdfBlock(plan), estimates = FrameEstimates()](
             const Part& part, ProgressScope& progress) mutable {
    for (std::size_t done = part.first; done < part.end; done += kBlockFrames) {
      const std::int64_t first = plan.firstFrame + static_cast<std::int64_t>(done);
      progress.StepOrAbandon(static_cast<double>(first));
      const std::size_t count = std::min<std::size_t>(kBlockFrames, part.end - done);
      block.Load(stretch.samples, stretch.start, stretch.end, first);
      SearchBlock(block, plan, static_cast<int>(count), estimates);
      std::copy_n(estimates.level.begin(), count,
                  contour.level.begin() + static_cast<std::ptrdiff_t>(done));
      std::copy_n(estimates.pitch.begin(), count,
                  contour.pitch.begin() + static_cast<std::ptrdiff_t>(done));
    }
  };
}

Contour EstimateFrames(const Stretch& stretch, const AmdfPlan& plan, ProgressScope& progress,
                       Workers* workers) {
  constexpr std::size_t kPartFrames = std::size_t{8} * kBlockFrames;  // a ms or two
  Contour contour(static_cast<std::size_t>(plan.frameCount()));
  ComputeParts(workers, contour.pitch.size(), kPartFrames, progress,
               [&] { return NewAmdfWork(stretch, plan, contour); });
  return contour;
}

void DropQuietFrames(Contour& contour, std::int32_t voicingLevel) {
  for (int pass = 0; pass < kLevelPasses; ++pass) SmoothWeighted(contour.level);
  for (std::size_t i = 0; i < contour.pitch.size(); ++i) {
    if (contour.level[i] < voicingLevel) contour.pitch[i] = kUnvoiced;
  }
}

}  // namespace

int AutoCorrelationPitch(const SampleSource& samples, std::int64_t start, std::int64_t end,
                         const AutoCorrelationOptions& options, std::span<double> out,
                         ProgressScope& progress, Workers* workers) {
  const std::int64_t length = std::max<std::int64_t>(end - start, 0);
  const std::int64_t frames = length / kFrameStep;
  if (out.size() != static_cast<std::size_t>(frames + 1)) {
    throw std::out_of_range("a pitch track needs one entry per 100 samples and one more");
  }
  std::fill(out.begin(), out.end(), kUnvoiced * kHzPerUnit);
  try {
    const auto plan = MakeAmdfPlan(options, length);
    if (!plan) return 0;
    Contour contour = EstimateFrames({samples, start, end}, *plan, progress, workers);
    DropQuietFrames(contour, options.voicingLevel);
    KeepContinuousRuns(contour.pitch, options.tolerancePercent);
    BridgeGaps(contour.pitch, options.tolerancePercent);
    for (int pass = 0; pass < kPitchPasses; ++pass) SmoothWeighted(contour.pitch);
    std::transform(contour.pitch.begin(), contour.pitch.end(), out.begin() + plan->firstFrame,
                   [](std::int16_t tenths) { return tenths * kHzPerUnit; });
  } catch (const std::bad_alloc&) {
    return -1;
  }
  progress.StepOrAbandon(static_cast<double>(frames));
  return 0;
}

}  // namespace cantorix
