// view_readouts.cpp - cursor and selection turned into the numbers of the strip.
#include "mainview/view_readouts.h"

#include "mainview/time_axis.h"
#include "mainview/track_lookup.h"

namespace cantorix {

void ReadCursor(CSonadexView& view) {
  const CChannel& channel = view.channel();
  const double cursorMs = InsideRecordingMs(channel, channel.cursor.ms);
  const double lengthMs = InsideRecordingMs(channel, channel.selectionEnd.ms) -
                          InsideRecordingMs(channel, channel.selectionStart.ms);
  view.readouts.cursorMs = cursorMs;
  view.readouts.pitchHz = PitchAt(view.pitch, channel, cursorMs);
  view.readouts.intensityDb = IntensityAt(channel.intensity, channel, cursorMs);
  view.readouts.durationMs = view.selectionShown() || view.press.held ? lengthMs : 0.0;
}

void ReadSelection(CSonadexView& view) {
  const CChannel& channel = view.channel();
  view.readouts.averagePitchHz =
      view.selectionShown()
          ? AveragePitch(view.pitch, channel, channel.selectionStart.ms, channel.selectionEnd.ms)
          : 0.0;
}

}  // namespace cantorix
