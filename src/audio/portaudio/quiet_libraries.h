// quiet_libraries.h - keeps the sound libraries from writing to standard error: a search for
// devices alone makes them write a hundred lines about cards that are not there.
#pragma once

namespace cantorix {

// Before the first use of PortAudio.
void SilenceSoundLibraries();

}  // namespace cantorix
