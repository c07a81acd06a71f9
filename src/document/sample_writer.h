// sample_writer.h - a document's samples as the little-endian 16-bit words of a sound file.
// Every writer ends with them; which stretch to write is the writer's own business.
#pragma once

#include <cstdint>

#include "document/document.h"
#include "platform/byte_sink.h"
#include "platform/progress.h"

namespace cantorix {

// Gives the samples [start, start + count) of channel 0 to `sink`, 0 where the recording has none.
// From memory in large pieces; from the disk store one second at a time, with the status window
// shown and the user's wish to cancel looked at before every block. Throws Abandoned when the user
// cancels and FileError when reading or writing fails.
void WriteSamples(const ByteSink& sink, const CSonadexDoc& document, std::int64_t start,
                  std::int64_t count, Progress& progress);

}  // namespace cantorix
