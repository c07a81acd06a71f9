// emu_writer.cpp - EMU's annotations: a level of segments for a tier of intervals, of events for
// one of points.
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "labelfile/format_writers.h"

namespace cantorix {
namespace {

using OrderedJson = nlohmann::ordered_json;

std::int64_t SampleAt(double seconds, double rateHz) { return std::llround(seconds * rateHz); }

OrderedJson ItemOf(const LabelFileTier& tier, const TimedLabel& label, double rateHz,
                   std::size_t id) {
  OrderedJson item{{"id", id}};
  const std::int64_t start = SampleAt(label.startS, rateHz);
  if (tier.intervals) {
    item["sampleStart"] = start;
    // The next segment begins one sample behind the last one of this.
    item["sampleDur"] = SampleAt(label.endS, rateHz) - start - 1;
  } else {
    item["samplePoint"] = start;
  }
  item["labels"] = OrderedJson::array({OrderedJson{{"name", tier.name}, {"value", label.text}}});
  return item;
}

// Whole rates without a point.
OrderedJson RateOf(double rateHz) {
  const std::int64_t whole = std::llround(rateHz);
  return static_cast<double>(whole) == rateHz ? OrderedJson(whole) : OrderedJson(rateHz);
}

std::string StemOf(const std::string& name) { return name.substr(0, name.rfind('.')); }

}  // namespace

std::string WriteEmu(const LabelFile& file) {
  OrderedJson levels = OrderedJson::array();
  std::size_t id = 0;
  for (const LabelFileTier& tier : file.tiers) {
    OrderedJson items = OrderedJson::array();
    for (const TimedLabel& label : tier.labels) {
      items.push_back(ItemOf(tier, label, file.rateHz, ++id));
    }
    levels.push_back(OrderedJson{{"name", tier.name},
                                 {"type", tier.intervals ? "SEGMENT" : "EVENT"},
                                 {"items", std::move(items)}});
  }
  const OrderedJson root{{"name", StemOf(file.recordingName)},
                         {"annotates", file.recordingName},
                         {"sampleRate", RateOf(file.rateHz)},
                         {"levels", std::move(levels)},
                         {"links", OrderedJson::array()}};
  return root.dump(2) + '\n';
}

}  // namespace cantorix
