// edits_model.h - what the edit commands mean, said plainly: a list of samples and lists of labels.
// The rate makes every time a number without rounding, so that the program has to agree to the last
// bit.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cantorix::edits {

inline constexpr double kRateHz = 8000.0;
inline constexpr double kMsPerSample = 0.125;  // a power of two: nothing is rounded
inline constexpr std::size_t kTiers = 4;

struct ModelLabel {
  double ms = 0.0;
  std::string text;
  bool operator==(const ModelLabel&) const = default;
};

struct ModelTier {
  bool inUse = false;
  std::vector<ModelLabel> labels;
};

struct Recording {
  std::vector<std::int16_t> samples;
  std::array<ModelTier, kTiers> tiers;
};

struct Span {
  std::size_t first = 0;
  std::size_t end = 0;
  double startMs() const { return static_cast<double>(first) * kMsPerSample; }
  double endMs() const { return static_cast<double>(end) * kMsPerSample; }
  bool Holds(double ms) const { return end > first && ms >= startMs() && ms <= endMs(); }
};

struct Model {
  Recording now;
  std::optional<Recording> before;  // what Undo brings back
  bool undoesSamples = false;
  std::optional<Recording> clipboard;
  std::optional<Span> selection;
  std::size_t cursor = 0;
  bool onDisk = false;
  std::int16_t reference = 0;

  void Keep(bool samples) {
    before = now;
    undoesSamples = samples;
  }

  void Copy() {
    clipboard.emplace();
    const auto at = now.samples.begin();
    const Span part = selection.value_or(Span{});
    clipboard->samples.assign(at + static_cast<std::ptrdiff_t>(part.first),
                              at + static_cast<std::ptrdiff_t>(part.end));
    for (std::size_t t = 0; t < kTiers; ++t) {
      clipboard->tiers[t].inUse = now.tiers[t].inUse;
      if (!now.tiers[t].inUse) continue;
      for (const ModelLabel& label : now.tiers[t].labels) {
        if (!part.Holds(label.ms)) continue;
        clipboard->tiers[t].labels.push_back({label.ms - part.startMs(), label.text});
      }
    }
  }

  void Remove(const Span& part) {
    now.samples.erase(now.samples.begin() + static_cast<std::ptrdiff_t>(part.first),
                      now.samples.begin() + static_cast<std::ptrdiff_t>(part.end));
    for (ModelTier& tier : now.tiers) {
      if (!tier.inUse) continue;
      std::erase_if(tier.labels, [&](const ModelLabel& label) { return part.Holds(label.ms); });
      for (ModelLabel& label : tier.labels) {
        if (label.ms > part.endMs()) label.ms -= part.endMs() - part.startMs();
      }
    }
  }

  void Cut() {
    Copy();
    Keep(true);
    const Span part = selection.value_or(Span{});
    if (onDisk || part.end - part.first == now.samples.size()) return;
    Remove(part);
    selection.reset();
  }

  void Paste() {
    if (!clipboard) return;
    Keep(true);
    const std::size_t place = std::min(cursor, now.samples.size());
    const Span part = selection.value_or(Span{place, place});
    if (onDisk || (selection && part.end - part.first == now.samples.size())) return;
    Remove(part);
    now.samples.insert(now.samples.begin() + static_cast<std::ptrdiff_t>(part.first),
                       clipboard->samples.begin(), clipboard->samples.end());
    const double grownMs = static_cast<double>(clipboard->samples.size()) * kMsPerSample;
    for (std::size_t t = 0; t < kTiers; ++t) {
      ModelTier& tier = now.tiers[t];
      for (ModelLabel& label : tier.labels) {
        if (tier.inUse && label.ms > part.startMs()) label.ms += grownMs;
      }
      for (const ModelLabel& label : clipboard->tiers[t].labels) {
        tier.inUse = true;
        tier.labels.push_back({label.ms + part.startMs(), label.text});
      }
    }
    selection.reset();
  }

  void Clear() {
    Keep(true);
    if (onDisk) return;
    const Span part = selection.value_or(Span{});
    for (std::size_t i = part.first; i < part.end; ++i) now.samples[i] = reference;
  }

  void Gain(int percent, int moves) {
    Keep(true);
    for (std::int16_t& sample : now.samples) {
      const auto moved = static_cast<std::int16_t>(static_cast<std::uint16_t>(sample + moves));
      const double scaled = std::trunc((percent * 0.01 + 1.0) * moved);
      sample = static_cast<std::int16_t>(static_cast<std::uint16_t>(static_cast<long>(scaled)));
    }
  }

  void Smooth() {
    Keep(true);
    const auto old = now.samples;
    for (std::size_t i = 1; i + 1 < old.size(); ++i) {
      now.samples[i] = static_cast<std::int16_t>((old[i - 1] + old[i] + old[i + 1]) / 3);
    }
  }

  void Undo() {
    if (undoesSamples) now.samples = before->samples;
    now.tiers = before->tiers;
    before.reset();
    selection.reset();
  }
};

}  // namespace cantorix::edits
