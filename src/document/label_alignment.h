// label_alignment.h - where a label's text stands relative to its time.
#pragma once

#include <cstdint>

namespace cantorix {

enum LabelAlignment : std::int32_t { kAlignLeft = 0, kAlignCentre = 1, kAlignRight = 2 };

}  // namespace cantorix
