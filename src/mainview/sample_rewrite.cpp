// sample_rewrite.cpp - blocks of one second of the store, or the memory block in one go.
#include "mainview/sample_rewrite.h"

#include <algorithm>
#include <vector>

#include "document/sample_bytes.h"
#include "mainview/edit_steps.h"
#include "platform/progress.h"

namespace cantorix {
namespace {

void RewriteStore(CSonadexView& view, ViewEdit& edit, const BlockChange& change) {
  SampleStore& store = *view.document().store();
  const std::int64_t count = store.length();
  const std::int64_t step = OneSecondOfSamples(view.channel().sampleRateHz);
  std::vector<std::int16_t> block;
  ProgressScope status(view.progress(), kFileStatusText, static_cast<double>(count));
  for (std::int64_t done = 0; done < count; done += step) {
    if (done > 0) status.StepOrAbandon(static_cast<double>(done));
    block.resize(static_cast<std::size_t>(std::min(step, count - done)));
    store.Read(done, block);
    change(done, block);
    NoteSampleEdit(view, edit);
    store.Overwrite(done, block);
  }
}

}  // namespace

void RewriteSamples(CSonadexView& view, ViewEdit& edit, const BlockChange& change) {
  if (view.document().samplesOnDisk()) return RewriteStore(view, edit, change);
  change(0, view.channel().samples.samples());
}

}  // namespace cantorix
