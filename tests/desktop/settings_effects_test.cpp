// settings_effects_test.cpp - every field of the settings record changes something that a user can
// see: a picture, a result, a sheet of paper, a window or a dialog. A field that nobody reads
// fails. The file is long because it is a table of all fields.
#include <QComboBox>
#include <QPrinter>
#include <map>
#include <sstream>

#include "analysis/intensity.h"
#include "analysis/pitch.h"
#include "desktop/desktop_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/dialogs/option_dialog.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"
#include "desktop/main_view_output.h"
#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/pitch_painter.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/paint/spectrum_painter.h"
#include "desktop/windows/analysis_window_set.h"
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

template <typename Paint>
std::string Painted(const Paint& paint) {
  QImage image = Canvas(kCanvas);
  QPainter painter(&image);
  paint(painter, StyleOf(PaletteKind::kLight));
  painter.end();
  return BytesOf(image);
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
  return Painted([&](QPainter& painter, const PaintStyle& style) {
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
  return Painted([&](QPainter& painter, const PaintStyle& style) {
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
  return Painted(
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
  return Painted(
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
class SettingsEffects : public DesktopTest {
 protected:
  SettingsEffects() {
    windows.Enter({&frame.area(),
                   [this](CSonadexDoc& document) -> DocumentWaveform& {
                     return frame.documents().WaveformOf(document);
                   },
                   [this] { frame.Refresh(); }, [this]() -> QPrinter& { return printer; }});
    frame.SetAnalysisWindows(&windows);
    frame.SetOutput(&output);
    view = &OpenSample();
    SelectSpan(*view, 1700.0, 1900.0);
    frame.Refresh();
  }
  ~SettingsEffects() override {
    for (CChildFrame* const child : frame.Frames()) windows.CloseWindowsOf(*child->view());
    frame.SetAnalysisWindows(nullptr);
    frame.SetOutput(nullptr);
  }

  // The picture that is saved under these settings.
  std::string MainSheet(const Settings& settings) {
    view->document().settings = settings.document;
    return Saved([this] { Perform(Command::kSaveAsBmp); });
  }
  std::string SheetOf(WindowKind kind, Command open, const Settings& settings) {
    if (windows.Find(*view, kind) == nullptr) Perform(open);
    view->document().settings = settings.document;
    return Saved([&] {
      if (AnalysisFrame* const window = windows.Find(*view, kind)) {
        window->Perform(WindowCommand::kSavePicture);
      }
    });
  }
  std::string SpectrumSheet(const Settings& settings) {
    return SheetOf(WindowKind::kFftLpc, Command::kFftLpcSelection, settings);
  }
  std::string SpectrogramSheet(const Settings& settings) {
    return SheetOf(WindowKind::kSpectrogram, Command::kSpectrogramSelection, settings);
  }
  std::string PitchSheet(const Settings& settings) {
    return SheetOf(WindowKind::kPitch, Command::kPitchSelection, settings);
  }

  // Where the windows of a new program stand.
  std::string Places(const Settings& settings) {
    app.host.application = settings.application;
    CMainFrame other{services};
    AnalysisWindowSet others{services};
    others.Enter({&other.area(),
                  [&](CSonadexDoc& document) -> DocumentWaveform& {
                    return other.documents().WaveformOf(document);
                  },
                  {},
                  {}});
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

  CSonadexView* view = nullptr;

 private:
  template <typename Save>
  std::string Saved(const Save& save) {
    const std::string path = folder.path() + "/sheet.png";
    prompts.WillChooseFile(path);
    save();
    EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
    const QImage image(QString::fromStdString(path));
    return std::to_string(image.width()) + 'x' + std::to_string(image.height()) + BytesOf(image);
  }

  QPrinter printer;
  DesktopServices services{
      app, progress, dialogs, textMeasurer, opener, clipboard, {sound, clock, memory}};
  AnalysisWindowSet windows{services};
  MainViewOutput output{prompts, [this](CSonadexDoc& document) -> DocumentWaveform& {
                          return frame.documents().WaveformOf(document);
                        }};
};

using Effect = std::function<std::string(const Settings&)>;

// What another value of the field changes, beside `with`, which both have.
struct Row {
  const char* value;
  Effect effect;
  std::vector<std::pair<const char*, const char*>> with;
};

TEST_F(SettingsEffects, EveryFieldChangesWhatItNames) {
  const Effect places = [this](const Settings& s) { return Places(s); };
  const Effect mainSheet = [this](const Settings& s) { return MainSheet(s); };
  const Effect spectrumSheet = [this](const Settings& s) { return SpectrumSheet(s); };
  const Effect spectrogramSheet = [this](const Settings& s) { return SpectrogramSheet(s); };
  std::map<std::string, Row> rows{
      {"application.memoryMinutes", {"0", StorageOfSample, {}}},
      {"document.referenceRateHz", {"16000", NewDocument, {}}},
      {"display.automaticAnalysis", {"1", TracksAfterOpening, {}}},
      {"display.printUnit", {"1", mainSheet, {}}},
      {"display.recordingInput", {"1", InTheFileAlone, {}}},
      {"display.trackMouse", {"1", TrackedMouse, {}}},
      {"display.printWidth", {"5", mainSheet, {}}},
      {"display.printHeight", {"5", mainSheet, {}}},
      {"display.drawAudio", {"0", MainViewDrawn, {}}},
      {"display.drawIntensity", {"0", MainViewDrawn, {}}},
      {"display.timeBase", {"1", MainViewDrawn, {}}},
      {"display.intensityInOwnPane", {"1", MainViewDrawn, {}}},
      {"display.drawPitch", {"0", MainViewDrawn, {}}},
      {"display.drawTiers", {"0", MainViewDrawn, {}}},
      {"display.drawGrids", {"0", MainViewDrawn, {}}},
      {"display.audioPanePercent", {"30", MainViewDrawn, {}}},
      {"display.pitchPanePercent", {"30", MainViewDrawn, {}}},
      {"zoom.rangeMs", {"300", ZoomFromCursor, {}}},
      {"gain.gainPercent", {"15", GainPreset, {}}},
      {"gain.reference", {"200", GainPreset, {}}},
      {"carried.word1", {"7", InTheFileAlone, {}}},
      {"carried.word2", {"7", InTheFileAlone, {}}},
      {"fftlpc.sizeIndex", {"5", ShownSize, {}}},
      {"fftlpc.points", {"1024", SpectrumValues, {}}},
      {"fftlpc.windowMs", {"12", SpectrumValues, {}}},
      {"fftlpc.stepMs", {"33", SpectrumValues, {}}},
      {"fftlpc.rangeHz", {"3000", SpectrumValues, {}}},
      {"fftlpc.relative", {"0", SpectrumDrawn, {{"fftlpc.absoluteDb", "150"}}}},
      {"fftlpc.absoluteDb", {"150", SpectrumDrawn, {{"fftlpc.relative", "0"}}}},
      {"fftlpc.blackWhite", {"0", spectrumSheet, {}}},
      {"fftlpc.printWidth", {"5", spectrumSheet, {}}},
      {"fftlpc.printHeight", {"5", spectrumSheet, {}}},
      {"fftlpc.printUnit", {"1", spectrumSheet, {}}},
      {"fftlpc.addFrequencyGrid", {"0", SpectrumDrawn, {}}},
      {"fftlpc.frequencyGridHz", {"300", SpectrumDrawn, {}}},
      {"fftlpc.addPowerGrid", {"0", SpectrumDrawn, {}}},
      {"fftlpc.powerGridDb", {"7", SpectrumDrawn, {}}},
      {"fftlpc.lpcOrder", {"8", SpectrumValues, {}}},
      {"fftlpc.drawLpc", {"0", SpectrumDrawn, {}}},
      {"log.stepHz", {"50", LogRowCount, {}}},
      {"intensity.windowMs", {"50", Levels, {}}},
      {"intensity.stepMs", {"5", Levels, {}}},
      {"intensity.relative", {"1", Levels, {}}},
      {"spectrogram.points", {"512", SpectrogramDrawn, {}}},
      {"spectrogram.sizeIndex", {"5", InTheFileAlone, {}}},
      {"spectrogram.rangeHz", {"3000", SpectrogramDrawn, {}}},
      {"spectrogram.dynamicRangeDb", {"60", SpectrogramDrawn, {}}},
      {"spectrogram.preEmphasis", {"0", SpectrumValues, {}}},
      {"spectrogram.displayFormants", {"0", SpectrogramDrawn, {}}},
      {"spectrogram.lpcOrder", {"8", SpectrogramDrawn, {}}},
      {"spectrogram.trackFormants", {"0", SpectrogramDrawn, {}}},
      {"spectrogram.printWidth", {"5", spectrogramSheet, {}}},
      {"spectrogram.printHeight", {"5", spectrogramSheet, {}}},
      {"spectrogram.drawAudio", {"1", SpectrogramDrawn, {}}},
      {"spectrogram.drawIntensity", {"1", SpectrogramDrawn, {}}},
      {"spectrogram.drawLabels", {"1", SpectrogramDrawn, {}}},
      {"spectrogram.addFrequencyGrid", {"0", SpectrogramDrawn, {}}},
      {"spectrogram.frequencyGridHz", {"700", SpectrogramDrawn, {}}},
      {"spectrogram.addTimeGrid", {"0", SpectrogramDrawn, {{"spectrogram.timeGridMs", "90"}}}},
      {"spectrogram.timeGridMs", {"0", SpectrogramDrawn, {}}},
      {"pitch.windowMs", {"60", PitchValues, {{"pitch.method", "0"}}}},
      {"pitch.stepMs", {"20", PitchValues, {{"pitch.method", "0"}}}},
      {"pitch.highHz", {"260", PitchValues, {}}},
      {"pitch.lowHz", {"115", PitchValues, {}}},
      {"pitch.displayHighHz", {"400", MainViewDrawn, {}}},
      {"pitch.displayLowHz", {"100", MainViewDrawn, {}}},
      {"pitch.addFrequencyGrid", {"0", PitchDrawn, {}}},
      {"pitch.frequencyGridHz", {"55", PitchDrawn, {}}},
      {"pitch.method", {"0", PitchValues, {}}},
      {"pitch.thresholdPercent", {"60", PitchValues, {{"pitch.method", "0"}}}},
      {"pitch.deviationHz", {"1", PitchValues, {{"pitch.method", "0"}}}},
      {"pitch.voicingLevel", {"30000", PitchValues, {}}},
      {"pitch.tolerancePercent", {"0", PitchValues, {}}},
      {"generic.headerBytes", {"44", InTheFileAlone, {}}},
      {"generic.rateHz", {"8000", InTheFileAlone, {}}},
      {"generic.sixteenBit", {"0", InTheFileAlone, {}}},
      {"generic.highByteFirst", {"0", InTheFileAlone, {}}},
      {"generic.binary", {"0", InTheFileAlone, {}}},
  };
  for (const char* const window : {"mainView", "fftLpc", "spectrogram", "log", "labelList"}) {
    const std::string name = std::string("application.") + window;
    rows[name + "X"] = {"61", places, {}};
    rows[name + "Y"] = {"62", places, {}};
    rows[name + "Width"] = {"563", places, {}};
    rows[name + "Height"] = {"364", places, {}};
  }
  for (int tier = 1; tier <= 10; ++tier) {
    rows["tiers.name" + std::to_string(tier)] = {"vowels", NewDocument, {}};
  }

  Settings usual{{}, DefaultDocumentSettings()};
  for (WindowPlacement* const place :
       {&usual.application.mainView, &usual.application.fftLpc, &usual.application.spectrogram,
        &usual.application.log, &usual.application.labelList}) {
    *place = {40, 50, 600, 400};
  }
  const std::string placesBefore = Places(usual);
  for (const Field& field : Fields()) {
    const std::string name = std::string(field.group) + '.' + std::string(field.name);
    SCOPED_TRACE(name);
    const auto found = rows.find(name);
    ASSERT_NE(found, rows.end()) << "no row says what the field changes";
    const Row& row = found->second;
    Settings first = usual;
    for (const auto& [other, value] : row.with) {
      ASSERT_EQ(SetFieldFromText(first, other, value), std::nullopt);
    }
    Settings second = first;
    ASSERT_EQ(SetFieldFromText(second, name, row.value), std::nullopt);
    const bool isPlace = field.group == "application" && field.name != "memoryMinutes";
    const std::string was = isPlace ? placesBefore : row.effect(first);
    EXPECT_TRUE(row.effect(second) != was) << "nothing changes";
    rows.erase(found);
  }
  EXPECT_TRUE(rows.empty()) << rows.begin()->first << " is no field";
}

// Fields that a document keeps and no file holds.
TEST_F(SettingsEffects, SoDoTheFieldsOfThePitchWindow) {
  struct Unsaved {
    const char* name;
    void (*change)(PitchSettings&);
    Effect effect;
  };
  const Effect sheet = [this](const Settings& s) { return PitchSheet(s); };
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
