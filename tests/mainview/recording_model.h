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

inline void CloseLabels(Recording& recording, const Span& span) {
  if (span.end <= span.start) return;  // nothing is taken out, no label either
  for (auto& labels : recording.labels) {
    std::erase_if(labels, [&span](const ModelLabel& label) {
      return label.ms >= span.startMs && label.ms <= span.endMs;
    });
    for (ModelLabel& label : labels) {
      if (label.ms > span.endMs) label.ms -= span.endMs - span.startMs;
    }
  }
}

inline void Remove(Recording& recording, const Span& span) {
  std::vector<std::int16_t>& samples = recording.samples;
  for (std::size_t from = Whole(span.end), to = Whole(span.start); from < samples.size();) {
    samples[to++] = samples[from++];
  }
  recording.length -= span.end - span.start;
  recording.ms -= span.endMs - span.startMs;
  samples.resize(Whole(recording.length));
  CloseLabels(recording, span);
}

// Puts `piece` in place of `span`, which may be empty.
inline void Replace(Recording& recording, const Recording& piece, const Span& span) {
  std::vector<std::int16_t>& samples = recording.samples;
  const auto at = samples.begin() + static_cast<std::ptrdiff_t>(span.start);
  const auto rest = samples.begin() + static_cast<std::ptrdiff_t>(span.end);
  samples.insert(samples.erase(at, rest), piece.samples.begin(), piece.samples.end());
  recording.length = recording.length - (span.end - span.start) + piece.length;
  recording.ms = recording.ms - (span.endMs - span.startMs) + piece.ms;
  samples.resize(Whole(recording.length));
  CloseLabels(recording, span);
  for (std::size_t tier = 0; tier < recording.labels.size(); ++tier) {
    for (ModelLabel& label : recording.labels[tier]) {
      if (label.ms > span.startMs) label.ms += piece.ms;
    }
    for (const ModelLabel& label : piece.labels[tier]) {
      recording.labels[tier].push_back({label.text, label.ms + span.startMs});
    }
  }
}

}  // namespace cantorix
