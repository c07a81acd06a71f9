// view_fixture.h - documents with a recording and the views that show them, in a program of their
// own: one clipboard, one listener, scripted prompts and dialogs, two temporary folders.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "document/label.h"
#include "mainview/clipboard.h"
#include "mainview/editing.h"
#include "mainview/sonadex_view.h"
#include "support/joined.h"
#include "support/test_host.h"
#include "support/view_fakes.h"

namespace cantorix {

using Samples = std::vector<std::int16_t>;

// What surrounds all views of a test. `world.test.prompts`, `.progress` and `.memory` script it.
struct ViewWorld {
  ViewServices Services() {
    return {.clipboard = clipboard,
            .temporaryDirectory = temporary.path() + "/",
            .textMeasurer = textMeasurer,
            .listener = listener,
            .playback = playback,
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
  CChannel& channel = document.channel();
  channel.sampleRateHz = rateHz;
  channel.totalLength = static_cast<double>(samples.size());
  channel.totalDurationMs = channel.totalLength * 1000.0 / rateHz;
  channel.ShowWholeFile();
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

}  // namespace cantorix
