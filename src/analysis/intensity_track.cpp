// intensity_track.cpp
#include "analysis/intensity_track.h"

namespace cantorix {}
