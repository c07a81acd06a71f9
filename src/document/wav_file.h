// wav_file.h - reading WAV files and exporting a recording as one.
// Read are PCM of 1 to 32 bits, float of 32 and 64 bits, A-law and mu-law, each also by the
// sub-format of an extensible header, what the decoding library knows besides, and one channel of
// any number; cue points become labels. Written is mono 16-bit PCM without labels.
// riff.h finds the chunks, sample_conversion.h decodes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "analysis/sample_range.h"
#include "platform/byte_sink.h"
#include "platform/progress.h"
#include "platform/safe_file.h"

namespace cantorix {

class CSonadexDoc;
class File;

// Reads channel 0 of a new document. False when the content is not a WAV file, or has no coding, no
// samples, no rate, or frames that are not exactly its channels. Asks for the channel when
// there are several. Samples that the header promises and the file does not have read as 0, which
// the user is told once. Throws FileError when nothing decodes its coding, which is named, and when
// the file or the disk store fails, Abandoned when the user cancels or memory runs out.
bool ReadWave(CSonadexDoc& document, const File& file);

// The same for the plain codings of a W64 file.
bool ReadWave64(CSonadexDoc& document, const File& file);

// The bytes of a recording that go into a WAV file, two to a sample.
struct WaveBytes {
  std::int64_t first = 0;  // an odd place counts as the even one below
  std::int64_t count = 0;  // even
};

// The largest count that a WAV file of at most 4 GiB can hold.
inline constexpr std::int64_t kMaxWaveBytes = (std::int64_t{1} << 32) - 44;

// Gives `sink` a whole WAV file with the `bytes` of channel 0, whose count is at most
// kMaxWaveBytes; the rate is truncated to whole Hz. Throws what the sink throws, and Abandoned when
// the user cancels the copying of a disk store.
void WriteWave(const ByteSink& sink, const CSonadexDoc& document, WaveBytes bytes,
               Progress& progress);

// Replaces the file at `path` by a WAV file of the whole recording, or of `range` of it (samples).
// Throws FileError, SaveRefused for what no WAV file can hold, and Abandoned when the user cancels;
// an earlier file stands then, and where there was none, a cancelled one stays as far as it got.
Durability ExportWave(CSonadexDoc& document, const std::string& path,
                      const std::optional<SampleRange>& range);

}  // namespace cantorix
