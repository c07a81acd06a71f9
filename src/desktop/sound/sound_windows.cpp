// sound_windows.cpp - who is shown what, and when the input is open.
#include "desktop/sound/sound_windows.h"

#include <QMdiArea>
#include <algorithm>

#include "audio/sound_host.h"
#include "audio/sound_rates.h"
#include "desktop/child_frame.h"
#include "desktop/main_frame.h"
#include "desktop/main_view_area.h"
#include "desktop/main_view_widget.h"
#include "desktop/sound/record_play_frame.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr int kTicksPerLevel = 2;

}  // namespace

SoundWindows::SoundWindows(CMainFrame& frame, FrameHost& host, const DesktopServices& services)
    : makeScope([this] { return new CScopeChildFrame(frame_.sound()); }),
      frame_(frame),
      host_(host),
      services_(services),
      status_(*frame.statusBar()),
      recordPlay_(new CFrameRecordPlay(
          &frame, placement_,
          {[this](const RecordPlaySettings& settings) { Keep(settings); },
           [this](std::int32_t index, const std::string& name) { ChooseInput(index, name); },
           [this] { Rescan(); }, [this] { ShowScope(); }, [this] { PlaySecond(); },
           [this] { FollowVisibility(); }})),
      changes_(SoundFolders(), [this] { DevicesChanged(); }) {}

SoundWindows::~SoundWindows() = default;

void SoundWindows::Leave() {
  changes_.Watch(false);
  recordPlay_->hide();
  delete std::exchange(scope_, nullptr);
}

CSonadexView* SoundWindows::view() const { return frame_.activeView(); }

const CSonadexDoc* SoundWindows::document() const {
  return view() == nullptr ? nullptr : &view()->document();
}

RecordPlaySettings SoundWindows::Settings() const {
  return RecordPlaySettingsOf(services_.application.host, document());
}

void SoundWindows::Keep(const RecordPlaySettings& settings) {
  CSonadexView* const front = view();
  KeepRecordPlaySettings(settings, services_.application.host, frame_.documents().All(),
                         front == nullptr ? nullptr : &front->document());
  Refresh();
  FollowVisibility();
}

// Devices
void SoundWindows::ChooseInput(std::int32_t index, const std::string& name) {
  KeepSoundInput(services_.application.profile(), name);
  RecordPlaySettings settings = Settings();
  settings.input = index;
  Keep(settings);
  ListDevices();
}

void SoundWindows::UseChosenInput() {
  const std::int32_t stored = Settings().input;
  // The system's own needs no list.
  const auto names = stored > 0 ? services_.sound.host.DeviceNames(SoundDirection::kIn)
                                : std::vector<std::string>();
  const SoundInput input = FindSoundInput(services_.application.profile(), stored, names);
  frame_.sound().SetInput(input.name);
  if (!input.gone.empty() && input.gone != toldGone_) {
    Note("The sound input \"" + input.gone + "\" is not there: the system's own is used.");
  }
  toldGone_ = input.gone;
}

void SoundWindows::ListDevices() {
  const auto names = services_.sound.host.DeviceNames(SoundDirection::kIn);
  const SoundInput input = FindSoundInput(services_.application.profile(), Settings().input, names);
  recordPlay_->ShowInputs(names, input);
  recordPlay_->ShowRates([&](std::uint32_t rateHz) {
    return services_.sound.host.TakesRate(SoundDirection::kIn, input.name, rateHz);
  });
  UseChosenInput();
}

void SoundWindows::Rescan() {
  if (!frame_.sound().Rescan()) Note("Sound devices cannot be looked for now.");
  ListDevices();
}

void SoundWindows::DevicesChanged() {
  const SoundDesk& desk = frame_.sound();
  if (recordPlay_->isVisible() && !desk.isRecording() && !desk.isPlaying()) Rescan();
}

void SoundWindows::FollowVisibility() {
  const bool isOpen = recordPlay_->isVisible();
  changes_.Watch(isOpen);
  if (!isOpen && scope_ == nullptr) return frame_.sound().Watch(std::nullopt);
  const double rateHz = services_.application.host.recordingRateHz;
  frame_.sound().Watch(DeviceRate(rateHz).value_or(0));
}

// Windows
void SoundWindows::ShowRecordPlay() {
  recordPlay_->ShowSettings(Settings());
  if (!recordPlay_->isVisible()) ListDevices();
  recordPlay_->show();
  recordPlay_->raise();
  recordPlay_->activateWindow();
  Refresh();
}

void SoundWindows::ShowScope() {
  if (scope_ != nullptr) return;
  UseChosenInput();
  try {
    scope_ = makeScope();
  } catch (const std::exception&) {
    services_.application.prompts().Beep();
    services_.application.prompts().Message("Error in creating the scope view.");
    return;
  }
  QMdiArea& area = frame_.area();
  area.addSubWindow(scope_);
  // A working view that fills the area would hide it at the next click.
  scope_->setWindowFlag(Qt::WindowStaysOnTopHint);
  const QRect space = area.viewport()->rect();
  scope_->setGeometry(space.left(), space.bottom() + 1 - space.height() * 2 / 5, space.width(),
                      space.height() * 2 / 5);
  connect(scope_, &QObject::destroyed, this, [this] {
    scope_ = nullptr;
    FollowVisibility();
    Refresh();
  });
  scope_->show();
  area.setActiveSubWindow(scope_);
  FollowVisibility();
  Refresh();
}

void SoundWindows::PlaySecond() {
  CSonadexView* const front = view();
  if (front == nullptr) return;
  SampleRange range = StretchOf(*front, Stretch::kSelection);
  range.end = std::min(range.end, range.start + front->channel().sampleRateHz);
  host_.Run(*front, [&] { frame_.sound().Play(*front, range); });
}

// Following
void SoundWindows::Refresh() {
  const SoundDesk& desk = frame_.sound();
  const CSonadexView* const front = view();
  // Without a document the settings are read from the configuration file.
  if (recordPlay_->isVisible()) recordPlay_->ShowSettings(Settings());
  recordPlay_->ShowState({.canOpenScope = scope_ == nullptr,
                          .canPlay = front != nullptr && front->document().loaded &&
                                     front->selectionShown() && !desk.isRecording(),
                          .canRescan = !desk.isRecording()});
}

void SoundWindows::ShowPlayed() {
  for (CChildFrame* const child : frame_.Frames()) {
    if (child->view() == nullptr) continue;
    const CSonadexDoc& played = child->view()->document();
    const auto ms = frame_.sound().PlayedMs(played);
    child->area().picture().ShowPlayed(ms);
    if (AnalysisWindows* const windows = frame_.analysisWindows()) windows->ShowPlayed(played, ms);
  }
}

void SoundWindows::Tick() {
  const SoundDesk& desk = frame_.sound();
  if (desk.isPlaying()) ShowPlayed();
  status_.Tick(desk, document());
  if (!recordPlay_->isVisible() || --ticksToLevel_ > 0) return;
  ticksToLevel_ = kTicksPerLevel;
  recordPlay_->ShowLevel(desk);
}

void SoundWindows::SoundChanged() {
  ShowPlayed();
  status_.Show(frame_.sound(), document());
  recordPlay_->ShowLevel(frame_.sound());
  Refresh();
}

}  // namespace cantorix
