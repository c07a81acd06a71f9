// edit_span.h - the stretch of a channel that an edit works on, in samples and in ms, clamped to
// the recording, and the samples and labels in it. Samples come and go whole, and the times behind
// them move by just as much, so that what was cut comes back exactly where it was.
#pragma once

#include "document/channel.h"

namespace cantorix {

struct EditSpan {
  // start <= end. The length is that of the whole samples in it, to the last digit that a time of
  // the recording can have; the start in ms is not behind what the recording will be without it,
  // the end not before start + length.
  TimePoint start, end, length;

  // The samples [firstSample, endSample) lie in the span.
  std::int64_t firstSample() const;
  std::int64_t endSample() const;
  std::int64_t sampleCount() const { return endSample() - firstSample(); }
  // A span that begins where it ends holds no label, not even one at that time.
  bool Holds(const Label& label) const;
};

EditSpan SelectedSpan(const CChannel& channel);
EditSpan VisibleSpan(const CChannel& channel);
// Nothing, at the cursor.
EditSpan CursorSpan(const CChannel& channel);

// The labels of `channel` that an edit of samples takes along; only tiers in use count.
// Deletes those in the span and moves those behind it to the front.
void CloseLabels(CChannel& channel, const EditSpan& span);
// Moves those behind `atMs` by `lengthMs`; a label at that very time stays.
void SpreadLabels(CChannel& channel, double atMs, double lengthMs);
// The tiers, each in use with its labels in the span only, at their own times.
Tiers TiersInside(const CChannel& channel, const EditSpan& span);

}  // namespace cantorix
