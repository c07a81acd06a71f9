// window_links.h - which windows of a document follow its main view. Kept as long as the document
// is open; 0 or 1, as all switches of windows are.
#pragma once

#include <cstdint>

namespace cantorix {

struct WindowLinks {
  std::int32_t spectrogramFollows = 1;  // the visible stretch
  std::int32_t pitchFollows = 1;        // the same
  std::int32_t spectrumFollows = 0;     // the marker
};

}  // namespace cantorix
