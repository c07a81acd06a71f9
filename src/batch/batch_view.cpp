// batch_view.cpp - the window of a view without a screen.
#include "batch/batch_view.h"

#include <algorithm>
#include <filesystem>

#include "document/label.h"
#include "mainview/view_commands.h"
#include "measure/no_result.h"

namespace cantorix::batch {
namespace {

constexpr PixelSize kClient{1000, 600};

std::string TemporaryDirectory(Session& session) {
  std::string path = session.document().host().programDirectory + "/tmp/";
  std::filesystem::create_directories(path);
  return path;
}

// An undo file is as long as the recording.
bool AsksForUndo(const Request& request) {
  return std::ranges::any_of(request.steps,
                             [](const EditStep& step) { return step.kind == EditStep::kUndo; });
}

}  // namespace

PixelSize FixedTextMeasurer::Measure(const FontDescription& font, std::string_view text) const {
  const std::int32_t height = std::max(std::abs(font.height()), 1);
  return {static_cast<std::int32_t>(text.size()) * ((height + 1) / 2), height};
}

BatchView::BatchView(Session& session)
    : session_(session),
      view_(session.document(), {clipboard_,
                                 TemporaryDirectory(session),
                                 measurer_,
                                 window_,
                                 window_,
                                 dialogs_,
                                 {},
                                 AsksForUndo(session.request())}) {
  view_.LayOut(kClient);
  view_.FollowStretch();
}

bool BatchView::SelectRange() {
  const Request& request = session_.request();
  if (!request.fromMs && !request.toMs) return false;
  SelectSpan(view_, request.fromMs.value_or(0.0),
             request.toMs.value_or(view_.channel().totalDurationMs));
  return true;
}

bool BatchView::AnalysePitch(Stretch stretch) {
  cantorix::AnalysePitch(view_, stretch);
  if (view_.pitch.PitchValid) {
    if (view_.channel().intensity.IntensityValid) return true;
    session_.prompts().Say(kNoIntensity);
    return false;
  }
  // Settings that do not fit were reported.
  if (!view_.pitch.badParameters) session_.prompts().Say(kNoPitchTrack);
  return false;
}

}  // namespace cantorix::batch
