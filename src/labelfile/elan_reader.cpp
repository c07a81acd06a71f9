// elan_reader.cpp - ELAN's XML as labels. Entities beyond the five of XML are not expanded, a
// document type is passed over.
#include <algorithm>
#include <pugixml.hpp>

#include "labelfile/elan_document.h"
#include "labelfile/format_readers.h"
#include "labelfile/lines.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

using SlotIndices = std::unordered_map<std::string, std::size_t>;

constexpr double kMsPerSecond = 1000.0;

std::size_t CountOfText(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos;
       at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

// Refuses what would become a tree far larger than its text: elements upon elements without a
// label.
void RequireModestTree(std::string_view text) {
  constexpr std::size_t kElement = 64, kAttribute = 40, kAllowed = 32U << 20U, kPerLabel = 700;
  const auto count = [&](char c) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), c));
  };
  const std::size_t tree = 2 * kElement * count('<') + kAttribute * count('=');
  const std::size_t labels = CountOfText(text, "<ANNOTATION_VALUE");
  if (tree > kAllowed + text.size() + text.size() / 2 + kPerLabel * labels) {
    throw LabelFileError("it holds more elements than labels account for");
  }
}

std::string TextIn(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node& child : node.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
      text += child.value();
  }
  return text;
}

SlotIndices ReadSlots(const pugi::xml_node& root, ElanDocument& document) {
  SlotIndices indices;
  for (const pugi::xml_node& slot : root.child("TIME_ORDER").children("TIME_SLOT")) {
    indices.emplace(slot.attribute("TIME_SLOT_ID").value(), document.slots.size());
    document.slots.push_back(ParseNumber(slot.attribute("TIME_VALUE").value()));
  }
  return indices;
}

std::size_t SlotOf(const pugi::xml_node& node, const char* attribute, const SlotIndices& indices) {
  const auto found = indices.find(node.attribute(attribute).value());
  return found == indices.end() ? ElanAnnotation::kNone : found->second;
}

ElanAnnotation AnnotationIn(const pugi::xml_node& node, const SlotIndices& indices) {
  ElanAnnotation annotation;
  annotation.id = node.attribute("ANNOTATION_ID").value();
  annotation.text = TextIn(node.child("ANNOTATION_VALUE"));
  annotation.startSlot = SlotOf(node, "TIME_SLOT_REF1", indices);
  annotation.endSlot = SlotOf(node, "TIME_SLOT_REF2", indices);
  // One on slots that do not exist refers to nothing.
  annotation.refers =
      annotation.startSlot == ElanAnnotation::kNone || annotation.endSlot == ElanAnnotation::kNone;
  annotation.parentId = node.attribute("ANNOTATION_REF").value();
  annotation.previousId = node.attribute("PREVIOUS_ANNOTATION").value();
  return annotation;
}

void ReadTiers(const pugi::xml_node& root, const SlotIndices& indices, ElanDocument& document) {
  for (const pugi::xml_node& tier : root.children("TIER")) {
    for (const pugi::xml_node& holder : tier.children("ANNOTATION")) {
      ElanAnnotation annotation = AnnotationIn(holder.first_child(), indices);
      annotation.tier = document.tierNames.size();
      document.annotations.push_back(std::move(annotation));
    }
    document.tierNames.emplace_back(tier.attribute("TIER_ID").value());
  }
}

double UnitMs(const pugi::xml_node& header) {
  const std::string_view unit = header.attribute("TIME_UNITS").value();
  if (unit == "PAL-frames") return 40.0;
  if (unit == "NTSC-frames") return 1001.0 / 30.0;
  if (unit == "milliseconds" || unit.empty()) return 1.0;
  throw LabelFileError("the time unit " + Quoted(unit) + " is not known");
}

std::string StemOf(std::string_view url) {
  url = url.substr(url.find_last_of("/\\") + 1);
  return std::string(url.substr(0, url.rfind('.')));
}

// Where the recording is when the document is at its start: what stands with the medium of the
// recording's name, else with the first one.
double OriginMs(const pugi::xml_node& header, const std::string& stem) {
  pugi::xml_node chosen = header.child("MEDIA_DESCRIPTOR");
  for (const pugi::xml_node& medium : header.children("MEDIA_DESCRIPTOR")) {
    if (stem.empty() || StemOf(medium.attribute("MEDIA_URL").value()) != stem) continue;
    chosen = medium;
    break;
  }
  return ParseNumber(chosen.attribute("TIME_ORIGIN").value()).value_or(0.0);
}

LabelFile LabelsOf(ElanDocument& document, double unitMs, double originMs) {
  LabelFile file;
  for (const std::string& name : document.tierNames) file.tiers.push_back({name, true, {}});
  std::vector<std::size_t> timeless(file.tiers.size(), 0);
  const auto spans = SpansOf(document);
  for (std::size_t i = 0; i < spans.size(); ++i) {
    ElanAnnotation& annotation = document.annotations[i];
    if (!spans[i]) {
      ++timeless[annotation.tier];
      continue;
    }
    const auto seconds = [&](double time) { return (time * unitMs + originMs) / kMsPerSecond; };
    file.tiers[annotation.tier].labels.push_back(
        {seconds(spans[i]->start), seconds(spans[i]->end), std::move(annotation.text)});
  }
  for (std::size_t i = 0; i < timeless.size(); ++i) {
    if (timeless[i] == 0) continue;
    file.notes.push_back("Tier " + Quoted(file.tiers[i].name) + ": " +
                         CountOf(timeless[i], "annotation") + " without a time left out.");
  }
  return file;
}

}  // namespace

LabelFile ReadElan(std::string_view text, const LabelReading& how) {
  RequireModestTree(text);
  pugi::xml_document xml;
  const auto result =
      xml.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata_single,
                      pugi::encoding_utf8);
  if (!result) {
    const auto at = static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0));
    const auto line = 1 + std::count(text.begin(), text.begin() + std::min(at, text.size()), '\n');
    RefuseLine(static_cast<std::size_t>(line), std::string("no XML: ") + result.description());
  }
  const pugi::xml_node root = xml.child("ANNOTATION_DOCUMENT");
  if (!root) throw LabelFileError("the file holds no ANNOTATION_DOCUMENT");
  const pugi::xml_node header = root.child("HEADER");
  ElanDocument document;
  const SlotIndices indices = ReadSlots(root, document);
  ReadTiers(root, indices, document);
  return LabelsOf(document, UnitMs(header), OriginMs(header, how.recordingStem));
}

}  // namespace cantorix
