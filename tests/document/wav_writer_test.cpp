// wav_writer_test.cpp - exported WAV files, byte for byte, and what a failed export leaves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "document/sample_access.h"
#include "document/wav_file.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "support/byte_builder.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

using Bytes = std::vector<std::byte>;

// A recording whose sample k is 3 k, at 100.75 Hz, in memory or in the disk store.
void FillWithRamp(CSonadexDoc& document, std::int64_t count, bool onDisk) {
  CChannel& channel = document.channel();
  channel.sampleRateHz = 100.75;
  channel.totalLength = static_cast<double>(count) + 0.5;
  channel.totalDurationMs = channel.totalLength * 1000.0 / channel.sampleRateHz;
  SampleBlock block(count);
  for (std::int64_t k = 0; k < count; ++k) {
    block.samples()[static_cast<std::size_t>(k)] = static_cast<std::int16_t>(3 * k);
  }
  if (!onDisk) return document.HoldInMemory(std::move(block));
  DocumentHost& host = document.host();
  auto store = std::make_unique<SampleStore>(host.programDirectory, host.storeCounter);
  store->Append(block.samples());
  document.HoldOnDisk(std::move(store));
}

// The file with the samples [first, first + count) of that recording.
Bytes Expected(std::int64_t first, std::int64_t count) {
  ByteBuilder file;
  file.Text("RIFF", 4).I32({2 * count}).Text("WAVE", 4);
  file.Text("fmt ", 4).I32({16}).I16({1, 1}).I32({100, 200}).I16({2, 16});
  file.Text("data", 4).I32({2 * count});
  for (std::int64_t k = first; k < first + count; ++k) file.I16({3 * k});
  return file.bytes;
}

Bytes Written(CSonadexDoc& document, WaveBytes range) {
  Bytes bytes;
  WriteWave([&](auto piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); }, document,
            range, document.host().progress);
  return bytes;
}

TEST(WavWriter, CountsOnlyTheDataBytesInItsSizeFieldIsKept) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 1000, false);
  ExportWave(document, host.folder / "out.wav", std::nullopt);
  const Bytes bytes = ReadBytes(host.folder / "out.wav");
  ASSERT_EQ(bytes.size(), 2044U);
  EXPECT_EQ(bytes[4], std::byte{2000 % 256});
  EXPECT_EQ(bytes[5], std::byte{2000 / 256});
  EXPECT_EQ(bytes, Expected(0, 1000));
}

TEST(WavWriter, StartsAtTheEvenByteBelow) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 10, false);
  EXPECT_EQ(Written(document, {7, 4}), Expected(3, 2));
}

TEST(WavWriter, ExportsTheTruncatedRangeFromMemoryAndStoreAlike) {
  struct Row {
    std::optional<SampleRange> range;
    std::int64_t first;
    std::int64_t count;
  };
  const Row rows[] = {
      {std::nullopt, 0, 1000},
      {SampleRange{0.0, 1000.5}, 0, 1000},
      {SampleRange{100.9, 300.8}, 100, 199},
      {SampleRange{990.0, 2000.0}, 990, 10},  // ends with the recording
      {SampleRange{5.5, 6.5}, 5, 1},
      {SampleRange{-3.0, 4.0}, 0, 7},
  };
  for (const bool onDisk : {false, true}) {
    TestHost host;
    CSonadexDoc document(host.host);
    FillWithRamp(document, 1000, onDisk);
    ASSERT_EQ(document.samplesOnDisk(), onDisk);
    for (const Row& row : rows) {
      ExportWave(document, host.folder / "out.wav", row.range);
      EXPECT_EQ(ReadBytes(host.folder / "out.wav"), Expected(row.first, row.count))
          << row.first << " " << row.count << " " << onDisk;
    }
  }
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
  FillWithRamp(document, 1000, true);
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
    FillWithRamp(document, 10, false);
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
  FillWithRamp(slowest, 1, false);
  slowest.channel().sampleRateHz = 1.0;
  ExportWave(slowest, host.folder / "out.wav", std::nullopt);
  CSonadexDoc copy(host.host);
  EXPECT_TRUE(copy.OnOpenDocument(host.folder / "out.wav"));
  EXPECT_EQ(SamplesOf(copy), SamplesOf(slowest));
}

TEST(WavWriter, ThrowsWhereTheFileCannotBeMade) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 10, false);
  EXPECT_THROW(ExportWave(document, host.folder / "no/such/folder.wav", std::nullopt), FileError);
}

}  // namespace
}  // namespace cantorix
