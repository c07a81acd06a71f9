// picture_layout.cpp - the layout of another size for as long as a picture is painted.
#include "desktop/paint/picture_layout.h"

namespace cantorix {

PictureLayout::PictureLayout(CSonadexView& view, PixelSize client)
    : view_(view), client_(view.layout.client), tierOffset_(view.tierOffset) {
  view_.tierOffset = 0;
  view_.layout = LayOutView(view_.document(), client, 0);
}

PictureLayout::~PictureLayout() {
  view_.tierOffset = tierOffset_;
  view_.layout = LayOutView(view_.document(), client_, tierOffset_);
}

}  // namespace cantorix
