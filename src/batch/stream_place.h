// stream_place.h - places that are no files: standard output, pipes, devices.
#pragma once

#include <atomic>
#include <string>

#include "platform/descriptor.h"

namespace cantorix::batch {

// "-" or "/dev/stdout"
bool IsStandardOutput(const std::string& path);
// Standard output, or something that is there and is neither a file nor a folder.
bool IsStream(const std::string& path);

// An open stream to write to.
class OutputStream {
 public:
  // An empty `path` means standard output. Waits for the reader of a pipe. Throws FileError when
  // the stream cannot be opened, Abandoned after an interrupt.
  OutputStream(const std::string& path, const std::atomic<bool>& interrupted);

  int descriptor() const;
  // As it is called in a report.
  const std::string& name() const { return name_; }

 private:
  std::string name_;
  Descriptor opened_;  // not open: standard output
};

// Writes all that the pipe `from` gives to the new file `to`. Throws FileError, and Abandoned after
// an interrupt.
void SavePipe(const std::string& from, const std::string& to, const std::atomic<bool>& interrupted);
// Writes the whole file `from` to `to`. Throws FileError, and Abandoned after an interrupt.
void SendFile(const std::string& from, const OutputStream& to,
              const std::atomic<bool>& interrupted);

}  // namespace cantorix::batch
