// pitch_frame.h - the window of a pitch track.
#pragma once

#include "analysisview/pitch_view.h"
#include "desktop/paint/words.h"
#include "desktop/windows/analysis_frame.h"
#include "desktop/windows/pitch_picture.h"

namespace cantorix {

class CPitchFrame : public AnalysisFrame {
 public:
  CPitchFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement);

  CPitchView& model() override { return model_; }
  WindowPicture& picture() override { return picture_; }

 private:
  QString KindName() const override { return Tr("Pitch"); }
  QString IconName() const override { return QStringLiteral("pitch"); }
  Command OptionsCommand() const override { return Command::kPitchOptions; }

  CPitchView model_;
  PitchWindowPicture picture_;
};

}  // namespace cantorix
