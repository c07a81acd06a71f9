// module.cpp - the module cantorix._engine, which the package around it gives its names and types.
#include "bindings.h"

namespace cantorix::python {
namespace {

void Bind(py::module_& module) {
  module.doc() = "The measuring engine; use the package cantorix around it.";
  BindErrors(module);
  BindSettings(module);
  BindCorpus(module);
  RecordingClass recording(module, "Recording");
  BindOpening(module, recording);
  BindLabels(recording);
  BindMeasurements(recording);
}

}  // namespace
}  // namespace cantorix::python

PYBIND11_MODULE(_engine, module) { cantorix::python::Bind(module); }
