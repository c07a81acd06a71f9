// application_settings.h - the part of the settings that belongs to the program and not to a
// document: when recordings go to the disk, and where its windows stand.
#pragma once

#include <cstdint>

namespace cantorix {

// Place of a window's normal geometry in pixels; a width or height of 0 means the default place.
struct WindowPlacement {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

struct ApplicationSettings {
  std::int32_t memoryMinutes = 5;  // recordings of this length and more go to the disk store
  WindowPlacement mainView, fftLpc, spectrogram, log, labelList;
};

}  // namespace cantorix
