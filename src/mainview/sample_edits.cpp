// sample_edits.cpp - the edits that change samples where they stand: clear, gain, smooth.
#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "mainview/edit_span.h"
#include "mainview/edit_steps.h"
#include "mainview/editing.h"
#include "mainview/option_commands.h"
#include "mainview/sample_rewrite.h"
#include "platform/numbers.h"
#include "platform/prompts.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// Kept: a result beyond 16 bits wraps around instead of being clipped.
std::int16_t Low16(std::int64_t value) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
}

// What becomes of each of the 65536 sample values.
class GainTable {
 public:
  explicit GainTable(const GainSettings& gain) {
    const std::int32_t reference = TruncateToInt32(gain.reference);
    const double factor = gain.gainPercent * 0.01 + 1.0;
    for (std::size_t i = 0; i < results_.size(); ++i) {
      const std::int16_t moved =
          Low16(Low16(static_cast<std::int64_t>(i)) + std::int64_t{reference});
      // Kept: the factor is what the binary numbers make of it; a gain of 15 makes 114 of 100.
      results_[i] = Low16(Truncate(factor * moved));
    }
  }
  std::int16_t operator[](std::int16_t sample) const {
    return results_[static_cast<std::uint16_t>(sample)];
  }

 private:
  std::array<std::int16_t, 65536> results_;
};

// Kept: neither Yes nor No saves the document; the question only warns.
bool GoesOn(CSonadexView& view) {
  const std::string question = "This operation will change the current data permanently.\nSave ' " +
                               view.document().title() + " ' before proceeding ?";
  return view.prompts().Ask(question, Buttons::kYesNoCancel) != Answer::kCancel;
}

// Every sample becomes the mean of three, toward zero.
void SmoothBlock(std::span<std::int16_t> block, std::int16_t before, std::int16_t after) {
  for (std::size_t i = 0; i < block.size(); ++i) {
    const std::int16_t here = block[i];
    const std::int16_t next = i + 1 < block.size() ? block[i + 1] : after;
    block[i] = static_cast<std::int16_t>((before + here + next) / 3);
    before = here;
  }
}

}  // namespace

void ClearToReference(CSonadexView& view) {
  ViewEdit edit(view, UndoScope::kSamples);
  // Kept: refused only now, so that an undo file was written.
  if (view.document().samplesOnDisk()) Refuse(view, "long file error");
  // Kept: only the first channel is cleared.
  CChannel& channel = view.channel();
  const EditSpan span = SelectedSpan(channel);
  const auto samples = channel.samples.samples();
  std::fill(samples.begin() + span.firstSample(), samples.begin() + span.endSample(),
            Low16(Truncate(channel.referenceLevel)));
  FinishSampleEdit(view, edit);
}

void ReferenceAndGain(CSonadexView& view) {
  GainSettings& gain = view.document().settings.gain;
  const auto entered =
      view.services().dialogs.AskGain({static_cast<double>(TruncateToInt32(gain.gainPercent)),
                                       static_cast<double>(TruncateToInt32(gain.reference))});
  if (!entered) return;
  gain = *entered;
  KeepOptions(view, SettingsDialog::kGain);
  if (GoesOn(view)) ApplyReferenceAndGain(view, gain);
}

void ApplyReferenceAndGain(CSonadexView& view, const GainSettings& gain) {
  ViewEdit edit(view, UndoScope::kSamples);
  const auto table = std::make_unique<GainTable>(gain);
  RewriteSamples(view, edit, [&table](std::int64_t, std::span<std::int16_t> samples) {
    for (std::int16_t& sample : samples) sample = (*table)[sample];
  });
  FinishSampleEdit(view, edit);
}

void Smooth(CSonadexView& view) {
  ViewEdit edit(view, UndoScope::kSamples);
  const SampleSource& source = view.document().Samples();
  std::int16_t before = 0;
  RewriteSamples(view, edit, [&](std::int64_t position, std::span<std::int16_t> block) {
    if (block.empty()) return;
    const std::int64_t end = position + std::ssize(block);
    std::int16_t after = 0;
    source.Read(end, std::span(&after, 1));
    const std::int16_t first = block.front();
    const std::int16_t last = block.back();
    SmoothBlock(block, before, after);
    // The first and the last sample of the recording have no two neighbours and stay.
    if (position == 0) block.front() = first;
    if (end == source.length()) block.back() = last;
    before = last;
  });
  FinishSampleEdit(view, edit);
}

}  // namespace cantorix
