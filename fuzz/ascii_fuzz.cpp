// ascii_fuzz.cpp - text files of numbers; the first byte is the size of their header. What the
// dialog would show in advance is what is read then.
#include "document/readers/generic_content.h"
#include "document/readers/readers.h"
#include "recording_fuzz.h"

namespace {

bool ReadAsForetold(cantorix::CSonadexDoc& document, const cantorix::File& file) {
  const auto outcome = cantorix::FilePreview(file).Try(document.genericRead, 8);
  const bool wasRead = cantorix::ReadAscii(document, file);
  if (wasRead && outcome.samples != document.channel().sampleCount()) std::abort();
  return wasRead;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  return cantorix::FuzzRecording(ReadAsForetold, {data, size},
                                 {.headerBytes = data[0] % 16, .binary = 0});
}
