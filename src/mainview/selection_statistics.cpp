// selection_statistics.cpp - the entries, frames, samples and columns of a stretch, counted.
#include "mainview/selection_statistics.h"

#include <algorithm>
#include <cmath>

#include "mainview/time_axis.h"
#include "mainview/waveform_pyramid.h"
#include "platform/bytes.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

constexpr std::size_t kMaxTextBytes = 255;
constexpr std::int64_t kBlockSamples = std::int64_t{1} << 20U;

bool Holds(const MsSpan& span, double ms) { return ms >= span.startMs && ms <= span.endMs; }

double MeanOf(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double v : values) sum += v;
  return sum / static_cast<double>(values.size());
}

// Of at least one value.
PitchStatistics Describe(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t n = values.size();
  PitchStatistics result{.least = values.front(),
                         .most = values.back(),
                         .mean = MeanOf(values),
                         .median = (values[(n - 1) / 2] + values[n / 2]) * 0.5};
  if (n < 2) return result;
  double squares = 0.0;
  for (const double v : values) squares += (v - result.mean) * (v - result.mean);
  result.deviation = std::sqrt(squares / static_cast<double>(n - 1));
  return result;
}

void CountPitch(const CSonadexView& view, SelectionStatistics& result) {
  const double msPerSample = view.channel().msPerSample();
  std::vector<double> voiced;
  for (std::int64_t i = 0; i < view.pitch.count(); ++i) {
    if (!Holds(result.span, view.pitch.TimeMs(i, msPerSample))) continue;
    ++result.entries;
    const double hz = view.pitch.PitchTrack[static_cast<std::size_t>(i)];
    if (hz > 0.0) voiced.push_back(hz);
  }
  result.voiced = static_cast<std::int64_t>(voiced.size());
  if (!voiced.empty()) result.pitch = Describe(std::move(voiced));
}

void CountIntensity(const CChannel& channel, SelectionStatistics& result) {
  const IntensityResult& intensity = channel.intensity;
  if (!intensity.IntensityValid) return;
  const LevelTrack& track = intensity.IntensityTrack;
  double power = 0.0;
  double frames = 0.0;
  double index = 0.0;
  for (const double level : track.levels()) {
    const double start = intensity.range.start + index * track.stepSamples();
    index += 1.0;
    if (!Holds(result.span, start * channel.msPerSample())) continue;
    frames += 1.0;
    if (!std::isfinite(level)) continue;
    power += std::pow(10.0, level * 0.1);
    result.mostDb = std::max(result.mostDb.value_or(level), level);
  }
  if (power > 0.0) result.meanDb = 10.0 * std::log10(power / frames);
}

SampleExtent ExtentBetween(const SampleSource& samples, std::int64_t at, std::int64_t end) {
  std::vector<std::int16_t> buffer;
  SampleExtent extent;
  for (; at < end; at += kBlockSamples) {
    extent.Include(ExtentOf(samples.View(at, std::min(kBlockSamples, end - at), buffer)));
  }
  return extent;
}

// Whole pieces from the pyramid, which rounds to them, and the rest from the samples.
SampleExtent ExtentBetween(const SampleSource& samples, const WaveformPyramid& pyramid,
                           std::int64_t start, std::int64_t end) {
  constexpr std::int64_t kPiece = WaveformPyramid::kPieceSamples;
  const std::int64_t first = (start + kPiece - 1) / kPiece * kPiece;
  const std::int64_t last = end / kPiece * kPiece;
  if (last <= first) return ExtentBetween(samples, start, end);
  SampleExtent extent = ExtentBetween(samples, start, first);
  extent.Include(ExtentBetween(samples, last, end));
  std::array<SampleExtent, 1> middle;
  pyramid.Extents(samples, static_cast<double>(first), static_cast<double>(last), middle);
  extent.Include(middle.front());
  return extent;
}

void CountSamples(const CSonadexView& view, const WaveformPyramid* pyramid,
                  SelectionStatistics& result) {
  const SampleSource& samples = view.document().Samples();
  const CChannel& channel = view.channel();
  const auto inside = [&samples](double at) {
    return std::clamp<std::int64_t>(Truncate(at), 0, samples.length());
  };
  const std::int64_t start = inside(channel.PointAtTime(result.span.startMs).samples);
  const std::int64_t end = inside(channel.PointAtTime(result.span.endMs).samples);
  const SampleExtent extent = pyramid == nullptr ? ExtentBetween(samples, start, end)
                                                 : ExtentBetween(samples, *pyramid, start, end);
  if (extent.empty()) return;
  result.leastSample = extent.low;
  result.mostSample = extent.high;
}

void CountFormants(const CChannel& channel, const Spectrogram& spectrogram,
                   SelectionStatistics& result) {
  std::array<std::vector<double>, kFormants> found;
  for (std::size_t c = 0; c < spectrogram.formants.size(); ++c) {
    const double start = spectrogram.StartOf(static_cast<std::int64_t>(c));
    if (!Holds(result.span, start * channel.msPerSample())) continue;
    ++result.columns;
    for (std::size_t i = 0; i < kFormants; ++i) {
      const std::uint16_t hz = spectrogram.formants[c][i];
      if (hz != kNoFormantHz && hz != kSilentHz) found[i].push_back(hz);
    }
  }
  for (std::size_t i = 0; i < kFormants; ++i) {
    if (!found[i].empty()) result.formantHz[i] = MeanOf(found[i]);
  }
}

}  // namespace

SelectionStatistics StatisticsOf(const CSonadexView& view, const MsSpan& span,
                                 const Spectrogram* spectrogram, const WaveformPyramid* pyramid) {
  SelectionStatistics result{.span = span};
  CountPitch(view, result);
  CountIntensity(view.channel(), result);
  CountSamples(view, pyramid, result);
  if (spectrogram != nullptr) CountFormants(view.channel(), *spectrogram, result);
  return result;
}

std::vector<std::optional<double>> StatisticsValues(const SelectionStatistics& statistics,
                                                    std::int32_t timeBase) {
  const MsSpan& span = statistics.span;
  std::vector<std::optional<double>> values{InTimeBase(span.startMs, timeBase),
                                            InTimeBase(span.endMs, timeBase),
                                            InTimeBase(span.endMs - span.startMs, timeBase)};
  const auto& pitch = statistics.pitch;
  for (double PitchStatistics::*const field : {&PitchStatistics::least, &PitchStatistics::most,
                                               &PitchStatistics::mean, &PitchStatistics::median}) {
    values.push_back(pitch ? std::optional((*pitch).*field) : std::nullopt);
  }
  values.push_back(pitch ? pitch->deviation : std::nullopt);
  const auto entries = static_cast<double>(statistics.entries);
  values.push_back(statistics.entries > 0
                       ? std::optional(static_cast<double>(statistics.voiced) * 100.0 / entries)
                       : std::nullopt);
  values.push_back(statistics.meanDb);
  values.push_back(statistics.mostDb);
  for (const auto& sample : {statistics.leastSample, statistics.mostSample}) {
    values.push_back(sample ? std::optional<double>(*sample) : std::nullopt);
  }
  values.insert(values.end(), statistics.formantHz.begin(), statistics.formantHz.end());
  return values;
}

LogEntry StatisticsEntry(const CSonadexView& view, const SelectionStatistics& statistics) {
  LogEntry entry{
      std::string(CutText(view.document().title(), kMaxTextBytes)), "Statistics Entry:", {}};
  for (const StatisticsName& name : kStatisticsNames) {
    entry.heading += (entry.heading.ends_with(':') ? " " : ", ") + std::string(name.inLog);
  }
  const std::int32_t timeBase = view.document().settings.display.timeBase;
  for (const auto& value : StatisticsValues(statistics, timeBase)) {
    entry.columns.push_back(value ? FormatOneDecimal(*value) : "-");
  }
  return entry;
}

}  // namespace cantorix
