// reader_table.h - every format that can be opened, in the order in which they are tried.
// The order is fixed and content alone decides, so a format added later takes its own slot and
// moves no other. A slot whose format cannot be read yet declines every file.
#pragma once

#include <span>
#include <string_view>

namespace cantorix {

class CSonadexDoc;
class File;

// What a reader answers. A plain reader accepts with any answer but 0. A three-way reader says 0
// for a file that it recognised but could not read, after showing why, 1 for success and anything
// else for a file of another format.
inline constexpr int kNotThisFormat = 0;
inline constexpr int kRecognisedButFailed = 0;
inline constexpr int kWasRead = 1;
inline constexpr int kThreeWayNotThisFormat = 2;

enum class ReaderKind { kPlain, kThreeWay };

// Fills channel 0 of a document from the open file, from wherever in it the reader likes. A reader
// that declines has changed nothing that matters. One that fails after recognising the file throws
// FileError, or Abandoned when it has shown the reason itself or the user cancelled.
using ReaderFunction = int (*)(CSonadexDoc& document, const File& file);

struct Reader {
  std::string_view name;  // of the format, as the user is told it
  ReaderKind kind;
  ReaderFunction read;
};

struct ReaderTable {
  std::span<const Reader> byContent;  // tried on every file
  std::span<const Reader> generic;    // tried when none of those took it and the user agrees
};

const ReaderTable& StandardReaders();

}  // namespace cantorix
