// settings.cpp - the settings record: its fields by name, its file.
#include "settings/settings.h"

#include <variant>

#include "bindings.h"
#include "platform/file_error.h"
#include "settings/config_file.h"
#include "settings/field_table.h"
#include "settings/field_text.h"

namespace cantorix::python {
namespace {

const Field& FieldCalled(const std::string& name) {
  const Field* const field = FindField(name);
  if (field == nullptr) throw py::key_error("There is no setting \"" + name + "\".");
  return *field;
}

py::object ValueOf(const Settings& settings, const std::string& name) {
  return std::visit([](const auto* value) -> py::object { return py::cast(*value); },
                    FieldCalled(name).place.of(settings));
}

// Through its text, which has the shortest digits that read back as the same number.
void SetValue(Settings& settings, const std::string& name, const py::object& value) {
  FieldCalled(name);
  const bool isBool = PyBool_Check(value.ptr()) != 0;
  const std::string text = py::str(isBool ? py::object(py::int_(value)) : value);
  if (const auto refusal = SetFieldFromText(settings, name, text)) throw WrongUsage(*refusal);
}

Settings Loaded(const std::string& path) {
  Settings settings;
  if (!DecodeRecord(ReadConfiguration(path), settings)) {
    throw FileError(path + ": Error in reading the configuration file.");
  }
  return settings;
}

void Save(const Settings& settings, const std::string& path) {
  if (!WriteConfiguration(path, settings)) {
    throw FileError(path + ": Error in writing the configuration file.");
  }
}

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const Field& field : Fields()) {
    names.push_back(std::string(field.group) + "." + std::string(field.name));
  }
  return names;
}

py::tuple Describe(const std::string& name) {
  const Field& field = FieldCalled(name);
  return py::make_tuple(field.unit, field.description);
}

}  // namespace

void BindSettings(py::module_& module) {
  py::class_<Settings>(module, "Settings")
      .def(py::init<>())
      .def(py::init<const Settings&>())
      .def("get", ValueOf)
      .def("set", SetValue)
      .def("save", Save)
      .def_static("load", Loaded)
      .def_static("names", Names)
      .def_static("describe", Describe);
}

}  // namespace cantorix::python
