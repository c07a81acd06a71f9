// native_fuzz.cpp - any bytes are declined, refused or read, and what was read can be written and
// read again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "document/native_file.h"
#include "fuzz_host.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace {

using cantorix::CSonadexDoc;
using cantorix::File;

bool ReadsAsNative(CSonadexDoc& document, const std::string& path,
                   std::span<const std::byte> bytes) {
  File file = File::Create(path);
  file.Write(0, bytes);
  try {
    return cantorix::ReadNative(document, file);
  } catch (const cantorix::FileError&) {
    return false;
  }
}

std::vector<std::byte> Written(const CSonadexDoc& document) {
  std::vector<std::byte> bytes;
  cantorix::NoProgress progress;
  cantorix::WriteNative(
      [&bytes](auto piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); }, document,
      std::nullopt, progress);
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static cantorix::FuzzHost host;
  const std::string path = host.folder + "/input";
  CSonadexDoc first(host.host);
  if (!ReadsAsNative(first, path, std::as_bytes(std::span(data, size)))) return 0;
  const auto written = Written(first);
  CSonadexDoc second(host.host);
  if (!ReadsAsNative(second, path, written) || Written(second) != written) std::abort();
  return 0;
}
