// sample_store.cpp - naming, filling and reading the disk store.
#include "document/sample_store.h"

#include <stdexcept>
#include <utility>
#include <vector>

#include "document/sample_bytes.h"
#include "platform/claimed_file.h"
#include "platform/file_error.h"
#include "platform/leftovers.h"

namespace cantorix {
namespace {

constexpr const char* kStoreName = "$$TempFile";

File CreateStoreFile(const std::string& programDirectory, int& counter) {
  const auto nextPath = [&] {
    return programDirectory + "/" + kStoreName + std::to_string(++counter);
  };
  return ClaimFile(nextPath, Leftover::kReplaced);
}

}  // namespace

SampleStore::SampleStore(const std::string& programDirectory, int& counter)
    : file_(CreateStoreFile(programDirectory, counter)) {}

SampleStore::SampleStore(File samples)
    : file_(std::move(samples)),
      isDeletedWithOwner_(false),
      length_(file_.Size() / std::int64_t{sizeof(std::int16_t)}) {}

SampleStore::~SampleStore() {
  if (isDeletedWithOwner_) DeleteClaimed(file_);
}

bool SampleStore::IsStoreName(std::string_view name) { return IsNumberedName(name, kStoreName); }

void SampleStore::Put(std::int64_t start, std::span<const std::int16_t> samples) {
  std::vector<std::int16_t> scratch;
  try {
    file_.Write(start * std::int64_t{sizeof(std::int16_t)}, LittleBytes(samples, scratch));
  } catch (const FileError& error) {
    throw FileError(CouldNotBeSaved(path(), error.what()));
  }
}

void SampleStore::Append(std::span<const std::int16_t> samples) {
  Put(length_, samples);
  length_ += std::ssize(samples);
}

void SampleStore::Overwrite(std::int64_t start, std::span<const std::int16_t> samples) {
  if (start < 0 || std::ssize(samples) > length_ - start) {
    throw std::out_of_range("samples outside their store");
  }
  Put(start, samples);
}

std::optional<FileStretch> SampleStore::InFile(std::int64_t start, std::int64_t) const {
  return FileStretch{&file_, start * std::int64_t{sizeof(std::int16_t)}};
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
