// wide_view.h - a recording of 10000 ms at one sample per ms, counting up from 0, and its view on a
// time axis of 1000 pixels: 10 ms per pixel, the recording's start at pixel 40.
#pragma once

#include "view_fixture.h"

namespace cantorix {

inline constexpr PixelSize kWideClient{1045, 300};

class WideViewTest : public ViewTest {
 protected:
  WideViewTest() { view.LayOut(kWideClient); }

  ViewedRecording recording{world, Ramp(10'000)};
  CSonadexDoc& document = recording.document;
  CSonadexView& view = recording.view;
  CChannel& channel = recording.channel();
  RecordingListener& listener = world.listener;
  CountingPlayback& playback = world.playback;
};

}  // namespace cantorix
