// view_fixture.h - channels with a length and tracks over them, documents with a recording and the
// views that show them, in a program of their own: one clipboard, one listener, scripted prompts
// and dialogs, two temporary folders.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "analysis/pitch.h"
#include "document/label.h"
#include "mainview/clipboard.h"
#include "mainview/editing.h"
#include "mainview/sonadex_view.h"
#include "support/joined.h"
#include "support/test_host.h"
#include "support/view_fakes.h"

namespace cantorix {

using Samples = std::vector<std::int16_t>;

inline void SetLength(CChannel& channel, double length, double rateHz) {
  channel.sampleRateHz = rateHz;
  channel.totalLength = length;
  channel.totalDurationMs = length * 1000.0 / rateHz;
  channel.ShowWholeFile();
}

inline void Show(CChannel& channel, double start, double end) {
  channel.visibleStart.samples = start;
  channel.visibleEnd.samples = end;
  channel.visibleLength.samples = end - start;
  channel.UpdateVisibleMs();
}

// Start, end and length of what is shown, "=" the same in ms, "after" what was shown before.
inline std::string StretchText(const CChannel& channel) {
  const TimePoint& start = channel.visibleStart;
  const TimePoint& end = channel.visibleEnd;
  const TimePoint& length = channel.visibleLength;
  return Joined(start.samples, end.samples, length.samples, "=", start.ms, end.ms, length.ms,
                "after", channel.previousStart, channel.previousEnd);
}

inline PitchResult PitchOf(std::vector<double> entries, const SampleRange& range) {
  PitchResult pitch;
  pitch.PitchFrameCount = static_cast<double>(entries.size()) + 0.7;
  pitch.PitchTrack = std::move(entries);
  pitch.PitchTrack.resize(pitch.PitchTrack.size() + 5);
  pitch.PitchValid = true;
  pitch.range = range;
  return pitch;
}

// As many samples to each level.
inline IntensityResult IntensityOf(const std::vector<double>& levels, const SampleRange& range) {
  const double each = (range.end - range.start) / static_cast<double>(levels.size());
  IntensityResult intensity;
  intensity.IntensityTrack =
      LevelTrack(levels, each, each, static_cast<std::int64_t>(range.end - range.start));
  intensity.IntensityValid = true;
  intensity.range = range;
  return intensity;
}

// What surrounds all views of a test. `world.test.prompts`, `.progress` and `.memory` script it.
struct ViewWorld {
  ViewServices Services() {
    return {.clipboard = clipboard,
            .temporaryDirectory = temporary.path() + "/",
            .textMeasurer = textMeasurer,
            .listener = listener,
            .sound = playback,
            .dialogs = dialogs,
            .openLog = [this]() -> LogSink* { return logOpen ? &log : nullptr; }};
  }

  TestHost test;
  TemporaryFolder temporary;  // holds the undo files
  Clipboard clipboard;
  FixedTextMeasurer textMeasurer;
  RecordingListener listener;
  CountingPlayback playback;
  ScriptedDialogs dialogs;
  RecordingLog log;
  bool logOpen = false;
};

enum class Place { kMemory, kDisk };

// Makes `samples` the loaded recording of channel 0, shown whole.
inline void Hold(CSonadexDoc& document, std::span<const std::int16_t> samples, double rateHz,
                 Place place = Place::kMemory) {
  SetLength(document.channel(), static_cast<double>(samples.size()), rateHz);
  document.loaded = true;
  if (place == Place::kMemory) {
    SampleBlock block(std::ssize(samples));
    std::copy(samples.begin(), samples.end(), block.samples().begin());
    return document.HoldInMemory(std::move(block));
  }
  DocumentHost& host = document.host();
  auto store = std::make_unique<SampleStore>(host.programDirectory, host.storeCounter);
  store->Append(samples);
  document.HoldOnDisk(std::move(store));
}

inline Label LabelOf(double ms, std::string text) {
  Label label;
  label.timeMs = ms;
  label.text = std::move(text);
  return label;
}

// Takes the tier into use.
inline void AddLabel(CSonadexDoc& document, int tier, double ms, std::string text) {
  document.channel().tiers[static_cast<std::size_t>(tier)].inUse = true;
  document.channel().AddLabel(tier, LabelOf(ms, std::move(text)));
}

// "words@12.5 words2@30" of the labels of one tier, for comparison.
inline std::string LabelsOf(const CChannel& channel, int tier) {
  std::string text;
  for (const Label& label : channel.tiers[static_cast<std::size_t>(tier)].labels) {
    std::string time = std::to_string(label.timeMs);
    time.erase(time.find_last_not_of('0') + 1);
    if (time.back() == '.') time.pop_back();
    text += (text.empty() ? "" : " ") + label.text + "@" + time;
  }
  return text;
}

// 0, 1, 2 ...
inline Samples Ramp(std::int64_t count, std::int16_t first = 0) {
  Samples samples(static_cast<std::size_t>(count));
  for (auto& sample : samples) sample = first++;
  return samples;
}

// A document of the recording `samples` and its view, in a client area of 645 x 500 pixels (600
// pixels of time axis). The document is empty and not loaded without samples.
struct ViewedRecording {
  explicit ViewedRecording(ViewWorld& world, const Samples& samples = {}, double rateHz = 1000.0,
                           Place place = Place::kMemory)
      : document(world.test.host), view(document, world.Services()) {
    if (!samples.empty()) Hold(document, samples, rateHz, place);
    view.Begin({645, 500});
  }

  CChannel& channel() { return document.channel(); }
  // All samples, wherever they are.
  Samples samples() const {
    Samples all(static_cast<std::size_t>(document.Samples().length()));
    document.Samples().Read(0, all);
    return all;
  }

  CSonadexDoc document;
  CSonadexView view;
};

// Shows [start, end) as selected.
inline void SelectSamples(ViewedRecording& talk, double start, double end) {
  CChannel& channel = talk.channel();
  const double factor = channel.msPerSample();
  channel.selectionStart = {start, start * factor};
  channel.selectionEnd = {end, end * factor};
  channel.selectionLength = {end - start, end * factor - start * factor};
  talk.view.SetSelection();
}

// What the view shows, its cursor "of" the selection in ms, "=" that one's length in samples.
inline std::string MarksOf(const CSonadexView& view) {
  const CChannel& channel = view.channel();
  return std::string(view.markerSet() ? "marker " : "") +
         (view.selectionShown() ? "selection " : "") +
         (view.document().hasSelection ? "to save " : "") +
         Joined(channel.cursor.ms, "of", channel.selectionStart.ms, channel.selectionEnd.ms, "=",
                channel.selectionLength.samples);
}

// "undo modified" and the like: what an edit leaves.
inline std::string EditOf(const CSonadexView& view) {
  return std::string(view.undoAvailable ? "undo" : "no undo") +
         (view.document().isModified() ? " modified" : "");
}

// Takes the samples of recordings on disk away from under the program.
inline void EmptyStores(ViewWorld& world) {
  for (const std::string& name : world.test.folder.Names()) {
    std::filesystem::resize_file(world.test.folder / name, 0);
  }
}

// A marker there, and no selection.
inline void PutCursor(ViewedRecording& talk, double samples) {
  talk.channel().cursor = {samples, samples * talk.channel().msPerSample()};
  talk.view.SetMarker();
}

// Puts a recording's whole onto the clipboard, with a label where `labelMs` is not negative; it is
// closed then.
inline void CopyWholeOf(ViewWorld& world, const Samples& samples, double rateHz = 1000.0,
                        double labelMs = -1.0) {
  ViewedRecording source(world, samples, rateHz);
  if (labelMs >= 0.0) AddLabel(source.document, 0, labelMs, "pasted");
  SelectSamples(source, 0.0, source.channel().totalLength);
  CopySelection(source.view);
}

class ViewTest : public ::testing::Test {
 protected:
  ViewWorld world;
};

// A recording of 10000 ms at one sample per ms, counting up from 0, and its view on a time axis of
// 1000 pixels: 10 ms per pixel, the recording's start at pixel 40.
inline constexpr PixelSize kWideClient{1045, 300};

class WideViewTest : public ViewTest {
 protected:
  WideViewTest() { view.LayOut(kWideClient); }

  ViewedRecording recording{world, Ramp(10'000)};
  CSonadexDoc& document = recording.document;
  CSonadexView& view = recording.view;
  CChannel& channel = recording.channel();
  RecordingListener& listener = world.listener;
  CountingPlayback& playback = world.playback;
};

// The tiers "words", 40 pixels high at the top, and "breaks" below it in use; "words" holds a label
// "one" at 2000 ms and "two" at 6000 ms.
inline constexpr int kWords = 1;
inline constexpr int kBreaks = 2;

class LabelTest : public WideViewTest {
 protected:
  LabelTest() {
    AddLabel(document, kWords, 2000.0, "one");
    AddLabel(document, kWords, 6000.0, "two");
    tier(kWords).tierWord = 40;
    tier(kBreaks).inUse = true;
    view.LayOut(kWideClient);
  }

  Tier& tier(int index) { return channel.tiers[static_cast<std::size_t>(index)]; }
  std::string Words() const { return LabelsOf(channel, kWords); }
};

}  // namespace cantorix
