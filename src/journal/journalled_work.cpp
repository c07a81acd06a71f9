// journalled_work.cpp - the records of a document's journal in their order.
#include "journal/journalled_work.h"

#include <unistd.h>

#include <utility>

namespace cantorix {
namespace {

DocumentHeader TakeHeader(std::span<const std::byte> content) {
  PayloadReader in(content);
  DocumentHeader header;
  in.Take<std::uint32_t>();  // the process, for a reader of the bytes
  header.stamp = in.TakeText();
  header.title = in.TakeText();
  header.path = in.TakeText();
  const auto kind = in.Take<std::uint8_t>();
  if (kind > static_cast<std::uint8_t>(SampleOrigin::Kind::kRecording)) throw BadRecord();
  header.origin = {static_cast<SampleOrigin::Kind>(kind), in.TakeText()};
  header.originState.bytes = in.Take<std::int64_t>();
  header.originState.changedAt = in.Take<std::int64_t>();
  header.originSamples = in.Take<std::int64_t>();
  header.fingerprint = in.Take<std::uint32_t>();
  header.onDisk = in.Take<std::uint8_t>() != 0;
  header.loaded = in.Take<std::uint8_t>() != 0;
  header.channel = in.Take<std::int32_t>();
  in.RequireEnd();
  return header;
}

}  // namespace

void AppendHeader(JournalWriter& writer, const DocumentHeader& header) {
  PayloadWriter out;
  out.Put(static_cast<std::uint32_t>(::getpid()));
  out.PutText(header.stamp);
  out.PutText(header.title);
  out.PutText(header.path);
  out.Put(static_cast<std::uint8_t>(header.origin.kind));
  out.PutText(header.origin.path);
  out.Put(header.originState.bytes);
  out.Put(header.originState.changedAt);
  out.Put(header.originSamples);
  out.Put(header.fingerprint);
  out.Put(static_cast<std::uint8_t>(header.onDisk ? 1 : 0));
  out.Put(static_cast<std::uint8_t>(header.loaded ? 1 : 0));
  out.Put(std::int32_t{header.channel});
  writer.Append(RecordKind::kDocument, out.bytes());
}

std::optional<JournalledWork> ReadWork(const File& file) {
  const JournalledWork nothing;
  JournalledWork work;
  std::vector<SampleChunk> chunks;
  bool hasHeader = false;
  const auto begin = [&] {
    work = nothing;
    chunks.clear();
    hasHeader = false;
  };
  const auto take = [&](const JournalRecord& record) {
    if ((record.kind == RecordKind::kDocument) == hasHeader) throw BadRecord();
    switch (record.kind) {
      case RecordKind::kDocument:
        work.header = TakeHeader(record.content);
        hasHeader = true;
        return;
      case RecordKind::kFields:
      case RecordKind::kTier:
      case RecordKind::kLabels:
      case RecordKind::kSettings:
        return TakeRecord(record, work.state);
      case RecordKind::kSamples:
      case RecordKind::kEdit:
        return TakeRecord(record, work.edits, chunks);
      default:
        throw BadRecord();
    }
  };
  auto committed = ReadCommitted(file, begin, take);
  if (!committed || !hasHeader) return std::nullopt;
  work.committed = std::move(*committed);
  return work;
}

}  // namespace cantorix
