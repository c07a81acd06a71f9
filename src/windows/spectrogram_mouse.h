// spectrogram_mouse.h - the left button and the arrow keys in the spectrogram window: a press
// places the cursor, a drag of more than kClickPixels selects. While all windows track the mouse
// the main view is pressed at the same times, and the window follows the main view's presses.
#pragma once

#include <cstdint>

#include "windows/spectrogram_view.h"

namespace cantorix {

// Client pixels. A press outside the plot or without a picture is ignored, and then so are the move
// and the release that follow it. Throw FileError when the main view cannot read its store.
void PressSpectrogram(CSpectrogramView& view, std::int32_t x, std::int32_t y);
void MoveSpectrogram(CSpectrogramView& view, std::int32_t x, std::int32_t y);
void ReleaseSpectrogram(CSpectrogramView& view, std::int32_t x, std::int32_t y);

// The cursor some pixels to the right and upward, as a click there places it.
void StepSpectrogramCursor(CSpectrogramView& view, std::int32_t right, std::int32_t up);

// The main view's press, move or release, at the cursor time of its press: the cursor goes there,
// at its own frequency, and the window shows the main view's selection.
void FollowMainView(CSpectrogramView& view, MousePhase phase, double ms);

}  // namespace cantorix
