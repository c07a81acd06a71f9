// record_test.cpp - what a read accepts and guards against, and what each dialog may touch.
#include "settings/record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "platform/bytes.h"
#include "settings/settings.h"

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
  Settings read;
  ASSERT_TRUE(DecodeRecord(EncodeRecord(settings), read));
  EXPECT_EQ(read.document.zoomRangeMs, 1234.0);
  EXPECT_EQ(read.document.gain.gainPercent, -15.0);
  EXPECT_EQ(read.document.gain.reference, 2147483647.0);
  EXPECT_EQ(read.document.intensity.windowMs, 20.0);
}

TEST(Record, IsKnownByItsLengthAndVersionOnly) {
  const Record good = EncodeRecord(Unusual());
  std::vector<std::byte> longer(good.begin(), good.end());
  longer.push_back(std::byte{0});
  Record otherVersion = good;
  StoreText(otherVersion, 0, 16, "2011.05.24.E");
  Record laterText = good;
  StoreText(laterText, 0, 16, "2011.05.24.D2");
  Record junkAfterNul = good;
  junkAfterNul[14] = std::byte{0x7F};

  struct Row {
    const char* name;
    std::span<const std::byte> bytes;
    bool accepted;
  };
  const Row rows[] = {
      {"whole", good, true},
      {"one byte short", std::span(good).first(kRecordBytes - 1), false},
      {"one byte long", longer, false},
      {"empty", {}, false},
      {"other version", otherVersion, false},
      {"version with a tail", laterText, false},
      {"bytes behind the version's end", junkAfterNul, true},
  };
  for (const Row& row : rows) {
    Settings settings = Defaults();
    settings.document.pitch.stepMs = 77.0;
    EXPECT_EQ(DecodeRecord(row.bytes, settings), row.accepted) << row.name;
    const double stepMs = row.accepted ? Unusual().document.pitch.stepMs : 77.0;
    EXPECT_EQ(settings.document.pitch.stepMs, stepMs) << row.name;
  }
}

TEST(Record, GivesUsableValuesForHostileOnes) {
  for (const double rateHz : {kNaN, 0.0, -1.0, 50000.0, 1e300, kInfinity}) {
    Settings settings = Defaults();
    settings.document.referenceRateHz = rateHz;
    settings.document.fftLpc.rangeHz = 4321;
    const Record record = EncodeRecord(settings);
    EXPECT_FALSE(StoredReferenceRate(record).has_value()) << rateHz;
    ASSERT_TRUE(DecodeRecord(record, settings));
    EXPECT_EQ(settings.document.referenceRateHz, 11025.0) << rateHz;
    EXPECT_EQ(settings.document.fftLpc.rangeHz, 4321) << "the rest of the file is still used";
  }
  Settings settings = Defaults();
  settings.document.referenceRateHz = 49999.5;
  EXPECT_EQ(StoredReferenceRate(EncodeRecord(settings)), 49999.5);

  Record hostile = EncodeRecord(Unusual());
  StoreLittle(std::span<std::byte>(hostile), 928, 0);
  StoreLittle(std::span<std::byte>(hostile), 932, 0);
  StoreLittle(std::span<std::byte>(hostile), 1040, kNaN);
  StoreLittle(std::span<std::byte>(hostile), 960, -kInfinity);
  StoreLittle(std::span<std::byte>(hostile), 852, 1 << 30);
  StoreLittle(std::span<std::byte>(hostile), 940, -64);
  std::fill_n(hostile.begin() + 208, 64, std::byte{'x'});  // no NUL
  ASSERT_TRUE(DecodeRecord(hostile, settings));
  EXPECT_EQ(settings.document.intensity.windowMs, 20.0);
  EXPECT_EQ(settings.document.intensity.stepMs, 10.0);
  EXPECT_EQ(settings.document.pitch.stepMs, 10.0);
  EXPECT_EQ(settings.document.spectrogram.preEmphasis, 0.98);
  EXPECT_EQ(settings.document.fftLpc.points, 256);
  EXPECT_EQ(settings.document.fftLpc.sizeIndex, 3);
  EXPECT_EQ(settings.document.spectrogram.points, 64);
  EXPECT_EQ(settings.document.spectrogram.sizeIndex, 2);
  EXPECT_EQ(settings.document.tierNames[0], std::string(63, 'x'));
  EXPECT_EQ(settings.document.tierNames[1], Unusual().document.tierNames[1]);
}

TEST(PatchRecord, ChangesOnlyTheBytesOfItsDialog) {
  struct Span {
    std::size_t begin, end;  // half-open
  };
  struct Row {
    SettingsDialog dialog;
    std::vector<Span> spans;
  };
  const Row rows[] = {
      {SettingsDialog::kRecordPlay, {{16, 20}, {104, 112}, {112, 116}, {120, 124}}},
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
  const Record before = EncodeRecord(Defaults());
  const Record wanted = EncodeRecord(Unusual());
  for (const Row& row : rows) {
    Record after = before;
    ASSERT_TRUE(PatchRecord(after, row.dialog, Unusual()));
    Record expected = before;
    for (const Span& span : row.spans) {
      std::copy(wanted.begin() + static_cast<std::ptrdiff_t>(span.begin),
                wanted.begin() + static_cast<std::ptrdiff_t>(span.end),
                expected.begin() + static_cast<std::ptrdiff_t>(span.begin));
    }
    EXPECT_EQ(after, expected) << "dialog " << static_cast<int>(row.dialog);
  }
}

TEST(PatchRecord, KeepsBytesThatNoFieldCovers) {
  Record record = EncodeRecord(Defaults());
  record[180] = std::byte{0xAB};
  record[1080] = std::byte{0xCD};
  ASSERT_TRUE(PatchRecord(record, SettingsDialog::kDisplay, Unusual()));
  ASSERT_TRUE(PatchRecord(record, SettingsDialog::kPitch, Unusual()));
  EXPECT_EQ(record[180], std::byte{0xAB});
  EXPECT_EQ(record[1080], std::byte{0xCD});
}

TEST(DefaultSettings, FollowTheReferenceRate) {
  struct Row {
    double rateHz;
    std::int32_t windowMs, rangeHz, lpcOrder;
  };
  for (const Row& row : {Row{8000.0, 32, 4000, 12},
                         {11025.0, 23, 5000, 14},
                         {16000.0, 16, 8000, 20},
                         {22050.0, 11, 11000, 26},
                         {44100.0, 5, 22000, 48}}) {
    const DocumentSettings settings = DefaultDocumentSettings(row.rateHz);
    EXPECT_EQ(settings.fftLpc.windowMs, row.windowMs) << row.rateHz;
    EXPECT_EQ(settings.fftLpc.rangeHz, row.rangeHz) << row.rateHz;
    EXPECT_EQ(settings.spectrogram.rangeHz, row.rangeHz) << row.rateHz;
    EXPECT_EQ(settings.fftLpc.lpcOrder, row.lpcOrder) << row.rateHz;
    EXPECT_EQ(settings.spectrogram.lpcOrder, row.lpcOrder) << row.rateHz;
  }
}

}  // namespace
}  // namespace cantorix
