// label_file.h - what a file of labels holds, whatever its format: tiers of labels with a time, and
// with an end where the format has one. Readers and writers of all formats meet here.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace cantorix {

struct TimedLabel {
  double startS = 0.0;
  double endS = 0.0;  // startS for a point
  std::string text;   // UTF-8
};

struct LabelFileTier {
  std::string name;                // UTF-8; empty when the format has none
  bool intervals = false;          // labels last until their end; else they are points
  std::vector<TimedLabel> labels;  // in the order of the file
};

struct LabelFile {
  std::vector<LabelFileTier> tiers;
  bool tiersNamed = true;          // false: the one tier has no name of its own
  double lengthS = 0.0;            // written only: of the recording
  double rateHz = 0.0;             // written only: of the recording
  std::string recordingName;       // written only: of the recording's file
  std::vector<std::string> notes;  // what the file holds and could not be read, a sentence each
};

// The file cannot be read as what it is taken for; what() is one sentence that says where and why.
class LabelFileError : public std::runtime_error {
 public:
  // `reason` becomes a sentence: with a capital letter and a full stop.
  explicit LabelFileError(std::string_view reason);
};

// "1 label", "3 labels"
std::string CountOf(std::size_t count, std::string_view what);
// A text for a message: in quotes, cut when it is long.
std::string Quoted(std::string_view text);

}  // namespace cantorix
