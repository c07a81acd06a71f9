// remote_file.h - a file on a network folder, whose every read may keep the program waiting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/apart.h"
#include "platform/descriptor.h"

namespace cantorix {

class RemoteFile {
 public:
  RemoteFile(std::shared_ptr<const Descriptor> descriptor, const Patience& patience)
      : descriptor_(std::move(descriptor)), patience_(patience) {}

  int number() const { return descriptor_->number(); }

  // As of descriptor.h; each throws FileError, and Abandoned when the user gave up.
  std::int64_t Size() const;
  std::size_t ReadSome(std::int64_t offset, std::span<std::byte> out) const;
  void ReadAll(std::int64_t offset, std::span<std::byte> out) const;

 private:
  std::shared_ptr<const Descriptor> descriptor_;  // shared with calls that were left behind
  Patience patience_;
};

}  // namespace cantorix
