// record_layout_test.cpp - the record's places, types and defaults, and what is said of each field,
// against the list of all settings in fields.txt, which no program writes.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/bytes.h"
#include "settings/field_text.h"
#include "settings/record.h"
#include "settings/settings.h"
#include "support/samples.h"

namespace cantorix {
namespace {

// A line of the list: name, offset, type, default, unit and meaning.
struct Listed {
  explicit Listed(const std::string& text) : line(text) {
    std::istringstream cells(text);
    for (std::string& cell : cell_) std::getline(cells, cell, '\t');
  }
  std::size_t offset() const { return std::stoul(cell_[1]); }
  const std::string& value() const { return cell_[3]; }
  void Store(Record& record, const std::string& text) const {
    const std::span<std::byte> bytes(record);
    if (cell_[2] == "text") return StoreText(bytes, offset(), kFieldTextBytes, text);
    if (cell_[2] == "double") return StoreLittle(bytes, offset(), std::stod(text));
    StoreLittle(bytes, offset(), static_cast<std::int32_t>(std::stoi(text)));
  }

  std::string line;

 private:
  std::array<std::string, 6> cell_;
};

std::vector<Listed> List() {
  std::ifstream file(SamplesDirectory() + "/../tests/settings/fields.txt");
  std::vector<Listed> list;
  for (std::string line; std::getline(file, line);) list.emplace_back(line);
  return list;
}

// The values in the order of the list.
std::vector<FieldValue> Members(Settings& settings) {
  ApplicationSettings& a = settings.application;
  DocumentSettings& d = settings.document;
  std::vector<FieldValue> members{&a.memoryMinutes};
  for (auto* window : {&a.mainView, &a.fftLpc, &a.spectrogram, &a.log, &a.labelList}) {
    members.insert(members.end(), {&window->x, &window->y, &window->width, &window->height});
  }
  DisplaySettings& y = d.display;
  members.insert(members.end(), {&d.referenceRateHz,  &y.automaticAnalysis,  &y.printUnit,
                                 &y.recordingInput,   &y.trackMouse,         &y.printWidth,
                                 &y.printHeight,      &y.drawAudio,          &y.drawIntensity,
                                 &y.timeBase,         &y.intensityInOwnPane, &y.drawPitch,
                                 &y.drawTiers,        &y.drawGrids,          &y.audioPanePercent,
                                 &y.pitchPanePercent, &d.zoomRangeMs,        &d.gain.gainPercent,
                                 &d.gain.reference,   &d.carried1,           &d.carried2});
  for (std::string& name : d.tierNames) members.emplace_back(&name);
  FftLpcSettings& f = d.fftLpc;
  members.insert(members.end(),
                 {&f.sizeIndex,         &f.points,       &f.windowMs,           &f.stepMs,
                  &f.rangeHz,           &f.relative,     &f.absoluteDb,         &f.blackWhite,
                  &f.printWidth,        &f.printHeight,  &f.printUnit,          &f.addFrequencyGrid,
                  &f.frequencyGridHz,   &f.addPowerGrid, &f.powerGridDb,        &f.lpcOrder,
                  &f.drawLpc,           &d.logStepHz,    &d.intensity.windowMs, &d.intensity.stepMs,
                  &d.intensity.relative});
  SpectrogramSettings& g = d.spectrogram;
  members.insert(
      members.end(),
      {&g.points, &g.sizeIndex, &g.rangeHz, &g.dynamicRangeDb, &g.preEmphasis, &g.displayFormants,
       &g.lpcOrder, &g.trackFormants, &g.printWidth, &g.printHeight, &g.drawAudio, &g.drawIntensity,
       &g.drawLabels, &g.addFrequencyGrid, &g.frequencyGridHz, &g.addTimeGrid, &g.timeGridMs});
  PitchSettings& p = d.pitch;
  members.insert(
      members.end(),
      {&p.windowMs, &p.stepMs, &p.highHz, &p.lowHz, &p.displayHighHz, &p.displayLowHz,
       &p.addFrequencyGrid, &p.frequencyGridHz, &p.method, &p.thresholdPercent, &p.deviationHz,
       &p.voicingLevel, &p.tolerancePercent, &d.generic.headerBytes, &d.generic.rateHz,
       &d.generic.sixteenBit, &d.generic.highByteFirst, &d.generic.binary});
  return members;
}

void ExpectBytes(const Record& record, const Record& expected) {
  for (std::size_t i = 0; i < kRecordBytes; ++i) EXPECT_EQ(record[i], expected[i]) << "byte " << i;
}

TEST(Record, ListsItsFieldsAsTheListDoes) {
  const Settings defaults{{}, DefaultDocumentSettings()};
  const std::vector<Listed> list = List();
  ASSERT_EQ(list.size(), Fields().size());
  for (std::size_t i = 0; i < list.size(); ++i) {
    const Field& field = Fields()[i];
    const char* const type = field.storage == Storage::kText     ? "\ttext\t"
                             : field.storage == Storage::kDouble ? "\tdouble\t"
                                                                 : "\tint32\t";
    std::ostringstream line;
    line << field.group << '.' << field.name << '\t' << field.offset << type
         << FieldText(defaults, field) << '\t' << field.unit << '\t' << field.description;
    EXPECT_EQ(line.str(), list[i].line);
  }
}

TEST(Record, OfAFirstRunHoldsTheDefaultsInTheirPlacesAndZerosElsewhere) {
  Record expected{};
  StoreText(expected, 0, 16, "2011.05.24.D");
  for (const Listed& listed : List()) listed.Store(expected, listed.value());
  ExpectBytes(EncodeRecord({{}, DefaultDocumentSettings()}), expected);
}

TEST(Record, HoldsEveryValueInItsOwnPlace) {
  Settings settings{{}, DefaultDocumentSettings()};
  Record expected = EncodeRecord(settings);
  const std::vector<Listed> list = List();
  const std::vector<FieldValue> members = Members(settings);
  ASSERT_EQ(members.size(), list.size());
  for (std::size_t i = 0; i < list.size(); ++i) {
    list[i].Store(expected, std::to_string(1000 + i));
    std::visit(
        [i](auto* member) {
          if constexpr (std::is_same_v<decltype(member), std::string*>) {
            *member = std::to_string(1000 + i);
          } else {
            *member = static_cast<std::decay_t<decltype(*member)>>(1000 + i);
          }
        },
        members[i]);
  }
  ExpectBytes(EncodeRecord(settings), expected);
}

}  // namespace
}  // namespace cantorix
