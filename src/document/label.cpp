// label.cpp - the font description's fields and the range test.
#include "document/label.h"

#include "platform/bytes.h"

namespace cantorix {
namespace {

// Places in the font description.
constexpr std::size_t kHeight = 0;
constexpr std::size_t kWidth = 4;
constexpr std::size_t kWeight = 16;
constexpr std::size_t kItalic = 20;
constexpr std::size_t kUnderline = 21;
constexpr std::size_t kFace = 28;
constexpr std::size_t kFaceBytes = 32;

}  // namespace

std::int32_t FontDescription::height() const { return LoadLittle<std::int32_t>(bytes, kHeight); }
std::int32_t FontDescription::width() const { return LoadLittle<std::int32_t>(bytes, kWidth); }
std::int32_t FontDescription::weight() const { return LoadLittle<std::int32_t>(bytes, kWeight); }
bool FontDescription::italic() const { return bytes[kItalic] != std::byte{0}; }
bool FontDescription::underline() const { return bytes[kUnderline] != std::byte{0}; }
std::string FontDescription::faceName() const { return LoadText(bytes, kFace, kFaceBytes); }

void FontDescription::Set(std::int32_t height, std::int32_t weight, bool italic, bool underline,
                          const std::string& faceName) {
  StoreLittle(std::span<std::byte>(bytes), kHeight, height);
  StoreLittle(std::span<std::byte>(bytes), kWeight, weight);
  bytes[kItalic] = std::byte{italic};
  bytes[kUnderline] = std::byte{underline};
  StoreText(bytes, kFace, kFaceBytes, faceName);
}

FontDescription DefaultFont() {
  FontDescription font;
  font.Set(14, 400, false, false, "Arial");
  return font;
}

bool LabelInRange(const Label& label, double startMs, double endMs) {
  return startMs <= label.timeMs && label.timeMs <= endMs;
}

}  // namespace cantorix
