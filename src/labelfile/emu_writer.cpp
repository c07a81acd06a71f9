// emu_writer.cpp - EMU's annotations: a level of segments for a tier of intervals, of events for
// one of points.
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "labelfile/format_writers.h"

namespace cantorix {
namespace {

using Json = nlohmann::ordered_json;

std::int64_t SampleAt(double seconds, double rateHz) { return std::llround(seconds * rateHz); }

Json ItemOf(const LabelFileTier& tier, const TimedLabel& label, double rateHz, std::size_t id) {
  Json item{{"id", id}};
  const std::int64_t start = SampleAt(label.startS, rateHz);
  if (tier.intervals) {
    item["sampleStart"] = start;
    // The next segment begins one sample behind the last one of this.
    item["sampleDur"] = SampleAt(label.endS, rateHz) - start - 1;
  } else {
    item["samplePoint"] = start;
  }
  item["labels"] = Json::array({Json{{"name", tier.name}, {"value", label.text}}});
  return item;
}

// Whole rates without a point.
Json RateOf(double rateHz) {
  const std::int64_t whole = std::llround(rateHz);
  return static_cast<double>(whole) == rateHz ? Json(whole) : Json(rateHz);
}

std::string StemOf(const std::string& name) { return name.substr(0, name.rfind('.')); }

}  // namespace

std::string WriteEmu(const LabelFile& file) {
  Json levels = Json::array();
  std::size_t id = 0;
  for (const LabelFileTier& tier : file.tiers) {
    Json items = Json::array();
    for (const TimedLabel& label : tier.labels) {
      items.push_back(ItemOf(tier, label, file.rateHz, ++id));
    }
    levels.push_back(Json{{"name", tier.name},
                          {"type", tier.intervals ? "SEGMENT" : "EVENT"},
                          {"items", std::move(items)}});
  }
  const Json root{{"name", StemOf(file.recordingName)},
                  {"annotates", file.recordingName},
                  {"sampleRate", RateOf(file.rateHz)},
                  {"levels", std::move(levels)},
                  {"links", Json::array()}};
  return root.dump(2) + '\n';
}

}  // namespace cantorix
