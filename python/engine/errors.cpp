// errors.cpp - what the engine throws as exceptions of Python, in the program's words.
#include <exception>
#include <utility>

#include "arguments.h"
#include "bindings.h"
#include "measure/no_result.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix::python {
namespace {

void SetError(PyObject* kind, const std::string& text) {
  // A path in it may hold any bytes.
  const auto decoded = py::reinterpret_steal<py::object>(
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape"));
  if (decoded) PyErr_SetObject(kind, decoded.ptr());
}

void Translate(std::exception_ptr thrown) {
  try {
    if (thrown) std::rethrow_exception(std::move(thrown));
  } catch (const WrongUsage& refusal) {
    SetError(PyExc_ValueError, InPython(refusal.what()));
  } catch (const FileError& error) {
    SetError(PyExc_OSError, error.what());
  } catch (const Abandoned&) {
    SetError(PyExc_RuntimeError, "abandoned");
  }
}

}  // namespace

void BindErrors(py::module_& module) {
  py::register_exception<NoResult>(module, "MeasureError", PyExc_RuntimeError);
  py::register_exception_translator(Translate);
}

}  // namespace cantorix::python
