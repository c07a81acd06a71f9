// recording_placement.cpp - samples, fields and flags of a placed recording, in their order.
#include "mainview/recording_placement.h"

#include <new>
#include <utility>

#include "document/foreign_recording.h"
#include "document/label.h"
#include "document/sample_loader.h"
#include "mainview/edit_steps.h"
#include "mainview/label_entry_state.h"
#include "mainview/view_commands.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

class UnsavedRecording : public UnsavedFile {
 public:
  explicit UnsavedRecording(std::unique_ptr<RecordingFile> file) : file_(std::move(file)) {}
  void Delete() noexcept override { file_->Remove(); }

 private:
  std::unique_ptr<RecordingFile> file_;
};

double DurationMs(const RecordingFile& file) {
  return static_cast<double>(file.lengthSamples()) * 1000.0 / file.rateHz();
}

// False when the samples do not belong in memory or cannot be brought there.
bool LoadIntoMemory(CSonadexDoc& document, const RecordingFile& file) {
  const std::int64_t count = file.lengthSamples();
  if (!BelongsInMemory(document, DurationMs(file), count)) return false;
  const File samples = file.Samples();
  try {
    LoadSamples(document, DurationMs(file), file.rateHz(), count,
                [&](std::int64_t position, std::span<std::int16_t> out) {
                  samples.ReadExactly(position * 2, std::as_writable_bytes(out));
                  SwapFromLittle(out);
                });
    return true;
  } catch (const Abandoned&) {
    return false;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void SetFields(CSonadexDoc& document, std::uint32_t rateHz, std::int64_t count) {
  CChannel& channel = document.channel();
  channel.CopyFields(CChannel());
  channel.scratchLabels.clear();
  for (Tier& tier : channel.tiers) tier.labels.clear();
  for (std::size_t i = 1; i < document.channels.size(); ++i) {
    document.channels[i].samples = SampleBlock();
  }
  SetForeignFields(document, rateHz, static_cast<double>(count));
  document.host().currentRateHz = channel.sampleRateHz;
  document.savedRateHz = channel.sampleRateHz;
  document.savedLength = channel.totalLength;
  document.savedDurationMs = channel.totalDurationMs;
  document.formatName = {};
  document.newRecording = true;
  document.loaded = true;
}

}  // namespace

void HoldRecording(CSonadexDoc& document, std::unique_ptr<RecordingFile> file) {
  const std::string path = file->path();
  if (!LoadIntoMemory(document, *file)) {
    document.HoldOnDisk(std::make_unique<SampleStore>(file->Samples()));
  }
  SetFields(document, file->rateHz(), file->lengthSamples());
  document.KeepUntilSaved(std::make_unique<UnsavedRecording>(std::move(file)));
  document.SetOrigin({SampleOrigin::Kind::kRecording, path});
}

bool PlaceRecording(CSonadexView& view, std::unique_ptr<RecordingFile> file) {
  if (file->lengthSamples() == 0) {
    file->Remove();
    return false;
  }
  ViewEdit edit(view, Playback::kStops);
  HoldRecording(view.document(), std::move(file));
  view.undoAvailable = false;
  view.labelEntry.currentTier = view.labelEntry.pressedLabel = -1;
  DropSelection(view);
  view.FollowStretch();
  view.Changed(DocumentChange::kLabels | DocumentChange::kReference | DocumentChange::kTitle);
  FinishSampleEdit(view, edit);
  return true;
}

}  // namespace cantorix
