// qt_text.h - texts and paths between the logic, which keeps bytes, and the widgets: what is shown,
// what was typed, and the fonts and boxes of labels.
#pragma once

#include <QFont>
#include <QString>
#include <string>
#include <string_view>

#include "mainview/view_ports.h"

namespace cantorix {

// Bytes of a file or of the logic as text: UTF-8 when they are, else Windows-1252.
QString Shown(std::string_view bytes);
// What the user typed, as UTF-8.
std::string Typed(const QString& text);

// Paths keep their bytes on the way in and out.
QString ShownPath(const std::string& path);
std::string ChosenPath(const QString& path);

// The font of a description. A positive height is that of a whole line, a negative one that of the
// letters; 0 is taken as the height of a fresh label's font.
QFont FontOf(const FontDescription& description);
// The description with what the user can choose replaced by that of `font`.
FontDescription DescriptionOf(const QFont& font, FontDescription description);

class QtTextMeasurer : public TextMeasurer {
 public:
  PixelSize Measure(const FontDescription& font, std::string_view text) const override;
};

}  // namespace cantorix
