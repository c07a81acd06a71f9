// pitch_picture.cpp - what the painter needs, taken from model and document.
#include "desktop/windows/pitch_picture.h"

#include "settings/settings.h"

namespace cantorix {

PitchPicture PitchWindowPicture::Now(PixelSize client) const {
  const AxisScale time = model_.TimeAxis();
  PitchPicture picture{.document = view_.document(),
                       .pitch = view_.pitch,
                       .waveform = nullptr,
                       .client = client,
                       .startMs = time.low,
                       .endMs = time.high,
                       .cursorMs = {},
                       .selection = {}};
  if (!model_.computed()) return picture;
  if (model_.markerSet) picture.cursorMs = model_.cursorMs;
  const CChannel& channel = view_.channel();
  // The selection that the track was made of would only colour everything.
  const bool coversAll =
      channel.selectionStart.ms <= time.low && channel.selectionEnd.ms >= time.high;
  if (view_.selectionShown() && !coversAll) {
    picture.selection = AxisSelection{channel.selectionStart.ms, channel.selectionEnd.ms};
  }
  return picture;
}

WindowLayout PitchWindowPicture::LayoutIn(PixelSize client) { return PitchLayout(Now(client)); }

void PitchWindowPicture::PaintData(QPainter& painter, PixelSize client, const PaintStyle& style) {
  PitchPicture picture = Now(client);
  if (view_.document().settings.pitch.addAudio != 0) picture.waveform = &waveform_.Pyramid();
  PaintPitchData(painter, picture, style);
}

void PitchWindowPicture::PaintOverlay(QPainter& painter, PixelSize client,
                                      const PaintStyle& style) {
  PaintPitchOverlay(painter, Now(client), style);
}

}  // namespace cantorix
