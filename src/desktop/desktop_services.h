// desktop_services.h - what the windows of the desktop are given by the program. All of it outlives
// the windows.
#pragma once

#include "app/application.h"
#include "mainview/clipboard.h"
#include "mainview/sound_run.h"
#include "mainview/view_dialogs.h"
#include "mainview/view_ports.h"
#include "platform/services.h"

namespace cantorix {

class QtProgress;

struct DesktopServices {
  Application& application;
  QtProgress& progress;
  ViewDialogs& dialogs;
  const TextMeasurer& textMeasurer;
  ShellOpener& opener;
  Clipboard& clipboard;
  SoundParts sound;
};

}  // namespace cantorix
