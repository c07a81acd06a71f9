// samples.cpp
#include "support/samples.h"

namespace cantorix {

std::string SamplesDirectory() { return CANTORIX_SAMPLES_DIR; }

}  // namespace cantorix
