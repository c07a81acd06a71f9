// scope_trace.cpp - columns of device pixels, written without a painter.
#include "desktop/sound/scope_trace.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "audio/level_meter.h"

namespace cantorix {
namespace {

constexpr int kGap = 12;  // logical pixels
constexpr double kFullScale = 32768.0;

}  // namespace

void ScopeTrace::Begin(QSize size, double ratio, const PaintStyle& style) {
  const QSize pixels(std::max(static_cast<int>(std::ceil(size.width() * ratio)), 1),
                     std::max(static_cast<int>(std::ceil(size.height() * ratio)), 1));
  image_ = QImage(pixels, QImage::Format_RGB32);
  image_.setDevicePixelRatio(ratio);
  MakeEmptyColumn(style);
  for (int column = 0; column < image_.width(); ++column) Clear(column);
  x_ = 0;
  last_ = 0;
  column_ = {};
}

void ScopeTrace::MakeEmptyColumn(const PaintStyle& style) {
  emptyColumn_.assign(static_cast<std::size_t>(image_.height()), style.pane.rgb());
  const auto mark = static_cast<std::int16_t>(kFullScale * std::pow(10.0, kLevelMarkDb / 20.0));
  const int thick = std::max(static_cast<int>(std::lround(image_.devicePixelRatio())), 1);
  const auto line = [&](std::int16_t value, const QColor& color) {
    const int first = Row(value);
    const int end = std::min(first + thick, image_.height());
    std::fill(emptyColumn_.begin() + first, emptyColumn_.begin() + end, color.rgb());
  };
  line(mark, style.zeroLine);
  line(static_cast<std::int16_t>(-mark), style.zeroLine);
  line(0, style.zeroLine);
  traceColor_ = style.waveform.rgb();
  clippedColor_ = style.spectrumLpc.rgb();
}

void ScopeTrace::SetRate(std::uint32_t rateHz) { rateHz_ = std::max(rateHz, 1U); }

int ScopeTrace::Row(std::int16_t sample) const {
  const double part = (kFullScale - 1.0 - sample) / (2.0 * kFullScale - 1.0);
  return static_cast<int>(std::lround(part * (image_.height() - 1)));
}

void ScopeTrace::Clear(int column) {
  for (int row = 0; row < image_.height(); ++row) {
    reinterpret_cast<QRgb*>(image_.scanLine(row))[column] =
        emptyColumn_[static_cast<std::size_t>(row)];
  }
}

// The line begins where the column before it ended, so that the trace has no holes.
void ScopeTrace::Finish() {
  Clear(x_);
  const int thick = std::max(static_cast<int>(std::lround(image_.devicePixelRatio())), 1);
  const int top = Row(std::max(column_.highest, last_));
  const int bottom = std::max(Row(std::min(column_.lowest, last_)), top + thick - 1);
  const QRgb color = column_.clipped ? clippedColor_ : traceColor_;
  for (int row = top; row <= std::min(bottom, image_.height() - 1); ++row) {
    reinterpret_cast<QRgb*>(image_.scanLine(row))[x_] = color;
  }
  x_ = (x_ + 1) % image_.width();
}

QRegion ScopeTrace::Draw(std::span<const std::int16_t> samples) {
  if (image_.isNull()) return {};
  const int width = image_.width();
  const double perColumn = std::max(kSweepSeconds * rateHz_ / width, 1.0);
  const int gap = std::min(static_cast<int>(kGap * image_.devicePixelRatio()), width - 1);
  const int first = x_;
  int drawn = 0;
  for (const std::int16_t sample : samples) {
    const bool isFirst = column_.samples < 1.0;
    column_.lowest = isFirst ? sample : std::min(column_.lowest, sample);
    column_.highest = isFirst ? sample : std::max(column_.highest, sample);
    column_.clipped = (!isFirst && column_.clipped) || std::abs(int{sample}) >= 32767;
    column_.samples += 1.0;
    if (column_.samples < perColumn) continue;
    Finish();
    last_ = sample;
    column_ = {.samples = column_.samples - perColumn};
    ++drawn;
  }
  if (drawn == 0) return {};
  for (int ahead = 0; ahead < gap; ++ahead) Clear((x_ + ahead) % width);
  const int changed = std::min(drawn + gap, width);
  const int toEdge = std::min(changed, width - first);
  return QRegion(Logical(first, toEdge)) | QRegion(Logical(0, changed - toEdge));
}

QRect ScopeTrace::Logical(int firstColumn, int columns) const {
  if (columns <= 0) return {};
  const double ratio = image_.devicePixelRatio();
  const int left = static_cast<int>(std::floor(firstColumn / ratio));
  const int right = static_cast<int>(std::ceil((firstColumn + columns) / ratio));
  return {left, 0, right - left, static_cast<int>(std::ceil(image_.height() / ratio))};
}

}  // namespace cantorix
