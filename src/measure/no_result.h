// no_result.h - a measurement that was tried and gave nothing, with the words for it.
#pragma once

#include <stdexcept>
#include <string>

namespace cantorix {

class NoResult : public std::runtime_error {
 public:
  explicit NoResult(const std::string& reason) : std::runtime_error(reason) {}
};

// Why an analysis of pitch or of intensity gave nothing.
inline constexpr const char* kNoPitchTrack =
    "no pitch track: the stretch is too short or the settings do not fit it";
inline constexpr const char* kNoIntensity =
    "no intensity contour: the settings do not fit the stretch";

}  // namespace cantorix
