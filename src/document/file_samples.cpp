// file_samples.cpp - reads of the recording's file, and the check that it still has what it had.
#include "document/file_samples.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "document/document.h"
#include "document/sample_loader.h"
#include "platform/file_error.h"

namespace cantorix {

FileSamples::FileSamples(File file, const InterleavedPlace& place, std::int64_t count)
    : file_(std::move(file)),
      samples_(file_, place),
      count_(count),
      held_(std::min(count, samples_.Held())) {}

std::span<const std::int16_t> FileSamples::View(std::int64_t start, std::int64_t count,
                                                std::vector<std::int16_t>& scratch) const {
  scratch.resize(static_cast<std::size_t>(count));
  const auto got = static_cast<std::int64_t>(samples_.Read(start, scratch));
  if (got < std::min(count, held_ - start)) {
    throw FileError("The file had " + std::to_string(held_) + " samples and has lost those from " +
                    std::to_string(start + got) + " on.");
  }
  return scratch;
}

std::optional<FileStretch> FileSamples::InFile(std::int64_t start, std::int64_t count) const {
  if (start + count > held_) return std::nullopt;
  return samples_.Plain(start);
}

bool LeaveInFile(CSonadexDoc& document, const File& file, const InterleavedPlace& place,
                 double durationMs, std::int64_t count) {
  const DocumentHost& host = document.host();
  if (!host.samplesStayInFile && !host.samplesAwaitChanges) return false;
  const bool belongsInMemory = BelongsInMemory(document, durationMs, count);
  if (!(belongsInMemory ? host.samplesAwaitChanges : host.samplesStayInFile)) return false;
  // A server may fall silent later: then nobody could give up.
  if (belongsInMemory && file.isRemote()) return false;
  auto samples = std::make_unique<FileSamples>(file.Duplicate(), place, count);
  if (belongsInMemory) {
    document.HoldInPieces(std::move(samples));
  } else {
    document.HoldInFile(std::move(samples));
  }
  return true;
}

}  // namespace cantorix
