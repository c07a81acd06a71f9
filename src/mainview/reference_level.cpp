// reference_level.cpp - the reference level of every channel as the mean of what is selected, or of
// what is visible. No sample changes, so the tracks stay.
#include <algorithm>
#include <optional>
#include <vector>

#include "document/sample_bytes.h"
#include "mainview/edit_span.h"
#include "mainview/edit_steps.h"
#include "mainview/editing.h"
#include "platform/progress.h"

namespace cantorix {
namespace {

// Of the samples [first, end); `reading` looks at the user's wish to cancel before every block.
std::int64_t SumOf(const SampleSource& source, std::int64_t first, std::int64_t end,
                   std::int64_t step, ProgressScope& reading) {
  std::int64_t sum = 0;
  std::vector<std::int16_t> scratch;
  for (std::int64_t at = first; at < end; at += step) {
    reading.StepOrAbandon(static_cast<double>(at - first));
    for (const std::int16_t sample : source.View(at, std::min(step, end - at), scratch)) {
      sum += sample;
    }
  }
  return sum;
}

// Nothing for a stretch without samples.
std::optional<double> MeanOf(CSonadexView& view, const CChannel& channel) {
  const EditSpan span = view.selectionShown() ? SelectedSpan(channel) : VisibleSpan(channel);
  const SpanSource block(channel.samples.samples());
  const bool isFirst = &channel == &view.channel();
  const SampleSource& source = isFirst ? view.document().Samples() : block;
  const std::int64_t end = std::min(span.endSample(), source.length());
  const std::int64_t count = end - span.firstSample();
  if (count <= 0) return std::nullopt;
  const std::int64_t step = OneSecondOfSamples(channel.sampleRateHz);
  ProgressScope reading(view.progress(), kFileStatusText, static_cast<double>(count));
  const std::int64_t sum = SumOf(source, span.firstSample(), end, step, reading);
  return static_cast<double>(sum) / static_cast<double>(count);
}

}  // namespace

void SetReferenceOfAllChannels(CSonadexView& view) {
  view.StopPlayback();
  const auto channels = ChannelsInUse(view.document());
  std::vector<std::optional<double>> means;
  for (const CChannel& channel : channels) means.push_back(MeanOf(view, channel));
  ViewEdit edit(view, UndoScope::kFields);
  for (std::size_t i = 0; i < channels.size(); ++i) {
    if (means[i]) channels[i].referenceLevel = *means[i];
  }
  edit.MarkModified();
  view.Changed(DocumentChange::kReference);
}

}  // namespace cantorix
