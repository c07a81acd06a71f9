// formant_cells.h - the formants of one column as cells of a row.
#pragma once

#include "analysis/spectrogram.h"
#include "batch/table.h"

namespace cantorix::batch {

// Five cells in Hz: 0 in a silent column, "-" where there is no such formant.
void WriteFormantCells(const FormantColumn& formants, TableRows& rows);

}  // namespace cantorix::batch
