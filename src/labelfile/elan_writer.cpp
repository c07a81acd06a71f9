// elan_writer.cpp - an ELAN document of tiers that are aligned by themselves.
#include <cmath>
#include <pugixml.hpp>
#include <sstream>

#include "labelfile/format_writers.h"

namespace cantorix {
namespace {

constexpr const char* kType = "default-lt";

void Set(pugi::xml_node& node, const char* name, const std::string& value) {
  node.append_attribute(name).set_value(value.c_str());
}

std::string Ms(double seconds) { return std::to_string(std::llround(seconds * 1000.0)); }

pugi::xml_node AppendRoot(pugi::xml_document& xml) {
  pugi::xml_node declaration = xml.append_child(pugi::node_declaration);
  Set(declaration, "version", "1.0");
  Set(declaration, "encoding", "UTF-8");
  pugi::xml_node root = xml.append_child("ANNOTATION_DOCUMENT");
  Set(root, "AUTHOR", "");
  // The same labels give the same bytes: no day of writing.
  Set(root, "DATE", "1970-01-01T00:00:00+00:00");
  Set(root, "FORMAT", "3.0");
  Set(root, "VERSION", "3.0");
  Set(root, "xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance");
  Set(root, "xsi:noNamespaceSchemaLocation", "http://www.mpi.nl/tools/elan/EAFv3.0.xsd");
  return root;
}

// A name as part of a URL.
std::string PercentEncoded(const std::string& name) {
  static constexpr const char* kDigits = "0123456789ABCDEF";
  std::string url;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                       c == '.' || c == '-' || c == '_' || c == '~';
    if (plain) {
      url += c;
    } else {
      url += '%';
      url += kDigits[byte >> 4U];
      url += kDigits[byte & 0xFU];
    }
  }
  return url;
}

void AppendHeader(pugi::xml_node& root, const std::string& recordingName) {
  pugi::xml_node header = root.append_child("HEADER");
  Set(header, "MEDIA_FILE", "");
  Set(header, "TIME_UNITS", "milliseconds");
  if (recordingName.empty()) return;
  pugi::xml_node medium = header.append_child("MEDIA_DESCRIPTOR");
  const std::string url = "./" + PercentEncoded(recordingName);
  Set(medium, "MEDIA_URL", url);
  Set(medium, "MIME_TYPE", "audio/x-wav");
  Set(medium, "RELATIVE_MEDIA_URL", url);
}

std::string AppendSlot(pugi::xml_node& order, std::size_t& count, double seconds) {
  std::string id = "ts" + std::to_string(++count);
  pugi::xml_node slot = order.append_child("TIME_SLOT");
  Set(slot, "TIME_SLOT_ID", id);
  Set(slot, "TIME_VALUE", Ms(seconds));
  return id;
}

void AppendAnnotation(pugi::xml_node& tier, std::size_t number, const std::string& startSlot,
                      const std::string& endSlot, const std::string& text) {
  pugi::xml_node annotation = tier.append_child("ANNOTATION").append_child("ALIGNABLE_ANNOTATION");
  Set(annotation, "ANNOTATION_ID", "a" + std::to_string(number));
  Set(annotation, "TIME_SLOT_REF1", startSlot);
  Set(annotation, "TIME_SLOT_REF2", endSlot);
  annotation.append_child("ANNOTATION_VALUE").text().set(text.c_str());
}

void AppendTiers(pugi::xml_node& root, const LabelFile& file) {
  pugi::xml_node order = root.append_child("TIME_ORDER");
  std::size_t slots = 0;
  std::size_t annotations = 0;
  for (const LabelFileTier& tier : file.tiers) {
    pugi::xml_node node = root.append_child("TIER");
    Set(node, "LINGUISTIC_TYPE_REF", kType);
    Set(node, "TIER_ID", tier.name);
    for (const TimedLabel& label : tier.labels) {
      const std::string start = AppendSlot(order, slots, label.startS);
      const std::string end = AppendSlot(order, slots, label.endS);
      AppendAnnotation(node, ++annotations, start, end, label.text);
    }
  }
  pugi::xml_node type = root.append_child("LINGUISTIC_TYPE");
  Set(type, "GRAPHIC_REFERENCES", "false");
  Set(type, "LINGUISTIC_TYPE_ID", kType);
  Set(type, "TIME_ALIGNABLE", "true");
}

}  // namespace

std::string WriteElan(const LabelFile& file) {
  pugi::xml_document xml;
  pugi::xml_node root = AppendRoot(xml);
  AppendHeader(root, file.recordingName);
  AppendTiers(root, file);
  std::ostringstream out;
  out.exceptions(std::ios::badbit);  // for want of memory it would end early and say nothing
  xml.save(out, "    ");
  return out.str();
}

}  // namespace cantorix
