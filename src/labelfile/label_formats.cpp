// label_formats.cpp - one long table: the row of each format, and how a text is recognised.
#include "labelfile/label_formats.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <iterator>

#include "labelfile/lines.h"
#include "labelfile/plain_text.h"
#include "labelfile/text_decoding.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

constexpr std::size_t kHeadBytes = 4096;  // in which a file shows its kind

bool Holds(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string_view HeadOf(std::string_view text) { return text.substr(0, kHeadBytes); }

// The first line that is not blank.
std::string_view FirstLine(std::string_view text) {
  Lines lines(HeadOf(text));
  for (std::string_view line; lines.Next(line);) {
    if (!Trimmed(line).empty()) return line;
  }
  return {};
}

bool IsTextGrid(std::string_view text, std::string_view) {
  const std::string_view head = text.substr(0, 200);
  return text.starts_with("ooBinaryFile") || Holds(head, "\"ooTextFile") ||
         Holds(head, "\"Praat chronological");
}

bool IsElan(std::string_view text, std::string_view) {
  return Holds(HeadOf(text), "<ANNOTATION_DOCUMENT");
}

bool IsEmu(std::string_view text, std::string_view) {
  return FirstLine(text).find_first_not_of(" \t") != std::string_view::npos &&
         Trimmed(FirstLine(text)).front() == '{' && Holds(text, "\"levels\"");
}

bool IsEsps(std::string_view text, std::string_view) {
  Lines lines(HeadOf(text));
  for (std::string_view line; lines.Next(line);) {
    if (Trimmed(line) == "#") return true;
  }
  return false;
}

bool IsEspsPoints(std::string_view text, std::string_view ending) {
  return IsEsps(text, ending) && (ending == "tones" || ending == "breaks" || ending == "misc");
}

// Two whole numbers at the front of the first line.
bool BeginsWithCounts(std::string_view text) {
  std::string_view line = FirstLine(text);
  return ParseCount(TakeField(line)) && ParseCount(TakeField(line));
}

bool IsHtk(std::string_view text, std::string_view ending) {
  return text.starts_with("#!MLF!#") ||
         (BeginsWithCounts(text) && (ending == "lab" || ending == "rec"));
}

bool IsSampleLines(std::string_view text, std::string_view ending) {
  return BeginsWithCounts(text) && (ending != "txt" || !Holds(FirstLine(text), "\t"));
}

bool IsAudacity(std::string_view text, std::string_view) {
  const std::string_view line = FirstLine(text);
  const std::size_t tab = line.find('\t');
  if (tab == std::string_view::npos) return false;
  const std::string_view behind = line.substr(tab + 1);
  return ParseNumber(Trimmed(line.substr(0, tab))) &&
         ParseNumber(Trimmed(behind.substr(0, behind.find('\t'))));
}

bool HasHeading(std::string_view text, bool tabs) {
  const std::string_view line = FirstLine(text);
  if (Holds(line, "\t") != tabs) return false;
  try {
    ReadTable(line, {});
    return true;
  } catch (const LabelFileError&) {
    return false;
  }
}

bool IsCommaTable(std::string_view text, std::string_view) { return HasHeading(text, false); }
bool IsTabTable(std::string_view text, std::string_view) { return HasHeading(text, true); }

bool IsPlainText(std::string_view text, std::string_view) {
  bool found = false;
  ForEachPlainLine(HeadOf(text), [&](const PlainLine&) { found = true; });
  return found;
}

bool IsNever(std::string_view, std::string_view) { return false; }

LabelFile ReadPlainTextMs(std::string_view text, const LabelReading& how) {
  LabelReading inMs = how;
  inMs.milliseconds = true;
  return ReadPlainText(text, inMs);
}

// What the formats hold, see LabelFormatHolds.
constexpr LabelFormatHolds kTextGridHolds{.tiers = true,
                                          .points = true,
                                          .intervals = true,
                                          .oneAtATime = true,
                                          .tabs = true,
                                          .lineEnds = true,
                                          .outerBlanks = true};
constexpr LabelFormatHolds kElanHolds{.tiers = true,
                                      .uniqueNames = true,
                                      .intervals = true,
                                      .oneAtATime = true,
                                      .tabs = true,
                                      .lineEnds = true,
                                      .outerBlanks = true,
                                      .ticksPerSecond = 1e3};
constexpr LabelFormatHolds kEmuHolds{.tiers = true,
                                     .uniqueNames = true,
                                     .points = true,
                                     .intervals = true,
                                     .oneAtATime = true,
                                     .tabs = true,
                                     .lineEnds = true,
                                     .controls = true,
                                     .outerBlanks = true,
                                     .ticksPerSecond = 0.0};
constexpr LabelFormatHolds kTableHolds{.tiers = true,
                                       .uniqueNames = true,
                                       .points = true,
                                       .intervals = true,
                                       .tabs = true,
                                       .lineEnds = true,
                                       .controls = true,
                                       .outerBlanks = true};
constexpr LabelFormatHolds kPointLines{.points = true, .tabs = true};
constexpr LabelFormatHolds kSegmentLines{.intervals = true, .oneAtATime = true, .tabs = true};
constexpr LabelFormatHolds kHtkHolds{.intervals = true,
                                     .oneAtATime = true,
                                     .tabs = true,
                                     .outerBlanks = true,
                                     .ticksPerSecond = 1e7};
constexpr LabelFormatHolds kSampleHolds{
    .intervals = true, .oneAtATime = true, .tabs = true, .ticksPerSecond = 0.0};
constexpr LabelFormatHolds kAudacityHolds{.points = true, .intervals = true, .outerBlanks = true};
constexpr LabelFormatHolds kPlainHolds{
    .points = true, .tabs = true, .controls = true, .outerBlanks = true};

// The first one that recognises a text reads it.
constexpr LabelFormat kFormats[] = {
    {"textgrid", "Praat TextGrid", "*.TextGrid", "TextGrid", IsTextGrid, ReadTextGrid,
     WriteTextGrid, kTextGridHolds},
    {"eaf", "ELAN", "*.eaf", "eaf", IsElan, ReadElan, WriteElan, kElanHolds},
    {"emu", "EMU annotation", "*_annot.json; *.json", "json", IsEmu, ReadEmu, WriteEmu, kEmuHolds},
    {"esps-points", "ESPS/xwaves labels, points", "*.tones; *.breaks; *.misc; *.lab", "lab",
     IsEspsPoints, ReadEspsPoints, WriteEspsPoints, kPointLines},
    {"esps", "ESPS/xwaves labels, segments", "*.lab; *.words; *.phones", "lab", IsEsps,
     ReadEspsSegments, WriteEspsSegments, kSegmentLines},
    {"htk", "HTK labels", "*.lab; *.rec", "lab", IsHtk, ReadHtk, WriteHtk, kHtkHolds},
    {"samples", "SPHERE corpus labels", "*.phn; *.wrd; *.txt", "phn", IsSampleLines,
     ReadSampleLines, WriteSampleLines, kSampleHolds},
    {"audacity", "Audacity label track", "*.txt", "txt", IsAudacity, ReadAudacity, WriteAudacity,
     kAudacityHolds},
    {"csv", "Table with commas", "*.csv", "csv", IsCommaTable, ReadTable, WriteCommaTable,
     kTableHolds},
    {"tsv", "Table with tabs", "*.tsv; *.tab; *.txt", "tsv", IsTabTable, ReadTable, WriteTabTable,
     kTableHolds},
    {"text", "Plain text, seconds", "*.txt", "txt", IsPlainText, ReadPlainText, WritePlainText,
     kPlainHolds},
    {"text-ms", "Plain text, milliseconds", "*.txt", "txt", IsNever, ReadPlainTextMs,
     WritePlainTextMs, kPlainHolds},
};

const LabelFormat* Find(const std::function<bool(const LabelFormat&)>& fits) {
  const auto* const found = std::find_if(std::begin(kFormats), std::end(kFormats), fits);
  return found == std::end(kFormats) ? nullptr : found;
}

// Whether an ending says what is labelled, and not only of what kind the file is.
bool IsTelling(std::string_view ending) {
  static constexpr std::array<std::string_view, 12> kKinds{
      "txt", "lab", "rec", "csv", "tsv", "tab", "json", "textgrid", "eaf", "label", "labels", ""};
  return std::find(kKinds.begin(), kKinds.end(), ending) == kKinds.end();
}

}  // namespace

std::span<const LabelFormat> LabelFormats() { return kFormats; }

const LabelFormat* LabelFormatOf(std::string_view key) {
  return Find([&](const LabelFormat& format) { return format.key == key; });
}

std::string FileStem(std::string_view path) {
  const std::string_view name = path.substr(path.find_last_of('/') + 1);
  return std::string(name.substr(0, name.find_last_of('.')));
}

std::string FileEnding(std::string_view path) {
  const std::string_view name = path.substr(path.find_last_of('/') + 1);
  const std::size_t point = name.find_last_of('.');
  std::string ending(point == std::string_view::npos ? "" : name.substr(point + 1));
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending;
}

LabelFileRead ReadLabelFile(std::string_view bytes, const std::string& path,
                            const LabelFormat* format, const LabelReading& how) {
  const std::string text = DecodeText(bytes);
  const std::string ending = FileEnding(path);
  if (format == nullptr) {
    format = Find([&](const LabelFormat& row) { return row.recognises(text, ending); });
    if (format == nullptr) throw LabelFileError("it is no label file of a known format");
  }
  LabelFileRead read{format, format->read(text, how)};
  read.file.tiersNamed = read.file.tiersNamed && format->holds.tiers;
  if (read.file.tiersNamed) return read;
  for (LabelFileTier& tier : read.file.tiers) {
    tier.name = IsTelling(ending) ? ending : FileStem(path);
  }
  return read;
}

}  // namespace cantorix
