// host_services_test.cpp - the profile on a real disk, the memory of the real machine.
#include "platform/host_services.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/ini_profile_store.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

std::string FileText(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

TEST(IniProfileStore, KeepsAnyTextForTheNextRun) {
  const TemporaryFolder folder;
  const std::string path = folder / "new/folders/profile.ini";
  const std::string texts[] = {"/home/me/voices",
                               "",
                               " blank ends ",
                               "a=b;c#d[e]f",
                               "two\nlines\r\n",
                               "C:\\x41\\",
                               std::string("nul\0inside", 10),
                               "\xE9t\xE9 \xC3\xA9",
                               "\\x4"};
  EXPECT_EQ(IniProfileStore(path).ReadText("S", "e"), std::nullopt);
  for (const std::string& text : texts) {
    const std::string section = "[" + text, entry = text + "=";
    ASSERT_TRUE(IniProfileStore(path).WriteText(section, entry, text)) << text;
  }
  for (const std::string& text : texts) {
    EXPECT_EQ(IniProfileStore(path).ReadText("[" + text, text + "="), text) << text;
  }
}

TEST(IniProfileStore, ChangesOneLineAndLeavesTheOthers) {
  const TemporaryFolder folder;
  const std::string path = folder / "profile.ini";
  std::ofstream(path) << "; by hand\n[One]\na=1\r\nab=2\n\n[Two]\na=3\nno entry";
  IniProfileStore store(path);
  EXPECT_EQ(store.ReadText("One", "a"), "1");
  EXPECT_EQ(store.ReadText("Two", "ab"), std::nullopt);
  ASSERT_TRUE(store.WriteText("Two", "a", "4"));
  ASSERT_TRUE(store.WriteText("Two", "b", "5"));
  ASSERT_TRUE(store.WriteText("Three", "a", "6"));
  ASSERT_TRUE(store.WriteText("]", "=;#\\[\x1F\x7F ~", " ! "));
  EXPECT_EQ(FileText(path),
            "; by hand\n[One]\na=1\nab=2\n\n[Two]\na=4\nno entry\nb=5\n[Three]\na=6\n"
            "[\\x5D]\n\\x3D\\x3B\\x23\\x5C\\x5B\\x1F\\x7F ~=\\x20!\\x20\n");
}

TEST(IniProfileStore, ReportsWhatCannotBeKept) {
  const TemporaryFolder folder;
  std::ofstream(folder / "file") << "x";
  EXPECT_FALSE(IniProfileStore(folder / "file/profile.ini").WriteText("S", "e", "t"));
  EXPECT_FALSE(IniProfileStore(folder.path()).WriteText("S", "e", "t"));
  EXPECT_FALSE(IniProfileStore("").WriteText("S", "e", "t"));
}

TEST(UserProfilePath, FollowsTheUsersFolders) {
  const EnvironmentVariable home("HOME", "/home/me");
  {
    const EnvironmentVariable configured("XDG_CONFIG_HOME", "/cfg");
    EXPECT_EQ(UserProfilePath(), "/cfg/Orvanta/Cantorix.ini");
  }
  {
    const EnvironmentVariable relative("XDG_CONFIG_HOME", "cfg");
    EXPECT_EQ(UserProfilePath(), "/home/me/.config/Orvanta/Cantorix.ini");
  }
  const EnvironmentVariable unset("XDG_CONFIG_HOME", nullptr);
  EXPECT_EQ(UserProfilePath(), "/home/me/.config/Orvanta/Cantorix.ini");
  for (const char* const none : {"", static_cast<const char*>(nullptr)}) {
    const EnvironmentVariable homeless("HOME", none);
    EXPECT_EQ(UserProfilePath(),
              ::getpwuid(::getuid())->pw_dir + std::string("/.config/Orvanta/Cantorix.ini"));
  }
}

TEST(HostMemoryProbe, RefusesWhatTheMachineDoesNotHave) {
  const HostMemoryProbe probe;
  EXPECT_TRUE(probe.CanAllocate(0));
  EXPECT_TRUE(probe.CanAllocate(1 << 20));
  EXPECT_TRUE(probe.CanAllocate(1 << 21));
  EXPECT_FALSE(probe.CanAllocate(std::uint64_t{1} << 50U));  // addressable, but a pebibyte
  EXPECT_FALSE(probe.CanAllocate(UINT64_MAX));
}

TEST(AvailableBytes, ReadsTheKernelsLine) {
  EXPECT_EQ(AvailableBytes("MemFree: 1 kB\nMemAvailable:   16077848 kB\nBuffers: 2 kB\n"),
            std::uint64_t{16077848} * 1024);
  for (const char* text : {"", "MemFree: 1 kB\n", "MemAvailable:", "MemAvailable: many kB",
                           "MemAvailable: 99999999999999999999 kB"}) {
    EXPECT_EQ(AvailableBytes(text), std::nullopt) << text;
  }
}

TEST(HostClock, GoesForwardThroughASleepAndIgnoresNoSleep) {
  EXPECT_THAT(LocalTimeStamp(),
              ::testing::MatchesRegex("2[0-9]{7}-[0-2][0-9][0-5][0-9][0-6][0-9]"));
  HostClock clock;
  const double before = clock.NowMs();
  clock.SleepMs(5.0);
  EXPECT_GE(clock.NowMs() - before, 5.0);
  clock.SleepMs(-1.0);
  clock.SleepMs(std::numeric_limits<double>::quiet_NaN());
}

}  // namespace
}  // namespace cantorix
