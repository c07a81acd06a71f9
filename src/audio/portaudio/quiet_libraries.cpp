// quiet_libraries.cpp - error handlers that say nothing.
#include "audio/portaudio/quiet_libraries.h"

#include <alsa/asoundlib.h>
#include <dlfcn.h>

namespace cantorix {
namespace {

// NOLINTNEXTLINE(cert-dcl50-cpp): the library calls it with its own arguments.
void IgnoreAlsa(const char*, int, const char*, int, const char*, ...) {}
void IgnoreJack(const char*) {}

// PortAudio brings the library along where there is one; nothing here links to it.
void SilenceJack(const char* setter) {
  using SetHandler = void (*)(void (*)(const char*));
  if (void* const found = ::dlsym(RTLD_DEFAULT, setter)) {
    reinterpret_cast<SetHandler>(found)(IgnoreJack);
  }
}

}  // namespace

void SilenceSoundLibraries() {
  ::snd_lib_error_set_handler(IgnoreAlsa);
  SilenceJack("jack_set_error_function");
  SilenceJack("jack_set_info_function");
}

}  // namespace cantorix
