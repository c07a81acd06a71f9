// settings_effects_test.cpp - every field of the settings record changes something that a user can
// see: a picture, a result, a sheet of paper, a window or a dialog. A field that nobody reads
// fails. The file is long because it is a table of all fields.
#include <QComboBox>
#include <set>
#include <sstream>

#include "analysis/intensity.h"
#include "analysis/pitch.h"
#include "desktop/analysis_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/dialogs/option_dialog.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"
#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/pitch_painter.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/paint/spectrum_painter.h"
#include "mainview/editing.h"
#include "mainview/view_commands.h"
#include "mainview/zoom.h"
#include "settings/config_file.h"
#include "settings/field_text.h"

namespace cantorix {
namespace {

constexpr PixelSize kCanvas{700, 420};

std::string BytesOf(const QImage& image) {
  return {reinterpret_cast<const char*>(image.constBits()),
          static_cast<std::size_t>(image.sizeInBytes())};
}

std::string SizedBytes(const QImage& image) {
  return std::to_string(image.width()) + 'x' + std::to_string(image.height()) + BytesOf(image);
}

template <typename Paint>
std::string Drawn(const Paint& paint) {
  return BytesOf(Painted(kCanvas, paint));
}

template <typename Range>
std::string Listed(const Range& values) {
  std::ostringstream text;
  text.precision(12);
  for (const auto& value : values) text << value << ' ';
  return text.str();
}

// The sample recording, analysed with the defaults, under other settings.
struct Sample {
  explicit Sample(const Settings& settings) : document(world.test.host) {
    EXPECT_TRUE(document.OnOpenDocument(SamplePath()));
    document.settings = settings.document;
  }
  SampleRange vowel() const { return {1700.0 * rate() / 1000.0, 2300.0 * rate() / 1000.0}; }
  double rate() const { return document.channel().sampleRateHz; }

  ViewWorld world;
  CSonadexDoc document;
};

std::string PitchValues(const Settings& settings) {
  Sample sample(settings);
  NoProgress progress;
  const SampleRange range{0.0, 3000.0 * sample.rate() / 1000.0};
  const PitchResult pitch = ComputePitch(sample.document.Samples(), range, sample.rate(),
                                         sample.document.settings.pitch, progress);
  return Listed(pitch.PitchTrack);
}

std::string Levels(const Settings& settings) {
  Sample sample(settings);
  NoProgress progress;
  const auto intensity = ComputeIntensity(sample.document.Samples(), sample.vowel(), sample.rate(),
                                          settings.document.intensity, progress);
  return Listed(intensity.IntensityTrack.levels());
}

std::string SpectrumValues(const Settings& settings) {
  Sample sample(settings);
  CFFTLPCView view(sample.document);
  EXPECT_TRUE(view.AnalyseSpectrum({.position = 0.0, .selection = sample.vowel()}, 300));
  return Listed(view.spectrum().fftDb) + Listed(view.spectrum().lpcDb) +
         std::to_string(view.spectrum().maxHz);
}

std::string SpectrumDrawn(const Settings& settings) {
  Sample sample(settings);
  CFFTLPCView view(sample.document);
  EXPECT_TRUE(view.AnalyseSpectrum({.position = sample.vowel().start, .selection = {}}, 300));
  return Drawn([&](QPainter& painter, const PaintStyle& style) {
    PaintSpectrum(painter, {view, kCanvas, {}}, style);
  });
}

std::string LogRowCount(const Settings& settings) {
  Sample sample(settings);
  CFFTLPCView view(sample.document);
  EXPECT_TRUE(view.AnalyseSpectrum({.position = sample.vowel().start, .selection = {}}, 300));
  return std::to_string(view.LogRows(WindowLog::kEntireFrame).size());
}

std::string SpectrogramDrawn(const Settings& settings) {
  Sample sample(settings);
  AddLabel(sample.document, 0, 1800.0, "H*");
  DocumentWaveform waveform(sample.document);
  CSpectrogramView view(sample.document);
  EXPECT_TRUE(view.ComputeSpectrogram(sample.vowel(), {300, 200}));
  const QImage levels =
      SpectrogramImage(view.spectrogram(), view.dynamicRangeDb(), ColorMap::kGrey);
  return Drawn([&](QPainter& painter, const PaintStyle& style) {
    PaintSpectrogram(painter, {view, levels, &waveform.Pyramid(), kCanvas, {}, {}}, style);
  });
}

// A recording whose tracks were made with the defaults.
struct Tone : AnalysedRecording {
  explicit Tone(const Settings& settings)
      : AnalysedRecording(ToneFrom(200.0, 150.0, 800.0), kCanvas) {
    recording.document.settings = settings.document;
    recording.view.LayOut(kCanvas);
  }
};

std::string MainViewDrawn(const Settings& settings) {
  Tone tone(settings);
  const MainViewPicture picture{tone.recording.view, tone.waveform.Pyramid()};
  return Drawn(
      [&](QPainter& painter, const PaintStyle& style) { PaintMainView(painter, picture, style); });
}

std::string PitchDrawn(const Settings& settings) {
  Tone tone(settings);
  const PitchPicture picture{.document = tone.recording.document,
                             .pitch = tone.recording.view.pitch,
                             .waveform = &tone.waveform.Pyramid(),
                             .client = kCanvas,
                             .startMs = 0.0,
                             .endMs = 800.0,
                             .cursorMs = {},
                             .selection = {}};
  return Drawn(
      [&](QPainter& painter, const PaintStyle& style) { PaintPitch(painter, picture, style); });
}

std::string ZoomFromCursor(const Settings& settings) {
  Tone tone(settings);
  PlaceMarker(tone.recording.view, 100.0);
  ZoomView(tone.recording.view, Zoom::kFromCursor);
  return std::to_string(tone.recording.channel().visibleEnd.samples);
}

std::string GainPreset(const Settings& settings) {
  Tone tone(settings);
  tone.world.dialogs.gain.WillCancel();
  SelectSamples(tone.recording, 0.0, 1000.0);
  ReferenceAndGain(tone.recording.view);
  const GainSettings& preset = tone.world.dialogs.gain.presets.at(0);
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
  Sample sample(settings);
  CSonadexView view(sample.document, sample.world.Services());
  view.Begin({645, 500});
  return std::to_string(view.pitch.count()) +
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
  Tone tone(settings);
  CSpectrogramView window(tone.recording.document, {&tone.recording.view, {}, {}});
  EXPECT_TRUE(window.ComputeSpectrogram({0.0, tone.recording.channel().totalLength}, {300, 200}));
  window.plot = {0, 0, 300, 200};
  window.Press(100, 50);
  window.Move(200, 50);
  window.Release(200, 50);
  return tone.recording.view.selectionShown() ? "selected" : "left alone";
}

// Only the file has it: what it was for is gone, or another field decides.
std::string InTheFileAlone(const Settings& settings) {
  const Record record = EncodeRecord(settings);
  return {reinterpret_cast<const char*>(record.data()), record.size()};
}

// With the windows of the program.
class SettingsEffects : public AnalysisDesktopTest {
 protected:
  SettingsEffects() : view(&OpenSample()) { Select(*view, 1700.0, 1900.0); }

  // The picture that is saved under these settings.
  std::string MainSheet(const Settings& settings) {
    view->document().settings = settings.document;
    return SizedBytes(Saved([this] { Perform(Command::kSaveAsBmp); }));
  }
  std::string SheetOf(WindowKind kind, Command open, const Settings& settings) {
    if (windows.Find(*view, kind) == nullptr) Perform(open);
    view->document().settings = settings.document;
    return SizedBytes(SavedFrom(Find(*view, kind)));
  }

  // Where the windows of a new program stand.
  std::string Places(const Settings& settings) {
    app.host.application = settings.application;
    CMainFrame other{{app, progress, dialogs, textMeasurer, opener, clipboard}};
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

  CSonadexView* view;
};

using Effect = std::function<std::string(const Settings&)>;

// What other values of some fields change, each alone, beside `with`, which both sides have.
struct Group {
  Effect effect;
  std::string values;  // "field=value field=value"
  std::string with = "";
};

std::vector<std::pair<std::string, std::string>> PairsOf(const std::string& values) {
  std::vector<std::pair<std::string, std::string>> pairs;
  std::istringstream words(values);
  for (std::string word; words >> word;) {
    const std::size_t end = word.find('=');
    pairs.emplace_back(word.substr(0, end), word.substr(end + 1));
  }
  return pairs;
}

TEST_F(SettingsEffects, EveryFieldChangesWhatItNames) {
  const Effect places = [this](const Settings& s) { return Places(s); };
  const Effect mainSheet = [this](const Settings& s) { return MainSheet(s); };
  const Effect spectrumSheet = [this](const Settings& s) {
    return SheetOf(WindowKind::kFftLpc, Command::kFftLpcSelection, s);
  };
  const Effect spectrogramSheet = [this](const Settings& s) {
    return SheetOf(WindowKind::kSpectrogram, Command::kSpectrogramSelection, s);
  };
  std::vector<Group> groups{
      {StorageOfSample, "application.memoryMinutes=0"},
      {NewDocument, "document.referenceRateHz=16000"},
      {TracksAfterOpening, "display.automaticAnalysis=1"},
      {TrackedMouse, "display.trackMouse=1"},
      {ZoomFromCursor, "zoom.rangeMs=300"},
      {GainPreset, "gain.gainPercent=15 gain.reference=200"},
      {ShownSize, "fftlpc.sizeIndex=5"},
      {LogRowCount, "log.stepHz=50"},
      {InTheFileAlone,
       "display.recordingInput=1 carried.word1=7 carried.word2=7 spectrogram.sizeIndex=5"
       " generic.headerBytes=44 generic.rateHz=8000 generic.sixteenBit=0 generic.highByteFirst=0"
       " generic.binary=0"},
      {mainSheet, "display.printUnit=1 display.printWidth=5 display.printHeight=5"},
      {MainViewDrawn,
       "display.drawAudio=0 display.drawIntensity=0 display.drawPitch=0 display.drawTiers=0"
       " display.drawGrids=0 display.timeBase=1 display.intensityInOwnPane=1"
       " display.audioPanePercent=30 display.pitchPanePercent=30"
       " pitch.displayHighHz=400 pitch.displayLowHz=100"},
      {SpectrumValues,
       "fftlpc.points=1024 fftlpc.windowMs=12 fftlpc.stepMs=33 fftlpc.rangeHz=3000"
       " fftlpc.lpcOrder=8 spectrogram.preEmphasis=0"},
      {SpectrumDrawn, "fftlpc.relative=0", "fftlpc.absoluteDb=150"},
      {SpectrumDrawn, "fftlpc.absoluteDb=150", "fftlpc.relative=0"},
      {SpectrumDrawn,
       "fftlpc.addFrequencyGrid=0 fftlpc.frequencyGridHz=300 fftlpc.addPowerGrid=0"
       " fftlpc.powerGridDb=7 fftlpc.drawLpc=0"},
      {spectrumSheet,
       "fftlpc.blackWhite=0 fftlpc.printWidth=5 fftlpc.printHeight=5 fftlpc.printUnit=1"},
      {Levels, "intensity.windowMs=50 intensity.stepMs=5 intensity.relative=1"},
      {SpectrogramDrawn,
       "spectrogram.points=512 spectrogram.rangeHz=3000 spectrogram.dynamicRangeDb=60"
       " spectrogram.displayFormants=0 spectrogram.lpcOrder=8 spectrogram.trackFormants=0"
       " spectrogram.drawAudio=1 spectrogram.drawIntensity=1 spectrogram.drawLabels=1"
       " spectrogram.addFrequencyGrid=0 spectrogram.frequencyGridHz=700"
       " spectrogram.timeGridMs=0"},
      {SpectrogramDrawn, "spectrogram.addTimeGrid=0", "spectrogram.timeGridMs=90"},
      {spectrogramSheet, "spectrogram.printWidth=5 spectrogram.printHeight=5"},
      {PitchValues,
       "pitch.windowMs=60 pitch.stepMs=20 pitch.thresholdPercent=60 pitch.deviationHz=1",
       "pitch.method=0"},
      {PitchValues,
       "pitch.highHz=260 pitch.lowHz=115 pitch.method=0 pitch.voicingLevel=30000"
       " pitch.tolerancePercent=0"},
      {PitchDrawn, "pitch.addFrequencyGrid=0 pitch.frequencyGridHz=55"},
  };
  for (const std::string window : {"mainView", "fftLpc", "spectrogram", "log", "labelList"}) {
    const std::string field = " application." + window;
    groups.push_back(
        {places, field + "X=61" + field + "Y=62" + field + "Width=563" + field + "Height=364"});
  }
  for (int tier = 1; tier <= 10; ++tier) {
    groups.push_back({NewDocument, "tiers.name" + std::to_string(tier) + "=vowels"});
  }

  Settings usual{{}, DefaultDocumentSettings()};
  for (WindowPlacement* const place :
       {&usual.application.mainView, &usual.application.fftLpc, &usual.application.spectrogram,
        &usual.application.log, &usual.application.labelList}) {
    *place = {40, 50, 600, 400};
  }
  std::set<std::string> missing;
  for (const Field& field : Fields()) {
    missing.insert(std::string(field.group) + '.' + std::string(field.name));
  }
  for (const Group& group : groups) {
    Settings before = usual;
    for (const auto& [name, value] : PairsOf(group.with)) {
      ASSERT_EQ(SetFieldFromText(before, name, value), std::nullopt);
    }
    const std::string was = group.effect(before);
    for (const auto& [name, value] : PairsOf(group.values)) {
      EXPECT_EQ(missing.erase(name), 1U) << name << " is no field, or one twice";
      Settings changed = before;
      ASSERT_EQ(SetFieldFromText(changed, name, value), std::nullopt);
      EXPECT_TRUE(group.effect(changed) != was) << name << " changes nothing";
    }
  }
  EXPECT_THAT(missing, testing::IsEmpty()) << "no group says what they change";
}

// Fields that a document keeps and no file holds.
TEST_F(SettingsEffects, SoDoTheFieldsOfThePitchWindow) {
  struct Unsaved {
    const char* name;
    void (*change)(PitchSettings&);
    Effect effect;
  };
  const Effect sheet = [this](const Settings& s) {
    return SheetOf(WindowKind::kPitch, Command::kPitchSelection, s);
  };
  for (const Unsaved& row : {
           Unsaved{"addTimeGrid", [](PitchSettings& p) { p.addTimeGrid = 0; }, PitchDrawn},
           Unsaved{"timeGridMs", [](PitchSettings& p) { p.timeGridMs = 90; }, PitchDrawn},
           Unsaved{"timeGridMs 0", [](PitchSettings& p) { p.timeGridMs = 0; }, PitchDrawn},
           Unsaved{"addAudio", [](PitchSettings& p) { p.addAudio = 1; }, PitchDrawn},
           Unsaved{"addIntensity", [](PitchSettings& p) { p.addIntensity = 1; }, PitchDrawn},
           Unsaved{"addLabels", [](PitchSettings& p) { p.addLabels = 0; }, PitchDrawn},
           Unsaved{"printWidth", [](PitchSettings& p) { p.printWidth = 5.0; }, sheet},
           Unsaved{"printHeight", [](PitchSettings& p) { p.printHeight = 5.0; }, sheet},
       }) {
    const Settings usual{{}, DefaultDocumentSettings()};
    Settings changed = usual;
    row.change(changed.document.pitch);
    EXPECT_TRUE(row.effect(changed) != row.effect(usual)) << row.name << " changes nothing";
  }
}

}  // namespace
}  // namespace cantorix
