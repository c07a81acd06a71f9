// saving_test.cpp - what the native and the WAV writer share: what they refuse, and what a save
// that the user cancels leaves.
#include <gtest/gtest.h>

#include <cmath>

#include "document/document_io.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "support/expected_text.h"
#include "support/joined.h"

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

// Why a native file and a WAV file are refused, or "written", for stretches of ten samples and for
// values of their channel.
TEST(Saving, RefusesWhatCouldNotBeReadBack) {
  const double nan = std::nan("");
  std::string text;
  const auto note = [&text](const std::string& name, const Stretch& stretch,
                            double CChannel::*field = &CChannel::cursorValue, double value = 0.0) {
    text += name + ":";
    for (const Save save : {SaveAsNative, SaveAsWave}) {
      // A native file of so many samples is refused by the disk alone.
      if (value > 1e9 && save == Save{SaveAsNative}) continue;
      TestHost host;
      CSonadexDoc document(host.host);
      FillWithRamp(document, 10.0);
      document.channel().*field = value;
      std::string met = "written";
      try {
        save(document, host.folder / "new", stretch);
      } catch (const SaveRefused& refusal) {
        met = refusal.what();
      }
      EXPECT_EQ(host.folder.Names().size(), met == "written" ? 1U : 0U) << name;
      text += " | " + met;
    }
    text += '\n';
  };
  for (const auto& [start, end] :
       {std::pair{4.0, 4.0}, {4.0, 4.9}, {6.0, 4.0}, {11.0, 12.0}, {nan, nan}, {4.9, 5.9}}) {
    note(Joined("from", start, "to", end), {{start, end}});
  }
  for (const double value : {nan, -1.0, 0.0, 0.999, 1.0}) {
    note(Joined("rate", value), {}, &CChannel::sampleRateHz, value);
    note(Joined("length", value), {}, &CChannel::totalLength, value);
    note(Joined("duration", value), {}, &CChannel::totalDurationMs, value);
  }
  note("rate 5e9", {}, &CChannel::sampleRateHz, 5e9);
  const double tooLong = static_cast<double>(kMaxWaveBytes) / 2.0 + 1.0;
  note("one sample too long", {}, &CChannel::totalLength, tooLong);
  ExpectText("document/expected/Refusals.txt", text);
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
