// undo_fuzz.cpp - any bytes in the place of an undo file: refused with the document as it was, or
// restored, and then the document is the one that was saved under the samples of the file.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <span>
#include <vector>

#include "document/label.h"
#include "document/native_file.h"
#include "fuzz_host.h"
#include "mainview/undo_file.h"

namespace {

using namespace cantorix;

using Bytes = std::vector<std::byte>;

// `count` samples of `value`; more than 255 go to the disk store of this host.
void Hold(CSonadexDoc& document, std::int64_t count, std::int16_t value) {
  CChannel& channel = document.channel();
  channel.totalLength = static_cast<double>(count);
  channel.totalDurationMs = channel.totalLength / channel.sampleRateHz * 1000.0;
  SampleBlock block(count);
  for (std::int16_t& sample : block.samples()) sample = value;
  document.HoldInMemory(std::move(block));
}

void FillForSaving(CSonadexDoc& document, bool isLong) {
  document.loaded = true;
  document.channel().tiers[4].inUse = true;
  Label label;
  label.text = "a";
  document.channel().AddLabel(4, label);
  Hold(document, isLong ? 300 : 3, 7);
}

Bytes Written(const CSonadexDoc& document) {
  Bytes bytes;
  NoProgress progress;
  WriteNative([&bytes](auto piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); },
              document, std::nullopt, progress);
  return bytes;
}

void Try(FuzzHost& host, std::span<const std::byte> input, bool isLong) {
  CSonadexDoc document(host.host);
  FillForSaving(document, isLong);
  UndoFile undo(host.folder + "/", "talk");
  undo.Claim();
  undo.Save(document);
  std::ofstream(undo.path(), std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(input.data()), std::ssize(input));
  document.channel().tiers[4].labels.clear();
  Hold(document, 2, 1);
  const Bytes before = Written(document);
  const bool restored = undo.Restore(document, UndoScope::kSamples) == UndoOutcome::kRestored;
  const Bytes after = Written(document);
  if (!restored) {
    if (after != before) std::abort();
    return;
  }
  if (after.size() > input.size() || !std::equal(after.begin(), after.end(), input.begin())) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FuzzHost host;
  for (const bool isLong : {false, true}) Try(host, std::as_bytes(std::span(data, size)), isLong);
  return 0;
}
