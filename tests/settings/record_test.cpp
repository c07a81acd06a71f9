// record_test.cpp - what a read accepts and guards against, and what each dialog may touch.
#include "settings/record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "platform/bytes.h"
#include "settings/settings.h"
#include "support/joined.h"

namespace cantorix {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

Settings Defaults() { return {{}, DefaultDocumentSettings()}; }

// A record whose every field differs from its default and from its neighbours.
Settings Unusual() {
  Settings settings = Defaults();
  std::int32_t next = 1000;
  for (const Field& field : Fields()) {
    const FieldValue value = field.place.in(settings);
    ++next;
    if (field.storage == Storage::kText) {
      *std::get<std::string*>(value) = "tier " + std::to_string(next);
    } else if (field.storage == Storage::kInt32) {
      *std::get<std::int32_t*>(value) = -next;
    } else {
      *std::get<double*>(value) = next + (field.storage == Storage::kDouble ? 0.25 : 0.0);
    }
  }
  settings.document.fftLpc.points = 2048;
  settings.document.spectrogram.points = 8192;
  settings.document.fftLpc.stepMs = 77;
  settings.document.fftLpc.lpcOrder = 0;
  settings.document.spectrogram.lpcOrder = 400;
  return settings;
}

TEST(Record, ComesBackUnchanged) {
  const Record written = EncodeRecord(Unusual());
  Settings read;
  ASSERT_TRUE(DecodeRecord(written, read));
  EXPECT_EQ(read.document.referenceRateHz, Unusual().document.referenceRateHz);
  EXPECT_EQ(read.document.tierNames, Unusual().document.tierNames);
  EXPECT_EQ(EncodeRecord(read), written);
}

TEST(Record, TruncatesTheDoublesThatAreKeptWhole) {
  Settings settings = Defaults();
  settings.document.zoomRangeMs = 1234.7;
  settings.document.gain = {-15.9, 1e30};
  settings.document.intensity.windowMs = 20.99;
  ASSERT_TRUE(DecodeRecord(EncodeRecord(settings), settings));
  const DocumentSettings& read = settings.document;
  EXPECT_EQ(
      Joined(read.zoomRangeMs, read.gain.gainPercent, read.gain.reference, read.intensity.windowMs),
      "1234 -15 2147483647 20");
}

TEST(Record, IsKnownByItsLengthAndVersionOnly) {
  const Record good = EncodeRecord(Unusual());
  const auto with = [&good](const char* version) {
    Record record = good;
    StoreText(record, 0, 16, version);
    return record;
  };
  std::vector<std::byte> longer(good.begin(), good.end());
  longer.push_back(std::byte{0});
  const Record otherVersion = with("2011.05.24.E");
  const Record laterText = with("2011.05.24.D2");
  Record junkAfterNul = good;
  junkAfterNul[14] = std::byte{0x7F};
  const struct {
    const char* name;
    std::span<const std::byte> bytes;
    bool accepted;
  } rows[] = {
      {"whole", good, true},
      {"one byte short", std::span(good).first(kRecordBytes - 1), false},
      {"one byte long", longer, false},
      {"empty", {}, false},
      {"other version", otherVersion, false},
      {"version with a tail", laterText, false},
      {"bytes behind the version's end", junkAfterNul, true},
  };
  for (const auto& row : rows) {
    Settings settings = Defaults();
    settings.document.pitch.stepMs = 77.0;
    EXPECT_EQ(DecodeRecord(row.bytes, settings), row.accepted) << row.name;
    const double stepMs = row.accepted ? Unusual().document.pitch.stepMs : 77.0;
    EXPECT_EQ(settings.document.pitch.stepMs, stepMs) << row.name;
  }
}

TEST(Record, GivesUsableValuesForHostileOnes) {
  Settings settings = Defaults();
  for (const double rateHz : {kNaN, 0.0, -1.0, 50000.0, 1e300, kInfinity}) {
    settings.document.referenceRateHz = rateHz;
    settings.document.fftLpc.rangeHz = 4321;
    const Record record = EncodeRecord(settings);
    EXPECT_FALSE(StoredReferenceRate(record).has_value()) << rateHz;
    ASSERT_TRUE(DecodeRecord(record, settings));
    EXPECT_EQ(settings.document.referenceRateHz, 11025.0) << rateHz;
    EXPECT_EQ(settings.document.fftLpc.rangeHz, 4321) << "the rest of the file is still used";
  }
  settings.document.referenceRateHz = 49999.5;
  EXPECT_EQ(StoredReferenceRate(EncodeRecord(settings)), 49999.5);
  EXPECT_EQ(StoredReferenceRate({}), std::nullopt);

  Record hostile = EncodeRecord(Unusual());
  const std::span<std::byte> bytes(hostile);
  StoreLittle(bytes, 928, 0);
  StoreLittle(bytes, 932, 0);
  StoreLittle(bytes, 1040, kNaN);
  StoreLittle(bytes, 960, -kInfinity);
  StoreLittle(bytes, 852, 1 << 30);
  StoreLittle(bytes, 940, 33);
  StoreLittle(bytes, 860, 0);
  StoreLittle(bytes, 916, 401);
  StoreLittle(bytes, 972, -1);
  std::fill_n(hostile.begin() + 208, 64, std::byte{'x'});  // no NUL
  ASSERT_TRUE(DecodeRecord(hostile, settings));
  const DocumentSettings& read = settings.document;
  EXPECT_EQ(Joined(read.intensity.windowMs, read.intensity.stepMs, read.pitch.stepMs,
                   read.spectrogram.preEmphasis, read.fftLpc.points, read.fftLpc.sizeIndex,
                   read.spectrogram.points, read.spectrogram.sizeIndex, read.fftLpc.stepMs,
                   read.fftLpc.lpcOrder, read.spectrogram.lpcOrder),
            "20 10 10 0.98 256 3 64 2 10 14 14");
  EXPECT_EQ(read.tierNames[0], std::string(63, 'x'));
  EXPECT_EQ(read.tierNames[1], Unusual().document.tierNames[1]);
}

TEST(PatchRecord, ChangesOnlyTheBytesOfItsDialog) {
  const struct {
    SettingsDialog dialog;
    std::vector<std::pair<std::size_t, std::size_t>> spans;  // half-open
  } rows[] = {
      {SettingsDialog::kRecordPlay, {{16, 20}, {104, 116}, {120, 124}}},
      {SettingsDialog::kDisplay, {{116, 120}, {124, 184}}},
      {SettingsDialog::kZoom, {{184, 188}}},
      {SettingsDialog::kGain, {{192, 200}}},
      {SettingsDialog::kTiers, {{208, 848}}},
      {SettingsDialog::kFftLpc, {{848, 924}}},
      {SettingsDialog::kLog, {{924, 928}}},
      {SettingsDialog::kIntensity, {{928, 940}}},
      {SettingsDialog::kSpectrogram, {{940, 1028}}},
      {SettingsDialog::kPitch, {{1032, 1128}}},
  };
  Record before = EncodeRecord(Defaults());
  Record wanted = EncodeRecord(Unusual());
  for (const std::size_t unused : {180, 1080}) before[unused] = wanted[unused] = std::byte{0xAB};
  for (const auto& row : rows) {
    Record after = before;
    ASSERT_TRUE(PatchRecord(after, row.dialog, Unusual()));
    for (std::size_t i = 0; i < kRecordBytes; ++i) {
      const bool patched = std::any_of(row.spans.begin(), row.spans.end(), [i](const auto& span) {
        return span.first <= i && i < span.second;
      });
      EXPECT_EQ(after[i], patched ? wanted[i] : before[i])
          << "byte " << i << " of dialog " << static_cast<int>(row.dialog);
    }
  }
}

TEST(DefaultSettings, FollowTheReferenceRate) {
  const std::pair<double, const char*> rows[] = {{8000.0, "32 4000 4000 12 12"},
                                                 {11025.0, "23 5000 5000 14 14"},
                                                 {16000.0, "16 8000 8000 20 20"},
                                                 {22050.0, "11 11000 11000 26 26"},
                                                 {44100.0, "5 22000 22000 48 48"}};
  for (const auto& [rateHz, expected] : rows) {
    const DocumentSettings settings = DefaultDocumentSettings(rateHz);
    EXPECT_EQ(settings.referenceRateHz, rateHz);
    EXPECT_EQ(
        Joined(settings.fftLpc.windowMs, settings.fftLpc.rangeHz, settings.spectrogram.rangeHz,
               settings.fftLpc.lpcOrder, settings.spectrogram.lpcOrder),
        expected);
  }
}

}  // namespace
}  // namespace cantorix
