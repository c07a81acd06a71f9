// sample_payload.cpp - samples in pieces before the edit that inserts them.
#include "journal/sample_payload.h"

#include <algorithm>
#include <filesystem>
#include <numeric>

#include "journal/crc32.h"
#include "platform/file.h"

namespace cantorix {
namespace {

constexpr std::int64_t kChunkSamples = std::int64_t{1} << 19U;

SampleEdit TakeEdit(PayloadReader& in) {
  SampleEdit edit;
  const auto kind = in.Take<std::uint8_t>();
  if (kind > static_cast<std::uint8_t>(SampleEdit::Kind::kUnknown)) throw BadRecord();
  edit.kind = static_cast<SampleEdit::Kind>(kind);
  edit.first = in.Take<std::int64_t>();
  edit.end = in.Take<std::int64_t>();
  edit.value = in.Take<std::int16_t>();
  edit.gainPercent = in.Take<double>();
  edit.reference = in.Take<double>();
  return edit;
}

}  // namespace

std::int64_t RecordedEdit::insertedCount() const {
  return std::accumulate(
      inserted.begin(), inserted.end(), std::int64_t{0},
      [](std::int64_t sum, const SampleChunk& chunk) { return sum + chunk.count; });
}

void AppendEdit(JournalWriter& writer, const SampleEdit& edit, const SampleSource& inserted) {
  std::vector<std::int16_t> piece;
  for (std::int64_t done = 0; done < inserted.length();) {
    piece.resize(static_cast<std::size_t>(std::min(kChunkSamples, inserted.length() - done)));
    inserted.Read(done, piece);
    done += std::ssize(piece);
    SwapFromLittle(piece);
    writer.Append(RecordKind::kSamples, std::as_bytes(std::span(piece)));
  }
  PayloadWriter out;
  out.Put(static_cast<std::uint8_t>(edit.kind));
  out.Put(edit.first);
  out.Put(edit.end);
  out.Put(edit.value);
  out.Put(edit.gainPercent);
  out.Put(edit.reference);
  out.Put(inserted.length());
  writer.Append(RecordKind::kEdit, out.bytes());
}

void TakeRecord(const JournalRecord& record, std::vector<RecordedEdit>& edits,
                std::vector<SampleChunk>& chunks) {
  const auto bytes = std::ssize(record.content);
  if (record.kind == RecordKind::kSamples) {
    if (bytes == 0 || bytes % 2 != 0) throw BadRecord();
    chunks.push_back({record.contentAt, bytes / 2});
    return;
  }
  PayloadReader in(record.content);
  RecordedEdit edit{TakeEdit(in), {}};
  edit.inserted.swap(chunks);
  if (in.Take<std::int64_t>() != edit.insertedCount()) throw BadRecord();
  in.RequireEnd();
  edits.push_back(std::move(edit));
}

std::optional<std::vector<RecordedEdit>> WithoutUndone(const std::vector<RecordedEdit>& edits) {
  std::vector<RecordedEdit> left;
  std::optional<std::size_t> undoPoint;
  for (const RecordedEdit& edit : edits) {
    if (edit.edit.kind == SampleEdit::Kind::kUndoPoint) {
      undoPoint = left.size();
    } else if (edit.edit.kind == SampleEdit::Kind::kUndo) {
      if (!undoPoint) return std::nullopt;
      left.resize(*undoPoint);
    } else {
      left.push_back(edit);
    }
  }
  return left;
}

std::optional<std::int64_t> LengthAfter(const std::vector<RecordedEdit>& edits,
                                        std::int64_t count) {
  for (const RecordedEdit& recorded : edits) {
    const SampleEdit& edit = recorded.edit;
    if (edit.kind == SampleEdit::Kind::kUnknown) return std::nullopt;
    if (edit.first < 0 || edit.end < edit.first || edit.end > count) return std::nullopt;
    if (edit.kind == SampleEdit::Kind::kSplice) {
      count += recorded.insertedCount() - (edit.end - edit.first);
    }
  }
  return count;
}

FileState StateOf(const std::string& path) {
  std::error_code missing;
  FileState state;
  const auto bytes = std::filesystem::file_size(path, missing);
  if (missing) return state;
  const auto time = std::filesystem::last_write_time(path, missing);
  if (missing) return state;
  return {static_cast<std::int64_t>(bytes),
          static_cast<std::int64_t>(time.time_since_epoch().count())};
}

std::uint32_t Fingerprint(const SampleSource& samples) {
  constexpr std::int64_t kStretches = 64;
  constexpr std::int64_t kStretchSamples = 512;
  const std::int64_t count = samples.length();
  PayloadWriter length;
  length.Put(count);
  std::uint32_t crc = Crc32(length.bytes());
  std::vector<std::int16_t> stretch(static_cast<std::size_t>(std::min(count, kStretchSamples)));
  for (std::int64_t i = 0; i < kStretches; ++i) {
    const std::int64_t last = count - std::ssize(stretch);
    samples.Read(last / (kStretches - 1) * i + last % (kStretches - 1) * i / (kStretches - 1),
                 stretch);
    SwapFromLittle(stretch);
    crc = Crc32(std::as_bytes(std::span(stretch)), crc);
  }
  return crc;
}

}  // namespace cantorix
