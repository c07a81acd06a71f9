// sample_rewrite.cpp - blocks of one second of the store, or the memory block in one go.
#include "mainview/sample_rewrite.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "document/sample_bytes.h"
#include "mainview/edit_steps.h"
#include "platform/progress.h"

namespace cantorix {
namespace {

// Tells, however it ends, up to where the samples are changed.
class ToldEdit {
 public:
  ToldEdit(CSonadexDoc& document, const SampleEdit& what) : document_(document), what_(what) {}
  ~ToldEdit() { document_.TellSampleEdit(what_); }
  ToldEdit(const ToldEdit&) = delete;
  ToldEdit& operator=(const ToldEdit&) = delete;

  // A block that may be written in part.
  template <typename Write>
  void Through(std::int64_t end, const Write& write) {
    const SampleEdit::Kind kind = std::exchange(what_.kind, SampleEdit::Kind::kUnknown);
    write();
    what_.kind = kind;
    what_.end = end;
  }

 private:
  CSonadexDoc& document_;
  SampleEdit what_;
};

void RewriteStore(CSonadexView& view, ViewEdit& edit, ToldEdit& told, const BlockChange& change) {
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
    told.Through(done + std::ssize(block), [&] { store.Overwrite(done, block); });
  }
}

}  // namespace

void RewriteSamples(CSonadexView& view, ViewEdit& edit, SampleEdit what,
                    const BlockChange& change) {
  ToldEdit told(view.document(), what);
  if (view.document().samplesOnDisk()) return RewriteStore(view, edit, told, change);
  const auto samples = view.channel().samples.samples();
  told.Through(std::ssize(samples), [&] { change(0, samples); });
}

}  // namespace cantorix
