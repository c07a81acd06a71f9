// file_samples_test.cpp - recordings that are read where they stand hold the samples that a copy
// holds, and a file that loses some is noticed.
#include "document/file_samples.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "document/document_io.h"
#include "platform/file_error.h"
#include "platform/quiet_prompts.h"
#include "support/samples.h"

namespace cantorix {
namespace {

class Listener : public QuietPrompts {
 public:
  void Message(const std::string& text) override { messages.push_back(text); }

  std::vector<std::string> messages;
};

struct ReadThere {
  Values samples;
  double length = 0.0;
  std::vector<std::string> said;
  bool stays = false;  // in its file
};

ReadThere OpenAt(const std::string& path, bool samplesStay) {
  TestHost program;
  Listener user;
  DocumentHost host{.prompts = user,
                    .progress = program.progress,
                    .memory = program.memory,
                    .programDirectory = program.folder.path(),
                    .application = {},
                    .documentsWriteConfiguration = false,
                    .samplesStayInFile = samplesStay};
  host.application.memoryMinutes = 0;
  CSonadexDoc document(host);
  document.wantedChannel = 2;
  if (!document.OnOpenDocument(path)) return {};
  EXPECT_TRUE(document.samplesOnDisk());
  return {SamplesOf(document), document.channel().totalLength, user.messages,
          document.store() == nullptr};
}

TEST(FileSamples, AreThoseOfACopy) {
  int stayed = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(SamplesDirectory() + "/../tests/document/recordings")) {
    SCOPED_TRACE(entry.path());
    const ReadThere copied = OpenAt(entry.path(), false);
    const ReadThere there = OpenAt(entry.path(), true);
    EXPECT_FALSE(copied.stays);
    EXPECT_EQ(there.samples, copied.samples);
    EXPECT_EQ(there.length, copied.length);
    EXPECT_EQ(there.said, copied.said);
    if (there.stays) ++stayed;
  }
  EXPECT_GT(stayed, 35) << "all but what a library decodes";
}

TEST(FileSamples, AreLeftThereByTheirLengthAndByWhatTheyAreFor) {
  TestHost host;
  host.host.samplesStayInFile = true;
  CSonadexDoc document(host.host);
  ASSERT_TRUE(document.OnOpenDocument(SamplesDirectory() + "/vowels.qrv"));
  EXPECT_FALSE(document.samplesOnDisk());
  EXPECT_FALSE(document.channel().samples.empty());
  const Values inMemory = SamplesOf(document);
  host.host.samplesAwaitChanges = true;
  CSonadexDoc waiting(host.host);
  ASSERT_TRUE(waiting.OnOpenDocument(SamplesDirectory() + "/vowels.qrv"));
  EXPECT_FALSE(waiting.samplesOnDisk());
  EXPECT_TRUE(waiting.channel().samples.empty());
  EXPECT_EQ(SamplesOf(waiting), inMemory);
  host.host.samplesStayInFile = false;
  CSonadexDoc longOne(host.host);
  longOne.memoryLimitMinutes = 0;
  ASSERT_TRUE(longOne.OnOpenDocument(SamplesDirectory() + "/vowels.qrv"));
  EXPECT_NE(longOne.store(), nullptr) << "too long to be changed in memory";
}

TEST(FileSamples, ThatAreGoneAreNoZeros) {
  const TemporaryFolder folder;
  const std::string path = folder / "raw";
  File file = File::Create(path);
  const std::vector<std::byte> bytes(100, std::byte{1});
  file.Write(0, bytes);
  file.Close();
  const InterleavedPlace stereo{.frameBytes = 4, .dataOffset = 10, .channelOffset = 2};
  const FileSamples samples(File::OpenForReading(path), stereo, 30);
  EXPECT_EQ(samples.length(), 30);
  std::vector<std::int16_t> scratch;
  EXPECT_EQ(samples.View(20, 4, scratch)[1], 0x0101) << "the last of 22 frames and a half";
  EXPECT_EQ(samples.View(20, 4, scratch)[2], 0) << "not there from the beginning";
  EXPECT_THROW(File::Create(path), FileError) << "nobody may write it now";
  std::filesystem::resize_file(path, 60);
  EXPECT_EQ(samples.View(0, 12, scratch)[11], 0x0101);
  EXPECT_THROW(samples.View(0, 13, scratch), FileError);
}

}  // namespace
}  // namespace cantorix
