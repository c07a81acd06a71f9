// sound_input.h - the sound input that the user has chosen. The settings keep its place in the list
// of inputs; that list differs from one day to the next, so the user's profile keeps its name.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cantorix {

class ProfileStore;

struct SoundInput {
  std::int32_t index = 0;  // 0: the system's own; from 1 on, among those there are
  std::string name;        // "" for the system's own
  std::string gone;        // what was chosen, when it is not there and the system's own is used
};

// The chosen input among those there are now. A name that is kept decides, not the place that
// belongs to it.
SoundInput FindSoundInput(const ProfileStore& profile, std::int32_t storedIndex,
                          const std::vector<std::string>& names);
// False when the name could not be kept.
bool KeepSoundInput(ProfileStore& profile, const std::string& name);

}  // namespace cantorix
