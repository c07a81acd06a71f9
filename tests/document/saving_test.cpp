// saving_test.cpp - what the native and the WAV writer share: what they refuse, and what a save
// that the user cancels leaves.
#include <gtest/gtest.h>

#include <cmath>

#include "document/document_io.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

using Stretch = std::optional<std::pair<double, double>>;
using Save = void (*)(CSonadexDoc&, const std::string& path, const Stretch&);

void SaveAsNative(CSonadexDoc& document, const std::string& path, const Stretch& stretch) {
  std::optional<NativeRange> range;
  if (stretch) range = RangeOf(stretch->first, stretch->second);
  SaveNative(document, path, range);
}

void SaveAsWave(CSonadexDoc& document, const std::string& path, const Stretch& stretch) {
  std::optional<SampleRange> range;
  if (stretch) range = SampleRange{stretch->first, stretch->second};
  ExportWave(document, path, range);
}

TEST(Saving, RefusesWhatCouldNotBeReadBack) {
  const double nan = std::nan("");
  struct Row {
    const char* native;  // reasons; none: it is written
    const char* wave;
    Stretch stretch;
    double CChannel::*field = &CChannel::cursorValue;
    double value = 0.0;
  };
  const char* const kEmpty = "There is no sample to write.";
  const char* const kSlow = "A WAV file cannot hold a sample rate below 1 Hz.";
  const char* const kRate = "The sample rate is not possible.";
  const char* const kLength = "The length is not possible.";
  const Row rows[] = {
      {kEmpty, kEmpty, {{4.0, 4.0}}},
      {kEmpty, kEmpty, {{4.0, 4.9}}},
      {kEmpty, kEmpty, {{6.0, 4.0}}},
      {kEmpty, kEmpty, {{11.0, 12.0}}},
      {kEmpty, kEmpty, {{nan, nan}}},
      {"", "", {{4.9, 5.9}}},
      {"", kEmpty, {}, &CChannel::totalLength, 0.0},
      {"", "", {}, &CChannel::sampleRateHz, 1.0},
      {"", kSlow, {}, &CChannel::sampleRateHz, 0.999},
      {kRate, kSlow, {}, &CChannel::sampleRateHz, 0.0},
      {kRate, kSlow, {}, &CChannel::sampleRateHz, nan},
      {kLength, kEmpty, {}, &CChannel::totalLength, nan},
      {"The duration is not possible.", "", {}, &CChannel::totalDurationMs, -1.0},
      {nullptr,
       "A WAV file cannot hold so many samples.",
       {},
       &CChannel::totalLength,
       static_cast<double>(kMaxWaveBytes) / 2.0 + 1.0},
  };
  for (const Row& row : rows) {
    for (const auto& [save, reason] :
         {std::pair<Save, const char*>(SaveAsNative, row.native), {SaveAsWave, row.wave}}) {
      if (reason == nullptr) continue;
      TestHost host;
      CSonadexDoc document(host.host);
      FillWithRamp(document, 10.0);
      document.channel().*row.field = row.value;
      std::string met;
      try {
        save(document, host.folder / "new", row.stretch);
      } catch (const SaveRefused& refusal) {
        met = refusal.what();
      }
      EXPECT_EQ(met, reason) << &row - rows;
      EXPECT_EQ(host.folder.Names().size(), met.empty() ? 1U : 0U) << &row - rows;
    }
  }
}

TEST(Saving, CancelledLeavesTheEarlierFileOrAnIncompleteNewOne) {
  for (const auto& [save, headerBytes] :
       {std::pair<Save, int>(SaveAsNative, 760), {SaveAsWave, 44}}) {
    TestHost host;
    CSonadexDoc document(host.host);
    FillWithRamp(document, 3500.0);
    MoveToStore(document);
    save(document, host.folder / "whole", {});
    Bytes expected = ReadBytes(host.folder / "whole");
    ASSERT_EQ(expected.size(), static_cast<std::size_t>(headerBytes) + 7000);
    WriteBytes(host.folder / "earlier", Bytes(3));
    for (const char* name : {"earlier", "new"}) {
      host.progress = CancellingProgress(3);  // looked at before every block of one second
      EXPECT_THROW(save(document, host.folder / name, {}), Abandoned);
      EXPECT_EQ(host.progress.endCount, 1);
    }
    EXPECT_EQ(ReadBytes(host.folder / "earlier"), Bytes(3));
    expected.resize(static_cast<std::size_t>(headerBytes) + 4000);
    EXPECT_EQ(ReadBytes(host.folder / "new"), expected);
  }
}

}  // namespace
}  // namespace cantorix
