// recording_file_test.cpp - the file of a recording: name, rights, lock, a full disk, and what is
// found of a program that was killed.
#include "audio/recording_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "platform/file_error.h"
#include "support/child_process.h"
#include "support/file_size_limit.h"
#include "support/sound_samples.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

using testing::IsEmpty;

constexpr const char* kStamp = "20261121-143005";

TEST(RecordingFile, TakesAFreeNameForThisUserAlone) {
  TemporaryFolder folder;
  WriteBytes(folder / "precious", {});
  std::filesystem::create_symlink(folder / "precious",
                                  folder / "Recording-20261121-143005-16000Hz-1.raw");
  WriteBytes(folder / "Recording-20261121-143005-16000Hz-2.raw", {});
  const auto file = RecordingFile::Create(folder.path(), kStamp, 16000);
  EXPECT_EQ(file->path(), folder / "Recording-20261121-143005-16000Hz-3.raw");
  EXPECT_EQ(std::filesystem::status(file->path()).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  file->Append(SamplesFrom(0, 20000));
  file->Append(SamplesFrom(20000, 10));
  EXPECT_EQ(file->lengthSamples(), 20010);
  EXPECT_EQ(SamplesOf(file->path()), SamplesFrom(0, 20010));
  EXPECT_EQ(std::filesystem::file_size(folder / "precious"), 0U);
  EXPECT_THROW(RecordingFile::Reopen(file->path()), FileError) << "it is locked";
  EXPECT_THROW(RecordingFile::Create(folder / "absent", kStamp, 16000), FileError);
}

TEST(RecordingFile, KeepsWhatItHasOnAFullDisk) {
  TemporaryFolder folder;
  const auto file = RecordingFile::Create(folder.path(), kStamp, 16000);
  file->Append(SamplesFrom(0, 1000));
  {
    const FileSizeLimit limit(2501);
    EXPECT_THROW(file->Append(SamplesFrom(1000, 1000)), FileError);
  }
  EXPECT_EQ(file->lengthSamples(), 1000);
  EXPECT_EQ(SamplesOf(file->path()), SamplesFrom(0, 1000));
}

TEST(RecordingFile, IsFoundAgainWhenNobodyHasIt) {
  TemporaryFolder folder;
  const auto stand = [&](const std::string& name, std::size_t samples) {
    const auto content = SamplesFrom(0, samples);
    WriteBytes(folder / name, std::as_bytes(std::span(content)));
  };
  stand("Recording-20261121-143005-44100Hz-2.raw", 7);
  stand("Recording-20261120-235959-11025Hz-10.raw", 5);
  stand("Recording-20261121-143005-44100Hz-3.raw", 0);
  for (const char* other :
       {"Recording-20261121-143005-44100Hz-.raw", "Recording-20261121-143005-0Hz-1.raw",
        "Recording-20261121-143005-44100Hz-1.wav", "Recording-20261121-143005+44100Hz-1.raw",
        "Recording-20261121-143005-44100-1.raw", "Recording-2026.raw", "recording.raw"}) {
    stand(other, 9);
  }
  std::filesystem::create_symlink(folder / "recording.raw",
                                  folder / "Recording-20261121-143005-44100Hz-9.raw");
  const auto held = RecordingFile::Create(folder.path(), kStamp, 8000);
  held->Append(SamplesFrom(0, 3));
  const auto found = FindUnfinishedRecordings(folder.path());
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].path, folder / "Recording-20261120-235959-11025Hz-10.raw");
  EXPECT_EQ(found[0].stamp, "20261120-235959");
  EXPECT_EQ(found[0].rateHz, 11025U);
  EXPECT_EQ(found[0].lengthSamples, 5);
  EXPECT_EQ(found[1].lengthSamples, 7);
  EXPECT_FALSE(std::filesystem::exists(folder / "Recording-20261121-143005-44100Hz-3.raw"));
  EXPECT_TRUE(std::filesystem::exists(folder / "Recording-20261121-143005-44100Hz-.raw"));
  EXPECT_THAT(FindUnfinishedRecordings(folder / "absent"), IsEmpty());

  const auto again = RecordingFile::Reopen(found[1].path);
  EXPECT_EQ(again->rateHz(), 44100U);
  again->Append(SamplesFrom(7, 2));
  EXPECT_EQ(SamplesOf(again->path()), SamplesFrom(0, 9));
  again->Remove();
  EXPECT_FALSE(std::filesystem::exists(found[1].path));
  EXPECT_THROW(RecordingFile::Reopen(folder / "recording.raw"), FileError);
}

TEST(RecordingFile, OutlivesAKilledProgram) {
  constexpr std::size_t kPiece = 512;
  for (int run = 0; run < 100; ++run) {
    TemporaryFolder folder;
    int fds[2];
    ASSERT_EQ(::pipe(fds), 0);
    const pid_t child = StartChild([&] {
      const auto file = RecordingFile::Create(folder.path(), kStamp, 11025);
      for (std::int64_t pieces = 0;; ++pieces) {
        file->Append(SamplesFrom(pieces * static_cast<std::int64_t>(kPiece), kPiece));
        if (::write(fds[1], &pieces, sizeof pieces) != sizeof pieces) return 1;
      }
    });
    std::int64_t pieces = 0;
    for (int i = 0; i <= run; ++i) ASSERT_EQ(::read(fds[0], &pieces, sizeof pieces), 8);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    // What was said to be written is there; at most the piece on its way may be, too.
    ::close(fds[1]);
    while (::read(fds[0], &pieces, sizeof pieces) == 8) continue;
    ::close(fds[0]);
    const auto found = FindUnfinishedRecordings(folder.path());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_GE(found[0].lengthSamples, (pieces + 1) * static_cast<std::int64_t>(kPiece));
    EXPECT_LE(found[0].lengthSamples, (pieces + 2) * static_cast<std::int64_t>(kPiece));
    const auto kept = SamplesOf(found[0].path);
    EXPECT_EQ(kept, SamplesFrom(0, kept.size()));
  }
}

TEST(RecordingFile, KnowsTheSpaceThatIsLeft) {
  TemporaryFolder folder;
  const auto seconds = SecondsOfSpace(folder.path(), 1000);
  ASSERT_TRUE(seconds);
  const auto bytes = static_cast<double>(std::filesystem::space(folder.path()).available);
  EXPECT_NEAR(*seconds, bytes / 2000.0, bytes / 2000.0 * 0.02);
  EXPECT_FALSE(SecondsOfSpace(folder / "absent", 1000));
}

}  // namespace
}  // namespace cantorix
