// quiet_error_output.h - keeps what a library writes to standard error to itself for as long as it
// works: a decoder that libsndfile hides tells its troubles there and offers no switch for it. What
// is wrong with a file is said by its reader. For the whole process: what another thread writes to
// standard error in the meantime is lost, too. The first one that begins makes it quiet, the last
// one that ends gives it back, whichever they are.
#pragma once

namespace cantorix {

class QuietErrorOutput {
 public:
  // Without a descriptor to spare everything stays as it is.
  QuietErrorOutput();
  ~QuietErrorOutput();
  QuietErrorOutput(const QuietErrorOutput&) = delete;
  QuietErrorOutput& operator=(const QuietErrorOutput&) = delete;
};

}  // namespace cantorix
