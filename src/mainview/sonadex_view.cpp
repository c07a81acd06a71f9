// sonadex_view.cpp
#include "mainview/sonadex_view.h"

#include <utility>

namespace cantorix {

CSonadexView::CSonadexView(CSonadexDoc& document, ViewServices services)
    : document_(document), services_(std::move(services)) {}

void CSonadexView::Redraw() {
  redrawNeeded = true;
  services_.listener.ViewChanged();
}

}  // namespace cantorix
