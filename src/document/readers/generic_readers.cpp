// generic_readers.cpp - what the user is asked, and the two ways in which a file of no known kind
// can be read.
#include <algorithm>

#include "document/document.h"
#include "document/interleaved_samples.h"
#include "document/readers/generic_content.h"
#include "document/readers/readers.h"
#include "document/sample_bytes.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "platform/progress.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

// Reads the whole text once: a word among the numbers is found before anything is kept.
std::int64_t CountNumbers(CSonadexDoc& document, const File& file) {
  AsciiSamples samples(file, document.genericRead);
  std::vector<std::int16_t> block(std::size_t{1} << 16U);
  ProgressScope status(document.host().progress, kFileStatusText, static_cast<double>(file.Size()));
  std::int64_t count = 0;
  for (std::size_t got = block.size(); got == block.size();) {
    got = samples.Read(block);
    count += static_cast<std::int64_t>(got);
    status.StepOrAbandon(static_cast<double>(samples.position()));
  }
  if (samples.clipped() > 0) {
    document.host().prompts.Message(std::to_string(samples.clipped()) +
                                    " numbers lie outside -32768 to 32767; they were clipped.");
  }
  return count;
}

}  // namespace

bool ReadIntegerBinary(CSonadexDoc& document, const File& file) {
  FilePreview preview(file);
  const auto parameters =
      document.host().prompts.AskGenericParameters(document.genericRead, preview);
  if (!parameters) throw Abandoned(AbandonReason::kCancelled);
  document.genericRead = *parameters;
  if (parameters->binary == 0) return false;
  const InterleavedPlace place = BinaryPlace(*parameters);
  ReadInterleaved(document, file,
                  {.format = "integer binary",
                   .coding = NameOf(place.coding, place.order),
                   .rateHz = static_cast<double>(parameters->rateHz),
                   .frames = FramesBehind(file, place.dataOffset, place.frameBytes)},
                  place);
  return true;
}

bool ReadAscii(CSonadexDoc& document, const File& file) {
  const std::int64_t count = CountNumbers(document, file);
  AsciiSamples samples(file, document.genericRead);
  ReadForeign(
      document, file,
      {.format = "ASCII",
       .coding = "Numbers as text",
       .rateHz = static_cast<double>(document.genericRead.rateHz),
       .frames = count},
      [&samples](int, std::int64_t, std::span<std::int16_t> out) { return samples.Read(out); });
  return true;
}

}  // namespace cantorix
