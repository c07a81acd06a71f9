// settings_effects_test.cpp - every field of the settings record changes something that a user can
// see: a picture, a result, a sheet of paper, a window or a dialog. A field that nobody reads
// fails. The list of the fields and of what they change is desktop/expected/SettingsEffects.txt.
#include <QComboBox>
#include <map>
#include <set>
#include <sstream>

#include "analysis/intensity.h"
#include "analysis/pitch.h"
#include "analysisview/fft_lpc_view.h"
#include "analysisview/spectrogram_view.h"
#include "desktop/analysis_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/dialogs/option_dialog.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"
#include "desktop/sound/record_play_frame.h"
#include "desktop/sound/sound_windows.h"
#include "mainview/editing.h"
#include "mainview/view_fixture.h"
#include "mainview/zoom.h"
#include "settings/config_file.h"
#include "settings/field_text.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

std::string SizedBytes(const QImage& image) {
  return std::to_string(image.width()) + 'x' + std::to_string(image.height()) +
         std::string(reinterpret_cast<const char*>(image.constBits()),
                     static_cast<std::size_t>(image.sizeInBytes()));
}

template <typename Range>
std::string Listed(const Range& values) {
  std::ostringstream text;
  text.precision(12);
  for (const auto& value : values) text << value << ' ';
  return text.str();
}

// The sample recording and its view under other settings.
struct Sample {
  explicit Sample(const Settings& settings)
      : document(world.test.host), view(document, world.Services()) {
    EXPECT_TRUE(document.OnOpenDocument(SamplePath()));
    document.settings = settings.document;
    view.Begin({645, 500});
  }
  SampleRange Between(double startMs, double endMs) const {
    const double perMs = document.channel().sampleRateHz / 1000.0;
    return {startMs * perMs, endMs * perMs};
  }

  ViewWorld world;
  CSonadexDoc document;
  CSonadexView view;
};

std::string PitchValues(const Settings& settings) {
  Sample sample(settings);
  NoProgress progress;
  const PitchResult pitch = ComputePitch(sample.document.Samples(), sample.Between(0.0, 3000.0),
                                         sample.document.channel().sampleRateHz,
                                         sample.document.settings.pitch, progress);
  return Listed(pitch.PitchTrack);
}

std::string Levels(const Settings& settings) {
  Sample sample(settings);
  NoProgress progress;
  const auto intensity = ComputeIntensity(sample.document.Samples(), sample.Between(1700.0, 2300.0),
                                          sample.document.channel().sampleRateHz,
                                          settings.document.intensity, progress);
  return Listed(intensity.IntensityTrack.levels());
}

std::string LogRowCount(const Settings& settings) {
  Sample sample(settings);
  CFFTLPCView view(sample.document);
  EXPECT_TRUE(view.AnalyseSpectrum({.position = 18742.5, .selection = {}}, 300));
  return std::to_string(view.LogRows(WindowLog::kEntireFrame).size());
}

std::string ZoomFromCursor(const Settings& settings) {
  Sample sample(settings);
  PlaceMarker(sample.view, 100.0);
  ZoomView(sample.view, Zoom::kFromCursor);
  return std::to_string(sample.view.channel().visibleEnd.samples);
}

std::string GainPreset(const Settings& settings) {
  Sample sample(settings);
  sample.world.dialogs.gain.WillCancel();
  SelectSpan(sample.view, 0.0, 100.0);
  ReferenceAndGain(sample.view);
  const GainSettings& preset = sample.world.dialogs.gain.presets.at(0);
  return Listed(std::array{preset.gainPercent, preset.reference});
}

std::string NewDocument(const Settings& settings) {
  TestHost test;
  test.host.application = settings.application;
  EXPECT_TRUE(WriteConfiguration(ConfigPath(test.host.programDirectory), settings));
  CSonadexDoc document(test.host);
  std::ostringstream text;
  text << document.channel().sampleRateHz;
  for (const Tier& tier : document.channel().tiers) text << ' ' << tier.name;
  return text.str();
}

std::string StorageOfSample(const Settings& settings) {
  TestHost test;
  test.host.application = settings.application;
  CSonadexDoc document(test.host);
  EXPECT_TRUE(document.OnOpenDocument(SamplePath()));
  return document.samplesOnDisk() ? "disk" : "memory";
}

std::string TracksAfterOpening(const Settings& settings) {
  const Sample sample(settings);
  return std::to_string(sample.view.pitch.count()) +
         (sample.document.channel().intensity.IntensityValid ? " and intensity" : "");
}

std::string ShownSize(const Settings& settings) {
  ScriptedPrompts prompts;
  const OptionDialog<FftLpcSettings> dialog(prompts, FftLpcForm(), {settings.document.fftLpc},
                                            nullptr);
  return dialog.findChild<QComboBox*>()->currentText().toStdString();
}

// What a drag in a spectrogram window does to the main view.
std::string TrackedMouse(const Settings& settings) {
  Sample sample(settings);
  CSpectrogramView window(sample.document, {&sample.view, {}, {}});
  EXPECT_TRUE(window.ComputeSpectrogram(sample.Between(0.0, 1000.0), {300, 200}));
  window.plot = {0, 0, 300, 200};
  window.Press(100, 50);
  window.Move(200, 50);
  window.Release(200, 50);
  return sample.view.selectionShown() ? "selected" : "left alone";
}

// Only the file has it: what it was for is gone, or another field decides.
std::string InTheFileAlone(const Settings& settings) {
  const Record record = EncodeRecord(settings);
  return {reinterpret_cast<const char*>(record.data()), record.size()};
}

using Effect = std::function<std::string(const Settings&)>;

// With the windows of the program.
class SettingsEffects : public AnalysisDesktopTest {
 protected:
  SettingsEffects() : view(&OpenSample()) {
    Select(*view, 1700.0, 1900.0);
    Perform(Command::kPitchAll);
  }

  // What saves the picture of the main view, or that of a window, under given settings.
  Effect MainSheet() {
    return [this](const Settings& settings) {
      view->document().settings = settings.document;
      view->LayOut(view->layout.client);
      return SizedBytes(Saved([this] { Perform(Command::kSaveAsBmp); }));
    };
  }
  Effect SheetOf(WindowKind kind, Command open) {
    return [this, kind, open](const Settings& settings) {
      if (windows.Find(*view, kind) == nullptr) Perform(open);
      view->document().settings = settings.document;
      return SizedBytes(SavedFrom(Find(*view, kind)));
    };
  }

  // Where the windows of a new program stand.
  std::string Places(const Settings& settings) {
    app.host.application = settings.application;
    CMainFrame other{services};
    AnalysisWindowSet others{services};
    Enter(others, other);
    other.SetAnalysisWindows(&others);
    other.resize(1000, 700);
    other.show();
    EXPECT_TRUE(other.OpenFile(SamplePath()));
    QApplication::processEvents();
    CSonadexView& recording = *other.activeView();
    std::ostringstream text;
    const auto note = [&](const QWidget& window) {
      const QRect place = window.geometry();
      text << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height()
           << ", ";
    };
    note(*other.activeFrame());
    others.Open(recording, {WindowKind::kFftLpc, std::nullopt});
    note(*others.Find(recording, WindowKind::kFftLpc));
    others.Open(recording, {WindowKind::kSpectrogram, Stretch::kAll});
    note(*others.Find(recording, WindowKind::kSpectrogram));
    other.ShowLabelList();
    note(other.labelList());
    other.log().show();
    note(other.log());
    others.CloseWindowsOf(recording);
    other.SetAnalysisWindows(nullptr);
    return text.str();
  }

  // What the record/play window offers to record from.
  std::string UsedInput(const Settings& settings) {
    view->document().settings = settings.document;
    frame.ShowRecordPlayOptions();
    CFrameRecordPlay& window = frame.soundWindows().recordPlay();
    window.hide();
    return Typed(window.input().currentText());
  }

  CSonadexView* view;
};

// A line of the list: the name of an effect, the fields that change it, each alone, as
// "field=value", and behind "with" what both sides have.
struct Group {
  explicit Group(const std::string& line) {
    std::istringstream words(line);
    std::getline(words, effect, ':');
    auto* pairs = &values;
    for (std::string word; words >> word;) {
      const std::size_t end = word.find('=');
      if (word == "with") {
        pairs = &with;
      } else {
        pairs->emplace_back(word.substr(0, end), word.substr(end + 1));
      }
    }
  }
  std::string effect;
  std::vector<std::pair<std::string, std::string>> values, with;
};

TEST_F(SettingsEffects, EveryFieldChangesWhatItNames) {
  const std::map<std::string, Effect> effects{
      {"storage", StorageOfSample},
      {"new document", NewDocument},
      {"tracks after opening", TracksAfterOpening},
      {"tracked mouse", TrackedMouse},
      {"zoom from cursor", ZoomFromCursor},
      {"gain preset", GainPreset},
      {"size in its dialog", ShownSize},
      {"log rows", LogRowCount},
      {"used input", [this](const Settings& s) { return UsedInput(s); }},
      {"the file alone", InTheFileAlone},
      {"places", [this](const Settings& s) { return Places(s); }},
      {"levels", Levels},
      {"pitch values", PitchValues},
      {"main view", MainSheet()},
      {"spectrum", SheetOf(WindowKind::kFftLpc, Command::kFftLpcSelection)},
      {"spectrogram", SheetOf(WindowKind::kSpectrogram, Command::kSpectrogramSelection)},
      {"pitch", SheetOf(WindowKind::kPitch, Command::kPitchSelection)}};
  Settings usual{{}, DefaultDocumentSettings()};
  DocumentSettings& sheets = usual.document;
  sheets.display.printWidth = sheets.fftLpc.printWidth = sheets.spectrogram.printWidth = 3.0;
  sheets.display.printHeight = sheets.fftLpc.printHeight = sheets.spectrogram.printHeight = 2.0;
  for (WindowPlacement* const place :
       {&usual.application.mainView, &usual.application.fftLpc, &usual.application.spectrogram,
        &usual.application.log, &usual.application.labelList}) {
    *place = {40, 50, 600, 400};
  }
  std::set<std::string> missing;
  for (const Field& field : Fields()) {
    missing.insert(std::string(field.group) + '.' + std::string(field.name));
  }
  std::istringstream lines(Approved("desktop/expected/SettingsEffects.txt"));
  for (std::string line; std::getline(lines, line);) {
    const Group group(line);
    Settings before = usual;
    for (const auto& [name, value] : group.with) {
      ASSERT_EQ(SetFieldFromText(before, name, value), std::nullopt);
    }
    const Effect& effect = effects.at(group.effect);
    const std::string was = effect(before);
    for (const auto& [name, value] : group.values) {
      EXPECT_EQ(missing.erase(name), 1U) << name << " is no field, or one twice";
      Settings changed = before;
      ASSERT_EQ(SetFieldFromText(changed, name, value), std::nullopt);
      EXPECT_TRUE(effect(changed) != was) << name << " changes nothing";
    }
  }
  EXPECT_THAT(missing, testing::IsEmpty()) << "no line says what they change";
}

// Fields that a document keeps and no file holds.
TEST_F(SettingsEffects, SoDoTheFieldsOfThePitchWindow) {
  const std::pair<const char*, void (*)(PitchSettings&)> rows[] = {
      {"addTimeGrid", [](PitchSettings& p) { p.addTimeGrid = 0; }},
      {"timeGridMs", [](PitchSettings& p) { p.timeGridMs = 90; }},
      {"timeGridMs 0", [](PitchSettings& p) { p.timeGridMs = 0; }},
      {"addAudio", [](PitchSettings& p) { p.addAudio = 1; }},
      {"addIntensity", [](PitchSettings& p) { p.addIntensity = 1; }},
      {"addLabels", [](PitchSettings& p) { p.addLabels = 0; }},
      {"printWidth", [](PitchSettings& p) { p.printWidth = 5.0; }},
      {"printHeight", [](PitchSettings& p) { p.printHeight = 5.0; }},
  };
  Select(*view, 1000.0, 2500.0);
  const Effect sheet = SheetOf(WindowKind::kPitch, Command::kPitchSelection);
  const Settings usual{{}, DefaultDocumentSettings()};
  const std::string was = sheet(usual);
  for (const auto& [name, change] : rows) {
    Settings changed = usual;
    change(changed.document.pitch);
    EXPECT_TRUE(sheet(changed) != was) << name << " changes nothing";
  }
}

}  // namespace
}  // namespace cantorix
