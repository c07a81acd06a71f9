// native_file.h - reading and writing the native sound-and-label file (".qrv"), the one format that
// keeps everything: samples, display state, tiers and labels.
// native_layout.h holds the layout, native_reader.cpp and native_writer.cpp the two directions.
#pragma once

#include <optional>
#include <string>

#include "document/document.h"
#include "platform/byte_sink.h"
#include "platform/file.h"
#include "platform/progress.h"
#include "platform/safe_file.h"

namespace cantorix {

// A stretch to be written by itself, its labels and times counted from its start; what lies outside
// the recording does not count.
struct NativeRange {
  TimePoint start;
  TimePoint end;
};

// The selection of `channel` as a range.
NativeRange SelectionRange(const CChannel& channel);

// Reads channel 0 of a new document: header fields, tiers, labels and samples. False, with nothing
// changed, when the content is of another format. Labels that cannot be shown are left out, which
// the user is told once per tier. Throws FileError, naming fault and byte, when a native file is
// cut or cannot be true, and Abandoned when the user cancels or memory runs out; the document must
// be discarded then.
bool ReadNative(CSonadexDoc& document, const File& file);

// The same for the two kinds of file that Macintosh computers wrote. They count as foreign, so that
// no save replaces one by a file of another layout. Throws FileError, naming the kind, unless every
// count and size adds up to the length of the file.
bool ReadNativeMac(CSonadexDoc& document, const File& file);
bool ReadNativeMacX(CSonadexDoc& document, const File& file);

// Gives the whole file to `sink`: the whole recording, or `range` of it. Labels whose time lies in
// the range, both ends included, go along. Throws what the sink throws, and Abandoned when the user
// cancels the copying of a disk store.
void WriteNative(const ByteSink& sink, const CSonadexDoc& document,
                 const std::optional<NativeRange>& range, Progress& progress);

// Replaces the file at `path` by the recording or its range. Throws FileError, SaveRefused for a
// range without a sample and for numbers that no recording can have, and Abandoned when the user
// cancels; an earlier file stands then, and where there was none, a cancelled one stays as
// far as it got.
Durability SaveNative(CSonadexDoc& document, const std::string& path,
                      const std::optional<NativeRange>& range);

}  // namespace cantorix
