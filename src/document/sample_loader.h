// sample_loader.h - the one way in which a reader's samples reach a document.
// The reader knows where its samples are in its file; this file decides where they go, moves them
// and lets the user cancel. Which fields the channel gets is left to the reader.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace cantorix {

class CSonadexDoc;

// Fills `out` whole with the samples [position, position + out.size()) of the channel.
using SampleFeed = std::function<void(std::int64_t position, std::span<std::int16_t> out)>;

// Whether a recording of that length belongs in memory: `durationMs` is below the document's memory
// limit, and a block for it can be had.
bool BelongsInMemory(CSonadexDoc& document, double durationMs, std::int64_t sampleCount);

// Gives channel 0 of `document` the `sampleCount` >= 0 samples of `read`: in memory when they
// belong there, else in a new disk store, copied in blocks of one second at `rateHz`. Positions
// asked of `read` only grow. Throws Abandoned when the user cancels or memory runs out after all,
// FileError when the store fails, and what `read` throws; the document then has the samples it had
// before.
void LoadSamples(CSonadexDoc& document, double durationMs, double rateHz, std::int64_t sampleCount,
                 const SampleFeed& read);

// The same for a reader that may have fewer samples than it said, or cannot say how many it has:
// `feed` fills the front of `out` and gives the count, less than out.size() only at the end.
using PartialFeed = std::function<std::size_t(std::int64_t position, std::span<std::int16_t> out)>;

// Gives channel 0 the samples of `feed`, at most `sampleCount` when there is one. Gives how many
// there were.
std::int64_t LoadSamplesUpTo(CSonadexDoc& document, double rateHz,
                             std::optional<std::int64_t> sampleCount, const PartialFeed& feed);

// Brings samples that wait in their file into memory, where they can be changed; does nothing for
// others. Throws Abandoned and FileError as LoadSamples does; they wait on then.
void TakeIntoMemory(CSonadexDoc& document);

}  // namespace cantorix
