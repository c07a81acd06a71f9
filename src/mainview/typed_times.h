// typed_times.h - times as the user types them: milliseconds, or seconds with the unit "s".
#pragma once

#include <string_view>

namespace cantorix {

// One time ("1234.5", "1234.5 ms", "1.2345 s"), or two: "500 800" from one to the other, "500 +
// 300" from one on for a length; ";" may stand between them instead of a blank. In ms.
struct TypedTimes {
  int count = 0;  // 1 or 2; 0: the text is nothing of the kind
  double firstMs = 0.0;
  double secondMs = 0.0;
};

TypedTimes ReadTypedTimes(std::string_view text);

}  // namespace cantorix
