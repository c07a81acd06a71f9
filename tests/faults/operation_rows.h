// operation_rows.h - what the tables of operations share.
#pragma once

#include <fstream>
#include <iterator>

#include "faults/operations.h"

namespace cantorix::faults {

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteText(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

void AddDocumentOperations(std::vector<Operation>& operations);
void AddApplicationOperations(std::vector<Operation>& operations);
void AddBatchOperations(std::vector<Operation>& operations);

}  // namespace cantorix::faults
