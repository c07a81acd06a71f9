// batch_view.h - a working view that nobody looks at: the commands of the desktop on the recording
// of a session, with no sound, no dialogs, and texts measured in a fixed pitch.
#pragma once

#include "batch/session.h"
#include "mainview/analysis_commands.h"
#include "mainview/clipboard.h"
#include "mainview/quiet_view.h"
#include "mainview/sonadex_view.h"

namespace cantorix::batch {

class FixedTextMeasurer : public TextMeasurer {
 public:
  PixelSize Measure(const FontDescription& font, std::string_view text) const override;
};

class BatchView {
 public:
  // On an open session, which outlives it. Makes the folder of the undo file; throws
  // std::filesystem::filesystem_error when it cannot.
  explicit BatchView(Session& session);

  CSonadexView& view() { return view_; }
  Session& session() { return session_; }
  // Selects the range of the options, if there is one.
  bool SelectRange();
  // Pitch and intensity of a stretch. False, after a line that says so, when one is missing.
  bool AnalysePitch(Stretch stretch);

 private:
  Session& session_;
  Clipboard clipboard_;
  FixedTextMeasurer measurer_;
  QuietWindow window_;
  QuietDialogs dialogs_;
  CSonadexView view_;
};

}  // namespace cantorix::batch
