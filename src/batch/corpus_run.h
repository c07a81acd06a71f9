// corpus_run.h - the verb corpus: every recording of a corpus measured at its labels, several at a
// time, into long tables in the order of the recordings.
#pragma once

#include "batch/outcome.h"
#include "batch/run.h"

namespace cantorix::batch {

// A recording that fails gets a row in failed.tsv, and the outcome is kFailed in the end. Throws
// WrongUsage, FileError, and Abandoned after an interrupt, which --resume goes on behind.
Outcome WorkOnCorpus(const Run& run);

}  // namespace cantorix::batch
