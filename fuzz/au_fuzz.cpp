// au_fuzz.cpp - files of SUN au.
#include "document/readers/readers.h"
#include "recording_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return cantorix::FuzzRecording(cantorix::ReadAu, {data, size});
}
