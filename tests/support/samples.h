// samples.h - where the recordings lie that the tests open. The path is known to one source only,
// so that no other is compiled anew for each place of the tree.
#pragma once

#include <string>

namespace cantorix {

// The folder "samples" of the tree, without a separator at its end.
std::string SamplesDirectory();

}  // namespace cantorix
