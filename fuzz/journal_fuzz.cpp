// journal_fuzz.cpp - any bytes as a journal, and any records under true checksums: declined, or
// work that can be done again, and then the document can be saved. The first byte chooses between
// the two; records stand as kind, length (two bytes, low one first) and content.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <span>

#include "document/native_file.h"
#include "fuzz_host.h"
#include "journal/work_restoring.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace {

using namespace cantorix;

using Bytes = std::span<const std::byte>;

// More samples are another fuzzer's business.
constexpr std::int64_t kMostSamples = 100'000;

std::string WriteRaw(const std::string& folder, Bytes input) {
  std::string path = folder + "/raw.journal";
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(input.data()), std::ssize(input));
  return path;
}

JournalWriter WriteRecords(const std::string& folder, Bytes input) {
  JournalWriter writer({[&] { return folder + "/"; }, [] { return std::string("fuzz"); }},
                       kDocumentJournals);
  constexpr std::size_t kHead = 3;
  while (input.size() >= kHead) {
    const auto kind = static_cast<RecordKind>(input[0]);
    const std::size_t length = LoadLittle<std::uint16_t>(input, 1);
    input = input.subspan(kHead);
    const Bytes content = input.first(std::min(length, input.size()));
    input = input.subspan(content.size());
    writer.Append(kind, content);
  }
  writer.Commit(1, "20261121-143005");
  return writer;
}

void Restore(FuzzHost& host, const File& journal) {
  const auto work = ReadWork(journal);
  if (!work) return;
  const auto edits = WithoutUndone(work->edits);
  std::int64_t length = 0;
  double rateHz = 0.0;
  if (!HasPossibleFields(work->state, length, rateHz) || length > kMostSamples) return;
  CSonadexDoc document(host.host);
  try {
    if (!ObstacleTo(*work, document).empty()) {
      if (!RestoreOverSilence(*work, document)) return;
    } else {
      Redo(*work, journal, document);
    }
    if (document.Samples().length() != document.channel().sampleCount()) std::abort();
    NoProgress progress;
    WriteNative([](Bytes) {}, document, std::nullopt, progress);
  } catch (const FileError&) {
  } catch (const Abandoned&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FuzzHost host;
  if (size == 0) return 0;
  const Bytes input = std::as_bytes(std::span(data, size)).subspan(1);
  if (data[0] % 2 == 0) {
    Restore(host, File::OpenUnlocked(WriteRaw(host.folder, input)));
  } else {
    JournalWriter writer = WriteRecords(host.folder, input);
    Restore(host, writer.file());
    writer.Delete();
  }
  return 0;
}
