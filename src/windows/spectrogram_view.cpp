// spectrogram_view.cpp
#include "windows/spectrogram_view.h"

#include "platform/abandon.h"
#include "platform/numbers.h"
#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {
namespace {

constexpr const char* kFormantFailure =
    "Error in evaluating the formants.\n"
    "Please make sure the number of coefficients are in the proper range.\n"
    "or turn off the formant tracking and repeat the process.";

// Of the levels and formants; without an overflow for any size.
std::uint64_t PictureBytes(const SpectrogramSize& size) {
  const double rows = size.keepLevels ? size.rows : 0.0;
  const double bytes = static_cast<double>(size.columns) * (rows * 8.0 + 18.0);
  return static_cast<std::uint64_t>(Truncate(bytes > 0.0 ? bytes : 0.0));
}

}  // namespace

bool CSpectrogramView::ComputeSpectrogram(const SampleRange& range, const SpectrogramSize& size) {
  const CChannel& channel = document_.channel();
  const SpectrogramRequest request{.range = range,
                                   .totalSamples = channel.totalLength,
                                   .rateHz = channel.sampleRateHz,
                                   .columns = size.columns,
                                   .rows = size.rows,
                                   .keepLevels = size.keepLevels};
  spectrogram_ = {};
  DocumentHost& host = document_.host();
  if (!host.memory.CanAllocate(PictureBytes(size))) throw Abandoned(AbandonReason::kOutOfMemory);
  spectrogram_ = cantorix::ComputeSpectrogram(document_.Samples(), request,
                                              document_.settings.spectrogram, host.progress);
  if (spectrogram_.outcome == SpectrogramOutcome::kFormantFailure) {
    host.prompts.Message(kFormantFailure);
    throw Abandoned(AbandonReason::kFailed);
  }
  return computed();
}

}  // namespace cantorix
