// sphere_fuzz.cpp - files of NIST SPHERE.
#include "document/readers/readers.h"
#include "recording_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return cantorix::FuzzRecording(cantorix::ReadSphere, {data, size});
}
