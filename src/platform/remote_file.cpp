// remote_file.cpp - each call has its own buffer, which stays with it when it is left behind.
#include "platform/remote_file.h"

#include <algorithm>
#include <vector>

namespace cantorix {

std::int64_t RemoteFile::Size() const {
  const auto bytes = std::make_shared<std::int64_t>();
  DoApart(patience_, [file = descriptor_, bytes] { *bytes = FileSize(file->number()); });
  return *bytes;
}

std::size_t RemoteFile::ReadSome(std::int64_t offset, std::span<std::byte> out) const {
  const auto bytes = std::make_shared<std::vector<std::byte>>(out.size());
  DoApart(patience_, [file = descriptor_, bytes, offset] {
    bytes->resize(ReadAt(file->number(), offset, *bytes));
  });
  std::copy(bytes->begin(), bytes->end(), out.begin());
  return bytes->size();
}

void RemoteFile::ReadAll(std::int64_t offset, std::span<std::byte> out) const {
  const auto bytes = std::make_shared<std::vector<std::byte>>(out.size());
  DoApart(patience_,
          [file = descriptor_, bytes, offset] { ReadAllAt(file->number(), offset, *bytes); });
  std::copy(bytes->begin(), bytes->end(), out.begin());
}

}  // namespace cantorix
