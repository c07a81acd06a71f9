// record_layout_test.cpp - the places of the settings record against a list written out by hand.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/bytes.h"
#include "settings/record.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// What the file of a first run holds, by hand: each place but the texts', its width, its default
// and the value it belongs to.
enum Width { kWhole, kReal };  // a 32-bit integer, a double
struct Expected {
  std::size_t offset;
  Width width;
  double value;
  std::variant<std::int32_t*, double*> member;
};

std::vector<Expected> ExpectedLayout(Settings& settings) {
  ApplicationSettings& a = settings.application;
  DocumentSettings& d = settings.document;
  DisplaySettings& y = d.display;
  FftLpcSettings& f = d.fftLpc;
  SpectrogramSettings& g = d.spectrogram;
  PitchSettings& p = d.pitch;
  return {
      {16, kWhole, 5, &a.memoryMinutes},
      {20, kWhole, 0, &a.mainView.x},
      {24, kWhole, 0, &a.mainView.y},
      {28, kWhole, 0, &a.mainView.width},
      {32, kWhole, 0, &a.mainView.height},
      {36, kWhole, 0, &a.fftLpc.x},
      {40, kWhole, 0, &a.fftLpc.y},
      {44, kWhole, 0, &a.fftLpc.width},
      {48, kWhole, 0, &a.fftLpc.height},
      {52, kWhole, 0, &a.spectrogram.x},
      {56, kWhole, 0, &a.spectrogram.y},
      {60, kWhole, 0, &a.spectrogram.width},
      {64, kWhole, 0, &a.spectrogram.height},
      {68, kWhole, 0, &a.log.x},
      {72, kWhole, 0, &a.log.y},
      {76, kWhole, 0, &a.log.width},
      {80, kWhole, 0, &a.log.height},
      {84, kWhole, 0, &a.labelList.x},
      {88, kWhole, 0, &a.labelList.y},
      {92, kWhole, 0, &a.labelList.width},
      {96, kWhole, 0, &a.labelList.height},
      {104, kReal, 11025.0, &d.referenceRateHz},
      {112, kWhole, 0, &y.automaticAnalysis},
      {116, kWhole, 0, &y.printUnit},
      {120, kWhole, 0, &y.recordingInput},
      {124, kWhole, 0, &y.trackMouse},
      {128, kReal, 6.0, &y.printWidth},
      {136, kReal, 4.0, &y.printHeight},
      {144, kWhole, 1, &y.drawAudio},
      {148, kWhole, 1, &y.drawIntensity},
      {152, kWhole, 0, &y.timeBase},
      {156, kWhole, 0, &y.intensityInOwnPane},
      {160, kWhole, 1, &y.drawPitch},
      {164, kWhole, 1, &y.drawTiers},
      {168, kWhole, 1, &y.drawGrids},
      {172, kWhole, 50, &y.audioPanePercent},
      {176, kWhole, 50, &y.pitchPanePercent},
      {184, kWhole, 1000, &d.zoomRangeMs},
      {192, kWhole, 0, &d.gain.gainPercent},
      {196, kWhole, 0, &d.gain.reference},
      {200, kWhole, 0, &d.carried1},
      {204, kWhole, 0, &d.carried2},
      {848, kWhole, 3, &f.sizeIndex},
      {852, kWhole, 256, &f.points},
      {856, kWhole, 23, &f.windowMs},
      {860, kWhole, 10, &f.stepMs},
      {864, kWhole, 5000, &f.rangeHz},
      {868, kWhole, 1, &f.relative},
      {872, kWhole, 80, &f.absoluteDb},
      {876, kWhole, 1, &f.blackWhite},
      {880, kReal, 6.0, &f.printWidth},
      {888, kReal, 4.0, &f.printHeight},
      {896, kWhole, 0, &f.printUnit},
      {900, kWhole, 1, &f.addFrequencyGrid},
      {904, kWhole, 1000, &f.frequencyGridHz},
      {908, kWhole, 1, &f.addPowerGrid},
      {912, kWhole, 20, &f.powerGridDb},
      {916, kWhole, 14, &f.lpcOrder},
      {920, kWhole, 1, &f.drawLpc},
      {924, kWhole, 10, &d.logStepHz},
      {928, kWhole, 20, &d.intensity.windowMs},
      {932, kWhole, 10, &d.intensity.stepMs},
      {936, kWhole, 0, &d.intensity.relative},
      {940, kWhole, 64, &g.points},
      {944, kWhole, 2, &g.sizeIndex},
      {948, kWhole, 5000, &g.rangeHz},
      {952, kWhole, 35, &g.dynamicRangeDb},
      {960, kReal, 0.98, &g.preEmphasis},
      {968, kWhole, 1, &g.displayFormants},
      {972, kWhole, 14, &g.lpcOrder},
      {976, kWhole, 1, &g.trackFormants},
      {984, kReal, 6.0, &g.printWidth},
      {992, kReal, 4.0, &g.printHeight},
      {1000, kWhole, 0, &g.drawAudio},
      {1004, kWhole, 0, &g.drawIntensity},
      {1008, kWhole, 0, &g.drawLabels},
      {1012, kWhole, 1, &g.addFrequencyGrid},
      {1016, kWhole, 1000, &g.frequencyGridHz},
      {1020, kWhole, 1, &g.addTimeGrid},
      {1024, kWhole, 500, &g.timeGridMs},
      {1032, kReal, 35.0, &p.windowMs},
      {1040, kReal, 10.0, &p.stepMs},
      {1048, kReal, 500.0, &p.highHz},
      {1056, kReal, 50.0, &p.lowHz},
      {1064, kWhole, 500, &p.displayHighHz},
      {1068, kWhole, 50, &p.displayLowHz},
      {1072, kWhole, 1, &p.addFrequencyGrid},
      {1076, kWhole, 20, &p.frequencyGridHz},
      {1088, kWhole, 1, &p.method},
      {1096, kReal, 1.0, &p.thresholdPercent},
      {1104, kReal, 100.0, &p.deviationHz},
      {1112, kReal, 1.0, &p.voicingLevel},
      {1120, kReal, 100.0, &p.tolerancePercent},
      {1128, kWhole, 0, &d.generic.headerBytes},
      {1132, kWhole, 10000, &d.generic.rateHz},
      {1136, kWhole, 1, &d.generic.sixteenBit},
      {1140, kWhole, 1, &d.generic.highByteFirst},
      {1144, kWhole, 1, &d.generic.binary},
  };
}

void StoreExpected(Record& record, const Expected& row, double value) {
  if (row.width == kReal) return StoreLittle(std::span<std::byte>(record), row.offset, value);
  StoreLittle(std::span<std::byte>(record), row.offset, static_cast<std::int32_t>(value));
}

Settings Defaults() { return {{}, DefaultDocumentSettings()}; }

void ExpectBytes(const Record& record, const Record& expected) {
  for (std::size_t i = 0; i < kRecordBytes; ++i) EXPECT_EQ(record[i], expected[i]) << "byte " << i;
}

TEST(Record, OfAFirstRunHoldsTheDefaultsInTheirPlacesAndZerosElsewhere) {
  Settings settings = Defaults();
  Record expected{};
  StoreText(expected, 0, 16, "2011.05.24.D");
  for (const Expected& row : ExpectedLayout(settings)) StoreExpected(expected, row, row.value);
  const char* const tiers[] = {"tones", "words", "breaks", "misc"};
  for (std::size_t i = 0; i < 4; ++i) StoreText(expected, 208 + 64 * i, 64, tiers[i]);
  ExpectBytes(EncodeRecord(settings), expected);
}

TEST(Record, HoldsEveryValueInItsOwnPlace) {
  Settings settings = Defaults();
  Record expected = EncodeRecord(settings);
  double next = 1000.0;
  for (const Expected& row : ExpectedLayout(settings)) {
    next += 1.0;
    StoreExpected(expected, row, next);
    std::visit([&](auto* member) { *member = static_cast<std::decay_t<decltype(*member)>>(next); },
               row.member);
  }
  for (std::size_t i = 0; i < 10; ++i) {
    settings.document.tierNames[i] = "tier " + std::to_string(i);
    StoreText(expected, 208 + 64 * i, 64, "tier " + std::to_string(i));
  }
  ExpectBytes(EncodeRecord(settings), expected);
}

TEST(Record, HasNoFieldBeyondTheListedOnesAndNoOverlap) {
  Settings settings;
  EXPECT_EQ(Fields().size(), ExpectedLayout(settings).size() + settings.document.tierNames.size());
  std::size_t end = 16;
  for (const Field& field : Fields()) {
    EXPECT_GE(field.offset, end) << field.name << " overlaps its neighbour";
    end = field.offset + StoredBytes(field.storage);
  }
  EXPECT_LE(end, kRecordBytes);
}

}  // namespace
}  // namespace cantorix
