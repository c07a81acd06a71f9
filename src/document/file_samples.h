// file_samples.h - the samples of a recording read where they stand, in the recording's own file.
// For programs that change no sample: nothing is copied, however long the recording is.
#pragma once

#include <cstdint>

#include "document/interleaved_samples.h"
#include "platform/file.h"
#include "platform/sample_source.h"

namespace cantorix {

class CSonadexDoc;

class FileSamples : public SampleSource {
 public:
  // `count` samples at `place`; those that the file does not have now read as 0. Keeps the file
  // open, with its lock.
  FileSamples(File file, const InterleavedPlace& place, std::int64_t count);

  std::int64_t length() const override { return count_; }
  // From any thread. Throws FileError, also when the file has lost samples meanwhile.
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>& scratch) const override;
  std::optional<FileStretch> InFile(std::int64_t start, std::int64_t count) const override;

 private:
  File file_;
  InterleavedSamples samples_;
  std::int64_t count_;
  std::int64_t held_;  // that the file had at first
};

// Leaves the samples of channel 0 in `file`, where the program around the document wants that for
// recordings of this length. False: they are to be loaded.
bool LeaveInFile(CSonadexDoc& document, const File& file, const InterleavedPlace& place,
                 double durationMs, std::int64_t count);

}  // namespace cantorix
