// formant_cells.cpp - "-" where there is none, 0 where the column is silent.
#include "batch/formant_cells.h"

namespace cantorix::batch {

void WriteFormantCells(const FormantColumn& formants, TableRows& rows) {
  for (const std::uint16_t hz : formants) {
    if (hz == kNoFormantHz) {
      rows.Cell("-");
    } else {
      rows.Cell(static_cast<double>(hz));
    }
  }
}

}  // namespace cantorix::batch
