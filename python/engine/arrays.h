// arrays.h - vectors of the engine handed over to numpy without a copy.
#pragma once

#include <pybind11/numpy.h>

#include <memory>
#include <utility>
#include <vector>

namespace cantorix::python {

namespace py = pybind11;

// Of one or of two dimensions; `values` holds the product of them.
inline py::array_t<double> ArrayOf(std::vector<double> values,
                                   std::vector<py::ssize_t> shape = {}) {
  if (shape.empty()) shape.push_back(static_cast<py::ssize_t>(values.size()));
  auto held = std::make_unique<std::vector<double>>(std::move(values));
  const py::capsule owner(held.get(),
                          [](void* vector) { delete static_cast<std::vector<double>*>(vector); });
  const double* const data = held.release()->data();
  return py::array_t<double>(std::move(shape), data, owner);
}

}  // namespace cantorix::python
