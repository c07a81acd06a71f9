// arguments.h - keyword arguments of a measurement turned into options and settings, refused by
// name before any work, and the program's words turned into those of Python.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host.h"
#include "recording.h"

namespace cantorix::python {

// "pitch", "intensity", "spectrum", "spectrogram", "formants": the names in `given` are those of
// the command line, a value of None counts as absent. Throws WrongUsage.
Job JobFor(std::string_view measurement, const py::dict& given, const Settings& settings,
           const py::object& progress);

// A number, or an error that names the argument.
double NumberOf(const char* name, py::handle value);

// The names of options and fields of the settings as arguments: "--from" becomes "from_ms".
std::string InPython(std::string text);

}  // namespace cantorix::python
