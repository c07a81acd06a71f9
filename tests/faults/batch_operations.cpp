// batch_operations.cpp - the verbs of the batch program, run in this process with files in the
// place of its standard output and error.
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>

#include "faults/operation_rows.h"
#include "support/environment_variable.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

int CantorixBatchMain(int argc, char** argv);

namespace cantorix::faults {
namespace {

constexpr const char* kEarlier = "an earlier result";

// IN stands for the recording, TEXT for a label file, OUT for the output; without an OUT the result
// is what comes out on standard output.
const std::vector<std::string> kVerbs[] = {
    {"info", "IN", "--json", "-o", "OUT"},
    {"info", "IN"},
    {"pitch", "IN", "--from", "200", "--to", "300", "-o", "OUT"},
    {"intensity", "IN", "--memory-minutes", "0"},
    {"spectrum", "IN", "--at", "400", "-o", "OUT"},
    {"spectrogram", "IN", "--columns", "3", "-o", "OUT"},
    {"formants", "IN", "--columns", "3"},
    {"labels", "IN", "--log", "-o", "OUT"},
    {"labels", "IN", "--format", "eaf", "-o", "OUT.eaf"},
    {"measure", "IN", "--from", "200", "--to", "300", "-o", "OUT"},
    {"convert", "IN", "OUT.qrv"},
    {"convert", "IN", "OUT.wav", "--memory-minutes", "0"},
    {"import-labels", "IN", "TEXT", "--tier", "new", "--unit", "s", "-o", "OUT.qrv"},
    {"edit", "IN", "-o", "OUT.qrv", "select:500:800", "cut", "cursor:0", "paste", "smooth", "undo"},
    {"config", "show"},
    {"config", "default", "-o", "OUT"},
};

std::string Filled(const std::string& word, const std::string& folder) {
  if (word == "IN") return SamplesDirectory() + "/vowels.qrv";
  if (word == "TEXT") return folder + "labels.txt";
  return word.starts_with("OUT") ? folder + "result" + word.substr(3) : word;
}

// Empty: the result is what comes out.
std::string OutputOf(const std::vector<std::string>& words, const std::string& folder) {
  for (const std::string& word : words) {
    if (word.starts_with("OUT")) return Filled(word, folder);
  }
  return "";
}

// The parser of the command line cannot hand on that there is no memory.
std::string WrongAfterEnd(const std::vector<std::string>& words, const std::string& folder) {
  const std::string said = BytesOf(folder + "err");
  if (said.find('\n') + 1 != said.size() || said.size() < 2) return "and did not say why: " + said;
  const std::string output = OutputOf(words, folder);
  if (!output.empty() && BytesOf(output) != kEarlier) return "and touched the earlier result";
  return BytesOf(folder + "out").empty() ? "" : "and had begun its result";
}

class BatchAttempt : public Attempt {
 public:
  BatchAttempt(const std::vector<std::string>& words, const std::string& folder)
      : folder_(folder), output_(OutputOf(words, folder)) {
    for (const std::string& word : words) words_.push_back(Filled(word, folder));
    for (std::string& word : words_) arguments_.push_back(word.data());
    std::filesystem::create_directory(folder + "tmp");
    WriteText(folder + "labels.txt", "0.5\tone\n1.25\ttwo\n");
    if (!output_.empty()) WriteText(output_, kEarlier);
    for (int i = 0; i < 2; ++i) kept_[i] = ::dup(i + 1);
    Lead("out", STDOUT_FILENO);
    Lead("err", STDERR_FILENO);
  }
  ~BatchAttempt() override { GiveBack(); }

  bool Do() override {
    return CantorixBatchMain(static_cast<int>(arguments_.size()), arguments_.data()) == 0;
  }
  std::string State() override {
    // A line that did not get through is missing, what came before it stands.
    return output_.empty() ? (told() > 0 ? kInParts : Text("out")) : BytesOf(output_);
  }
  int told() const override {
    const std::string text = lastText();
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
  }
  std::string lastText() const override { return Text("err"); }

 private:
  void Lead(const char* name, int number) {
    const int file = ::open((folder_ + name).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ::dup2(file, number);
    ::close(file);
  }
  void GiveBack() {
    for (int i = 0; i < 2; ++i) {
      ::dup2(kept_[i], i + 1);
      ::close(kept_[i]);
    }
  }
  std::string Text(const char* name) const { return BytesOf(folder_ + name); }

  std::string folder_;
  std::string output_;
  std::vector<std::string> words_{"cantorix-batch"};
  std::vector<char*> arguments_;
  const EnvironmentVariable temporary_{"TMPDIR", (folder_ + "tmp").c_str()};
  int kept_[2];
};

}  // namespace

void AddBatchOperations(std::vector<Operation>& operations) {
  for (const auto& words : kVerbs) {
    const auto prepare = [&words](const std::string& folder) {
      return std::make_unique<BatchAttempt>(words, folder);
    };
    std::string name = "batch";
    for (const std::string& word : words) name += " " + word;
    operations.push_back({name, prepare});
    operations.back().wrongAfterEnd = [&words](const std::string& folder) {
      return WrongAfterEnd(words, folder);
    };
  }
}

}  // namespace cantorix::faults
