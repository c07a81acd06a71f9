// corpus_list.cpp - folders walked and tables read.
#include "measure/corpus_list.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "labelfile/label_formats.h"
#include "measure/printable.h"
#include "measure/wrong_usage.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNameColumn = "recording";

bool IsFolder(const std::string& path) {
  std::error_code unknown;  // opening it will say why
  return fs::is_directory(path, unknown);
}

bool IsTable(const std::string& path) {
  constexpr std::array<std::string_view, 3> kEndings{"tsv", "csv", "txt"};
  return !IsFolder(path) &&
         std::find(kEndings.begin(), kEndings.end(), FileEnding(path)) != kEndings.end();
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

}  // namespace

CorpusReader::CorpusReader(std::vector<std::string> sources, const std::string& column)
    : sources_(std::move(sources)), columns_{kNameColumn} {
  const auto table = std::find_if(sources_.begin(), sources_.end(), IsTable);
  if (table == sources_.end()) return;
  if (sources_.size() > 1) throw WrongUsage(*table + ": a table of recordings stands alone");
  BeginTable(column);
}

void CorpusReader::BeginTable(const std::string& column) {
  const std::string& path = sources_.front();
  try {
    table_.emplace(path);
  } catch (const FileError& error) {
    throw FileError(CouldNotBeOpened(path, error.what()));
  }
  const std::string_view first = table_->Next();
  separator_ = first.find('\t') == std::string_view::npos ? ',' : '\t';
  const auto names = CellsOf(first, separator_);
  const auto place = column.empty() ? names.begin() : std::find(names.begin(), names.end(), column);
  if (place == names.end()) throw WrongUsage(path + ": there is no column " + column);
  pathColumn_ = static_cast<std::size_t>(place - names.begin());
  width_ = names.size();
  for (std::size_t i = 0; i < width_; ++i) {
    if (i != pathColumn_) columns_.push_back(Printable(names[i]));
  }
}

std::optional<CorpusEntry> CorpusReader::Next() {
  if (table_) {
    const std::string_view line = table_->Next();
    return line.empty() ? std::nullopt : std::optional(EntryOf(line));
  }
  for (;;) {
    if (walk_) {
      if (auto path = walk_->Next()) return CorpusEntry{*path, Printable(*path)};
      walk_.reset();
    }
    if (source_ == sources_.size()) return std::nullopt;
    const std::string& source = sources_[source_++];
    if (!IsFolder(source)) return CorpusEntry{source, Printable(source)};
    walk_.emplace(source);
  }
}

CorpusEntry CorpusReader::EntryOf(std::string_view line) const {
  const std::string& table = sources_.front();
  const auto cells = CellsOf(line, separator_);
  if (cells.size() != width_) {
    throw WrongUsage(table + ": a row of " + std::to_string(cells.size()) + " cells, not " +
                     std::to_string(width_) + ": " + Printable(line));
  }
  CorpusEntry entry{(fs::path(table).parent_path() / cells[pathColumn_]).string(),
                    Printable(cells[pathColumn_])};
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i != pathColumn_) entry.leading += '\t' + Printable(cells[i]);
  }
  return entry;
}

}  // namespace cantorix
