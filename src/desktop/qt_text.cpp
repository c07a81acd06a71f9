// qt_text.cpp - conversions at the border between bytes and Qt.
#include "desktop/qt_text.h"

#include <QFile>
#include <QFontMetrics>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "document/label.h"
#include "platform/text.h"

namespace cantorix {
namespace {

constexpr int kFreshHeight = 14;  // pixels of a line
constexpr int kTallest = 400;

int ClampedHeight(std::int32_t height) {
  if (height == 0) return kFreshHeight;
  return std::clamp(std::abs(std::clamp(height, -kTallest, kTallest)), 1, kTallest);
}

// Letters of the size that makes a line `lineHeight` pixels high.
int LetterPixels(QFont font, int lineHeight) {
  constexpr int kProbe = 100;
  font.setPixelSize(kProbe);
  const double ratio = static_cast<double>(QFontMetrics(font).height()) / kProbe;
  return std::max(static_cast<int>(std::lround(lineHeight / std::max(ratio, 0.1))), 1);
}

}  // namespace

QString Shown(std::string_view bytes) { return QString::fromStdString(ToUtf8(bytes)); }

std::string Typed(const QString& text) { return text.toStdString(); }

QString ShownPath(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string ChosenPath(const QString& path) { return QFile::encodeName(path).toStdString(); }

QFont FontOf(const FontDescription& description) {
  QFont font(Shown(description.faceName()));
  const std::int32_t weight = description.weight();
  font.setWeight(static_cast<QFont::Weight>(weight <= 0 ? 400 : std::clamp(weight, 100, 900)));
  font.setItalic(description.italic());
  font.setUnderline(description.underline());
  const int height = ClampedHeight(description.height());
  font.setPixelSize(description.height() < 0 ? height : LetterPixels(font, height));
  return font;
}

FontDescription DescriptionOf(const QFont& font, FontDescription description) {
  description.Set(QFontMetrics(font).height(), font.weight(), font.italic(), font.underline(),
                  Typed(font.family()));
  return description;
}

PixelSize QtTextMeasurer::Measure(const FontDescription& font, std::string_view text) const {
  const QFontMetrics metrics(FontOf(font));
  return {metrics.horizontalAdvance(Shown(text)), metrics.height()};
}

}  // namespace cantorix
