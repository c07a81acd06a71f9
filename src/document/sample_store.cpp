// sample_store.cpp - naming, filling and reading the disk store.
#include "document/sample_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <vector>

#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr int kMaxTries = 10000;

// A name that another process holds is skipped; any other failure is reported by the last try.
File CreateStoreFile(const std::string& programDirectory, int& counter) {
  for (int tries = 1;; ++tries) {
    const std::string path = programDirectory + "/$$TempFile" + std::to_string(++counter);
    try {
      return File::Create(path);
    } catch (const FileError& error) {
      if (tries == kMaxTries || !std::filesystem::exists(path)) {
        throw FileError(CouldNotBeOpened(path, error.what()));
      }
    }
  }
}

}  // namespace

SampleStore::SampleStore(const std::string& programDirectory, int& counter)
    : file_(CreateStoreFile(programDirectory, counter)) {}

SampleStore::~SampleStore() {
  if (file_.isOpen()) ::unlink(file_.path().c_str());
}

void SampleStore::Append(std::span<const std::int16_t> samples) {
  constexpr std::int64_t kBytes = sizeof(std::int16_t);
  if constexpr (std::endian::native == std::endian::big) {
    std::vector<std::int16_t> swapped(samples.begin(), samples.end());
    SwapFromLittle(swapped);
    file_.Write(length_ * kBytes, std::as_bytes(std::span(swapped)));
  } else {
    file_.Write(length_ * kBytes, std::as_bytes(samples));
  }
  length_ += static_cast<std::int64_t>(samples.size());
}

std::span<const std::int16_t> SampleStore::View(std::int64_t start, std::int64_t count,
                                                std::vector<std::int16_t>& scratch) const {
  scratch.resize(static_cast<std::size_t>(count));
  file_.ReadExactly(start * std::int64_t{sizeof(std::int16_t)},
                    std::as_writable_bytes(std::span(scratch)));
  SwapFromLittle(scratch);
  return scratch;
}

}  // namespace cantorix
