// corpus_output.cpp - tables appended to, synced, cut back and named.
#include "batch/corpus_output.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <sstream>
#include <utility>

#include "measure/wrong_usage.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEnd = "end";
constexpr auto kBetweenNotes = std::chrono::seconds(1);

std::span<const std::byte> Bytes(const std::string& text) { return std::as_bytes(std::span(text)); }

// A line counts when it is whole: "DONE SIZE SIZE ... ." with the closing point.
bool ReadLine(const std::string& line, std::size_t& done, std::vector<std::int64_t>& sizes) {
  std::istringstream words(line);
  std::size_t count = 0;
  std::vector<std::int64_t> found(sizes.size());
  if (!(words >> count)) return false;
  for (std::int64_t& size : found) {
    if (!(words >> size)) return false;
  }
  std::string point;
  if (!(words >> point) || point != ".") return false;
  done = count;
  sizes = std::move(found);
  return true;
}

}  // namespace

CorpusOutput::CorpusOutput(const std::string& folder, std::vector<CorpusPart> parts,
                           const std::string& plan, Start start)
    : folder_(folder), parts_(std::move(parts)), head_("cantorix corpus 1 " + plan + '\n') {
  fs::create_directories(folder_);
  sizes_.resize(parts_.size());
  const std::string path = folder_ + "/corpus.journal";
  const bool there = fs::exists(path);
  if (there && start == Start::kNew) {
    throw WrongUsage(folder_ +
                     " holds an earlier run; --resume goes on with it, --force begins anew");
  }
  journal_ = File::OpenForUpdate(path);
  const std::string earlier = ReadWholeFile(journal_);
  if (start == Start::kResumed && !earlier.empty()) {
    Resume(earlier);
  } else {
    Begin();
  }
}

void CorpusOutput::Begin() {
  journal_.Resize(0);
  journal_.Sync();
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    fs::remove(PathOf(i, true));
    files_.push_back(File::Create(PathOf(i, false)));
    files_.back().Write(0, Bytes(parts_[i].header));
    sizes_[i] = std::ssize(parts_[i].header);
  }
  AddLine(head_);
  Note();
}

void CorpusOutput::Resume(const std::string& journal) {
  if (!journal.starts_with(head_)) {
    // A head that was cut short vouches for nothing.
    if (journal.find('\n') == std::string::npos) return Begin();
    throw WrongUsage(folder_ + " holds a run of other recordings or options");
  }
  std::istringstream lines(journal.substr(head_.size()));
  bool noted = false;
  for (std::string line; std::getline(lines, line);) {
    finished_ = finished_ || line == kEnd;
    noted = ReadLine(line, done_, sizes_) || noted;
  }
  if (finished_) return Name();
  if (!noted) return Begin();
  journal_.Resize(std::ssize(journal.substr(0, journal.rfind('\n') + 1)));
  journalSize_ = journal_.Size();
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    files_.push_back(File::OpenForUpdate(PathOf(i, false)));
    if (files_.back().Size() < sizes_[i]) {
      throw FileError(PathOf(i, false) + " is shorter than its journal says.");
    }
    files_.back().Resize(sizes_[i]);
  }
}

void CorpusOutput::Append(const std::vector<std::string>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].empty()) continue;
    files_[i].Write(sizes_[i], Bytes(rows[i]));
    sizes_[i] += std::ssize(rows[i]);
  }
  ++done_;
  if (std::chrono::steady_clock::now() - noted_ >= kBetweenNotes) Note();
}

void CorpusOutput::Note() {
  for (File& file : files_) file.Sync();
  std::string line = std::to_string(done_);
  for (const std::int64_t size : sizes_) line += ' ' + std::to_string(size);
  AddLine(line + " .\n");
  journal_.Sync();
  noted_ = std::chrono::steady_clock::now();
}

void CorpusOutput::Finish() {
  Note();
  AddLine(std::string(kEnd) + '\n');
  journal_.Sync();
  finished_ = true;
  files_.clear();
  Name();
}

void CorpusOutput::Name() {
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    if (fs::exists(PathOf(i, false))) fs::rename(PathOf(i, false), PathOf(i, true));
  }
}

void CorpusOutput::AddLine(const std::string& line) {
  journal_.Write(journalSize_, Bytes(line));
  journalSize_ += std::ssize(line);
}

std::string CorpusOutput::PathOf(std::size_t part, bool whole) const {
  return folder_ + '/' + parts_[part].name + (whole ? ".tsv" : ".tsv.part");
}

}  // namespace cantorix::batch
