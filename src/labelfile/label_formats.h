// label_formats.h - the formats of label files that the program reads and writes, as one table: how
// each is called, recognised, read and written, and what it can hold.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "labelfile/format_readers.h"
#include "labelfile/format_writers.h"
#include "labelfile/label_file.h"

namespace cantorix {

// What a file of a format keeps of labels.
struct LabelFormatHolds {
  bool tiers = false;        // several, with names
  bool uniqueNames = false;  // of tiers
  bool points = false;
  bool intervals = false;
  bool oneAtATime = false;      // no two points of a tier at one time; intervals never are
  bool tabs = false;            // in texts
  bool lineEnds = false;        // LF in texts
  bool controls = false;        // other control characters in texts, but NUL
  bool outerBlanks = false;     // at the ends of texts
  double ticksPerSecond = 1e6;  // times are multiples of a tick; 0: of a sample of the recording
};

struct LabelFormat {
  std::string_view key;       // as options name it
  std::string_view name;      // as users know it
  std::string_view patterns;  // of file names: "*.lab; *.rec"
  std::string_view ending;    // of a new file, without the point
  // Whether a decoded text looks like it; `ending` is that of the file's name, in small letters.
  bool (*recognises)(std::string_view text, std::string_view ending);
  LabelFile (*read)(std::string_view text, const LabelReading& how);
  std::string (*write)(const LabelFile& file);
  LabelFormatHolds holds;
};

// In the order in which they are offered, and asked whether they recognise a text.
std::span<const LabelFormat> LabelFormats();
// Null for a key that none has.
const LabelFormat* LabelFormatOf(std::string_view key);

// What a name says of a file: "/a/Talk.TextGrid" has the stem "Talk" and the ending "textgrid".
std::string FileStem(std::string_view path);
std::string FileEnding(std::string_view path);

// Reads the bytes of the file at `path` as `format`, or as the first one that recognises them when
// `format` is null. A tier without a name takes it from the file's: its ending where that says what
// is labelled ("talk.phn"), its stem else. Throws LabelFileError.
struct LabelFileRead {
  const LabelFormat* format = nullptr;
  LabelFile file;
};
LabelFileRead ReadLabelFile(std::string_view bytes, const std::string& path,
                            const LabelFormat* format, const LabelReading& how);

}  // namespace cantorix
