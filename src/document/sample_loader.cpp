// sample_loader.cpp - memory or disk store, and the copy into either.
#include "document/sample_loader.h"

#include <algorithm>
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
SampleBlock ReadIntoMemory(Progress& progress, std::int64_t sampleCount, const SampleFeed& read) {
  SampleBlock block(sampleCount);
  ProgressScope status(progress, kFileStatusText, static_cast<double>(sampleCount));
  for (std::int64_t done = 0; done < sampleCount; done += kMemoryPieceSamples) {
    if (done > 0) status.StepOrAbandon(static_cast<double>(done));
    const std::int64_t piece = std::min(kMemoryPieceSamples, sampleCount - done);
    read(done,
         block.samples().subspan(static_cast<std::size_t>(done), static_cast<std::size_t>(piece)));
  }
  return block;
}

void CopyIntoStore(SampleStore& store, Progress& progress, std::int64_t blockSamples,
                   std::int64_t sampleCount, const SampleFeed& read) {
  // A rate far above the recording's length must not ask for a block of its size.
  const std::int64_t largest = std::min(blockSamples, sampleCount);
  std::vector<std::int16_t> buffer(static_cast<std::size_t>(largest));
  ProgressScope status(progress, kFileStatusText, static_cast<double>(sampleCount));
  for (std::int64_t done = 0; done < sampleCount; done += blockSamples) {
    status.StepOrAbandon(static_cast<double>(done));
    const std::int64_t count = std::min(blockSamples, sampleCount - done);
    const auto block = std::span(buffer).first(static_cast<std::size_t>(count));
    read(done, block);
    store.Append(block);
  }
}

}  // namespace

// A recording exactly as long as the limit is not below it.
bool BelongsInMemory(CSonadexDoc& document, double durationMs, std::int64_t sampleCount) {
  const auto bytes = static_cast<std::uint64_t>(sampleCount) * sizeof(std::int16_t);
  return durationMs / kMsPerMinute < document.memoryLimitMinutes &&
         document.host().memory.CanAllocate(bytes);
}

void LoadSamples(CSonadexDoc& document, double durationMs, double rateHz, std::int64_t sampleCount,
                 const SampleFeed& read) {
  DocumentHost& host = document.host();
  if (BelongsInMemory(document, durationMs, sampleCount)) {
    document.HoldInMemory(ReadIntoMemory(host.progress, sampleCount, read));
    return;
  }
  auto store = std::make_unique<SampleStore>(host.programDirectory, host.storeCounter);
  CopyIntoStore(*store, host.progress, OneSecondOfSamples(rateHz), sampleCount, read);
  document.HoldOnDisk(std::move(store));
}

}  // namespace cantorix
