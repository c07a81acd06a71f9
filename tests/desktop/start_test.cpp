// start_test.cpp - the built program as a shell starts it: what it says without a display, and that
// what comes with it is found.
#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kProgram = CANTORIX_PROGRAM;

std::string Content(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

struct Outcome {
  int code;
  std::string out, err;
};

class Start : public testing::Test {
 protected:
  // Runs a shell command with nothing of this machine around it but `environment`.
  Outcome Shell(const std::string& command, const std::string& environment = "") {
    const std::string line = "cd '" + folder.path() + "' && env -i PATH=/usr/bin:/bin " +
                             environment + " ASAN_OPTIONS=detect_leaks=0 " + command +
                             " >out 2>err </dev/null";
    const int status = std::system(line.c_str());
    return {WEXITSTATUS(status), Content(folder / "out"), Content(folder / "err")};
  }

  TemporaryFolder folder;
};

TEST_F(Start, SaysWhatItIsWithoutADisplay) {
  for (const char* const option : {"--help", "-h", "--picture --help"}) {
    const Outcome help = Shell(kProgram + ' ' + option);
    EXPECT_EQ(help.code, 0) << option;
    EXPECT_THAT(help.out, StartsWith("usage: cantorix [FILE...]\n"));
    EXPECT_THAT(help.out, HasSubstr("--picture main|pitch|spectrum|spectrogram OUT.png"));
    EXPECT_THAT(help.err, IsEmpty());
  }
  const Outcome version = Shell(kProgram + " --version");
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out, "cantorix " CANTORIX_VERSION "\n");
  EXPECT_THAT(version.err, IsEmpty());
}

TEST_F(Start, WithoutADisplayOneLineNamesTheProgramToUse) {
  for (const char* const environment : {"", "DISPLAY=:4093", "QT_QPA_PLATFORM=nosuch"}) {
    const Outcome start = Shell(kProgram, environment);
    EXPECT_EQ(start.code, 1) << environment;
    EXPECT_THAT(start.out, IsEmpty());
    EXPECT_EQ(start.err,
              "cantorix: there is no display to open a window on; cantorix-batch measures "
              "recordings without one.\n")
        << environment;
  }
}

TEST_F(Start, PicturesSayNothing) {
  for (const char* const ending : {"png", "svg", "pdf", "bmp"}) {
    const std::string name = std::string("picture.") + ending;
    const Outcome picture = Shell(kProgram + " --picture spectrum " + name + " --size 300x200 '" +
                                  SamplesDirectory() + "/vowels.qrv'");
    EXPECT_EQ(picture.code, 0) << ending;
    EXPECT_THAT(picture.out + picture.err, IsEmpty()) << ending;
    EXPECT_TRUE(std::filesystem::exists(folder / name));
  }
}

TEST_F(Start, TheManualLiesBesideTheBuiltProgram) {
  const auto folderOfProgram = std::filesystem::path(kProgram).parent_path();
  EXPECT_TRUE(std::filesystem::exists(folderOfProgram / "../share/cantorix/Manual/HelpIndex.html"));
}

// The line of the desktop entry as a desktop splits it: quoted parts, with backslashes doubled once
// for the entry and once for the quotes, and %f for the file.
std::string CommandOfEntry(const std::string& file) {
  std::istringstream entry(Content(CANTORIX_DESKTOP_ENTRY));
  std::string line;
  while (std::getline(entry, line) && !line.starts_with("Exec=")) continue;
  std::string command = line.substr(line.find('=') + 1);
  for (std::size_t at = 0; (at = command.find("\\\\", at)) != std::string::npos; ++at) {
    command.erase(at, 1);
  }
  return command.replace(command.find("%f"), 2, '\'' + file + '\'');
}

TEST_F(Start, TheDesktopEntryStartsInTheUsersDataFolder) {
  std::filesystem::create_directory(folder / "bin");
  std::ofstream(folder / "bin/cantorix") << "#!/bin/sh\npwd\necho \"$#:$1\"\n";
  std::filesystem::permissions(folder / "bin/cantorix", std::filesystem::perms::owner_all);
  const std::string path = "PATH='" + folder.path() + "/bin:/usr/bin:/bin' ";
  struct Row {
    std::string environment, place;
  };
  for (const Row& row :
       {Row{"HOME='" + folder.path() + "'", "/.local/share/cantorix"},
        Row{"HOME=/ XDG_DATA_HOME='" + folder.path() + "/data'", "/data/cantorix"}}) {
    const Outcome start = Shell(CommandOfEntry("/a b/talk.qrv"), path + row.environment);
    EXPECT_EQ(start.out, folder.path() + row.place + "\n1:/a b/talk.qrv\n") << start.err;
  }
}

}  // namespace
}  // namespace cantorix
