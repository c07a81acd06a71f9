// corpus_tables.cpp - curves measured once, and looked at stretch by stretch.
#include "measure/corpus_tables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

#include "document/label.h"
#include "document/tier.h"
#include "mainview/track_lookup.h"
#include "measure/printable.h"
#include "measure/wrong_usage.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace cantorix {
namespace {

constexpr double kColumnStepMs = 10.0;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr std::array<std::pair<CorpusTable, std::string_view>, 4> kNames{
    {{CorpusTable::kPitchTable, "pitch"},
     {CorpusTable::kIntensityTable, "intensity"},
     {CorpusTable::kFormantTable, "formants"},
     {CorpusTable::kLabelTable, "labels"}}};

struct CorpusStretch {
  std::string tier = "-", label = "-", previous = "-", next = "-";
  double startMs = 0.0;
  double endMs = 0.0;  // of the last one included
  bool last = true;
};

// Values over time; none is not a number.
struct Curve {
  std::vector<double> timesMs{};
  std::vector<double> values{};
  std::function<double(double ms)> at{};
  bool asPower = false;  // the mean is that of the powers
};

void AddStretches(const Tier& tier, double durationMs, std::vector<CorpusStretch>& all) {
  std::vector<const Label*> labels;
  for (const Label& label : tier.labels) labels.push_back(&label);
  std::stable_sort(labels.begin(), labels.end(),
                   [](const Label* a, const Label* b) { return a->timeMs < b->timeMs; });
  for (std::size_t i = 0; i < labels.size(); ++i) {
    CorpusStretch stretch;
    stretch.tier = ToUtf8(tier.name);
    stretch.label = ToUtf8(labels[i]->text);
    if (i > 0) stretch.previous = ToUtf8(labels[i - 1]->text);
    stretch.startMs = labels[i]->timeMs;
    stretch.endMs = durationMs;
    stretch.last = i + 1 == labels.size();
    if (!stretch.last) stretch.next = ToUtf8(labels[i + 1]->text);
    if (!stretch.last) stretch.endMs = labels[i + 1]->timeMs;
    all.push_back(std::move(stretch));
  }
}

std::vector<CorpusStretch> StretchesOf(const CChannel& channel) {
  std::vector<CorpusStretch> all;
  for (const Tier& tier : channel.tiers) {
    if (tier.inUse) AddStretches(tier, channel.totalDurationMs, all);
  }
  if (!all.empty()) return all;
  CorpusStretch whole;
  whole.endMs = channel.totalDurationMs;
  return {whole};
}

std::vector<Curve> PitchCurve(CSonadexDoc& document) {
  const CChannel& channel = document.channel();
  const auto result = std::make_shared<const PitchResult>(MeasurePitch(document, {}));
  Curve curve;
  for (std::int64_t i = 0; i < result->count(); ++i) {
    const double hz = result->PitchTrack[static_cast<std::size_t>(i)];
    curve.timesMs.push_back(result->TimeMs(i, channel.msPerSample()));
    curve.values.push_back(hz > 0.0 ? hz : kNone);
  }
  curve.at = [result, &channel](double ms) { return PitchAt(*result, channel, ms); };
  return {curve};
}

std::vector<Curve> IntensityCurve(CSonadexDoc& document) {
  const CChannel& channel = document.channel();
  const auto result = std::make_shared<const IntensityResult>(MeasureIntensity(document, {}));
  Curve curve{.asPower = true};
  double frame = 0.0;
  for (const double level : result->IntensityTrack.levels()) {
    const double start = result->range.start + frame * result->IntensityTrack.stepSamples();
    curve.timesMs.push_back(start * channel.msPerSample());
    curve.values.push_back(std::isfinite(level) ? level : kNone);
    frame += 1.0;
  }
  curve.at = [result, &channel](double ms) { return IntensityAt(*result, channel, ms); };
  return {curve};
}

std::vector<Curve> FormantCurves(CSonadexDoc& document, MeasureOptions options,
                                 const Remark& remark) {
  options.columnStepMs = kColumnStepMs;
  CSpectrogramView view(document);
  MeasureFormants(document, options, remark, view);
  const Spectrogram& spectrogram = view.spectrogram();
  std::vector<Curve> curves(kFormants);
  for (std::size_t f = 0; f < kFormants; ++f) {
    Curve& curve = curves[f];
    std::vector<double> shown;
    for (std::size_t c = 0; c < spectrogram.formants.size(); ++c) {
      const std::uint16_t hz = spectrogram.formants[c][f];
      const double start = spectrogram.StartOf(static_cast<std::int64_t>(c));
      curve.timesMs.push_back(start * document.channel().msPerSample());
      shown.push_back(hz == kNoFormantHz ? kNone : hz);
      curve.values.push_back(hz == kSilentHz ? kNone : shown.back());
    }
    curve.at = [shown](double ms) {
      const auto column =
          static_cast<std::size_t>(std::max<std::int64_t>(Truncate(ms / kColumnStepMs), 0));
      return shown.empty() ? kNone : shown[std::min(column, shown.size() - 1)];
    };
  }
  return curves;
}

// The points of a curve in a stretch, and how many of its frames have no value.
struct Points {
  std::vector<double> timesS, values;
  double frames = 0.0;
};

Points PointsIn(const Curve& curve, const CorpusStretch& stretch) {
  Points points;
  auto i = static_cast<std::size_t>(
      std::lower_bound(curve.timesMs.begin(), curve.timesMs.end(), stretch.startMs) -
      curve.timesMs.begin());
  for (; i < curve.timesMs.size(); ++i) {
    const double ms = curve.timesMs[i];
    if (stretch.last ? ms > stretch.endMs : ms >= stretch.endMs) break;
    points.frames += 1.0;
    if (std::isnan(curve.values[i])) continue;
    points.timesS.push_back(ms * 0.001);
    points.values.push_back(curve.values[i]);
  }
  return points;
}

double MeanOf(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double MeanOf(const Curve& curve, const Points& points) {
  if (points.values.empty()) return kNone;
  if (!curve.asPower) return MeanOf(points.values);
  double power = 0.0;
  for (const double level : points.values) power += std::pow(10.0, level * 0.1);
  return 10.0 * std::log10(power / points.frames);
}

double SlopeOf(const Points& points) {
  if (points.values.size() < 2) return kNone;
  const double meanTime = MeanOf(points.timesS);
  const double meanValue = MeanOf(points.values);
  double across = 0.0;
  double along = 0.0;
  for (std::size_t i = 0; i < points.values.size(); ++i) {
    const double t = points.timesS[i] - meanTime;
    across += t * (points.values[i] - meanValue);
    along += t * t;
  }
  return across / along;
}

void AppendNumber(double value, bool exact, std::string& row) {
  row += '\t';
  if (std::isnan(value)) {
    row += '-';
  } else {
    row += exact ? FormatExact(value) : FormatOneDecimal(value);
  }
}

void AppendCurve(const Curve& curve, const CorpusStretch& stretch, const CorpusWork& work,
                 std::string& row) {
  const Points points = PointsIn(curve, stretch);
  AppendNumber(curve.at(stretch.startMs), work.exact, row);
  AppendNumber(MeanOf(curve, points), work.exact, row);
  AppendNumber(SlopeOf(points), work.exact, row);
  const double partMs = (stretch.endMs - stretch.startMs) / work.points;
  for (int i = 0; i < work.points; ++i) {
    AppendNumber(curve.at(stretch.startMs + (i + 0.5) * partMs), work.exact, row);
  }
}

std::vector<Curve> CurvesOf(CorpusTable table, CSonadexDoc& document, const CorpusWork& work,
                            const Remark& remark) {
  switch (table) {
    case CorpusTable::kPitchTable:
      return PitchCurve(document);
    case CorpusTable::kIntensityTable:
      return IntensityCurve(document);
    case CorpusTable::kFormantTable:
      return FormantCurves(document, work.options, remark);
    case CorpusTable::kLabelTable:
      break;
  }
  return {};
}

std::vector<std::string> QuantitiesOf(CorpusTable table) {
  if (table == CorpusTable::kPitchTable) return {"pitch_hz"};
  if (table == CorpusTable::kIntensityTable) return {"intensity_db"};
  if (table == CorpusTable::kFormantTable) return {"F1", "F2", "F3", "F4", "F5"};
  return {};
}

}  // namespace

std::string_view NameOf(CorpusTable table) {
  for (const auto& [value, name] : kNames) {
    if (value == table) return name;
  }
  return {};
}

std::vector<CorpusTable> CorpusTablesOf(std::string_view names) {
  std::vector<CorpusTable> tables;
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find(','));
    names.remove_prefix(std::min(name.size() + 1, names.size()));
    const auto* const known = std::find_if(kNames.begin(), kNames.end(),
                                           [&](const auto& entry) { return entry.second == name; });
    if (known == kNames.end()) {
      throw WrongUsage("--do may hold pitch, intensity, formants and labels, not " +
                       std::string(name));
    }
    const bool twice = std::find(tables.begin(), tables.end(), known->first) != tables.end();
    if (!twice) tables.push_back(known->first);
  }
  if (tables.empty()) throw WrongUsage("--do must hold pitch, intensity, formants or labels");
  return tables;
}

std::string CorpusHeader(CorpusTable table, const std::vector<std::string>& leading, int points) {
  std::string line;
  for (const std::string& name : leading) line += name + '\t';
  line += "tier\tlabel\tprevious\tnext\tstart_ms\tend_ms\tduration_ms";
  for (const std::string& name : QuantitiesOf(table)) {
    line.append("\t").append(name).append("\t").append(name).append("_mean\t");
    line.append(name).append("_slope");
    for (int i = 1; i <= points; ++i) {
      line.append("\t").append(name).append("_").append(std::to_string(i));
    }
  }
  return line + '\n';
}

std::vector<std::string> CorpusRows(CSonadexDoc& document, const CorpusWork& work,
                                    const std::string& leading, const Remark& remark) {
  const auto stretches = StretchesOf(document.channel());
  std::vector<std::string> all;
  for (const CorpusTable table : work.tables) {
    const auto curves = CurvesOf(table, document, work, remark);
    std::string rows;
    for (const CorpusStretch& stretch : stretches) {
      rows += leading;
      for (const auto* text : {&stretch.tier, &stretch.label, &stretch.previous, &stretch.next}) {
        rows += '\t' + Printable(*text);
      }
      AppendNumber(stretch.startMs, work.exact, rows);
      AppendNumber(stretch.endMs, work.exact, rows);
      AppendNumber(stretch.endMs - stretch.startMs, work.exact, rows);
      for (const Curve& curve : curves) AppendCurve(curve, stretch, work, rows);
      rows += '\n';
    }
    all.push_back(std::move(rows));
  }
  return all;
}

}  // namespace cantorix
