// bindings.h - the parts of the module, each a file of its own.
#pragma once

#include <memory>

#include "host.h"
#include "recording.h"

namespace cantorix::python {

using RecordingClass = py::class_<Recording, std::shared_ptr<Recording>>;

void BindErrors(py::module_& module);
void BindSettings(py::module_& module);
void BindOpening(py::module_& module, RecordingClass& recording);
void BindCorpus(py::module_& module);
void BindLabels(RecordingClass& recording);
void BindMeasurements(RecordingClass& recording);

}  // namespace cantorix::python
