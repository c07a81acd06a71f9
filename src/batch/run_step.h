// run_step.h - the steps of `edit`, each carried out by the command of the desktop.
#pragma once

#include "batch/batch_view.h"
#include "batch/request.h"

namespace cantorix::batch {

// Does one step. False, after a line that says why, when it could not be done.
bool RunStep(BatchView& batch, const EditStep& step);

}  // namespace cantorix::batch
