// interrupt_batch.cpp - interrupts every verb of the batch program at random system calls and looks
// at what is left: an exit code of 0 comes with the whole result, an exit code of 1 with one line
// and the output file as it was before.
// Usage: cantorix-interrupt-batch PROGRAM RECORDING.qrv [COUNT [SEED]]; COUNT interrupts for each
// row of the table below. Ends with 0 when every one was as it should be, with 77 when the system
// does not let programs be traced.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "interrupt/traced_run.h"

namespace cantorix::interrupt {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

constexpr int kSkipped = 77;
constexpr const char* kEarlier = "an earlier result";

// IN stands for the recording, TEXT for a label file, OUT for the output; without an OUT the
// result is what comes out on standard output.
const Words kRows[] = {
    {"info", "IN", "--json", "-o", "OUT"},
    {"pitch", "IN", "-o", "OUT"},
    {"pitch", "IN", "--method", "cepstral", "--memory-minutes", "0"},
    {"intensity", "IN", "-o", "OUT"},
    {"intensity", "IN", "--samples"},
    {"spectrum", "IN", "--from", "100", "--to", "900", "-o", "OUT"},
    {"spectrogram", "IN", "--columns", "60", "-o", "OUT"},
    {"formants", "IN", "--columns", "60", "-o", "OUT"},
    {"labels", "IN", "-o", "OUT"},
    {"labels", "IN", "--log"},
    {"convert", "IN", "OUT.qrv"},
    {"convert", "IN", "OUT.wav", "--memory-minutes", "0"},
    {"import-labels", "IN", "TEXT", "--tier", "new", "--unit", "s", "-o", "OUT.qrv"},
    {"edit", "IN", "-o", "OUT.qrv", "select:500:800", "cut", "cursor:0", "paste", "smooth"},
    {"config", "show"},
    {"config", "default", "-o", "OUT"},
    {"commands", "--html", "-o", "OUT"},
};

std::string TextOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Put(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

struct Tally {
  int whole = 0;    // exit code 0
  int stopped = 0;  // exit code 1
  int wrong = 0;
};

// One row of the table, with a folder of its own for all that it writes.
class Row {
 public:
  Row(const std::string& program, const std::string& recording, const Words& words,
      const fs::path& folder)
      : folder_(folder), words_{program} {
    for (const std::string& word : words) words_.push_back(Filled(word, recording));
    Put(folder_ / "labels.txt", "0.5\tone\n1.25\ttwo\n");
  }

  // Lets it run to its end; false when that fails.
  bool Calibrate() {
    const TracedRun run = Run(0);
    calls_ = run.calls;
    listening_ = run.listening;
    whole_ = Result();
    return run.exitCode == 0 && listening_ > 0 && whole_.size() > 1 && whole_ != kEarlier;
  }

  void Interrupt(std::mt19937& random, Tally& tally) {
    // From the first call after it has begun to listen: before that it has begun nothing.
    const auto at = std::uniform_int_distribution<std::int64_t>(listening_ + 1, calls_)(random);
    const TracedRun run = Run(at);
    const std::string fault = FaultOf(run);
    tally.whole += run.exitCode == 0;
    tally.stopped += run.exitCode == 1;
    if (fault.empty()) return;
    ++tally.wrong;
    std::printf("%s: interrupted at call %lld of %lld: %s\n", words_[1].c_str(),
                static_cast<long long>(at), static_cast<long long>(calls_), fault.c_str());
  }

 private:
  std::string Filled(const std::string& word, const std::string& recording) {
    if (word == "IN") return recording;
    if (word == "TEXT") return folder_ / "labels.txt";
    if (!word.starts_with("OUT")) return word;
    output_ = folder_ / ("result" + word.substr(3));
    return output_;
  }
  TracedRun Run(std::int64_t interruptAt) {
    if (!output_.empty()) Put(output_, kEarlier);
    return RunTraced(words_, folder_ / "out", folder_ / "err", interruptAt);
  }
  std::string Result() const { return TextOf(output_.empty() ? folder_ / "out" : output_); }

  std::string FaultOf(const TracedRun& run) const {
    const std::string said = TextOf(folder_ / "err");
    if (!fs::is_empty(folder_ / "tmp")) return "temporary files are left";
    if (run.exitCode == 0) {
      if (Result() != whole_) return "exit code 0 without the whole result";
      return said.empty() ? "" : "exit code 0, and it said: " + said;
    }
    if (run.exitCode != 1) return "exit code " + std::to_string(run.exitCode) + ": " + said;
    if (said.find('\n') + 1 != said.size() || said.find("interrupted") == std::string::npos) {
      return "not one line: " + said;
    }
    if (!output_.empty() && Result() != kEarlier) return "the earlier file is gone";
    return "";
  }

  fs::path folder_;
  fs::path output_;  // empty: standard output
  Words words_;
  std::int64_t calls_ = 0;
  std::int64_t listening_ = 0;
  std::string whole_;
};

bool Work(const Words& arguments, const fs::path& folder) {
  const int count = arguments.size() > 2 ? std::stoi(arguments[2]) : 200;
  const int seed = arguments.size() > 3 ? std::stoi(arguments[3]) : 1;
  std::mt19937 random(static_cast<std::uint32_t>(seed));
  bool right = true;
  for (const Words& words : kRows) {
    Row row(arguments[0], arguments[1], words, folder);
    Tally tally;
    if (!row.Calibrate()) {
      std::printf("%s does not run\n", words[0].c_str());
      right = false;
      continue;
    }
    for (int i = 0; i < count; ++i) row.Interrupt(random, tally);
    std::printf("%-14s %d interrupts: %d whole results, %d stopped, %d wrong\n", words[0].c_str(),
                count, tally.whole, tally.stopped, tally.wrong);
    std::fflush(stdout);
    right = right && tally.wrong == 0;
  }
  return right;
}

int Main(const Words& arguments) {
  if (arguments.size() < 2) {
    std::fputs("usage: cantorix-interrupt-batch PROGRAM RECORDING.qrv [COUNT [SEED]]\n", stderr);
    return 2;
  }
  std::string folder = (fs::temp_directory_path() / "cantorix-interrupt-XXXXXX").string();
  if (::mkdtemp(folder.data()) == nullptr) return 1;
  fs::create_directory(fs::path(folder) / "tmp");
  ::setenv("TMPDIR", (folder + "/tmp").c_str(), 1);
  // The search for leaks would trace the program itself.
  ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
  int code = 1;
  try {
    code = Work(arguments, folder) ? 0 : 1;
  } catch (const std::system_error& error) {
    std::printf("cannot trace: %s\n", error.what());
    code = kSkipped;
  }
  fs::remove_all(folder);
  return code;
}

}  // namespace
}  // namespace cantorix::interrupt

int main(int argc, char** argv) { return cantorix::interrupt::Main({argv + 1, argv + argc}); }
