// corpus_list.cpp - folders walked and tables read.
#include "measure/corpus_list.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "labelfile/label_formats.h"
#include "measure/printable.h"
#include "measure/wrong_usage.h"
#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/text.h"

namespace cantorix {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 17> kRecordingEndings{
    "wav", "qrv", "aif", "aiff", "aifc", "au",  "snd",  "flac", "ogg",
    "oga", "mp3", "sph", "nist", "nsp",  "w64", "rf64", "sd"};
constexpr const char* kNameColumn = "recording";

template <typename Words>
bool IsAmong(const Words& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsTable(const std::string& path) {
  return IsAmong(std::array<std::string_view, 3>{"tsv", "csv", "txt"}, FileEnding(path));
}

// Cells may stand in quotes, with quotes in them doubled.
std::vector<std::string> CellsOf(std::string_view line, char separator) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool doubled = quoted && line.substr(i, 2) == "\"\"";
    if (doubled) {
      cells.back() += line[i++];
    } else if (line[i] == '"' && (quoted || cells.back().empty())) {
      quoted = !quoted;
    } else if (line[i] == separator && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += line[i];
    }
  }
  return cells;
}

void AddFolder(const std::string& folder, CorpusList& list) {
  std::vector<std::string> found;
  for (const auto& file : fs::recursive_directory_iterator(folder)) {
    if (!file.is_regular_file()) continue;
    std::string path = file.path().string();
    if (IsAmong(kRecordingEndings, FileEnding(path))) found.push_back(std::move(path));
  }
  std::sort(found.begin(), found.end());
  for (std::string& path : found) list.entries.push_back({path, Printable(path)});
}

CorpusList ReadTable(const std::string& path, const std::string& column) {
  const std::string bytes = ReadWholeFile(path);
  std::string_view rest = bytes;
  const std::string_view first = TakeLine(rest);
  const char separator = first.find('\t') == std::string_view::npos ? ',' : '\t';
  const auto names = CellsOf(first, separator);
  const auto place = column.empty() ? names.begin() : std::find(names.begin(), names.end(), column);
  if (place == names.end()) throw WrongUsage(path + ": there is no column " + column);
  const auto pathIndex = static_cast<std::size_t>(place - names.begin());

  CorpusList list{{kNameColumn}, {}};
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i != pathIndex) list.columns.push_back(Printable(names[i]));
  }
  for (std::string_view line = TakeLine(rest); !line.empty(); line = TakeLine(rest)) {
    const auto cells = CellsOf(line, separator);
    if (cells.size() != names.size()) {
      throw WrongUsage(path + ": a row of " + std::to_string(cells.size()) + " cells, not " +
                       std::to_string(names.size()) + ": " + Printable(line));
    }
    CorpusEntry entry{(fs::path(path).parent_path() / cells[pathIndex]).string(),
                      Printable(cells[pathIndex])};
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i != pathIndex) entry.leading += '\t' + Printable(cells[i]);
    }
    list.entries.push_back(std::move(entry));
  }
  return list;
}

}  // namespace

CorpusList ReadCorpus(const std::vector<std::string>& sources, const std::string& column) {
  CorpusList list{{kNameColumn}, {}};
  for (const std::string& source : sources) {
    if (fs::is_directory(source)) {
      AddFolder(source, list);
    } else if (!IsTable(source)) {
      list.entries.push_back({source, Printable(source)});
    } else if (sources.size() == 1) {
      list = ReadTable(source, column);
    } else {
      throw WrongUsage(source + ": a table of recordings stands alone");
    }
  }
  return list;
}

}  // namespace cantorix
