// verb_config.cpp - the settings record, field by field and as its bytes.
#include <cstring>

#include "batch/json.h"
#include "batch/verbs.h"
#include "measure/printable.h"
#include "platform/text.h"
#include "settings/field_text.h"
#include "settings/record.h"
#include "settings/settings.h"

namespace cantorix::batch {
namespace {

std::string_view StorageName(Storage storage) {
  switch (storage) {
    case Storage::kDouble:
      return "double";
    case Storage::kText:
      return "text";
    default:
      return "int32";
  }
}

std::string AsRow(const Field& field, const Settings& settings) {
  std::string row(field.group);
  row.append(".").append(field.name).append("\t").append(std::to_string(field.offset));
  row.append("\t").append(StorageName(field.storage)).append("\t");
  row.append(Printable(ToUtf8(FieldText(settings, field)))).append("\t").append(field.unit);
  return row.append("\t").append(field.description).append("\n");
}

void AppendMember(JsonLine& json, const Field& field, const Settings& settings) {
  const std::string name = std::string(field.group) + "." + std::string(field.name);
  const ConstFieldValue value = field.place.of(settings);
  if (const auto* text = std::get_if<const std::string*>(&value)) {
    json.Text(name, **text);
  } else if (const auto* number = std::get_if<const double*>(&value)) {
    json.Number(name, **number);
  } else {
    json.Integer(name, *std::get<const std::int32_t*>(value));
  }
}

}  // namespace

void ShowConfig(const Settings& settings, bool json, TextSink& sink) {
  if (json) {
    JsonLine line;
    line.BeginObject();
    for (const Field& field : Fields()) AppendMember(line, field, settings);
    sink.Write(line.EndObject().Take());
    return;
  }
  sink.Write("field\toffset\ttype\tvalue\tunit\tmeaning\n");
  for (const Field& field : Fields()) sink.Write(AsRow(field, settings));
}

void WriteConfig(const Settings& settings, TextSink& sink) {
  const Record record = EncodeRecord(settings);
  std::string bytes(record.size(), '\0');
  std::memcpy(bytes.data(), record.data(), record.size());
  sink.Write(bytes);
}

}  // namespace cantorix::batch
