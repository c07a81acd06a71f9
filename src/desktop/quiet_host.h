// quiet_host.h - the program around a document when nobody sits in front of it: messages become
// lines on standard error, questions are declined, dialogs are cancelled.
#pragma once

#include <QTemporaryDir>
#include <iostream>

#include "desktop/qt_text.h"
#include "document/document_host.h"
#include "mainview/clipboard.h"
#include "mainview/quiet_view.h"
#include "mainview/sonadex_view.h"
#include "platform/host_services.h"
#include "platform/progress.h"
#include "platform/quiet_prompts.h"
#include "platform/workers.h"

namespace cantorix {

class SpokenPrompts : public QuietPrompts {
 public:
  void Message(const std::string& text) override { std::cerr << "cantorix: " << text << '\n'; }
};

// A host with a private program directory; it leaves nothing behind.
struct QuietHost {
  ViewServices Services() {
    return {.clipboard = clipboard,
            .temporaryDirectory = directory.path().toStdString() + "/",
            .textMeasurer = textMeasurer,
            .listener = window,
            .sound = window,
            .dialogs = dialogs,
            .openLog = [] { return nullptr; }};
  }

  QTemporaryDir directory;
  SpokenPrompts prompts;
  NoProgress progress;
  HostMemoryProbe memory;
  Workers workers{ProcessorCount()};
  DocumentHost host{.prompts = prompts,
                    .progress = progress,
                    .memory = memory,
                    .programDirectory = directory.path().toStdString(),
                    .application = {},
                    .documentsWriteConfiguration = false,
                    .samplesStayInFile = true,
                    .workers = &workers};
  Clipboard clipboard;
  QtTextMeasurer textMeasurer;
  QuietDialogs dialogs;
  QuietWindow window;
};

}  // namespace cantorix
