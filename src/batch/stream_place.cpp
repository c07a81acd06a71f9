// stream_place.cpp - which places are streams, and a pipe written down.
#include "batch/stream_place.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

#include "batch/patient_io.h"
#include "batch/text_sink.h"
#include "platform/abandon.h"
#include "platform/file.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

// A pipe without a reader cannot be opened without a wait.
Descriptor OpenForWriting(const std::string& path, const std::atomic<bool>& interrupted) {
  for (;;) {
    Descriptor stream = OpenAt(AT_FDCWD, path, O_WRONLY | O_NONBLOCK);
    if (stream.isOpen()) return stream;
    if (errno != ENXIO) throw FileError(CouldNotBeSaved(path, SystemReason(errno)));
    if (interrupted) throw Abandoned(AbandonReason::kCancelled);
    ::poll(nullptr, 0, kMomentMs);
  }
}

// Standard input may be a socket, which has no path that opens.
Descriptor OpenForReading(const std::string& path) {
  Descriptor stream = path == "/dev/stdin" ? Descriptor(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0))
                                           : OpenAt(AT_FDCWD, path, O_RDONLY | O_NONBLOCK);
  if (!stream.isOpen()) ThrowErrno();
  return stream;
}

}  // namespace

bool IsStandardOutput(const std::string& path) { return path == "-" || path == "/dev/stdout"; }

bool IsStream(const std::string& path) {
  if (IsStandardOutput(path)) return true;
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

OutputStream::OutputStream(const std::string& path, const std::atomic<bool>& interrupted)
    : name_(path) {
  if (path.empty() || IsStandardOutput(path)) {
    name_ = "standard output";
  } else {
    opened_ = OpenForWriting(path, interrupted);
  }
}

int OutputStream::descriptor() const { return opened_.isOpen() ? opened_.number() : STDOUT_FILENO; }

void SavePipe(const std::string& from, const std::string& to,
              const std::atomic<bool>& interrupted) {
  const Descriptor pipe = OpenForReading(from);
  File file = File::Create(to);
  std::vector<char> piece(kPieceBytes);
  std::int64_t written = 0;
  while (const std::size_t count = ReadSome(pipe.number(), piece, interrupted)) {
    file.Write(written, std::as_bytes(std::span(piece).first(count)));
    written += static_cast<std::int64_t>(count);
  }
  file.Close();
}

void SendFile(const std::string& from, const OutputStream& to,
              const std::atomic<bool>& interrupted) {
  const File file = File::OpenForReading(from);
  std::vector<char> piece(kPieceBytes);
  std::int64_t sent = 0;
  while (const std::size_t count = file.ReadSome(sent, std::as_writable_bytes(std::span(piece)))) {
    WriteAll(to.descriptor(), {piece.data(), count}, interrupted);
    sent += static_cast<std::int64_t>(count);
  }
}

}  // namespace cantorix::batch
