// verb_edit.cpp - the verbs that change a recording with the commands of the desktop and save it.
#include <algorithm>

#include "batch/run_step.h"
#include "batch/verbs.h"

namespace cantorix::batch {

bool Edit(Session& session) {
  BatchView batch(session);
  const auto& steps = session.request().steps;
  return std::all_of(steps.begin(), steps.end(),
                     [&](const EditStep& step) { return RunStep(batch, step); }) &&
         Convert(session);
}

}  // namespace cantorix::batch
