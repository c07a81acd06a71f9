// statistics_texts.cpp - names with their units, and a few sentences.
#include "mainview/statistics_texts.h"

#include <array>
#include <cctype>

#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr const char* kDash = "\u2013";
constexpr std::array<const char*, kStatisticsNames.size()> kUnits{
    "ms", "ms", "ms", "Hz", "Hz", "Hz", "Hz", "Hz", "%",
    "dB", "dB", "",   "",   "Hz", "Hz", "Hz", "Hz", "Hz"};
constexpr std::size_t kTimes = 3;  // of them, which stand first

std::string Capitalised(std::string name) {
  name.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(name.front())));
  return name;
}

// "voiced %" has its unit in its name.
std::string NameOf(std::size_t index) {
  std::string name = kStatisticsNames[index].inLog;
  if (name.ends_with(" %")) name.resize(name.size() - 2);
  return Capitalised(std::move(name));
}

std::string PitchNote(const CSonadexView& view, const SelectionStatistics& statistics) {
  if (statistics.entries == 0) return {};
  const double stepMs = view.pitch.range.length() * view.channel().msPerSample() /
                        static_cast<double>(view.pitch.count());
  const bool cepstral = view.document().settings.pitch.method == 0;
  std::string note = std::string("Pitch: ") + (cepstral ? "Cepstral" : "AutoCorrolation") + ", " +
                     std::to_string(statistics.voiced) + " voiced of " +
                     std::to_string(statistics.entries) + " entries, one each " +
                     FormatOneDecimal(stepMs) + " ms.\n";
  if (!statistics.pitch) return note;
  return note + "Mean of the voiced entries. 'Average Pitch' below the view is a running average " +
         "that weights the end (" + FormatOneDecimal(view.readouts.averagePitchHz) + ").\n";
}

}  // namespace

std::vector<StatisticsLine> StatisticsLines(const CSonadexView& view,
                                            const SelectionStatistics* statistics) {
  const std::int32_t timeBase = view.document().settings.display.timeBase;
  std::vector<std::optional<double>> values(kStatisticsNames.size());
  if (statistics != nullptr) values = StatisticsValues(*statistics, timeBase);
  std::vector<StatisticsLine> lines;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const bool seconds = i < kTimes && timeBase != 0;
    lines.push_back({NameOf(i),
                     values[i] ? FormatDecimals(*values[i], seconds ? 3 : 1) : std::string(kDash),
                     seconds ? "s" : kUnits[i]});
  }
  return lines;
}

std::string StatisticsNote(const CSonadexView& view, const SelectionStatistics& statistics,
                           const SpectrogramSettings* settings) {
  std::string note = PitchNote(view, statistics);
  if (statistics.columns > 0 && settings != nullptr) {
    note += "Formants: mean over " + std::to_string(statistics.columns) +
            " columns of the spectrogram, order " + std::to_string(settings->lpcOrder) + ", " +
            std::to_string(settings->points) + " points.\n";
  }
  if (!note.empty()) note.pop_back();
  return note;
}

}  // namespace cantorix
