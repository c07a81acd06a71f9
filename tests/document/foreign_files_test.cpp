// foreign_files_test.cpp - recordings made by other programs, each compared with its maker's own
// decoding of it. They lie in the folder "recordings"; tools/fixtures makes them anew, and
// contents.tsv there says what they are.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include "document/decoding/quiet_error_output.h"
#include "document/decoding/sound_decoder.h"
#include "document/document_io.h"
#include "platform/quiet_prompts.h"
#include "support/samples.h"

namespace cantorix {
namespace {

struct Recording {
  std::string file, format, coding;
  int channels = 0;
  double rateHz = 0.0;
  int tolerance = 0;  // of a sample
};

std::string Folder() { return SamplesDirectory() + "/../tests/document/recordings/"; }

std::vector<Recording> Recordings() {
  std::vector<Recording> recordings;
  std::ifstream table(Folder() + "contents.tsv");
  for (std::string line; std::getline(table, line);) {
    if (line.starts_with('#')) continue;
    std::istringstream fields(line);
    Recording row;
    for (std::string* text : {&row.file, &row.format, &row.coding})
      std::getline(fields, *text, '\t');
    fields >> row.channels >> row.rateHz >> row.tolerance;
    EXPECT_TRUE(fields) << line;
    recordings.push_back(row);
  }
  return recordings;
}

Values DecodedByItsMaker(const std::string& file) {
  const std::string bytes = ReadWholeFile(Folder() + file + ".s16");
  Values samples(bytes.size() / 2);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = LoadLittle<std::int16_t>(std::as_bytes(std::span(bytes)), 2 * i);
  }
  return samples;
}

void ExpectChannel(const Recording& row, int channel, const Values& decoded) {
  TestHost host;
  if (row.channels > 1) host.prompts.WillChooseChannel(channel);
  CSonadexDoc document(host.host);
  ASSERT_TRUE(document.OnOpenDocument(Folder() + row.file)) << document.openFailure.reason;
  EXPECT_EQ(document.formatName, row.format);
  EXPECT_EQ(document.codingName, row.coding);
  EXPECT_EQ(document.fileChannels, row.channels);
  EXPECT_EQ(document.channel().sampleRateHz, row.rateHz);
  EXPECT_TRUE(document.foreignSource);
  EXPECT_EQ(document.extractedChannel, row.channels > 1);
  const Values samples = SamplesOf(document);
  const auto step = static_cast<std::size_t>(row.channels);
  ASSERT_EQ(samples.size(), decoded.size() / step);
  int worst = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    worst = std::max(worst,
                     std::abs(samples[i] - decoded[i * step + static_cast<std::size_t>(channel)]));
  }
  EXPECT_LE(worst, row.tolerance);
  host.prompts.TakeTranscript();
}

TEST(ForeignFiles, HoldWhatTheirMakersReadInThem) {
  for (const Recording& row : Recordings()) {
    SCOPED_TRACE(row.file);
    const Values decoded = DecodedByItsMaker(row.file);
    for (int channel = 0; channel < row.channels; ++channel) ExpectChannel(row, channel, decoded);
  }
}

TEST(ForeignFiles, AreAllListed) {
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
    if (entry.path().extension() == ".s16") ++files;
  }
  EXPECT_EQ(Recordings().size(), files);
}

// What a decoder gives when it is asked for so many samples at once; nothing of a kind not its own.
Values ReadInPieces(const std::string& path, std::size_t count) {
  const File file = File::OpenForReading(path);
  const SoundDecoder::Opened opened = SoundDecoder::Open(file);
  Values samples;
  for (std::size_t got = count; opened.decoder && got == count;) {
    Values piece(count);
    got = opened.decoder->Read(0, piece);
    samples.insert(samples.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(got));
  }
  return samples;
}

TEST(ForeignFiles, CutAndDamagedAreReadAsFarAsTheyGoOrRefusedWithoutAWord) {
  TestHost host;
  QuietPrompts nobody;
  DocumentHost quiet = HostOf(host, nobody);
  for (const Recording& row : Recordings()) {
    SCOPED_TRACE(row.file);
    const std::string whole = ReadWholeFile(Folder() + row.file);
    const std::size_t step = std::max<std::size_t>(whole.size() / 16, 1);
    for (std::size_t size = 1; size < whole.size(); size += step) {
      // What is there is damaged, too: in its second half.
      std::string piece = whole.substr(0, size);
      for (std::size_t at = size / 2; at < size; at += 97) piece[at] = '\x55';
      WriteBytes(host.folder / "cut", std::as_bytes(std::span(piece)));
      CSonadexDoc document(quiet);
      testing::internal::CaptureStderr();
      const bool isOpen = document.OnOpenDocument(host.folder / "cut");
      EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << size;
      EXPECT_EQ(ReadInPieces(host.folder / "cut", 1000),
                ReadInPieces(host.folder / "cut", 1U << 20U))
          << "memory and disk hold the same";
      if (isOpen) {
        EXPECT_EQ(document.Samples().length(), document.channel().sampleCount());
        EXPECT_GT(document.channel().sampleCount(), 0);
      } else {
        EXPECT_NE(document.openFailure.reason, "") << size;
      }
    }
  }
}

TEST(ForeignFiles, OfTwoDecodersAtOneTimeTheLastGivesTheErrorOutputBack) {
  testing::internal::CaptureStderr();
  auto first = std::make_unique<QuietErrorOutput>();
  auto second = std::make_unique<QuietErrorOutput>();
  first.reset();
  std::cerr << "lost";
  second.reset();
  std::cerr << "seen";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "seen");
}

}  // namespace
}  // namespace cantorix
