// recording_model.h - a recording with labels as a small independent model: what cutting, copying
// and pasting must leave. Positions may have fractions; whole samples are held.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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

// The part of `recording` in `span`, its labels counted from the start.
inline Recording Piece(const Recording& recording, const Span& span) {
  Recording piece;
  piece.length = span.end - span.start;
  piece.ms = span.endMs - span.startMs;
  for (std::size_t i = 0; i < Whole(piece.length); ++i) {
    piece.samples.push_back(recording.samples.at(Whole(span.start) + i));
  }
  for (std::size_t tier = 0; tier < recording.labels.size(); ++tier) {
    for (const ModelLabel& label : recording.labels[tier]) {
      if (label.ms < span.startMs || label.ms > span.endMs) continue;
      piece.labels[tier].push_back({label.text, label.ms - span.startMs});
    }
  }
  return piece;
}

inline void Remove(Recording& recording, const Span& span) {
  std::vector<std::int16_t>& samples = recording.samples;
  for (std::size_t from = Whole(span.end), to = Whole(span.start); from < samples.size();) {
    samples[to++] = samples[from++];
  }
  const double lengthMs = span.endMs - span.startMs;
  recording.length -= span.end - span.start;
  recording.ms -= lengthMs;
  samples.resize(Whole(recording.length));
  for (auto& labels : recording.labels) {
    std::erase_if(labels, [&span](const ModelLabel& label) {
      return label.ms >= span.startMs && label.ms <= span.endMs;
    });
    for (ModelLabel& label : labels) {
      if (label.ms > span.endMs) label.ms -= lengthMs;
    }
  }
}

inline void Insert(Recording& recording, const Recording& piece, double position,
                   double positionMs) {
  const auto at = recording.samples.begin() + static_cast<std::ptrdiff_t>(position);
  recording.samples.insert(at, piece.samples.begin(), piece.samples.end());
  recording.length += piece.length;
  recording.ms += piece.ms;
  recording.samples.resize(Whole(recording.length));
  for (std::size_t tier = 0; tier < recording.labels.size(); ++tier) {
    for (ModelLabel& label : recording.labels[tier]) {
      if (label.ms > positionMs) label.ms += piece.ms;
    }
    for (const ModelLabel& label : piece.labels[tier]) {
      recording.labels[tier].push_back({label.text, label.ms + positionMs});
    }
  }
}

}  // namespace cantorix
