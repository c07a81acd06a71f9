// wav_writer_test.cpp - exported WAV files, byte for byte.
#include <gtest/gtest.h>

#include "document/document_io.h"

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

}  // namespace
}  // namespace cantorix
