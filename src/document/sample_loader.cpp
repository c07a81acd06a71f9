// sample_loader.cpp - memory or disk store, and the copy into either.
#include "document/sample_loader.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "document/document.h"
#include "document/sample_bytes.h"
#include "platform/progress.h"
#include "platform/services.h"

namespace cantorix {
namespace {

constexpr double kMsPerMinute = 60000.0;

// Large enough to cost nothing beside the reading, small enough to cancel without a wait.
constexpr std::int64_t kMemoryPieceSamples = std::int64_t{1} << 21U;

// The samples go straight into their block: there is never a second copy of them.
SampleBlock ReadIntoMemory(Progress& progress, std::int64_t sampleCount, const PartialFeed& feed) {
  SampleBlock block(sampleCount);
  ProgressScope status(progress, kFileStatusText, static_cast<double>(sampleCount));
  for (std::int64_t done = 0; done < sampleCount; done += kMemoryPieceSamples) {
    if (done > 0) status.StepOrAbandon(static_cast<double>(done));
    const std::int64_t piece = std::min(kMemoryPieceSamples, sampleCount - done);
    const std::size_t got = feed(done, block.samples().subspan(static_cast<std::size_t>(done),
                                                               static_cast<std::size_t>(piece)));
    if (static_cast<std::int64_t>(got) < piece) {
      block.Shrink(done + static_cast<std::int64_t>(got));
      break;
    }
  }
  return block;
}

// Without a count the bar stays empty.
void CopyIntoStore(SampleStore& store, Progress& progress, double rateHz,
                   std::optional<std::int64_t> sampleCount, const PartialFeed& feed) {
  const std::int64_t most = sampleCount.value_or(std::numeric_limits<std::int64_t>::max());
  // A rate far above the recording's length, or no rate of sound at all, must not ask for a block
  // of its size.
  const std::int64_t block = std::min(OneSecondOfSamples(rateHz), kMemoryPieceSamples);
  std::vector<std::int16_t> buffer(static_cast<std::size_t>(std::min(block, most)));
  ProgressScope status(progress, kFileStatusText, static_cast<double>(sampleCount.value_or(0)));
  while (store.length() < most) {
    status.StepOrAbandon(static_cast<double>(store.length()));
    const std::int64_t wanted = std::min(block, most - store.length());
    const auto piece = std::span(buffer).first(static_cast<std::size_t>(wanted));
    const std::size_t got = feed(store.length(), piece);
    store.Append(piece.first(got));
    if (got < piece.size()) return;
  }
}

std::unique_ptr<SampleStore> NewStore(DocumentHost& host) {
  return std::make_unique<SampleStore>(host.programDirectory, host.storeCounter);
}

PartialFeed FeedFrom(const SampleSource& source) {
  return [&source](std::int64_t position, std::span<std::int16_t> out) {
    source.Read(position, out);
    return out.size();
  };
}

std::int64_t LoadUncounted(CSonadexDoc& document, double rateHz, const PartialFeed& feed) {
  DocumentHost& host = document.host();
  auto store = NewStore(host);
  CopyIntoStore(*store, host.progress, rateHz, std::nullopt, feed);
  const std::int64_t count = store->length();
  if (BelongsInMemory(document, static_cast<double>(count) * 1000.0 / rateHz, count)) {
    document.HoldInMemory(ReadIntoMemory(host.progress, count, FeedFrom(*store)));
  } else {
    document.HoldOnDisk(std::move(store));
  }
  return count;
}

std::int64_t LoadCounted(CSonadexDoc& document, double durationMs, double rateHz,
                         std::int64_t sampleCount, const PartialFeed& feed) {
  DocumentHost& host = document.host();
  if (BelongsInMemory(document, durationMs, sampleCount)) {
    document.HoldInMemory(ReadIntoMemory(host.progress, sampleCount, feed));
  } else {
    auto store = NewStore(host);
    CopyIntoStore(*store, host.progress, rateHz, sampleCount, feed);
    document.HoldOnDisk(std::move(store));
  }
  return document.Samples().length();
}

}  // namespace

// A recording exactly as long as the limit is not below it.
bool BelongsInMemory(CSonadexDoc& document, double durationMs, std::int64_t sampleCount) {
  const auto bytes = static_cast<std::uint64_t>(sampleCount) * sizeof(std::int16_t);
  return durationMs / kMsPerMinute < document.memoryLimitMinutes &&
         document.host().memory.CanAllocate(bytes);
}

void TakeIntoMemory(CSonadexDoc& document) {
  if (!document.samplesInPieces()) return;
  const SampleSource& pieces = document.Samples();
  document.HoldInMemory(
      ReadIntoMemory(document.host().progress, pieces.length(), FeedFrom(pieces)));
}

void LoadSamples(CSonadexDoc& document, double durationMs, double rateHz, std::int64_t sampleCount,
                 const SampleFeed& read) {
  LoadCounted(document, durationMs, rateHz, sampleCount,
              [&read](std::int64_t position, std::span<std::int16_t> out) {
                read(position, out);
                return out.size();
              });
}

std::int64_t LoadSamplesUpTo(CSonadexDoc& document, double rateHz,
                             std::optional<std::int64_t> sampleCount, const PartialFeed& feed) {
  if (!sampleCount) return LoadUncounted(document, rateHz, feed);
  const double durationMs = static_cast<double>(*sampleCount) * 1000.0 / rateHz;
  return LoadCounted(document, durationMs, rateHz, *sampleCount, feed);
}

}  // namespace cantorix
