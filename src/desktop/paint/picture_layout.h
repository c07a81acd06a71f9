// picture_layout.h - the working view laid out for a picture of another size than its window.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

// While it lives, the view is laid out in `client` from its top; then as it was before. Nothing is
// told to the view's listeners.
class PictureLayout {
 public:
  PictureLayout(CSonadexView& view, PixelSize client);
  ~PictureLayout();
  PictureLayout(const PictureLayout&) = delete;
  PictureLayout& operator=(const PictureLayout&) = delete;

 private:
  CSonadexView& view_;
  PixelSize client_;
  std::int32_t tierOffset_;
};

}  // namespace cantorix
