// picture_keys.h - the keys that are no commands of a menu: what they do to the view while one of
// the pictures of a recording has the focus. A window may keep some of them for itself.
#pragma once

#include <span>
#include <string_view>

#include "mainview/sonadex_view.h"

namespace cantorix {

struct PictureKey {
  std::string_view keys;  // "Ctrl+Left"
  std::string_view does;  // for the page of commands
  void (*act)(CSonadexView&);
};

std::span<const PictureKey> PictureKeys();

}  // namespace cantorix
