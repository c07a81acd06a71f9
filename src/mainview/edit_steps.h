// edit_steps.h - what the edit commands share: refusals, the check of memory, the steps that end
// every change of samples.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "mainview/edit_span.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

// Shows `text` and leaves by Abandoned.
[[noreturn]] void Refuse(CSonadexView& view, std::string_view text);

// Leaves by Abandoned unless a block of `sampleCount` samples can be had.
void RequireMemoryFor(CSonadexView& view, std::int64_t sampleCount);

// Leaves by Abandoned when nothing would remain without `span`: a recording is not cut down to
// nothing.
void RequireSomethingLeft(const CChannel& channel, const EditSpan& span);

std::span<CChannel> ChannelsInUse(CSonadexDoc& document);

// The samples have changed: the document is modified, the tracks are computed again or dropped,
// and this view, its label list and the other views are brought up to date.
void FinishSampleEdit(CSonadexView& view);
// The same for a change that was cut short: nothing is computed.
void FinishBrokenEdit(CSonadexView& view);

}  // namespace cantorix
