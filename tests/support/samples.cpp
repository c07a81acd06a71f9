// samples.cpp - the path, as the build gives it.
#include "support/samples.h"

namespace cantorix {

std::string SamplesDirectory() { return CANTORIX_SAMPLES_DIR; }

}  // namespace cantorix
