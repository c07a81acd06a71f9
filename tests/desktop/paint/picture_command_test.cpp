// picture_command_test.cpp - the option that draws a recording into a file.
#include "desktop/picture_command.h"

#include <gtest/gtest.h>

#include <QImage>
#include <vector>

#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

const std::string kVowels = SamplesDirectory() + "/vowels.qrv";

class PictureCommand : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder.path() + "/" + name; }
  // Exit code; what went to standard error is in `errors`.
  int Run(const std::vector<std::string>& arguments) {
    testing::internal::CaptureStderr();
    const int code = RunPictureCommand(arguments);
    errors = testing::internal::GetCapturedStderr();
    return code;
  }

  TemporaryFolder folder;
  std::string errors;
};

TEST_F(PictureCommand, DrawsEveryKindAsItsOptionsSay) {
  for (const char* const kind : {"main", "pitch", "spectrum", "spectrogram"}) {
    const auto draw = [&](std::vector<std::string> arguments) {
      arguments.insert(arguments.begin(), {"--picture", kind, Path("a.png"), kVowels});
      EXPECT_EQ(Run(arguments), 0) << kind;
      EXPECT_EQ(errors, "") << kind;
      return QImage(QString::fromStdString(Path("a.png")));
    };
    EXPECT_EQ(draw({}).size(), QSize(1000, 600)) << kind;
    const QImage plain = draw({"--size", "400x300"});
    EXPECT_EQ(plain.size(), QSize(400, 300)) << kind;
    EXPECT_EQ(draw({"--size", "400x300", "--scale", "2"}).size(), QSize(800, 600)) << kind;
    EXPECT_NE(draw({"--size", "400x300", "--dark"}), plain) << kind;
    EXPECT_NE(draw({"--size", "400x300", "--at", "1900"}), plain) << kind;
    EXPECT_NE(draw({"--size", "400x300", "--select", "1700:1800"}), plain) << kind;
  }
}

TEST_F(PictureCommand, RefusesWhatItDoesNotUnderstand) {
  const std::string out = Path("a.png");
  const std::vector<std::string> rows[] = {
      {"--picture"},
      {"--picture", "main", out},
      {"--picture", "waterfall", out, kVowels},
      {"--picture", "main", Path("a.gif"), kVowels},
      {"--picture", "main", out, "--size", "0x300", kVowels},
      {"--picture", "main", out, "--size", "400", kVowels},
      {"--picture", "main", out, "--size", "99999x300", kVowels},
      {"--picture", "main", out, "--select", "9:3", kVowels},
      {"--picture", "main", out, "--scale", "nan", kVowels},
      {"--picture", "main", out, "--at", "soon", kVowels},
      {"--picture", "main", out, "--at", "12x", kVowels},
      {"--picture", "main", out, kVowels, "--size"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Run(row), 2) << row.back();
    EXPECT_TRUE(errors.starts_with("usage: cantorix --picture")) << errors;
  }
  EXPECT_TRUE(QImage(QString::fromStdString(out)).isNull());
}

TEST_F(PictureCommand, SaysWhatCouldNotBeOpenedOrSaved) {
  const std::string missing = Path("missing.qrv");
  EXPECT_EQ(Run({"--picture", "main", Path("a.png"), missing}), 1);
  EXPECT_EQ(errors, "cantorix: " + missing + " could not be opened. No such file or directory.\n");
  const std::string nowhere = Path("nowhere/a.png");
  EXPECT_EQ(Run({"--picture", "main", nowhere, kVowels}), 1);
  EXPECT_TRUE(errors.starts_with("cantorix: " + nowhere + " could not be saved. ")) << errors;
}

}  // namespace
}  // namespace cantorix
