// sample_store.h - the disk store: the samples of a recording that is too long for memory.
// One per document: `<program directory>/$$TempFileN`, raw 16-bit little-endian samples, locked
// while it exists so that two processes never share a name, deleted with its owner.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/file.h"
#include "platform/sample_source.h"

namespace cantorix {

class SampleStore : public SampleSource {
 public:
  // Creates the first free name, counting `counter` up before each try. Throws FileError.
  SampleStore(const std::string& programDirectory, int& counter);
  // Takes raw samples for its own as they are. Their file is not deleted with the store.
  explicit SampleStore(File samples);
  ~SampleStore() override;
  SampleStore(const SampleStore&) = delete;
  SampleStore& operator=(const SampleStore&) = delete;

  // Whether a file of the program directory is a store by its name.
  static bool IsStoreName(std::string_view name);

  const std::string& path() const { return file_.path(); }
  // The samples for a reader that may outlive the store.
  File Samples() const { return file_.Duplicate(); }
  // Both throw FileError naming the store when its bytes cannot be written.
  void Append(std::span<const std::int16_t> samples);
  // Replaces the samples from `start` on, which must lie within [0, length()).
  void Overwrite(std::int64_t start, std::span<const std::int16_t> samples);

  std::int64_t length() const override { return length_; }
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>& scratch) const override;
  std::optional<FileStretch> InFile(std::int64_t start, std::int64_t count) const override;

 private:
  void Put(std::int64_t start, std::span<const std::int16_t> samples);

  File file_;
  bool isDeletedWithOwner_ = true;
  std::int64_t length_ = 0;
};

}  // namespace cantorix
