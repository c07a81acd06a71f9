// corpus_output.h - the growing tables of a corpus and the journal that makes them safe: whatever
// kills the program, a later run cuts them back to what the journal vouches for and goes on.
// Tables are NAME.tsv.part until all is done; the journal "corpus.journal" stays, so that a run
// that was finished is known for one. A line of it is written once the tables up to there are on
// the disk.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/file.h"

namespace cantorix::batch {

struct CorpusPart {
  std::string name;    // "pitch"
  std::string header;  // with its line feed
};

class CorpusOutput {
 public:
  enum class Start { kNew, kAgain, kResumed };  // kAgain: an earlier run is thrown away

  // `plan` is the same for the same entries and options only. Throws FileError, and WrongUsage for
  // a folder with a run that is neither to be resumed nor thrown away, or of another plan.
  CorpusOutput(const std::string& folder, std::vector<CorpusPart> parts, const std::string& plan,
               Start start);

  // How many entries have their rows in the tables, in their order.
  std::size_t done() const { return done_; }
  bool finished() const { return finished_; }
  // Adds the rows of the next entry, one text for each table. Throws FileError.
  void Append(const std::vector<std::string>& rows);
  // Makes what was appended safe. Throws FileError.
  void Note();
  // The tables get their names. Throws FileError.
  void Finish();

 private:
  std::string PathOf(std::size_t part, bool whole) const;
  void Begin();
  void Resume(const std::string& journal);
  void AddLine(const std::string& line);
  void Name();

  std::string folder_;
  std::vector<CorpusPart> parts_;
  std::string head_;
  std::vector<File> files_;
  std::vector<std::int64_t> sizes_;
  File journal_;
  std::int64_t journalSize_ = 0;
  std::size_t done_ = 0;
  bool finished_ = false;
  std::chrono::steady_clock::time_point noted_;
};

}  // namespace cantorix::batch
