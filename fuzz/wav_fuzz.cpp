// wav_fuzz.cpp - any bytes are declined, refused or read as a WAV file, and what was read can be
// exported and read again to the same samples.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "document/document.h"
#include "document/wav_file.h"
#include "fuzz_host.h"
#include "platform/file.h"
#include "platform/file_error.h"

namespace {

using cantorix::CSonadexDoc;
using cantorix::File;

bool ReadsAsWave(CSonadexDoc& document, const std::string& path, std::span<const std::byte> bytes) {
  File file = File::Create(path);
  file.Write(0, bytes);
  try {
    return cantorix::ReadWave(document, file);
  } catch (const cantorix::FileError&) {
    return false;  // of a coding that nobody decodes, which was named
  }
}

std::vector<std::int16_t> SamplesOf(const CSonadexDoc& document) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(document.Samples().length()));
  document.Samples().Read(0, samples);
  return samples;
}

std::vector<std::byte> Exported(const CSonadexDoc& document) {
  std::vector<std::byte> bytes;
  cantorix::NoProgress progress;
  cantorix::WriteWave(
      [&bytes](auto piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); }, document,
      {0, document.channel().sampleCount() * 2}, progress);
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static cantorix::FuzzHost host;
  const std::string path = host.folder + "/input";
  CSonadexDoc first(host.host);
  if (!ReadsAsWave(first, path, std::as_bytes(std::span(data, size)))) return 0;
  const auto samples = SamplesOf(first);
  if (std::ssize(samples) != first.channel().sampleCount()) std::abort();
  CSonadexDoc second(host.host);
  if (!ReadsAsWave(second, path, Exported(first)) || SamplesOf(second) != samples) std::abort();
  return 0;
}
