// undo_file.cpp - the head of the file is compared with what was written, so that the samples come
// back under the very fields and labels they had.
#include "mainview/undo_file.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>

#include "document/native_file.h"
#include "document/native_layout.h"
#include "document/sample_loader.h"
#include "platform/bytes.h"
#include "platform/claimed_file.h"
#include "platform/file_error.h"
#include "platform/leftovers.h"

namespace cantorix {
namespace {

constexpr const char* kEnding = "@@tmp";
constexpr std::size_t kLongestTitle = 240;  // bytes; leaves room for the ending in a file name

std::string StemOf(std::string directory, std::string title) {
  std::replace(title.begin(), title.end(), '/', '_');
  return std::move(directory) + std::string(CutText(title, kLongestTitle)) + kEnding;
}

// Bytes of a native save before the samples.
std::int64_t HeadBytes(const CChannel& channel) {
  std::size_t bytes = native::kFileHeaderBytes + native::kChannelHeaderBytes;
  for (const Tier& tier : channel.tiers) {
    if (tier.inUse) bytes += native::kTierHeaderBytes + tier.labels.size() * native::kLabelBytes;
  }
  return static_cast<std::int64_t>(bytes);
}

void CopyAllButSamples(CChannel& target, const CChannel& source) {
  target.CopyFields(source);
  target.workBlock1 = source.workBlock1;
  target.workBlock2 = source.workBlock2;
  target.scratchLabels = source.scratchLabels;
  target.tiers = source.tiers;
  target.trailingState = source.trailingState;
}

// The same out of a copy, without a block of memory: `target` has the room for its texts.
void TakeAllButSamples(CChannel& target, CChannel& source) {
  target.CopyFields(source);
  target.workBlock1 = std::move(source.workBlock1);
  target.workBlock2 = std::move(source.workBlock2);
  target.scratchLabels = std::move(source.scratchLabels);
  target.tiers = std::move(source.tiers);
  target.trailingState = source.trailingState;
}

// Samples that are loaded during its life go where they were: to memory, as long as there is any,
// or to the disk store.
class PlaceOfSamples {
 public:
  PlaceOfSamples(CSonadexDoc& document, bool onDisk)
      : document_(document),
        limitMinutes_(std::exchange(document.memoryLimitMinutes,
                                    onDisk ? 0 : std::numeric_limits<std::int32_t>::max())) {}
  ~PlaceOfSamples() { document_.memoryLimitMinutes = limitMinutes_; }
  PlaceOfSamples(const PlaceOfSamples&) = delete;
  PlaceOfSamples& operator=(const PlaceOfSamples&) = delete;

 private:
  CSonadexDoc& document_;
  std::int32_t limitMinutes_;
};

}  // namespace

UndoFile::UndoFile(std::string temporaryDirectory, std::string title)
    : stem_(StemOf(std::move(temporaryDirectory), std::move(title))) {}

UndoFile::~UndoFile() { DeleteClaimed(file_); }

bool UndoFile::IsUndoName(std::string_view name) {
  const std::size_t ending = name.rfind(kEnding);
  return ending != std::string_view::npos && IsNumberedName(name.substr(ending), kEnding);
}

void UndoFile::Claim() {
  if (HasItsName(file_)) return;
  int names = 0;
  const auto nextPath = [&] { return ++names == 1 ? stem_ : stem_ + std::to_string(names); };
  file_ = ClaimFile(nextPath, Leftover::kReplaced);
}

void UndoFile::Save(CSonadexDoc& document) {
  const CChannel& channel = document.channel();
  const std::int64_t headBytes = HeadBytes(channel);
  std::int64_t written = 0;
  remembered_.head.clear();
  try {
    CopyAllButSamples(remembered_.channel, channel);
    remembered_.onDisk = document.samplesOnDisk();
    const auto write = [&](std::span<const std::byte> bytes) {
      file_.Write(written, bytes);
      if (written < headBytes) {
        remembered_.head.insert(remembered_.head.end(), bytes.begin(), bytes.end());
      }
      written += std::ssize(bytes);
    };
    // Samples, behind the head.
    const auto take = [&](const FileStretch& stretch, std::int64_t count) {
      file_.WriteFrom(stretch, written, count);
      written += count;
    };
    const ByteSink sink(write, take);
    WriteNative(sink, document, std::nullopt, document.host().progress);
    const std::span<std::byte> header = std::span(remembered_.head).first(native::kFileHeaderBytes);
    StoreLittle<std::int32_t>(header, native::kChannelCountAt, document.channelCount);
    file_.Write(0, header);
    file_.Resize(written);
  } catch (...) {
    try {
      file_.Resize(0);
    } catch (const FileError&) {
      // The bytes stay until the file goes; the failure to report is the first one.
    }
    throw;
  }
}

UndoOutcome UndoFile::CheckHead(const File& file) const {
  std::array<std::byte, native::kFileHeaderBytes> header{};
  const bool isWhole = file.ReadSome(0, header) == header.size();
  const std::string magic = LoadText(header, native::kMagicAt, native::kMagicBytes);
  if (!isWhole || magic != native::kMagic) return UndoOutcome::kWrongType;
  if (LoadLittle<std::uint32_t>(header, native::kChannelCountAt) != 1) {
    return UndoOutcome::kWrongChannelCount;
  }
  std::vector<std::byte> head(remembered_.head.size());
  file.ReadExactly(0, head);
  return head == remembered_.head ? UndoOutcome::kRestored : UndoOutcome::kUnreadable;
}

void UndoFile::RestoreSamples(CSonadexDoc& document, const File& file) const {
  const CChannel& saved = remembered_.channel;
  const PlaceOfSamples place(document, remembered_.onDisk);
  LoadSamples(document, saved.totalDurationMs, saved.sampleRateHz, saved.sampleCount(),
              [&](std::int64_t position, std::span<std::int16_t> out) {
                file.ReadExactly(std::ssize(remembered_.head) + position * std::int64_t{2},
                                 std::as_writable_bytes(out));
                SwapFromLittle(out);
              });
}

UndoOutcome UndoFile::Restore(CSonadexDoc& document, UndoScope scope) const {
  CChannel& channel = document.channel();
  CChannel fields;
  try {
    CopyAllButSamples(fields, remembered_.channel);
    channel.channelName.reserve(fields.channelName.size());
    channel.channelComment.reserve(fields.channelComment.size());
    const File file = File::OpenUnlocked(path());
    const UndoOutcome outcome = CheckHead(file);
    if (outcome != UndoOutcome::kRestored) return outcome;
    if (scope == UndoScope::kSamples) RestoreSamples(document, file);
  } catch (const FileError&) {
    return UndoOutcome::kUnreadable;
  }
  // The samples are there: behind them nothing may fail.
  const auto cursor = std::pair(channel.cursor, channel.cursorValue);
  TakeAllButSamples(channel, fields);
  channel.ShowWholeFile();
  std::tie(channel.cursor, channel.cursorValue) = cursor;
  return UndoOutcome::kRestored;
}

}  // namespace cantorix
