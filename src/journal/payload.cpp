// payload.cpp - every access is compared with what is left.
#include "journal/payload.h"

namespace cantorix {

void PayloadWriter::PutText(std::string_view text) {
  Put(static_cast<std::uint32_t>(text.size()));
  PutBytes(std::as_bytes(std::span(text)));
}

void PayloadWriter::PutBytes(std::span<const std::byte> bytes) {
  bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
}

std::string PayloadReader::TakeText() {
  const auto bytes = TakeBytes(Take<std::uint32_t>());
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::span<const std::byte> PayloadReader::TakeBytes(std::size_t count) {
  if (count > bytes_.size()) throw BadRecord();
  const auto taken = bytes_.first(count);
  bytes_ = bytes_.subspan(count);
  return taken;
}

std::size_t PayloadReader::TakeCount(std::size_t leastBytes) {
  const std::size_t count = Take<std::uint32_t>();
  if (count > bytes_.size() / leastBytes) throw BadRecord();
  return count;
}

void PayloadReader::RequireEnd() const {
  if (!bytes_.empty()) throw BadRecord();
}

}  // namespace cantorix
