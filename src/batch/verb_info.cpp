// verb_info.cpp - what a recording is and carries, as lines to read or as one JSON object a line.
// The lines of several files are set apart by an empty one.
#include <string>
#include <vector>

#include "batch/json.h"
#include "batch/verbs.h"
#include "document/label.h"
#include "measure/printable.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace cantorix::batch {
namespace {

std::string Line(std::string_view name, std::string_view value) {
  std::string line(name);
  line.resize(10, ' ');
  return line.append(Printable(value)) += '\n';
}

// The channel that was asked for; of a file with several, without a word, all of them.
std::vector<std::string> ChannelsOf(const CSonadexDoc& document, bool channelAsked) {
  if (!document.extractedChannel) return {};
  if (channelAsked) return {document.channelSuffixedName};
  const std::string& first = document.channelSuffixedName;
  std::vector<std::string> names;
  for (int i = 1; i <= document.fileChannels; ++i) {
    names.push_back(first.substr(0, first.size() - 1) + std::to_string(i));
  }
  return names;
}

std::string AsLines(const std::string& file, const CSonadexDoc& document, bool channelAsked) {
  const CChannel& channel = document.channel();
  std::string text = Line("file", file);
  for (const std::string& name : ChannelsOf(document, channelAsked)) {
    text += Line("channel", ToUtf8(name));
  }
  text += Line("format", document.formatName);
  if (!document.codingName.empty()) text += Line("encoding", document.codingName);
  text += Line("rate", FormatOneDecimal(channel.sampleRateHz) + " Hz");
  text += Line("length", std::to_string(channel.sampleCount()) + " samples");
  text += Line("duration", FormatOneDecimal(channel.totalDurationMs) + " ms");
  text += Line("storage", document.samplesOnDisk() ? "disk store" : "memory");
  for (const Tier& tier : channel.tiers) {
    if (!tier.inUse) continue;
    text += Line("tier", ToUtf8(tier.name) + ", " + std::to_string(tier.labelCount()) + " labels");
  }
  return text;
}

void AppendLabel(JsonLine& json, const Label& label) {
  json.BeginObject().Text("text", label.text).Number("timeMs", label.timeMs);
  json.Number("verticalPosition", label.verticalPosition).Integer("alignment", label.alignment);
  json.Integer("flag", label.flag).Integer("colour", label.colour);
  json.BeginArray("labelBox");
  for (const std::int32_t word : label.labelBox) json.Integer("", word);
  json.EndArray().BeginObject("font").Text("face", label.font.faceName());
  json.Integer("height", label.font.height()).Integer("width", label.font.width());
  json.Integer("weight", label.font.weight()).Flag("italic", label.font.italic());
  json.Flag("underline", label.font.underline()).EndObject().EndObject();
}

void AppendTiers(JsonLine& json, const Tiers& tiers) {
  json.BeginArray("tiers");
  for (std::size_t i = 0; i < tiers.size(); ++i) {
    if (!tiers[i].inUse) continue;
    json.BeginObject().Integer("slot", i).Text("name", tiers[i].name);
    json.Integer("tierWord", tiers[i].tierWord).BeginArray("labels");
    for (const Label& label : tiers[i].labels) AppendLabel(json, label);
    json.EndArray().EndObject();
  }
  json.EndArray();
}

void AppendCarriedFields(JsonLine& json, const CChannel& channel) {
  json.BeginObject("channel").Text("channelName", channel.channelName);
  json.Text("channelComment", channel.channelComment);
  json.Integer("bitsPerSample", channel.bitsPerSample);
  json.Number("referenceLevel", channel.referenceLevel);
  json.Number("displayLow", channel.displayLow).Number("displayHigh", channel.displayHigh);
  json.BeginArray("channelValues");
  for (const double number : channel.channelValues) json.Number("", number);
  json.EndArray().Integer("channelTag", channel.channelTag);
  json.Integer("channelFlag", channel.channelFlag);
  json.Integer("channelWord1", channel.channelWord1).Integer("channelWord2", channel.channelWord2);
  json.Integer("channelWord3", channel.channelWord3).Integer("channelWord4", channel.channelWord4);
  json.Integer("channelWord5", channel.channelWord5).Integer("channelWord6", channel.channelWord6);
  json.Integer("channelWord7", channel.channelWord7).Integer("channelWord8", channel.channelWord8);
  json.EndObject();
}

std::string AsJson(const std::string& file, const CSonadexDoc& document, bool channelAsked) {
  const CChannel& channel = document.channel();
  JsonLine json;
  json.BeginObject().Text("file", file).Text("format", document.formatName);
  if (!document.codingName.empty()) json.Text("encoding", document.codingName);
  json.Integer("channels", document.fileChannels);
  if (document.extractedChannel && channelAsked) {
    json.Text("channelSuffixedName", document.channelSuffixedName);
  }
  json.Number("rateHz", channel.sampleRateHz).Number("lengthSamples", channel.totalLength);
  json.Number("durationMs", channel.totalDurationMs);
  json.Text("storage", document.samplesOnDisk() ? "disk" : "memory");
  json.Flag("foreignSource", document.foreignSource);
  AppendCarriedFields(json, channel);
  AppendTiers(json, channel.tiers);
  return json.EndObject().Take();
}

}  // namespace

bool WriteInfo(Session& session, bool namesFile, TextSink& sink) {
  const CSonadexDoc& document = session.document();
  const bool channelAsked = session.request().channel.has_value();
  if (session.request().json) {
    sink.Write(AsJson(session.file(), document, channelAsked));
  } else {
    sink.Write(AsLines(session.file(), document, channelAsked) + (namesFile ? "\n" : ""));
  }
  return true;
}

}  // namespace cantorix::batch
