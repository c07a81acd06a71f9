// sound_windows.h - everything in the main frame that shows sound: the record/play window, the
// scope, the status bar, the line where a recording plays. It follows the desk and keeps the input
// open while somebody looks at its level.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/record_play_settings.h"
#include "app/sound_input.h"
#include "desktop/desktop_services.h"
#include "desktop/frame_host.h"
#include "desktop/sound/device_changes.h"
#include "desktop/sound/scope_frame.h"
#include "desktop/sound/sound_status.h"

namespace cantorix {

class CFrameRecordPlay;
class CMainFrame;

class SoundWindows : public QObject {
 public:
  // `host` is the frame's own.
  SoundWindows(CMainFrame& frame, FrameHost& host, const DesktopServices& services);
  ~SoundWindows() override;

  void ShowRecordPlay();
  // One window at most; a beep and a message when it cannot be made.
  void ShowScope();
  // Before a recording starts: the chosen input, or the system's own and a line that says so.
  void UseChosenInput();

  // The document in front, its selection or the settings may have changed.
  void Refresh();
  // The desk was ticked.
  void Tick();
  // The desk began or ended something.
  void SoundChanged();
  void Note(const std::string& text) { status_.Note(text); }

  // The frame ends: nothing is listened to or shown any more.
  void Leave();

  CFrameRecordPlay& recordPlay() { return *recordPlay_; }
  CScopeChildFrame* scope() const { return scope_; }
  const SoundStatus& status() const { return status_; }
  // How a scope window is made.
  std::function<CScopeChildFrame*()> makeScope;

 private:
  CSonadexView* view() const;
  const CSonadexDoc* document() const;
  RecordPlaySettings Settings() const;
  void Keep(const RecordPlaySettings& settings);
  void ChooseInput(std::int32_t index, const std::string& name);
  void Rescan();
  // Devices may have come or gone while the window is open.
  void DevicesChanged();
  void PlaySecond();
  void ListDevices();
  // Listens while a window wants a level.
  void FollowVisibility();
  void ShowPlayed();

  CMainFrame& frame_;
  FrameHost& host_;
  const DesktopServices& services_;
  SoundStatus status_;
  CFrameRecordPlay* recordPlay_;
  CScopeChildFrame* scope_ = nullptr;
  DeviceChanges changes_;
  WindowPlacement placement_;  // for as long as the program runs
  std::string toldGone_;       // the missing input that was told of last
  int ticksToLevel_ = 0;
};

}  // namespace cantorix
