// window_fixture.h - documents with a recording, in memory and in the disk store, for the analysis
// windows.
#pragma once

#include <algorithm>
#include <memory>

#include "analysis/test_signals.h"
#include "document/document.h"
#include "support/test_host.h"

namespace cantorix {

class RecordingFixture {
 public:
  explicit RecordingFixture(testing::Samples samples, double rateHz = 11025.0)
      : samples_(std::move(samples)) {
    for (CSonadexDoc* document : {&inMemory, &onDisk}) {
      CChannel& channel = document->channel();
      channel.sampleRateHz = rateHz;
      channel.totalLength = static_cast<double>(samples_.size());
      channel.totalDurationMs = channel.totalLength * 1000.0 / rateHz;
    }
    SampleBlock block(static_cast<std::int64_t>(samples_.size()));
    std::copy(samples_.begin(), samples_.end(), block.samples().begin());
    inMemory.HoldInMemory(std::move(block));
    auto store = std::make_unique<SampleStore>(world.folder.path(), world.host.storeCounter);
    store->Append(samples_);
    onDisk.HoldOnDisk(std::move(store));
  }

  TestHost world;
  CSonadexDoc inMemory{world.host};
  CSonadexDoc onDisk{world.host};

 private:
  testing::Samples samples_;
};

}  // namespace cantorix
