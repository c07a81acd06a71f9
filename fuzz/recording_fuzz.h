// recording_fuzz.h - any bytes given to one reader of recordings are declined, refused with a
// reason, or read into a document that holds together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "document/document.h"
#include "document/label.h"
#include "fuzz_host.h"
#include "platform/abandon.h"
#include "platform/file.h"
#include "platform/file_error.h"

namespace cantorix {

using RecordingReader = bool (*)(CSonadexDoc& document, const File& file);

inline void RequireWhole(const CSonadexDoc& document) {
  const CChannel& channel = document.channel();
  const bool holds = channel.sampleCount() > 0 && channel.sampleRateHz > 0.0 &&
                     document.Samples().length() == channel.sampleCount() &&
                     !document.formatName.empty();
  if (!holds) std::abort();
  for (const Label& label : channel.tiers[0].labels) {
    if (label.text.size() > kMaxLabelBytes || !(label.timeMs <= channel.totalDurationMs))
      std::abort();
  }
}

// With `generic` as the answer to the dialog of files of no known kind.
inline int FuzzRecording(RecordingReader read, std::span<const std::uint8_t> data,
                         const GenericParameters& generic = {}) {
  static FuzzHost host;
  File file = File::Create(host.folder + "/input");
  file.Write(0, std::as_bytes(data));
  CSonadexDoc document(host.host);
  document.genericRead = generic;
  try {
    if (read(document, file)) RequireWhole(document);
  } catch (const FileError& error) {
    if (error.what()[0] == '\0') std::abort();
  } catch (const Abandoned&) {
  }
  return 0;
}

}  // namespace cantorix
