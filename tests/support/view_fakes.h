// view_fakes.h - the window around a view under test: text of a fixed width, a listener and a
// playback that count, dialogs whose answers a test has written down beforehand.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "analysis/sample_range.h"
#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/log_entry.h"
#include "mainview/view_dialogs.h"
#include "mainview/view_ports.h"
#include "settings/settings.h"
#include "support/joined.h"

namespace cantorix {

// Every byte is 7 pixels wide, every text 14 pixels high, whatever the font.
class FixedTextMeasurer : public TextMeasurer {
 public:
  PixelSize Measure(const FontDescription&, std::string_view text) const override {
    return {static_cast<std::int32_t>(text.size()) * 7, 14};
  }
};

// What every notice said; the pointer's once more by themselves, and passed on to `forward`.
class RecordingListener : public ViewListener {
 public:
  void ViewChanged(const ViewNotice& notice) override {
    notices.push_back(notice.changes);
    if (!notice.said.empty()) said.push_back(notice.said);
    if (!notice.pointer) return;
    moves.emplace_back(notice.pointer->phase, notice.pointer->ms);
    if (forward) forward(notice.pointer->phase, notice.pointer->ms);
  }

  std::function<void(MousePhase, double)> forward;

  std::vector<DocumentChanges> notices;
  std::vector<std::string> said;
  std::vector<std::pair<MousePhase, double>> moves;
};

class CountingPlayback : public SoundControl {
 public:
  void StopPlayback() override { ++stops; }
  void Play(const SampleRange& range) override { played.push_back(Joined(range.start, range.end)); }

  int stops = 0;
  std::vector<std::string> played;  // first sample and end
};

// Wants no more rows once it holds `capacity` of them.
class RecordingLog : public LogSink {
 public:
  bool Append(const LogEntry& entry) override {
    entries.push_back(entry);
    return entries.size() >= capacity;
  }

  std::vector<LogEntry> entries;
  std::size_t capacity = 10000;
};

// The answers to one dialog, in order, and how it was filled each time.
template <typename Answer, typename Preset = Answer>
class DialogScript {
 public:
  explicit DialogScript(const char* name) : name_(name) {}
  ~DialogScript() { EXPECT_TRUE(answers_.empty()) << name_ << " was not asked often enough"; }
  DialogScript(const DialogScript&) = delete;
  DialogScript& operator=(const DialogScript&) = delete;

  void WillGive(Answer answer) { answers_.emplace_back(std::move(answer)); }
  void WillCancel() { answers_.emplace_back(std::nullopt); }

  std::optional<Answer> Show(const Preset& preset) {
    presets.push_back(preset);
    if (answers_.empty()) {
      ADD_FAILURE() << "unexpected dialog: " << name_;
      return std::nullopt;
    }
    std::optional<Answer> answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }

  std::vector<Preset> presets;

 private:
  const char* name_;
  std::deque<std::optional<Answer>> answers_;
};

struct LabelPreset {
  Label label;
  bool exists = false;
};

struct LabelImportPreset {
  std::vector<std::string> tierNames;
  LabelImportOptions options;
};

class ScriptedDialogs : public ViewDialogs {
 public:
  std::optional<LabelAnswer> AskLabel(const Label& preset, bool exists) override {
    return label.Show({preset, exists});
  }
  std::optional<std::vector<std::string>> AskTexts(const TextsQuestion& question) override {
    return texts.Show(question);
  }
  std::optional<TierSetups> AskTiers(const TierSetups& preset) override {
    return tiers.Show(preset);
  }
  std::optional<LabelImportAnswer> AskLabelImport(const std::vector<std::string>& tierNames,
                                                  const LabelImportOptions& preset) override {
    return labelImport.Show({tierNames, preset});
  }
  std::optional<LabelFileOptions> AskLabelFile(const LabelFileOptions& preset) override {
    return labelFile.Show(preset);
  }
  std::optional<LabelExportAnswer> AskLabelExport(const std::vector<std::string>& tierNames,
                                                  const LabelFileOptions& preset) override {
    return labelExport.Show({tierNames.empty() ? "" : tierNames.back(), preset});
  }
  std::optional<GainSettings> AskGain(const GainSettings& preset) override {
    return gain.Show(preset);
  }
  std::optional<std::int32_t> AskZoomRange(std::int32_t presetMs) override {
    return zoomRange.Show(presetMs);
  }
  std::optional<FftLpcSettings> AskFftLpc(const FftLpcSettings& preset, double) override {
    return fftLpc.Show(preset);
  }
  std::optional<SpectrogramSettings> AskSpectrogram(const SpectrogramSettings& preset,
                                                    const SpectrogramSettings& defaults,
                                                    double) override {
    spectrogramDefaults = defaults;
    return spectrogram.Show(preset);
  }
  std::optional<PitchSettings> AskPitch(const PitchSettings& preset, double) override {
    return pitch.Show(preset);
  }
  std::optional<IntensitySettings> AskIntensity(const IntensitySettings& preset) override {
    return intensity.Show(preset);
  }
  std::optional<std::int32_t> AskLogStep(std::int32_t presetHz) override {
    return logStep.Show(presetHz);
  }

  DialogScript<LabelAnswer, LabelPreset> label{"label"};
  DialogScript<std::vector<std::string>, TextsQuestion> texts{"texts"};
  DialogScript<TierSetups> tiers{"tiers"};
  DialogScript<LabelImportAnswer, LabelImportPreset> labelImport{"label import"};
  DialogScript<LabelFileOptions> labelFile{"label file"};
  DialogScript<LabelExportAnswer> labelExport{"label export"};
  DialogScript<GainSettings> gain{"gain"};
  DialogScript<std::int32_t> zoomRange{"zoom range"};
  DialogScript<FftLpcSettings> fftLpc{"FFT/LPC"};
  DialogScript<SpectrogramSettings> spectrogram{"spectrogram"};
  SpectrogramSettings spectrogramDefaults;  // of the last question
  DialogScript<PitchSettings> pitch{"pitch"};
  DialogScript<IntensitySettings> intensity{"intensity"};
  DialogScript<std::int32_t> logStep{"log step"};
};

}  // namespace cantorix
