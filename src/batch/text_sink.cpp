// text_sink.cpp - writing text and noticing when it cannot be written.
#include "batch/text_sink.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "batch/patient_io.h"

namespace cantorix::batch {
namespace {}  // namespace

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
  spool_.Append(std::as_bytes(std::span(text.data(), text.size())));
}

void SpoolSink::PourInto(TextSink& sink) {
  std::string piece;
  for (std::int64_t done = 0; done < spool_.size(); done += std::ssize(piece)) {
    const auto left = static_cast<std::size_t>(spool_.size() - done);
    piece.resize(std::min(kPieceBytes, left));
    spool_.Read(done, std::as_writable_bytes(std::span(piece)));
    sink.Write(piece);
  }
}

}  // namespace cantorix::batch
