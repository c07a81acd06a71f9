// edit_steps.h - what the edit commands share: refusals, the check of memory, the steps that end
// every change of samples.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "mainview/edit_span.h"
#include "mainview/view_edit.h"

namespace cantorix {

// Shows `text` and leaves by Abandoned.
[[noreturn]] void Refuse(CSonadexView& view, std::string_view text);

// Leaves by Abandoned unless a block of `sampleCount` samples can be had.
void RequireMemoryFor(CSonadexView& view, std::int64_t sampleCount);

// Leaves by Abandoned when nothing would remain without `span`: a recording is not cut down to
// nothing.
void RequireSomethingLeft(const CChannel& channel, const EditSpan& span);

std::span<CChannel> ChannelsInUse(CSonadexDoc& document);

// The samples have changed: the document is modified, the tracks are dropped.
void NoteSampleEdit(CSonadexView& view, ViewEdit& edit);
// The same at the end of an edit: when pitch is automatic, the tracks are computed again.
void FinishSampleEdit(CSonadexView& view, ViewEdit& edit);
// "Pitch All" when it is automatic. The window shows the edit while it runs.
void AnalyseIfAutomatic(CSonadexView& view, ViewEdit& edit);

}  // namespace cantorix
