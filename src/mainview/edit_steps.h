// edit_steps.h - what the edit commands share: refusals, the check of memory, the steps that end
// every change of samples.
#pragma once

#include <cstdint>
#include <string_view>

#include "mainview/sonadex_view.h"

namespace cantorix {

// Shows `text` and leaves by Abandoned.
[[noreturn]] void Refuse(CSonadexView& view, std::string_view text);

// Leaves by Abandoned unless a block of `sampleCount` samples can be had.
void RequireMemoryFor(CSonadexView& view, std::int64_t sampleCount);

// The samples have changed: the document is modified, the tracks are computed again or dropped,
// and this view, its label list and the other views are brought up to date.
void FinishSampleEdit(CSonadexView& view);
// The same for a change that was cut short: nothing is computed.
void FinishBrokenEdit(CSonadexView& view);

}  // namespace cantorix
