// sample_files_test.cpp - the files in the samples folder are the ones the synthesiser makes now,
// and the native one holds what it should, read here by its layout and nothing of the system's.
#include "synth/sample_files.h"
#include "support/samples.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/bytes.h"
#include "synth/sample_recording.h"

namespace cantorix::synth {
namespace {

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(SampleFiles, AreMadeAgainByteForByte) {
  const auto folder = std::filesystem::temp_directory_path() /
                      ("cantorix_sample_files_" + std::to_string(::getpid()));
  std::filesystem::create_directory(folder);
  WriteSampleFiles(folder.string());
  for (const char* name : {kRecordingFile, kPitchTruthFile, kFormantTruthFile}) {
    const std::string committed = Content(std::filesystem::path(SamplesDirectory()) / name);
    EXPECT_FALSE(committed.empty()) << name;
    EXPECT_TRUE(committed == Content(folder / name)) << name;
  }
  std::filesystem::remove_all(folder);
}

TEST(SampleFiles, NativeFileHoldsTheLabelsAndTheSamplesOfTheRecording) {
  const SampleRecording recording = MakeSampleRecording();
  const std::string content = Content(std::filesystem::path(SamplesDirectory()) / kRecordingFile);
  const auto bytes = std::as_bytes(std::span(content));
  ASSERT_EQ(LoadText(bytes, 0, 8), "QRV_PC");
  ASSERT_EQ(LoadLittle<double>(bytes, 512 + 16), static_cast<double>(recording.samples.size()));
  ASSERT_EQ(LoadLittle<std::int32_t>(bytes, 512 + 92), 2);
  std::size_t at = 512 + 248;
  for (const auto& [name, labels] :
       {std::pair("tones", recording.tones), std::pair("words", recording.words)}) {
    ASSERT_EQ(LoadText(bytes, at, 256), name);
    ASSERT_EQ(LoadLittle<std::int32_t>(bytes, at + 256), static_cast<int>(labels.size()));
    at += 264;
    for (const TimedText& label : labels) {
      EXPECT_EQ(LoadLittle<double>(bytes, at), label.ms);
      EXPECT_EQ(LoadText(bytes, at + 112, 256), label.text);
      at += 368;
    }
  }
  ASSERT_EQ(bytes.size(), at + 2 * recording.samples.size());
  for (std::size_t n = 0; n < recording.samples.size(); ++n) {
    ASSERT_EQ(LoadLittle<std::int16_t>(bytes, at + 2 * n), recording.samples[n]) << n;
  }
}

}  // namespace
}  // namespace cantorix::synth
