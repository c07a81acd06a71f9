// label.h - a label with its text, looks and time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "document/label_alignment.h"

namespace cantorix {

// The 60 bytes of a font description, kept verbatim: height, width, escapement, orientation and
// weight as 32-bit little-endian integers; italic, underline, strike-out, character set, output
// precision, clip precision, quality, pitch and family as bytes; 32 bytes of face name.
struct FontDescription {
  static constexpr std::size_t kBytes = 60;
  std::array<std::byte, kBytes> bytes{};

  std::int32_t height() const;
  std::int32_t width() const;
  std::int32_t weight() const;
  bool italic() const;
  bool underline() const;
  std::string faceName() const;
  void Set(std::int32_t height, std::int32_t weight, bool italic, bool underline,
           const std::string& faceName);

  bool operator==(const FontDescription&) const = default;
};

// The font of a fresh label: Arial, height 14, weight 400, everything else 0.
FontDescription DefaultFont();

inline constexpr std::size_t kMaxLabelBytes = 255;

struct Label {
  std::string text;  // at most kMaxLabelBytes bytes
  std::int32_t alignment = kAlignLeft;
  FontDescription font = DefaultFont();
  std::uint32_t colour = 0;  // red in bits 0-7, green 8-15, blue 16-23
  std::uint32_t reservedWord = 0;
  double timeMs = 0.0;            // 0 <= time <= total duration
  double verticalPosition = 0.7;  // fraction 0.0 to 1.0 of the tier's height
  std::array<std::int32_t, 4> labelBox{};
  std::int8_t flag = 0;  // 1: a vertical line is drawn at the label's time

  bool operator==(const Label&) const = default;
};

// Whether a label lies in [startMs, endMs], both ends included.
bool LabelInRange(const Label& label, double startMs, double endMs);

}  // namespace cantorix
