// text_sink.cpp - writing text and noticing when it cannot be written.
#include "batch/text_sink.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <span>
#include <utility>

#include "batch/patient_io.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

constexpr std::size_t kMaxSpoolMemory = 4U << 20U;

void Append(std::FILE* file, std::string_view text) {
  if (text.empty()) return;  // an empty text may have no address
  if (std::fwrite(text.data(), 1, text.size(), file) != text.size()) {
    throw FileError(SystemReason(errno));
  }
}

}  // namespace

void StreamSink::Write(std::string_view text) {
  pending_ += text;
  if (pending_.size() < kPieceBytes) return;
  WriteAll(descriptor_, pending_, interrupted_);
  pending_.clear();
}

void StreamSink::Finish() {
  WriteAll(descriptor_, pending_, interrupted_);
  pending_.clear();
}

void FileSink::Write(std::string_view text) {
  file_.Write(std::as_bytes(std::span(text.data(), text.size())));
}

void HeaderedSink::Write(std::string_view text) {
  if (!header_.empty()) inner_.Write(std::exchange(header_, {}));
  inner_.Write(text);
}

void HeaderedSink::Finish() {
  Write({});
  inner_.Finish();
}

void SpoolSink::Write(std::string_view text) {
  if (!file_ && memory_.size() + text.size() <= kMaxSpoolMemory) {
    memory_ += text;
    return;
  }
  if (!file_) {
    file_.reset(std::tmpfile());
    if (!file_) throw FileError(SystemReason(errno));
    Append(file_.get(), memory_);
    memory_.clear();
  }
  Append(file_.get(), text);
}

void SpoolSink::PourInto(TextSink& sink) {
  if (!file_) {
    sink.Write(memory_);
    return;
  }
  // rewind alone would hide that the last piece found no room.
  if (std::fflush(file_.get()) != 0) throw FileError(SystemReason(errno));
  std::rewind(file_.get());
  std::array<char, 1U << 16U> piece;
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), file_.get())) {
    sink.Write({piece.data(), got});
  }
  if (std::ferror(file_.get()) != 0) throw FileError(SystemReason(errno));
}

}  // namespace cantorix::batch
