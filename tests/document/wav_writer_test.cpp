// wav_writer_test.cpp - exported WAV files, byte for byte, and what a failed export leaves.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "document/document_io.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

TEST(WavWriter, ExportsTheTruncatedRangeFromMemoryAndStoreAlike) {
  struct Row {
    std::optional<SampleRange> range;
    std::int64_t first, count;
  };
  const Row rows[] = {
      {std::nullopt, 0, 1000},        {SampleRange{0.0, 1000.5}, 0, 1000},
      {SampleRange{5.5, 6.5}, 5, 1},  {SampleRange{100.9, 300.8}, 100, 199},
      {SampleRange{-3.0, 4.0}, 0, 7}, {SampleRange{990.0, 2000.0}, 990, 10},
  };
  for (const bool onDisk : {false, true}) {
    TestHost host;
    CSonadexDoc document(host.host);
    FillWithRamp(document, 1000.5, 100.75);
    if (onDisk) MoveToStore(document);
    ASSERT_EQ(document.samplesOnDisk(), onDisk);
    for (const Row& row : rows) {
      ExportWave(document, host.folder / "out.wav", row.range);
      EXPECT_EQ(ReadBytes(host.folder / "out.wav"), RampWave(row.first, row.count, 100))
          << row.first << " " << row.count << " " << onDisk;
    }
  }
}

// Its size field and the even byte below an odd start.
TEST(WavWriter, CountsOnlyTheDataBytesInItsSizeFieldIsKept) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 10.0);
  Bytes bytes;
  WriteWave([&](auto piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); }, document,
            {7, 4}, host.progress);
  EXPECT_EQ(bytes, RampWave(3, 2));
  EXPECT_EQ(bytes[4], std::byte{4});
}

TEST(WavWriter, ReadsBackWhatItWrote) {
  std::vector<std::string> paths;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator("/usr/share/sounds/alsa", ignored)) {
    if (entry.path().extension() == ".wav") paths.push_back(entry.path());
  }
  if (paths.empty()) GTEST_SKIP() << "no recordings of real speech here";
  for (const std::string& path : paths) {
    SCOPED_TRACE(path);
    TestHost host;
    CSonadexDoc original(host.host);
    ASSERT_TRUE(original.OnOpenDocument(path));
    ExportWave(original, host.folder / "out.wav", std::nullopt);
    CSonadexDoc copy(host.host);
    ASSERT_TRUE(copy.OnOpenDocument(host.folder / "out.wav"));
    EXPECT_GT(copy.savedLength, 10000.0);
    EXPECT_EQ(copy.savedLength, original.savedLength);
    EXPECT_EQ(copy.savedRateHz, original.savedRateHz);
    EXPECT_EQ(SamplesOf(copy), SamplesOf(original));
  }
}

TEST(WavWriter, CancelledLeavesTheEarlierFileOrAnIncompleteNewOne) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 1000.5, 100.75);
  MoveToStore(document);
  const std::string earlier = host.folder / "earlier.wav";
  WriteBytes(earlier, Bytes(3));
  for (const std::string& path : {earlier, host.folder / "new.wav"}) {
    host.progress = CancellingProgress(4);
    EXPECT_THROW(ExportWave(document, path, std::nullopt), Abandoned);
    EXPECT_EQ(host.progress.endCount, 1);
  }
  EXPECT_EQ(ReadBytes(earlier), Bytes(3));
  // Looked at before every block of one second.
  EXPECT_EQ(ReadBytes(host.folder / "new.wav").size(), 44U + 3 * 2 * 100);
}

TEST(WavWriter, RefusesWhatCouldNotBeReadBack) {
  struct Row {
    const char* reason;
    std::optional<SampleRange> range;
    double rateHz;
    std::int64_t samples;
  };
  const char* const kEmpty = "There is no sample to write.";
  const char* const kSlow = "A WAV file cannot hold a sample rate below 1 Hz.";
  constexpr std::int64_t kTooMany = kMaxWaveBytes / 2 + 1;
  const Row rows[] = {
      {kEmpty, SampleRange{5.5, 5.5}, 100.0, 10},
      {kEmpty, SampleRange{5.0, 5.9}, 100.0, 10},
      {kEmpty, SampleRange{20.0, 30.0}, 100.0, 10},
      {kEmpty, SampleRange{6.0, 4.0}, 100.0, 10},
      {kEmpty, SampleRange{std::nan(""), std::nan("")}, 100.0, 10},
      {kEmpty, std::nullopt, 100.0, 0},
      {kSlow, std::nullopt, 0.999, 10},
      {kSlow, std::nullopt, std::nan(""), 10},
      {"A WAV file cannot hold so many samples.", std::nullopt, 100.0, kTooMany},
  };
  for (const Row& row : rows) {
    TestHost host;
    CSonadexDoc document(host.host);
    FillWithRamp(document, 10.0);
    document.channel().totalLength = static_cast<double>(row.samples);
    document.channel().sampleRateHz = row.rateHz;
    try {
      ExportWave(document, host.folder / "out.wav", row.range);
      ADD_FAILURE() << "not refused: " << row.reason;
    } catch (const SaveRefused& refusal) {
      EXPECT_STREQ(refusal.what(), row.reason);
    }
    EXPECT_TRUE(host.folder.Names().empty());
  }
  TestHost host;
  CSonadexDoc slowest(host.host);
  FillWithRamp(slowest, 1.0, 1.0);
  ExportWave(slowest, host.folder / "out.wav", std::nullopt);
  EXPECT_EQ(ReadBytes(host.folder / "out.wav"), RampWave(0, 1, 1));
  EXPECT_THROW(ExportWave(slowest, host.folder / "no/folder.wav", std::nullopt), FileError);
}

}  // namespace
}  // namespace cantorix
