// sample_rewrite.h - channel 0 rewritten in place, in memory or in the disk store.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "mainview/view_edit.h"

namespace cantorix {

// Changes the samples that begin at `position`; those behind them are still as they were.
using BlockChange = std::function<void(std::int64_t position, std::span<std::int16_t> samples)>;

// Gives every sample to `change`, from first to last: all at once from memory, one second at a time
// from the disk store, with the status window and the user's wish to cancel between the blocks.
// Throws Abandoned after a cancel and FileError when the store fails.
// `what` is told with the number of samples that were changed as its end.
// Kept: blocks that were written by then stay changed; `edit` tells of it.
void RewriteSamples(CSonadexView& view, ViewEdit& edit, SampleEdit what, const BlockChange& change);

}  // namespace cantorix
