// sound_input.cpp - a name first, a place where there is none.
#include "app/sound_input.h"

#include <algorithm>

#include "platform/file_error.h"
#include "platform/services.h"

namespace cantorix {
namespace {

constexpr const char* kSoundSection = "Sound";
constexpr const char* kInputEntry = "Input";

// A profile that cannot be read now names none.
std::string NameIn(const ProfileStore& profile) {
  try {
    return profile.ReadText(kSoundSection, kInputEntry).value_or("");
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace

SoundInput FindSoundInput(const ProfileStore& profile, std::int32_t storedIndex,
                          const std::vector<std::string>& names) {
  if (storedIndex <= 0) return {};
  const auto count = static_cast<std::int32_t>(names.size());
  const std::string name = NameIn(profile);
  if (name.empty()) {
    if (storedIndex > count) return {0, "", "input " + std::to_string(storedIndex)};
    return {storedIndex, names[static_cast<std::size_t>(storedIndex) - 1], ""};
  }
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return {0, "", name};
  return {static_cast<std::int32_t>(found - names.begin()) + 1, name, ""};
}

bool KeepSoundInput(ProfileStore& profile, const std::string& name) {
  return profile.WriteText(kSoundSection, kInputEntry, name);
}

}  // namespace cantorix
