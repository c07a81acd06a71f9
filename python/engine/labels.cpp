// labels.cpp - tiers and their labels, looked at and changed, and label files of other programs.
#include "measure/labels.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "arguments.h"
#include "bindings.h"
#include "document/label.h"
#include "document/tier.h"
#include "labelfile/label_formats.h"
#include "platform/bytes.h"
#include "platform/file_error.h"
#include "platform/safe_file.h"
#include "platform/text.h"

namespace cantorix::python {
namespace {

constexpr std::size_t kMaxTierNameBytes = 255;
// A native file with a label of a larger font gives it up.
constexpr std::int32_t kMostFontHeight = 100;
constexpr std::int32_t kMostFontWidth = 3000;

py::dict DictOf(const Label& label) {
  py::dict fields;
  fields["time_ms"] = label.timeMs;
  fields["text"] = ToUtf8(label.text);
  fields["alignment"] = label.alignment;
  fields["vertical_position"] = label.verticalPosition;
  fields["flag"] = label.flag;
  fields["colour"] = label.colour;
  fields["reserved_word"] = label.reservedWord;
  fields["label_box"] = py::tuple(py::cast(label.labelBox));
  fields["font"] = py::bytes(std::string_view(
      reinterpret_cast<const char*>(label.font.bytes.data()), FontDescription::kBytes));
  return fields;
}

[[noreturn]] void Refuse(const char* name, const std::string& wanted) {
  throw WrongUsage(std::string(name) + " must be " + wanted);
}

double NumberIn(const py::dict& fields, const char* name, double most) {
  const double number = NumberOf(name, fields[name]);
  if (number >= 0.0 && number <= most) return number;
  const std::string top = py::str(py::float_(most));
  Refuse(name, "0 to " + top + ", not " + std::string(py::str(fields[name])));
}

std::string TextOf(const char* name, const py::object& value, std::size_t mostBytes) {
  std::string text = py::isinstance<py::str>(value) ? value.cast<std::string>() : "";
  const bool holds = !text.empty() && text.find('\0') == std::string::npos;
  if (holds && text.size() <= mostBytes) return text;
  Refuse(name, "a text of 1 to " + std::to_string(mostBytes) + " bytes in UTF-8");
}

// Throws py::cast_error for a field of another type, which the package has looked at before.
Label LabelOf(const py::dict& fields, double durationMs) {
  Label label;
  label.timeMs = NumberIn(fields, "time_ms", durationMs);
  label.text = TextOf("text", fields["text"], kMaxLabelBytes);
  label.alignment = fields["alignment"].cast<std::int32_t>();
  label.verticalPosition = NumberIn(fields, "vertical_position", 1.0);
  label.flag = fields["flag"].cast<std::int8_t>();
  label.colour = fields["colour"].cast<std::uint32_t>();
  label.reservedWord = fields["reserved_word"].cast<std::uint32_t>();
  label.labelBox = fields["label_box"].cast<std::array<std::int32_t, 4>>();
  const auto font = fields["font"].cast<std::string>();
  if (font.empty()) return label;
  if (font.size() != FontDescription::kBytes) Refuse("font", "60 bytes, or none");
  std::copy_n(reinterpret_cast<const std::byte*>(font.data()), font.size(),
              label.font.bytes.begin());
  if (label.font.height() > kMostFontHeight || label.font.width() > kMostFontWidth) {
    Refuse("font", "of a height up to 100 and a width up to 3000");
  }
  return label;
}

Tier& TierAt(CSonadexDoc& document, std::size_t slot) { return document.channel().tiers.at(slot); }

py::list Labels(Recording& self, std::size_t slot) {
  std::vector<Label> labels;
  self.Work([&](CSonadexDoc& document) { labels = TierAt(document, slot).labels; });
  py::list all;
  for (const Label& label : labels) all.append(DictOf(label));
  return all;
}

// The labels become those of `given`, in its order; none changes when one is refused.
void SetLabels(Recording& self, std::size_t slot, const py::list& given) {
  std::vector<Label> labels;
  const double durationMs = self.document().channel().totalDurationMs;
  for (const auto& fields : given) labels.push_back(LabelOf(fields.cast<py::dict>(), durationMs));
  self.Work([&](CSonadexDoc& document) { TierAt(document, slot).labels = std::move(labels); });
}

std::vector<std::pair<int, std::string>> TiersInUse(Recording& self) {
  std::vector<std::pair<int, std::string>> found;
  self.Work([&](CSonadexDoc& document) {
    for (int slot = 0; slot < kTierCount; ++slot) {
      const Tier& tier = TierAt(document, static_cast<std::size_t>(slot));
      if (tier.inUse) found.emplace_back(slot, ToUtf8(tier.name));
    }
  });
  return found;
}

int AddTier(Recording& self, const py::object& given) {
  const std::string name = TextOf("name", given, kMaxTierNameBytes);
  int slot = -1;
  self.Work([&](CSonadexDoc& document) { slot = TierFor(document.channel().tiers, name); });
  if (slot < 0) throw WrongUsage("all tiers are in use");
  return slot;
}

void DropTier(Recording& self, std::size_t slot) {
  self.Work([&](CSonadexDoc& document) {
    TierAt(document, slot).inUse = false;
    TierAt(document, slot).labels.clear();
  });
}

std::string FormatCalled(const std::string& key) {
  if (key.empty() || LabelFormatOf(key) != nullptr) return key;
  std::string keys;
  for (const LabelFormat& format : LabelFormats()) {
    keys += (keys.empty() ? "" : ", ") + std::string(format.key);
  }
  throw WrongUsage("format must be one of " + keys + ", not " + key);
}

void ImportLabels(Recording& self, const std::string& path, const std::string& format,
                  const std::string& tier, bool emptyIntervals) {
  FormatCalled(format);
  LabelChoice choice;
  choice.tier = tier;
  choice.emptyIntervals = emptyIntervals;
  self.Work([&](CSonadexDoc& document) {
    const auto losses = AddLabelsOf(path, format, choice, document);
    if (!losses.empty()) self.Say(path + ": " + InOneLine(losses));
  });
}

void ExportLabels(Recording& self, const std::string& path, const std::string& format,
                  const std::string& tier, bool asIntervals) {
  const LabelFormat* const wanted = LabelFormatOf(FormatCalled(format));
  if (wanted == nullptr) Refuse("format", "given");
  self.Work([&](CSonadexDoc& document) {
    const FittedLabels fitted = LabelsFor(*wanted, document, tier, asIntervals);
    if (fitted.file.tiers.empty()) throw WrongUsage("tier must be one in use");
    if (!fitted.losses.empty()) self.Say(InOneLine(fitted.losses));
    const std::string text = wanted->write(fitted.file);
    try {
      ReplaceFile(path, std::as_bytes(std::span(text)));
    } catch (const FileError& error) {
      throw FileError(CouldNotBeSaved(path, error.what()));
    }
  });
}

}  // namespace

void BindLabels(RecordingClass& recording) {
  recording.def("tiers", TiersInUse)
      .def("add_tier", AddTier)
      .def("drop_tier", DropTier)
      .def("labels", Labels)
      .def("set_labels", SetLabels)
      .def("import_labels", ImportLabels)
      .def("export_labels", ExportLabels);
}

}  // namespace cantorix::python
