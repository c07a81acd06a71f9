// empty_panes.cpp - grey panels with a line of text.
#include "desktop/paint/empty_panes.h"

#include <algorithm>
#include <cmath>

#include "desktop/paint/label_painter.h"
#include "desktop/paint/picture_text.h"
#include "desktop/paint/words.h"
#include "mainview/label_entry_state.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr int kFontPixels = 13;
constexpr double kInset = 8.0;  // pixels, of the text in its panel

// In the middle of `area`, as far as it is there.
void DrawPanel(QPainter& painter, const QRectF& area, const QString& text,
               const PaintStyle& style) {
  const QFont font = Resized(style.font, kFontPixels);
  const QSizeF size = TextSize(font, text) + QSizeF(2.0 * kInset, kInset);
  QRectF panel(QPointF(0.0, 0.0), size.boundedTo(area.size()));
  panel.moveCenter(area.center());
  panel = panel.toAlignedRect();
  painter.fillRect(panel, style.background);
  painter.setPen(QPen(style.frame, style.hairline));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(panel.adjusted(0.5, 0.5, -0.5, -0.5));
  painter.setPen(style.text);
  DrawFitted(painter, panel.adjusted(kInset, 0.0, -kInset, 0.0), Qt::AlignCenter, text, font);
}

bool HasTier(const CSonadexView& view) {
  return std::ranges::any_of(view.channel().tiers, [](const Tier& tier) { return tier.inUse; });
}

}  // namespace

std::string UnvoicedNote(const CSonadexView& view) {
  const std::size_t count = view.pitch.entries().size();
  if (count == 0 || view.pitch.Summary().values() > 0) return {};
  const PitchSettings& settings = view.document().settings.pitch;
  return "No voiced stretch between " + std::to_string(std::llround(settings.lowHz)) + " and " +
         std::to_string(std::llround(settings.highHz)) + " Hz found. Options\u2026";
}

void DrawEmptyPanes(QPainter& painter, const CSonadexView& view, const PaintStyle& style) {
  if (!view.document().loaded) return;
  const PixelRect& pane = view.layout.pitch;
  if (pane.bottom > pane.top) {
    const std::string note = view.pitch.count() == 0 ? kNoPitchNote : UnvoicedNote(view);
    if (!note.empty()) DrawPanel(painter, ToRectF(pane), Translated(note), style);
  }
  if (!view.labelEntry.enabled || HasTier(view)) return;
  constexpr double kLine = 26.0;
  const PixelRect& audio = view.layout.audio;
  DrawPanel(painter, QRectF(audio.left, 2.0, audio.right - audio.left, kLine),
            Tr("No tier in use. Type to use 'words', or set tiers\u2026"), style);
}

}  // namespace cantorix
