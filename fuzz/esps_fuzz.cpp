// esps_fuzz.cpp - files of ESPS and xwaves.
#include "document/readers/readers.h"
#include "recording_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return cantorix::FuzzRecording(cantorix::ReadEsps, {data, size});
}
