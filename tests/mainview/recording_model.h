// recording_model.h - a recording with labels as a small independent model: what cutting, copying
// and pasting must leave. Positions may have fractions; whole samples are held.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "document/label.h"

namespace cantorix {

struct ModelLabel {
  std::string text;
  double ms = 0.0;
  bool operator==(const ModelLabel&) const = default;
};

// A recording, or what was copied of one.
struct Recording {
  std::vector<std::int16_t> samples;
  double length = 0.0;  // samples, perhaps with a fraction
  double ms = 0.0;
  std::array<std::vector<ModelLabel>, 10> labels;
};

struct Span {
  double start = 0.0, end = 0.0;  // samples
  double startMs = 0.0, endMs = 0.0;
};

inline std::size_t Whole(double x) { return static_cast<std::size_t>(x); }

// Samples come and go whole.
inline double Count(const Span& span) {
  return static_cast<double>(Whole(span.end) - Whole(span.start));
}
inline double CountMs(const Recording& recording, const Span& span) {
  return Count(span) * recording.ms / recording.length;
}

// Not behind what the recording will be without the span.
inline double StartMs(const Recording& recording, const Span& span) {
  return std::min(span.startMs, recording.ms - CountMs(recording, span));
}

// A label that would come to stand before the cut or behind the end goes with it.
inline bool Holds(const Recording& recording, const Span& span, const ModelLabel& label) {
  const double start = StartMs(recording, span);
  const double end = std::max(span.endMs, start + CountMs(recording, span));
  return end > start && label.ms >= start && label.ms <= end;
}

// The part of `recording` in `span`, its labels counted from the start.
inline Recording Piece(const Recording& recording, const Span& span) {
  Recording piece;
  piece.length = Count(span);
  piece.ms = CountMs(recording, span);
  for (std::size_t i = Whole(span.start); i < Whole(span.end); ++i) {
    piece.samples.push_back(recording.samples.at(i));
  }
  for (std::size_t tier = 0; tier < recording.labels.size(); ++tier) {
    for (const ModelLabel& label : recording.labels[tier]) {
      if (!Holds(recording, span, label)) continue;
      piece.labels[tier].push_back({label.text, label.ms - StartMs(recording, span)});
    }
  }
  return piece;
}

inline void CloseLabels(Recording& recording, const Span& span) {
  for (auto& labels : recording.labels) {
    std::erase_if(labels, [&](const ModelLabel& label) { return Holds(recording, span, label); });
    for (ModelLabel& label : labels) {
      if (label.ms > span.endMs) label.ms -= CountMs(recording, span);
    }
  }
}

inline void Remove(Recording& recording, const Span& span) {
  std::vector<std::int16_t>& samples = recording.samples;
  for (std::size_t from = Whole(span.end), to = Whole(span.start); from < samples.size();) {
    samples[to++] = samples[from++];
  }
  CloseLabels(recording, span);
  recording.ms -= CountMs(recording, span);
  recording.length -= Count(span);
  samples.resize(Whole(recording.length));
}

// Puts `piece` in place of `span`, which may be empty.
inline void Replace(Recording& recording, const Recording& piece, const Span& span) {
  std::vector<std::int16_t>& samples = recording.samples;
  const double atMs = StartMs(recording, span);
  const auto at = samples.begin() + static_cast<std::ptrdiff_t>(span.start);
  const auto rest = samples.begin() + static_cast<std::ptrdiff_t>(span.end);
  samples.insert(samples.erase(at, rest), piece.samples.begin(), piece.samples.end());
  CloseLabels(recording, span);
  recording.ms += piece.ms - CountMs(recording, span);
  recording.length += piece.length - Count(span);
  for (std::size_t tier = 0; tier < recording.labels.size(); ++tier) {
    for (ModelLabel& label : recording.labels[tier]) {
      if (label.ms > atMs) label.ms += piece.ms;
    }
    for (const ModelLabel& label : piece.labels[tier]) {
      recording.labels[tier].push_back({label.text, label.ms + atMs});
    }
  }
}

}  // namespace cantorix
