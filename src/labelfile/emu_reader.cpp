// emu_reader.cpp - EMU's annotations as JSON: levels of segments, of events, and of items that have
// a time only through those which they are linked to.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <unordered_map>

#include "labelfile/emu_links.h"
#include "labelfile/format_readers.h"

namespace cantorix {
namespace {

using Json = nlohmann::json;

constexpr int kDeepest = 64;

// Goes through a text without building anything of it. Throws for what nests too deep, and for what
// would take far more memory than its text without holding labels.
class Budget : public nlohmann::json_sax<Json> {
 public:
  explicit Budget(std::size_t textBytes) : bytes_((32U << 20U) + 2 * textBytes) {}

  bool null() override { return Spend(); }
  bool boolean(bool) override { return Spend(); }
  bool number_integer(number_integer_t) override { return Spend(); }
  bool number_unsigned(number_unsigned_t) override { return Spend(); }
  bool number_float(number_float_t, const string_t&) override { return Spend(); }
  bool string(string_t&) override { return Spend(); }
  bool binary(binary_t&) override { return Spend(); }
  bool start_object(std::size_t) override { return Descend(); }
  bool start_array(std::size_t) override { return Descend(); }
  bool end_object() override { return Ascend(); }
  bool end_array() override { return Ascend(); }
  bool key(string_t& name) override {
    constexpr std::size_t kPerLabel = 1024;
    if (name == "labels") bytes_ += kPerLabel;
    return Spend();
  }
  bool parse_error(std::size_t at, const std::string&, const Json::exception& error) override {
    if (dynamic_cast<const Json::out_of_range*>(&error) != nullptr) {
      throw LabelFileError("a number is too large");
    }
    throw LabelFileError("no JSON at byte " + std::to_string(at));
  }

 private:
  bool Spend() {
    constexpr std::size_t kValue = 120;
    spent_ += kValue;
    if (spent_ > bytes_) throw LabelFileError("it holds more values than labels account for");
    return true;
  }
  bool Descend() {
    if (++depth_ > kDeepest) throw LabelFileError("it is nested too deep");
    return Spend();
  }
  bool Ascend() {
    --depth_;
    return true;
  }

  std::size_t bytes_;
  std::size_t spent_ = 0;
  int depth_ = 0;
};

Json Parsed(std::string_view text) {
  Budget budget(text.size());
  Json::sax_parse(text.begin(), text.end(), &budget);
  return Json::parse(text.begin(), text.end());
}

// The member of this name, null without one.
const Json& Member(const Json& object, const char* name) {
  static const Json kNull;
  if (!object.is_object()) return kNull;
  const auto found = object.find(name);
  return found == object.end() ? kNull : *found;
}

std::string TextMember(const Json& object, const char* name) {
  const Json& member = Member(object, name);
  return member.is_string() ? member.get<std::string>() : std::string();
}

std::optional<double> NumberMember(const Json& object, const char* name) {
  const Json& member = Member(object, name);
  return member.is_number() ? std::optional(member.get<double>()) : std::nullopt;
}

std::optional<std::int64_t> IdMember(const Json& object, const char* name) {
  const Json& member = Member(object, name);
  return member.is_number_integer() ? std::optional(member.get<std::int64_t>()) : std::nullopt;
}

// An item has a text for each attribute of its level; the one named like the level is the label.
std::string LabelOf(const Json& item, const std::string& level) {
  const Json& labels = Member(item, "labels");
  for (const Json& label : labels) {
    if (TextMember(label, "name") == level) return TextMember(label, "value");
  }
  return labels.is_array() && !labels.empty() ? TextMember(labels[0], "value") : std::string();
}

// The samples that an item covers itself; an end is where the next segment may begin.
std::optional<SampleSpan> OwnSpan(const Json& item) {
  if (const auto point = NumberMember(item, "samplePoint")) return SampleSpan{*point, *point};
  const auto start = NumberMember(item, "sampleStart");
  if (!start) return std::nullopt;
  return SampleSpan{*start, *start + NumberMember(item, "sampleDur").value_or(-1.0) + 1.0};
}

LinkedItems ItemsOf(const Json& root) {
  LinkedItems items;
  for (const Json& level : Member(root, "levels")) {
    for (const Json& item : Member(level, "items")) {
      items.Add(IdMember(item, "id"), OwnSpan(item));
    }
  }
  for (const Json& link : Member(root, "links")) {
    const auto from = IdMember(link, "fromID");
    const auto to = IdMember(link, "toID");
    if (from && to) items.Link(*from, *to);
  }
  return items;
}

LabelFileTier TierOf(const Json& level, double rateHz, const std::optional<SampleSpan>*& span,
                     LabelFile& file) {
  LabelFileTier tier;
  tier.name = TextMember(level, "name");
  tier.intervals = TextMember(level, "type") != "EVENT";
  std::size_t timeless = 0;
  for (const Json& item : Member(level, "items")) {
    const auto& samples = *span++;
    if (!samples) {
      ++timeless;
      continue;
    }
    tier.labels.push_back(
        {samples->start / rateHz, samples->end / rateHz, LabelOf(item, tier.name)});
  }
  if (timeless > 0) {
    file.notes.push_back("Level " + Quoted(tier.name) + ": " + CountOf(timeless, "item") +
                         " without a time left out.");
  }
  return tier;
}

}  // namespace

LabelFile ReadEmu(std::string_view text, const LabelReading&) {
  const Json root = Parsed(text);
  if (!Member(root, "levels").is_array()) throw LabelFileError("the file holds no levels");
  const double rateHz = NumberMember(root, "sampleRate").value_or(0.0);
  if (!(rateHz > 0.0)) throw LabelFileError("the file states no sample rate");
  const auto spans = ItemsOf(root).Spans();
  const std::optional<SampleSpan>* span = spans.data();
  LabelFile file;
  for (const Json& level : Member(root, "levels")) {
    file.tiers.push_back(TierOf(level, rateHz, span, file));
  }
  return file;
}

}  // namespace cantorix
