// sound_input_test.cpp - the chosen sound input found again among other ones.
#include "app/sound_input.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

namespace cantorix {
namespace {

TEST(SoundInput, TheNameDecidesAndWhatIsGoneIsTheSystemsOwn) {
  struct Row {
    const char* name;
    std::int32_t stored;
    const char* kept;  // in the profile; null: nothing
    std::vector<std::string> there;
    SoundInput found;
  };
  const Row rows[] = {
      {"the system's own", 0, "Line", {"Microphone", "Line"}, {0, "", ""}},
      {"less than none", -1, "Line", {"Microphone", "Line"}, {0, "", ""}},
      {"at its place", 2, "Line", {"Microphone", "Line"}, {2, "Line", ""}},
      {"moved", 2, "Line", {"Line", "Microphone"}, {1, "Line", ""}},
      {"gone, with another one in its place", 1, "Line", {"Microphone"}, {0, "", "Line"}},
      {"none left", 1, "Line", {}, {0, "", "Line"}},
      {"a file without a name", 2, nullptr, {"Microphone", "Line"}, {2, "Line", ""}},
      {"a name that was never chosen", 1, "", {"Microphone"}, {1, "Microphone", ""}},
      {"a file from elsewhere", 3, nullptr, {"Microphone", "Line"}, {0, "", "input 3"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    FakeProfileStore profile;
    if (row.kept != nullptr) {
      EXPECT_TRUE(KeepSoundInput(profile, row.kept));
    }
    const SoundInput found = FindSoundInput(profile, row.stored, row.there);
    EXPECT_EQ(found.index, row.found.index);
    EXPECT_EQ(found.name, row.found.name);
    EXPECT_EQ(found.gone, row.found.gone);
  }
  FakeProfileStore refusing;
  refusing.refusesWrites = true;
  EXPECT_FALSE(KeepSoundInput(refusing, "Line"));
}

}  // namespace
}  // namespace cantorix
