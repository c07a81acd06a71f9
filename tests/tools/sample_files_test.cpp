// sample_files_test.cpp - the files in the samples folder are the ones the synthesiser makes now.
// What the batch program reads of them stands in tests/batch/expected.
#include "synth/sample_files.h"

#include <gtest/gtest.h>

#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::synth {
namespace {

TEST(SampleFiles, AreMadeAgainByteForByte) {
  const TemporaryFolder folder;
  WriteSampleFiles(folder.path());
  for (const std::string name : {kRecordingFile, kPitchTruthFile, kFormantTruthFile}) {
    const auto committed = ReadBytes(SamplesDirectory() + "/" + name);
    EXPECT_FALSE(committed.empty()) << name;
    EXPECT_TRUE(committed == ReadBytes(folder / name)) << name;
  }
}

}  // namespace
}  // namespace cantorix::synth
