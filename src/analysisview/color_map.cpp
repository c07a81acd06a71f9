// color_map.cpp - maps as paths through CIELAB in cylindrical coordinates.
#include "analysisview/color_map.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cantorix {
namespace {

constexpr double kWhiteX = 0.95047, kWhiteZ = 1.08883;  // D65, Y = 1

struct Lch {
  double lightness, chroma, hueDegrees;
};
using LinearRgb = std::array<double, 3>;

double CubeOrLine(double t) {
  constexpr double kKnee = 6.0 / 29.0;
  return t > kKnee ? t * t * t : 3.0 * kKnee * kKnee * (t - 4.0 / 29.0);
}

LinearRgb ToLinear(const Lch& color) {
  const double hue = color.hueDegrees * std::numbers::pi / 180.0;
  const double fy = (color.lightness + 16.0) / 116.0;
  const double x = kWhiteX * CubeOrLine(fy + color.chroma * std::cos(hue) / 500.0);
  const double y = CubeOrLine(fy);
  const double z = kWhiteZ * CubeOrLine(fy - color.chroma * std::sin(hue) / 200.0);
  return {3.2404542 * x - 1.5371385 * y - 0.4985314 * z,
          -0.9692660 * x + 1.8760108 * y + 0.0415560 * z,
          0.0556434 * x - 0.2040259 * y + 1.0572252 * z};
}

bool Shown(const LinearRgb& rgb) {
  return std::ranges::all_of(rgb, [](double v) { return v >= -1e-4 && v <= 1.0001; });
}

std::uint32_t Encoded(double linear) {
  const double v = std::clamp(linear, 0.0, 1.0);
  const double coded = v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 1.0 / 2.4) - 0.055;
  return static_cast<std::uint32_t>(std::lround(coded * 255.0));
}

// The colour with as much of its chroma as a screen can show: hue and lightness stay.
std::uint32_t Packed(Lch color) {
  LinearRgb rgb = ToLinear(color);
  while (!Shown(rgb) && color.chroma > 0.0) {
    color.chroma = std::max(color.chroma - 0.5, 0.0);
    rgb = ToLinear(color);
  }
  return 0xff000000U | Encoded(rgb[0]) << 16U | Encoded(rgb[1]) << 8U | Encoded(rgb[2]);
}

// The colour at t in 0 ... 1.
Lch PathOf(ColorMap map, double t) {
  const double arch = std::sin(std::numbers::pi * t);
  switch (map) {
    case ColorMap::kGrey:
      return {100.0 - 100.0 * t, 0.0, 0.0};
    case ColorMap::kInverseGrey:
      return {100.0 * t, 0.0, 0.0};
    case ColorMap::kEmber:
      return {4.0 + 92.0 * t, 12.0 + 62.0 * arch, 290.0 + 170.0 * t};
    case ColorMap::kTide:
      return {4.0 + 92.0 * t, 12.0 + 40.0 * arch, 285.0 - 165.0 * t};
  }
  return {};
}

}  // namespace

ColorTable MakeColorTable(ColorMap map) {
  ColorTable table{};
  for (std::size_t i = 0; i < kColorCount; ++i) {
    table[i] = Packed(PathOf(map, static_cast<double>(i) / 255.0));
  }
  return table;
}

}  // namespace cantorix
