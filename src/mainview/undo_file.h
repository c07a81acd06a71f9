// undo_file.h - the file that one step of undo is kept in: `<temporary directory><title>@@tmp`,
// byte for byte a native save of the whole recording, but that a document of several channels has
// their number in its header. One per view; its name is claimed while it lives, its file deleted
// with it. What the native layout cuts short is remembered beside the file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "document/document.h"
#include "platform/file.h"

namespace cantorix {

// What the edit that an undo takes back may have changed: samples and everything else, or labels,
// tiers and fields alone.
enum class UndoScope { kSamples, kFields };

enum class UndoOutcome { kRestored, kUnreadable, kWrongType, kWrongChannelCount };

class UndoFile {
 public:
  // `temporaryDirectory` with a separator at its end. A "/" in the title becomes "_".
  UndoFile(std::string temporaryDirectory, std::string title);
  ~UndoFile();
  UndoFile(const UndoFile&) = delete;
  UndoFile& operator=(const UndoFile&) = delete;

  // Whether a file of the temporary directory is an undo file by its name.
  static bool IsUndoName(std::string_view name);

  // Empty until the file was claimed.
  const std::string& path() const { return file_.path(); }

  // Makes sure that the file exists and is held by this view alone: a name that another view or
  // process holds is passed over for "...@@tmp2" and so on. Throws FileError.
  void Claim();
  // Writes the whole recording. Throws FileError when it cannot be written and Abandoned when the
  // user cancels; the file is empty then.
  void Save(CSonadexDoc& document);

  // Gives channel 0 of `document` back what was saved, shown whole, with its samples in memory or
  // on disk as they were and the cursor where it is now; samples that no edit has touched stay. The
  // file is opened by its name; unless what is needed of it can be read and it describes the
  // recording that was saved, nothing changes. Throws Abandoned when the user cancels or memory
  // runs out, with nothing changed.
  UndoOutcome Restore(CSonadexDoc& document, UndoScope scope) const;

 private:
  // The recording without its samples.
  struct Remembered {
    CChannel channel;
    bool onDisk = false;
    std::vector<std::byte> head;  // the file's bytes before its samples
  };

  UndoOutcome CheckHead(const File& file) const;
  void RestoreSamples(CSonadexDoc& document, const File& file) const;

  std::string stem_;
  File file_;
  Remembered remembered_;
};

}  // namespace cantorix
