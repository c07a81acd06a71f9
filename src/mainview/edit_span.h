// edit_span.h - the stretch of a channel that an edit works on, in samples and in ms, clamped to
// the recording, and the samples in it.
#pragma once

#include "document/channel.h"

namespace cantorix {

struct EditSpan {
  TimePoint start, end, length;  // start <= end

  // The samples [firstSample, endSample) lie in the span.
  std::int64_t firstSample() const;
  std::int64_t endSample() const;
};

EditSpan SelectedSpan(const CChannel& channel);
EditSpan VisibleSpan(const CChannel& channel);
// Nothing, at the cursor.
EditSpan CursorSpan(const CChannel& channel);

// The labels of `channel` that an edit of samples takes along; only tiers in use count.
// Deletes those inside the span, both ends included, and moves those behind it to the front. A span
// without length deletes none.
void CloseLabels(CChannel& channel, const EditSpan& span);
// Moves those behind `atMs` by `lengthMs`; a label at that very time stays.
void SpreadLabels(CChannel& channel, double atMs, double lengthMs);
// The tiers, each in use with its labels inside the span only, their times counted from its start.
Tiers TiersInside(const CChannel& channel, const EditSpan& span);

}  // namespace cantorix
