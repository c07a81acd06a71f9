// run_step.h - the steps of `edit`, each carried out by the command of the desktop.
#pragma once

#include <string>

#include "batch/batch_view.h"
#include "batch/request.h"

namespace cantorix::batch {

// Does one step. False, after a line that says why, when it could not be done.
bool RunStep(BatchView& batch, const EditStep& step);

// The tier for labels named `name`: the last one in use, else the first of that name, which comes
// into use, else the first that is not in use, which gets the name, too. -1 when all are in use.
int TierFor(CSonadexView& view, const std::string& name);

}  // namespace cantorix::batch
