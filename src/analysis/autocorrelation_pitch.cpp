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

Contour EstimateFrames(const Stretch& stretch, const AmdfPlan& plan, ProgressScope& progress) {
  Contour contour(static_cast<std::size_t>(plan.frameCount()));
  AmdfBlock block(plan);
  FrameEstimates estimates;
  for (std::int64_t done = 0; done < plan.frameCount(); done += kBlockFrames) {
    progress.StepOrAbandon(static_cast<double>(plan.firstFrame + done));
    const auto count =
        static_cast<int>(std::min<std::int64_t>(kBlockFrames, plan.frameCount() - done));
    block.Load(stretch.samples, stretch.start, stretch.end, plan.firstFrame + done);
    SearchBlock(block, plan, count, estimates);
    std::copy_n(estimates.level.begin(), count, contour.level.begin() + done);
    std::copy_n(estimates.pitch.begin(), count, contour.pitch.begin() + done);
  }
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
                         ProgressScope& progress) {
  const std::int64_t length = std::max<std::int64_t>(end - start, 0);
  const std::int64_t frames = length / kFrameStep;
  if (out.size() != static_cast<std::size_t>(frames + 1)) {
    throw std::out_of_range("a pitch track needs one entry per 100 samples and one more");
  }
  std::fill(out.begin(), out.end(), kUnvoiced * kHzPerUnit);
  try {
    const auto plan = MakeAmdfPlan(options, length);
    if (!plan) return 0;
    Contour contour = EstimateFrames({samples, start, end}, *plan, progress);
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
