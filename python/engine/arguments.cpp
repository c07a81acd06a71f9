// arguments.cpp - the tables of parameters asked for each keyword, and the few that are none.
#include "arguments.h"

#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <span>

#include "measure/option_limits.h"
#include "measure/parameters.h"

namespace cantorix::python {
namespace {

std::string Shown(py::handle value) { return py::str(py::repr(value)); }

[[noreturn]] void Refuse(std::string_view name, const std::string& wanted, py::handle value) {
  throw WrongUsage(std::string(name) + " must be " + wanted + ", not " + Shown(value));
}

bool IsText(py::handle value) { return PyUnicode_Check(value.ptr()) != 0; }
bool IsBool(py::handle value) { return PyBool_Check(value.ptr()) != 0; }

// Numbers of Python and of numpy alike. A whole number stays one.
std::string NumberText(const char* name, py::handle value) {
  if (!IsBool(value) && PyIndex_Check(value.ptr()) != 0) {
    const auto whole = py::reinterpret_steal<py::object>(PyNumber_Index(value.ptr()));
    if (!whole) throw py::error_already_set();
    return py::str(whole);
  }
  return py::str(py::float_(NumberOf(name, value)));
}

std::int64_t WholeOf(const char* name, std::int64_t least, std::int64_t most, py::handle value) {
  const std::string wanted =
      "a whole number, " + std::to_string(least) + " to " + std::to_string(most);
  if (IsBool(value) || PyIndex_Check(value.ptr()) == 0) Refuse(name, wanted, value);
  const Py_ssize_t whole = PyNumber_AsSsize_t(value.ptr(), nullptr);
  if (PyErr_Occurred() != nullptr) throw py::error_already_set();
  if (whole < least || whole > most) Refuse(name, wanted, value);
  return whole;
}

bool SwitchOf(const char* name, py::handle value) {
  if (!IsBool(value)) Refuse(name, "True or False", value);
  return value.ptr() == Py_True;
}

std::string MethodText(const Parameter& parameter, py::handle value) {
  const std::string method = IsText(value) ? value.cast<std::string>() : "";
  if (method == "cepstral") return "0";
  if (method == "autocorrelation") return "1";
  Refuse(parameter.name, "'cepstral' or 'autocorrelation'", value);
}

// By its rule; the limits of the dialogs are judged with the whole group.
std::string RuledNumber(const Parameter& parameter, py::handle value) {
  std::string text = NumberText(parameter.name, value);
  const double number = NumberOf(parameter.name, value);
  switch (parameter.rule) {
    case ParameterRule::kPositive:
      if (!(number > 0.0)) Refuse(parameter.name, "above 0", value);
      break;
    case ParameterRule::kNotNegative:
      if (!(number >= 0.0)) Refuse(parameter.name, "0 or more", value);
      break;
    case ParameterRule::kFftSize: {
      const bool size =
          number >= 32.0 && number <= 8192.0 && std::exp2(std::rint(std::log2(number))) == number;
      if (!size) Refuse(parameter.name, "a power of two, 32 to 8192", value);
      break;
    }
    case ParameterRule::kTrackingOrder:
      if (!(number >= 1.0 && number <= 400.0)) {
        Refuse(parameter.name, "'auto' or a whole number, 1 to 400", value);
      }
      break;
    default:
      break;
  }
  return text;
}

void Take(const Parameter& parameter, py::handle value, MeasureOptions& options) {
  const bool isOrder =
      parameter.rule == ParameterRule::kLpcOrder || parameter.rule == ParameterRule::kTrackingOrder;
  if (isOrder && IsText(value)) {
    if (value.cast<std::string>() != kAutomaticOrder) {
      Refuse(parameter.name, "'auto' or a whole number", value);
    }
    options.usualLpcOrder = true;
    return;
  }
  std::string text;
  if (parameter.rule == ParameterRule::kPitchMethod) {
    text = MethodText(parameter, value);
  } else if (parameter.rule == ParameterRule::kSwitch) {
    text = SwitchOf(parameter.name, value) ? "1" : "0";
  } else {
    text = RuledNumber(parameter, value);
  }
  options.assignments.push_back({parameter.field, text});
}

using Setter = std::function<void(const char* name, py::handle value, MeasureOptions& options)>;
using Setters = std::map<std::string, Setter, std::less<>>;

// The arguments that set no field of the settings.
struct Measurement {
  std::span<const Parameter> (*parameters)();
  Setters others;
};

Setter Time(std::optional<double> MeasureOptions::*member) {
  return [member](const char* name, py::handle value, MeasureOptions& options) {
    options.*member = NumberOf(name, value);
  };
}

Setter Switch(bool MeasureOptions::*member) {
  return [member](const char* name, py::handle value, MeasureOptions& options) {
    options.*member = SwitchOf(name, value);
  };
}

template <typename Number>
Setter Whole(Number MeasureOptions::*member, std::int64_t most) {
  return [member, most](const char* name, py::handle value, MeasureOptions& options) {
    options.*member = static_cast<Number>(WholeOf(name, 1, most, value));
  };
}

void SetColumnStep(const char* name, py::handle value, MeasureOptions& options) {
  options.columnStepMs = NumberOf(name, value);
  if (!(*options.columnStepMs > 0.0)) Refuse(name, "above 0", value);
}

Measurement MeasurementCalled(std::string_view name) {
  Measurement found{PitchParameters, {}};
  Setters& others = found.others;
  others["from_ms"] = Time(&MeasureOptions::fromMs);
  others["to_ms"] = Time(&MeasureOptions::toMs);
  if (name == "intensity") {
    found.parameters = IntensityParameters;
    others["samples"] = Switch(&MeasureOptions::perSample);
  } else if (name == "spectrum") {
    found.parameters = SpectrumParameters;
    others["at"] = Time(&MeasureOptions::atMs);
    others["display"] = Whole(&MeasureOptions::displayPoints, kMostDisplayPoints);
  } else if (name != "pitch") {
    found.parameters = SpectrogramParameters;
    others["rows"] = Whole(&MeasureOptions::rows, kMostRows);
    others["columns"] = Whole(&MeasureOptions::columns, kMostColumns);
    if (name == "formants") others["step"] = SetColumnStep;
    if (name == "spectrogram") others["formants"] = Switch(&MeasureOptions::formantColumns);
  }
  return found;
}

void TakeArgument(const Measurement& measurement, const std::string& name, py::handle value,
                  MeasureOptions& options) {
  if (value.is_none()) return;
  for (const Parameter& parameter : measurement.parameters()) {
    if (parameter.name == name) return Take(parameter, value, options);
  }
  const auto other = measurement.others.find(name);
  if (other == measurement.others.end()) throw WrongUsage("there is no argument " + name);
  other->second(name.c_str(), value, options);
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
}

}  // namespace

double NumberOf(const char* name, py::handle value) {
  if (!IsBool(value) && !IsText(value)) {
    const double number = PyFloat_AsDouble(value.ptr());
    if (PyErr_Occurred() == nullptr) return number;
    PyErr_Clear();
  }
  Refuse(name, "a number", value);
}

Job JobFor(std::string_view measurement, const py::dict& given, const Settings& settings,
           const py::object& progress) {
  if (!progress.is_none() && PyCallable_Check(progress.ptr()) == 0) {
    Refuse("progress", "callable", progress);
  }
  Job job;
  const Measurement how = MeasurementCalled(measurement);
  for (const auto& [name, value] : given) {
    TakeArgument(how, py::str(name), value, job.options);
  }
  job.settings = settings;
  ApplyAssignments(job.options, *job.settings);
  job.progress = &progress;
  return job;
}

std::string InPython(std::string text) {
  for (const auto& parameters :
       {PitchParameters(), IntensityParameters(), SpectrumParameters(), SpectrogramParameters()}) {
    for (const Parameter& parameter : parameters) ReplaceAll(text, parameter.field, parameter.name);
  }
  ReplaceAll(text, "--from", "from_ms");
  ReplaceAll(text, "--to ", "to_ms ");
  ReplaceAll(text, "--", "");
  return text;
}

}  // namespace cantorix::python
