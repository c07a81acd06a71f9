// pitch_view.cpp - the main view's track followed, and the cursor over it.
#include "analysisview/pitch_view.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "mainview/analysis_commands.h"
#include "mainview/option_commands.h"
#include "mainview/track_lookup.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

WindowServices WithMainView(WindowServices services, CSonadexView& mainView) {
  services.mainView = &mainView;
  return services;
}

}  // namespace

CPitchView::CPitchView(CSonadexView& mainView, WindowServices services)
    : AnalysisWindow(mainView.document(), WithMainView(std::move(services), mainView)),
      view_(mainView),
      settings_(std::make_unique<PitchSettings>()) {
  TakeTrack();
}

CPitchView::~CPitchView() = default;

bool CPitchView::computed() const { return view_.pitch.count() > 0; }

void CPitchView::Update() {
  const SampleRange range = Remaining(range_, wholeRecording_);
  Tried(false);
  if (range.length() > 0.0) AnalysePitch(view_, range);
  // The main view told everybody but itself; a cancelled run has left no track.
  TakeTrack();
  PictureChanged();
}

void CPitchView::TakeTrack() {
  // A track always fits the recording: an edit drops it or makes a new one.
  Tried(true);
  *settings_ = document().settings.pitch;
  if (!computed()) return;
  shown_.reset();
  range_ = view_.pitch.range;
  wholeRecording_ = IsWholeRecording(range_);
  const AxisScale time = TimeAxis();
  if (cursorMs < time.low || cursorMs > time.high) markerSet = false;
}

void CPitchView::FollowDocument(DocumentChanges changes) {
  if (changes.HasAny(DocumentChange::kTracks | DocumentChange::kSamples)) TakeTrack();
}

bool CPitchView::SettingsMatch() const {
  const auto computedWith = [](const PitchSettings& s) {
    return std::tie(s.method, s.windowMs, s.stepMs, s.highHz, s.lowHz, s.thresholdPercent,
                    s.deviationHz, s.voicingLevel, s.tolerancePercent);
  };
  return !computed() || computedWith(*settings_) == computedWith(document().settings.pitch);
}

AxisScale CPitchView::TimeAxis() const {
  const double factor = channel().msPerSample();
  const SampleRange shown = ShownSamples();
  return AxisOver(shown.start * factor, shown.end * factor);
}

SampleRange CPitchView::ShownSamples() const { return shown_.value_or(view_.pitch.range); }

double CPitchView::MsUnder(std::int32_t x) const { return TimeAxis().ValueAt(ColumnNear(x)); }

void CPitchView::PlaceCursor(double ms) {
  cursorMs = ms;
  markerSet = true;
  Changed();
}

void CPitchView::Press(std::int32_t x, std::int32_t y) {
  if (!computed() || !InPlot(x, y)) return;
  press = {.held = true, .x = x};
  PlaceCursor(MsUnder(x));
  unpassedPressMs_ = cursorMs;
}

void CPitchView::Move(std::int32_t x, std::int32_t) {
  if (!press.held || !computed()) return;
  PlaceCursor(MsUnder(x));
  // A drag begins with its press; a press alone is not passed on.
  if (const auto pressMs = std::exchange(unpassedPressMs_, std::nullopt)) PassPress(*pressMs);
  PassMove(cursorMs);
}

void CPitchView::Release(std::int32_t x, std::int32_t) {
  if (press.held && computed()) PlaceCursor(MsUnder(x));
  press.held = false;
}

void CPitchView::FollowMainView(MousePhase, double ms) {
  if (!computed() || press.held) return;
  cursorMs = ms;
  const AxisScale time = TimeAxis();
  markerSet = ms >= time.low && ms <= time.high && !view_.selectionShown();
  Changed();
}

void CPitchView::StepCursor(std::int32_t right, std::int32_t) {
  if (!computed() || press.held) return;
  const AxisScale time = TimeAxis();
  const double lastMs = std::max(MsUnder(plot.right), time.low);
  const double ms = markerSet ? time.ValueAt(time.X(cursorMs) + right) : time.low;
  PlaceCursor(std::clamp(ms, time.low, lastMs));
}

std::vector<LogEntry> CPitchView::LogRows(WindowLog log) const {
  if (log != WindowLog::kMarker || !computed() || !markerSet) return {};
  return {{document().title(),
           "Pitch Marker Entry: time, pitch, intensity",
           {FormatOneDecimal(cursorMs * TimeFactor(document())),
            FormatOneDecimal(PitchAt(view_.pitch, channel(), cursorMs)),
            FormatOneDecimal(IntensityAt(channel().intensity, channel(), cursorMs))}}};
}

std::vector<WindowReadout> CPitchView::Readouts() const {
  std::vector<WindowReadout> readouts{
      TimeReadout(document(), "Time", cursorMs),
      {"Pitch(Hz)=", FormatOneDecimal(PitchAt(view_.pitch, channel(), cursorMs))},
      {"Int.(dB)=", FormatOneDecimal(IntensityAt(channel().intensity, channel(), cursorMs))}};
  if (computed() && markerSet) return readouts;
  for (WindowReadout& readout : readouts) readout.value = "-";
  return readouts;
}

std::int32_t* CPitchView::SwitchOf(WindowSwitch which) {
  PitchSettings& options = document().settings.pitch;
  if (which == WindowSwitch::kDrawAudio) return &options.addAudio;
  if (which == WindowSwitch::kDrawIntensity) return &options.addIntensity;
  if (which == WindowSwitch::kDrawLabels) return &options.addLabels;
  if (which == WindowSwitch::kFollowView) return &document().windowLinks.pitchFollows;
  if (which == WindowSwitch::kTrackMouse) return &document().settings.display.trackMouse;
  return nullptr;
}

void CPitchView::KeepSwitches() { KeepOptions(view_, SettingsDialog::kPitch); }

}  // namespace cantorix
