// table_reader.cpp - a table with a heading: the heading tells by the names of its columns where
// tier, start, end and text stand and in which unit; other columns are passed over.
#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <map>
#include <optional>

#include "labelfile/format_readers.h"
#include "labelfile/lines.h"
#include "labelfile/table_records.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

constexpr double kMsPerSecond = 1000.0;

enum class Column { kTier, kStart, kEnd, kText, kOther };

struct Heading {
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);
  std::size_t tier = kNowhere, start = kNowhere, end = kNowhere, text = kNowhere;
  double startUnitS = 1.0, endUnitS = 1.0;
  std::size_t columns = 0;
};

// Small letters, without what stands around them.
std::string Plain(std::string_view name) {
  std::string plain(Trimmed(name));
  std::transform(plain.begin(), plain.end(), plain.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return plain;
}

// Takes a unit off the end of a column's name, "time_ms" or "start (s)"; seconds without one.
double TakeUnit(std::string& name) {
  struct Unit {
    std::string_view ending;
    double seconds;
  };
  static constexpr std::array<Unit, 8> kUnits{{{"_ms", 1e-3},
                                               {" ms", 1e-3},
                                               {"(ms)", 1e-3},
                                               {"[ms]", 1e-3},
                                               {"_s", 1.0},
                                               {" s", 1.0},
                                               {"(s)", 1.0},
                                               {"[s]", 1.0}}};
  for (const Unit& unit : kUnits) {
    if (!name.ends_with(unit.ending)) continue;
    name = Trimmed(std::string_view(name).substr(0, name.size() - unit.ending.size()));
    return unit.seconds;
  }
  return 1.0;
}

Column ColumnNamed(const std::string& name) {
  static const std::map<std::string, Column, std::less<>> kNames{
      {"tier", Column::kTier},   {"level", Column::kTier},     {"start", Column::kStart},
      {"time", Column::kStart},  {"tmin", Column::kStart},     {"xmin", Column::kStart},
      {"begin", Column::kStart}, {"onset", Column::kStart},    {"end", Column::kEnd},
      {"tmax", Column::kEnd},    {"xmax", Column::kEnd},       {"offset", Column::kEnd},
      {"text", Column::kText},   {"label", Column::kText},     {"labels", Column::kText},
      {"mark", Column::kText},   {"annotation", Column::kText}};
  const auto found = kNames.find(name);
  return found == kNames.end() ? Column::kOther : found->second;
}

Heading HeadingOf(const std::vector<std::string>& cells) {
  Heading heading;
  heading.columns = cells.size();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    std::string name = Plain(cells[i]);
    const double unitS = TakeUnit(name);
    switch (ColumnNamed(name)) {
      case Column::kTier:
        heading.tier = i;
        break;
      case Column::kStart:
        heading.start = i;
        heading.startUnitS = unitS;
        break;
      case Column::kEnd:
        heading.end = i;
        heading.endUnitS = unitS;
        break;
      case Column::kText:
        heading.text = i;
        break;
      case Column::kOther:
        break;
    }
  }
  if (heading.start == Heading::kNowhere || heading.text == Heading::kNowhere) {
    throw LabelFileError(
        "the heading names no column of times (start, time) and texts (text, label)");
  }
  return heading;
}

double TimeIn(const std::string& cell, double unitS, std::size_t line) {
  const auto time = ParseNumber(Trimmed(cell));
  if (!time) RefuseLine(line, Quoted(cell) + " is no time");
  // Divided, so that whole milliseconds stay the nearest number.
  return unitS == 1.0 ? *time : *time / kMsPerSecond;
}

LabelFileTier& TierNamed(LabelFile& file, std::map<std::string, std::size_t>& places,
                         const std::string& name) {
  const auto [place, isNew] = places.try_emplace(name, file.tiers.size());
  if (isNew) file.tiers.emplace_back().name = name;
  return file.tiers[place->second];
}

}  // namespace

LabelFile ReadTable(std::string_view text, const LabelReading&) {
  TableRecords records(text);
  std::vector<std::string> cells;
  if (!records.Next(cells)) throw LabelFileError("the file is empty");
  const Heading heading = HeadingOf(cells);
  LabelFile file;
  file.tiersNamed = heading.tier != Heading::kNowhere;
  std::map<std::string, std::size_t> places;
  while (records.Next(cells)) {
    if (cells.size() == 1 && cells[0].empty()) continue;
    if (cells.size() != heading.columns) {
      RefuseLine(records.line(), CountOf(cells.size(), "cell") + " under a heading of " +
                                     std::to_string(heading.columns));
    }
    TimedLabel label;
    label.startS = TimeIn(cells[heading.start], heading.startUnitS, records.line());
    const bool ended = heading.end != Heading::kNowhere && !Trimmed(cells[heading.end]).empty();
    label.endS =
        ended ? TimeIn(cells[heading.end], heading.endUnitS, records.line()) : label.startS;
    label.text = cells[heading.text];
    LabelFileTier& tier =
        TierNamed(file, places, file.tiersNamed ? cells[heading.tier] : std::string());
    tier.intervals = tier.intervals || label.endS > label.startS;
    tier.labels.push_back(std::move(label));
  }
  return file;
}

}  // namespace cantorix
